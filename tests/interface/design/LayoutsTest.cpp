// The layouts of pages: where their parts stand at each width, and that they are as high as they say.

#include <gtest/gtest.h>

#include <QTest>

#include "Vantry/interface/design/DeskLayout.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/LayoutRules.h"
#include "Vantry/interface/design/VantryWorkLayout.h"
#include "Vantry/interface/design/WorkspaceColumns.h"

namespace vantry::test {
namespace {

constexpr int widths[] = {320, 430, 639, 640, 655, 656, 657, 839, 840, 841, 1100, 1120, 1121};

QWidget* block(int height) {
    auto* widget = new QWidget;
    widget->setFixedHeight(height);
    return widget;
}

Label* prose(int words) {
    auto* label = new Label(VantryType::Role::body, &Palette::ink, Label::Length::wrapped);
    label->setPlain(QStringLiteral("word ").repeated(words));
    return label;
}

/// Shows the holder at that width and at the height that its layout asks for.
void show(QWidget& holder, int width) {
    holder.resize(width, holder.layout()->heightForWidth(width));
    holder.show();
    QApplication::processEvents();
}

int bottomOf(const std::vector<QWidget*>& parts) {
    int bottom = 0;
    for (const QWidget* part : parts)
        if (!part->isHidden())
            bottom = std::max(bottom, part->geometry().bottom() + 1);
    return bottom;
}

TEST(LayoutRules, WithoutAWidthItIsThatOfAPageAndNeverLessThanOne) {
    EXPECT_EQ(planColumns({}, 320, 16, {}).columnWidth, (1120 - 16) / 2.0);
    EXPECT_EQ(planWork({}, 336, 24, {10, 20}).mainWidth, 1120 - 336 - 24);
    EXPECT_EQ(planColumns(0, 320, 16, {}).columnWidth, 1);
    EXPECT_EQ(planColumns(-50, 320, 16, {}).columnWidth, 1);
    EXPECT_EQ(planWork(-50, 336, 24, {10, 20}).mainWidth, 1);
}

TEST(LayoutRules, TwoColumnsBeginWhereTwoOfTheLeastAndTheGapFit) {
    EXPECT_EQ(planColumns(656, 320, 16, {}).columns, 2);
    EXPECT_EQ(planColumns(656, 320, 16, {}).columnWidth, 320);
    EXPECT_EQ(planColumns(655, 320, 16, {}).columns, 1);
    EXPECT_EQ(planColumns(655, 320, 16, {}).columnWidth, 655);
}

TEST(LayoutRules, RowsAreAsHighAsTheirTallestAndAGapApart) {
    EXPECT_EQ(planColumns(700, 320, 16, {10, 30, 20, 5, 7}).height, 30 + 16 + 20 + 16 + 7);
    EXPECT_EQ(planColumns(600, 320, 16, {10, 30, 20}).height, 10 + 16 + 30 + 16 + 20);
    EXPECT_EQ(planColumns(700, 320, 16, {}).height, 0);
    EXPECT_EQ(planColumns(700, 320, 16, {8}).height, 8);
}

TEST(LayoutRules, MainAndSideStandBesideEachOtherFrom840) {
    const WorkPlan wide = planWork(840, 336, 24, {100, 300});
    EXPECT_EQ(wide.columns, 2);
    EXPECT_EQ(wide.mainWidth, 480);
    EXPECT_EQ(wide.sideWidth, 336);
    EXPECT_EQ(wide.height, 300);
    const WorkPlan narrow = planWork(839, 336, 24, {100, 300});
    EXPECT_EQ(narrow.columns, 1);
    EXPECT_EQ(narrow.mainWidth, 839);
    EXPECT_EQ(narrow.sideWidth, 839);
    EXPECT_EQ(narrow.height, 424);
}

TEST(LayoutRules, AnyOtherNumberOfPartsThanTwoGetsNothing) {
    for (const std::vector<double>& heights : {std::vector<double>{}, {10}, {10, 20, 30}}) {
        const WorkPlan plan = planWork(1000, 336, 24, heights);
        EXPECT_EQ(plan.columns, 0);
        EXPECT_EQ(plan.height, 0);
    }
}

TEST(WorkspaceColumns, FlowRowByRowAtEveryWidth) {
    QWidget holder;
    auto* columns = new WorkspaceColumns(320, 16, &holder);
    const std::vector<QWidget*> parts{block(40), prose(60), prose(20), block(70), block(30)};
    for (QWidget* part : parts)
        columns->addWidget(part);
    for (const int width : widths) {
        show(holder, width);
        EXPECT_EQ(bottomOf(parts), holder.height()) << width;
        if (width < 656) {
            for (std::size_t index = 0; index < parts.size(); ++index) {
                EXPECT_EQ(parts[index]->width(), width);
                const int above = index > 0 ? parts[index - 1]->geometry().bottom() + 1 + 16 : 0;
                EXPECT_EQ(parts[index]->y(), above) << width;
            }
            continue;
        }
        EXPECT_EQ(parts[0]->x(), 0);
        EXPECT_EQ(parts[1]->geometry().right(), width - 1) << width;
        EXPECT_EQ(parts[0]->width(), parts[1]->width());
        EXPECT_GE(parts[1]->x() - parts[0]->geometry().right() - 1, 16) << width;
        EXPECT_EQ(parts[0]->y(), parts[1]->y());
        const int rowEnd = std::max(parts[0]->geometry().bottom(), parts[1]->geometry().bottom()) + 1;
        EXPECT_EQ(parts[2]->y(), rowEnd + 16) << width;
        EXPECT_EQ(parts[3]->y(), parts[2]->y());
        EXPECT_EQ(parts[4]->x(), 0) << "the odd one stands at the left";
    }
}

TEST(WorkspaceColumns, PassOverWhatIsHidden) {
    QWidget holder;
    auto* columns = new WorkspaceColumns(320, 16, &holder);
    const std::vector<QWidget*> parts{block(40), block(50), block(60)};
    for (QWidget* part : parts)
        columns->addWidget(part);
    parts[0]->hide();
    show(holder, 700);
    EXPECT_EQ(holder.height(), 60);
    EXPECT_EQ(parts[1]->x(), 0);
    EXPECT_EQ(parts[2]->y(), 0);
    parts[1]->hide();
    parts[2]->hide();
    EXPECT_EQ(columns->heightForWidth(700), 0);
}

TEST(VantryWorkLayout, IsAsHighAsItShowsAtEveryWidth) {
    QWidget holder;
    auto* layout = new VantryWorkLayout(336, 24, &holder);
    const std::vector<QWidget*> parts{prose(300), prose(30)};
    for (QWidget* part : parts)
        layout->addWidget(part);
    for (const int width : widths) {
        show(holder, width);
        EXPECT_EQ(bottomOf(parts), holder.height()) << width;
        if (width >= 840) {
            EXPECT_EQ(parts[0]->width(), width - 336 - 24);
            EXPECT_EQ(parts[1]->geometry().left(), width - 336);
            EXPECT_EQ(parts[1]->width(), 336);
            EXPECT_EQ(parts[1]->y(), 0);
        } else {
            EXPECT_EQ(parts[0]->width(), width);
            EXPECT_EQ(parts[1]->width(), width);
            EXPECT_EQ(parts[1]->y(), parts[0]->geometry().bottom() + 1 + 24);
        }
    }
}

TEST(VantryWorkLayout, GivesAnyOtherNumberOfPartsNoRoom) {
    QWidget holder;
    auto* layout = new VantryWorkLayout(336, 24, &holder);
    EXPECT_EQ(layout->heightForWidth(900), 0);
    layout->addWidget(block(40));
    EXPECT_EQ(layout->heightForWidth(900), 0);
    layout->addWidget(block(50));
    EXPECT_EQ(layout->heightForWidth(900), 50);
    layout->addWidget(block(60));
    EXPECT_EQ(layout->heightForWidth(900), 0);
}

class DeskLayoutTest : public testing::Test {
protected:
    void SetUp() override {
        desk->addPart(numbers, DeskLayout::Place::side, 24);
        desk->addPart(list, DeskLayout::Place::main, 24);
        desk->addPart(next, DeskLayout::Place::side, 16);
        desk->addPart(foot, DeskLayout::Place::main, 20);
    }
    [[nodiscard]] std::vector<QWidget*> parts() const { return {numbers, list, next, foot}; }

    QWidget holder;
    DeskLayout* desk = new DeskLayout(336, 24, &holder);
    QWidget* numbers = block(60);
    QWidget* list = prose(200);
    QWidget* next = block(500);
    QWidget* foot = block(44);
};

TEST_F(DeskLayoutTest, StandsInReadingOrderWhereItIsNarrowAndInTwoColumnsWhereItIsWide) {
    for (const int width : widths) {
        show(holder, width);
        EXPECT_EQ(bottomOf(parts()), holder.height()) << width;
        EXPECT_EQ(numbers->y(), 0);
        if (width < 840) {
            EXPECT_EQ(list->y(), 60 + 24);
            EXPECT_EQ(next->y(), list->geometry().bottom() + 1 + 16);
            EXPECT_EQ(foot->y(), next->y() + 500 + 20);
            for (const QWidget* part : parts()) {
                EXPECT_EQ(part->x(), 0);
                EXPECT_EQ(part->width(), width);
            }
        } else {
            EXPECT_EQ(list->y(), 0) << "the first of its column";
            EXPECT_EQ(list->width(), width - 336 - 24);
            EXPECT_EQ(foot->y(), list->geometry().bottom() + 1 + 20);
            EXPECT_EQ(numbers->geometry().left(), width - 336);
            EXPECT_EQ(next->geometry(), QRect(width - 336, 60 + 16, 336, 500));
        }
    }
}

TEST_F(DeskLayoutTest, WhatIsHiddenTakesNoRoomAndNoSpaceAbove) {
    numbers->hide();
    show(holder, 1000);
    EXPECT_EQ(next->y(), 0);
    show(holder, 700);
    EXPECT_EQ(list->y(), 0);
    next->hide();
    show(holder, 700);
    EXPECT_EQ(foot->y(), list->geometry().bottom() + 1 + 20);
    list->hide();
    foot->hide();
    EXPECT_EQ(desk->heightForWidth(700), 0);
    EXPECT_EQ(desk->heightForWidth(1000), 0);
}

TEST_F(DeskLayoutTest, APartThatDiesLeavesTheOthers) {
    delete numbers;
    show(holder, 700);
    EXPECT_EQ(desk->count(), 3);
    EXPECT_EQ(list->y(), 0);
}

}  // namespace
}  // namespace vantry::test
