#pragma once

#include <string>
#include <string_view>

#include "VantryCore/records/Text.h"

namespace vantry {

/// The file name that a document is proposed under: the title and an ending. What cannot stand in a name, "/"
/// and control characters, becomes "-"; a long title is cut so that the name has at most 255 bytes of UTF-8,
/// the most that file systems take, and ends with a whole character.
[[nodiscard]] std::string documentName(const Text& title, std::string_view ending);

}  // namespace vantry
