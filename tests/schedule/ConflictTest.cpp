#include <gtest/gtest.h>

#include "Vantry/schedule/rules/ShootSchedule.h"
#include "tests/schedule/Records.h"
#include "tests/support/RandomRecords.h"

namespace vantry::test {
namespace {

const Moment noon = support::utc(2025, 5, 6, 12);

struct Stretch {
    double start;
    std::int64_t minutes;
};

struct OverlapCase {
    const char* what;
    Stretch a, b;
    bool overlaps;
};

const OverlapCase overlapCases[] = {
    {"one behind the other", {0, 30}, {60, 30}, false},
    {"touching", {0, 30}, {30, 30}, false},
    {"a minute in common", {0, 31}, {30, 30}, true},
    {"a fraction of a second in common", {0, 30}, {29.999, 30}, true},
    {"one within the other", {0, 300}, {60, 30}, true},
    {"one within the other, with the same start", {0, 300}, {0, 30}, true},
    {"one within the other, with the same end", {0, 60}, {30, 30}, true},
    {"the same time", {0, 30}, {0, 30}, true},
    {"a week and its last minute", {0, 10080}, {10079, 1}, true},
    {"a week and the minute behind it", {0, 10080}, {10080, 1}, false},
    {"no time at all, within another", {0, 60}, {30, 0}, true},
    {"no time at all, at the start of another", {0, 60}, {0, 0}, false},
    {"no time at all, at the end of another", {0, 60}, {60, 0}, false},
    {"no time at all, both", {0, 0}, {0, 0}, false},
};

TEST(Overlap, IsTimeInCommonWhateverTheOrderOfTheShots) {
    for (const auto& c : overlapCases) {
        const Shot a = shotFrom(later(noon, c.a.start), c.a.minutes);
        const Shot b = shotFrom(later(noon, c.b.start), c.b.minutes);
        EXPECT_EQ(ShootSchedule::overlaps(a, b), c.overlaps) << c.what;
        EXPECT_EQ(ShootSchedule::overlaps(b, a), c.overlaps) << c.what;
    }
}

TEST(Overlap, IsOfTheShotsAroundMidnight) {
    constexpr auto zone = "America/New_York";
    const Shot overnight = shotFrom(at(zone, "2026-10-18 23:50"), 30);
    const Shot ending = shotFrom(at(zone, "2026-10-18 23:30"), 30);
    const Shot starting = shotFrom(at(zone, "2026-10-19 00:00"), 15);
    EXPECT_FALSE(ShootSchedule::overlaps(ending, starting));
    EXPECT_FALSE(ShootSchedule::overlaps(starting, ending));
    EXPECT_TRUE(ShootSchedule::overlaps(overnight, starting));
    EXPECT_TRUE(ShootSchedule::overlaps(starting, overnight));
}

TEST(Overlap, IsNeverOfAShotWithItself) {
    const Shot shot = shotFrom(noon, 30);
    EXPECT_FALSE(ShootSchedule::overlaps(shot, shot));
    Shot moved = shot;
    moved.scheduledAt = later(noon, 10);
    EXPECT_FALSE(ShootSchedule::overlaps(shot, moved));
    EXPECT_FALSE(ShootSchedule::overlaps(moved, shot));
}

TEST(Overlap, NeedsBothShotsToBeScheduled) {
    const Shot scheduled = shotFrom(noon, 10080);
    const Shot none = shotWithoutTime("02");
    EXPECT_FALSE(ShootSchedule::overlaps(scheduled, none));
    EXPECT_FALSE(ShootSchedule::overlaps(none, scheduled));
    EXPECT_FALSE(ShootSchedule::overlaps(none, shotWithoutTime("03")));
}

TEST(Overlap, DoesNotAskWhetherAShotIsCancelled) {
    EXPECT_TRUE(ShootSchedule::overlaps(cancelled(shotFrom(noon, 30)), shotFrom(noon, 30)));
    EXPECT_TRUE(ShootSchedule::overlaps(shotFrom(noon, 30), cancelled(shotFrom(noon, 30))));
}

TEST(Overlap, AgreesWithALookAtEveryMinute) {
    support::RandomRecords random(7);
    int found = 0;
    for (int round = 0; round < 3000; ++round) {
        const Stretch a{static_cast<double>(random.number(0, 60)), random.number(1, 40)};
        const Stretch b{static_cast<double>(random.number(0, 60)), random.number(1, 40)};
        bool shared = false;
        for (std::int64_t minute = 0; minute < a.minutes; ++minute) {
            const double t = a.start + static_cast<double>(minute);
            shared = shared || (t >= b.start && t < b.start + static_cast<double>(b.minutes));
        }
        found += shared ? 1 : 0;
        ASSERT_EQ(ShootSchedule::overlaps(shotFrom(later(noon, a.start), a.minutes),
                                          shotFrom(later(noon, b.start), b.minutes)),
                  shared)
            << a.start << "+" << a.minutes << " " << b.start << "+" << b.minutes;
    }
    EXPECT_GT(found, 500);
    EXPECT_LT(found, 2500);
}

TEST(Conflicts, AreTheOtherShotsThatAreNotCancelledInTheirOrder) {
    Shot planned = shotFrom(noon, 60, "planned");
    const auto all = located(std::vector{
        shotFrom(later(noon, 50), 30, "late"),
        shotFrom(later(noon, -30), 30, "up to"),
        cancelled(shotFrom(noon, 60, "cancelled")),
        planned,
        shotFrom(later(noon, -30), 40, "early"),
        shotWithoutTime("unscheduled"),
        shotFrom(later(noon, 60), 30, "from"),
        shotFrom(later(noon, -600), 1200, "around"),
        shotFrom(later(noon, 5), 1, "within"),
    });
    EXPECT_EQ(namesOf(ShootSchedule::conflicts(all, planned)), (Names{"late", "early", "around", "within"}));

    planned.scheduledAt = later(noon, -30);
    planned.durationMinutes = 35;
    EXPECT_EQ(namesOf(ShootSchedule::conflicts(all, planned)), (Names{"up to", "early", "around"}));
    planned.scheduledAt.reset();
    EXPECT_EQ(namesOf(ShootSchedule::conflicts(all, planned)), Names{});
    EXPECT_EQ(namesOf(ShootSchedule::conflicts({}, shotFrom(noon, 60))), Names{});
}

TEST(Conflicts, AreFoundForACancelledShotToo) {
    const auto all = located(std::vector{shotFrom(noon, 60, "other")});
    EXPECT_EQ(namesOf(ShootSchedule::conflicts(all, cancelled(shotFrom(noon, 60)))), Names{"other"});
}

TEST(Conflicts, AreFoundInOtherActsAndProductions) {
    const Shot planned = shotFrom(noon, 60, "planned");
    const auto project = [](const char* title, const std::vector<std::vector<Shot>>& acts) {
        Project made = Project::make(title);
        for (const auto& shots : acts) {
            Act act = Act::make("Act");
            act.shots.assign(shots.begin(), shots.end());
            made.acts.emplace_back(std::move(act));
        }
        return made;
    };
    Library library;
    library.projects.emplace_back(
        project("First", {{shotFrom(noon, 1, "a")}, {planned, shotFrom(noon, 1, "b")}}));
    library.projects.emplace_back(
        project("Second", {{}, {shotFrom(later(noon, 60), 1, "c")}, {shotFrom(noon, 1, "d")}}));
    library.projects.emplace_back(project("Third", {{shotFrom(later(noon, 59), 1, "e")}}));
    const auto found = ShootSchedule::conflicts(locations(library), planned);
    EXPECT_EQ(namesOf(found), (Names{"a", "b", "d", "e"}));
    ASSERT_EQ(found.size(), 4U);
    EXPECT_EQ(found[2].project->title, Text("Second"));
    EXPECT_EQ(found[3].project->title, Text("Third"));
}

}  // namespace
}  // namespace vantry::test
