#pragma once

#include "VantryCore/persistence/Merge.h"

namespace vantry::support {

/// The merge by its rules, one after the other, with nothing kept between them: every search walks a list,
/// the identifiers in use are collected for each copy anew, and the contents are compared by their values.
/// What the program does must come out the same.
MergeReport mergePlainly(const Library& incoming, Library& local);

}  // namespace vantry::support
