#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "VantryCore/records/Zone.h"
#include "conformance/MachineZone.h"
#include "conformance/Run.h"

namespace vantry::conformance {
namespace {

using testing::HasSubstr;

/// What a run of the cases in those lines printed and counted.
struct RunResult {
    std::string printed;
    Report report;
};

RunResult runLines(const std::string& text) {
    std::istringstream lines(text);
    std::ostringstream out;
    RunResult result;
    run(readCases(lines), result.report, out);
    printSummary(result.report, out);
    result.printed = out.str();
    return result;
}

TEST(RunTest, aCaseThatHoldsIsCountedAndNotPrinted) {
    const auto result = runLines(R"({"name":"n","op":"parameters.summary",)"
                                 R"("in":{"parameters":{"values":{"iso":"800"}}},"out":{"text":"ISO 800"}})");
    EXPECT_EQ(result.printed, "parameters.summary 1/0/0\n1 passed, 0 failed, 0 skipped\n");
}

TEST(RunTest, anotherOutputIsPrintedWithBothAndThePlace) {
    const auto result = runLines(R"({"name":"n","op":"parameters.summary",)"
                                 R"("in":{"parameters":{"values":{"iso":"800"}}},"out":{"text":"800"}})");
    EXPECT_EQ(result.printed, "FAILED n\n"
                              "  expected {\"text\":\"800\"}\n"
                              "  got      {\"text\":\"ISO 800\"}\n"
                              "  differs at /text\n"
                              "parameters.summary 0/1/0\n"
                              "0 passed, 1 failed, 0 skipped\n");
}

TEST(RunTest, anOutputInPlaceOfAFailureFails) {
    const auto result = runLines(R"({"name":"n","op":"codec.roundtrip",)"
                                 R"("in":{"type":"Point","text":"{\"x\":0,\"y\":1}"},"error":"decode"})");
    EXPECT_THAT(result.printed, HasSubstr("  expected failure \"decode\"\n  got      {\"text\":"));
    EXPECT_EQ(result.report.at("codec.roundtrip").failed, 1);
}

TEST(RunTest, aFailureInPlaceOfAnOutputFails) {
    const auto result = runLines(R"({"name":"n","op":"codec.roundtrip",)"
                                 R"("in":{"type":"Point","text":"{}"},"out":{"text":"{}"}})");
    EXPECT_THAT(result.printed, HasSubstr("got      failure \"decode\" (missing key \"x\")"));
    EXPECT_EQ(result.report.at("codec.roundtrip").failed, 1);
}

TEST(RunTest, anotherFailureThanTheExpectedOneFails) {
    const auto result = runLines(
        R"({"name":"n","op":"library.validate","in":{"library":"{\"format\":\"x\",\"projects\":[],\"version\":1}"},)"
        R"("error":"decode"})");
    EXPECT_THAT(result.printed, HasSubstr("got      failure \"invalidBackup\""));
}

TEST(RunTest, aCaseWithUnusableArgumentsFails) {
    const auto result = runLines(R"({"name":"n","op":"crew.title","in":{},"out":{"title":"Grip"}})");
    EXPECT_THAT(result.printed, HasSubstr("got      failure \"unexpected\""));
    EXPECT_EQ(result.report.at("crew.title").failed, 1);
}

TEST(RunTest, anUnsupportedOperationIsCountedAsSkipped) {
    const auto result = runLines(R"({"name":"n","op":"no.such","in":{},"out":{}})");
    EXPECT_EQ(result.printed, "no.such 0/0/1\n0 passed, 0 failed, 1 skipped\n");
}

TEST(RunTest, theMachineStandsInTheZoneOfTheCaseAndThenWhereItWas) {
    const std::string before = Zone::machine().identifier();
    {
        const MachineZone zone("Pacific/Auckland");
        EXPECT_EQ(Zone::machine().identifier(), "Pacific/Auckland");
    }
    EXPECT_EQ(Zone::machine().identifier(), before);
}

}  // namespace
}  // namespace vantry::conformance
