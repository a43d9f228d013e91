#include <algorithm>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/Merge.h"
#include "VantryCore/persistence/SameContent.h"
#include "VantryCore/persistence/VantryError.h"
#include "VantryCore/records/Identifiers.h"
#include "tests/support/PlainMerge.h"
#include "tests/support/RandomChanges.h"
#include "tests/support/RandomEdits.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {

inline void PrintTo(const MergeReport& report, std::ostream* out) {
    *out << report.added << " added, " << report.identical << " identical, " << report.conflicts
         << " conflicts";
}

namespace {

std::string keyOf(const auto& record) {
    return Codec::hash(Codec::encode(record));
}

Project& project(Library& library) {
    return library.projects[0].edit();
}

Act& act(Library& library) {
    return project(library).acts[0].edit();
}

Shot& shot(Library& library) {
    return act(library).shots[0].edit();
}

VantryTake& take(Library& library) {
    return shot(library).takes[0].edit();
}

VantryTake newTake(const char* name) {
    VantryTake take;
    take.id = Codec::stableID(name);
    take.number = 1;
    take.notes = name;
    return take;
}

std::int64_t recordsIn(const Library& library) {
    std::int64_t count = 0;
    for (const auto& project : library.projects) {
        ++count;
        for (const auto& act : project->acts) {
            ++count;
            for (const auto& shot : act->shots)
                count += 1 + static_cast<std::int64_t>(shot->takes.size());
        }
    }
    return count;
}

/// Refusals leave the very same nodes in place.
void expectUnchanged(const Library& library, const Library& before) {
    ASSERT_EQ(library.projects.size(), before.projects.size());
    for (std::size_t i = 0; i < before.projects.size(); ++i)
        EXPECT_TRUE(library.projects[i].isSameAs(before.projects[i]));
    EXPECT_EQ(Codec::encode(library), Codec::encode(before));
}

void expectRefused(const Library& incoming, Library local) {
    const Library before = local;
    KnownValid known;
    for (int way = 0; way < 2; ++way) {
        try {
            if (way == 0)
                (void)Merge::apply(incoming, local);
            else
                (void)Merge::apply(incoming, local, known);
            ADD_FAILURE() << "was not refused";
        } catch (const VantryError& failure) {
            EXPECT_EQ(failure.which(), VantryError::Case::invalidBackup);
        }
        expectUnchanged(local, before);
    }
}

TEST(Merge, IntoItselfFindsEveryRecord) {
    Library library = support::sampleLibrary();
    const MergeReport expected{0, recordsIn(library), 0};
    EXPECT_EQ(Merge::apply(support::unshared(library), library), expected);
    EXPECT_EQ(Merge::apply(library, library), expected);
    EXPECT_EQ(Codec::encode(library), support::sampleFileBytes());
    EXPECT_TRUE(library == support::sampleLibrary());
}

TEST(Merge, TakesAnEmptyListForAnAbsentOne) {
    Library local = support::completeLibrary();
    project(local).crewMembers.reset();
    Library incoming = local;
    project(incoming).crewMembers.emplace();
    const Library before = local;
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 4, 0}));
    expectUnchanged(local, before);
}

TEST(Merge, KeepsACopyOfAWholeProjectThatDiffersInItsDirector) {
    const Library start = support::completeLibrary();
    Library incoming = start;
    project(incoming).director = "Somebody else";
    Library local = start;
    project(local).acts[0].edit().shots[0].edit().takes[0].edit().notes = "not saved yet";
    const Library before = local;
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 0, 1}));
    ASSERT_EQ(local.projects.size(), 2U);
    EXPECT_TRUE(local.projects[0].isSameAs(before.projects[0]));
    const std::string key = keyOf(*incoming.projects[0]);
    EXPECT_EQ(local.projects[1]->id, Codec::stableID(key + incoming.projects[0]->id.text()));
    EXPECT_EQ(local.projects[1]->conflictKey, Text(key));
    ASSERT_EQ(local.projects[1]->acts.size(), 1U);
    ASSERT_EQ(local.projects[1]->acts[0]->shots.size(), 1U);
    EXPECT_EQ(local.projects[1]->acts[0]->shots[0]->takes.size(), 1U);
}

TEST(Merge, OfTheSameBackupAgainAndAgainFindsItsCopy) {
    Library local = support::completeLibrary();
    Library incoming = local;
    project(incoming).director = "Somebody else";
    (void)Merge::apply(incoming, local);
    const std::string merged = Codec::encode(local);
    for (int time = 0; time < 10; ++time) {
        const Library before = local;
        EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 1, 0}));
        expectUnchanged(local, before);
        EXPECT_EQ(Codec::encode(local), merged);
    }
}

TEST(Merge, AddsANewTakeAndFindsEverythingAroundIt) {
    Library local = support::completeLibrary();
    Library incoming = local;
    shot(incoming).takes.emplace_back(newTake("new"));
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{1, 4, 0}));
    EXPECT_TRUE(local == incoming);
}

TEST(Merge, KeepsACopyOfATakeThatDiffersInItsStarsAtTheEnd) {
    Library local = support::completeLibrary();
    shot(local).takes.emplace_back(newTake("local"));
    Library incoming = support::completeLibrary();
    take(incoming).stars = 1;
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 3, 1}));
    const std::string key = keyOf(take(incoming));
    VantryTake expected = take(incoming);
    expected.id = Codec::stableID(key);
    expected.conflictKey = Text(key);
    ASSERT_EQ(shot(local).takes.size(), 3U);
    EXPECT_TRUE(*shot(local).takes[2] == expected);
    EXPECT_EQ(take(local).stars, 4);
}

TEST(Merge, KeepsTwoDifferingTakesInTheOrderOfTheIncomingList) {
    Library local = support::completeLibrary();
    shot(local).takes.emplace_back(newTake("second"));
    Library incoming = local;
    std::swap(shot(incoming).takes[0], shot(incoming).takes[1]);
    shot(incoming).takes[0].edit().stars = 2;
    shot(incoming).takes[1].edit().stars = 3;
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 3, 2}));
    ASSERT_EQ(shot(local).takes.size(), 4U);
    EXPECT_EQ(shot(local).takes[2]->id, Codec::stableID(keyOf(*shot(incoming).takes[0])));
    EXPECT_EQ(shot(local).takes[3]->id, Codec::stableID(keyOf(*shot(incoming).takes[1])));
}

TEST(Merge, MakesAnotherCopyAfterTheFirstWasEditedAndTheSameAfterItWasDeleted) {
    Library local = support::completeLibrary();
    Library incoming = local;
    take(incoming).stars = 1;
    (void)Merge::apply(incoming, local);
    const std::string key = keyOf(take(incoming));
    shot(local).takes[1].edit().notes = "edited by the user";
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 3, 1}));
    ASSERT_EQ(shot(local).takes.size(), 3U);
    const VantryTake revision = *shot(local).takes[2];
    EXPECT_EQ(revision.id, Codec::stableID(key + ":revision:1"));
    EXPECT_EQ(revision.conflictKey, Text(key));
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 4, 0}));
    // Both edited: the next number.
    shot(local).takes[2].edit().notes = "edited by the user, too";
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 3, 1}));
    EXPECT_EQ(shot(local).takes[3]->id, Codec::stableID(key + ":revision:2"));
    // Deleted ones come back under the identifiers that they had.
    shot(local).takes.resize(2, Node<VantryTake>());
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 3, 1}));
    ASSERT_EQ(shot(local).takes.size(), 3U);
    EXPECT_TRUE(*shot(local).takes[2] == revision);
    shot(local).takes.resize(1, Node<VantryTake>());
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 3, 1}));
    EXPECT_EQ(shot(local).takes[1]->id, Codec::stableID(key));
}

TEST(Merge, AddsNothingTheSecondTimeEvenWhereTheFirstBroughtATakeIntoACopyThatItHadRecognised) {
    Library mine = support::completeLibrary();
    Library theirs = mine;
    shot(theirs).framing = "their framing";
    // They keep my shot as a copy, I keep theirs, and then they log a take on the copy that I made.
    (void)Merge::apply(theirs, mine);
    (void)Merge::apply(mine, theirs);
    Shot& copy = act(theirs).shots.back().edit();
    ASSERT_EQ(copy.framing, Text("their framing"));
    ASSERT_NE(copy.id, shot(theirs).id);
    copy.takes.emplace_back(newTake("logged on the copy"));

    const MergeReport first = Merge::apply(theirs, mine);
    EXPECT_GE(first.added, 1);
    EXPECT_EQ(first.conflicts, 1);
    const std::string merged = Codec::encode(mine);
    for (int i = 0; i < 3; ++i) {
        const MergeReport again = Merge::apply(theirs, mine);
        EXPECT_EQ(again.added, 0);
        EXPECT_EQ(again.conflicts, 0);
        EXPECT_TRUE(Codec::encode(mine) == merged);
    }
}

TEST(Merge, BringsADeletedLocalRecordBackUnderItsOwnIdentifier) {
    Library incoming = support::completeLibrary();
    Library local = incoming;
    act(local).shots.clear();
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{1, 2, 0}));
    EXPECT_TRUE(local == incoming);
}

TEST(Merge, IsRefusedWhenAnIdentifierIsOfAnotherLevelOrProject) {
    const Library local = support::sampleLibrary();
    const Identifier ofTake = local.projects[0]->acts[0]->shots[0]->takes[0]->id;
    Library incoming;
    incoming.projects = {support::libraryTitled("new").projects[0]};
    project(incoming).id = ofTake;
    expectRefused(incoming, local);
    incoming = {};
    incoming.projects = {local.projects[1]};
    act(incoming).shots[0].edit().id = ofTake;
    expectRefused(incoming, local);
    // A record that another project has, under a project that is new.
    incoming.projects = {support::libraryTitled("new").projects[0]};
    project(incoming).acts = {local.projects[0]->acts[0]};
    expectRefused(incoming, local);
}

TEST(Merge, IsRefusedWhenEitherSideIsNotValid) {
    const Library valid = support::completeLibrary();
    Library invalid = valid;
    shot(invalid).durationMinutes = 0;
    expectRefused(invalid, valid);
    expectRefused(valid, invalid);
    invalid = valid;
    invalid.version = 2;
    expectRefused(invalid, valid);
}

TEST(Merge, LeavesProjectsThatTheBackupDoesNotKnowAtTheHead) {
    Library local = support::sampleLibrary();
    const Library before = local;
    EXPECT_EQ(Merge::apply(support::completeLibrary(), local), (MergeReport{1, 0, 0}));
    ASSERT_EQ(local.projects.size(), before.projects.size() + 1);
    for (std::size_t i = 0; i < before.projects.size(); ++i)
        EXPECT_TRUE(local.projects[i].isSameAs(before.projects[i]));
    EXPECT_TRUE(*local.projects.back() == *support::completeLibrary().projects[0]);
}

TEST(Merge, KeepsTheLocalFormatAndVersion) {
    Library local;
    Library incoming = support::completeLibrary();
    (void)Merge::apply(incoming, local);
    EXPECT_EQ(local.format.utf8(), "Vantry");
    EXPECT_EQ(local.version, 1);
}

TEST(MergeComparableProject, MakesEmptyListsAbsentAndNothingElse) {
    Project project = *support::completeLibrary().projects[0];
    EXPECT_TRUE(Merge::comparableProject(project) == project);
    project.crewMembers.emplace();
    project.crewMembers->clear();
    project.castMembers->clear();
    project.callSheetRecords->clear();
    project.relatedFileRecords->clear();
    const Project comparable = Merge::comparableProject(project);
    EXPECT_FALSE(comparable.crewMembers || comparable.castMembers || comparable.callSheetRecords ||
                 comparable.relatedFileRecords);
}

TEST(MergeIdentifiers, OfAShotsCopy) {
    Library local = support::completeLibrary();
    Library incoming = local;
    shot(incoming).title = "Another";
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 2, 1}));
    const std::string key = keyOf(shot(incoming));
    const Shot& copy = *act(local).shots.back();
    EXPECT_EQ(copy.id, Codec::stableID(key + shot(incoming).id.text()));
    EXPECT_EQ(copy.conflictKey, Text(key));
    EXPECT_EQ(copy.takes[0]->id, Codec::stableID(key + take(incoming).id.text()));
    EXPECT_EQ(copy.takes[0]->conflictKey, Text("kept"));
    EXPECT_EQ(copy.strokes[0].id, shot(incoming).strokes[0].id);
    EXPECT_EQ(copy.imageKey, shot(incoming).imageKey);
}

TEST(MergeIdentifiers, OfAnActsCopy) {
    Library local = support::completeLibrary();
    Library incoming = local;
    act(incoming).title = "Another";
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 1, 1}));
    const std::string key = keyOf(act(incoming));
    const std::string ofShot = shot(incoming).id.text();
    const Act& copy = *project(local).acts.back();
    EXPECT_EQ(copy.id, Codec::stableID(key + act(incoming).id.text()));
    EXPECT_EQ(copy.conflictKey, Text(key));
    EXPECT_EQ(copy.shots[0]->id, Codec::stableID(key + ofShot + ofShot));
    EXPECT_EQ(copy.shots[0]->conflictKey, Text(key + ofShot));
    EXPECT_EQ(copy.shots[0]->takes[0]->id, Codec::stableID(key + ofShot + take(incoming).id.text()));
    EXPECT_EQ(copy.shots[0]->takes[0]->conflictKey, Text("kept"));
}

TEST(MergeIdentifiers, OfAProjectsCopy) {
    Library local = support::completeLibrary();
    Library incoming = local;
    project(incoming).title = "Another";
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 0, 1}));
    const Project& source = *incoming.projects[0];
    const Project& copy = *local.projects.back();
    const std::string key = keyOf(source);
    EXPECT_EQ(copy.id, Codec::stableID(key + source.id.text()));
    EXPECT_EQ(copy.crew()[0].id, Codec::stableID(key + source.crew()[0].id.text()));
    EXPECT_EQ(copy.cast()[0].id, Codec::stableID(key + source.cast()[0].id.text()));
    EXPECT_EQ(copy.relatedFiles()[0].id, Codec::stableID(key + source.relatedFiles()[0].id.text()));
    EXPECT_EQ(copy.callSheets()[0].id, Codec::stableID(key + source.callSheets()[0].id.text()));
    const CallSheetPerson& person = copy.callSheets()[0].people[0];
    EXPECT_EQ(person.id, Codec::stableID(key + source.callSheets()[0].people[0].id.text()));
    EXPECT_EQ(person.sourceID, copy.crew()[0].id);
    const std::string ofAct = act(incoming).id.text();
    const std::string ofShot = shot(incoming).id.text();
    EXPECT_EQ(copy.acts[0]->id, Codec::stableID(key + ofAct + ofAct));
    EXPECT_EQ(copy.acts[0]->conflictKey, Text(key + ofAct));
    EXPECT_EQ(copy.acts[0]->shots[0]->id, Codec::stableID(key + ofAct + ofShot + ofShot));
    EXPECT_EQ(copy.acts[0]->shots[0]->conflictKey, Text(key + ofAct + ofShot));
    EXPECT_EQ(copy.acts[0]->shots[0]->takes[0]->id,
              Codec::stableID(key + ofAct + ofShot + take(incoming).id.text()));
    EXPECT_EQ(copy.acts[0]->shots[0]->takes[0]->conflictKey, Text("kept"));
    EXPECT_EQ(copy.createdAt, source.createdAt);
}

TEST(MergeIdentifiers, OfACopyAvoidAllThatIsInUse) {
    Library local = support::completeLibrary();
    Library incoming = local;
    shot(incoming).title = "Another";
    const std::string key = keyOf(shot(incoming));
    // What one of its takes would get is taken, far away and on another level.
    local.projects.push_back(support::libraryTitled("other").projects[0]);
    local.projects[1].edit().id = Codec::stableID(key + take(incoming).id.text());
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{0, 2, 1}));
    const Shot& copy = *act(local).shots.back();
    EXPECT_EQ(copy.id, Codec::stableID(key + ":revision:1" + shot(incoming).id.text()));
    EXPECT_EQ(copy.takes[0]->id, Codec::stableID(key + ":revision:1" + take(incoming).id.text()));
    EXPECT_EQ(copy.conflictKey, Text(key));
}

TEST(MergeIdentifiers, OfACopyAvoidWhatTheSameRunAdded) {
    Library local = support::completeLibrary();
    Library incoming = local;
    take(incoming).stars = 1;
    const std::string key = keyOf(take(incoming));
    // A new record, in front of the differing one, that has the identifier of the copy to be.
    VantryTake early = newTake("early");
    early.id = Codec::stableID(key);
    auto& takes = shot(incoming).takes;
    takes.insert(takes.begin(), Node<VantryTake>(early));
    EXPECT_EQ(Merge::apply(incoming, local), (MergeReport{1, 3, 1}));
    EXPECT_EQ(shot(local).takes.back()->id, Codec::stableID(key + ":revision:1"));
}

/// Whether the record is among the others: itself with everything inside it, or as a copy with its content.
template <class T>
bool isFound(const T& record, const NodeList<T>& others);

template <class T>
bool areFound(const NodeList<T>& records, const NodeList<T>& others) {
    return std::all_of(records.begin(), records.end(), [&](const auto& r) { return isFound(*r, others); });
}

bool holdsChildren(const Project& record, const Project& other) {
    return areFound(record.acts, other.acts);
}
bool holdsChildren(const Act& record, const Act& other) {
    return areFound(record.shots, other.shots);
}
bool holdsChildren(const Shot& record, const Shot& other) {
    return areFound(record.takes, other.takes);
}
bool holdsChildren(const VantryTake&, const VantryTake&) {
    return true;
}

Project bare(Project project) {
    project.acts.clear();
    return project;
}
Act bare(Act act) {
    act.shots.clear();
    return act;
}
Shot bare(Shot shot) {
    shot.takes.clear();
    return shot;
}
VantryTake bare(VantryTake take) {
    return take;
}

template <class T>
bool isFound(const T& record, const NodeList<T>& others) {
    return std::any_of(others.begin(), others.end(), [&](const auto& other) {
        return sameContentByValues(record, *other) ||
               (record.id == other->id && sameContentByValues(bare(record), bare(*other)) &&
                holdsChildren(record, *other));
    });
}

/// Runs all forms of a merge, checks what always holds, and answers whether it was not refused.
bool mergeAndCheck(const Library& incoming, Library& local) {
    const Library before = local;
    const std::string beforeBytes = Codec::encode(local);
    Library plain = local;
    Library known = local;
    MergeReport expected;
    bool merged = true;
    try {
        expected = support::mergePlainly(incoming, plain);
    } catch (const VantryError&) {
        merged = false;
    }
    if (!merged) {
        expectRefused(incoming, local);
        return false;
    }
    EXPECT_EQ(Merge::apply(incoming, local), expected);
    EXPECT_EQ(Codec::encode(local), Codec::encode(plain));
    EXPECT_EQ(Codec::encode(before), beforeBytes);
    KnownValid memory;
    EXPECT_EQ(Merge::apply(incoming, known, memory), expected);
    EXPECT_EQ(Codec::encode(known), Codec::encode(plain));
    EXPECT_EQ(Codec::encode(memory.library()), Codec::encode(plain));
    for (const auto& project : local.projects)
        forEachIdentifier(*project, [&](const Identifier& id) { EXPECT_TRUE(memory.uses(id)); });

    EXPECT_TRUE(areFound(before.projects, local.projects));
    EXPECT_TRUE(areFound(incoming.projects, local.projects));

    const Library once = local;
    const MergeReport again = Merge::apply(incoming, local, memory);
    EXPECT_EQ(again.added, 0);
    EXPECT_EQ(again.conflicts, 0);
    expectUnchanged(local, once);
    const MergeReport itself = Merge::apply(support::unshared(local), local);
    EXPECT_EQ(itself, (MergeReport{0, recordsIn(local), 0}));
    EXPECT_EQ(Codec::encode(local), Codec::encode(once));
    return true;
}

TEST(Merge, KeepsItsPromisesForAnyTwoLibraries) {
    int merged = 0;
    int refused = 0;
    for (std::uint64_t seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        support::RandomRecords random(seed);
        Library local = support::crowdedLibrary(random);
        Library incoming = local;
        // Three times, so that copies meet copies that were edited, deleted and sent around.
        for (int round = 0; round < 3; ++round) {
            for (auto changes = random.number(0, 4); changes > 0; --changes)
                support::changeAnywhere(local, random);
            for (auto changes = random.number(0, 4); changes > 0; --changes)
                support::changeAnywhere(incoming, random);
            (mergeAndCheck(random.chance(0.5) ? incoming : support::unshared(incoming), local) ? merged
                                                                                               : refused) +=
                1;
            if (HasFailure())
                return;
            if (random.chance(0.3))
                std::swap(local, incoming);
            if (random.chance(0.2))
                incoming = random.chance(0.5) ? local : support::crowdedLibrary(random);
        }
    }
    EXPECT_GT(merged, 120);
    EXPECT_GT(refused, 0);
}

}  // namespace
}  // namespace vantry
