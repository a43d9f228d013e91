#pragma once

#include "VantryCore/records/Library.h"

namespace vantry {

/// The one gate that a library passes on each way in and out of memory. Decoding says that the shape is
/// right; this says that the content may be believed: known format and version, fewer than 10,000 projects,
/// every identifier used once in the whole library (strokes aside), and all values within their limits.
/// Throws VantryError::Case::invalidBackup at the first rule that is broken, without a place.
void validate(const Library& library);

/// Accepts and refuses exactly what `validate(library)` does, given that `valid` passed it. Costs only what
/// differs between the two, as far as they share their nodes.
void validate(const Library& library, const Library& valid);

}  // namespace vantry
