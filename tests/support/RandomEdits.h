#pragma once

#include "VantryCore/records/Library.h"
#include "tests/support/RandomRecords.h"

namespace vantry::support {

/// Makes one change somewhere in a valid library, which stays valid. The change may be none at all: a text
/// replaced by an equal one.
void editValidly(Library& library, RandomRecords& random);

/// Makes one change that breaks a rule of the validation in about every second case: a value beyond its
/// limit, an identifier that is in use elsewhere, records that come, go or trade places.
void editFreely(Library& library, RandomRecords& random);

}  // namespace vantry::support
