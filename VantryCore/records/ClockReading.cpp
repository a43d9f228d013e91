#include "VantryCore/records/ClockReading.h"

#include <algorithm>
#include <cmath>

#include <absl/time/civil_time.h>

namespace vantry {
namespace {

constexpr double reach = 1e14;

std::string digits(std::int64_t number, std::size_t least) {
    std::string text = std::to_string(number);
    if (text.size() < least)
        text.insert(0, least - text.size(), '0');
    return text;
}

}  // namespace

std::string ClockReading::dayText() const {
    return digits(year > 0 ? year : 1 - year, 4) + "-" + monthDayText();
}

std::string ClockReading::monthDayText() const {
    return digits(month, 2) + "-" + digits(day, 2);
}

std::string ClockReading::timeText() const {
    return digits(hour, 2) + ":" + digits(minute, 2);
}

ClockReading readClock(Moment moment, const Zone& zone) {
    const double within = std::isnan(moment.seconds) ? 0 : std::clamp(moment.seconds, -reach, reach);
    const auto unix = static_cast<std::int64_t>(std::floor(within)) + unixSecondsOfReferenceDate;
    const absl::CivilSecond shown = absl::CivilSecond(1970, 1, 1) + (unix + zone.offsetAt(unix));
    return {shown.year(), shown.month(), shown.day(), shown.hour(), shown.minute(), shown.second()};
}

}  // namespace vantry
