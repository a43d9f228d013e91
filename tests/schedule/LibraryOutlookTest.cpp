#include "Vantry/schedule/rules/LibraryOutlook.h"

#include <gtest/gtest.h>

#include "tests/schedule/Records.h"

namespace vantry::test {
namespace {

const Moment now = support::utc(2025, 5, 6, 12);

Shot good(Shot shot) {
    shot.newTake();
    shot.takes[0].edit().result = TakeResult::good;
    return shot;
}

Project productionOf(const std::vector<std::vector<Shot>>& acts) {
    Project project = Project::make("Production");
    for (const auto& shots : acts) {
        Act act = Act::make("Act");
        act.shots.assign(shots.begin(), shots.end());
        project.acts.emplace_back(std::move(act));
    }
    return project;
}

Library libraryOf(const std::vector<Project>& projects) {
    Library library;
    library.projects.assign(projects.begin(), projects.end());
    return library;
}

Names upcoming(const std::vector<Shot>& shots) {
    return namesOf(outlook(libraryOf({productionOf({shots})}), now).upcoming);
}

TEST(LibraryOutlook, OfAnEmptyLibraryIsNothing) {
    const LibraryOutlook found = outlook({}, now);
    EXPECT_EQ(found.planned, 0);
    EXPECT_EQ(found.completed, 0);
    EXPECT_TRUE(found.upcoming.empty());
}

TEST(LibraryOutlook, CountsEveryShotThatIsNotCancelled) {
    const Library library =
        libraryOf({productionOf({{shotWithoutTime("1"), good(shotWithoutTime("2"))}, {}}),
                   productionOf({{cancelled(good(shotWithoutTime("3"))), good(shotFrom(now, 30, "4"))},
                                 {cancelled(shotWithoutTime("5"))}})});
    const LibraryOutlook found = outlook(library, now);
    EXPECT_EQ(found.planned, 3);
    EXPECT_EQ(found.completed, 2) << "a cancelled shot counts for neither, whatever its takes";
}

TEST(LibraryOutlook, OnlyAGoodTakeCompletes) {
    Shot tried = shotWithoutTime("1");
    tried.newTake();
    tried.newTake();
    tried.takes[0].edit().result = TakeResult::ng;
    tried.takes[1].edit().stars = 5;
    EXPECT_EQ(outlook(libraryOf({productionOf({{tried}})}), now).completed, 0);
}

TEST(LibraryOutlook, WhatIsUnderWayStillComesUp) {
    EXPECT_EQ(
        upcoming({shotFrom(later(now, -29), 30, "running"), shotFrom(later(now, -30), 30, "ends now"),
                  shotFrom(later(now, -30.001), 30, "over"), shotFrom(later(now, -9000), 10080, "week")}),
        (Names{"week", "ends now", "running"}));
}

TEST(LibraryOutlook, WithoutATimeOrCancelledNothingComesUp) {
    EXPECT_EQ(upcoming({shotWithoutTime("never"), cancelled(shotFrom(later(now, 5), 30, "off")),
                        shotFrom(later(now, 5), 30, "on")}),
              (Names{"on"}));
}

TEST(LibraryOutlook, ComesUpByItsStartNotItsEnd) {
    EXPECT_EQ(upcoming({shotFrom(later(now, 20), 5, "short"), shotFrom(later(now, 10), 600, "long"),
                        shotFrom(later(now, 90000), 5, "far")}),
              (Names{"long", "short", "far"}));
}

TEST(LibraryOutlook, EqualStartsKeepTheOrderOfTheLibrary) {
    std::vector<Shot> first;
    std::vector<Shot> second;
    Names expected{"early"};
    for (int number = 0; number < 40; ++number) {
        const std::string code = std::to_string(number);
        (number < 20 ? first : second).push_back(shotFrom(later(now, 60), 30 + number % 7, code.c_str()));
        expected.push_back(code);
    }
    second.push_back(shotFrom(later(now, 30), 30, "early"));
    EXPECT_EQ(namesOf(outlook(libraryOf({productionOf({first}), productionOf({{}, second})}), now).upcoming),
              expected);
}

TEST(LibraryOutlook, TellsWhereAShotBelongs) {
    const Library library =
        libraryOf({productionOf({{}}), productionOf({{}, {shotFrom(later(now, 1), 30, "1")}})});
    const auto found = outlook(library, now).upcoming;
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].project->id, library.projects[1]->id);
    EXPECT_EQ(found[0].act->id, library.projects[1]->acts[1]->id);
    EXPECT_EQ(found[0].id(), library.projects[1]->acts[1]->shots[0]->id);
}

TEST(LibraryOutlook, AProductionCountsAllItsShotsAndTakes) {
    Shot busy = good(shotWithoutTime("1"));
    busy.newTake();
    const ProjectCounts counts =
        count(productionOf({{busy, shotWithoutTime("2")}, {cancelled(good(shotWithoutTime("3")))}, {}}));
    EXPECT_EQ(counts.shots, 3);
    EXPECT_EQ(counts.planned, 2);
    EXPECT_EQ(counts.completed, 1);
    EXPECT_EQ(counts.takes, 3) << "those of a cancelled shot were recorded too";
    EXPECT_EQ(count(Project::make("Empty")).shots, 0);
}

}  // namespace
}  // namespace vantry::test
