#pragma once

#include <QColor>
#include <QRectF>
#include <QRegion>

class QPainter;

namespace vantry {

/// A rounded surface: its fill, and an outline that lies within its edge.
struct Surface {
    QColor fill;
    QColor outline;
    int width = 0;
    int radius = 0;
};

void paintSurface(QPainter& painter, const QRectF& place, const Surface& surface);

/// Every pixel of which a rounded rectangle takes the greater part. Windows of that shape are cut out so:
/// where nothing behind them shows through, their corners would be black.
[[nodiscard]] QRegion roundedRegion(const QSize& size, int radius);

}  // namespace vantry
