#include "VantryCore/records/Calendar.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include <absl/time/civil_time.h>

#include "VantryCore/records/ClockReading.h"

namespace vantry {
namespace {

using Seconds = std::int64_t;

constexpr Seconds secondsOfMinute = 60;
constexpr Seconds secondsOfDay = 86400;
/// No zone is further from UTC; a generous bound for looking around a local time.
constexpr Seconds farthestOffset = Seconds{26} * 3600;
constexpr double reach = 1e14;

std::optional<Seconds> unixSeconds(Moment moment) {
    if (!(std::abs(moment.seconds) < reach))
        return std::nullopt;
    return static_cast<Seconds>(std::floor(moment.seconds)) + unixSecondsOfReferenceDate;
}

Moment moment(Seconds unix) {
    return Moment{static_cast<double>(unix - unixSecondsOfReferenceDate)};
}

Seconds floorDivide(Seconds a, Seconds b) {
    return a / b - (a % b < 0 ? 1 : 0);
}

Seconds localDay(const Zone& zone, Seconds unix) {
    return floorDivide(unix + zone.offsetAt(unix), secondsOfDay);
}

/// The first second at or behind `from` whose local time lies in [`low`, `high`), if there is one within
/// reach of those local times. Walks the stretches between changes of the rules, so that no change is missed.
std::optional<Seconds> firstSecondShowing(const Zone& zone, Seconds from, Seconds low, Seconds high) {
    Seconds start = std::max(from, low - farthestOffset);
    const Seconds last = high + farthestOffset;
    while (start < last) {
        const Seconds end = zone.nextTransition(start).value_or(std::numeric_limits<Seconds>::max());
        const Seconds offset = zone.offsetAt(start);
        const Seconds candidate = std::max(start, low - offset);
        if (candidate < end && candidate + offset < high)
            return candidate;
        if (end <= start)
            return std::nullopt;
        start = end;
    }
    return std::nullopt;
}

}  // namespace

std::optional<Moment> Calendar::startOfDay(Moment inside) const {
    const auto interval = day(inside);
    return interval ? std::optional(interval->start) : std::nullopt;
}

std::optional<DayInterval> Calendar::day(Moment inside) const {
    const auto unix = unixSeconds(inside);
    if (!unix)
        return std::nullopt;
    const Seconds low = localDay(timeZone, *unix) * secondsOfDay;
    const auto start =
        firstSecondShowing(timeZone, std::numeric_limits<Seconds>::min() / 2, low, low + secondsOfDay);
    if (!start)
        return std::nullopt;
    // A zone may skip a whole day, so the next one is looked for over two.
    const auto end = firstSecondShowing(timeZone, *start + 1, low + secondsOfDay, low + 3 * secondsOfDay);
    if (!end)
        return std::nullopt;
    return DayInterval{moment(*start), moment(*end)};
}

std::optional<Moment> Calendar::startOfMinute(Moment inside) const {
    const auto unix = unixSeconds(inside);
    if (!unix)
        return std::nullopt;
    const Seconds local = *unix + timeZone.offsetAt(*unix);
    Seconds start = *unix - (local - floorDivide(local, secondsOfMinute) * secondsOfMinute);
    // Clocks once changed by odd seconds: then the minute begins with the change.
    if (timeZone.offsetAt(start) != timeZone.offsetAt(*unix))
        start = timeZone.nextTransition(start).value_or(start);
    return moment(start);
}

bool Calendar::isSameDay(Moment a, Moment b) const {
    const auto first = unixSeconds(a);
    const auto second = unixSeconds(b);
    return first && second && localDay(timeZone, *first) == localDay(timeZone, *second);
}

std::optional<Moment> Calendar::momentShowing(const ClockReading& reading) const {
    constexpr std::int64_t farthestYear = 3'000'000;
    if (reading.year < -farthestYear || reading.year > farthestYear)
        return std::nullopt;
    const absl::CivilSecond wanted(reading.year, reading.month, reading.day, reading.hour, reading.minute,
                                   reading.second);
    // Fields out of range are carried into the next ones.
    if (wanted.month() != reading.month || wanted.day() != reading.day || wanted.hour() != reading.hour ||
        wanted.minute() != reading.minute || wanted.second() != reading.second)
        return std::nullopt;
    const Seconds local = wanted - absl::CivilSecond(1970, 1, 1);
    const auto found =
        firstSecondShowing(timeZone, std::numeric_limits<Seconds>::min() / 2, local, local + 1);
    return found ? std::optional(moment(*found)) : std::nullopt;
}

std::optional<Moment> Calendar::nextMoment(Moment after, int hour, int minute) const {
    const auto unix = unixSeconds(after);
    if (!unix)
        return std::nullopt;
    const Seconds clock = Seconds{hour} * 3600 + Seconds{minute} * 60;
    const Seconds today = localDay(timeZone, *unix);
    std::optional<Seconds> earliest;
    // The day before counts when the clocks went back over midnight; a time missing on one day is there on
    // another within the week.
    for (Seconds day = today - 1; day <= today + 7; ++day) {
        const Seconds local = day * secondsOfDay + clock;
        const auto found = firstSecondShowing(timeZone, *unix + 1, local, local + 1);
        if (found && (!earliest || *found < *earliest))
            earliest = found;
        if (earliest && day > today + 1)
            break;
    }
    return earliest ? std::optional(moment(*earliest)) : std::nullopt;
}

}  // namespace vantry
