#include "VantryCore/records/Zone.h"

#include <fstream>
#include <thread>

#include <gtest/gtest.h>

#include "VantryCore/records/CallSheet.h"
#include "tests/support/Clock.h"
#include "tests/support/Environment.h"
#include "tests/support/Files.h"
#include "tests/support/RandomRecords.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;
using support::ScopedVariable;
using support::TemporaryFolder;

constexpr const char* manyZones[] = {
    "UTC",
    "Africa/Cairo",
    "Africa/Casablanca",
    "Africa/Monrovia",
    "America/Asuncion",
    "America/Ciudad_Juarez",
    "America/Havana",
    "America/Juneau",
    "America/New_York",
    "America/Nuuk",
    "America/Santiago",
    "America/Sao_Paulo",
    "America/St_Johns",
    "Antarctica/Troll",
    "Asia/Gaza",
    "Asia/Kathmandu",
    "Asia/Manila",
    "Asia/Shanghai",
    "Asia/Tehran",
    "Australia/Lord_Howe",
    "Australia/Sydney",
    "Europe/Berlin",
    "Europe/Dublin",
    "Europe/Lisbon",
    "Europe/Moscow",
    "Pacific/Apia",
    "Pacific/Auckland",
    "Pacific/Chatham",
    "Pacific/Kiritimati",
    "Etc/GMT+12",
};

/// Runs `work` where no zone was asked for before.
template <class Work>
void onFreshThread(Work&& work) {
    std::thread(std::forward<Work>(work)).join();
}

TEST(Zone, IsKnownByAnIdentifierOfTheSystem) {
    for (const auto* name : manyZones)
        EXPECT_TRUE(Zone::isKnown(name)) << name;
    for (const auto* name :
         {"Etc/UTC", "GMT", "EST5EDT", "America/Argentina/Buenos_Aires", "Etc/GMT+5", "US/Pacific"})
        EXPECT_TRUE(Zone::isKnown(name)) << name;
}

TEST(Zone, IsUnknownByAnythingElse) {
    for (const std::string name : {"",
                                   " ",
                                   "CST-8",
                                   "UTC+8",
                                   "UTC0",
                                   "GMT+8",
                                   "GMT+08:00",
                                   "EST5EDT,M3.2.0,M11.1.0",
                                   "/usr/share/zoneinfo/UTC",
                                   "../UTC",
                                   "./UTC",
                                   "America/../UTC",
                                   "America/New_York/",
                                   "America//New_York",
                                   "America",
                                   "america/new_york",
                                   "America/New York",
                                   " UTC",
                                   "UTC ",
                                   ":UTC",
                                   "localtime",
                                   "Etc/Unknown",
                                   "Mars/Phobos",
                                   "zone.tab",
                                   "tzdata.zi",
                                   "leapseconds",
                                   "iso3166.tab",
                                   "上海",
                                   "\xFF"})
        EXPECT_FALSE(Zone::isKnown(name)) << name;
    EXPECT_FALSE(Zone::isKnown(std::string_view("UTC\0", 4)));
    EXPECT_FALSE(Zone::isKnown(std::string(100'000, 'a')));
}

TEST(Zone, KeepsTheIdentifierItWasFoundBy) {
    EXPECT_EQ(Zone::find("US/Pacific")->identifier(), "US/Pacific");
    EXPECT_EQ(Zone::find("Etc/UTC")->identifier(), "Etc/UTC");
}

TEST(Zone, HasTheOffsetsOfTheSystemsOwnClock) {
    support::RandomRecords random(4);
    const auto low = static_cast<std::int64_t>(support::utc(1900, 1, 1).seconds) + unixSecondsOfReferenceDate;
    const auto high =
        static_cast<std::int64_t>(support::utc(2200, 1, 1).seconds) + unixSecondsOfReferenceDate;
    for (const auto* name : manyZones) {
        const ScopedVariable variable("TZ", (std::string(":") + name).c_str());
        ::tzset();
        const Zone zone = *Zone::find(name);
        for (int round = 0; round < 300; ++round) {
            const std::time_t moment = random.number(low, high);
            std::tm fields{};
            ASSERT_NE(::localtime_r(&moment, &fields), nullptr);
            ASSERT_EQ(zone.offsetAt(moment), fields.tm_gmtoff) << name << " at " << moment;
        }
    }
    ::tzset();
}

/// Walks through some years hour by hour, and through the changes beside it.
void expectEveryChange(const char* name, int firstYear, int lastYear) {
    const auto unix = [](int year) {
        return static_cast<std::int64_t>(support::utc(year, 1, 1).seconds) + unixSecondsOfReferenceDate;
    };
    const Zone zone = *Zone::find(name);
    auto next = zone.nextTransition(unix(firstYear));
    for (std::int64_t moment = unix(firstYear); moment < unix(lastYear); moment += 3600) {
        while (next && *next <= moment) {
            const auto later = zone.nextTransition(*next);
            ASSERT_TRUE(!later || *later > *next) << name;
            next = later;
        }
        if (zone.offsetAt(moment) == zone.offsetAt(moment + 3600))
            continue;
        ASSERT_TRUE(next && *next > moment && *next <= moment + 3600) << name << " behind " << moment;
        ASSERT_NE(zone.offsetAt(*next - 1), zone.offsetAt(*next)) << name;
    }
}

TEST(Zone, MissesNoChangeOfItsRules) {
    for (const auto* name : manyZones) {
        expectEveryChange(name, 1925, 1935);
        expectEveryChange(name, 1960, 1975);
        expectEveryChange(name, 2005, 2030);
    }
}

TEST(Zone, FallsBackToTheRulesOfICUWithoutZoneFiles) {
    const TemporaryFolder empty;
    const ScopedVariable variable("TZDIR", empty.path().c_str());
    onFreshThread([] {
        const auto zone = Zone::find("America/New_York");
        ASSERT_TRUE(zone);
        EXPECT_EQ(support::clockIn(*zone, support::utc(2020, 3, 8, 6, 59, 59)), "2020-03-08 01:59:59");
        EXPECT_EQ(support::clockIn(*zone, support::utc(2020, 3, 8, 7)), "2020-03-08 03:00:00");
        const auto change = zone->nextTransition(static_cast<std::int64_t>(support::utc(2020, 1, 1).seconds) +
                                                 unixSecondsOfReferenceDate);
        ASSERT_TRUE(change);
        EXPECT_EQ(*change - unixSecondsOfReferenceDate, support::utc(2020, 3, 8, 7).seconds);
        EXPECT_FALSE(Zone::isKnown("GMT+8"));
        EXPECT_FALSE(Zone::isKnown("CST-8"));
        EXPECT_FALSE(Zone::isKnown("Etc/Unknown"));
        EXPECT_FALSE(Zone::isKnown("Mars/Phobos"));
        EXPECT_TRUE(Zone::isKnown(Zone::machine().identifier()));
        EXPECT_TRUE(Zone::isKnown("UTC"));
    });
}

TEST(Zone, IsReadFromAFileThatOnlyTheSystemHas) {
    const TemporaryFolder files;
    fs::create_directory(files / "Test");
    fs::copy_file("/usr/share/zoneinfo/Asia/Kathmandu", files / "Test/Studio");
    const ScopedVariable variable("TZDIR", files.path().c_str());
    onFreshThread([] {
        const auto zone = Zone::find("Test/Studio");
        ASSERT_TRUE(zone);
        EXPECT_EQ(zone->offsetAt(1'700'000'000), 5 * 3600 + 45 * 60);
        EXPECT_FALSE(zone->nextTransition(1'700'000'000));
    });
}

TEST(Zone, PassesOverAFileThatHoldsNoRules) {
    const TemporaryFolder files;
    fs::create_directories(files / "Europe");
    support::putContent(files / "Europe/Vienna", "TZif? no");
    support::putContent(files / "Nonsense", "");
    const ScopedVariable variable("TZDIR", files.path().c_str());
    onFreshThread([] {
        EXPECT_FALSE(Zone::isKnown("Nonsense"));
        const auto zone = Zone::find("Europe/Vienna");
        ASSERT_TRUE(zone);
        EXPECT_EQ(zone->offsetAt(1'700'000'000), 3600);
    });
}

struct MachineCase {
    const char* name;
    const char* tz;
    const char* link;  ///< null: no such file; empty: a plain file
    const char* expected;
};

constexpr MachineCase machineCases[] = {
    {"a zone by its name", "America/New_York", "/usr/share/zoneinfo/Asia/Shanghai", "America/New_York"},
    {"a name behind a colon", ":America/New_York", nullptr, "America/New_York"},
    {"a path of a zone file", "/usr/share/zoneinfo/Europe/Berlin", nullptr, "Europe/Berlin"},
    {"a path behind a colon", ":/usr/share/zoneinfo/Europe/Berlin", nullptr, "Europe/Berlin"},
    {"a POSIX rule and a link", "CST-8", "/usr/share/zoneinfo/Asia/Shanghai", "Asia/Shanghai"},
    {"a POSIX rule alone", "CST-8", nullptr, "UTC"},
    {"a POSIX rule with savings", "EST5EDT,M3.2.0,M11.1.0", "", "UTC"},
    {"an empty variable and a link", "", "/usr/share/zoneinfo/Asia/Shanghai", "Asia/Shanghai"},
    {"an empty variable alone", "", nullptr, "UTC"},
    {"a colon alone", ":", nullptr, "UTC"},
    {"an unknown name", "Mars/Phobos", "/usr/share/zoneinfo/Asia/Shanghai", "Asia/Shanghai"},
    {"a path outside of the zones", "/etc/localtime", "/usr/share/zoneinfo/Asia/Shanghai", "Asia/Shanghai"},
    {"the name of the local file", "localtime", "/usr/share/zoneinfo/Asia/Shanghai", "Asia/Shanghai"},
    {"no variable and a link", nullptr, "/usr/share/zoneinfo/Asia/Shanghai", "Asia/Shanghai"},
    {"no variable and a relative link", nullptr, "../usr/share/zoneinfo/Europe/Berlin", "Europe/Berlin"},
    {"no variable and a link of macOS", nullptr, "/var/db/timezone/zoneinfo/Asia/Tokyo", "Asia/Tokyo"},
    {"no variable and a plain file", nullptr, "", "UTC"},
    {"no variable and no file", nullptr, nullptr, "UTC"},
    {"no variable and a link to no zone", nullptr, "/usr/share/zoneinfo/Mars/Phobos", "UTC"},
    {"no variable and a link elsewhere", nullptr, "/somewhere/else", "UTC"},
};

TEST(Zone, OfTheMachineIsAKnownIdentifierWhateverTheSettings) {
    for (const auto& c : machineCases) {
        const TemporaryFolder folder;
        const fs::path localTime = folder / "localtime";
        if (c.link != nullptr && *c.link == '\0')
            fs::copy_file("/usr/share/zoneinfo/Asia/Shanghai", localTime);
        else if (c.link != nullptr)
            fs::create_symlink(c.link, localTime);
        const std::string identifier = Zone::machineIdentifier(c.tz, localTime);
        EXPECT_EQ(identifier, c.expected) << c.name;
        EXPECT_TRUE(Zone::isKnown(identifier)) << c.name;
    }
}

TEST(Zone, OfTheMachineIsFoundThroughAChainOfLinks) {
    const TemporaryFolder folder;
    fs::create_symlink("/usr/share/zoneinfo/Europe/Berlin", folder / "chosen");
    fs::create_symlink("chosen", folder / "localtime");
    EXPECT_EQ(Zone::machineIdentifier(nullptr, folder / "localtime"), "Europe/Berlin");
    fs::create_symlink("circle", folder / "circle");
    EXPECT_EQ(Zone::machineIdentifier(nullptr, folder / "circle"), "UTC");
}

TEST(CallSheet, IsMadeInTheMachinesZoneWhichIsAlwaysKnown) {
    for (const auto& c : machineCases) {
        const ScopedVariable variable("TZ", c.tz);
        const CallSheet sheet = CallSheet::make(Moment{800000000});
        EXPECT_EQ(sheet.timeZoneID.utf8(), Zone::machine().identifier()) << c.name;
        EXPECT_TRUE(Zone::isKnown(sheet.timeZoneID.utf8())) << c.name;
        EXPECT_EQ(sheet.calendar().zone().identifier(), sheet.timeZoneID.utf8()) << c.name;
    }
}

}  // namespace
}  // namespace vantry
