#pragma once

#include <QRect>

#include "Vantry/interface/design/Glyph.h"

class QPainter;
class QStyleOption;
class QStyleOptionComboBox;
class QStyleOptionComplex;

namespace vantry {

/// The surface of a picker, with the sign of what it opens.
void paintPicker(QPainter& painter, const QStyleOptionComplex& option, Glyph glyph = Glyph::chevronsUpDown);

/// Where the text of a picker stands that can also be typed into, and the sign beside it.
[[nodiscard]] QRect pickerTextPlace(const QRect& picker);
[[nodiscard]] QRect pickerSignPlace(const QRect& picker);

/// What is chosen, as it is, cut where there is no room.
void paintPickerText(QPainter& painter, const QStyleOptionComboBox& option);

/// The surface of the list of choices, whose window has that place.
void paintPickerList(QPainter& painter, const QStyleOption& option, const QRect& window);

/// How wide a picker is whose widest choice needs `text`.
[[nodiscard]] int pickerWidth(int text);

}  // namespace vantry
