#pragma once

#include <QString>

#include "VantryCore/records/Shot.h"

namespace vantry {

// How pages and the sidebar name shots and takes.

/// Code and title, with one blank between them.
[[nodiscard]] QString shotName(const Shot& shot);
/// "Take 07".
[[nodiscard]] QString takeName(const VantryTake& take);
/// The first line of `text` that is not blank, without the blanks around it.
[[nodiscard]] QString firstLineOf(const Text& text);
/// What stands in a storyboard frame that has neither image nor drawing.
[[nodiscard]] QString emptyFrameText(bool english);
/// The verdict as a word.
[[nodiscard]] QString resultWord(TakeResult result, bool english);

}  // namespace vantry
