#pragma once

#include <Qt>

namespace vantry {

/// How buttons, switches and choices get the keyboard: by the keyboard. A press with the mouse leaves it
/// where it is, so that who taps a verdict while writing a note goes on writing.
inline constexpr Qt::FocusPolicy buttonFocus = Qt::TabFocus;

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
