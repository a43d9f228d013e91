#include "Vantry/interface/navigation/NavigationRow.h"

#include <QPainter>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryType.h"
#include "Vantry/interface/navigation/NavigationAccessibility.h"

namespace vantry {

NavigationRow::NavigationRow(Glyph sign, QWidget* parent)
    : Pressable(parent)
    , glyph(sign) {
    installNavigationAccessibility();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void NavigationRow::setChosen(bool now) {
    if (chosen == now)
        return;
    chosen = now;
    update();
    QAccessible::State state;
    state.selected = true;
    QAccessibleStateChangeEvent event(this, state);
    QAccessible::updateAccessibility(&event);
}

QSize NavigationRow::sizeHint() const {
    return {Metrics::sidebarMinimum - 2 * Metrics::paddingSidebar, Metrics::controlHeight};
}

void NavigationRow::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr qreal half = Metrics::hairline / 2.0;
    const QRectF surface = QRectF(rect()).adjusted(half, half, -half, -half);
    if (chosen || isHovered()) {
        painter.setPen(chosen ? QPen(palette.rule, Metrics::hairline) : QPen(Qt::NoPen));
        painter.setBrush(chosen ? palette.selected : palette.hover);
        painter.drawRoundedRect(surface, Metrics::radiusControl, Metrics::radiusControl);
    }
    if (chosen) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette.ink);
        painter.drawRoundedRect(
            QRectF(0, Metrics::gapField, Metrics::selectionBar, height() - 2 * Metrics::gapField),
            Metrics::hairline, Metrics::hairline);
    }
    const QRectF sign(Metrics::paddingSidebar, (height() - Metrics::icon) / 2.0, Metrics::icon,
                      Metrics::icon);
    paintGlyph(painter, glyph, sign, palette.ink);
    const int left = Metrics::paddingSidebar + Metrics::icon + Metrics::gapField;
    painter.setFont(VantryType::font(VantryType::Role::label, chosen ? QFont::DemiBold : QFont::Medium));
    painter.setPen(palette.ink);
    painter.drawText(QRect(left, 0, width() - left, height()), Qt::AlignLeft | Qt::AlignVCenter, plain());
    if (showsFocus())
        paintFocus(painter, rect(), Metrics::radiusControl);
}

}  // namespace vantry
