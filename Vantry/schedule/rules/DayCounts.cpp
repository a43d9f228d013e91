#include "Vantry/schedule/rules/DayCounts.h"

#include <algorithm>

#include "Vantry/schedule/rules/ShootSchedule.h"

namespace vantry {
namespace {

/// The first day that is not over at that moment.
std::size_t dayAt(const std::vector<DayInterval>& days, Moment moment) {
    const auto found =
        std::upper_bound(days.begin(), days.end(), moment,
                         [](Moment sought, const DayInterval& day) { return sought < day.end; });
    return static_cast<std::size_t>(found - days.begin());
}

}  // namespace

std::vector<DayCount> countDays(const std::vector<DayInterval>& days, const std::vector<ShotLocation>& shots,
                                const std::vector<CallSheetLocation>& callSheets) {
    std::vector<DayCount> counts(days.size());
    for (const auto& [project, act, shot] : shots) {
        if (shot->cancelled || !shot->scheduledAt)
            continue;
        for (std::size_t i = dayAt(days, *shot->scheduledAt);
             i < days.size() && ShootSchedule::occurs(*shot, days[i]); ++i)
            ++counts[i].shots;
    }
    for (const auto& location : callSheets) {
        const auto start = location.sheet->calendarStart();
        if (!start)
            continue;
        const std::size_t i = dayAt(days, *start);
        if (i < days.size() && *start >= days[i].start)
            ++counts[i].callSheets;
    }
    return counts;
}

}  // namespace vantry
