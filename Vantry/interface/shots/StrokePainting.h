#pragma once

#include <span>

#include <QRectF>

#include "VantryCore/records/Stroke.h"

class QColor;
class QPainter;

namespace vantry {

/// Where `points` lie on their frame, as fractions of it; a null rectangle without points.
[[nodiscard]] QRectF boundsOf(std::span<const Point> points);
/// The place on a frame at `place` that a line through all of `bounds` can colour.
[[nodiscard]] QRectF inkedBy(const QRectF& bounds, const QRectF& place);

/// Draws a stroke on the frame at `place`: a path from point to point, of one point a dot, of none nothing.
/// Parts that do not touch `exposed` may be left out.
void paintStroke(QPainter& painter, std::span<const Point> points, const QRectF& place, const QRectF& exposed,
                 const QColor& ink);

}  // namespace vantry
