#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "conformance/Case.h"

namespace vantry::conformance {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(CaseTest, readsOneCaseALine) {
    std::istringstream lines(R"({"name":"a","op":"x.y","in":{"z":1},"out":{"w":2}})"
                             "\n\n"
                             R"({"name":"b","op":"x.y","in":{},"error":"decode"})");
    const auto cases = readCases(lines);
    ASSERT_EQ(cases.size(), 2U);
    EXPECT_EQ(cases[0].name, "a");
    EXPECT_EQ(cases[0].operation, "x.y");
    EXPECT_EQ(cases[0].in, Json({{"z", 1}}));
    EXPECT_EQ(cases[0].expected, Json({{"w", 2}}));
    EXPECT_EQ(cases[0].failure, "");
    EXPECT_EQ(cases[1].failure, "decode");
}

TEST(CaseTest, tellsTheLineThatIsNoCase) {
    for (const std::string line : {"{", "[]", "{\"name\":\"a\"}", R"({"name":"a","op":"x.y","in":{}})"}) {
        std::istringstream lines("\n" + line);
        try {
            static_cast<void>(readCases(lines));
            ADD_FAILURE() << "read " << line;
        } catch (const UnreadableCase& failure) {
            EXPECT_THAT(failure.what(), testing::StartsWith("line 2: "));
        }
    }
}

TEST(CaseTest, numbersAreComparedByValue) {
    EXPECT_THAT(differences({{"a", 300}}, {{"a", 300.0}}), IsEmpty());
    EXPECT_THAT(differences({{"a", 300.5}}, {{"a", 300}}), ElementsAre("/a"));
}

TEST(CaseTest, textsAreComparedByBytes) {
    EXPECT_THAT(differences({{"a", "\u00e9"}}, {{"a", "e\u0301"}}), ElementsAre("/a"));
}

TEST(CaseTest, valuesOfDifferentTypesDiffer) {
    EXPECT_THAT(differences({{"a", 1}}, {{"a", "1"}}), ElementsAre("/a"));
    EXPECT_THAT(differences({{"a", nullptr}}, {{"a", false}}), ElementsAre("/a"));
    EXPECT_THAT(differences({{"a", Json::array()}}, {{"a", Json::object()}}), ElementsAre("/a"));
}

TEST(CaseTest, aFieldLeftOutAtTheTopIsNotCompared) {
    EXPECT_THAT(differences({{"a", 1}}, {{"a", 1}, {"b", 2}}), IsEmpty());
}

TEST(CaseTest, aFieldLeftOutDeeperDiffers) {
    const Json less{{"a", {{"b", 1}}}};
    const Json more{{"a", {{"b", 1}, {"c/d", 2}}}};
    EXPECT_THAT(differences(less, more), ElementsAre("/a/c~1d"));
    EXPECT_THAT(differences(more, less), ElementsAre("/a/c~1d"));
}

TEST(CaseTest, anExpectedFieldThatIsMissingDiffers) {
    EXPECT_THAT(differences({{"a", nullptr}}, Json::object()), ElementsAre("/a"));
}

TEST(CaseTest, listsDifferItemByItemAndInLength) {
    EXPECT_THAT(differences({{"a", {1, 2, 3}}}, {{"a", {1, 5, 3, 4}}}), ElementsAre("/a/1", "/a/3"));
}

}  // namespace
}  // namespace vantry::conformance
