#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/JsonText.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

const std::string emptyLibrary = R"({"format":"Vantry","projects":[],"version":1})";

template <class T = Library>
std::string failureOf(std::string_view json) {
    try {
        (void)Codec::decode<T>(json);
    } catch (const DecodingError& failure) {
        return failure.what();
    }
    return "";
}

std::string libraryWith(const std::string& unknown) {
    return R"({"format":"Vantry","projects":[],"unknown":)" + unknown + R"(,"version":1})";
}

TEST(Reading, RefusesWhatIsNoJSON) {
    const std::string refused[] = {
        "",
        " ",
        "   \n",
        "invalid JSON",
        "{",
        "}",
        "[]",
        "5",
        "true",
        "null",
        "\"Vantry\"",
        "{}",
        "{format:\"Vantry\",projects:[],version:1}",
        R"({"format" "Vantry","projects":[],"version":1})",
        R"({"format":"Vantry","projects":[],"version":1,})",
        R"({"format":"Vantry","projects":[,],"version":1})",
        R"({"format":"Vantry","projects":[],"version":1)",
        R"({"format":"Vantry","projects":[]],"version":1})",
        R"({"format":"Vantry";"projects":[],"version":1})",
        R"({,"format":"Vantry","projects":[],"version":1})",
        R"({"format":"Vantry","projects":[],"version":True})",
        R"({"format":"Vantry","projects":[],"version":tru})",
        "/* note */" + emptyLibrary,
        emptyLibrary + "// note",
        std::string(1, '\0'),
        std::string(1000, '\0'),
        std::string(1000, '['),
        std::string(100'000, '{'),
        emptyLibrary.substr(1),
    };
    for (const auto& json : refused)
        EXPECT_NE(failureOf(json), "") << json.substr(0, 80);
}

TEST(Reading, RefusesBytesBehindTheValue) {
    for (const std::string behind :
         {" x", "x", "{}", ",", "]", "}", "5", "\"\"", "\xFF", "\v", "\u00A0", "\uFEFF"})
        EXPECT_NE(failureOf(emptyLibrary + behind), "") << behind;
    EXPECT_NE(failureOf(emptyLibrary + std::string(1, '\0')), "");
    EXPECT_NE(failureOf(emptyLibrary + std::string(4096, '\0')), "");
    EXPECT_NE(failureOf(emptyLibrary + emptyLibrary), "");
}

TEST(Reading, AllowsTheBlanksOfJSONAnywhereBetweenTokens) {
    EXPECT_EQ(failureOf(" \n\r\t" + emptyLibrary + " \n\r\t"), "");
    EXPECT_EQ(failureOf("{ \"format\" :\t\"Vantry\" ,\n\"projects\" : [ \n ] ,\r\n\"version\" : 1 }\n"), "");
}

TEST(Reading, TakesAByteOrderMarkForNoPartOfTheText) {
    // RFC 8259, section 8.1: a reader may refuse it. Ours does, and so never replaces such a file.
    EXPECT_NE(failureOf("\xEF\xBB\xBF" + emptyLibrary), "");
    EXPECT_NE(failureOf("\xFF\xFE{\0}\0"), "");
}

TEST(Reading, AllowsNestingOfSixtyFourAndNoMore) {
    // The library itself is one level. The innermost brackets stand around `inside`.
    const auto arrays = [](std::size_t depth, const std::string& inside) {
        return libraryWith(std::string(depth - 1, '[') + inside + std::string(depth - 1, ']'));
    };
    const auto objects = [](std::size_t depth, const std::string& inside) {
        std::string json = "{";
        for (std::size_t i = 2; i < depth; ++i)
            json += "\"a\":{";
        return libraryWith(json + inside + std::string(depth - 1, '}'));
    };
    EXPECT_EQ(failureOf(arrays(deepestNesting - 1, "1")), "");
    EXPECT_EQ(failureOf(arrays(deepestNesting, "")), "");
    EXPECT_NE(failureOf(arrays(deepestNesting + 1, "1")), "");
    EXPECT_NE(failureOf(arrays(100'000, "")), "");
    EXPECT_EQ(failureOf(objects(deepestNesting - 1, "\"a\":1")), "");
    EXPECT_EQ(failureOf(objects(deepestNesting, "")), "");
    EXPECT_NE(failureOf(objects(deepestNesting + 1, "\"a\":1")), "");
    EXPECT_NE(failureOf(objects(100'000, "")), "");
    EXPECT_EQ(deepestNesting, 64U);
}

TEST(Reading, RefusesByteEqualKeysInPartsThatNoRecordKnows) {
    for (const std::string unknown : {R"({"a":1,"a":1})", R"([{"b":{"a":1,"a":2}}])",
                                      R"({"a":1,"b":2,"\u0061":3})", R"([[[{"":1,"":2}]]])"})
        EXPECT_NE(failureOf(libraryWith(unknown)).find("stands twice"), std::string::npos) << unknown;
    EXPECT_NE(failureOf(R"({"format":"Vantry","x":1,"projects":[],"x":2,"version":1})"), "");
    EXPECT_NE(failureOf(R"({"format":"Vantry","x":1,"projects":[],"y":3,"\u0078":2,"version":1})"), "");
    EXPECT_EQ(failureOf(libraryWith(R"({"a":{"a":1},"b":[{"a":1},{"a":1}]})")), "");
    EXPECT_EQ(failureOf(libraryWith("{\"caf\u00E9\":1,\"cafe\u0301\":2}")), "");
}

TEST(Reading, RefusesARepeatedKeyHoweverItIsWritten) {
    EXPECT_EQ(failureOf(R"({"format":"Vantry","projects":[],"version":1,"version":1})"),
              "the key \"version\" stands twice");
    EXPECT_EQ(failureOf(R"({"format":"Vantry","projects":[],"version":1,"\u0076ersion":1})"),
              "the key \"version\" stands twice");
    EXPECT_NE(
        failureOf<Act>(R"({"conflictKey":null,"conflictKey":"x","id":"00000000-0000-0000-0000-000000000000",)"
                       R"("shots":[],"title":""})"),
        "");
}

TEST(Reading, ReadsKeysThatAreWrittenWithEscapes) {
    EXPECT_EQ(failureOf(R"({"\u0066ormat":"Vantry","p\u0072ojects":[],"versio\u006E":1})"), "");
}

TEST(Reading, TellsKeysApartByTheirBytesAlone) {
    // "Kelvin version": the kelvin sign equals K canonically, but a record's keys are exact.
    EXPECT_NE(failureOf<CastMember>(
                  "{\"Actor\":\"\",\"character\":\"\",\"id\":\"00000000-0000-0000-0000-000000000000\"}"),
              "");
    EXPECT_NE(failureOf<CastMember>(
                  "{\"actor \":\"\",\"character\":\"\",\"id\":\"00000000-0000-0000-0000-000000000000\"}"),
              "");
}

TEST(Reading, DoesNotLookAtLimitsOfValues) {
    auto take = support::completeRecord<VantryTake>();
    take.stars = 99;
    take.number = -3;
    auto shot = support::completeRecord<Shot>();
    shot.durationMinutes = 0;
    shot.strokes = {Stroke{{}, {{7, -7}}}};
    shot.imageKey = "no key";
    shot.takes = {take};
    EXPECT_TRUE(Codec::decode<Shot>(Codec::encode(shot)) == shot);
    EXPECT_EQ(failureOf(R"({"format":"Other","projects":[],"version":99})"), "");
}

TEST(Reading, RefusesOneBadRecordWithTheWholeFile) {
    const std::string json = Codec::encode(support::sampleLibrary());
    const std::size_t last = json.rfind("\"stars\":");
    std::string broken = json;
    broken.replace(last, 8, "\"stars\":\"\",\"x\":");
    EXPECT_NE(failureOf(broken), "");
    EXPECT_EQ(failureOf(json), "");
}

}  // namespace
}  // namespace vantry
