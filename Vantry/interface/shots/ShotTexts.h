#pragma once

#include <utility>

#include <QString>

#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Palette.h"
#include "VantryCore/records/Shot.h"

namespace vantry {

// How pages and the sidebar name shots and takes.

/// Code and title, with one blank between them.
[[nodiscard]] QString shotName(const Shot& shot);
/// "Take 07".
[[nodiscard]] QString takeName(const VantryTake& take);
/// The first line of `text` that is not blank, without the blanks around it.
[[nodiscard]] QString firstLineOf(const Text& text);
/// "4 ★".
[[nodiscard]] QString starsText(std::int64_t stars);
/// What stands in a storyboard frame that has neither image nor drawing.
[[nodiscard]] QString emptyFrameText(bool english);
/// The verdict as a word.
[[nodiscard]] QString resultWord(TakeResult result, bool english);
/// The sign and the colour that say the same.
[[nodiscard]] std::pair<Glyph, Palette::Token> resultSign(TakeResult result);

}  // namespace vantry
