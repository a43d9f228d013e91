#include "Vantry/interface/design/Appearance.h"

#include <QApplication>
#include <QToolTip>

#include "Vantry/interface/design/DesktopAppearance.h"
#include "Vantry/interface/design/Palette.h"

namespace vantry {

Appearance::Appearance(QObject* parent)
    : QObject(parent)
    , desktop(new DesktopAppearance(this)) {
    connect(desktop, &DesktopAppearance::changed, this, &Appearance::apply);
    apply();
}

void Appearance::setChoice(const QString& wanted) {
    choice = wanted;
    apply();
}

void Appearance::apply() {
    const bool forced = choice == QLatin1String("dark") || choice == QLatin1String("light");
    const bool dark = forced ? choice == QLatin1String("dark") : desktop->isDark();
    const QPalette palette = (dark ? Palette::dark() : Palette::light()).controls();
    if (QApplication::palette() != palette)
        QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

}  // namespace vantry
