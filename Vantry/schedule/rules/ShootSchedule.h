#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "Vantry/schedule/rules/Locations.h"
#include "VantryCore/records/Calendar.h"

namespace vantry {

/// The one place that decides on which days a shot is, and which shots are in each other's way.
///
/// A shot takes up the time from its start up to, but not including, its end, which is an elapsed sum of
/// minutes: a change of the clocks in between does not move it. A day lasts up to the first moment of the
/// next.
struct ShootSchedule {
    /// Whether the shot touches the day that contains `day`. An unscheduled one is on no day.
    [[nodiscard]] static bool occurs(const Shot& shot, Moment day, const Calendar& calendar);
    /// The same for a day that is known.
    [[nodiscard]] static bool occurs(const Shot& shot, const DayInterval& day);

    /// Whether two different shots share some time. Touching is not sharing; `cancelled` plays no part.
    [[nodiscard]] static bool overlaps(const Shot& a, const Shot& b);
    /// The shots of `all` that are not cancelled and share some time with `planned`, in their order.
    [[nodiscard]] static std::vector<ShotLocation> conflicts(const std::vector<ShotLocation>& all,
                                                             const Shot& planned);

    /// The first moment of the minute that contains `moment`, as the calendar's clock shows it; the moment
    /// itself where the calendar has no answer.
    [[nodiscard]] static Moment normalizedToMinute(Moment moment, const Calendar& calendar);

    /// How long a shot may take, in minutes.
    [[nodiscard]] static bool isDuration(std::int64_t minutes) noexcept {
        return minutes >= 1 && minutes <= 10080;
    }
    /// The decimal integer that a person typed, white space around it or not; nothing for anything else.
    [[nodiscard]] static std::optional<std::int64_t> typedMinutes(std::string_view typed);
};

}  // namespace vantry
