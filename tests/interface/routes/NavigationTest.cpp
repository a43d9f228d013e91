#include "Vantry/interface/routes/Navigation.h"

#include <unordered_set>

#include <gtest/gtest.h>

namespace vantry::test {
namespace {

using Routes = std::vector<Route>;

class NavigationTest : public testing::Test {
protected:
    bool go(const Route& route) {
        return places.go(route, [this] { return flush(); });
    }
    bool goBack() {
        return places.goBack([this] { return flush(); });
    }
    bool flush() {
        ++flushes;
        return disk;
    }

    Navigation places;
    bool disk = true;
    int flushes = 0;
    const Route project = Route::project(Identifier::random());
    const Route act = Route::act(*project.projectID(), Identifier::random());
    const Route shot = Route::shot(*project.projectID(), *act.actID(), Identifier::random());
};

TEST_F(NavigationTest, StartsInTheLibraryWithNowhereToGoBack) {
    EXPECT_EQ(places.route(), Route::library());
    EXPECT_TRUE(places.history().empty());
    EXPECT_FALSE(places.canGoBack());
}

TEST_F(NavigationTest, RemembersThePlacesThatWereLeft) {
    go(project);
    go(act);
    EXPECT_EQ(places.history(), (Routes{Route::library(), project}));
    EXPECT_TRUE(goBack());
    EXPECT_EQ(places.route(), project);
    EXPECT_EQ(places.history(), Routes{Route::library()});
}

TEST_F(NavigationTest, TheLibraryEmptiesTheHistory) {
    go(project);
    go(act);
    go(Route::library());
    EXPECT_TRUE(places.history().empty());
    EXPECT_FALSE(places.canGoBack());
}

TEST_F(NavigationTest, APlaceOfTheHistoryCutsItThere) {
    go(project);
    go(act);
    go(shot);
    go(act);
    EXPECT_EQ(places.route(), act);
    EXPECT_EQ(places.history(), (Routes{Route::library(), project}));
}

TEST_F(NavigationTest, GoingWhereOneIsSavesNothing) {
    go(project);
    flushes = 0;
    EXPECT_FALSE(go(project));
    EXPECT_EQ(flushes, 0);
    EXPECT_EQ(places.history(), Routes{Route::library()});
}

TEST_F(NavigationTest, NoPlaceIsLeftWhileItsEditsCannotBeWritten) {
    go(project);
    disk = false;
    EXPECT_FALSE(go(act));
    EXPECT_FALSE(goBack());
    EXPECT_EQ(places.route(), project);
    EXPECT_EQ(places.history(), Routes{Route::library()});
    EXPECT_EQ(flushes, 3);
}

TEST_F(NavigationTest, BackWithoutAHistoryLeadsToTheLibrary) {
    go(Route::calendar());
    goBack();
    go(Route::calendar());
    go(Route::library());
    go(Route::calendar());
    goBack();
    EXPECT_EQ(places.route(), Route::library());
    EXPECT_TRUE(goBack()) << "the library again";
    EXPECT_EQ(places.route(), Route::library());
}

TEST_F(NavigationTest, ThePlaceIsToldBeforeItIsReached) {
    Routes told;
    Routes whereThen;
    const Navigation* asked = nullptr;
    Navigation telling([&](const Route& target) {
        told.push_back(target);
        whereThen.push_back(asked->route());
    });
    asked = &telling;
    const auto saved = [] { return true; };
    telling.go(project, saved);
    telling.go(act, saved);
    telling.goBack(saved);
    telling.go(Route::library(), saved);
    EXPECT_EQ(told, (Routes{project, act, project, Route::library()}));
    EXPECT_EQ(whereThen, (Routes{Route::library(), project, act, project}));
    telling.go(Route::library(), saved);
    telling.go(project, [] { return false; });
    EXPECT_EQ(told.size(), 4U) << "nobody leaves";
}

TEST_F(NavigationTest, TheOldestOfMoreThanAHundredEntriesGoes) {
    Routes visited;
    for (int count = 0; count < 101; ++count) {
        visited.push_back(Route::project(Identifier::random()));
        go(visited.back());
    }
    ASSERT_EQ(places.history().size(), Navigation::longestHistory);
    EXPECT_EQ(places.history().front(), visited.front()) << "the library went";
    EXPECT_EQ(places.history().back(), visited[99]);
}

TEST(RouteTest, CarriesTheIdentifiersDownToItsLevelAndNoOthers) {
    const Identifier a = Identifier::random();
    const Identifier b = Identifier::random();
    const Identifier c = Identifier::random();
    const Identifier d = Identifier::random();
    const Route take = Route::take(a, b, c, d);
    EXPECT_EQ(take.place(), Route::Place::take);
    EXPECT_EQ(take.projectID(), a);
    EXPECT_EQ(take.actID(), b);
    EXPECT_EQ(take.shotID(), c);
    EXPECT_EQ(take.takeID(), d);
    EXPECT_EQ(Route::act(a, b).projectID(), a);
    EXPECT_FALSE(Route::act(a, b).shotID());
    EXPECT_FALSE(Route::settings().projectID());
}

TEST(RouteTest, EqualRoutesAreOneKey) {
    const Identifier a = Identifier::random();
    const Identifier b = Identifier::random();
    const std::unordered_set<Route> routes{Route::project(a), Route::project(a),    Route::project(b),
                                           Route::act(a, b),  Route::act(b, a),     Route::library(),
                                           Route::search(),   Route::calendar(),    Route::settings(),
                                           Route(),           Route::shot(a, b, a), Route::take(a, b, a, b)};
    EXPECT_EQ(routes.size(), 10U);
}

}  // namespace
}  // namespace vantry::test
