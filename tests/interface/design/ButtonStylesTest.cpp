#include "Vantry/interface/design/ButtonStyles.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "Vantry/interface/design/VantryMotionPreference.h"

namespace vantry::test {
namespace {

constexpr ControlState normal{};
constexpr ControlState hovered{.hovered = 1};
constexpr ControlState pressed{.hovered = 1, .pressed = 1};
constexpr ControlState disabled{.enabled = 0};
constexpr ControlState selected{.selected = 1};

class ButtonStylesTest : public testing::TestWithParam<bool> {
protected:
    [[nodiscard]] const Palette& palette() const { return GetParam() ? Palette::dark() : Palette::light(); }
    [[nodiscard]] QColor shareOf(QColor colour, float alpha) const {
        colour.setAlphaF(alpha);
        return colour;
    }
};

void expectSame(const QColor& seen, const QColor& wanted) {
    EXPECT_EQ(seen.rgba(), wanted.rgba()) << seen.name(QColor::HexArgb).toStdString() << " instead of "
                                          << wanted.name(QColor::HexArgb).toStdString();
}

TEST_P(ButtonStylesTest, ThePrimaryButtonIsInkAndFades) {
    const auto look = [this](const ControlState& state) {
        return VantryPrimaryButtonStyle::look(palette(), state);
    };
    for (const ControlState& state : {normal, hovered, pressed, disabled}) {
        expectSame(look(state).fill, palette().ink);
        expectSame(look(state).text, palette().canvas);
    }
    EXPECT_DOUBLE_EQ(look(normal).opacity, 1);
    EXPECT_DOUBLE_EQ(look(hovered).opacity, 0.9);
    EXPECT_DOUBLE_EQ(look(pressed).opacity, 0.75);
    EXPECT_DOUBLE_EQ(look(disabled).opacity, 0.45);
    EXPECT_EQ(VantryPrimaryButtonStyle::height, 44);
    EXPECT_EQ(VantryPrimaryButtonStyle::padding, 16);
}

TEST_P(ButtonStylesTest, TheQuietButtonChangesItsFillAndGainsAnOutline) {
    const auto look = [this](const ControlState& state) {
        return VantryQuietButtonStyle::look(palette(), state);
    };
    expectSame(look(normal).fill, palette().button);
    EXPECT_EQ(look(normal).outline.alpha(), 0);
    expectSame(look(hovered).fill, palette().hover);
    expectSame(look(hovered).outline, palette().rule);
    expectSame(look(pressed).fill, palette().selected);
    expectSame(look(pressed).outline, palette().link);
    EXPECT_DOUBLE_EQ(look(pressed).opacity, 1);
    EXPECT_DOUBLE_EQ(look(disabled).opacity, 0.45);
    expectSame(look(normal).text, palette().ink);
    expectSame(VantryQuietButtonStyle::look(palette(), normal, true).text, palette().danger);
    EXPECT_EQ(VantryQuietButtonStyle::height, 44);
    EXPECT_EQ(VantryQuietButtonStyle::padding, 14);
}

TEST_P(ButtonStylesTest, TheInlineButtonHasNoSurfaceOfItsOwn) {
    const auto look = [this](const ControlState& state) {
        return VantryInlineButtonStyle::look(palette(), state, palette().muted);
    };
    EXPECT_EQ(look(normal).fill.alpha(), 0);
    expectSame(look(normal).text, palette().muted);
    expectSame(look(hovered).fill, shareOf(palette().hover, 0.35F));
    EXPECT_DOUBLE_EQ(look(hovered).opacity, 1);
    EXPECT_DOUBLE_EQ(look(pressed).opacity, 0.65);
    EXPECT_DOUBLE_EQ(look(disabled).opacity, 0.45);
}

TEST_P(ButtonStylesTest, TheRowIsFilledWhenItIsHoveredOrChosen) {
    const auto look = [this](const ControlState& state) {
        return VantryRowButtonStyle::look(palette(), state);
    };
    EXPECT_EQ(look(normal).fill.alpha(), 0);
    expectSame(look(hovered).fill, palette().hover);
    EXPECT_EQ(look(hovered).outline.alpha(), 0);
    expectSame(look(selected).fill, palette().selected);
    expectSame(look(selected).outline, palette().rule);
    EXPECT_DOUBLE_EQ(look(pressed).opacity, 0.65);
    EXPECT_DOUBLE_EQ(look(disabled).opacity, 0.45);
}

TEST_P(ButtonStylesTest, AChosenRowHasABarAtItsLeft) {
    QImage image(200, 44, QImage::Format_ARGB32_Premultiplied);
    image.fill(palette().navigation);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        VantryRowButtonStyle::paint(painter, image.rect(), palette(), selected);
    }
    expectSame(image.pixelColor(1, 22), palette().ink);
    expectSame(image.pixelColor(1, 14), palette().ink);
    expectSame(image.pixelColor(3, 22), palette().selected);
    expectSame(image.pixelColor(1, 10), palette().selected);
    expectSame(image.pixelColor(100, 0), palette().rule);
    expectSame(image.pixelColor(0, 0), palette().navigation);
}

TEST_P(ButtonStylesTest, AMixIsEachOfItsColoursAtItsEnds) {
    expectSame(mixed(palette().button, palette().hover, 0), palette().button);
    expectSame(mixed(palette().button, palette().hover, 1), palette().hover);
    // What appears keeps its own colour on the way.
    const QColor half = mixed(Qt::transparent, palette().link, 0.5);
    EXPECT_EQ(half.rgb(), palette().link.rgb());
    EXPECT_NEAR(half.alphaF(), 0.5, 0.01);
}

TEST_P(ButtonStylesTest, WhatFadesFadesAsOnePicture) {
    QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        paintAsOne(painter, image.rect(), 0.5, 1, [&](QPainter& inside) {
            inside.fillRect(image.rect(), Qt::black);
            inside.fillRect(QRect(5, 5, 10, 10), Qt::white);
        });
    }
    EXPECT_NEAR(image.pixelColor(1, 1).lightness(), 128, 1);
    EXPECT_EQ(image.pixelColor(10, 10).lightness(), 255) << "the black beneath does not show through";
}

INSTANTIATE_TEST_SUITE_P(Appearances, ButtonStylesTest, testing::Bool(),
                         [](const auto& tested) { return tested.param ? "Dark" : "Light"; });

TEST(VantryPressFeedbackTest, MakesWhatIsPressedALittleSmaller) {
    EXPECT_DOUBLE_EQ(VantryPressFeedback::scale(normal), 1);
    EXPECT_DOUBLE_EQ(VantryPressFeedback::scale(pressed), 0.985);
    EXPECT_DOUBLE_EQ(VantryPressFeedback::scale({.enabled = 0, .pressed = 1}), 1);
    VantryMotionPreference preference;
    preference.setChoice(true);
    EXPECT_DOUBLE_EQ(VantryPressFeedback::scale(pressed), 1);
}

}  // namespace
}  // namespace vantry::test
