#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Vantry/schedule/rules/Locations.h"
#include "VantryCore/records/Calendar.h"

namespace vantry {

/// How much is on one day.
struct DayCount {
    std::size_t shots = 0;
    std::size_t callSheets = 0;

    friend bool operator==(const DayCount&, const DayCount&) = default;
};

/// The counts of days that follow each other, earliest first, one for each. Cancelled shots count nowhere.
/// Takes one pass over the shots and the sheets, however many days there are.
[[nodiscard]] std::vector<DayCount> countDays(const std::vector<DayInterval>& days,
                                              const std::vector<ShotLocation>& shots,
                                              const std::vector<CallSheetLocation>& callSheets);
/// The same for all that a library holds, or one project of it, without making the lists.
[[nodiscard]] std::vector<DayCount> countLibraryDays(const std::vector<DayInterval>& days,
                                                     const Library& library,
                                                     const std::optional<Identifier>& onlyProject = {});

}  // namespace vantry
