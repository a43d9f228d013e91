#include "Vantry/interface/design/Palette.h"

#include <gtest/gtest.h>

#include <QWidget>

namespace vantry::test {
namespace {

class PaletteTest : public testing::TestWithParam<bool> {
protected:
    const Palette& palette = GetParam() ? Palette::dark() : Palette::light();
};

TEST_P(PaletteTest, EveryTextIsReadableOnEverySurface) {
    using P = Palette;
    for (const P::Token text : {&P::ink, &P::muted, &P::link, &P::completed, &P::warning, &P::danger})
        for (const P::Token surface :
             {&P::canvas, &P::card, &P::navigation, &P::button, &P::selected, &P::hover})
            EXPECT_GE(contrast(palette.*text, palette.*surface), 4.5)
                << (palette.*text).name().toStdString() << " on " << (palette.*surface).name().toStdString();
    EXPECT_GE(contrast(palette.canvas, palette.ink), 4.5);
}

TEST_P(PaletteTest, WhatPeopleWriteHasTheInkOfEverythingElse) {
    EXPECT_NEAR(luminance(palette.editorInk), luminance(palette.ink), 0.001);
    EXPECT_EQ(palette.controls().color(QPalette::Text), palette.editorInk);
}

TEST(ContrastTest, GoesFromOneToTwentyOneInEitherOrder) {
    EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(contrast(Qt::white, Qt::black), 21);
    EXPECT_DOUBLE_EQ(contrast(QColor(0x62, 0x6A, 0x63), QColor(0x62, 0x6A, 0x63)), 1);
    // A component of 10 of 255 is the last on the straight part of the curve.
    EXPECT_NEAR(luminance(QColor(10, 10, 10)), 10 / 255.0 / 12.92, 1e-6);
    EXPECT_NEAR(luminance(QColor(255, 0, 0)), 0.2126, 1e-9);
    EXPECT_NEAR(luminance(QColor(0, 255, 0)), 0.7152, 1e-9);
    EXPECT_NEAR(luminance(QColor(0, 0, 255)), 0.0722, 1e-9);
}

TEST_P(PaletteTest, AWidgetAsksForTheOneInForce) {
    QWidget widget;
    widget.setPalette(palette.controls());
    EXPECT_EQ(Palette::of(widget).ink, palette.ink);
    EXPECT_EQ(Palette::isDark(widget.palette()), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Appearances, PaletteTest, testing::Bool(),
                         [](const auto& suite) { return suite.param ? "dark" : "light"; });

}  // namespace
}  // namespace vantry::test
