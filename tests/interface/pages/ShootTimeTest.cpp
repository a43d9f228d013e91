#include "Vantry/interface/pages/ShootTime.h"

#include <gtest/gtest.h>

#include "tests/support/Clock.h"

namespace vantry::test {
namespace {

const Zone shanghai = *Zone::find("Asia/Shanghai");

std::string english(Moment moment, Moment now, const Zone& zone = shanghai) {
    return shootTime(moment, now, zone, true);
}
std::string chinese(Moment moment, Moment now, const Zone& zone = shanghai) {
    return shootTime(moment, now, zone, false);
}

TEST(ShootTime, IsTheDayAndTheTime) {
    // 20:30 in Shanghai.
    const Moment evening = support::utc(2026, 11, 21, 12, 30);
    EXPECT_EQ(english(evening, evening), "Sat 21 Nov, 20:30");
    EXPECT_EQ(chinese(evening, evening), "11月21日 周六 20:30");
}

TEST(ShootTime, NamesEveryDayOfTheWeek) {
    const char* const days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    const char* const daysInChinese[] = {"日", "一", "二", "三", "四", "五", "六"};
    const Moment now = support::utc(2026, 11, 1, 0);
    for (int day = 0; day < 14; ++day) {
        const Moment moment = support::utc(2026, 11, 1 + day, 4);
        const std::string number = std::to_string(1 + day);
        EXPECT_EQ(english(moment, now), std::string(days[day % 7]) + " " + number + " Nov, 12:00");
        EXPECT_EQ(chinese(moment, now),
                  "11月" + number + "日 周" + std::string(daysInChinese[day % 7]) + " 12:00");
    }
}

TEST(ShootTime, LeavesTheDayOfTheWeekOutWhereItIsNotWanted) {
    const Moment evening = support::utc(2026, 11, 21, 12, 30);
    const Moment nextYear = support::utc(2027, 1, 2, 12);
    EXPECT_EQ(dayAndTime(evening, evening, shanghai, true), "21 Nov, 20:30");
    EXPECT_EQ(dayAndTime(evening, evening, shanghai, false), "11月21日 20:30");
    EXPECT_EQ(dayAndTime(evening, nextYear, shanghai, true), "21 Nov 2026, 20:30");
    EXPECT_EQ(dayAndTime(evening, nextYear, shanghai, false), "2026年11月21日 20:30");
}

TEST(ShootTime, TellsADayInFull) {
    const Moment evening = support::utc(2026, 11, 21, 12, 30);
    EXPECT_EQ(longDay(evening, shanghai, true), "Saturday 21 November 2026");
    EXPECT_EQ(longDay(evening, shanghai, false), "2026年11月21日 星期六");
    const Moment night = support::utc(2026, 5, 2, 18);
    EXPECT_EQ(longDay(night, shanghai, true), "Sunday 3 May 2026");
    EXPECT_EQ(longDay(night, shanghai, false), "2026年5月3日 星期日");
}

TEST(ShootTime, NamesEveryMonth) {
    const char* const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    for (int month = 1; month <= 12; ++month) {
        const Moment moment = support::utc(2026, month, 9, 1);
        EXPECT_NE(english(moment, moment).find(std::string(" 9 ") + months[month - 1] + ", 09:00"),
                  std::string::npos);
        EXPECT_EQ(chinese(moment, moment).find(std::to_string(month) + "月9日 周"), 0U);
    }
}

TEST(ShootTime, ShowsTheYearWhereItIsAnotherOne) {
    const Moment now = support::utc(2026, 12, 31, 12);
    EXPECT_EQ(english(support::utc(2026, 12, 31, 15, 30), now), "Thu 31 Dec, 23:30");
    EXPECT_EQ(english(support::utc(2026, 12, 31, 16, 30), now), "Fri 1 Jan 2027, 00:30")
        << "by the clock there";
    EXPECT_EQ(chinese(support::utc(2026, 12, 31, 16, 30), now), "2027年1月1日 周五 00:30");
    EXPECT_EQ(english(support::utc(2025, 12, 31, 1), now), "Wed 31 Dec 2025, 09:00");
}

TEST(ShootTime, IsToldByTheClockOfTheZone) {
    const Moment moment = support::utc(2026, 3, 1, 1);
    EXPECT_EQ(english(moment, moment, *Zone::find("America/New_York")), "Sat 28 Feb, 20:00");
    EXPECT_EQ(english(moment, moment, *Zone::find("Pacific/Apia")), "Sun 1 Mar, 14:00");
}

TEST(ShootTime, KnowsLeapDaysAndCenturies) {
    const Moment now = support::utc(2026, 1, 1, 1);
    EXPECT_EQ(english(support::utc(2028, 2, 29, 1), now), "Tue 29 Feb 2028, 09:00");
    EXPECT_EQ(english(support::utc(2100, 3, 1, 1), now), "Mon 1 Mar 2100, 09:00");
}

}  // namespace
}  // namespace vantry::test
