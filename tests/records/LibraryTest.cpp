#include "VantryCore/records/Library.h"

#include <gtest/gtest.h>

namespace vantry {
namespace {

TEST(Library, IsNewWithItsFormatItsVersionAndNoProjects) {
    const Library library;
    EXPECT_EQ(library.format.utf8(), "Vantry");
    EXPECT_EQ(library.version, 1);
    EXPECT_TRUE(library.projects.empty());
}

TEST(Library, GathersTheImageKeysOfAllShots) {
    const auto shotWith = [](std::optional<Text> key) {
        Shot shot = Shot::make("", "", {});
        shot.imageKey = std::move(key);
        return shot;
    };
    Act first = Act::make("");
    first.shots = {shotWith("b"), shotWith({}), shotWith("a"), shotWith("b")};
    Act second = Act::make("");
    second.shots = {shotWith("A")};
    Project one = Project::make("");
    one.acts = {first, second};
    Project other = Project::make("");
    other.acts = {first};
    other.acts[0].edit().shots = {shotWith("c")};
    Library library;
    EXPECT_TRUE(library.mediaKeys().empty());
    library.projects = {one, other, Project::make("")};
    EXPECT_EQ(library.mediaKeys(), (std::set<std::string>{"A", "a", "b", "c"}));
}

}  // namespace
}  // namespace vantry
