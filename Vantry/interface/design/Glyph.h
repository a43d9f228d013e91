#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace vantry {

/// The signs of the interface. They are decoration: whatever one says is also said by a word or a name.
enum class Glyph {
    none,
    library,
    folder,
    film,
    camera,
    waveform,
    document,
    plus,
    check,
    checkCircle,
    dashedCircle,
    warning,
    cross,
    star,
    chevronLeft,
    chevronRight,
    chevronDown,
    house,
    arrowRight,
    undo,
    photo,
    trash,
    more,
    share,
};

/// Draws the sign into `place` with lines of `colour`; `filled` fills its outline as well.
void paintGlyph(QPainter& painter, Glyph glyph, const QRectF& place, const QColor& colour,
                bool filled = false);

/// Draws the brand mark, a perforated page, into `place`.
void paintBrandMark(QPainter& painter, const QRectF& place, const QColor& colour);

}  // namespace vantry
