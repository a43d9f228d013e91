#pragma once

#include <cstdint>

#include "VantryCore/persistence/LibraryValidation.h"
#include "VantryCore/records/Library.h"

namespace vantry {

/// What a merge did, counted over projects, acts, shots and takes.
struct MergeReport {
    std::int64_t added = 0;      ///< incoming records appended as they are, children not counted again
    std::int64_t identical = 0;  ///< incoming records recognised as present, themselves or as a retained copy
    std::int64_t conflicts = 0;  ///< retained copies made

    friend bool operator==(const MergeReport&, const MergeReport&) = default;
};

/// Brings one library into another without losing either side: a record that is there stays single, a new one
/// is appended, and one that differs is kept as a marked copy behind the local list. Nothing local moves, and
/// a repeated merge changes nothing: where what comes in changes a copy by which another record was
/// recognised, the copy that the second merge would make is made at once.
struct Merge {
    /// Merges `incoming` into `local`, which changes only if the whole call succeeds.
    /// Throws VantryError::Case::invalidBackup when either library, or the result, is not valid.
    static MergeReport apply(const Library& incoming, Library& local);
    /// The same with the checks of the local side costing only what differs from `known`, which knows the
    /// result afterwards.
    static MergeReport apply(const Library& incoming, Library& local, KnownValid& known);

    /// The project with its empty lists of people, sheets and references made absent.
    [[nodiscard]] static Project comparableProject(const Project& project);
};

}  // namespace vantry
