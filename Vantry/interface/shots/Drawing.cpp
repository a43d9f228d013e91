#include "Vantry/interface/shots/Drawing.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantry {
namespace {

/// From 0 to 1, and never the other zero, whose sign would be stored.
double share(double part, double whole) {
    return std::clamp(part / whole, 0.0, 1.0) + 0.0;
}

}  // namespace

std::optional<Point> captured(double x, double y, double width, double height) {
    const bool hasSize = width > 0 && height > 0 && std::isfinite(width) && std::isfinite(height);
    if (!hasSize || std::isnan(x) || std::isnan(y))
        return std::nullopt;
    return Point{share(x, width), share(y, height)};
}

bool Drawing::draw(double x, double y, double width, double height) {
    const auto point = captured(x, y, width, height);
    if (point)
        current_.points.push_back(*point);
    return point.has_value();
}

bool Drawing::endStroke() {
    Stroke ended = std::exchange(current_, Stroke::make({}));
    if (ended.points.empty())
        return false;
    undoStack.emplace_back(Added{});
    strokes_.push_back(std::move(ended));
    return true;
}

void Drawing::clear() {
    undoStack.emplace_back(std::exchange(strokes_, {}));
}

void Drawing::undo() {
    if (undoStack.empty())
        return;
    if (auto* before = std::get_if<std::vector<Stroke>>(&undoStack.back()))
        strokes_ = std::move(*before);
    else
        strokes_.pop_back();
    undoStack.pop_back();
}

}  // namespace vantry
