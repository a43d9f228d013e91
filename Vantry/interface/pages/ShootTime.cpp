#include "Vantry/interface/pages/ShootTime.h"

#include <array>
#include <chrono>
#include <string_view>

#include "VantryCore/records/ClockReading.h"

namespace vantry {
namespace {

constexpr std::array<std::string_view, 7> weekdays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                   "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 7> weekdaysInChinese{"日", "一", "二", "三", "四", "五", "六"};
constexpr std::array<std::string_view, 12> months{"January",   "February", "March",    "April",
                                                  "May",       "June",     "July",     "August",
                                                  "September", "October",  "November", "December"};
/// English days and months are cut behind so many letters in lists.
constexpr std::size_t shortName = 3;

std::string_view monthOf(const ClockReading& clock) {
    return months.at(static_cast<std::size_t>(clock.month) - 1);
}

/// 0 is Sunday. The calendar repeats itself every 400 years.
std::size_t weekdayOf(const ClockReading& clock) {
    constexpr std::int64_t cycle = 400;
    const std::int64_t year = (clock.year % cycle + cycle) % cycle + cycle;
    const std::chrono::year_month_day day{std::chrono::year(static_cast<int>(year)),
                                          std::chrono::month(static_cast<unsigned>(clock.month)),
                                          std::chrono::day(static_cast<unsigned>(clock.day))};
    return std::chrono::weekday(std::chrono::sys_days(day)).c_encoding();
}

/// Day and month, with the year where it is not that of `now`.
std::string dayOf(const ClockReading& clock, const ClockReading& now, bool english) {
    const bool isOtherYear = clock.year != now.year;
    const std::string day = std::to_string(clock.day);
    const std::string year = std::to_string(clock.year);
    if (english)
        return day + " " + std::string(monthOf(clock).substr(0, shortName)) + (isOtherYear ? " " + year : "");
    return (isOtherYear ? year + "年" : "") + std::to_string(clock.month) + "月" + day + "日";
}

}  // namespace

std::string shootTime(Moment moment, Moment now, const Zone& zone, bool english) {
    const ClockReading clock = readClock(moment, zone);
    const std::string day = dayOf(clock, readClock(now, zone), english);
    const std::size_t weekday = weekdayOf(clock);
    if (english)
        return std::string(weekdays.at(weekday).substr(0, shortName)) + " " + day + ", " + clock.timeText();
    return day + " 周" + std::string(weekdaysInChinese.at(weekday)) + " " + clock.timeText();
}

std::string dayAndTime(Moment moment, Moment now, const Zone& zone, bool english) {
    const ClockReading clock = readClock(moment, zone);
    return dayOf(clock, readClock(now, zone), english) + (english ? ", " : " ") + clock.timeText();
}

std::string longDay(Moment moment, const Zone& zone, bool english) {
    const ClockReading clock = readClock(moment, zone);
    const std::size_t weekday = weekdayOf(clock);
    const std::string day = std::to_string(clock.day);
    const std::string year = std::to_string(clock.year);
    if (english)
        return std::string(weekdays.at(weekday)) + " " + day + " " + std::string(monthOf(clock)) + " " + year;
    return year + "年" + std::to_string(clock.month) + "月" + day + "日 星期" +
           std::string(weekdaysInChinese.at(weekday));
}

}  // namespace vantry
