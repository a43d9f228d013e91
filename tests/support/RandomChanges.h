#pragma once

#include "VantryCore/records/Library.h"
#include "tests/support/RandomRecords.h"

namespace vantry::support {

// Each makes one change somewhere in a record: a value, a record that comes, goes, is moved or repeated with
// its identifier, an optional value or list that comes or goes, a key of a map. All rules of the validation
// are kept but the one that identifiers are unique. Values are drawn from few, so that changes meet; among
// them are texts and keys that are canonically equivalent, and keys that records use for their identity.

void changeAnywhere(Library& library, RandomRecords& random);
void changeAnywhere(Project& project, RandomRecords& random);
void changeAnywhere(Act& act, RandomRecords& random);
void changeAnywhere(Shot& shot, RandomRecords& random);
void changeAnywhere(VantryTake& take, RandomRecords& random);

/// A valid library whose lists hold up to about eight records.
[[nodiscard]] Library crowdedLibrary(RandomRecords& random);

/// The same library, of which no node is shared with anybody.
[[nodiscard]] Library unshared(const Library& library);

}  // namespace vantry::support
