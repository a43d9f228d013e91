#pragma once

#include <vector>

#include <absl/container/flat_hash_set.h>

#include "VantryCore/records/Library.h"

namespace vantry {

/// The one gate that a library passes on each way in and out of memory. Decoding says that the shape is
/// right; this says that the content may be believed: known format and version, fewer than 10,000 projects,
/// every identifier used once in the whole library (strokes aside), and all values within their limits.
/// Throws VantryError::Case::invalidBackup at the first rule that is broken, without a place.
void validate(const Library& library);

/// A library that passed the validation, with all its identifiers, so that the next one costs only what
/// differs between the two, as far as they share their nodes. It starts with the empty library.
class KnownValid {
public:
    /// Accepts and refuses exactly what `validate(next)` does, and knows `next` from then on. When it
    /// refuses, it throws what `validate` throws and stays what it was.
    void accept(const Library& next);

    /// The library that was accepted last.
    [[nodiscard]] const Library& library() const noexcept { return valid; }
    /// Whether a record of that library has this identifier, on whatever level.
    [[nodiscard]] bool uses(const Identifier& id) const { return identifiers.contains(id); }

private:
    void exchange(const std::vector<Identifier>& gone, const std::vector<Identifier>& come);

    Library valid;
    absl::flat_hash_set<Identifier, std::hash<Identifier>> identifiers;
};

}  // namespace vantry
