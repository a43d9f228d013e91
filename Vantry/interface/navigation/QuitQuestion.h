#pragma once

#include "VantryCore/records/Text.h"

class QWidget;

namespace vantry {

/// Tells in a sheet over `window`, or over its topmost sheet, why the last save failed, and waits for the
/// answer. True only for "退出 / Quit"; the end of all event loops is no answer, hence false.
[[nodiscard]] bool askToQuit(QWidget& window, const Text& reason);

}  // namespace vantry
