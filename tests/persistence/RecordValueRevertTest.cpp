#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "VantryCore/persistence/RecordValue.h"
#include "tests/support/RandomRecords.h"

namespace vantry {
namespace {

RecordValue value(std::string_view json) {
    return Codec::decode<RecordValue>(json);
}

std::string reverted(std::string_view before, std::string_view after, std::string_view current) {
    return Codec::encode(RecordValue::revert(value(before), value(after), value(current)));
}

/// A list of records that have nothing but their identifiers, one letter each.
std::string listOf(std::string_view letters) {
    std::string json = "[";
    for (const char letter : letters)
        json += std::string(json.size() > 1 ? "," : "") + R"({"id":")" + letter + R"("})";
    return json + "]";
}

std::string lettersOf(const RecordValue& list) {
    std::string letters;
    for (const auto& element : *list.array())
        letters += element.id()->utf8();
    return letters;
}

std::string revertedOrder(std::string_view before, std::string_view after, std::string_view current) {
    return lettersOf(
        RecordValue::revert(value(listOf(before)), value(listOf(after)), value(listOf(current))));
}

TEST(Revert, OfNoChangeIsTheCurrentStateWhateverItsShape) {
    for (const char* current : {"1", "null", R"({"b":2})", "[1,2]", R"("text")"})
        EXPECT_EQ(reverted(R"({"a":1})", R"({"a":1})", current), current);
}

TEST(Revert, OfNothingSinceIsTheStateBefore) {
    for (const char* before : {"1", "null", R"({"b":2})", "[1,2]", R"("text")"})
        EXPECT_EQ(reverted(before, R"({"a":1})", R"({"a":1})"), before);
    EXPECT_EQ(reverted(R"("a")", R"("b")", R"("b")"), R"("a")");
}

TEST(Revert, OfThreeTextsIsTheCurrentOne) {
    EXPECT_EQ(reverted(R"("a")", R"("b")", R"("c")"), R"("c")");
    EXPECT_EQ(reverted("1", "2", "3"), "3");
    EXPECT_EQ(reverted("1", "2", "\"2\""), "\"2\"");
}

TEST(Revert, OfMixedShapesIsTheCurrentState) {
    EXPECT_EQ(reverted(R"({"a":1})", "[1]", R"({"a":2})"), R"({"a":2})");
    EXPECT_EQ(reverted("[1]", "[2]", R"({"a":2})"), R"({"a":2})");
    EXPECT_EQ(reverted(R"({"a":1})", R"({"a":2})", "[3]"), "[3]");
}

TEST(Revert, KeepsTheSpellingOfTodayWhereNothingChanged) {
    // All three are equal texts in different bytes: the change did nothing, and today's stays.
    EXPECT_EQ(reverted("\"\u212B\"", "\"\u00C5\"", "\"A\u030A\""), "\"A\u030A\"");
    EXPECT_EQ(
        reverted("{\"a\":\"\u212B\",\"b\":1}", "{\"a\":\"\u00C5\",\"b\":2}", "{\"a\":\"A\u030A\",\"b\":3}"),
        "{\"a\":\"A\u030A\",\"b\":3}");
}

/// What becomes of the key "k" beside another key that is reverted as well.
struct KeyCase {
    const char* name;
    const char* before;
    const char* after;
    const char* current;
    const char* expected;
};

void PrintTo(const KeyCase& c, std::ostream* out) {
    *out << c.name;
}

class RevertedKey : public testing::TestWithParam<KeyCase> {};

TEST_P(RevertedKey, FollowsTheTable) {
    EXPECT_EQ(reverted(GetParam().before, GetParam().after, GetParam().current), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, RevertedKey,
    testing::Values(
        KeyCase{"AddedAndGone", R"({})", R"({"k":1})", R"({"l":0})", R"({"l":0})"},
        KeyCase{"AddedAndLeftAlone", R"({})", R"({"k":1})", R"({"k":1,"l":0})", R"({"l":0})"},
        KeyCase{"AddedAndEdited", R"({})", R"({"k":1})", R"({"k":2,"l":0})", R"({"k":2,"l":0})"},
        KeyCase{"Removed", R"({"k":1})", R"({})", R"({"l":0})", R"({"k":1,"l":0})"},
        KeyCase{"RemovedAndMadeAgain", R"({"k":1})", R"({})", R"({"k":2,"l":0})", R"({"k":2,"l":0})"},
        KeyCase{"ChangedAndRemovedLater", R"({"k":1})", R"({"k":2})", R"({"l":0})", R"({"l":0})"},
        KeyCase{"ChangedAndLeftAlone", R"({"k":1})", R"({"k":2})", R"({"k":2,"l":0})", R"({"k":1,"l":0})"},
        KeyCase{"ChangedAndEdited", R"({"k":1})", R"({"k":2})", R"({"k":3,"l":0})", R"({"k":3,"l":0})"},
        KeyCase{"ChangedInside", R"({"k":{"a":1,"b":1}})", R"({"k":{"a":2,"b":1}})", R"({"k":{"a":2,"b":5}})",
                R"({"k":{"a":1,"b":5}})"},
        KeyCase{"NullIsNotMissing", R"({"k":null})", R"({"k":1})", R"({"k":1,"l":0})",
                R"({"k":null,"l":0})"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(RevertedObject, NeverLosesAKeyThatOnlyTodayHas) {
    EXPECT_EQ(reverted(R"({"a":1})", R"({"a":2})", R"({"a":2,"only":[1]})"), R"({"a":1,"only":[1]})");
    EXPECT_EQ(reverted(R"({"a":1})", R"({})", R"({"only":[1]})"), R"({"a":1,"only":[1]})");
    EXPECT_EQ(reverted(R"({})", R"({"a":2})", R"({"a":2,"only":[1]})"), R"({"only":[1]})");
}

TEST(RevertedObject, FindsKeysHoweverTheyAreSpelled) {
    EXPECT_EQ(reverted("{\"\u00E9\":1}", "{\"e\u0301\":2}", "{\"\u00E9\":2,\"x\":0}"),
              "{\"x\":0,\"\u00E9\":1}");
}

TEST(RevertedList, LosesWhatTheChangeAddedAndKeepsWhatCameLater) {
    EXPECT_EQ(revertedOrder("AB", "AXB", "AXYB"), "AYB");
}

TEST(RevertedList, PutsARemovedRecordBehindItsOldNeighbour) {
    EXPECT_EQ(revertedOrder("ABC", "AC", "ADC"), "ABDC");
}

TEST(RevertedList, RestoresTheOldOrderAroundALaterRecord) {
    EXPECT_EQ(revertedOrder("ABC", "CBA", "CNBA"), "ANBC");
}

TEST(RevertedList, PutsARemovedFirstRecordInFrontOfEverything) {
    EXPECT_EQ(revertedOrder("AB", "B", "XYB"), "AXYB");
}

TEST(RevertedList, WithoutIdentifiersThatBothChangedStaysAsItIs) {
    EXPECT_EQ(reverted(R"([{"n":1}])", R"([{"n":2}])", R"([{"n":2},{"n":3}])"), R"([{"n":2},{"n":3}])");
    EXPECT_EQ(reverted(R"(["a"])", R"(["a","b"])", R"(["a","b","c"])"), R"(["a","b","c"])");
    // One element without, in any of the three, is enough; so is an identifier that is no text.
    EXPECT_EQ(reverted(R"([{"id":"A"},{"n":1}])", listOf("A"), listOf("AX")), listOf("AX"));
    EXPECT_EQ(reverted(listOf("A"), R"([{"id":"A"},{"id":1}])", listOf("AX")), listOf("AX"));
    EXPECT_EQ(reverted(listOf("AB"), listOf("A"), R"([{"id":"A"},null])"), R"([{"id":"A"},null])");
}

TEST(RevertedList, WithARepeatedIdentifierStaysAsItIs) {
    EXPECT_EQ(revertedOrder("AAB", "B", "BX"), "BX");
    EXPECT_EQ(revertedOrder("AB", "BB", "BX"), "BX");
    EXPECT_EQ(revertedOrder("AB", "B", "BXX"), "BXX");
    // Equivalent identifiers are one.
    EXPECT_EQ(reverted("[{\"id\":\"\u00E9\"},{\"id\":\"e\u0301\"}]", "[]", listOf("X")), listOf("X"));
}

TEST(RevertedList, DoesNotBringBackWhatWasDeletedLater) {
    EXPECT_EQ(revertedOrder("AB", "ABX", "AX"), "A");
    EXPECT_EQ(revertedOrder("A", "AX", ""), "");
}

TEST(RevertedList, BringsARunOfNeighboursBackInOrder) {
    EXPECT_EQ(revertedOrder("ABCDE", "AE", "AXE"), "ABCDXE");
    EXPECT_EQ(revertedOrder("ABC", "", "XY"), "ABCXY");
    EXPECT_EQ(revertedOrder("ABCDE", "BD", "DXB"), "ADEXBC");
}

TEST(RevertedList, SkipsNeighboursThatWereDeletedLater) {
    EXPECT_EQ(revertedOrder("ABC", "AB", "AX"), "ACX");
    EXPECT_EQ(revertedOrder("ABC", "AB", "X"), "CX");
}

TEST(RevertedList, DoesNotDoubleWhatCameBackByItself) {
    EXPECT_EQ(revertedOrder("ABC", "AC", "ACBX"), "ACBX");
}

TEST(RevertedList, KeepsALaterOrderWhenTheChangeMovedNothing) {
    EXPECT_EQ(revertedOrder("ABC", "ABXC", "CXBA"), "CBA");
}

TEST(RevertedList, RestoresTheOrderOfReturnedRecordsToo) {
    EXPECT_EQ(revertedOrder("ABCD", "CA", "CNA"), "ABNCD");
}

TEST(RevertedList, EmptyListsAreListsOfRecords) {
    EXPECT_EQ(revertedOrder("", "A", "AB"), "B");
    EXPECT_EQ(revertedOrder("A", "", "B"), "AB");
}

TEST(RevertedList, RevertsInsideTheRecordsThatStayed) {
    EXPECT_EQ(reverted(R"([{"id":"A","n":1,"t":"x"}])", R"([{"id":"A","n":2,"t":"x"},{"id":"B"}])",
                       R"([{"id":"B"},{"id":"A","n":2,"t":"y"}])"),
              R"([{"id":"A","n":1,"t":"y"}])");
}

/// Values of few kinds, so that three of them often meet in shape.
RecordValue anyValue(support::RandomRecords& random, int depth) {
    const char* keys[] = {"id", "a", "\u00E9", "e\u0301", "b"};
    const char* texts[] = {"A", "B", "C", "D", "E"};
    switch (depth > 0 ? random.number(0, 6) : random.number(3, 6)) {
    case 0:
    case 1: {
        RecordValue::Array list;
        const bool records = random.chance(0.8);
        for (auto left = random.number(0, 5); left > 0; --left) {
            RecordValue item = anyValue(random, depth - 1);
            if (records) {
                RecordValue::Object object;
                object.emplace("id", RecordValue(Text(random.oneOf(texts))));
                object.emplace("a", std::move(item));
                item = RecordValue(std::move(object));
            }
            list.push_back(std::move(item));
        }
        return RecordValue(std::move(list));
    }
    case 2: {
        RecordValue::Object object;
        for (auto left = random.number(0, 4); left > 0; --left)
            object.insert_or_assign(random.oneOf(keys), anyValue(random, depth - 1));
        return RecordValue(std::move(object));
    }
    case 3:
        return RecordValue(Text(random.oneOf(texts)));
    case 4:
        return RecordValue(random.number(0, 1));
    case 5:
        return RecordValue(static_cast<double>(random.number(0, 1)));
    default:
        return {};
    }
}

TEST(Revert, KeepsItsLawsForAnyThreeValues) {
    support::RandomRecords random(1);
    for (int round = 0; round < 30000; ++round) {
        const RecordValue before = anyValue(random, 4);
        const RecordValue after = anyValue(random, 4);
        const RecordValue current = anyValue(random, 4);
        ASSERT_EQ(Codec::encode(RecordValue::revert(before, before, current)), Codec::encode(current));
        if (!(before == after)) {
            ASSERT_EQ(Codec::encode(RecordValue::revert(before, after, after)), Codec::encode(before));
        }
        (void)RecordValue::revert(before, after, current);
    }
}

}  // namespace
}  // namespace vantry
