#include "Vantry/interface/shots/ShotOrder.h"

#include <gtest/gtest.h>

namespace vantry::test {
namespace {

/// Two acts, of three shots and of two.
class ShotOrderTest : public testing::Test {
protected:
    void SetUp() override {
        project.acts = {act("Harbour", {"Pier", "Window", "Fog"}), act("码头夜戏", {"Ticket", "Rail"})};
    }
    static Act act(const char* title, const std::vector<const char*>& titles) {
        Act made = Act::make(title);
        int code = 0;
        for (const char* name : titles)
            made.shots.emplace_back(Shot::make("0" + std::to_string(++code), name, {}));
        return made;
    }
    [[nodiscard]] Shot& shot(std::size_t act, std::size_t at) {
        return project.acts[act].edit().shots[at].edit();
    }
    [[nodiscard]] std::vector<std::string> found(std::string_view query) const {
        std::vector<std::string> titles;
        for (const auto& held : ShotOrder(project).matching(query))
            titles.push_back(held.shot->title.utf8());
        return titles;
    }
    /// The title of the neighbour, or nothing.
    [[nodiscard]] std::string neighbor(const Shot& of, int step) const {
        const auto next = ShotOrder(project).neighbor(of.id, step);
        return next ? next->shot->title.utf8() : "";
    }

    Project project = Project::make("Ferry");
};

TEST_F(ShotOrderTest, IsThatOfTheProductionAcrossActs) {
    EXPECT_EQ(found(""), (std::vector<std::string>{"Pier", "Window", "Fog", "Ticket", "Rail"}));
    EXPECT_EQ(ShotOrder(project).indexOf(shot(1, 0).id), 3U);
    EXPECT_EQ(neighbor(shot(0, 2), 1), "Ticket");
    EXPECT_EQ(neighbor(shot(1, 0), -1), "Fog");
    EXPECT_EQ(neighbor(shot(0, 0), -1), "");
    EXPECT_EQ(neighbor(shot(1, 1), 1), "");
}

TEST_F(ShotOrderTest, CancelledShotsAreSkippedAndCount) {
    shot(0, 2).cancelled = true;
    shot(1, 0).cancelled = true;
    EXPECT_EQ(neighbor(shot(0, 1), 1), "Rail");
    EXPECT_EQ(neighbor(shot(1, 1), -1), "Window");
    EXPECT_EQ(ShotOrder(project).indexOf(shot(1, 1).id), 4U);
    EXPECT_EQ(neighbor(shot(1, 0), 1), "Rail") << "a cancelled one has neighbours too";
    EXPECT_EQ(neighbor(shot(1, 0), -1), "Window");
    for (const auto& [act, at] : {std::pair<std::size_t, std::size_t>{0, 0}, {0, 1}})
        shot(act, at).cancelled = true;
    EXPECT_EQ(neighbor(shot(1, 1), -1), "") << "all others are off";
    EXPECT_EQ(neighbor(shot(1, 1), 1), "");
}

TEST_F(ShotOrderTest, OneThatIsNotThereHasNeitherPlaceNorNeighbour) {
    const Shot other = Shot::make("1", "x", {});
    EXPECT_FALSE(ShotOrder(project).indexOf(other.id));
    EXPECT_EQ(neighbor(other, 1), "");
    project.acts.clear();
    EXPECT_TRUE(ShotOrder(project).ordered().empty());
}

TEST_F(ShotOrderTest, IsSearchedByActCodeAndTitle) {
    EXPECT_EQ(found("  harb \n"), (std::vector<std::string>{"Pier", "Window", "Fog"}));
    EXPECT_EQ(found("ｗｉｎ"), (std::vector<std::string>{"Window"}));
    EXPECT_EQ(found("02"), (std::vector<std::string>{"Window", "Rail"}));
    EXPECT_EQ(found("夜戏"), (std::vector<std::string>{"Ticket", "Rail"}));
    EXPECT_EQ(found("   ").size(), 5U);
    EXPECT_TRUE(found("nothing").empty());
}

}  // namespace
}  // namespace vantry::test
