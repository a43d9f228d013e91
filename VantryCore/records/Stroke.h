#pragma once

#include <tuple>
#include <vector>

#include "VantryCore/records/Field.h"
#include "VantryCore/records/Identifier.h"

namespace vantry {

/// A place on a storyboard image, as fractions from 0 to 1 of its width and height.
struct Point {
    double x = 0;
    double y = 0;

    static constexpr auto fields() { return std::tuple(field("x", &Point::x), field("y", &Point::y)); }
};

/// One pen stroke of a drawing, in drawing order.
struct Stroke {
    Identifier id;
    std::vector<Point> points;

    static constexpr auto fields() {
        return std::tuple(field("id", &Stroke::id), field("points", &Stroke::points));
    }

    /// A new stroke with a fresh identifier.
    [[nodiscard]] static Stroke make(std::vector<Point> points) {
        return Stroke{Identifier::random(), std::move(points)};
    }
};

}  // namespace vantry
