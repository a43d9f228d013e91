#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/RecordDelta.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/RandomChanges.h"
#include "tests/support/RandomEdits.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

Shot& firstShot(Library& library) {
    return library.projects[0].edit().acts[0].edit().shots[0].edit();
}

/// The bytes of what comes out, or nothing when it fails.
template <class Undo>
std::optional<std::string> outcome(Undo&& undo) {
    try {
        return Codec::encode(undo());
    } catch (const VantryError& failure) {
        EXPECT_EQ(failure.which(), VantryError::Case::invalidBackup);
        return std::nullopt;
    }
}

/// Takes the change back in all ways, which must agree, and answers the bytes.
std::optional<std::string> undone(const Library& before, const Library& after, const Library& current,
                                  const Library& knownFirst = {}) {
    const std::string forms[] = {Codec::encode(before), Codec::encode(after), Codec::encode(current)};
    auto expected = outcome([&] { return RecordDelta::undoByValues(before, after, current); });
    EXPECT_EQ(outcome([&] { return RecordDelta::undo(before, after, current); }), expected);
    KnownValid known;
    known.accept(knownFirst);
    EXPECT_EQ(outcome([&] { return RecordDelta::undo(before, after, current, known); }), expected);
    EXPECT_EQ(Codec::encode(known.library()), expected ? *expected : Codec::encode(knownFirst));
    // Whoever holds one of the three sees no change of it.
    EXPECT_EQ(Codec::encode(before), forms[0]);
    EXPECT_EQ(Codec::encode(after), forms[1]);
    EXPECT_EQ(Codec::encode(current), forms[2]);
    return expected;
}

TEST(RecordDelta, BringsADeletedShotBackAndKeepsWhatWasTypedSince) {
    const Library before = support::sampleLibrary();
    Library after = before;
    auto& shots = after.projects[0].edit().acts[0].edit().shots;
    shots.erase(shots.begin() + 1);
    Library current = after;
    firstShot(current).takes[0].edit().notes = "typed later";
    Library expected = before;
    firstShot(expected).takes[0].edit().notes = "typed later";
    EXPECT_EQ(undone(before, after, current), Codec::encode(expected));
}

TEST(RecordDelta, LeavesSharedWhatItDidNotTouch) {
    const Library before = support::sampleLibrary();
    Library after = before;
    after.projects[0].edit().acts[0].edit().shots.pop_back();
    Library current = after;
    current.projects[1].edit().notes = "typed later";
    const Library result = RecordDelta::undo(before, after, current);
    EXPECT_TRUE(result.projects[1].isSameAs(current.projects[1]));
    EXPECT_TRUE(result.projects[0]->acts[1].isSameAs(before.projects[0]->acts[1]));
}

TEST(RecordDelta, ThatWouldNotBeValidThrowsAndChangesNothing) {
    // The change took a take away; later another shot got one with the same identifier.
    const Library before = support::sampleLibrary();
    Library after = before;
    auto& takes = firstShot(after).takes;
    const Node<VantryTake> taken = takes.front();
    takes.erase(takes.begin());
    Library current = after;
    current.projects[1].edit().acts[0].edit().shots[0].edit().takes.push_back(taken);
    EXPECT_EQ(undone(before, after, current, current), std::nullopt);
}

TEST(RecordDelta, ToAnInvalidStateThrows) {
    const Library after = support::completeLibrary();
    Library before = after;
    firstShot(before).durationMinutes = 0;
    EXPECT_EQ(undone(before, after, after, after), std::nullopt);
}

TEST(RecordDelta, KeepsTodaysSpellingInAMapThatBothChanged) {
    Library before = support::completeLibrary();
    Library after = before;
    Library current = before;
    const auto put = [](Library& library, const char* name, const char* speed) {
        Parameters& parameters = firstShot(library).parameters;
        parameters.set("lut", name);
        parameters.set("fps", speed);
    };
    put(before, "\u212B", "24");
    put(after, "\u00C5", "25");
    put(current, "A\u030A", "30");
    EXPECT_EQ(undone(before, after, current), Codec::encode(current));
}

TEST(RecordDelta, TreatsAMapsKeysAsKeysEvenIfARecordHasThem) {
    Library before = support::completeLibrary();
    Library after = before;
    firstShot(after).parameters.set("id", "one");
    Library current = after;
    firstShot(current).parameters.set("conflictKey", "later");
    Library expected = before;
    firstShot(expected).parameters.set("conflictKey", "later");
    EXPECT_EQ(undone(before, after, current), Codec::encode(expected));
}

TEST(RecordDelta, LeavesStrokesThatRepeatAnIdentifierAsTheyAre) {
    Library before = support::completeLibrary();
    Library after = before;
    firstShot(after).strokes.push_back(Stroke::make({{0, 0}}));
    Library current = after;
    firstShot(current).strokes.push_back(firstShot(current).strokes.front());
    EXPECT_EQ(undone(before, after, current), Codec::encode(current));
    // Without the repetition the change is taken back.
    current = after;
    firstShot(current).strokes.push_back(Stroke{Identifier(), {{1, 1}}});
    Library expected = before;
    firstShot(expected).strokes.push_back(Stroke{Identifier(), {{1, 1}}});
    EXPECT_EQ(undone(before, after, current), Codec::encode(expected));
}

TEST(RecordDelta, LeavesPointsThatBothChangedAsTheyAre) {
    Library before = support::completeLibrary();
    Library after = before;
    firstShot(after).strokes[0].points.push_back({0, 0});
    Library current = after;
    firstShot(current).strokes[0].points.push_back({1, 1});
    EXPECT_EQ(undone(before, after, current), Codec::encode(current));
}

TEST(RecordDelta, TellsAnAbsentListFromAnEmptyOne) {
    Library before = support::completeLibrary();
    Library after = before;
    after.projects[0].edit().crewMembers.reset();
    Library current = after;
    current.projects[0].edit().crewMembers.emplace();
    // The list was made again later, so it stays.
    EXPECT_EQ(undone(before, after, current), Codec::encode(current));
    current.projects[0].edit().crewMembers.reset();
    current.projects[0].edit().notes = "typed later";
    Library expected = before;
    expected.projects[0].edit().notes = "typed later";
    EXPECT_EQ(undone(before, after, current), Codec::encode(expected));
}

void changeSome(Library& library, support::RandomRecords& random, std::int64_t most) {
    for (auto changes = random.number(0, most); changes > 0; --changes) {
        if (random.chance(0.9))
            support::changeAnywhere(library, random);
        else
            support::editValidly(library, random);
    }
}

TEST(RecordDelta, IsWhatTheRevertOfValuesMakesForAnyEdits) {
    int worked = 0;
    int failed = 0;
    for (std::uint64_t seed = 0; seed < 350; ++seed) {
        SCOPED_TRACE(seed);
        support::RandomRecords random(seed);
        const Library before = support::crowdedLibrary(random);
        Library after = before;
        changeSome(after, random, 4);
        Library current = random.chance(0.05) ? before : after;
        changeSome(current, random, 8);
        if (random.chance(0.3))
            current = support::unshared(current);
        const bool knows = random.chance(0.5) && outcome([&] {
                               validate(current);
                               return current;
                           });
        (undone(before, after, current, knows ? current : before) ? worked : failed) += 1;
        if (HasFailure())
            return;
    }
    EXPECT_GT(worked, 300);
    EXPECT_GT(failed, 0);
}

TEST(RecordDelta, IsWhatTheRevertOfValuesMakesWhereManyEditsMeet) {
    int worked = 0;
    for (std::uint64_t seed = 0; seed < 1500; ++seed) {
        SCOPED_TRACE(seed);
        support::RandomRecords random(seed);
        const Library before = support::completeLibrary();
        Library after = before;
        changeSome(after, random, 15);
        Library current = after;
        changeSome(current, random, 15);
        worked += undone(before, after, current) ? 1 : 0;
        if (HasFailure())
            return;
    }
    EXPECT_GT(worked, 1000);
}

TEST(RecordDelta, RevertsMapsAsTheRevertOfValuesDoes) {
    const char* keys[] = {"id", "conflictKey", "conflict\u212Aey", "\u00E9", "e\u0301", "a"};
    const char* texts[] = {"", "x", "\u212B", "\u00C5", "A\u030A"};
    support::RandomRecords random(1);
    const auto anyMap = [&] {
        Library library = support::completeLibrary();
        Parameters& parameters = firstShot(library).parameters;
        for (auto entries = random.number(0, 5); entries > 0; --entries)
            parameters.set(random.oneOf(keys), random.oneOf(texts));
        return library;
    };
    for (int round = 0; round < 2000; ++round) {
        EXPECT_TRUE(undone(anyMap(), anyMap(), anyMap()).has_value());
        ASSERT_FALSE(HasFailure()) << round;
    }
}

TEST(RecordDelta, ReordersAsTheRevertOfValuesDoes) {
    // One list of few records that are moved, removed and added, over and over.
    for (std::uint64_t seed = 0; seed < 2000; ++seed) {
        SCOPED_TRACE(seed);
        support::RandomRecords random(seed);
        std::vector<Node<Shot>> pool;
        for (int i = 0; i < 7; ++i) {
            Shot shot;
            shot.id = random.identifier();
            pool.emplace_back(shot);
        }
        const auto anyOrder = [&] {
            Library library = support::libraryTitled("one");
            Act act;
            act.id = Identifier(Identifier::Bytes{1});
            auto left = pool;
            for (auto count = random.number(0, 7); count > 0; --count) {
                const auto at = random.number(0, static_cast<std::int64_t>(left.size()) - 1);
                act.shots.push_back(left[static_cast<std::size_t>(at)]);
                left.erase(left.begin() + at);
            }
            library.projects[0].edit().acts.emplace_back(act);
            return library;
        };
        EXPECT_TRUE(undone(anyOrder(), anyOrder(), anyOrder()).has_value());
        if (HasFailure())
            return;
    }
}

TEST(RecordDelta, TakesFourChangesBackOneAfterTheOther) {
    for (std::uint64_t seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        support::RandomRecords random(seed);
        const Library first = random.validLibrary();
        std::vector<Library> states{first};
        for (int i = 0; i < 4; ++i) {
            states.push_back(states.back());
            support::editValidly(states.back(), random);
        }
        Library current = states.back();
        for (std::size_t i = states.size() - 1; i > 0; --i)
            current = RecordDelta::undo(states[i - 1], states[i], current);
        EXPECT_TRUE(current == first);
    }
}

}  // namespace
}  // namespace vantry
