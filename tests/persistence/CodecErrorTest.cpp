#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/JsonText.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

std::string failureOf(const std::string& json) {
    try {
        (void)Codec::decode<Library>(json);
    } catch (const DecodingError& failure) {
        return failure.what();
    }
    return "";
}

/// The sample with the text under the first `from` behind `anchor` replaced.
std::string changed(std::string json, std::string_view anchor, std::string_view from, std::string_view to) {
    const std::size_t start = json.find(anchor);
    const std::size_t at = json.find(from, start);
    EXPECT_NE(at, std::string::npos);
    return json.replace(at, from.size(), to);
}

TEST(DecodingErrors, SayWhereAndWhat) {
    const std::string json = Codec::encode(support::completeLibrary());
    struct Case {
        const char *from, *to, *message;
    };
    const Case cases[] = {
        {"\"soundDescription\":\"rain\",", "",
         "projects[0].acts[0].shots[0]: missing key \"soundDescription\""},
        {"\"stars\":4", "\"stars\":\"4\"",
         "projects[0].acts[0].shots[0].takes[0].stars: expected an integer, found a text"},
        {"\"stars\":4", "\"stars\":4.5",
         "projects[0].acts[0].shots[0].takes[0].stars: expected an integer, found a fraction"},
        {"\"stars\":4", "\"stars\":null",
         "projects[0].acts[0].shots[0].takes[0].stars: expected an integer, found null"},
        {"\"result\":\"good\"", "\"result\":\"fine\"",
         "projects[0].acts[0].shots[0].takes[0].result: \"fine\" is not one of the known texts"},
        {"\"cancelled\":true", "\"cancelled\":1",
         "projects[0].acts[0].shots[0].cancelled: expected a truth value, found a number"},
        {"\"iso\":\"800\"", "\"iso\":800",
         "projects[0].acts[0].shots[0].takes[0].parameters.values.iso: expected a text, found a number"},
        {"{\"x\":1,\"y\":0}", "{\"x\":1}",
         "projects[0].acts[0].shots[0].strokes[0].points[1]: missing key \"y\""},
        {"{\"x\":1,\"y\":0}", "[1,0]",
         "projects[0].acts[0].shots[0].strokes[0].points[1]: expected an object, found a list"},
        {"\"bookmark\":\"", "\"bookmark\":\"!",
         "projects[0].relatedFileRecords[0].bookmark: the text is not Base64"},
        {"\"generalCall\":\"08:05\"", "\"generalCall\":[]",
         "projects[0].callSheetRecords[0].fields.generalCall: expected a text, found a list"},
        {"\"isCast\":true,", "", "projects[0].callSheetRecords[0].people[0]: missing key \"isCast\""},
        {"\"role\":\"custom\"", "\"role\":\"director\"",
         "projects[0].crewMembers[0].role: \"director\" is not one of the known texts"},
        {"\"actor\":\"Ana\",", "", "projects[0].castMembers[0]: missing key \"actor\""},
        {"\"format\":\"Vantry\",", "", "missing key \"format\""},
        {"\"format\":\"Vantry\"", "\"format\":{}", "format: expected a text, found an object"},
        {"\"createdAt\":700000000,", "\"createdAt\":false,",
         "projects[0].createdAt: expected a number, found a truth value"},
        {"\"title\":\"One\"", "\"title\":\"One\",\"title\":\"Two\"",
         "projects[0].acts[0]: the key \"title\" stands twice"},
        {"\"title\":\"One\"", "\"title\":\"One\",\"own\":{\"a\":[{\"b\":1,\"b\":2}]}",
         "projects[0].acts[0].own.a[0]: the key \"b\" stands twice"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(failureOf(changed(json, "", c.from, c.to)), c.message);
}

TEST(DecodingErrors, CountRecordsFromZero) {
    Library library;
    for (int i = 0; i < 4; ++i)
        library.projects.emplace_back(support::completeLibrary().projects[0]);
    Act& act = library.projects[3].edit().acts[0].edit();
    act.shots.assign(13, Shot::make("", "", {}));
    const std::string json = Codec::encode(library);
    std::string broken = json;
    const std::size_t last = broken.rfind("\"soundDescription\":\"\",");
    broken.erase(last, std::string("\"soundDescription\":\"\",").size());
    EXPECT_EQ(failureOf(broken), "projects[3].acts[0].shots[12]: missing key \"soundDescription\"");
}

TEST(DecodingErrors, SpeakOfTheWholeWithoutAPlace) {
    EXPECT_EQ(failureOf("5"), "expected an object, found a number");
    EXPECT_EQ(failureOf("[]"), "expected an object, found a list");
    EXPECT_TRUE(failureOf("invalid JSON").starts_with("not valid JSON")) << failureOf("invalid JSON");
    EXPECT_TRUE(failureOf("").starts_with("not valid JSON")) << failureOf("");
}

}  // namespace
}  // namespace vantry
