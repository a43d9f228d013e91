#pragma once

#include <initializer_list>

#include <QWidget>

namespace vantry {

// The words in which a page says how its parts stand. Each makes the holder of its parts, which stand in it
// in the order given: that of reading, of the keyboard and of assistive tools.

/// Below each other, `gap` apart.
[[nodiscard]] QWidget* column(int gap, std::initializer_list<QWidget*> parts);
/// Beside each other, `gap` apart, sharing the width.
[[nodiscard]] QWidget* row(int gap, std::initializer_list<QWidget*> parts);
/// In two columns of at least `minimum`, or in one.
[[nodiscard]] QWidget* columns(int minimum, int gap, std::initializer_list<QWidget*> parts);
/// At its own width, at the left.
[[nodiscard]] QWidget* leading(QWidget* part);

}  // namespace vantry
