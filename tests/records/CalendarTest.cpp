#include "VantryCore/records/Calendar.h"

#include <limits>

#include <gtest/gtest.h>

#include "tests/support/Clock.h"

namespace vantry {
namespace {

using support::clockIn;
using support::utc;

Calendar calendarOf(const char* zone) {
    return Calendar(*Zone::find(zone));
}

struct DayCase {
    const char* zone;
    Moment inside;
    const char* firstClock;
    double hours;
};

const DayCase days[] = {
    {"UTC", utc(2024, 2, 29, 12), "2024-02-29 00:00:00", 24},
    {"UTC", utc(2024, 2, 29), "2024-02-29 00:00:00", 24},
    {"UTC", utc(2024, 2, 29, 23, 59, 59), "2024-02-29 00:00:00", 24},
    {"America/New_York", utc(2026, 3, 8, 12), "2026-03-08 00:00:00", 23},
    {"America/New_York", utc(2025, 11, 2, 12), "2025-11-02 00:00:00", 25},
    {"Australia/Lord_Howe", utc(2023, 10, 1, 12), "2023-10-01 00:00:00", 23.5},
    {"Australia/Lord_Howe", utc(2023, 4, 2, 5), "2023-04-02 00:00:00", 24.5},
    {"Africa/Cairo", utc(2023, 4, 28, 12), "2023-04-28 01:00:00", 23},
    {"Africa/Cairo", utc(2023, 10, 26, 12), "2023-10-26 00:00:00", 25},
    {"America/Santiago", utc(2023, 9, 3, 15), "2023-09-03 01:00:00", 23},
    {"America/Santiago", utc(2023, 4, 1, 15), "2023-04-01 00:00:00", 25},
    // Before 1970, too: the day behind the one on which the clocks went back from midnight.
    {"America/Santiago", utc(1930, 4, 2, 20, 32, 9), "1930-04-02 00:00:00", 24},
    {"America/Santiago", utc(1930, 4, 1, 15), "1930-04-01 00:00:00", 24},
    {"America/New_York", utc(1950, 4, 30, 12), "1950-04-30 00:00:00", 23},
    {"America/Havana", utc(2023, 11, 5, 15), "2023-11-05 00:00:00", 25},
    {"America/Ciudad_Juarez", utc(2022, 11, 30, 15), "2022-11-30 00:00:00", 24},
    {"Asia/Kathmandu", utc(2023, 5, 5, 12), "2023-05-05 00:00:00", 24},
    {"Pacific/Apia", utc(2011, 12, 30, 9, 59, 59), "2011-12-29 00:00:00", 24},
    {"Pacific/Apia", utc(2011, 12, 30, 10), "2011-12-31 00:00:00", 24},
    {"Pacific/Kwajalein", utc(1993, 8, 21, 13), "1993-08-22 00:00:00", 24},
};

TEST(Calendar, BeginsADayWithItsFirstMomentAndEndsItWithTheNextDays) {
    for (const auto& c : days) {
        const Calendar calendar = calendarOf(c.zone);
        const auto day = calendar.day(c.inside);
        ASSERT_TRUE(day) << c.zone;
        EXPECT_EQ(clockIn(calendar.zone(), day->start), c.firstClock) << c.zone;
        EXPECT_EQ((day->end.seconds - day->start.seconds) / 3600, c.hours) << c.zone << " " << c.firstClock;
        EXPECT_EQ(calendar.startOfDay(c.inside), day->start);
        EXPECT_EQ(calendar.startOfDay(day->start), day->start);
        EXPECT_FALSE(calendar.isSameDay(Moment{day->start.seconds - 1}, c.inside));
        EXPECT_TRUE(calendar.isSameDay(day->start, c.inside));
        EXPECT_TRUE(calendar.isSameDay(Moment{day->end.seconds - 1}, c.inside));
        EXPECT_FALSE(calendar.isSameDay(day->end, c.inside));
    }
}

TEST(Calendar, EndsTheDayInFrontOfASkippedOneWhereTheNextBegins) {
    const Calendar apia = calendarOf("Pacific/Apia");
    const auto day = apia.day(utc(2011, 12, 30, 9));
    ASSERT_TRUE(day);
    EXPECT_EQ(clockIn(apia.zone(), Moment{day->end.seconds - 1}), "2011-12-29 23:59:59");
    EXPECT_EQ(clockIn(apia.zone(), day->end), "2011-12-31 00:00:00");
}

TEST(Calendar, CountsAFractionOfASecondToTheSecondItIsIn) {
    const Calendar calendar = calendarOf("Europe/Berlin");
    const Moment midnight = utc(2024, 6, 1, 22);
    EXPECT_EQ(calendar.startOfDay(Moment{midnight.seconds + 0.5}), midnight);
    EXPECT_EQ(calendar.startOfDay(Moment{midnight.seconds - 0.5}), Moment{midnight.seconds - 86400});
    EXPECT_FALSE(calendar.isSameDay(Moment{midnight.seconds - 0.001}, midnight));
    EXPECT_EQ(calendar.nextMoment(Moment{midnight.seconds - 0.5}, 0, 0), midnight);
    EXPECT_EQ(calendar.nextMoment(Moment{midnight.seconds + 0.5}, 0, 0), Moment{midnight.seconds + 86400});
}

struct NextCase {
    const char* zone;
    Moment after;
    int hour, minute;
    Moment expected;
};

const NextCase nextCases[] = {
    {"UTC", utc(2024, 1, 1, 8, 4, 59), 8, 5, utc(2024, 1, 1, 8, 5)},
    {"UTC", utc(2024, 1, 1, 8, 5), 8, 5, utc(2024, 1, 2, 8, 5)},
    {"UTC", utc(2024, 1, 1, 8, 5, 30), 8, 5, utc(2024, 1, 2, 8, 5)},
    // The hour that the spring change removes is found on the next day.
    {"America/New_York", utc(2026, 3, 8, 5), 2, 30, utc(2026, 3, 9, 6, 30)},
    {"America/New_York", utc(2026, 3, 8, 5), 3, 0, utc(2026, 3, 8, 7)},
    // The hour that comes twice in autumn: the first, then the second, then the next day's.
    {"America/New_York", utc(2025, 11, 2, 4), 1, 30, utc(2025, 11, 2, 5, 30)},
    {"America/New_York", utc(2025, 11, 2, 5, 30), 1, 30, utc(2025, 11, 2, 6, 30)},
    {"America/New_York", utc(2025, 11, 2, 6, 30), 1, 30, utc(2025, 11, 3, 6, 30)},
    // The day in front comes back: 23:30 again after midnight's change.
    {"America/Santiago", utc(2023, 4, 2, 3), 23, 30, utc(2023, 4, 2, 3, 30)},
    // A whole day is missing.
    {"Pacific/Apia", utc(2011, 12, 30, 9), 8, 0, utc(2011, 12, 30, 18)},
};

TEST(Calendar, FindsTheNextMomentWhoseClockShowsATime) {
    for (const auto& c : nextCases) {
        const auto found = calendarOf(c.zone).nextMoment(c.after, c.hour, c.minute);
        ASSERT_TRUE(found) << c.zone;
        EXPECT_EQ(*found, c.expected) << c.zone << " " << c.hour << ":" << c.minute;
    }
}

TEST(Calendar, HasNoAnswerForMomentsOnNoCalendar) {
    using Limits = std::numeric_limits<double>;
    const Calendar calendar = calendarOf("America/New_York");
    for (const double seconds : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), Limits::max(),
                                 -1e300, 1e18, -1e18, 1e15, -1e15}) {
        const Moment far{seconds};
        EXPECT_FALSE(calendar.startOfDay(far)) << seconds;
        EXPECT_FALSE(calendar.day(far)) << seconds;
        EXPECT_FALSE(calendar.nextMoment(far, 8, 0)) << seconds;
        EXPECT_FALSE(calendar.isSameDay(far, far)) << seconds;
        EXPECT_FALSE(calendar.isSameDay(far, Moment{0})) << seconds;
        EXPECT_FALSE(calendar.isSameDay(Moment{0}, far)) << seconds;
    }
}

TEST(Calendar, StaysTrueToTheClockFarAway) {
    for (const auto* zone : {"America/New_York", "Europe/Berlin", "Asia/Shanghai", "Africa/Cairo", "UTC"}) {
        const Calendar calendar = calendarOf(zone);
        for (const double years : {-2999, -900, 50, 200, 450, 1200, 2500, 7000, 100'000, 2'000'000}) {
            for (int day = 0; day < 366; day += 5) {
                const Moment moment{years * 31'556'952 + day * 86400};
                const auto interval = calendar.day(moment);
                ASSERT_TRUE(interval) << zone << " " << years;
                ASSERT_LE(interval->start, moment) << zone << " " << years;
                ASSERT_GT(interval->end, moment) << zone << " " << years;
                ASSERT_TRUE(calendar.isSameDay(interval->start, moment))
                    << zone << " " << years << " " << day;
                ASSERT_FALSE(calendar.isSameDay(Moment{interval->start.seconds - 1}, moment))
                    << zone << " " << years << " " << day;
                ASSERT_TRUE(calendar.isSameDay(Moment{interval->end.seconds - 1}, moment))
                    << zone << " " << years << " " << day;
                const auto found = calendar.nextMoment(moment, 12, 34);
                ASSERT_TRUE(found) << zone << " " << years;
                const auto unix = static_cast<std::int64_t>(found->seconds) + unixSecondsOfReferenceDate;
                const auto local = unix + calendar.zone().offsetAt(unix);
                ASSERT_EQ(((local % 86400) + 86400) % 86400, 12 * 3600 + 34 * 60)
                    << zone << " " << years << " " << day;
            }
        }
    }
}

}  // namespace
}  // namespace vantry
