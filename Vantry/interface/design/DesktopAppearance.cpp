#include "Vantry/interface/design/DesktopAppearance.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QStyle>

#include "Vantry/interface/design/Palette.h"

namespace vantry {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");
const QString space = QStringLiteral("org.freedesktop.appearance");
const QString key = QStringLiteral("color-scheme");

/// The values of color-scheme; any other means that the desktop does not care.
constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;

}  // namespace

DesktopAppearance::DesktopAppearance(QObject* parent)
    : QObject(parent)
    , paletteIsDark(Palette::isDark(QApplication::palette())) {
    ask();
    qApp->installEventFilter(this);
}

void DesktopAppearance::ask() {
    QDBusMessage call = QDBusMessage::createMethodCall(service, object, settings, QStringLiteral("Read"));
    call << space << key;
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        follow();
        const QDBusPendingReply<QVariant> reply = *watcher;
        if (reply.isError())
            return;
        // Older portals wrap the value twice.
        QVariant value = reply.value();
        while (value.canConvert<QDBusVariant>())
            value = value.value<QDBusVariant>().variant();
        take(value.toUInt());
    });
}

void DesktopAppearance::follow() {
    QDBusConnection::sessionBus().connect(service, object, settings, QStringLiteral("SettingChanged"), this,
                                          SLOT(onSettingChanged(QString, QString, QDBusVariant)));
}

void DesktopAppearance::onSettingChanged(const QString& changedSpace, const QString& changedKey,
                                         const QDBusVariant& value) {
    if (changedSpace == space && changedKey == key)
        take(value.variant().toUInt());
}

void DesktopAppearance::take(uint colourScheme) {
    const bool was = isDark();
    if (colourScheme == prefersDark || colourScheme == prefersLight)
        announced = colourScheme == prefersDark;
    else
        announced.reset();
    if (isDark() != was)
        emit changed();
}

bool DesktopAppearance::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ThemeChange) {
        const bool was = isDark();
        paletteIsDark = Palette::isDark(QApplication::style()->standardPalette());
        if (isDark() != was)
            emit changed();
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace vantry
