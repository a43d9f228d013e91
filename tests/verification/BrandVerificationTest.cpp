#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>

#include "Vantry/interface/design/Palette.h"
#include "tests/verification/Failing.h"

namespace vantry::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::string contrastFailure(const Palette& palette) {
    return failureOf([&] { BrandVerification::lowestContrast("NSAppearanceNameAqua", palette); });
}

TEST(BrandVerificationTest, PrintsTheLowestContrastOfEachAppearance) {
    testing::internal::CaptureStdout();
    BrandVerification::run();
    const std::string printed = testing::internal::GetCapturedStdout();
    // The least readable pairs are muted on hover in the light appearance and danger on hover in the dark
    // one.
    EXPECT_THAT(printed, HasSubstr("PASS: NSAppearanceNameAqua brand text / interaction / status contrast "
                                   "minimum 4.58:1\n"));
    EXPECT_THAT(printed,
                HasSubstr("PASS: NSAppearanceNameDarkAqua brand text / interaction / status contrast "
                          "minimum 4.74:1\n"));
}

TEST(BrandVerificationTest, AnImageThatIsMissingOrNoPngFails) {
    const QTemporaryDir folder;
    const QString broken = folder.filePath(QStringLiteral("broken.png"));
    std::ofstream(broken.toStdString()) << "no image";
    const QString otherFormat = folder.filePath(QStringLiteral("mark.bmp"));
    QImage image(30, 36, QImage::Format_RGB32);
    image.fill(Qt::black);
    ASSERT_TRUE(image.save(otherFormat));
    for (const QString& file : {folder.filePath(QStringLiteral("none.png")), broken, otherFormat})
        EXPECT_EQ(failureOf([&] { BrandVerification::verifyMark(file); }), "Brand resource missing")
            << file.toStdString();
    const QString good = folder.filePath(QStringLiteral("mark.png"));
    ASSERT_TRUE(image.save(good));
    EXPECT_EQ(failureOf([&] { BrandVerification::verifyMark(good); }), "");
}

TEST(BrandVerificationTest, APairThatCannotBeReadIsNamedWithItsRatio) {
    Palette palette = Palette::light();
    palette.warning = palette.card;
    EXPECT_THAT(contrastFailure(palette), StartsWith("NSAppearanceNameAqua: warning on canvas = 1.0"));
    palette = Palette::light();
    palette.hover = palette.muted;
    EXPECT_THAT(contrastFailure(palette), StartsWith("NSAppearanceNameAqua: ink on hover = 2."));
    palette = Palette::light();
    palette.selected = palette.danger;
    EXPECT_THAT(contrastFailure(palette), StartsWith("NSAppearanceNameAqua: ink on selected = 2."));
}

TEST(BrandVerificationTest, EveryTextIsHeldAgainstEverySurface) {
    using P = Palette;
    for (const P::Token text : {&P::ink, &P::muted, &P::link, &P::completed, &P::warning, &P::danger}) {
        Palette palette = P::dark();
        palette.*text = palette.canvas;
        EXPECT_NE(contrastFailure(palette), "");
    }
    for (const P::Token surface :
         {&P::canvas, &P::card, &P::navigation, &P::button, &P::selected, &P::hover}) {
        Palette palette = P::dark();
        palette.*surface = palette.muted;
        EXPECT_NE(contrastFailure(palette), "");
    }
    Palette palette = P::dark();
    palette.tint = palette.ink;
    palette.rule = palette.ink;
    EXPECT_EQ(contrastFailure(palette), "");
}

TEST(BrandVerificationTest, WhatPeopleWriteMustHaveTheInkOfEverythingElse) {
    Palette palette = Palette::light();
    palette.editorInk = QColor(0x2A, 0x35, 0x2E);
    EXPECT_EQ(contrastFailure(palette), "Editor text diverges from family ink");
    palette.editorInk = QColor(0x29, 0x34, 0x2E);
    EXPECT_EQ(contrastFailure(palette), "");
}

}  // namespace
}  // namespace vantry::test
