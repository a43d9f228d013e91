#include "VantryCore/records/Act.h"

#include <limits>

#include <gtest/gtest.h>

namespace vantry {
namespace {

Act coded(const std::vector<std::string>& codes) {
    Act act = Act::make("Act");
    for (const auto& code : codes)
        act.shots.emplace_back(Shot::make(Text(code), "", {}));
    return act;
}

std::vector<std::string> codesOf(const Act& act) {
    std::vector<std::string> codes;
    for (const auto& shot : act.shots)
        codes.push_back(shot->code.utf8());
    return codes;
}

using Codes = std::vector<std::string>;

TEST(Act, StartsEmptyUnderAFreshIdentifier) {
    const Act act = Act::make("One");
    EXPECT_NE(act.id, Identifier());
    EXPECT_EQ(act.title, Text("One"));
    EXPECT_FALSE(act.conflictKey);
    EXPECT_TRUE(act.shots.empty());
    EXPECT_NE(Act::make("One").id, act.id);
}

TEST(InsertShot, FindsACodeThatIsNewInTheAct) {
    struct Case {
        const char* name;
        Codes before;
        std::optional<std::size_t> after;
        Codes expected;
    };
    const Case cases[] = {
        {"into an empty act", {}, {}, {"01"}},
        {"at the end", {"01", "02", "02A"}, {}, {"01", "02", "02A", "04"}},
        {"behind one of three", {"01", "02", "02A"}, 1, {"01", "02", "02AA", "02A"}},
        {"behind the last", {"01"}, 0, {"01", "01A"}},
        {"behind a code with a letter", {"03A"}, 0, {"03A", "03AA"}},
        {"the count is in use", {"02", "03"}, {}, {"02", "03", "03A"}},
        {"the count and its first letter are in use", {"03", "03A"}, {}, {"03", "03A", "03AA"}},
        {"several letters are in use", {"01", "01A", "01AA"}, 0, {"01", "01AAA", "01A", "01AA"}},
        {"behind a free text", {"Épilogue"}, 0, {"Épilogue", "ÉpilogueA"}},
        {"behind an empty code", {""}, 0, {"", "A"}},
        {"nine shots", Codes(9, "x"), {}, {"x", "x", "x", "x", "x", "x", "x", "x", "x", "10"}},
    };
    for (const auto& c : cases) {
        Act act = coded(c.before);
        const auto after = c.after ? std::optional(act.shots[*c.after]->id) : std::nullopt;
        act.insertShot(after, {}, "New");
        EXPECT_EQ(codesOf(act), c.expected) << c.name;
    }
}

TEST(InsertShot, CountsBeyondTwoDigits) {
    Act act = coded(Codes(99, "x"));
    act.insertShot({}, {}, "");
    EXPECT_EQ(act.shots.back()->code, Text("100"));
}

TEST(InsertShot, TakesAnEquivalentSpellingForACodeInUse) {
    Act act = coded({"\u00C5", "A\u030AA"});
    act.insertShot(act.shots[0]->id, {}, "");
    EXPECT_EQ(act.shots[1]->code, Text("\u00C5"
                                       "AA"));
}

TEST(InsertShot, GoesToTheEndWhenItsPlaceIsUnknown) {
    Act act = coded({"01", "02"});
    act.insertShot(Identifier::random(), {}, "");
    EXPECT_EQ(codesOf(act), (Codes{"01", "02", "03"}));
}

TEST(InsertShot, FillsTheNewShotAndAnswersItsIdentifier) {
    Parameters defaults;
    defaults.set("iso", "800");
    defaults.set("focal", "50");
    Act act = coded({"01"});
    const Shot before = *act.shots[0];
    const Identifier id = act.insertShot(act.shots[0]->id, defaults, "Untitled shot");
    const Shot* shot = findRecord(act.shots, id);
    ASSERT_NE(shot, nullptr);
    EXPECT_EQ(shot->title, Text("Untitled shot"));
    EXPECT_EQ(shot->parameters, defaults);
    EXPECT_EQ(shot->durationMinutes, 30);
    EXPECT_EQ(shot->soundMode, SoundMode::sync);
    EXPECT_TRUE(shot->takes.empty());
    EXPECT_TRUE(*act.shots[0] == before);
}

TEST(MoveShot, ExchangesTwoShots) {
    struct Case {
        std::size_t shot;
        std::int64_t offset;
        Codes expected;
    };
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    const Case cases[] = {
        {0, 1, {"b", "a", "c"}},     {1, 1, {"a", "c", "b"}},    {2, -1, {"a", "c", "b"}},
        {0, 2, {"c", "b", "a"}},     {2, -2, {"c", "b", "a"}},   {1, 0, {"a", "b", "c"}},
        {0, -1, {"a", "b", "c"}},    {2, 1, {"a", "b", "c"}},    {0, 3, {"a", "b", "c"}},
        {2, least, {"a", "b", "c"}}, {2, most, {"a", "b", "c"}},
    };
    for (const auto& c : cases) {
        Act act = coded({"a", "b", "c"});
        act.moveShot(act.shots[c.shot]->id, c.offset);
        EXPECT_EQ(codesOf(act), c.expected) << c.shot << " by " << c.offset;
    }
}

TEST(MoveShot, LeavesTheActAloneWhenTheShotIsUnknown) {
    Act act = coded({"a", "b"});
    act.moveShot(Identifier::random(), 1);
    EXPECT_EQ(codesOf(act), (Codes{"a", "b"}));
    Act empty = Act::make("");
    empty.moveShot(Identifier::random(), 0);
    EXPECT_TRUE(empty.shots.empty());
}

TEST(MoveShotBefore, PutsTheShotInFrontOfTheOther) {
    struct Case {
        std::size_t shot, target;
        Codes expected;
    };
    const Case cases[] = {
        {0, 1, {"a", "b", "c", "d"}}, {0, 2, {"b", "a", "c", "d"}}, {0, 3, {"b", "c", "a", "d"}},
        {3, 0, {"d", "a", "b", "c"}}, {2, 1, {"a", "c", "b", "d"}}, {1, 1, {"a", "b", "c", "d"}},
        {3, 2, {"a", "b", "d", "c"}},
    };
    for (const auto& c : cases) {
        Act act = coded({"a", "b", "c", "d"});
        act.moveShotBefore(act.shots[c.shot]->id, act.shots[c.target]->id);
        EXPECT_EQ(codesOf(act), c.expected) << c.shot << " before " << c.target;
    }
}

TEST(MoveShotBefore, LeavesTheActAloneWhenEitherIsUnknown) {
    Act act = coded({"a", "b"});
    act.moveShotBefore(act.shots[1]->id, Identifier::random());
    act.moveShotBefore(Identifier::random(), act.shots[0]->id);
    EXPECT_EQ(codesOf(act), (Codes{"a", "b"}));
}

TEST(MoveShotBefore, MovesTheSharedRecordsThemselves) {
    Act act = coded({"a", "b", "c"});
    const auto before = act.shots;
    act.moveShotBefore(act.shots[2]->id, act.shots[0]->id);
    EXPECT_TRUE(act.shots[0].isSameAs(before[2]));
    EXPECT_TRUE(act.shots[1].isSameAs(before[0]));
    EXPECT_TRUE(act.shots[2].isSameAs(before[1]));
}

TEST(Act, CountsNoCancelledShotAndOnlyCompleteOnesAsCompleted) {
    Act act = coded({"a", "b", "c", "d"});
    EXPECT_EQ(act.activeCount(), 4);
    EXPECT_EQ(act.completedCount(), 0);
    const auto finish = [&act](std::size_t index) {
        Shot& shot = act.shots[index].edit();
        shot.newTake();
        shot.takes.back().edit().result = TakeResult::good;
    };
    finish(0);
    finish(1);
    act.shots[1].edit().cancelled = true;
    act.shots[2].edit().cancelled = true;
    act.shots[3].edit().newTake();
    EXPECT_EQ(act.activeCount(), 2);
    EXPECT_EQ(act.completedCount(), 1);
    EXPECT_EQ(Act().activeCount(), 0);
    EXPECT_EQ(Act().completedCount(), 0);
}

}  // namespace
}  // namespace vantry
