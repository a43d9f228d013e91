#include "Vantry/schedule/rules/DayCounts.h"

#include <limits>

#include <gtest/gtest.h>

#include "Vantry/schedule/rules/ShootSchedule.h"
#include "tests/schedule/Records.h"
#include "tests/support/RandomRecords.h"

namespace vantry {

inline void PrintTo(const DayCount& count, std::ostream* out) {
    *out << count.shots << "+" << count.callSheets;
}

namespace test {
namespace {

using Counts = std::vector<DayCount>;

/// So many days of the calendar, from the one that contains `first`.
std::vector<DayInterval> daysFrom(Moment first, int count, const Calendar& calendar) {
    std::vector<DayInterval> days;
    for (int i = 0; i < count; ++i) {
        days.push_back(calendar.day(first).value());
        first = days.back().end;
    }
    return days;
}

/// The counts by asking for every shot and every sheet on every day.
Counts plainly(const std::vector<DayInterval>& days, const std::vector<ShotLocation>& shots,
               const std::vector<CallSheetLocation>& sheets, const Calendar& calendar) {
    Counts counts;
    for (const auto& day : days) {
        DayCount& count = counts.emplace_back();
        for (const auto& location : shots)
            if (!location.shot->cancelled && ShootSchedule::occurs(*location.shot, day.start, calendar))
                ++count.shots;
        for (const auto& location : sheets) {
            const auto start = location.sheet->calendarStart();
            if (start && calendar.isSameDay(*start, day.start))
                ++count.callSheets;
        }
    }
    return counts;
}

constexpr auto santiago = "America/Santiago";

TEST(DayCounts, CountAShotOnEachOfItsDaysAndASheetOnItsOne) {
    const Calendar calendar = calendarOf(santiago);
    const auto days = daysFrom(at(santiago, "2023-09-01"), 4, calendar);
    const auto shots = located(std::vector{
        shotFrom(at(santiago, "2023-09-02 23:50"), 30),
        shotFrom(at(santiago, "2023-09-02 23:30"), 30),
        shotFrom(at(santiago, "2023-09-03 01:00"), 15),
        shotFrom(at(santiago, "2023-08-31 12:00"), 10080),
        shotFrom(at(santiago, "2023-08-31 23:00"), 60),
        shotFrom(at(santiago, "2023-09-05 00:00"), 60),
        cancelled(shotFrom(at(santiago, "2023-09-02 12:00"), 30)),
        shotWithoutTime("01"),
    });
    const auto sheets = located(std::vector{
        sheetFor(santiago, at(santiago, "2023-09-02"), "23:59"),
        sheetFor(santiago, at(santiago, "2023-09-03 12:00"), "01:00"),
        sheetFor(santiago, at(santiago, "2023-09-03 12:00"), "00:00"),
        sheetFor(santiago, at(santiago, "2023-09-03 12:00"), ""),
        sheetFor(santiago, at(santiago, "2023-08-31"), "23:59"),
        sheetFor(santiago, at(santiago, "2023-09-05"), "0:00"),
        sheetFor("Asia/Shanghai", at("Asia/Shanghai", "2023-09-02"), "08:00"),
    });
    EXPECT_EQ(countDays(days, shots, sheets), (Counts{{1, 1}, {3, 1}, {3, 1}, {1, 0}}));
}

TEST(DayCounts, AreNoneWithoutDaysAndZeroWithoutRecords) {
    const Calendar calendar = calendarOf("UTC");
    const auto shots = located(std::vector{shotFrom(Moment{0}, 30)});
    EXPECT_EQ(countDays({}, shots, {}), Counts{});
    EXPECT_EQ(countDays(daysFrom(Moment{0}, 3, calendar), {}, {}), Counts(3));
}

TEST(DayCounts, CountNothingThatIsOnNoCalendar) {
    using Limits = std::numeric_limits<double>;
    const auto days = daysFrom(at(santiago, "2023-09-01"), 3, calendarOf(santiago));
    for (const double seconds : {1e300, -1e300, Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()})
        EXPECT_EQ(countDays(days, located(std::vector{shotFrom(Moment{seconds}, 30)}),
                            located(std::vector{sheetFor(santiago, Moment{seconds}, "09:00")})),
                  Counts(3))
            << seconds;
}

class MonthTest : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Zones, MonthTest,
                         testing::Values("UTC", "America/New_York", "America/Santiago", "Australia/Lord_Howe",
                                         "Asia/Kolkata", "Pacific/Auckland", "Asia/Shanghai", "Africa/Cairo",
                                         "Europe/London", "Pacific/Apia", "Asia/Beirut", "America/Nuuk"),
                         [](const auto& info) {
                             std::string name = info.param;
                             std::erase_if(name, [](char c) { return c == '/' || c == '_'; });
                             return name;
                         });

TEST(DayCounts, AreTheSameOfALibraryAsOfItsLists) {
    const Calendar calendar = calendarOf("Asia/Shanghai");
    const auto days = daysFrom(at("Asia/Shanghai", "2024-02-26"), 42, calendar);
    Library library;
    for (int p = 0; p < 3; ++p) {
        Project project = Project::make("Production");
        std::vector<CallSheet> sheets;
        for (int a = 0; a < 2; ++a) {
            Act act = Act::make("Act");
            for (int i = 0; i < 40; ++i) {
                act.shots.emplace_back(shotFrom(later(days.front().start, i * 1700 + p * 300 - 900), 400));
                sheets.push_back(
                    sheetFor("UTC", later(days.front().start, i * 2100.0 - 9000), i % 3 == 0 ? "" : "23:30"));
            }
            project.acts.emplace_back(std::move(act));
        }
        project.setCallSheets(std::move(sheets));
        library.projects.emplace_back(std::move(project));
    }
    const Counts all = countDays(days, locations(library), callSheetLocations(library));
    EXPECT_GT(all[10].shots, 0U);
    EXPECT_GT(all[10].callSheets, 0U);
    EXPECT_EQ(countLibraryDays(days, library), all);
    Counts sum(days.size());
    for (const auto& project : library.projects) {
        const Counts one = countLibraryDays(days, library, project->id);
        EXPECT_NE(one, all);
        for (std::size_t i = 0; i < sum.size(); ++i)
            sum[i] = {sum[i].shots + one[i].shots, sum[i].callSheets + one[i].callSheets};
    }
    EXPECT_EQ(sum, all);
    EXPECT_EQ(countLibraryDays(days, library, Identifier()), Counts(days.size()));
}

TEST_P(MonthTest, IsCountedAsIfDayByDay) {
    static constexpr const char* calls[] = {"00:00", "23:59",  "23:30", "0:30", "01:00", "02:30",
                                            "8:05",  "18：00", "",      " ",    "soon",  "24:00"};
    static constexpr const char* zones[] = {"UTC", "America/New_York", "Asia/Shanghai", "Pacific/Kiritimati",
                                            "Pacific/Pago_Pago"};
    static constexpr std::int64_t lengths[] = {0, 1, 15, 30, 720, 1380, 1440, 1500, 2880, 10080};
    // In minutes from the first of the month: well beyond both ends of the page.
    constexpr std::int64_t earliest = -28'800;
    constexpr std::int64_t latest = 72'000;
    const Calendar calendar = calendarOf(GetParam());
    support::RandomRecords random(2024);
    std::size_t seenShots = 0;
    std::size_t seenSheets = 0;
    for (int round = 0; round < 20; ++round) {
        ClockReading firstOfMonth;
        firstOfMonth.year = random.number(2023, 2025);
        firstOfMonth.month = static_cast<int>(random.number(1, 12));
        firstOfMonth.hour = 12;
        const Moment first = calendar.momentShowing(firstOfMonth).value();
        // A page of whole weeks, or a single day.
        const auto days = daysFrom(later(first, static_cast<double>(random.number(-6, 0)) * 1440),
                                   random.chance(0.9) ? 42 : 1, calendar);
        std::vector<Shot> shots;
        std::vector<CallSheet> sheets;
        for (int i = 0; i < 50; ++i) {
            Moment start = later(first, static_cast<double>(random.number(earliest, latest)));
            if (random.chance(0.3))
                start = calendar.startOfDay(start).value();
            if (random.chance(0.1))
                start.seconds += 0.5;
            std::int64_t minutes = random.chance(0.5) ? random.oneOf(lengths) : random.number(1, 3000);
            // Often up to the end of the day.
            if (random.chance(0.2))
                minutes =
                    static_cast<std::int64_t>((calendar.day(start).value().end.seconds - start.seconds) / 60);
            shots.push_back(shotFrom(start, minutes));
            shots.back().cancelled = random.chance(0.1);
            if (random.chance(0.05))
                shots.back().scheduledAt.reset();
            const char* const zone = random.chance(0.5) ? GetParam() : random.oneOf(zones);
            sheets.push_back(sheetFor(zone,
                                      later(first, static_cast<double>(random.number(earliest, latest))),
                                      random.oneOf(calls)));
        }
        const auto shotList = located(shots);
        const auto sheetList = located(sheets);
        const Counts counts = countDays(days, shotList, sheetList);
        ASSERT_EQ(counts, plainly(days, shotList, sheetList, calendar)) << firstOfMonth.dayText();
        for (std::size_t i = 0; i < days.size(); ++i) {
            ASSERT_EQ(counts[i].shots + counts[i].callSheets,
                      CalendarAgendaItem::daily(shotList, sheetList, days[i].start, calendar).size());
            seenShots += counts[i].shots;
            seenSheets += counts[i].callSheets;
        }
    }
    EXPECT_GT(seenShots, 600U);
    EXPECT_GT(seenSheets, 150U);
}

}  // namespace
}  // namespace test
}  // namespace vantry
