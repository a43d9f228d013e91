#pragma once

#include "VantryCore/persistence/LibraryValidation.h"
#include "VantryCore/records/Library.h"

namespace vantry {

/// Takes one structural change back out of a library.
struct RecordDelta {
    /// `current` without the change that made `after` of `before`; everything that came later stays. It is
    /// what `RecordValue::revert` makes of the three JSON forms, found over the shared nodes: a part whose
    /// nodes are the same is not looked at.
    /// Throws VantryError::Case::invalidBackup when the result would not be a valid library. With `known`,
    /// which knows the result afterwards, that check costs what differs.
    [[nodiscard]] static Library undo(const Library& before, const Library& after, const Library& current);
    [[nodiscard]] static Library undo(const Library& before, const Library& after, const Library& current,
                                      KnownValid& known);

    /// The same by its definition: encode the three, revert the values, decode and validate the result.
    [[nodiscard]] static Library undoByValues(const Library& before, const Library& after,
                                              const Library& current);
};

}  // namespace vantry
