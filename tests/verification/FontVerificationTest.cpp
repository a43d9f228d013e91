#include <gtest/gtest.h>

#include <QString>

#include "tests/verification/Failing.h"

namespace vantry::test {
namespace {

TEST(FontVerificationTest, TheFourFacesOfTheBundlePass) {
    testing::internal::CaptureStdout();
    const std::string failure = failureOf([] { FontVerification::run(); });
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(failure, "");
    EXPECT_NE(printed.find("PASS: bundled Inter Regular / Medium / SemiBold / Bold available\n"),
              std::string::npos);
}

TEST(FontVerificationTest, AFaceThatTheSystemDoesNotGiveFails) {
    const QString fonts = QStringLiteral(":/fonts/");
    // Neither a family that nobody has nor a weight that was not brought along; the system gives others
    // instead.
    for (const char* name : {"Vantryless-Bold", "Inter-Black", "Inter"})
        EXPECT_EQ(failureOf([&] { FontVerification::verifyFace(name, fonts); }),
                  std::string("Inter font failed to load: ") + name);
}

TEST(FontVerificationTest, AFaceThatIsNotInTheBundleFails) {
    EXPECT_EQ(failureOf([] { FontVerification::verifyFace("Inter-Medium", QStringLiteral(":/nowhere/")); }),
              "Missing bundled font: Inter-Medium");
}

}  // namespace
}  // namespace vantry::test
