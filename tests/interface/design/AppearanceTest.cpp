#include "Vantry/interface/design/Appearance.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWidget>

#include "Vantry/interface/design/Palette.h"

namespace vantry::test {
namespace {

TEST(AppearanceTest, AForcedAppearanceReachesEveryWidget) {
    Appearance appearance;
    QWidget window;
    QWidget child(&window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    appearance.setChoice(QStringLiteral("dark"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return Palette::of(child).canvas == Palette::dark().canvas; }));
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), Palette::dark().card);
    appearance.setChoice(QStringLiteral("light"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return Palette::of(child).canvas == Palette::light().canvas; }));
}

TEST(AppearanceTest, AnyOtherChoiceFollowsTheDesktop) {
    // Without a desktop that says anything the windows are light.
    Appearance appearance;
    for (const auto* choice : {"system", "", "fr"}) {
        appearance.setChoice(QStringLiteral("dark"));
        appearance.setChoice(QString::fromLatin1(choice));
        EXPECT_FALSE(Palette::isDark(QApplication::palette())) << choice;
    }
}

}  // namespace
}  // namespace vantry::test
