#include "Vantry/interface/shots/StrokePainting.h"

#include <algorithm>

#include <QPainter>
#include <QPolygonF>

#include "Vantry/interface/design/Metrics.h"

namespace vantry {
namespace {

QPointF on(const QRectF& place, const Point& point) {
    return place.topLeft() + QPointF(point.x * place.width(), point.y * place.height());
}

/// Whether the line between two points, as wide as it is drawn, can touch `exposed`.
bool touches(const QRectF& exposed, const QPointF& from, const QPointF& to) {
    constexpr qreal reach = Metrics::stroke;
    return std::max(from.x(), to.x()) + reach >= exposed.left() &&
           std::min(from.x(), to.x()) - reach <= exposed.right() &&
           std::max(from.y(), to.y()) + reach >= exposed.top() &&
           std::min(from.y(), to.y()) - reach <= exposed.bottom();
}

}  // namespace

QRectF boundsOf(std::span<const Point> points) {
    if (points.empty())
        return {};
    const auto [left, right] = std::minmax_element(points.begin(), points.end(),
                                                   [](const Point& a, const Point& b) { return a.x < b.x; });
    const auto [top, bottom] = std::minmax_element(points.begin(), points.end(),
                                                   [](const Point& a, const Point& b) { return a.y < b.y; });
    return {QPointF(left->x, top->y), QPointF(right->x, bottom->y)};
}

QRectF inkedBy(const QRectF& bounds, const QRectF& place) {
    constexpr qreal reach = Metrics::stroke;
    return QRectF(on(place, {bounds.left(), bounds.top()}), on(place, {bounds.right(), bounds.bottom()}))
        .adjusted(-reach, -reach, reach, reach);
}

void paintStroke(QPainter& painter, std::span<const Point> points, const QRectF& place, const QRectF& exposed,
                 const QColor& ink) {
    if (points.size() == 1) {
        constexpr qreal radius = Metrics::stroke / 2.0;
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink);
        painter.drawEllipse(on(place, points.front()), radius, radius);
        return;
    }
    // At this width nobody sees the difference to round joins, which take several times as long.
    painter.setPen(QPen(ink, Metrics::stroke, Qt::SolidLine, Qt::RoundCap, Qt::BevelJoin));
    painter.setBrush(Qt::NoBrush);
    // In runs of neighbours that are in sight: a long stroke costs what can be seen of it.
    QPolygonF run;
    const auto finish = [&] {
        if (!run.isEmpty())
            painter.drawPolyline(run);
        run.clear();
    };
    for (std::size_t index = 1; index < points.size(); ++index) {
        const QPointF from = on(place, points[index - 1]);
        const QPointF to = on(place, points[index]);
        if (!touches(exposed, from, to)) {
            finish();
            continue;
        }
        if (run.isEmpty())
            run << from;
        run << to;
    }
    finish();
}

}  // namespace vantry
