#include "Vantry/interface/design/DesktopAppearance.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>
#include <QVariant>

#include "Vantry/interface/design/DesktopSetting.h"
#include "Vantry/interface/design/Palette.h"

namespace vantry {
namespace {

/// The values of color-scheme; any other means that the desktop does not care.
constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;

}  // namespace

DesktopAppearance::DesktopAppearance(QObject* parent)
    : QObject(parent)
    , paletteIsDark(Palette::isDark(QApplication::palette())) {
    auto* scheme = new DesktopSetting(QStringLiteral("org.freedesktop.appearance"),
                                      QStringLiteral("color-scheme"), this);
    connect(scheme, &DesktopSetting::told, this, [this](const QVariant& value) { take(value.toUInt()); });
    qApp->installEventFilter(this);
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
