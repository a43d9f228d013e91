#include "Vantry/interface/routes/PageFlag.h"

#include <gtest/gtest.h>

#include <QDialog>

#include "Vantry/interface/routes/PageEnvironment.h"

namespace vantry::test {
namespace {

const Route route = Route::project(Identifier::random());

class PageFlagTest : public testing::Test {
protected:
    void enterWorkspace() { new PageEnvironment(page, memory, route); }

    QWidget window;
    QWidget page{&window};
    QWidget* inner = new QWidget(&page);
    std::shared_ptr<PageMemory> memory = std::make_shared<PageMemory>();
};

TEST_F(PageFlagTest, OutsideTheWorkspaceItKeepsItsOwnValue) {
    PageFlag open(*inner, "cast-editor", true);
    PageChoice mode(*inner, "shot-board-mode", 2);
    EXPECT_TRUE(open.value());
    EXPECT_EQ(mode.value(), 2);
    open.setValue(false);
    mode.setValue(1);
    EXPECT_FALSE(open.value());
    EXPECT_EQ(mode.value(), 1);
    EXPECT_TRUE(PageFlag(*inner, "cast-editor", true).value()) << "and shares it with no other";
}

TEST_F(PageFlagTest, InTheWorkspaceWhatWasNeverSetIsFalseWhateverTheFallback) {
    PageFlag open(*inner, "cast-editor", true);
    PageChoice mode(*inner, "shot-board-mode", 2);
    EXPECT_TRUE(open.value());
    enterWorkspace();
    EXPECT_FALSE(open.value());
    EXPECT_EQ(mode.value(), 0);
}

TEST_F(PageFlagTest, InTheWorkspaceTheMemoryHoldsTheValue) {
    enterWorkspace();
    PageFlag open(*inner, "cast-editor");
    PageChoice mode(*inner, "shot-board-mode");
    open.setValue(true);
    mode.setValue(1);
    EXPECT_EQ(memory->panel(route, "cast-editor"), true);
    EXPECT_EQ(memory->choice(route, "shot-board-mode"), 1);
    memory->setPanel(route, "cast-editor", false);
    memory->setChoice(route, "shot-board-mode", 0);
    EXPECT_FALSE(open.value());
    EXPECT_EQ(mode.value(), 0);
    open.setValue(true);
    EXPECT_TRUE(PageFlag(page, "cast-editor").value()) << "for the whole page";
    EXPECT_FALSE(PageFlag(page, "crew-editor").value()) << "by its key";
}

TEST_F(PageFlagTest, WhatIsSetInTheWorkspaceLeavesTheFallbackAlone) {
    auto* environment = new PageEnvironment(page, memory, route);
    PageFlag open(*inner, "cast-editor", false);
    PageChoice mode(*inner, "shot-board-mode", 0);
    open.setValue(true);
    mode.setValue(3);
    delete environment;
    EXPECT_FALSE(open.value());
    EXPECT_EQ(mode.value(), 0);
}

TEST_F(PageFlagTest, ASheetOverThePageHasNoPartInItsMemory) {
    enterWorkspace();
    auto* sheet = new QDialog(&page);
    auto* content = new QWidget(sheet);
    EXPECT_EQ(PageEnvironment::of(*sheet), nullptr);
    EXPECT_EQ(PageEnvironment::of(*content), nullptr);
    PageFlag open(*content, "cast-editor", true);
    EXPECT_TRUE(open.value());
    open.setValue(false);
    EXPECT_FALSE(open.value());
    EXPECT_EQ(memory->panel(route, "cast-editor"), std::nullopt);
}

TEST_F(PageFlagTest, ThePageTellsItsMemoryAndItsPlace) {
    EXPECT_EQ(PageEnvironment::of(*inner), nullptr);
    enterWorkspace();
    const PageEnvironment* environment = PageEnvironment::of(*inner);
    ASSERT_NE(environment, nullptr);
    EXPECT_EQ(PageEnvironment::of(page), environment);
    EXPECT_EQ(PageEnvironment::of(window), nullptr) << "what is around the page has none";
    EXPECT_EQ(&environment->memory(), memory.get());
    EXPECT_EQ(environment->route(), route);
}

}  // namespace
}  // namespace vantry::test
