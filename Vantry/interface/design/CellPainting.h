#pragma once

#include <QColor>
#include <QRect>
#include <QString>

#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/VantryType.h"

class QPainter;

namespace vantry {

/// Draws one line of a record's text in `place`: letter by letter, never as markup, cut at its end.
void paintLine(QPainter& painter, const QRect& place, const QFont& font, const QColor& colour,
               const QString& text, Qt::Alignment side = Qt::AlignLeft);
/// The width that such a line takes. Measured once: layouts and paint ask for the same texts many times.
[[nodiscard]] int lineWidth(const QFont& font, const QString& text);
/// Such a line, cut at its end where it is wider.
[[nodiscard]] QString lineWithin(const QFont& font, const QString& text, int width);
/// Draws a sign of that size in the middle of the height of `place`, at its left edge.
void paintSign(QPainter& painter, const QRect& place, Glyph glyph, int size, const QColor& colour);

}  // namespace vantry
