#include "Vantry/interface/design/Palette.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include <QWidget>

namespace vantry::test {
namespace {

double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

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
