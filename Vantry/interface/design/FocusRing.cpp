#include "Vantry/interface/design/FocusRing.h"

#include <QPainter>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"

namespace vantry {

FocusRing::FocusRing(QWidget& control, const QMarginsF& margins, qreal corner, qreal space)
    : inset(margins)
    , radius(corner)
    , gap(space) {
    setWidget(&control);
}

void FocusRing::paintEvent(QPaintEvent*) {
    constexpr qreal reach = Metrics::ringReach;
    const qreal outside = gap + Metrics::ring;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF control = QRectF(rect()).adjusted(reach, reach, -reach, -reach);
    paintRing(painter, control.marginsRemoved(inset).adjusted(-outside, -outside, outside, outside),
              radius + outside, Palette::of(*this).link);
}

void paintRing(QPainter& painter, const QRectF& shape, qreal radius, const QColor& colour) {
    constexpr qreal half = Metrics::ring / 2.0;
    painter.setPen(QPen(colour, Metrics::ring));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(shape.adjusted(half, half, -half, -half), radius - half, radius - half);
}

}  // namespace vantry
