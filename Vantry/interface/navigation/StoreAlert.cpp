#include "Vantry/interface/navigation/StoreAlert.h"

#include "Vantry/app/QtText.h"
#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/Sheet.h"

namespace vantry {

StoreAlert::StoreAlert(VantryStore& watched, QWidget& over)
    : QObject(&over)
    , store(watched)
    , window(over) {}

void StoreAlert::refresh() {
    const auto& text = store.error() ? store.error() : store.notice();
    if (!text) {
        if (alert) {
            alert->hide();
            alert->deleteLater();
            alert = nullptr;
        }
        return;
    }
    if (!window.isVisible())
        return;
    showsError = store.error().has_value();
    const bool english = store.english();
    QString title = english ? QStringLiteral("Done") : QStringLiteral("完成");
    if (showsError)
        title = english ? QStringLiteral("Operation could not complete") : QStringLiteral("操作未完成");
    if (!alert) {
        alert = new AlertSheet(Sheet::topmostOver(window));
        connect(alert, &AlertSheet::finished, this, &StoreAlert::clear);
    }
    alert->setFailure(showsError);
    alert->setTexts(title, toQString(*text), english ? QStringLiteral("OK") : QStringLiteral("好"));
    if (!alert->isVisible())
        alert->open();
}

void StoreAlert::clear() {
    alert->deleteLater();
    alert = nullptr;
    if (showsError)
        store.setError(std::nullopt);
    else
        store.setNotice(std::nullopt);
}

}  // namespace vantry
