#include "Vantry/schedule/rules/ShootSchedule.h"

#include <limits>
#include <set>

#include <gtest/gtest.h>

#include "tests/schedule/Records.h"
#include "tests/support/RandomRecords.h"

namespace vantry::test {
namespace {

constexpr auto newYork = "America/New_York";

struct DayCase {
    const char* what;
    const char* zone;
    const char* start;
    std::int64_t minutes;
    std::vector<std::string> on;
    std::vector<std::string> notOn;
};

const DayCase dayCases[] = {
    {"over midnight",
     newYork,
     "2026-10-18 23:50",
     30,
     {"2026-10-18", "2026-10-19"},
     {"2026-10-17", "2026-10-20"}},
    {"up to midnight", newYork, "2026-10-18 23:30", 30, {"2026-10-18"}, {"2026-10-17", "2026-10-19"}},
    {"from midnight", newYork, "2026-10-19 00:00", 15, {"2026-10-19"}, {"2026-10-18", "2026-10-20"}},
    {"a whole day", newYork, "2026-10-19 00:00", 1440, {"2026-10-19"}, {"2026-10-18", "2026-10-20"}},
    {"a minute more",
     newYork,
     "2026-10-19 00:00",
     1441,
     {"2026-10-19", "2026-10-20"},
     {"2026-10-18", "2026-10-21"}},
    {"a week from midnight",
     newYork,
     "2026-10-05 00:00",
     10080,
     {"2026-10-05", "2026-10-06", "2026-10-07", "2026-10-08", "2026-10-09", "2026-10-10", "2026-10-11"},
     {"2026-10-04", "2026-10-12"}},
    {"a week from the morning",
     "Asia/Shanghai",
     "2025-10-18 08:00",
     10080,
     {"2025-10-18", "2025-10-19", "2025-10-22", "2025-10-25"},
     {"2025-10-17", "2025-10-26"}},
    {"the night behind a day of 23 hours",
     newYork,
     "2026-03-09 00:30",
     10,
     {"2026-03-09"},
     {"2026-03-08", "2026-03-10"}},
    {"over the missing hour",
     newYork,
     "2026-03-07 23:45",
     210,
     {"2026-03-07", "2026-03-08"},
     {"2026-03-06", "2026-03-09"}},
    {"a day of 23 hours and one more",
     newYork,
     "2026-03-08 00:00",
     1440,
     {"2026-03-08", "2026-03-09"},
     {"2026-03-07"}},
    {"a day of 23 hours", newYork, "2026-03-08 00:00", 1380, {"2026-03-08"}, {"2026-03-07", "2026-03-09"}},
    {"the last half hour of a day of 25",
     newYork,
     "2026-11-01 23:30",
     30,
     {"2026-11-01"},
     {"2026-10-31", "2026-11-02"}},
    {"over the midnight behind it",
     newYork,
     "2026-11-01 23:45",
     30,
     {"2026-11-01", "2026-11-02"},
     {"2026-11-03"}},
    {"a day of 25 hours", newYork, "2026-11-01 00:00", 1500, {"2026-11-01"}, {"2026-10-31", "2026-11-02"}},
    {"less than a day of 25 hours",
     newYork,
     "2026-11-01 00:00",
     1440,
     {"2026-11-01"},
     {"2026-10-31", "2026-11-02"}},
    {"up to a midnight that is missing",
     "America/Santiago",
     "2023-09-02 23:30",
     30,
     {"2023-09-02"},
     {"2023-09-03"}},
    {"over a midnight that is missing",
     "America/Santiago",
     "2023-09-02 23:30",
     31,
     {"2023-09-02", "2023-09-03"},
     {"2023-09-04"}},
    {"over a date that is missing",
     "Pacific/Apia",
     "2011-12-29 23:30",
     60,
     {"2011-12-29", "2011-12-31"},
     {"2011-12-28", "2012-01-01"}},
    {"zero minutes at midnight",
     newYork,
     "2026-10-19 00:00",
     0,
     {},
     {"2026-10-18", "2026-10-19", "2026-10-20"}},
    {"zero minutes behind midnight",
     newYork,
     "2026-10-19 00:01",
     0,
     {"2026-10-19"},
     {"2026-10-18", "2026-10-20"}},
};

TEST(ShootSchedule, PutsAShotOnEveryDayThatItTouchesAndOnNoOther) {
    for (const auto& c : dayCases) {
        const Calendar calendar = calendarOf(c.zone);
        const Shot shot = shotFrom(at(c.zone, c.start), c.minutes);
        for (const auto* clock : {" 12:00", " 03:00:01", " 23:59:59"}) {
            for (const auto& date : c.on)
                EXPECT_TRUE(ShootSchedule::occurs(shot, at(c.zone, date + clock), calendar))
                    << c.what << ": " << date;
            for (const auto& date : c.notOn)
                EXPECT_FALSE(ShootSchedule::occurs(shot, at(c.zone, date + clock), calendar))
                    << c.what << ": " << date;
        }
    }
}

TEST(ShootSchedule, AnswersTheSameForADayThatIsKnown) {
    for (const auto& c : dayCases) {
        const Calendar calendar = calendarOf(c.zone);
        const Shot shot = shotFrom(at(c.zone, c.start), c.minutes);
        for (const auto& date : c.on)
            EXPECT_TRUE(ShootSchedule::occurs(shot, calendar.day(at(c.zone, date + " 12:00")).value()))
                << c.what;
        for (const auto& date : c.notOn)
            EXPECT_FALSE(ShootSchedule::occurs(shot, calendar.day(at(c.zone, date + " 12:00")).value()))
                << c.what;
    }
}

TEST(ShootSchedule, KeepsAShotThatEndsAFractionBehindMidnightOnTheNextDay) {
    const Calendar calendar = calendarOf(newYork);
    const Moment midnight = at(newYork, "2026-10-19");
    const Moment justBehind{midnight.seconds - 1800 + 0.25};
    const Moment justInFront{midnight.seconds - 1800 - 0.25};
    EXPECT_TRUE(ShootSchedule::occurs(shotFrom(justBehind, 30), midnight, calendar));
    EXPECT_FALSE(ShootSchedule::occurs(shotFrom(justInFront, 30), midnight, calendar));
    const Moment nearlyMidnight{midnight.seconds - 0.25};
    EXPECT_TRUE(ShootSchedule::occurs(shotFrom(nearlyMidnight, 1), at(newYork, "2026-10-18"), calendar));
}

TEST(ShootSchedule, CountsADayOf23AndOneOf25Hours) {
    const Calendar calendar = calendarOf(newYork);
    const auto length = [&](const char* date) {
        const DayInterval day = calendar.day(at(newYork, date)).value();
        return day.end.seconds - day.start.seconds;
    };
    EXPECT_EQ(length("2026-03-08"), 82800);
    EXPECT_EQ(length("2026-11-01"), 90000);
    EXPECT_EQ(length("2026-10-18"), 86400);
}

TEST(ShootSchedule, EndsAShotAfterItsElapsedMinutesWhateverTheClockDoes) {
    struct Case {
        const char *zone, *start;
        std::int64_t minutes;
        const char* end;
    };
    const Case cases[] = {
        {newYork, "2026-03-07 23:45", 210, "2026-03-08 04:15:00"},
        {newYork, "2026-10-31 23:45", 210, "2026-11-01 02:15:00"},
        {newYork, "2026-10-18 23:45", 210, "2026-10-19 03:15:00"},
        {"Australia/Lord_Howe", "2023-10-01 01:45", 30, "2023-10-01 02:45:00"},
        {"Australia/Lord_Howe", "2023-04-02 01:15", 60, "2023-04-02 01:45:00"},
        {"America/Santiago", "2023-09-02 23:45", 30, "2023-09-03 01:15:00"},
        {"Asia/Kolkata", "2024-05-04 23:45", 210, "2024-05-05 03:15:00"},
    };
    for (const auto& c : cases) {
        const Moment start = at(c.zone, c.start);
        const auto end = shotFrom(start, c.minutes).scheduledEnd();
        ASSERT_TRUE(end);
        EXPECT_EQ(end->seconds - start.seconds, static_cast<double>(c.minutes) * 60);
        EXPECT_EQ(support::clockIn(*Zone::find(c.zone), *end), c.end) << c.zone;
    }
}

TEST(ShootSchedule, HasNoDayForAnUnscheduledShot) {
    const Shot shot = shotWithoutTime("01");
    EXPECT_FALSE(shot.scheduledEnd());
    for (const auto* zone : {"UTC", newYork, "Pacific/Apia"}) {
        const Calendar calendar = calendarOf(zone);
        for (const Moment day : {Moment{}, at(zone, "2026-10-18"), at(zone, "1960-01-01")}) {
            EXPECT_FALSE(ShootSchedule::occurs(shot, day, calendar));
            EXPECT_FALSE(ShootSchedule::occurs(shot, calendar.day(day).value()));
        }
    }
}

TEST(ShootSchedule, LeavesACancelledShotOnItsDay) {
    const Moment start = at(newYork, "2026-10-18 12:00");
    EXPECT_TRUE(ShootSchedule::occurs(cancelled(shotFrom(start, 30)), start, calendarOf(newYork)));
}

TEST(ShootSchedule, HasNoShotOnADayThatIsOnNoCalendar) {
    using Limits = std::numeric_limits<double>;
    const Calendar calendar = calendarOf(newYork);
    for (const double seconds :
         {1e300, -1e300, 1e15, Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
        const Shot shot = shotFrom(Moment{seconds}, 30);
        EXPECT_FALSE(ShootSchedule::occurs(shot, Moment{seconds}, calendar)) << seconds;
        EXPECT_FALSE(ShootSchedule::occurs(shot, Moment{0}, calendar)) << seconds;
        EXPECT_FALSE(ShootSchedule::occurs(shotFrom(Moment{0}, 30), Moment{seconds}, calendar)) << seconds;
    }
}

TEST(ShootSchedule, IsOnTheDatesThatTheClockShowsWhileTheShotLasts) {
    static constexpr const char* zones[] = {
        newYork,         "America/Santiago",  "Australia/Lord_Howe", "Asia/Kolkata",    "Pacific/Auckland",
        "Asia/Shanghai", "Pacific/Chatham",   "Africa/Cairo",        "Europe/London",   "America/St_Johns",
        "UTC",           "Africa/Casablanca", "Pacific/Kiritimati",  "Atlantic/Azores", "Asia/Kathmandu",
    };
    support::RandomRecords random(41);
    int changes = 0;
    for (int round = 0; round < 900; ++round) {
        const char* const zone = random.oneOf(zones);
        const Calendar calendar = calendarOf(zone);
        double start = static_cast<double>(random.number(0, 1826)) * 86400 + 694224000 +
                       static_cast<double>(random.number(0, 1439)) * 60;
        // Often close to a change of the clocks.
        const auto change =
            calendar.zone().nextTransition(static_cast<std::int64_t>(start) + unixSecondsOfReferenceDate);
        if (change && random.chance(0.5)) {
            start = static_cast<double>(*change - unixSecondsOfReferenceDate + random.number(-1800, 60) * 60);
            ++changes;
        }
        const Shot shot = shotFrom(Moment{start}, random.number(1, random.chance(0.2) ? 10080 : 600));
        std::set<std::string> shown;
        for (std::int64_t minute = 0; minute < shot.durationMinutes; ++minute)
            shown.insert(support::clockIn(calendar.zone(), later(Moment{start}, static_cast<double>(minute)))
                             .substr(0, 10));
        std::set<std::string> found;
        std::set<std::string> looked;
        for (int hour = -48; hour <= 240; ++hour) {
            const Moment inside = later(Moment{start}, hour * 60);
            const std::string date = support::clockIn(calendar.zone(), inside).substr(0, 10);
            if (looked.insert(date).second && ShootSchedule::occurs(shot, inside, calendar))
                found.insert(date);
        }
        ASSERT_EQ(found, shown) << zone << " " << support::clockIn(calendar.zone(), Moment{start}) << " for "
                                << shot.durationMinutes;
    }
    EXPECT_GT(changes, 200);
}

}  // namespace
}  // namespace vantry::test
