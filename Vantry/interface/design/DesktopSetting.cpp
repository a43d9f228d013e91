#include "Vantry/interface/design/DesktopSetting.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace vantry {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");

/// The value itself: older portals wrap it twice.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

}  // namespace

DesktopSetting::DesktopSetting(const QString& group, const QString& name, QObject* parent)
    : QObject(parent)
    , space(group)
    , key(name) {
    // Qt finds the slot below by the name of this type, which it knows only from its first use on.
    qRegisterMetaType<QDBusVariant>();
    ask();
}

void DesktopSetting::ask() {
    QDBusMessage call = QDBusMessage::createMethodCall(service, object, settings, QStringLiteral("Read"));
    call << space << key;
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        follow();
        const QDBusPendingReply<QVariant> reply = *watcher;
        if (!reply.isError())
            emit told(unwrapped(reply.value()));
    });
}

void DesktopSetting::follow() {
    QDBusConnection::sessionBus().connect(service, object, settings, QStringLiteral("SettingChanged"), this,
                                          SLOT(onSettingChanged(QString, QString, QDBusVariant)));
}

void DesktopSetting::onSettingChanged(const QString& changedSpace, const QString& changedKey,
                                      const QDBusVariant& value) {
    if (changedSpace == space && changedKey == key)
        emit told(unwrapped(value.variant()));
}

}  // namespace vantry
