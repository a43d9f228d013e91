// Where the parts of a shot's plan and of a take's log stand at each width.

#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/shots/ShotPlanLayout.h"
#include "Vantry/interface/shots/TakeLayout.h"

namespace vantry::test {
namespace {

std::vector<QWidget*> addBlocks(QLayout& layout, const std::vector<int>& heights) {
    std::vector<QWidget*> parts;
    for (const int height : heights) {
        auto* part = new QWidget;
        part->setMinimumHeight(height);
        layout.addWidget(part);
        parts.push_back(part);
    }
    return parts;
}

void show(QWidget& holder, int width) {
    holder.resize(width, holder.layout()->heightForWidth(width));
    holder.show();
    QApplication::processEvents();
}

TEST(ShotPlanLayout, HasTwoColumnsFromItsBreakpointOn) {
    QWidget holder;
    auto* layout = new ShotPlanLayout(24, 840, &holder);
    const auto parts = addBlocks(*layout, {100, 300, 150});
    EXPECT_EQ(layout->heightForWidth(840), 300) << "the higher of both columns";
    EXPECT_EQ(layout->heightForWidth(839), 100 + 24 + 300 + 24 + 150);
    show(holder, 840);
    EXPECT_EQ(parts[0]->geometry(), QRect(0, 0, 408, 100));
    EXPECT_EQ(parts[1]->geometry(), QRect(432, 0, 408, 300));
    EXPECT_EQ(parts[2]->geometry(), QRect(0, 124, 408, 176)) << "both columns end on one line";
    show(holder, 839);
    EXPECT_EQ(parts[0]->geometry(), QRect(0, 0, 839, 100));
    EXPECT_EQ(parts[1]->geometry(), QRect(0, 124, 839, 300));
    EXPECT_EQ(parts[2]->geometry(), QRect(0, 448, 839, 150));
}

TEST(ShotPlanLayout, TheBriefIsAsHighAsFrameAndSound) {
    QWidget holder;
    auto* layout = new ShotPlanLayout(10, 100, &holder);
    const auto parts = addBlocks(*layout, {100, 50, 80});
    show(holder, 210);
    EXPECT_EQ(parts[1]->geometry(), QRect(110, 0, 100, 190));
}

TEST(ShotPlanLayout, IsNothingForAnotherNumberOfParts) {
    for (const std::size_t count : {0U, 1U, 2U, 4U}) {
        QWidget holder;
        auto* layout = new ShotPlanLayout(24, 840, &holder);
        addBlocks(*layout, std::vector<int>(count, 50));
        EXPECT_EQ(layout->heightForWidth(1000), 0) << count;
        EXPECT_EQ(layout->heightForWidth(100), 0) << count;
    }
}

TEST(TakeLayout, HasReferenceAndMediaAtTheSideWhereThereIsRoom) {
    QWidget holder;
    auto* layout = new TakeLayout(&holder);
    // Reference, result, notes, media, parameters, foot.
    const auto parts = addBlocks(*layout, {220, 88, 300, 330, 56, 44});
    show(holder, 1082);
    const int main = 1082 - Metrics::sideWidth - Metrics::gapSection;
    EXPECT_EQ(parts[1]->geometry(), QRect(0, 0, main, 88));
    EXPECT_EQ(parts[2]->geometry(), QRect(0, 108, main, 300));
    EXPECT_EQ(parts[0]->geometry(), QRect(main + 24, 0, 336, 220));
    EXPECT_EQ(parts[3]->geometry(), QRect(main + 24, 240, 336, 330));
    EXPECT_EQ(parts[4]->geometry(), QRect(0, 428, main, 56));
    EXPECT_EQ(parts[5]->geometry(), QRect(0, 504, main, 44));
    EXPECT_EQ(holder.height(), 570) << "the side is the longer one";
}

TEST(TakeLayout, HasTheReferenceBesideTheResultWhereThereIsNot) {
    QWidget holder;
    auto* layout = new TakeLayout(&holder);
    const auto parts = addBlocks(*layout, {189, 180, 206, 330, 56, 44});
    show(holder, 702);
    EXPECT_EQ(parts[0]->geometry(), QRect(0, 0, 236, 189));
    EXPECT_EQ(parts[1]->geometry(), QRect(252, 0, 450, 180));
    EXPECT_EQ(parts[2]->geometry(), QRect(0, 209, 702, 206));
    EXPECT_EQ(parts[3]->geometry(), QRect(0, 435, 702, 330));
    EXPECT_EQ(parts[4]->geometry(), QRect(0, 785, 702, 56));
    EXPECT_EQ(parts[5]->geometry(), QRect(0, 861, 702, 44));
    EXPECT_EQ(holder.height(), 905);
}

}  // namespace
}  // namespace vantry::test
