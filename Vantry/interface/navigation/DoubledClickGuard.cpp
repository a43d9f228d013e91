#include "Vantry/interface/navigation/DoubledClickGuard.h"

#include <utility>

#include <QApplication>
#include <QMouseEvent>

namespace vantry {

DoubledClickGuard::DoubledClickGuard(std::function<QWidget*()> current, QObject* parent)
    : QObject(parent)
    , page(std::move(current)) {
    QApplication::instance()->installEventFilter(this);
}

bool DoubledClickGuard::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonDblClick)
        return false;
    QWidget* const shown = page();
    auto* widget = qobject_cast<QWidget*>(watched);
    if (shown == nullptr || widget == nullptr || (widget != shown && !shown->isAncestorOf(widget)))
        return false;
    const auto& press = *static_cast<QMouseEvent*>(event);
    const QPoint at = press.globalPosition().toPoint();
    const auto interval = static_cast<quint64>(QApplication::doubleClickInterval());
    const bool isSecond = pressedPage != shown && pressedWhen > 0 &&
                          press.timestamp() - pressedWhen < interval &&
                          (at - pressedAt).manhattanLength() <= QApplication::startDragDistance();
    if (isSecond)
        return true;
    pressedPage = shown;
    pressedAt = at;
    pressedWhen = press.timestamp();
    return false;
}

}  // namespace vantry
