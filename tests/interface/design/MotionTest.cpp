#include <gtest/gtest.h>

#include <QDBusVariant>
#include <QTest>
#include <QVariantAnimation>
#include <QWidget>

#include "Vantry/interface/design/DesktopMotion.h"
#include "Vantry/interface/design/DesktopSetting.h"
#include "Vantry/interface/design/Transition.h"
#include "Vantry/interface/design/VantryMotion.h"
#include "Vantry/interface/design/VantryMotionPreference.h"

namespace vantry::test {
namespace {

struct Expected {
    const VantryMotion& motion;
    int milliseconds;
    QPointF first;
    QPointF second;
};

TEST(VantryMotionTest, TheFourMotionsHaveTheirCurvesAndLengths) {
    const Expected table[] = {{VantryMotion::feedback(), 120, {0.4, 0}, {0.2, 1}},
                              {VantryMotion::selection(), 160, {0, 0}, {0.58, 1}},
                              {VantryMotion::disclosure(), 200, {0.42, 0}, {0.58, 1}},
                              {VantryMotion::arrival(), 180, {0, 0}, {0.58, 1}}};
    for (const Expected& expected : table) {
        EXPECT_EQ(expected.motion.milliseconds, expected.milliseconds);
        EXPECT_EQ(expected.motion.curve.toCubicSpline(),
                  (QList<QPointF>{expected.first, expected.second, {1, 1}}));
    }
    EXPECT_GT(VantryMotion::selection().curve.valueForProgress(0.5), 0.6) << "fast at first";
    EXPECT_NEAR(VantryMotion::disclosure().curve.valueForProgress(0.5), 0.5, 0.01) << "even";
}

/// Lets the desktop say something, as its answer or a change would.
void tell(QObject& owner, const char* space, const char* key, const QVariant& value) {
    const auto settings = owner.findChildren<DesktopSetting*>();
    ASSERT_FALSE(settings.isEmpty());
    for (DesktopSetting* setting : settings)
        ASSERT_TRUE(QMetaObject::invokeMethod(
            setting, "onSettingChanged", Q_ARG(QString, QString::fromLatin1(space)),
            Q_ARG(QString, QString::fromLatin1(key)), Q_ARG(QDBusVariant, QDBusVariant(value))));
}

TEST(VantryMotionPreferenceTest, ThePersonOrTheDesktopHoldsTheInterfaceStill) {
    ASSERT_FALSE(vantryReduceMotion());
    {
        VantryMotionPreference preference;
        EXPECT_FALSE(vantryReduceMotion());
        for (const bool choice : {false, true}) {
            for (const bool desktop : {false, true}) {
                preference.setChoice(choice);
                tell(preference, "org.freedesktop.appearance", "reduced-motion", desktop ? 1U : 0U);
                EXPECT_EQ(vantryReduceMotion(), choice || desktop) << choice << desktop;
                EXPECT_EQ(preference.isReducedByDesktop(), desktop);
            }
        }
        EXPECT_TRUE(vantryReduceMotion());
    }
    EXPECT_FALSE(vantryReduceMotion()) << "it ends with the preference";
}

TEST(VantryMotionPreferenceTest, OneThatWantsItIsEnough) {
    VantryMotionPreference first;
    first.setChoice(true);
    {
        VantryMotionPreference second;
        second.setChoice(false);
        EXPECT_TRUE(vantryReduceMotion());
        second.setChoice(true);
        first.setChoice(false);
        EXPECT_TRUE(vantryReduceMotion());
    }
    EXPECT_FALSE(vantryReduceMotion());
}

TEST(VantryMotionPreferenceTest, EitherSettingOfTheDesktopCounts) {
    VantryMotionPreference preference;
    tell(preference, "org.gnome.desktop.interface", "enable-animations", false);
    EXPECT_TRUE(vantryReduceMotion());
    tell(preference, "org.freedesktop.appearance", "reduced-motion", 0U);
    EXPECT_TRUE(vantryReduceMotion()) << "the other one still says so";
    tell(preference, "org.gnome.desktop.interface", "enable-animations", true);
    EXPECT_FALSE(vantryReduceMotion());
    tell(preference, "org.gnome.desktop.interface", "clock-show-seconds", false);
    tell(preference, "org.freedesktop.appearance", "enable-animations", false);
    EXPECT_FALSE(vantryReduceMotion()) << "other settings are not taken for these";
    // Some portals wrap a value twice.
    tell(preference, "org.freedesktop.appearance", "reduced-motion",
         QVariant::fromValue(QDBusVariant(QVariant(1U))));
    EXPECT_TRUE(vantryReduceMotion());
}

class TransitionTest : public testing::Test {
protected:
    void SetUp() override {
        widget.resize(40, 40);
        widget.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    }
    /// The animation of the widget, at that time of its way.
    QVariantAnimation& at(int milliseconds) {
        auto* animation = widget.findChild<QVariantAnimation*>();
        EXPECT_NE(animation, nullptr);
        animation->setCurrentTime(milliseconds);
        return *animation;
    }

    QWidget widget;
    QList<double> steps;
    Transition transition{widget, VantryMotion::selection(), 0, [this] { steps.append(transition.value()); }};
};

TEST_F(TransitionTest, MovesByItsCurveAndEndsAtItsTarget) {
    transition.setTarget(1);
    EXPECT_EQ(transition.value(), 0);
    EXPECT_EQ(transition.target(), 1);
    at(80);
    EXPECT_NEAR(transition.value(), VantryMotion::selection().curve.valueForProgress(0.5), 1e-9);
    EXPECT_TRUE(transition.isMoving());
    at(160);
    EXPECT_EQ(transition.value(), 1);
    EXPECT_FALSE(transition.isMoving());
    ASSERT_FALSE(steps.isEmpty());
    EXPECT_EQ(steps.last(), 1);
    EXPECT_FALSE(steps.first() == 1) << "the way begins at its beginning";
}

TEST_F(TransitionTest, TurnsRoundWhereItIs) {
    transition.setTarget(1);
    at(80);
    const double halfWay = transition.value();
    transition.setTarget(0);
    EXPECT_NEAR(transition.value(), halfWay, 1e-9);
    at(160);
    EXPECT_EQ(transition.value(), 0);
}

TEST_F(TransitionTest, IsAtItsEndAtOnceWhileMotionIsReduced) {
    VantryMotionPreference preference;
    preference.setChoice(true);
    transition.setTarget(1);
    EXPECT_EQ(transition.value(), 1);
    EXPECT_EQ(widget.findChild<QVariantAnimation*>(), nullptr) << "nothing was started";
    EXPECT_EQ(steps, QList<double>{1});
}

TEST_F(TransitionTest, EndsItsWayWhenMotionIsReducedMeanwhile) {
    transition.setTarget(1);
    at(40);
    VantryMotionPreference preference;
    preference.setChoice(true);
    EXPECT_EQ(transition.value(), 1);
    EXPECT_EQ(at(60).state(), QAbstractAnimation::Stopped);
    preference.setChoice(false);
    EXPECT_EQ(transition.value(), 1);
}

TEST_F(TransitionTest, IsAtItsEndAtOnceWhileTheWidgetIsHidden) {
    widget.hide();
    transition.setTarget(1);
    EXPECT_EQ(transition.value(), 1);
    EXPECT_EQ(widget.findChild<QVariantAnimation*>(), nullptr);
    widget.show();
    transition.setTarget(0);
    at(40);
    widget.hide();
    EXPECT_EQ(transition.value(), 0);
}

TEST_F(TransitionTest, SettlesWithoutAMove) {
    transition.setTarget(1);
    at(40);
    transition.settle(0.25);
    EXPECT_EQ(transition.value(), 0.25);
    EXPECT_FALSE(transition.isMoving());
    EXPECT_EQ(steps.last(), 0.25);
    const qsizetype before = steps.size();
    transition.settle(0.25);
    transition.setTarget(0.25);
    EXPECT_EQ(steps.size(), before) << "where it is already it does nothing";
}

}  // namespace
}  // namespace vantry::test
