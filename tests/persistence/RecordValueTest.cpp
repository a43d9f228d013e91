#include <limits>
#include <stdexcept>

#include <gtest/gtest.h>

#include "VantryCore/persistence/RecordValue.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/RecordTypes.h"

namespace vantry {
namespace {

RecordValue value(std::string_view json) {
    return Codec::decode<RecordValue>(json);
}

/// The number of the alternative that a JSON text becomes.
std::size_t kindOf(std::string_view json) {
    return value(json).content().index();
}

template <class T>
std::size_t kind() {
    return RecordValue(T{}).content().index();
}

TEST(RecordValue, TakesTheFirstKindThatFits) {
    EXPECT_EQ(kindOf("null"), kind<RecordValue::Null>());
    EXPECT_EQ(kindOf("true"), kind<bool>());
    EXPECT_EQ(kindOf("false"), kind<bool>());
    EXPECT_EQ(kindOf("\"true\""), kind<Text>());
    EXPECT_EQ(kindOf("{}"), kind<RecordValue::Object>());
    EXPECT_EQ(kindOf("[]"), kind<RecordValue::Array>());
    for (const char* integer : {"0", "-0", "1", "1.0", "1e2", "-1", "9223372036854775807",
                                "-9223372036854775808", "-9.223372036854775808e18"})
        EXPECT_EQ(kindOf(integer), kind<std::int64_t>()) << integer;
    for (const char* number :
         {"0.5", "1e-5", "9223372036854775808", "18446744073709551615", "1e300", "-9.3e18"})
        EXPECT_EQ(kindOf(number), kind<double>()) << number;
}

TEST(RecordValue, KeepsEveryIntegerToTheLastDigit) {
    for (const char* integer : {"9007199254740993", "9223372036854775807", "-9223372036854775808"})
        EXPECT_EQ(Codec::encode(value(integer)), integer);
}

TEST(RecordValue, OfAnotherKindIsAnotherValue) {
    const RecordValue values[] = {RecordValue(std::int64_t{1}),
                                  RecordValue(1.0),
                                  RecordValue(Text("1")),
                                  RecordValue(true),
                                  RecordValue(),
                                  RecordValue(RecordValue::Array{}),
                                  RecordValue(RecordValue::Object{})};
    for (std::size_t i = 0; i < std::size(values); ++i)
        for (std::size_t j = 0; j < std::size(values); ++j)
            EXPECT_EQ(values[i] == values[j], i == j) << i << " and " << j;
}

TEST(RecordValue, TakesEquivalentTextsAndKeysForEqual) {
    EXPECT_TRUE(value("\"\u00E9\"") == value("\"e\u0301\""));
    EXPECT_TRUE(value("{\"\u00E9\":1}") == value("{\"e\u0301\":1}"));
    EXPECT_FALSE(value("\"\u00E9\"") == value("\"e\""));
}

TEST(RecordValue, ComparesObjectsByKeyAndListsByOrder) {
    EXPECT_TRUE(value(R"({"a":1,"b":[1,2]})") == value(R"({"b":[1,2],"a":1})"));
    EXPECT_FALSE(value(R"({"a":1})") == value(R"({"a":1,"b":null})"));
    EXPECT_FALSE(value("[1,2]") == value("[2,1]"));
    EXPECT_FALSE(value("[1,2]") == value("[1,2,3]"));
}

TEST(RecordValue, WritesSortedKeysAsTheyAreSpelled) {
    EXPECT_EQ(Codec::encode(value("{\"z\":null,\"\u00E9\":true,\"e\u0301b\":0.5,\"a\":\"/\"}")),
              "{\"a\":\"\\/\",\"e\u0301b\":0.5,\"z\":null,\"\u00E9\":true}");
}

TEST(RecordValue, OfEquivalentKeysKeepsTheLast) {
    EXPECT_EQ(Codec::encode(value("{\"\u00E9\":1,\"a\":0,\"e\u0301\":2}")), "{\"a\":0,\"e\u0301\":2}");
}

TEST(RecordValue, RefusesWhatNoReaderOfRecordsTakes) {
    for (const char* json :
         {"", "{", "[1,]", "{\"a\":1,\"a\":1}", "{\"a\":{\"b\":1,\"b\":2}}", "1 2", "1e400", "\"\\ud800\"",
          "\"\xff\"", "nul", "01", "{\"\u00E9\":1,\"e\u0301\":2,\"\u00E9\":3}"})
        EXPECT_THROW((void)value(json), DecodingError) << json;
    const auto nested = [](std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
    EXPECT_NO_THROW((void)value(nested(deepestNesting)));
    EXPECT_THROW((void)value(nested(deepestNesting + 1)), DecodingError);
    EXPECT_THROW((void)value(nested(1'000'000)), DecodingError);
}

TEST(RecordValue, HasNoFormForANumberThatIsNotFinite) {
    EXPECT_THROW((void)Codec::encode(RecordValue(std::numeric_limits<double>::quiet_NaN())),
                 std::domain_error);
    EXPECT_THROW((void)Codec::encode(RecordValue(std::numeric_limits<double>::infinity())),
                 std::domain_error);
}

TEST(RecordValue, LosesNothingOfAnyRecord) {
    for (const auto& type : support::recordTypes())
        for (std::uint64_t seed = 0; seed < 200; ++seed) {
            const std::string form = type.randomForm(seed);
            // Once more through the record: a whole number beyond 1e15 has another form as an integer.
            ASSERT_EQ(type.rewritten(Codec::encode(value(form))), form) << type.name << " " << seed;
        }
}

TEST(RecordValueID, IsTheTextUnderItsKeyAndNothingElse) {
    const RecordValue record = value(R"({"a":1,"id":"x"})");
    ASSERT_NE(record.id(), nullptr);
    EXPECT_EQ(record.id()->utf8(), "x");
    for (const char* json : {"{}", R"({"a":1})", R"({"id":1})", R"({"id":null})", R"({"id":["x"]})",
                             R"(["id","x"])", R"("id")", "null"})
        EXPECT_EQ(value(json).id(), nullptr) << json;
}

TEST(RecordValueWithoutIdentity, DropsTheThreeKeysAtEveryDepth) {
    EXPECT_EQ(
        Codec::encode(
            value(R"({"id":1,"conflictKey":{"a":1},"sourceID":"s","x":{"id":2,"y":0}})").withoutIdentity()),
        R"({"x":{"y":0}})");
}

TEST(RecordValueWithoutIdentity, ReachesIntoListsOfLists) {
    EXPECT_EQ(Codec::encode(value(R"([{"id":"a","n":1},[{"n":2,"id":"b"},3]])").withoutIdentity()),
              R"([{"n":1},[{"n":2},3]])");
}

TEST(RecordValueWithoutIdentity, KeepsATextThatReadsLikeAKey) {
    const char* json = R"({"other":["conflictKey"],"title":"id"})";
    EXPECT_EQ(Codec::encode(value(json).withoutIdentity()), json);
}

TEST(RecordValueWithoutIdentity, TakesAnEquivalentKeyForTheSame) {
    // The Kelvin sign is a letter K.
    EXPECT_EQ(Codec::encode(value("{\"conflict\u212Aey\":1,\"ID\":2}").withoutIdentity()), "{\"ID\":2}");
}

TEST(RecordValueWithoutIdentity, LeavesEveryOtherCaseAlone) {
    for (const char* json :
         {"null", "true", "1", "0.5", "\"id\"", "[]", "{}", R"({"createdAt":1,"number":2})"})
        EXPECT_EQ(Codec::encode(value(json).withoutIdentity()), json);
}

}  // namespace
}  // namespace vantry
