#pragma once

#include <pango/pangocairo.h>

namespace vantry {

class StandIns;

/// A line of text that Pango laid out, to be printed so that a reader of the document finds every character
/// again: those that no font has, and those that a font has only as pictures, too.
class PrintedLine {
public:
    /// A line of a layout; valid until the layout's text changes.
    explicit PrintedLine(PangoLayoutLine* line);

    // In points, the largest of the line's fonts.
    [[nodiscard]] double ascent() const noexcept { return above; }
    [[nodiscard]] double descent() const noexcept { return below; }
    [[nodiscard]] double leading() const noexcept { return gap; }

    /// Where the line begins in the layout's text, and how many bytes it has.
    [[nodiscard]] int start() const noexcept { return line->start_index; }
    [[nodiscard]] int length() const noexcept { return line->length; }

    /// Draws the line in the context's colour with the left end of its base line at that place.
    void draw(cairo_t* context, double x, double y, StandIns& standIns) const;

private:
    PangoLayoutLine* line;
    double above;
    double below;
    double gap = 0;
};

}  // namespace vantry
