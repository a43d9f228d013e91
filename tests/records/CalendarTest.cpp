#include "VantryCore/records/Calendar.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "VantryCore/records/ClockReading.h"
#include "tests/support/Clock.h"
#include "tests/support/RandomRecords.h"

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

struct MinuteCase {
    const char* what;
    const char* zone;
    Moment inside;
    Moment start;
};

const MinuteCase minuteCases[] = {
    {"a whole minute", "America/New_York", utc(2026, 10, 18, 18, 27), utc(2026, 10, 18, 18, 27)},
    {"within a minute", "America/New_York", utc(2026, 10, 18, 18, 27, 53), utc(2026, 10, 18, 18, 27)},
    {"its last second", "Asia/Kathmandu", utc(2024, 5, 5, 2, 20, 59), utc(2024, 5, 5, 2, 20)},
    {"long ago", "UTC", utc(1850, 1, 1, 0, 0, 1), utc(1850, 1, 1)},
    {"behind a change forward", "America/New_York", utc(2026, 3, 8, 7, 0, 1), utc(2026, 3, 8, 7)},
    {"behind a change back", "America/New_York", utc(2026, 11, 1, 6, 0, 1), utc(2026, 11, 1, 6)},
    // -0:44:30 until 1972-01-07, then UTC: the clock jumps to 00:44:30.
    {"a clock of odd seconds", "Africa/Monrovia", utc(1960, 1, 1, 12, 0, 31), utc(1960, 1, 1, 12, 0, 30)},
    {"and half a minute earlier", "Africa/Monrovia", utc(1960, 1, 1, 12, 0, 29), utc(1960, 1, 1, 11, 59, 30)},
    {"a minute that begins with a jump", "Africa/Monrovia", utc(1972, 1, 7, 0, 44, 59),
     utc(1972, 1, 7, 0, 44, 30)},
    {"the jump itself", "Africa/Monrovia", utc(1972, 1, 7, 0, 44, 30), utc(1972, 1, 7, 0, 44, 30)},
    {"the minute in front of the jump", "Africa/Monrovia", utc(1972, 1, 7, 0, 44, 29),
     utc(1972, 1, 7, 0, 43, 30)},
    {"the minute behind the jump", "Africa/Monrovia", utc(1972, 1, 7, 0, 45, 1), utc(1972, 1, 7, 0, 45)},
    // -0:43:08 until 1919-03-01, then -0:44:30: midnight goes back to 23:58:38.
    {"a minute that begins with a step back", "Africa/Monrovia", utc(1919, 3, 1, 0, 43, 20),
     utc(1919, 3, 1, 0, 43, 8)},
    {"the minute behind that step", "Africa/Monrovia", utc(1919, 3, 1, 0, 43, 31),
     utc(1919, 3, 1, 0, 43, 30)},
};

TEST(Calendar, BeginsAMinuteWithItsFirstMoment) {
    for (const auto& c : minuteCases)
        for (const double fraction : {0.0, 0.5, 0.999}) {
            const auto start = calendarOf(c.zone).startOfMinute(Moment{c.inside.seconds + fraction});
            ASSERT_TRUE(start) << c.what;
            EXPECT_EQ(*start, c.start) << c.what;
        }
}

constexpr const char* clocks[] = {
    "Africa/Monrovia",     "America/New_York",
    "America/Santiago",    "Asia/Kathmandu",
    "Asia/Kolkata",        "Asia/Shanghai",
    "Australia/Lord_Howe", "Europe/Amsterdam",
    "Europe/Dublin",       "Europe/Moscow",
    "Europe/Paris",        "Pacific/Apia",
    "Pacific/Auckland",    "UTC",
    "America/St_Johns",
};

std::string minuteShown(const Zone& zone, Moment moment) {
    const ClockReading reading = readClock(moment, zone);
    return reading.dayText() + " " + reading.timeText();
}

/// A moment from 1850 to 2040, often within some minutes of a change of the clocks.
Moment someMoment(support::RandomRecords& random, const Zone& zone) {
    std::int64_t unix = random.number(-3'786'912'000, 2'208'988'800);
    if (const auto change = zone.nextTransition(unix); change && random.chance(0.6))
        unix = *change + random.number(-130, 130);
    return Moment{static_cast<double>(unix - unixSecondsOfReferenceDate) +
                  static_cast<double>(random.number(0, 3)) / 4};
}

TEST(Calendar, TakesOffNothingButTheSecondsOfAMinute) {
    support::RandomRecords random(1972);
    int odd = 0;
    int cut = 0;
    for (int round = 0; round < 20000; ++round) {
        const Calendar calendar = calendarOf(random.oneOf(clocks));
        const Zone& zone = calendar.zone();
        const Moment moment = someMoment(random, zone);
        const std::string place = zone.identifier() + " " + std::to_string(moment.seconds);
        const auto start = calendar.startOfMinute(moment);
        ASSERT_TRUE(start) << place;
        ASSERT_LE(*start, moment) << place;
        ASSERT_LT(moment.seconds - start->seconds, 60) << place;
        ASSERT_EQ(minuteShown(zone, *start), minuteShown(zone, moment)) << place;
        ASSERT_EQ(calendar.startOfMinute(*start), start) << place;
        // It is the first: its second is 0, or the clock changed just then.
        const auto unix = static_cast<std::int64_t>(start->seconds) + unixSecondsOfReferenceDate;
        const bool changed = zone.offsetAt(unix) != zone.offsetAt(unix - 1);
        ASSERT_TRUE(changed || readClock(*start, zone).second == 0) << place;
        odd += zone.offsetAt(unix) % 60 != 0 ? 1 : 0;
        cut += changed && readClock(*start, zone).second != 0 ? 1 : 0;
    }
    EXPECT_GT(odd, 1000);
    EXPECT_GT(cut, 50);
}

struct ShowingCase {
    const char* zone;
    ClockReading reading;
    Moment moment;
};

const ShowingCase showingCases[] = {
    {"UTC", {2001, 1, 1, 0, 0, 0}, Moment{0}},
    {"UTC", {2024, 2, 29, 23, 59, 59}, utc(2024, 2, 29, 23, 59, 59)},
    {"America/New_York", {2026, 10, 18, 14, 27, 53}, utc(2026, 10, 18, 18, 27, 53)},
    {"America/New_York", {2026, 3, 8, 1, 59, 59}, utc(2026, 3, 8, 6, 59, 59)},
    {"America/New_York", {2026, 3, 8, 3, 0, 0}, utc(2026, 3, 8, 7)},
    // Of two moments that show it, the first.
    {"America/New_York", {2026, 11, 1, 1, 0, 0}, utc(2026, 11, 1, 5)},
    {"America/New_York", {2026, 11, 1, 1, 59, 59}, utc(2026, 11, 1, 5, 59, 59)},
    {"America/New_York", {2026, 11, 1, 2, 0, 0}, utc(2026, 11, 1, 7)},
    {"America/Santiago", {2023, 4, 1, 23, 30, 0}, utc(2023, 4, 2, 2, 30)},
    {"America/Santiago", {2023, 9, 3, 1, 0, 0}, utc(2023, 9, 3, 4)},
    {"Australia/Lord_Howe", {2023, 4, 2, 1, 45, 0}, utc(2023, 4, 1, 14, 45)},
    {"Australia/Lord_Howe", {2023, 10, 1, 2, 30, 0}, utc(2023, 9, 30, 15, 30)},
    {"Pacific/Apia", {2011, 12, 31, 0, 0, 0}, utc(2011, 12, 30, 10)},
    {"Africa/Monrovia", {1960, 1, 1, 11, 16, 0}, utc(1960, 1, 1, 12, 0, 30)},
    {"Asia/Kolkata", {1969, 12, 31, 23, 59, 59}, utc(1969, 12, 31, 18, 29, 59)},
    {"UTC", {1, 1, 1, 0, 0, 0}, utc(1, 1, 1)},
    {"UTC", {0, 12, 31, 0, 0, 0}, utc(0, 12, 31)},
    {"UTC", {-399, 2, 28, 0, 0, 0}, utc(-399, 2, 28)},
    {"UTC", {12345, 6, 7, 8, 9, 10}, utc(12345, 6, 7, 8, 9, 10)},
};

TEST(Calendar, FindsTheFirstMomentAtWhichCalendarAndClockShowAReading) {
    for (const auto& c : showingCases) {
        const auto found = calendarOf(c.zone).momentShowing(c.reading);
        ASSERT_TRUE(found) << c.zone << " " << c.reading.dayText();
        EXPECT_EQ(*found, c.moment) << c.zone << " " << c.reading.dayText() << " " << c.reading.timeText();
    }
}

TEST(Calendar, FindsNoMomentForAWallTimeThatIsMissing) {
    struct Case {
        const char* zone;
        ClockReading reading;
    };
    const Case cases[] = {
        {"America/New_York", {2026, 3, 8, 2, 0, 0}},       {"America/New_York", {2026, 3, 8, 2, 30, 0}},
        {"America/New_York", {2026, 3, 8, 2, 59, 59}},     {"America/Santiago", {2023, 9, 3, 0, 0, 0}},
        {"America/Santiago", {2023, 9, 3, 0, 59, 59}},     {"Australia/Lord_Howe", {2023, 10, 1, 2, 0, 0}},
        {"Australia/Lord_Howe", {2023, 10, 1, 2, 29, 59}}, {"Pacific/Apia", {2011, 12, 30, 0, 0, 0}},
        {"Pacific/Apia", {2011, 12, 30, 12, 0, 0}},        {"Pacific/Apia", {2011, 12, 30, 23, 59, 59}},
        {"Africa/Monrovia", {1972, 1, 7, 0, 44, 29}},      {"Africa/Cairo", {2023, 4, 28, 0, 30, 0}},
    };
    for (const auto& c : cases)
        EXPECT_FALSE(calendarOf(c.zone).momentShowing(c.reading)) << c.zone << " " << c.reading.dayText();
}

TEST(Calendar, FindsNoMomentForFieldsOutOfRange) {
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    constexpr auto leastYear = std::numeric_limits<std::int64_t>::min();
    constexpr auto mostYear = std::numeric_limits<std::int64_t>::max();
    const ClockReading readings[] = {
        {2025, 0, 1, 0, 0, 0},       {2025, 13, 1, 0, 0, 0},
        {2025, -1, 1, 0, 0, 0},      {2025, 1, 0, 0, 0, 0},
        {2025, 1, 32, 0, 0, 0},      {2025, 4, 31, 0, 0, 0},
        {2025, 2, 29, 0, 0, 0},      {2024, 2, 30, 0, 0, 0},
        {1900, 2, 29, 0, 0, 0},      {2025, 1, -1, 0, 0, 0},
        {2025, 1, 1, 24, 0, 0},      {2025, 1, 1, -1, 0, 0},
        {2025, 1, 1, 0, 60, 0},      {2025, 1, 1, 0, -1, 0},
        {2016, 12, 31, 23, 59, 60},  {2025, 1, 1, 0, 0, -1},
        {2025, most, 1, 0, 0, 0},    {2025, 1, least, 0, 0, 0},
        {2025, 1, 1, most, 0, 0},    {2025, 1, 1, 0, least, 0},
        {2025, 1, 1, 0, 0, most},    {3'000'001, 1, 1, 0, 0, 0},
        {-3'000'001, 1, 1, 0, 0, 0}, {mostYear, 1, 1, 0, 0, 0},
        {leastYear, 1, 1, 0, 0, 0},  {2025, least, least, least, least, least},
    };
    for (const auto* zone : {"UTC", "America/New_York", "Australia/Lord_Howe"})
        for (const auto& reading : readings)
            EXPECT_FALSE(calendarOf(zone).momentShowing(reading))
                << zone << " " << reading.year << " " << reading.month << " " << reading.day;
    EXPECT_TRUE(calendarOf("UTC").momentShowing({2024, 2, 29, 0, 0, 0}));
    EXPECT_TRUE(calendarOf("UTC").momentShowing({2000, 2, 29, 0, 0, 0}));
    EXPECT_TRUE(calendarOf("UTC").momentShowing({2'999'999, 12, 31, 23, 59, 59}));
}

TEST(Calendar, FindsTheMomentThatTheClockWasReadAt) {
    support::RandomRecords random(1937);
    int repeated = 0;
    for (int round = 0; round < 20000; ++round) {
        const Calendar calendar = calendarOf(random.oneOf(clocks));
        const Zone& zone = calendar.zone();
        const Moment moment{std::floor(someMoment(random, zone).seconds)};
        const ClockReading reading = readClock(moment, zone);
        const std::string place = zone.identifier() + " " + std::to_string(moment.seconds);
        const auto found = calendar.momentShowing(reading);
        ASSERT_TRUE(found) << place;
        ASSERT_EQ(minuteShown(zone, *found), minuteShown(zone, moment)) << place;
        ASSERT_EQ(readClock(*found, zone).second, reading.second) << place;
        // Only a reading that the clock shows twice may lead to another moment: the earlier one.
        ASSERT_LE(*found, moment) << place;
        const auto unix = static_cast<std::int64_t>(moment.seconds) + unixSecondsOfReferenceDate;
        const auto earlier = static_cast<std::int64_t>(found->seconds) + unixSecondsOfReferenceDate;
        ASSERT_EQ(unix + zone.offsetAt(unix), earlier + zone.offsetAt(earlier)) << place;
        repeated += *found < moment ? 1 : 0;
    }
    EXPECT_GT(repeated, 500);
    EXPECT_LT(repeated, 10000);
}

TEST(Calendar, HasNoAnswerForMomentsOnNoCalendar) {
    using Limits = std::numeric_limits<double>;
    const Calendar calendar = calendarOf("America/New_York");
    for (const double seconds : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), Limits::max(),
                                 -1e300, 1e18, -1e18, 1e15, -1e15}) {
        const Moment far{seconds};
        EXPECT_FALSE(calendar.startOfDay(far)) << seconds;
        EXPECT_FALSE(calendar.day(far)) << seconds;
        EXPECT_FALSE(calendar.startOfMinute(far)) << seconds;
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
