#pragma once

#include <string>

#include "VantryCore/records/Project.h"

namespace vantry::test {

/// A production with everything that the documents tell apart: a drawn shot with an image and takes of all
/// kinds, a cancelled one, one that a merge kept, and people with and without names.
[[nodiscard]] Project sampleProject();

/// A sheet for 2026-11-15 in Shanghai with some fields and people.
[[nodiscard]] CallSheet sampleSheet();

/// The key of the drawn shot's image.
inline constexpr const char* samplePictureKey = "sample";

}  // namespace vantry::test
