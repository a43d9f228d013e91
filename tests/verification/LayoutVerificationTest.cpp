#include <gtest/gtest.h>

#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>

#include "Vantry/interface/design/PageHeading.h"
#include "tests/verification/Failing.h"

namespace vantry::test {
namespace {

TEST(LayoutVerificationTest, LongHeadingsStayWithinTheirLines) {
    testing::internal::CaptureStdout();
    const std::string failure = failureOf([] { LayoutVerification::run(); });
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(failure, "");
    EXPECT_NE(printed.find("PASS: long fixed headings and sheets within presenting window\n"),
              std::string::npos);
    EXPECT_NE(printed.find("NOTE: "), std::string::npos);
    EXPECT_NE(printed.find("SKIPPED: "), std::string::npos);
}

TEST(LayoutVerificationTest, AHeadingWithoutALimitIsMeasuredHigherThanAllowed) {
    PageHeading heading({});
    heading.setTexts({}, QStringLiteral("超长镜头标题 Long shot title · ").repeated(50));
    const int height = LayoutVerification::fittingHeight(heading, 430);
    EXPECT_EQ(failureOf([&] { LayoutVerification::demandHeading(height); }),
              "Long fixed heading consumed the editing viewport: " + std::to_string(height));
}

TEST(LayoutVerificationTest, AViewIsMeasuredAsHighAsItIsShown) {
    QWidget host;
    QWidget view(&host);
    auto* layout = new QVBoxLayout(&view);
    layout->setContentsMargins(3, 5, 3, 7);
    auto* label = new QLabel(QStringLiteral("many words that have to be wrapped ").repeated(20), &view);
    label->setWordWrap(true);
    layout->addWidget(label);
    const int height = LayoutVerification::fittingHeight(view, 300);
    EXPECT_EQ(height, label->heightForWidth(294) + 12);
    EXPECT_GT(height, LayoutVerification::fittingHeight(view, 600));
}

TEST(LayoutVerificationTest, HeightsOutsideTheirBoundsFail) {
    for (const int height : {0, -1, 140, 500})
        EXPECT_EQ(failureOf([&] { LayoutVerification::demandHeading(height); }),
                  "Long fixed heading consumed the editing viewport: " + std::to_string(height));
    for (const int height : {1, 139})
        EXPECT_EQ(failureOf([&] { LayoutVerification::demandHeading(height); }), "");
    EXPECT_EQ(failureOf([] { LayoutVerification::demandSubtitle(640, 240); }),
              "Long workspace subtitle expanded the fixed header: 640 / 240");
    EXPECT_EQ(failureOf([] { LayoutVerification::demandSubtitle(640, 239); }), "");
}

}  // namespace
}  // namespace vantry::test
