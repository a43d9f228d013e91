#include "Vantry/interface/navigation/NavigationRow.h"

#include <QPainter>

#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/ControlStates.h"
#include "Vantry/interface/design/VantryMotion.h"
#include "Vantry/interface/design/VantryType.h"
#include "Vantry/interface/navigation/NavigationAccessibility.h"

namespace vantry {

NavigationRow::NavigationRow(Glyph sign, QWidget* parent)
    : Pressable(VantryMotion::selection(), parent)
    , glyph(sign) {
    installNavigationAccessibility();
    setPressedOnce();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void NavigationRow::setChosen(bool now) {
    if (chosen == now)
        return;
    chosen = now;
    states().setSelected(now);
    update();
    QAccessible::State state;
    state.selected = true;
    QAccessibleStateChangeEvent event(this, state);
    QAccessible::updateAccessibility(&event);
}

QSize NavigationRow::sizeHint() const {
    return {Metrics::sidebarMinimum - 2 * Metrics::paddingSidebar, VantryRowButtonStyle::height};
}

void NavigationRow::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const ControlLook look = VantryRowButtonStyle::look(palette, state());
    VantryRowButtonStyle::paint(painter, rect(), palette, state());
    painter.setOpacity(look.opacity);
    const QRectF sign(Metrics::paddingSidebar, (height() - Metrics::icon) / 2.0, Metrics::icon,
                      Metrics::icon);
    paintGlyph(painter, glyph, sign, look.text);
    const int left = Metrics::paddingSidebar + Metrics::icon + Metrics::gapField;
    paintLine(painter, {left, 0, width() - left, height()},
              VantryType::font(VantryType::Role::label, chosen ? QFont::DemiBold : QFont::Medium), look.text,
              plain());
    painter.setOpacity(1);
    if (showsFocus())
        paintFocus(painter, rect(), Metrics::radiusControl);
}

}  // namespace vantry
