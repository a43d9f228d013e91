#include "Vantry/schedule/rules/ShootSchedule.h"

#include <charconv>

#include "VantryCore/records/Text.h"

namespace vantry {

bool ShootSchedule::occurs(const Shot& shot, Moment day, const Calendar& calendar) {
    if (!shot.scheduledAt)
        return false;
    const auto interval = calendar.day(day);
    return interval && occurs(shot, *interval);
}

bool ShootSchedule::occurs(const Shot& shot, const DayInterval& day) {
    return shot.scheduledAt && *shot.scheduledAt<day.end&& * shot.scheduledEnd()> day.start;
}

bool ShootSchedule::overlaps(const Shot& a, const Shot& b) {
    if (a.id == b.id || !a.scheduledAt || !b.scheduledAt)
        return false;
    return *a.scheduledAt < *b.scheduledEnd() && *a.scheduledEnd() > *b.scheduledAt;
}

std::vector<ShotLocation> ShootSchedule::conflicts(const std::vector<ShotLocation>& all,
                                                   const Shot& planned) {
    std::vector<ShotLocation> list;
    for (const auto& location : all)
        if (!location.shot->cancelled && overlaps(*location.shot, planned))
            list.push_back(location);
    return list;
}

Moment ShootSchedule::normalizedToMinute(Moment moment, const Calendar& calendar) {
    return calendar.startOfMinute(moment).value_or(moment);
}

std::optional<std::int64_t> ShootSchedule::typedMinutes(std::string_view typed) {
    std::string_view digits = trimmed(typed);
    if (digits.starts_with('+') && digits.size() > 1 && digits[1] != '-')
        digits.remove_prefix(1);
    std::int64_t minutes = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), minutes);
    if (failure != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return minutes;
}

}  // namespace vantry
