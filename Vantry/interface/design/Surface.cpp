#include "Vantry/interface/design/Surface.h"

#include <QBitmap>
#include <QPainter>

namespace vantry {

void paintSurface(QPainter& painter, const QRectF& place, const Surface& surface) {
    const qreal half = surface.width / 2.0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(surface.outline, surface.width));
    painter.setBrush(surface.fill);
    painter.drawRoundedRect(place.adjusted(half, half, -half, -half), surface.radius, surface.radius);
    painter.restore();
}

QRegion roundedRegion(const QSize& size, int radius) {
    QBitmap shape(size);
    shape.fill(Qt::color0);
    QPainter painter(&shape);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(QRect(QPoint(), size), radius, radius);
    painter.end();
    return QRegion(shape);
}

}  // namespace vantry
