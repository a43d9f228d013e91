#include "Vantry/interface/pages/ShootTime.h"

#include <array>
#include <chrono>
#include <string_view>

#include "VantryCore/records/ClockReading.h"

namespace vantry {
namespace {

constexpr std::array<std::string_view, 7> weekdays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 7> weekdaysInChinese{"周日", "周一", "周二", "周三",
                                                            "周四", "周五", "周六"};
constexpr std::array<std::string_view, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// 0 is Sunday. The calendar repeats itself every 400 years.
std::size_t weekdayOf(const ClockReading& clock) {
    constexpr std::int64_t cycle = 400;
    const std::int64_t year = (clock.year % cycle + cycle) % cycle + cycle;
    const std::chrono::year_month_day day{std::chrono::year(static_cast<int>(year)),
                                          std::chrono::month(static_cast<unsigned>(clock.month)),
                                          std::chrono::day(static_cast<unsigned>(clock.day))};
    return std::chrono::weekday(std::chrono::sys_days(day)).c_encoding();
}

}  // namespace

std::string shootTime(Moment moment, Moment now, const Zone& zone, bool english) {
    const ClockReading clock = readClock(moment, zone);
    const bool isOtherYear = clock.year != readClock(now, zone).year;
    const std::size_t weekday = weekdayOf(clock);
    const std::string day = std::to_string(clock.day);
    if (english)
        return std::string(weekdays.at(weekday)) + " " + day + " " +
               std::string(months.at(static_cast<std::size_t>(clock.month) - 1)) +
               (isOtherYear ? " " + std::to_string(clock.year) : "") + ", " + clock.timeText();
    return (isOtherYear ? std::to_string(clock.year) + "年" : "") + std::to_string(clock.month) + "月" + day +
           "日 " + std::string(weekdaysInChinese.at(weekday)) + " " + clock.timeText();
}

}  // namespace vantry
