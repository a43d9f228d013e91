#include "VantryCore/records/ClockReading.h"

#include <cstdio>
#include <limits>

#include <gtest/gtest.h>

#include "tests/support/Clock.h"
#include "tests/support/RandomRecords.h"

namespace vantry {
namespace {

using support::utc;

std::string allOf(const ClockReading& reading) {
    std::string text = std::to_string(reading.year);
    for (const int field : {reading.month, reading.day, reading.hour, reading.minute, reading.second})
        text += " " + std::to_string(field);
    return text;
}

TEST(ClockReading, IsWhatCalendarAndClockOfTheZoneShow) {
    struct Case {
        const char* zone;
        Moment moment;
        const char* fields;
    };
    const Case cases[] = {
        {"UTC", Moment{0}, "2001 1 1 0 0 0"},
        {"UTC", utc(2024, 2, 29, 23, 59, 59), "2024 2 29 23 59 59"},
        {"America/New_York", utc(2026, 3, 8, 6, 59, 59), "2026 3 8 1 59 59"},
        {"America/New_York", utc(2026, 3, 8, 7), "2026 3 8 3 0 0"},
        {"America/New_York", utc(2026, 11, 1, 5, 30), "2026 11 1 1 30 0"},
        {"America/New_York", utc(2026, 11, 1, 6, 30), "2026 11 1 1 30 0"},
        {"America/Santiago", utc(2023, 9, 3, 4), "2023 9 3 1 0 0"},
        {"Australia/Lord_Howe", utc(2023, 9, 30, 15, 30), "2023 10 1 2 30 0"},
        {"Asia/Kolkata", utc(2024, 12, 31, 18, 30), "2025 1 1 0 0 0"},
        {"Pacific/Auckland", utc(2024, 4, 6, 11), "2024 4 7 0 0 0"},
        {"Asia/Shanghai", utc(2024, 2, 28, 16), "2024 2 29 0 0 0"},
        {"Africa/Monrovia", utc(1960, 1, 1, 12), "1960 1 1 11 15 30"},
        {"UTC", utc(1, 1, 1), "1 1 1 0 0 0"},
        {"UTC", utc(0, 12, 31, 23, 59, 59), "0 12 31 23 59 59"},
        {"UTC", utc(-43, 3, 15), "-43 3 15 0 0 0"},
        {"UTC", utc(12026, 5, 6), "12026 5 6 0 0 0"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(allOf(readClock(c.moment, *Zone::find(c.zone))), c.fields) << c.zone;
}

TEST(ClockReading, CountsAFractionOfASecondToTheSecondItIsIn) {
    const Zone zone = *Zone::find("UTC");
    EXPECT_EQ(allOf(readClock(Moment{0.999}, zone)), "2001 1 1 0 0 0");
    EXPECT_EQ(allOf(readClock(Moment{-0.001}, zone)), "2000 12 31 23 59 59");
    EXPECT_EQ(allOf(readClock(Moment{-1}, zone)), "2000 12 31 23 59 59");
    EXPECT_EQ(allOf(readClock(Moment{-1.5}, zone)), "2000 12 31 23 59 58");
}

TEST(ClockReading, WritesDayAndTimeWithLeadingZeroes) {
    struct Case {
        ClockReading reading;
        const char *day, *monthDay, *time;
    };
    const Case cases[] = {
        {{2026, 11, 15, 9, 5, 0}, "2026-11-15", "11-15", "09:05"},
        {{2026, 1, 2, 0, 0, 59}, "2026-01-02", "01-02", "00:00"},
        {{987, 12, 31, 23, 59, 59}, "0987-12-31", "12-31", "23:59"},
        {{1, 1, 1, 0, 0, 0}, "0001-01-01", "01-01", "00:00"},
        // There is no year 0: in front of year 1 they count backwards from 1.
        {{0, 12, 31, 12, 30, 0}, "0001-12-31", "12-31", "12:30"},
        {{-1, 6, 7, 12, 30, 0}, "0002-06-07", "06-07", "12:30"},
        {{-43, 3, 15, 12, 30, 0}, "0044-03-15", "03-15", "12:30"},
        {{-9999, 3, 15, 12, 30, 0}, "10000-03-15", "03-15", "12:30"},
        {{9999, 12, 31, 23, 59, 59}, "9999-12-31", "12-31", "23:59"},
        {{10000, 1, 1, 0, 0, 0}, "10000-01-01", "01-01", "00:00"},
        {{2'999'999, 1, 1, 0, 0, 0}, "2999999-01-01", "01-01", "00:00"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.reading.dayText(), c.day);
        EXPECT_EQ(c.reading.monthDayText(), c.monthDay);
        EXPECT_EQ(c.reading.timeText(), c.time);
    }
}

TEST(ClockReading, IsTheFirstDayUntilItIsRead) {
    EXPECT_EQ(ClockReading().dayText(), "0001-01-01");
    EXPECT_EQ(ClockReading().timeText(), "00:00");
}

TEST(ClockReading, StopsAtTheReachOfTheCalendar) {
    using Limits = std::numeric_limits<double>;
    const Zone zone = *Zone::find("UTC");
    for (const double seconds : {1e14, 1e15, 1e18, 1e300, Limits::max(), Limits::infinity()})
        EXPECT_EQ(allOf(readClock(Moment{seconds}, zone)), "3170874 11 7 9 46 40") << seconds;
    for (const double seconds : {-1e14, -1e15, -1e18, -1e300, Limits::lowest(), -Limits::infinity()})
        EXPECT_EQ(allOf(readClock(Moment{seconds}, zone)), "-3166873 2 25 14 13 20") << seconds;
    EXPECT_EQ(readClock(Moment{1e300}, zone).dayText(), "3170874-11-07");
    EXPECT_EQ(readClock(Moment{-1e300}, zone).dayText(), "3166874-02-25");
}

TEST(ClockReading, OfNoMomentAtAllIsTheReferenceDate) {
    const Moment nothing{std::numeric_limits<double>::quiet_NaN()};
    EXPECT_EQ(allOf(readClock(nothing, *Zone::find("UTC"))), "2001 1 1 0 0 0");
    EXPECT_EQ(allOf(readClock(nothing, *Zone::find("Asia/Kolkata"))), "2001 1 1 5 30 0");
}

TEST(ClockReading, IsInRangeAtAnyMomentInEveryZone) {
    static constexpr const char* zones[] = {"UTC",           "America/New_York",    "America/Santiago",
                                            "Asia/Kolkata",  "Australia/Lord_Howe", "Africa/Monrovia",
                                            "Asia/Shanghai", "Pacific/Auckland",    "Pacific/Kiritimati"};
    support::RandomRecords random(8);
    for (int round = 0; round < 5000; ++round) {
        const Zone zone = *Zone::find(random.oneOf(zones));
        const Moment moment{random.finite()};
        const ClockReading reading = readClock(moment, zone);
        const std::string place = zone.identifier() + " " + std::to_string(moment.seconds);
        ASSERT_TRUE(reading.month >= 1 && reading.month <= 12) << place;
        ASSERT_TRUE(reading.day >= 1 && reading.day <= 31) << place;
        ASSERT_TRUE(reading.hour >= 0 && reading.hour <= 23) << place;
        ASSERT_TRUE(reading.minute >= 0 && reading.minute <= 59) << place;
        ASSERT_TRUE(reading.second >= 0 && reading.second <= 59) << place;
        ASSERT_EQ(reading.timeText().size(), 5U) << place;
        ASSERT_GE(reading.dayText().size(), 10U) << place;
    }
}

TEST(ClockReading, AgreesWithTheClockOfTheSystemsLibrary) {
    static constexpr const char* zones[] = {"UTC", "America/New_York", "Australia/Lord_Howe",
                                            "Africa/Monrovia"};
    support::RandomRecords random(9);
    for (int round = 0; round < 5000; ++round) {
        const Zone zone = *Zone::find(random.oneOf(zones));
        const Moment moment{static_cast<double>(random.number(-4'000'000'000, 2'500'000'000))};
        const ClockReading reading = readClock(moment, zone);
        char seconds[8];
        std::snprintf(seconds, sizeof seconds, ":%02d", reading.second);
        ASSERT_EQ(reading.dayText() + " " + reading.timeText() + seconds, support::clockIn(zone, moment));
    }
}

}  // namespace
}  // namespace vantry
