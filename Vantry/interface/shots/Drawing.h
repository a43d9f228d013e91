#pragma once

#include <optional>
#include <variant>
#include <vector>

#include "VantryCore/records/Stroke.h"

namespace vantry {

/// A location on a surface of that size as a point of a drawing: fractions of width and height, what lies
/// outside brought to the edge. Nothing when there is no such point: on a surface without a size, or when one
/// of the numbers is none.
[[nodiscard]] std::optional<Point> captured(double x, double y, double width, double height);

/// A drawing under way: its strokes, the one that is being drawn, and the way back. Every point that is
/// drawn is kept as it came, nothing is thinned out or smoothed.
class Drawing {
public:
    Drawing() = default;
    explicit Drawing(std::vector<Stroke> drawn)
        : strokes_(std::move(drawn)) {}

    [[nodiscard]] const std::vector<Stroke>& strokes() const noexcept { return strokes_; }
    /// The stroke under way; it has no points while none is.
    [[nodiscard]] const Stroke& current() const noexcept { return current_; }

    /// Adds a point to the stroke under way. Answers whether there was one to add.
    bool draw(double x, double y, double width, double height);
    /// Ends the stroke under way. Answers whether the drawing has one stroke more.
    bool endStroke();
    /// Takes all strokes away; that, too, can be undone.
    void clear();
    /// Brings the strokes back as they were before the last stroke or clearing, for as long as this drawing
    /// lives. Does nothing when there was none.
    void undo();

private:
    /// An earlier state of the strokes, told by what has to be done to have it back: the state before a
    /// stroke is the one without it, the state before a clearing is kept whole.
    struct Added {};
    using Earlier = std::variant<Added, std::vector<Stroke>>;

    std::vector<Stroke> strokes_;
    Stroke current_ = Stroke::make({});
    std::vector<Earlier> undoStack;
};

}  // namespace vantry
