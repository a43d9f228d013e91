#include "Vantry/interface/routes/PageMemory.h"

#include <gtest/gtest.h>

namespace vantry::test {
namespace {

const Identifier projectID = Identifier::random();
const Route library = Route::library();
const Route project = Route::project(projectID);

class PageMemoryTest : public testing::Test {
protected:
    void SetUp() override {
        memory.onChange([this] { ++changes; });
    }

    PageMemory memory;
    int changes = 0;
};

TEST_F(PageMemoryTest, IsEmptyAndAtTheLibraryAtFirst) {
    EXPECT_EQ(memory.active, Route::library());
    EXPECT_TRUE(memory.offsets.empty());
    EXPECT_TRUE(memory.scopedOffsets.empty());
    EXPECT_EQ(memory.panel(library, "defaults"), std::nullopt);
    EXPECT_EQ(memory.choice(library, "section"), std::nullopt);
}

TEST_F(PageMemoryTest, KeepsPanelsAndChoicesByPlaceAndKey) {
    memory.setPanel(project, "defaults", true);
    memory.setChoice(project, "section", 3);
    memory.setChoice(project, "mode", 1);
    EXPECT_EQ(memory.panel(project, "defaults"), true);
    EXPECT_EQ(memory.choice(project, "section"), 3);
    EXPECT_EQ(memory.choice(project, "mode"), 1);
    EXPECT_EQ(memory.panel(project, "other"), std::nullopt);
    EXPECT_EQ(memory.panel(library, "defaults"), std::nullopt);
    EXPECT_EQ(memory.choice(project, "defaults"), std::nullopt) << "a panel is no choice";
    memory.setPanel(project, "defaults", false);
    EXPECT_EQ(memory.panel(project, "defaults"), false) << "closed is not the same as untouched";
}

TEST_F(PageMemoryTest, EachRecordAndEachLevelHasItsOwn) {
    const Identifier first = Identifier::random();
    const Identifier second = Identifier::random();
    memory.setChoice(Route::act(projectID, first), "mode", 1);
    EXPECT_EQ(memory.choice(Route::act(projectID, second), "mode"), std::nullopt);
    EXPECT_EQ(memory.choice(Route::act(Identifier::random(), first), "mode"), std::nullopt);
    EXPECT_EQ(memory.choice(project, "mode"), std::nullopt);
    EXPECT_EQ(memory.choice(Route::act(projectID, first), "mode"), 1);
}

TEST_F(PageMemoryTest, TellsOfPanelsAndChoices) {
    memory.setPanel(project, "defaults", true);
    EXPECT_EQ(changes, 1);
    memory.setChoice(project, "section", 2);
    EXPECT_EQ(changes, 2);
    memory.setChoice(project, "section", 0);
    EXPECT_EQ(changes, 3);
}

TEST_F(PageMemoryTest, TellsOfNothingThatIsAsItWas) {
    memory.setPanel(project, "defaults", false);
    EXPECT_EQ(changes, 1) << "closed by hand is a value";
    memory.setPanel(project, "defaults", false);
    memory.setChoice(project, "section", 1);
    memory.setChoice(project, "section", 1);
    EXPECT_EQ(changes, 2);
}

TEST_F(PageMemoryTest, IsSilentAboutPositionsAndThePlaceOnScreen) {
    memory.active = project;
    memory.offsets[project] = {0, 120};
    memory.scopedOffsets[project]["project-1"] = {0, 7};
    EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace vantry::test
