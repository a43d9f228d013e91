#include "Vantry/interface/design/FamilyNavigationDot.h"

#include <QPainter>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryMotion.h"

namespace vantry {

FamilyNavigationDot::FamilyNavigationDot(QWidget& below)
    : tab(below)
    , transition(below, VantryMotion::selection()) {}

void FamilyNavigationDot::paint(QPainter& painter, const QPointF& middle) const {
    if (opacity() <= 0)
        return;
    constexpr qreal radius = Metrics::navigationDot / 2.0;
    painter.save();
    painter.setOpacity(painter.opacity() * opacity());
    painter.setPen(Qt::NoPen);
    painter.setBrush(Palette::of(tab).ink);
    painter.drawEllipse(middle, radius, radius);
    painter.restore();
}

}  // namespace vantry
