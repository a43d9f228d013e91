#pragma once

class QPainter;
class QRect;
class QStyleOption;
class QStyleOptionComboBox;
class QStyleOptionComplex;

namespace vantry {

/// The surface of a picker, with the sign that it has a list of choices.
void paintPicker(QPainter& painter, const QStyleOptionComplex& option);

/// What is chosen, as it is, cut where there is no room.
void paintPickerText(QPainter& painter, const QStyleOptionComboBox& option);

/// The surface of the list of choices, whose window has that place.
void paintPickerList(QPainter& painter, const QStyleOption& option, const QRect& window);

/// How wide a picker is whose widest choice needs `text`.
[[nodiscard]] int pickerWidth(int text);

}  // namespace vantry
