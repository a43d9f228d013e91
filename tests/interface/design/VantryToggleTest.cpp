#include "Vantry/interface/design/VantryToggle.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryMotionPreference.h"

namespace vantry::test {
namespace {

class VantryToggleTest : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        before = QApplication::palette();
        QApplication::setPalette(palette().controls());
        preference.setChoice(true);
        toggle.setName(QStringLiteral("Reduce motion"));
        // Away from where the pointer of a machine without a screen is.
        window.resize(200, 200);
        toggle.move(100, 100);
        toggle.resize(toggle.sizeHint());
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    void TearDown() override { QApplication::setPalette(before); }
    [[nodiscard]] const Palette& palette() const { return GetParam() ? Palette::dark() : Palette::light(); }
    [[nodiscard]] QColor seen(int x, int y) {
        return window.grab().toImage().pixelColor(toggle.pos() + QPoint(x, y));
    }

    QPalette before;
    VantryMotionPreference preference;
    QWidget window;
    VantryToggle toggle{&window};
};

TEST_P(VantryToggleTest, OffIsHollowWithASmallKnobAtTheLeft) {
    EXPECT_EQ(toggle.sizeHint(), QSize(44, 44)) << "26 of it is the switch";
    EXPECT_EQ(seen(22, 10), palette().muted) << "an outline of two";
    EXPECT_EQ(seen(22, 9 + 4), palette().card);
    EXPECT_EQ(seen(22, 8), palette().canvas);
    EXPECT_EQ(seen(13, 22), palette().muted);
    EXPECT_EQ(seen(6, 22), palette().muted) << "16 wide";
    EXPECT_EQ(seen(3, 22), palette().card);
    EXPECT_EQ(seen(31, 22), palette().card);
}

TEST_P(VantryToggleTest, OnIsFilledWithALargeKnobAtTheRight) {
    toggle.setChecked(true);
    EXPECT_EQ(seen(10, 22), palette().completed);
    EXPECT_EQ(seen(31, 22), palette().canvas);
    EXPECT_EQ(seen(22, 22), palette().canvas) << "20 wide";
    EXPECT_EQ(seen(42, 22), palette().completed);
}

TEST_P(VantryToggleTest, IsACheckBoxThatKeysAndToolsTurn) {
    QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&toggle);
    EXPECT_EQ(spoken.role(), QAccessible::CheckBox);
    EXPECT_EQ(spoken.text(QAccessible::Name), QStringLiteral("Reduce motion"));
    QSignalSpy spy(&toggle, &VantryToggle::toggled);
    QTest::keyClick(&toggle, Qt::Key_Space);
    EXPECT_TRUE(spoken.state().checked);
    QTest::keyClick(&toggle, Qt::Key_Return);
    EXPECT_FALSE(spoken.state().checked);
    spoken.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(spoken.state().checked);
    QTest::mouseClick(&toggle, Qt::LeftButton, {}, QPoint(40, 2));
    EXPECT_FALSE(spoken.state().checked) << "the whole target is the switch";
    EXPECT_EQ(spy.count(), 4);
}

INSTANTIATE_TEST_SUITE_P(Appearances, VantryToggleTest, testing::Bool(),
                         [](const auto& tested) { return tested.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace vantry::test
