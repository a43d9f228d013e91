#include <limits>

#include <gtest/gtest.h>

#include "VantryCore/records/CallSheet.h"
#include "tests/support/Clock.h"
#include "tests/support/Environment.h"
#include "tests/support/RandomRecords.h"

namespace vantry {
namespace {

using support::clockIn;
using support::utc;

CallSheet sheetFor(const std::string& zone, Moment date, const std::string& generalCall) {
    CallSheet sheet;
    sheet.date = date;
    sheet.timeZoneID = Text(zone);
    sheet.set("generalCall", Text(generalCall));
    return sheet;
}

std::string startClock(const CallSheet& sheet) {
    const auto start = sheet.calendarStart();
    return start ? clockIn(sheet.calendar().zone(), *start) : "none";
}

TEST(CallSheet, StartsWithoutTextsAndPeopleUnderAFreshIdentifier) {
    const auto sheet = CallSheet::make(Moment{5});
    EXPECT_NE(sheet.id, Identifier());
    EXPECT_EQ(sheet.date, Moment{5});
    EXPECT_TRUE(sheet.values.empty());
    EXPECT_TRUE(sheet.people.empty());
    EXPECT_NE(CallSheet::make(Moment{5}).id, sheet.id);
}

TEST(CallSheet, KeepsTheKeyOfAClearedField) {
    CallSheet sheet;
    EXPECT_TRUE(sheet["company"].empty());
    sheet.set("company", "Film GmbH");
    EXPECT_EQ(sheet["company"], Text("Film GmbH"));
    sheet.set("company", "");
    EXPECT_TRUE(sheet["company"].empty());
    EXPECT_NE(sheet.values.find("company"), nullptr);
}

TEST(CalendarStart, ReadsATimeOfOneOrTwoDigitsAndTwo) {
    struct Case {
        const char *text, *clock;
    };
    const Case cases[] = {
        {"8:05", "2026-05-04 08:05:00"},
        {"08:05", "2026-05-04 08:05:00"},
        {"08：05", "2026-05-04 08:05:00"},
        {"8：05", "2026-05-04 08:05:00"},
        {" 08:05\n", "2026-05-04 08:05:00"},
        {"\u300008:05\u00A0\t", "2026-05-04 08:05:00"},
        {"0:00", "2026-05-04 00:00:00"},
        {"00:00", "2026-05-04 00:00:00"},
        {"23:59", "2026-05-04 23:59:00"},
        {"8:5", "none"},
        {"08:05:00", "none"},
        {"08：05：00", "none"},
        {"24:00", "none"},
        {"08:60", "none"},
        {"0800", "none"},
        {"08.00", "none"},
        {"dawn", "none"},
        {"０８:０５", "none"},
        {"0８:05", "none"},
        {"08:", "none"},
        {":05", "none"},
        {":", "none"},
        {"：", "none"},
        {"008:05", "none"},
        {"08:005", "none"},
        {"-8:05", "none"},
        {"+8:05", "none"},
        {"08 :05", "none"},
        {"08: 05", "none"},
        {"7:15am", "none"},
        {"08:05 集合", "none"},
        {"٠٨:٠٥", "none"},
        {"08::05", "none"},
        {"8:0\u0665", "none"},
        {"08:05\u200B", "none"},
        {"08\u02D005", "none"},
        {"08\uFE5505", "none"},
        {"08:0\u0301"
         "5",
         "none"},
        {"", "none"},
        {"99:99", "none"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(startClock(sheetFor("Asia/Shanghai", utc(2026, 5, 4, 3), c.text)), c.clock) << c.text;
}

TEST(CalendarStart, GoesByTheGeneralCallUnlessThatIsBlank) {
    struct Case {
        const char *call, *shooting, *key, *clock;
    };
    const Case cases[] = {
        {"08:05", "07:30", "generalCall", "2026-05-04 08:05:00"},
        {"  \u3000\n", "07:30", "shootingStart", "2026-05-04 07:30:00"},
        {"", "07:30", "shootingStart", "2026-05-04 07:30:00"},
        {nullptr, "07:30", "shootingStart", "2026-05-04 07:30:00"},
        {"early", "07:30", "generalCall", "none"},
        {"25:00", "07:30", "generalCall", "none"},
        {nullptr, nullptr, "shootingStart", "none"},
        {"", "", "shootingStart", "none"},
        {" ", "late", "shootingStart", "none"},
    };
    for (const auto& c : cases) {
        CallSheet sheet;
        sheet.date = utc(2026, 5, 4, 3);
        sheet.timeZoneID = "Asia/Shanghai";
        if (c.call != nullptr)
            sheet.set("generalCall", c.call);
        if (c.shooting != nullptr)
            sheet.set("shootingStart", c.shooting);
        EXPECT_EQ(sheet.calendarTimeKey(), c.key);
        EXPECT_EQ(startClock(sheet), c.clock);
    }
}

struct ClockChange {
    const char* name;
    const char* zone;
    Moment date;
    const char* text;
    const char* clock;
    std::int64_t offset;  ///< of the start, in minutes; tells the first of two from the second
};

const ClockChange clockChanges[] = {
    {"midnight that comes twice", "America/Havana", utc(2023, 11, 5, 15), "00:00", "2023-11-05 00:00:00",
     -240},
    {"half past midnight that comes twice", "America/Havana", utc(2023, 11, 5, 15), "00:30",
     "2023-11-05 00:30:00", -240},
    {"a late hour that comes twice", "America/Santiago", utc(2023, 4, 1, 15), "23:30", "2023-04-01 23:30:00",
     -180},
    {"the day behind that hour", "America/Santiago", utc(2023, 4, 2, 15), "23:30", "2023-04-02 23:30:00",
     -240},
    {"midnight behind that hour", "America/Santiago", utc(2023, 4, 2, 15), "00:00", "2023-04-02 00:00:00",
     -240},
    {"midnight that is missing", "America/Santiago", utc(2023, 9, 3, 15), "00:00", "none", 0},
    {"the hour behind a missing midnight", "America/Santiago", utc(2023, 9, 3, 15), "01:00",
     "2023-09-03 01:00:00", -180},
    {"midnight that is missing in Cairo", "Africa/Cairo", utc(2023, 4, 28, 12), "00:00", "none", 0},
    {"the last missing minute in Cairo", "Africa/Cairo", utc(2023, 4, 28, 12), "00:59", "none", 0},
    {"the first minute of that day in Cairo", "Africa/Cairo", utc(2023, 4, 28, 12), "01:00",
     "2023-04-28 01:00:00", 180},
    {"half an hour that comes twice", "Australia/Lord_Howe", utc(2023, 4, 2, 5), "01:45",
     "2023-04-02 01:45:00", 660},
    {"the half hour in front of it", "Australia/Lord_Howe", utc(2023, 4, 2, 5), "01:15",
     "2023-04-02 01:15:00", 660},
    {"the half hour behind it", "Australia/Lord_Howe", utc(2023, 4, 2, 5), "02:00", "2023-04-02 02:00:00",
     630},
    {"half an hour that is missing", "Australia/Lord_Howe", utc(2023, 10, 1, 5), "02:15", "none", 0},
    {"the end of that half hour", "Australia/Lord_Howe", utc(2023, 10, 1, 5), "02:30", "2023-10-01 02:30:00",
     660},
    {"an hour missing in spring", "America/New_York", utc(2026, 3, 8, 17), "02:30", "none", 0},
    {"the first minute behind it", "America/New_York", utc(2026, 3, 8, 17), "03:00", "2026-03-08 03:00:00",
     -240},
    {"the last minute in front of it", "America/New_York", utc(2026, 3, 8, 17), "01:59",
     "2026-03-08 01:59:00", -300},
    {"an hour twice in autumn", "America/New_York", utc(2025, 11, 2, 17), "01:30", "2025-11-02 01:30:00",
     -240},
    {"a zone that is newer than old data", "America/Ciudad_Juarez", utc(2023, 3, 12, 17), "02:30", "none", 0},
    {"a winter day in that zone", "America/Ciudad_Juarez", utc(2023, 1, 12, 17), "02:30",
     "2023-01-12 02:30:00", -420},
    {"the last day before a skipped one", "Pacific/Apia", utc(2011, 12, 30, 9), "23:59",
     "2011-12-29 23:59:00", -600},
    {"the day behind a skipped one", "Pacific/Apia", utc(2011, 12, 30, 10), "00:00", "2011-12-31 00:00:00",
     840},
    {"the day's first second as the date", "Asia/Shanghai", utc(2026, 5, 3, 16), "00:00",
     "2026-05-04 00:00:00", 480},
    {"the day's last second as the date", "Asia/Shanghai", utc(2026, 5, 4, 15, 59, 59), "23:59",
     "2026-05-04 23:59:00", 480},
    {"a zone of three quarters", "Asia/Kathmandu", utc(2026, 5, 4, 12), "08:05", "2026-05-04 08:05:00", 345},
    {"an hour that a change at one past midnight brings back", "America/St_Johns", utc(2009, 10, 31, 15),
     "23:30", "2009-10-31 23:30:00", -150},
};

TEST(CalendarStart, FollowsTheClockThroughItsChanges) {
    for (const auto& c : clockChanges) {
        const CallSheet sheet = sheetFor(c.zone, c.date, c.text);
        EXPECT_EQ(startClock(sheet), c.clock) << c.name;
        if (const auto start = sheet.calendarStart()) {
            const auto unix = static_cast<std::int64_t>(start->seconds) + unixSecondsOfReferenceDate;
            EXPECT_EQ(sheet.calendar().zone().offsetAt(unix), c.offset * 60) << c.name;
        }
    }
}

TEST(CalendarStart, UsesTheMachinesZoneWhenTheSheetsIsUnknown) {
    const support::ScopedVariable variable("TZ", "Asia/Tokyo");
    for (const auto* unknown : {"Mars/Phobos", "", "CST-8", "/usr/share/zoneinfo/UTC"}) {
        const CallSheet sheet = sheetFor(unknown, utc(2026, 5, 4, 3), "08:05");
        EXPECT_EQ(sheet.calendar().zone().identifier(), "Asia/Tokyo");
        EXPECT_EQ(sheet.calendarStart(), utc(2026, 5, 3, 23, 5)) << unknown;
    }
}

TEST(CalendarStart, IsNoneForADateOnNoCalendar) {
    using Limits = std::numeric_limits<double>;
    for (const double date :
         {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), Limits::max(), 1e15, -1e15})
        EXPECT_FALSE(sheetFor("America/New_York", Moment{date}, "08:05").calendarStart()) << date;
    for (const double date : {9e13, -9e13, 1e12, -1e12})
        EXPECT_TRUE(sheetFor("America/New_York", Moment{date}, "08:05").calendarStart()) << date;
}

/// The same question answered by looking at every minute around the day.
class Scan {
public:
    Scan(const Zone& zone, std::int64_t unix)
        : clock(zone)
        , around(unix) {
        for (std::int64_t t = around - reach; t <= around + reach; t += 60) {
            const auto offset = clock.offsetAt(t);
            if (std::find(offsets.begin(), offsets.end(), offset) == offsets.end())
                offsets.push_back(offset);
        }
    }

    [[nodiscard]] std::int64_t dayOf(std::int64_t t) const {
        const auto local = t + clock.offsetAt(t);
        return (local - ((local % 86400) + 86400) % 86400) / 86400;
    }
    [[nodiscard]] std::int64_t startOfDay() const {
        const auto wanted = dayOf(around);
        std::int64_t t = around - reach;
        while (dayOf(t) != wanted)
            t += 60;
        while (dayOf(t - 1) == wanted)
            --t;
        return t;
    }
    /// All moments near the day whose clock shows that second of its own day, the earliest at or behind
    /// `from`.
    [[nodiscard]] std::optional<std::int64_t> next(std::int64_t from, std::int64_t secondOfDay) const {
        std::optional<std::int64_t> earliest;
        for (auto day = dayOf(around) - 2; day <= dayOf(around) + 2; ++day)
            for (const auto offset : offsets) {
                const auto t = day * 86400 + secondOfDay - offset;
                if (t >= from && t <= around + reach && clock.offsetAt(t) == offset &&
                    (!earliest || t < *earliest))
                    earliest = t;
            }
        return earliest;
    }

private:
    static constexpr std::int64_t reach = std::int64_t{52} * 3600;
    const Zone& clock;
    std::int64_t around;
    std::vector<std::int64_t> offsets;
};

constexpr const char* restlessZones[] = {
    "Africa/Cairo",        "Africa/Casablanca", "America/Asuncion",  "America/Ciudad_Juarez",
    "America/Havana",      "America/New_York",  "America/Nuuk",      "America/Santiago",
    "America/Sao_Paulo",   "America/St_Johns",  "Antarctica/Troll",  "Asia/Amman",
    "Asia/Beirut",         "Asia/Gaza",         "Asia/Pyongyang",    "Asia/Tehran",
    "Australia/Lord_Howe", "Europe/Berlin",     "Europe/Dublin",     "Pacific/Apia",
    "Pacific/Chatham",     "Pacific/Kwajalein", "Pacific/Enderbury", "America/Juneau",
    "Asia/Manila",
};

TEST(CalendarStart, AgreesWithAScanOfTheWholeDay) {
    support::RandomRecords random(5);
    int missing = 0;
    for (int round = 0; round < 1500; ++round) {
        const std::string name = random.oneOf(restlessZones);
        const Zone zone = *Zone::find(name);
        std::int64_t unix = random.number(-2'500'000'000, 4'500'000'000);
        std::int64_t minuteOfDay = random.number(0, 1439);
        // Mostly times near a change of the clocks, on that day or the one beside it.
        if (const auto change = zone.nextTransition(unix); change && random.chance(0.8)) {
            const std::int64_t local = *change + zone.offsetAt(*change - 1) + random.number(-90, 90) * 60;
            minuteOfDay = (local % 86400 + 86400) % 86400 / 60;
            unix = *change + random.number(-12, 12) * 3600 + random.number(-30, 30);
        }
        char text[16];
        std::snprintf(text, sizeof text, "%02d:%02d", static_cast<int>(minuteOfDay / 60),
                      static_cast<int>(minuteOfDay % 60));

        const Scan scan(zone, unix);
        const auto start = scan.startOfDay();
        const auto next = scan.next(start, minuteOfDay * 60);
        const bool expected = next && scan.dayOf(*next) == scan.dayOf(unix);
        missing += expected ? 0 : 1;

        const Moment date{static_cast<double>(unix - unixSecondsOfReferenceDate)};
        const CallSheet sheet = sheetFor(name, date, text);
        const auto place = name + " at " + std::to_string(unix) + " for " + text;
        ASSERT_EQ(sheet.calendar().startOfDay(date)->seconds,
                  static_cast<double>(start - unixSecondsOfReferenceDate))
            << place;
        const auto found = sheet.calendarStart();
        ASSERT_EQ(found.has_value(), expected) << place;
        if (found) {
            ASSERT_EQ(found->seconds, static_cast<double>(next.value_or(0) - unixSecondsOfReferenceDate))
                << place;
        }
    }
    EXPECT_GT(missing, 25);
}

}  // namespace
}  // namespace vantry
