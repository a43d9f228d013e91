#include <limits>
#include <stdexcept>

#include <gtest/gtest.h>

#include "VantryCore/persistence/SameContent.h"
#include "tests/support/RandomChanges.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

Project aProject() {
    return *support::completeLibrary().projects[0];
}

/// The answer, which both ways of finding it must give, whichever way round.
template <class T>
bool same(const T& a, const T& b) {
    const bool answer = sameContent(a, b);
    EXPECT_EQ(sameContent(b, a), answer);
    EXPECT_EQ(sameContentByValues(a, b), answer);
    EXPECT_EQ(sameContentByValues(b, a), answer);
    return answer;
}

TEST(SameContent, DoesNotLookAtIdentity) {
    Project other = aProject();
    other.id = Identifier::random();
    EXPECT_TRUE(same(aProject(), other));
    other.conflictKey.reset();
    EXPECT_TRUE(same(aProject(), other));
    other.acts[0].edit().shots[0].edit().takes[0].edit().id = Identifier::random();
    other.acts[0].edit().shots[0].edit().strokes[0].id = Identifier::random();
    other.acts[0].edit().conflictKey = "another";
    (*other.callSheetRecords)[0].people[0].sourceID.reset();
    EXPECT_TRUE(same(aProject(), other));
}

TEST(SameContent, TakesAnEmptyListOfAProjectForAnAbsentOne) {
    Project absent = aProject();
    absent.crewMembers.reset();
    absent.castMembers.reset();
    absent.callSheetRecords.reset();
    absent.relatedFileRecords.reset();
    Project empty = absent;
    empty.crewMembers.emplace();
    EXPECT_TRUE(same(absent, empty));
    empty.castMembers.emplace();
    empty.callSheetRecords.emplace();
    empty.relatedFileRecords.emplace();
    EXPECT_TRUE(same(absent, empty));
    EXPECT_FALSE(same(aProject(), empty));
}

TEST(SameContent, MindsTheOrderOfRecords) {
    Project project = aProject();
    Shot second = *project.acts[0]->shots[0];
    second.title = "Another";
    project.acts[0].edit().shots.emplace_back(second);
    Project turned = project;
    std::swap(turned.acts[0].edit().shots[0], turned.acts[0].edit().shots[1]);
    EXPECT_FALSE(same(project, turned));
}

TEST(SameContent, MindsDatesAndNumbers) {
    const VantryTake take = support::completeRecord<VantryTake>();
    VantryTake other = take;
    other.createdAt.seconds += 0.25;
    EXPECT_FALSE(same(take, other));
    other = take;
    other.number += 1;
    EXPECT_FALSE(same(take, other));
    other = take;
    other.cameraNumber.reset();
    EXPECT_FALSE(same(take, other));
}

TEST(SameContent, TakesEquivalentTextsForEqual) {
    VantryTake take = support::completeRecord<VantryTake>();
    VantryTake other = take;
    take.notes = "\u212B";
    other.notes = "A\u030A";
    EXPECT_TRUE(same(take, other));
}

TEST(SameContent, TakesKeysOfIdentityInAMapForIdentityToo) {
    const VantryTake take = support::completeRecord<VantryTake>();
    for (const char* key : {"id", "conflictKey", "sourceID", "conflict\u212Aey"}) {
        VantryTake other = take;
        other.parameters.set(key, "anything");
        EXPECT_TRUE(same(take, other)) << key;
    }
    for (const char* key : {"ID", "iD", "sourceId", " id", ""}) {
        VantryTake other = take;
        other.parameters.set(key, "anything");
        EXPECT_FALSE(same(take, other)) << key;
    }
}

TEST(SameContent, HasNoAnswerByValuesForWhatHasNoForm) {
    VantryTake take = support::completeRecord<VantryTake>();
    take.createdAt.seconds = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW((void)sameContentByValues(take, take), std::domain_error);
    EXPECT_FALSE(sameContent(take, take));
}

/// Gives every record inside another identity, as a retained copy has.
void renew(Project& project, support::RandomRecords& random) {
    random.fill(project.id);
    random.fill(project.conflictKey);
    if (project.crewMembers)
        for (auto& member : *project.crewMembers)
            random.fill(member.id);
    if (project.callSheetRecords)
        for (auto& sheet : *project.callSheetRecords)
            for (auto& person : sheet.people)
                random.fill(person.sourceID);
    for (auto& act : project.acts)
        for (auto& shot : act.edit().shots)
            for (auto& take : shot.edit().takes)
                random.fill(take.edit().id);
}

/// Compares a record with the same one after some changes, by both ways.
template <class T>
void compareChanged(const T& record, support::RandomRecords& random, int (&counts)[2]) {
    T other = record;
    for (auto changes = random.number(0, 2); changes > 0; --changes)
        support::changeAnywhere(other, random);
    counts[same(record, other) ? 1 : 0] += 1;
}

TEST(SameContent, IsWhatTheComparisonOfValuesFinds) {
    int counts[2] = {0, 0};
    for (std::uint64_t seed = 0; seed < 80; ++seed) {
        SCOPED_TRACE(seed);
        support::RandomRecords random(seed);
        Project project = *support::crowdedLibrary(random).projects[0];
        compareChanged(project, random, counts);
        for (const auto& act : project.acts) {
            compareChanged(*act, random, counts);
            for (const auto& shot : act->shots) {
                compareChanged(*shot, random, counts);
                for (const auto& take : shot->takes)
                    compareChanged(*take, random, counts);
            }
        }
        Project renewed = project;
        renew(renewed, random);
        EXPECT_TRUE(same(project, renewed));
        if (HasFailure())
            return;
    }
    EXPECT_GT(counts[0], 500);
    EXPECT_GT(counts[1], 500);
}

}  // namespace
}  // namespace vantry
