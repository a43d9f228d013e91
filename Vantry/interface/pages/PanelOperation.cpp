#include "Vantry/interface/pages/PanelOperation.h"

#include <utility>

#include <QApplication>
#include <QPointer>
#include <QWidget>

#include "Vantry/app/FieldSettling.h"
#include "Vantry/interface/pages/Contained.h"

namespace vantry {

PanelOperation::PanelOperation(VantryStore& opened, QWidget& shown)
    : QObject(&shown)
    , store(opened)
    , owner(shown) {}

void PanelOperation::start(std::function<void()> operation) {
    if (std::exchange(busy, true))
        return;
    QMetaObject::invokeMethod(
        this, [this, operation = std::move(operation)] { run(operation); }, Qt::QueuedConnection);
}

void PanelOperation::run(const std::function<void()>& operation) {
    // While the panel is open, the page may go.
    const QPointer<PanelOperation> still(this);
    if (owner.isVisible()) {
        // A tool presses an entry without closing the menu, which would keep keys and clicks from the panel.
        while (QWidget* menu = QApplication::activePopupWidget())
            if (!menu->close())
                break;
        contain(store, [&operation] {
            settleField();
            operation();
        });
    }
    if (still != nullptr)
        busy = false;
}

}  // namespace vantry
