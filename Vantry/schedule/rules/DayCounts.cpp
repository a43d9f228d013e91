#include "Vantry/schedule/rules/DayCounts.h"

#include <algorithm>

#include "Vantry/schedule/rules/ShootSchedule.h"

namespace vantry {
namespace {

constexpr double nearby = 3 * 86400.0;

class Counting {
public:
    explicit Counting(const std::vector<DayInterval>& countedDays)
        : days(countedDays)
        , counts(countedDays.size()) {}

    void add(const Shot& shot) {
        if (shot.cancelled || !shot.scheduledAt)
            return;
        for (std::size_t i = dayAt(*shot.scheduledAt);
             i < days.size() && ShootSchedule::occurs(shot, days[i]); ++i)
            ++counts[i].shots;
    }
    void add(const CallSheet& sheet) {
        // A sheet begins on its own day: only one of a day nearby needs its time read.
        if (days.empty() || sheet.date.seconds < days.front().start.seconds - nearby ||
            sheet.date.seconds > days.back().end.seconds + nearby)
            return;
        const auto start = sheet.calendarStart();
        const std::size_t i = start ? dayAt(*start) : days.size();
        if (i < days.size() && *start >= days[i].start)
            ++counts[i].callSheets;
    }
    [[nodiscard]] std::vector<DayCount> result() const { return counts; }

private:
    /// The first day that is not over at that moment.
    [[nodiscard]] std::size_t dayAt(Moment moment) const {
        const auto found =
            std::upper_bound(days.begin(), days.end(), moment,
                             [](Moment sought, const DayInterval& day) { return sought < day.end; });
        return static_cast<std::size_t>(found - days.begin());
    }

    const std::vector<DayInterval>& days;
    std::vector<DayCount> counts;
};

}  // namespace

std::vector<DayCount> countDays(const std::vector<DayInterval>& days, const std::vector<ShotLocation>& shots,
                                const std::vector<CallSheetLocation>& callSheets) {
    Counting counting(days);
    for (const auto& location : shots)
        counting.add(*location.shot);
    for (const auto& location : callSheets)
        counting.add(*location.sheet);
    return counting.result();
}

std::vector<DayCount> countLibraryDays(const std::vector<DayInterval>& days, const Library& library,
                                       const std::optional<Identifier>& onlyProject) {
    Counting counting(days);
    for (const auto& project : library.projects) {
        if (onlyProject && project->id != *onlyProject)
            continue;
        for (const auto& act : project->acts)
            for (const auto& shot : act->shots)
                counting.add(*shot);
        for (const auto& sheet : project->callSheets())
            counting.add(sheet);
    }
    return counting.result();
}

}  // namespace vantry
