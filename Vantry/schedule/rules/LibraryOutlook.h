#pragma once

#include <cstdint>
#include <vector>

#include "Vantry/schedule/rules/Locations.h"
#include "VantryCore/records/Moment.h"

namespace vantry {

/// What the home page counts and lists, in one pass over the library.
struct LibraryOutlook {
    std::int64_t planned = 0;    ///< shots that are not cancelled
    std::int64_t completed = 0;  ///< those of them that have a Good take
    /// Those of them that do not end before now, by their start; equal starts in the order of the library. A
    /// shoot that is under way still counts, a shot without a time does not.
    std::vector<ShotLocation> upcoming;
};

[[nodiscard]] LibraryOutlook outlook(const Library& library, Moment now);

/// What a production counts.
struct ProjectCounts {
    std::int64_t shots = 0;      ///< all of them
    std::int64_t planned = 0;    ///< those that are not cancelled
    std::int64_t completed = 0;  ///< those of them that have a Good take
    std::int64_t takes = 0;      ///< of all shots
};

[[nodiscard]] ProjectCounts count(const Project& project);

}  // namespace vantry
