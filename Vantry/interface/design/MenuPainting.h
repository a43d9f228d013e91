#pragma once

#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionMenuItem;

namespace vantry {

/// The surface of a menu with its outline.
void paintMenuPanel(QPainter& painter, const QStyleOption& option);

/// One entry of a menu: its mark if it is chosen, its text, and at the right its shortcut or the sign of the
/// menu that it opens; or the line between two groups of entries. `destructive`: it takes something away.
void paintMenuItem(QPainter& painter, const QStyleOptionMenuItem& option, bool destructive = false);

/// How much room an entry needs whose text is as large as `text`.
[[nodiscard]] QSize menuItemSize(const QStyleOptionMenuItem& option, const QSize& text);

/// The bar where it has no entry.
void paintMenuBar(QPainter& painter, const QStyleOption& option);

/// The surface of hover help.
void paintHelpPanel(QPainter& painter, const QStyleOption& option);

void paintMenuBarItem(QPainter& painter, const QStyleOptionMenuItem& option);

}  // namespace vantry
