#pragma once

#include <QAccessible>

class QModelIndex;

namespace vantry {

class LibraryTree;

/// Makes known to assistive tools what Qt cannot guess of the sidebar: the rows of the tree, each with a
/// press of its own, and which place is selected. Calling it again does nothing.
void installNavigationAccessibility();

/// Tells assistive tools that `event` happened to the row, if it is one that can be seen.
void announceRow(LibraryTree& tree, const QModelIndex& index, QAccessible::Event event);
/// Tells assistive tools that the row was opened or closed.
void announceOpening(LibraryTree& tree, const QModelIndex& index);

}  // namespace vantry
