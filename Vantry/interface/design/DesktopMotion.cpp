#include "Vantry/interface/design/DesktopMotion.h"

#include <QVariant>

#include "Vantry/interface/design/DesktopSetting.h"

namespace vantry {

DesktopMotion::DesktopMotion(QObject* parent)
    : QObject(parent) {
    // The values of reduced-motion; any other means that the desktop does not care.
    constexpr uint reduced = 1;
    auto* wish = new DesktopSetting(QStringLiteral("org.freedesktop.appearance"),
                                    QStringLiteral("reduced-motion"), this);
    connect(wish, &DesktopSetting::told, this,
            [this](const QVariant& value) { set(wantsReduced, value.toUInt() == reduced); });
    auto* animations = new DesktopSetting(QStringLiteral("org.gnome.desktop.interface"),
                                          QStringLiteral("enable-animations"), this);
    connect(animations, &DesktopSetting::told, this,
            [this](const QVariant& value) { set(animates, !value.isValid() || value.toBool()); });
}

void DesktopMotion::set(bool& part, bool value) {
    const bool was = isReduced();
    part = value;
    if (isReduced() != was)
        emit changed();
}

}  // namespace vantry
