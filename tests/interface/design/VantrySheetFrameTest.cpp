#include "Vantry/interface/design/VantrySheetFrame.h"

#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWidget>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Sheet.h"

namespace vantry::test {
namespace {

TEST(VantrySheetFrameTest, ASheetLeavesAMarginOfItsWindow) {
    const QSize wanted(900, 700);
    EXPECT_EQ(VantrySheetFrame::size(wanted, QSize(1000, 680), QSize(5000, 5000)), QSize(900, 640));
    EXPECT_EQ(VantrySheetFrame::size(wanted, QSize(800, 2000), {}), QSize(760, 700));
    EXPECT_EQ(VantrySheetFrame::size(wanted, QSize(1380, 900), {}), wanted);
}

TEST(VantrySheetFrameTest, WithoutAWindowTheScreenCountsAndWithoutBothAFixedSize) {
    const QSize wanted(2000, 2000);
    EXPECT_EQ(VantrySheetFrame::size(wanted, std::nullopt, QSize(1280, 800)), QSize(1240, 760));
    EXPECT_EQ(VantrySheetFrame::size(wanted, std::nullopt, std::nullopt), QSize(960, 640));
    EXPECT_EQ(VantrySheetFrame::size(QSize(960, 640), std::nullopt, std::nullopt), QSize(960, 640));
}

TEST(VantrySheetFrameTest, SomethingAlwaysRemains) {
    EXPECT_EQ(VantrySheetFrame::size(QSize(900, 700), QSize(30, 40), {}), QSize(1, 1));
}

TEST(VantrySheetFrameTest, ALongMessageScrollsBetweenTitleAndButtons) {
    QWidget window;
    window.resize(1000, 680);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    AlertSheet sheet(&window);
    sheet.setTexts(QStringLiteral("Title"),
                   QStringLiteral("Many words about what went wrong. ").repeated(300), QStringLiteral("OK"));
    sheet.open();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&sheet));
    QCoreApplication::processEvents();
    EXPECT_EQ(sheet.height(), 640);
    const auto* button = sheet.findChild<Button*>();
    ASSERT_NE(button, nullptr);
    EXPECT_LE(button->mapTo(&sheet, QPoint(0, button->height())).y(), 640);
    auto* area = sheet.findChild<QAbstractScrollArea*>();
    ASSERT_NE(area, nullptr);
    ASSERT_GT(area->verticalScrollBar()->maximum(), 0);
    QTest::keyClick(&sheet, Qt::Key_PageDown);
    EXPECT_GT(area->verticalScrollBar()->value(), 0);
    // The window got smaller under it.
    window.resize(1000, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(sheet.height(), 460);
}

}  // namespace
}  // namespace vantry::test
