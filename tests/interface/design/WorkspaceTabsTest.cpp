#include "Vantry/interface/design/WorkspaceTabs.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QVariantAnimation>

#include "Vantry/interface/design/VantryMotionPreference.h"
#include "Vantry/interface/design/VantryTextField.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry::test {
namespace {

class WorkspaceTabsTest : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        beforehand = QApplication::palette();
        QApplication::setPalette(palette().controls());
        preference.setChoice(true);
        auto* column = new QVBoxLayout(&window);
        before = new VantryTextField;
        tabs = new WorkspaceTabs(3);
        after = new VantryTextField;
        column->addWidget(before);
        column->addWidget(tabs);
        column->addWidget(after);
        tabs->setTitles({QStringLiteral("Overview"), QStringLiteral("People"), QStringLiteral("Tom & Jerry")},
                        true);
        tabs->setChosen(0);
        segments = tabs->findChildren<Segment*>();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void TearDown() override { QApplication::setPalette(beforehand); }
    [[nodiscard]] const Palette& palette() const { return GetParam() ? Palette::dark() : Palette::light(); }
    [[nodiscard]] QColor seen(int tab, int x, int y) {
        return tabs->grab().toImage().pixelColor(segments[tab]->pos() + QPoint(x, y));
    }
    [[nodiscard]] QAccessibleInterface& spoken(QWidget* widget) {
        return *QAccessible::queryAccessibleInterface(widget);
    }

    QPalette beforehand;
    VantryMotionPreference preference;
    QWidget window;
    VantryTextField* before = nullptr;
    WorkspaceTabs* tabs = nullptr;
    VantryTextField* after = nullptr;
    QList<Segment*> segments;
};

TEST_P(WorkspaceTabsTest, HasTheSizesOfATrack) {
    ASSERT_EQ(segments.size(), 3);
    EXPECT_EQ(tabs->height(), 52);
    EXPECT_EQ(segments[0]->pos(), QPoint(4, 4));
    for (const Segment* segment : segments)
        EXPECT_EQ(segment->height(), 44);
    EXPECT_EQ(segments[1]->x(), segments[0]->geometry().right() + 1 + 8);
    EXPECT_EQ(tabs->width(), segments[2]->geometry().right() + 1 + 4);
    const QFont bold = VantryType::font(VantryType::Role::label, QFont::DemiBold);
    EXPECT_EQ(segments[1]->width(), QFontMetrics(bold).horizontalAdvance(QStringLiteral("People")) + 1 + 24);
}

TEST_P(WorkspaceTabsTest, TheChosenTabIsLighterOutlinedAndHasADot) {
    const QColor light = GetParam() ? palette().button : palette().card;
    EXPECT_EQ(seen(0, 5, 22), light);
    EXPECT_EQ(seen(0, 0, 22), palette().rule);
    EXPECT_EQ(seen(1, 5, 22), palette().navigation);
    const int middle = segments[0]->width() / 2;
    EXPECT_EQ(seen(0, middle, 36), palette().ink);
    EXPECT_EQ(seen(0, middle, 37), palette().ink) << "four high, five from the foot";
    EXPECT_EQ(seen(0, middle, 34), light);
    EXPECT_EQ(seen(0, middle, 39), light);
    EXPECT_EQ(seen(1, segments[1]->width() / 2, 37), palette().navigation);
    tabs->setChosen(1);
    EXPECT_EQ(seen(1, segments[1]->width() / 2, 37), palette().ink);
    EXPECT_EQ(seen(0, middle, 37), palette().navigation);
}

TEST_P(WorkspaceTabsTest, NothingMovesWhenTheChoiceDoes) {
    QList<QRect> places;
    for (const Segment* segment : segments)
        places.append(segment->geometry());
    tabs->setChosen(2);
    QApplication::processEvents();
    for (int index = 0; index < 3; ++index)
        EXPECT_EQ(segments[index]->geometry(), places[index]);
}

TEST_P(WorkspaceTabsTest, IsOneNamedGroupWithAChosenTab) {
    EXPECT_EQ(spoken(tabs).role(), QAccessible::Grouping);
    EXPECT_EQ(spoken(tabs).text(QAccessible::Name), QStringLiteral("Section"));
    ASSERT_EQ(spoken(tabs).childCount(), 3) << "the dot is no one";
    for (int index = 0; index < 3; ++index) {
        EXPECT_EQ(spoken(tabs).child(index)->state().selected, index == 0);
        EXPECT_EQ(spoken(tabs).child(index)->state().checked, index == 0);
    }
    EXPECT_EQ(spoken(tabs).child(2)->text(QAccessible::Name), QStringLiteral("Tom & Jerry"));
    tabs->setTitles({QStringLiteral("拍摄总览"), QStringLiteral("剧组与演员"), QStringLiteral("项目信息")},
                    false);
    EXPECT_EQ(spoken(tabs).text(QAccessible::Name), QStringLiteral("页面"));
    EXPECT_EQ(spoken(tabs).child(1)->text(QAccessible::Name), QStringLiteral("剧组与演员"));
}

TEST_P(WorkspaceTabsTest, IsOneStopForTabWithinWhichArrowsChoose) {
    QSignalSpy spy(tabs, &WorkspaceTabs::chosen);
    tabs->setChosen(1);
    before->setFocus(Qt::TabFocusReason);
    QTest::keyClick(before, Qt::Key_Tab);
    EXPECT_TRUE(segments[1]->hasFocus()) << "the chosen one, not the first";
    QTest::keyClick(segments[1], Qt::Key_Right);
    EXPECT_TRUE(segments[2]->hasFocus());
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].toInt(), 2);
    EXPECT_EQ(tabs->chosenIndex(), 2);
    EXPECT_EQ(seen(2, 1, 22), palette().link) << "the ring lies on the edge";
    QTest::keyClick(segments[2], Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
    QTest::keyClick(after, Qt::Key_Backtab);
    EXPECT_TRUE(segments[2]->hasFocus());
}

TEST_P(WorkspaceTabsTest, HomeAndEndChooseTheFirstAndTheLast) {
    QSignalSpy spy(tabs, &WorkspaceTabs::chosen);
    segments[0]->setFocus(Qt::TabFocusReason);
    QTest::keyClick(segments[0], Qt::Key_End);
    EXPECT_EQ(tabs->chosenIndex(), 2);
    EXPECT_TRUE(segments[2]->hasFocus());
    QTest::keyClick(segments[2], Qt::Key_Home);
    EXPECT_EQ(tabs->chosenIndex(), 0);
    EXPECT_TRUE(segments[0]->hasFocus());
    QTest::keyClick(segments[0], Qt::Key_Home);
    EXPECT_EQ(spy.count(), 2) << "it is chosen already";
}

TEST_P(WorkspaceTabsTest, FillAndDotMoveAsASelection) {
    static_cast<void>(window.grab());
    preference.setChoice(false);
    tabs->setChosen(1);
    static_cast<void>(window.grab());
    const int middle = segments[1]->width() / 2;
    const auto moves = segments[1]->findChildren<QVariantAnimation*>();
    ASSERT_EQ(moves.size(), 2) << "the fill and the dot";
    for (QVariantAnimation* move : moves) {
        EXPECT_EQ(move->duration(), 160);
        move->setCurrentTime(0);
    }
    EXPECT_EQ(seen(1, middle, 37), palette().navigation);
    for (QVariantAnimation* move : moves)
        move->setCurrentTime(160);
    EXPECT_EQ(seen(1, middle, 37), palette().ink);
}

INSTANTIATE_TEST_SUITE_P(Appearances, WorkspaceTabsTest, testing::Bool(),
                         [](const auto& tested) { return tested.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace vantry::test
