#include <gtest/gtest.h>

#include "Vantry/schedule/rules/DayCounts.h"
#include "Vantry/schedule/rules/ShootSchedule.h"
#include "tests/schedule/Records.h"

namespace vantry::test {
namespace {

using support::utc;

/// The change from one day to the next, somewhere.
struct Night {
    const char* name;
    const char* zone;
    Moment midnight;         ///< the first moment of the second day
    const char* firstClock;  ///< what its clock shows then
    double hoursInFront;     ///< the length of the first day
    double hoursBehind;      ///< the length of the second
};

void PrintTo(const Night& night, std::ostream* out) {
    *out << night.name;
}

const Night nights[] = {
    {"NewYork", "America/New_York", utc(2026, 10, 19, 4), "2026-10-19 00:00:00", 24, 24},
    {"NewYorkIntoTheSpringChange", "America/New_York", utc(2026, 3, 8, 5), "2026-03-08 00:00:00", 24, 23},
    {"NewYorkOutOfTheSpringChange", "America/New_York", utc(2026, 3, 9, 4), "2026-03-09 00:00:00", 23, 24},
    {"NewYorkIntoTheAutumnChange", "America/New_York", utc(2026, 11, 1, 4), "2026-11-01 00:00:00", 24, 25},
    {"NewYorkOutOfTheAutumnChange", "America/New_York", utc(2026, 11, 2, 5), "2026-11-02 00:00:00", 25, 24},
    {"Santiago", "America/Santiago", utc(2024, 7, 11, 4), "2024-07-11 00:00:00", 24, 24},
    {"SantiagoMissingMidnight", "America/Santiago", utc(2023, 9, 3, 4), "2023-09-03 01:00:00", 24, 23},
    {"SantiagoBehindTheMissingMidnight", "America/Santiago", utc(2023, 9, 4, 3), "2023-09-04 00:00:00", 23,
     24},
    {"SantiagoLateHourTwice", "America/Santiago", utc(2023, 4, 2, 4), "2023-04-02 00:00:00", 25, 24},
    {"LordHowe", "Australia/Lord_Howe", utc(2024, 6, 30, 13, 30), "2024-07-01 00:00:00", 24, 24},
    {"LordHoweIntoTheHalfHourForward", "Australia/Lord_Howe", utc(2023, 9, 30, 13, 30), "2023-10-01 00:00:00",
     24, 23.5},
    {"LordHoweOutOfTheHalfHourForward", "Australia/Lord_Howe", utc(2023, 10, 1, 13), "2023-10-02 00:00:00",
     23.5, 24},
    {"LordHoweIntoTheHalfHourBack", "Australia/Lord_Howe", utc(2023, 4, 1, 13), "2023-04-02 00:00:00", 24,
     24.5},
    {"LordHoweOutOfTheHalfHourBack", "Australia/Lord_Howe", utc(2023, 4, 2, 13, 30), "2023-04-03 00:00:00",
     24.5, 24},
    {"Kolkata", "Asia/Kolkata", utc(2024, 5, 4, 18, 30), "2024-05-05 00:00:00", 24, 24},
    {"KolkataNewYear", "Asia/Kolkata", utc(2024, 12, 31, 18, 30), "2025-01-01 00:00:00", 24, 24},
    {"AucklandIntoTheSpringChange", "Pacific/Auckland", utc(2023, 9, 23, 12), "2023-09-24 00:00:00", 24, 23},
    {"AucklandOutOfTheSpringChange", "Pacific/Auckland", utc(2023, 9, 24, 11), "2023-09-25 00:00:00", 23, 24},
    {"AucklandIntoTheAutumnChange", "Pacific/Auckland", utc(2024, 4, 6, 11), "2024-04-07 00:00:00", 24, 25},
    {"AucklandOutOfTheAutumnChange", "Pacific/Auckland", utc(2024, 4, 7, 12), "2024-04-08 00:00:00", 25, 24},
    {"Shanghai", "Asia/Shanghai", utc(2025, 1, 31, 16), "2025-02-01 00:00:00", 24, 24},
    {"ShanghaiLeapDay", "Asia/Shanghai", utc(2024, 2, 28, 16), "2024-02-29 00:00:00", 24, 24},
};

class NightTest : public testing::TestWithParam<Night> {
protected:
    const Night& night = GetParam();
    const Calendar calendar = calendarOf(night.zone);
    const Moment midnight = night.midnight;
    const Moment firstDay = later(midnight, -night.hoursInFront * 30);
    const Moment secondDay = later(midnight, night.hoursBehind * 30);
    const Moment dayInFront = later(midnight, -night.hoursInFront * 60 - 1);
    const Moment dayBehind = later(midnight, night.hoursBehind * 60);

    const Shot over = shotFrom(later(midnight, -10), 30, "over");
    const Shot upTo = shotFrom(later(midnight, -30), 30, "up to");
    const Shot from = shotFrom(midnight, 15, "from");

    /// Which of the four days around the night have the shot, such as ".##.".
    [[nodiscard]] std::string daysOf(const Shot& shot) const {
        std::string days;
        for (const Moment day : {dayInFront, firstDay, secondDay, dayBehind})
            days += ShootSchedule::occurs(shot, day, calendar) ? '#' : '.';
        return days;
    }
    [[nodiscard]] std::string clockText(Moment moment) const {
        return support::clockIn(calendar.zone(), moment);
    }
};

INSTANTIATE_TEST_SUITE_P(Places, NightTest, testing::ValuesIn(nights),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(NightTest, PartsTheDaysAtTheFirstMomentOfTheSecond) {
    const DayInterval first = calendar.day(firstDay).value();
    const DayInterval second = calendar.day(secondDay).value();
    EXPECT_EQ(first.end, midnight);
    EXPECT_EQ(second.start, midnight);
    EXPECT_EQ((first.end.seconds - first.start.seconds) / 3600, night.hoursInFront);
    EXPECT_EQ((second.end.seconds - second.start.seconds) / 3600, night.hoursBehind);
    EXPECT_EQ(clockText(midnight), night.firstClock);
}

TEST_P(NightTest, PutsAShotOnTheDaysThatItTouches) {
    struct Case {
        const char* what;
        double start;
        double minutes;
        const char* days;
    };
    const double first = night.hoursInFront * 60;
    const double second = night.hoursBehind * 60;
    const Case cases[] = {
        {"over midnight", -10, 30, ".##."},
        {"up to midnight", -30, 30, ".#.."},
        {"a minute longer", -30, 31, ".##."},
        {"from midnight", 0, 15, "..#."},
        {"the last minute", -1, 1, ".#.."},
        {"all of the first day", -first, first, ".#.."},
        {"all of the second day", 0, second, "..#."},
        {"a minute more than the second day", 0, second + 1, "..##"},
        {"both days", -first, first + second, ".##."},
        {"a minute around both days", -first - 1, first + second + 2, "####"},
        {"zero minutes at midnight", 0, 0, "...."},
        {"zero minutes in front of it", -1, 0, ".#.."},
        {"a week", -10080, 10080, "##.."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(daysOf(shotFrom(later(midnight, c.start), static_cast<std::int64_t>(c.minutes))), c.days)
            << c.what;
    EXPECT_EQ(daysOf(shotWithoutTime("01")), "....");
}

TEST_P(NightTest, TellsTouchingFromSharingTime) {
    EXPECT_FALSE(ShootSchedule::overlaps(upTo, from));
    EXPECT_FALSE(ShootSchedule::overlaps(from, upTo));
    EXPECT_TRUE(ShootSchedule::overlaps(over, from));
    EXPECT_TRUE(ShootSchedule::overlaps(from, over));
    EXPECT_TRUE(ShootSchedule::overlaps(over, upTo));
    EXPECT_TRUE(ShootSchedule::overlaps(upTo, over));
    EXPECT_FALSE(ShootSchedule::overlaps(over, over));
}

TEST_P(NightTest, TakesTheSecondsOffWithoutChangingTheMinuteShown) {
    for (int minutes = -90; minutes <= 240; minutes += 7) {
        const Moment minute = later(midnight, minutes);
        for (const double seconds : {0.0, 0.001, 1.0, 29.5, 53.0, 59.999}) {
            const Moment moment{minute.seconds + seconds};
            const Moment normal = ShootSchedule::normalizedToMinute(moment, calendar);
            EXPECT_EQ(normal, minute) << seconds;
            EXPECT_EQ(readClock(normal, calendar.zone()).timeText(), clockText(moment).substr(11, 5));
            EXPECT_EQ(ShootSchedule::normalizedToMinute(normal, calendar), normal);
        }
    }
}

TEST_P(NightTest, PutsTheShotOfTheNightInFrontOfAllThatBeginsOnTheSecondDay) {
    const auto shots = located(std::vector{from, cancelled(over), shotWithoutTime("none"), over, upTo});
    const std::string clock = clockText(secondDay).substr(11, 5);
    const auto sheets = located(std::vector{
        sheetFor(night.zone, secondDay, clock.c_str(), "sheet"),
        sheetFor(night.zone, firstDay, "22:50", "late sheet"),
        sheetFor(night.zone, secondDay, " \n", "blank"),
        sheetFor(night.zone, secondDay, "dawn", "unreadable"),
    });
    const auto names = [&](Moment day) {
        return namesOf(CalendarAgendaItem::daily(shots, sheets, day, calendar));
    };
    EXPECT_EQ(names(dayInFront), Names{});
    EXPECT_EQ(names(firstDay), (Names{"late sheet", "up to", "over"}));
    EXPECT_EQ(names(secondDay), (Names{"over", "from", "sheet"}));
    EXPECT_EQ(names(dayBehind), Names{});

    const auto counts =
        countDays({calendar.day(firstDay).value(), calendar.day(secondDay).value()}, shots, sheets);
    EXPECT_EQ(counts, (std::vector<DayCount>{{2, 1}, {2, 1}}));
}

}  // namespace
}  // namespace vantry::test
