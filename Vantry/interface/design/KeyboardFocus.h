#pragma once

#include <Qt>

namespace vantry {

/// Whether a control that gets the focus for `reason` should show so: those who came by keyboard need to see
/// where they are. A window that comes back, or a menu that closes, changes nothing: `before` stands.
[[nodiscard]] inline bool isKeyboardFocus(Qt::FocusReason reason, bool before) {
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        return true;
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
        return before;
    default:
        return false;
    }
}

}  // namespace vantry
