#include <algorithm>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "Vantry/schedule/rules/CalendarAgendaItem.h"
#include "tests/schedule/Records.h"
#include "tests/support/Environment.h"
#include "tests/support/RandomRecords.h"

namespace vantry::test {
namespace {

constexpr auto newYork = "America/New_York";

template <class Record>
Record under(const char* identifier, Record record) {
    record.id = Identifier::parse(identifier).value();
    return record;
}

Names agendaOf(const std::vector<Shot>& shots, const std::vector<CallSheet>& sheets, const char* zone,
               const char* date) {
    return namesOf(
        CalendarAgendaItem::daily(located(shots), located(sheets), at(zone, date), calendarOf(zone)));
}

TEST(AgendaItem, IsTheShotOrTheSheetThatItHolds) {
    const Moment start = at(newYork, "2026-10-18 09:00");
    const auto shot = located(std::vector{shotFrom(start, 30, "12A")}).at(0);
    const CalendarAgendaItem ofShot(shot);
    EXPECT_EQ(ofShot.id(), shot.id());
    EXPECT_EQ(ofShot.start(), start);
    EXPECT_EQ(std::get<ShotLocation>(ofShot.event()).shot, shot.shot);

    const auto sheet = located(std::vector{sheetFor(newYork, start, "07:30")}).at(0);
    const CalendarAgendaItem ofSheet(sheet);
    EXPECT_EQ(ofSheet.id(), sheet.id());
    EXPECT_EQ(ofSheet.start(), at(newYork, "2026-10-18 07:30"));
    EXPECT_EQ(std::get<CallSheetLocation>(ofSheet.event()).sheet, sheet.sheet);
}

TEST(AgendaItem, BeginsInTheDistantPastWithoutATime) {
    const CalendarAgendaItem shot(located(std::vector{shotWithoutTime("01")}).at(0));
    EXPECT_LT(shot.start(), support::utc(1, 1, 1));
    const CalendarAgendaItem sheet(located(std::vector{sheetFor(newYork, Moment{0}, "soon")}).at(0));
    EXPECT_LT(sheet.start(), support::utc(1, 1, 1));
    EXPECT_EQ(sheet.start(), shot.start());
}

TEST(Agenda, IsInTheOrderOfTheBeginnings) {
    const std::vector<Shot> shots{
        shotFrom(at(newYork, "2026-10-18 15:00"), 30, "afternoon"),
        shotFrom(at(newYork, "2026-10-18 00:00"), 30, "midnight"),
        shotFrom(at(newYork, "2026-10-18 23:59"), 30, "last minute"),
        shotFrom(Moment{at(newYork, "2026-10-18 09:00").seconds + 0.5}, 1, "half a second behind nine"),
        shotFrom(at(newYork, "2026-10-18 09:00"), 600, "nine"),
        shotFrom(at(newYork, "2026-10-17 23:50"), 30, "the night before"),
        shotFrom(at(newYork, "2026-10-19 00:00"), 30, "tomorrow"),
        shotFrom(at(newYork, "2026-10-17 23:30"), 30, "yesterday"),
    };
    const Moment day = at(newYork, "2026-10-18");
    const std::vector<CallSheet> sheets{
        sheetFor(newYork, day, "18:00", "evening call"),
        sheetFor(newYork, day, "8:05", "morning call"),
        sheetFor(newYork, later(day, 1440), "8:05", "tomorrow's call"),
        sheetFor(newYork, later(day, -1440), "23:59", "yesterday's call"),
    };
    const Names expected{"the night before",          "midnight",  "morning call", "nine",
                         "half a second behind nine", "afternoon", "evening call", "last minute"};
    for (const auto* inside : {"2026-10-18", "2026-10-18 12:00", "2026-10-18 23:59:59"})
        EXPECT_EQ(agendaOf(shots, sheets, newYork, inside), expected) << inside;
}

TEST(Agenda, IsEmptyOnADayWithoutAnything) {
    EXPECT_EQ(agendaOf({}, {}, newYork, "2026-10-18"), Names{});
    EXPECT_EQ(agendaOf({shotFrom(at(newYork, "2026-10-17 12:00"), 30)}, {}, newYork, "2026-10-18"), Names{});
}

TEST(Agenda, OrdersEqualBeginningsByTheTextOfTheIdentifierWhateverTheKind) {
    const Moment nine = at(newYork, "2026-10-18 09:00");
    const auto expectOrder = [&](const char* ofShot, const char* ofSheet, const Names& expected) {
        EXPECT_EQ(agendaOf({under(ofShot, shotFrom(nine, 30, "shot"))},
                           {under(ofSheet, sheetFor(newYork, nine, "09:00"))}, newYork, "2026-10-18"),
                  expected)
            << ofShot << " " << ofSheet;
    };
    struct Case {
        const char *smaller, *larger;
    };
    const Case cases[] = {
        {"00000000-0000-4000-8000-000000000001", "00000000-0000-4000-8000-000000000002"},
        {"9FFFFFFF-FFFF-4FFF-BFFF-FFFFFFFFFFFF", "A0000000-0000-4000-8000-000000000000"},
        {"7FFFFFFF-FFFF-4FFF-BFFF-FFFFFFFFFFFF", "80000000-0000-4000-8000-000000000000"},
        {"00000000-0000-4000-8000-000000000009", "00000000-0000-4000-8000-00000000000a"},
        {"0000000b-0000-4000-8000-000000000000", "0000000C-0000-4000-8000-000000000000"},
        {"0000000B-0000-4000-8000-000000000000", "0000000c-0000-4000-8000-000000000000"},
        {"12345678-9ABC-4DEF-8123-456789ABCDEF", "12345678-9ABC-4DEF-8123-456789ABCDF0"},
    };
    for (const auto& c : cases) {
        expectOrder(c.smaller, c.larger, {"shot", "sheet"});
        expectOrder(c.larger, c.smaller, {"sheet", "shot"});
    }
}

TEST(Agenda, DoesNotDependOnTheOrderOfItsInput) {
    const Moment nine = at(newYork, "2026-10-18 09:00");
    support::RandomRecords random(11);
    std::vector<Shot> shots;
    std::vector<CallSheet> sheets;
    for (int i = 0; i < 40; ++i) {
        shots.push_back(shotFrom(later(nine, static_cast<double>(random.number(0, 3)) * 60), 30, "shot"));
        shots.back().id = random.identifier();
        const std::string call = "0" + std::to_string(random.number(8, 9)) + ":00";
        sheets.push_back(sheetFor(newYork, nine, call.c_str()));
        sheets.back().id = random.identifier();
    }
    const Calendar calendar = calendarOf(newYork);
    std::vector<std::pair<double, std::string>> expected;
    for (const auto& shot : shots)
        expected.emplace_back(shot.scheduledAt->seconds, shot.id.text());
    for (const auto& sheet : sheets)
        expected.emplace_back(sheet.calendarStart().value().seconds, sheet.id.text());
    std::sort(expected.begin(), expected.end());

    auto shotList = located(shots);
    auto sheetList = located(sheets);
    std::mt19937_64 order(5);
    for (int round = 0; round < 30; ++round) {
        std::vector<std::pair<double, std::string>> found;
        for (const auto& item : CalendarAgendaItem::daily(shotList, sheetList, nine, calendar))
            found.emplace_back(item.start().seconds, item.id().text());
        ASSERT_EQ(found, expected);
        std::shuffle(shotList.begin(), shotList.end(), order);
        std::shuffle(sheetList.begin(), sheetList.end(), order);
    }
}

TEST(Agenda, BeginsWithTheShotOfTheNightOnItsSecondDay) {
    const std::vector<Shot> shots{
        under("00000000-0000-4000-8000-000000000001",
              shotFrom(at(newYork, "2026-10-19 00:00"), 5, "midnight")),
        under("FFFFFFFF-FFFF-4FFF-BFFF-FFFFFFFFFFFF", shotFrom(at(newYork, "2026-10-18 23:50"), 30, "night")),
    };
    const std::vector<CallSheet> sheets{
        under("00000000-0000-4000-8000-000000000000", sheetFor(newYork, at(newYork, "2026-10-19"), "00:00"))};
    EXPECT_EQ(agendaOf(shots, sheets, newYork, "2026-10-18"), Names{"night"});
    EXPECT_EQ(agendaOf(shots, sheets, newYork, "2026-10-19"), (Names{"night", "sheet", "midnight"}));
    EXPECT_EQ(agendaOf(shots, sheets, newYork, "2026-10-20"), Names{});
    const auto agenda =
        CalendarAgendaItem::daily(located(shots), {}, at(newYork, "2026-10-19"), calendarOf(newYork));
    ASSERT_EQ(agenda.size(), 2U);
    EXPECT_EQ(agenda[0].start(), at(newYork, "2026-10-18 23:50"));
}

TEST(Agenda, LeavesOutWhatIsCancelledOrHasNoTime) {
    const Moment nine = at(newYork, "2026-10-18 09:00");
    const std::vector<Shot> shots{cancelled(shotFrom(nine, 30, "cancelled")), shotWithoutTime("unscheduled"),
                                  cancelled(shotWithoutTime("both"))};
    std::vector<CallSheet> sheets;
    for (const auto* call : {"", " ", "\n", "\u3000", "early", "25:00", "09:60", "9", "9.00", "0900"})
        sheets.push_back(sheetFor(newYork, nine, call));
    sheets.push_back(sheetFor(newYork, at(newYork, "2026-10-18"), "early"));
    sheets.back().set("shootingStart", "09:00");
    // Not the day of the distant past either.
    for (const Moment day : {nine, later(nine, -1440), later(nine, 1440), support::utc(1, 1, 1),
                             Moment{std::numeric_limits<double>::lowest()}})
        EXPECT_EQ(
            namesOf(CalendarAgendaItem::daily(located(shots), located(sheets), day, calendarOf(newYork))),
            Names{});
    EXPECT_EQ(
        agendaOf({}, {sheetFor(newYork, at(newYork, "2026-03-08 12:00"), "02:30")}, newYork, "2026-03-08"),
        Names{});
}

TEST(Agenda, TakesTheStartOfShootingWhereTheCallIsBlank) {
    CallSheet sheet = sheetFor(newYork, at(newYork, "2026-10-18 12:00"), " \n");
    sheet.set("shootingStart", "10:15");
    EXPECT_EQ(agendaOf({shotFrom(at(newYork, "2026-10-18 10:14"), 1, "a"),
                        shotFrom(at(newYork, "2026-10-18 10:16"), 1, "b")},
                       {sheet}, newYork, "2026-10-18"),
              (Names{"a", "sheet", "b"}));
}

TEST(Agenda, ShowsASheetOfAFarZoneOnTheViewersDate) {
    struct Case {
        const char *zone, *date, *call, *viewer, *shownOn;
    };
    const Case cases[] = {
        {"America/New_York", "2025-06-10", "23:30", "Asia/Shanghai", "2025-06-11"},
        {"Asia/Shanghai", "2025-06-10", "00:30", "America/New_York", "2025-06-09"},
        {"America/New_York", "2025-06-10", "08:00", "Asia/Shanghai", "2025-06-10"},
        {"Pacific/Auckland", "2025-06-10", "23:30", "Pacific/Honolulu", "2025-06-10"},
        {"Pacific/Auckland", "2025-06-10", "21:59", "Pacific/Honolulu", "2025-06-09"},
        {"Pacific/Kiritimati", "2025-06-10", "00:30", "Pacific/Pago_Pago", "2025-06-08"},
        {"Australia/Lord_Howe", "2023-10-01", "02:30", "Asia/Kolkata", "2023-09-30"},
        {"America/Santiago", "2023-09-02", "23:30", "Asia/Kolkata", "2023-09-03"},
    };
    for (const auto& c : cases) {
        const std::vector<CallSheet> sheets{
            sheetFor(c.zone, at(c.zone, std::string(c.date) + " 12:00"), c.call)};
        const Moment shown = at(c.viewer, c.shownOn);
        for (int day = -3; day <= 3; ++day) {
            const Moment noon = later(shown, day * 1440 + 720);
            EXPECT_EQ(CalendarAgendaItem::daily({}, located(sheets), noon, calendarOf(c.viewer)).size(),
                      day == 0 ? 1U : 0U)
                << c.zone << " " << c.call << " for " << c.viewer << " " << day;
        }
    }
}

TEST(Agenda, ShowsASheetOfAnUnknownZoneByTheMachinesClock) {
    for (const auto* machine : {"Asia/Kolkata", "America/Santiago"}) {
        const support::ScopedVariable variable("TZ", machine);
        const std::vector<CallSheet> sheets{sheetFor("Mars/Phobos", at(machine, "2025-06-10"), "00:00")};
        EXPECT_EQ(agendaOf({}, sheets, machine, "2025-06-10 23:59"), Names{"sheet"}) << machine;
        EXPECT_EQ(agendaOf({}, sheets, machine, "2025-06-09 23:59"), Names{}) << machine;
    }
}

TEST(Agenda, IsEmptyForADayThatIsOnNoCalendar) {
    using Limits = std::numeric_limits<double>;
    for (const double seconds :
         {1e300, -1e300, Limits::lowest(), Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
        const auto shots = located(
            std::vector{shotFrom(Moment{seconds}, 30), shotFrom(Moment{0}, 30), shotWithoutTime("01")});
        const auto sheets = located(
            std::vector{sheetFor(newYork, Moment{seconds}, "09:00"), sheetFor(newYork, Moment{0}, "")});
        EXPECT_TRUE(CalendarAgendaItem::daily(shots, sheets, Moment{seconds}, calendarOf(newYork)).empty())
            << seconds;
    }
}

}  // namespace
}  // namespace vantry::test
