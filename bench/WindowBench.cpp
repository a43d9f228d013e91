// What a person waits for in the window, without a screen: pages that open and are brought in line, and the
// tree of the sidebar with every row open.

#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include "bench/OpenWindow.h"

namespace vantry::bench {
namespace {

/// Opens every row of a tree in which nobody has opened any, until it is painted.
void expandAll(benchmark::State& state, const Workload& work) {
    for (auto _ : state) {
        state.PauseTiming();
        auto open = std::make_unique<OpenWindow>(work);
        state.ResumeTiming();
        open->press(QStringLiteral("Expand all"));
        settle();
        state.PauseTiming();
        open.reset();
        state.ResumeTiming();
    }
}

enum class Tree { closed, open };

/// Leaves a page for `route`, until that is painted.
void openPage(benchmark::State& state, const Workload& work, Route (*route)(const Places&), Tree tree) {
    OpenWindow open(work);
    const Places places(open.store->library());
    if (tree == Tree::open)
        open.press(QStringLiteral("Expand all"));
    const Route target = route(places);
    const Route other = target == Route::library() ? Route::settings() : Route::library();
    for (auto _ : state) {
        state.PauseTiming();
        open.go(other);
        state.ResumeTiming();
        open.go(target);
    }
}

/// Types a letter into the notes of the take on screen, until everything that shows it is painted.
void typeOnPage(benchmark::State& state, const Workload& work, Tree tree) {
    OpenWindow open(work);
    const Places places(open.store->library());
    if (tree == Tree::open)
        open.press(QStringLiteral("Expand all"));
    open.go(places.take());
    for (auto _ : state) {
        open.store->updateTake(places.projectID, places.actID, places.shotID, places.takeID,
                               [](VantryTake& take) { take.notes = Text(take.notes.utf8() + "x"); });
        settle();
    }
}

/// Brings everything in line after the title of a shot changed, with every row of the tree open.
void refreshAll(benchmark::State& state, const Workload& work, Route (*route)(const Places&)) {
    OpenWindow open(work);
    const Places places(open.store->library());
    open.press(QStringLiteral("Expand all"));
    open.go(route(places));
    bool odd = false;
    for (auto _ : state) {
        odd = !odd;
        open.store->updateShot(places.projectID, places.actID, places.shotID,
                               [odd](Shot& shot) { shot.title = odd ? "One" : "Other"; });
        settle();
    }
}

/// Adds a take, until every row of an open tree is in line; taking it away again is not counted.
void addTake(benchmark::State& state, const Workload& work) {
    OpenWindow open(work);
    const Places places(open.store->library());
    open.press(QStringLiteral("Expand all"));
    open.go(places.act());
    for (auto _ : state) {
        open.store->updateShot(places.projectID, places.actID, places.shotID, [](Shot& shot) {
            VantryTake take = *shot.takes.front();
            take.id = Identifier::random();
            shot.takes.push_back(take);
        });
        settle();
        state.PauseTiming();
        open.store->updateShot(places.projectID, places.actID, places.shotID,
                               [](Shot& shot) { shot.takes.pop_back(); });
        settle();
        state.ResumeTiming();
    }
}

}  // namespace

void registerWindow(const Workload& work) {
    const auto add = [&work](const std::string& name, auto function) {
        benchmark::RegisterBenchmark(name.c_str(), [&work, function](benchmark::State& state) {
            function(state, work);
        })->Unit(benchmark::kMillisecond);
    };
    struct Named {
        const char* name;
        Route (*route)(const Places&);
    };
    const Named pages[] = {{"library", [](const Places&) { return Route::library(); }},
                           {"project", [](const Places& places) { return places.project(); }},
                           {"act", [](const Places& places) { return places.act(); }},
                           {"shot", [](const Places& places) { return places.shot(); }},
                           {"take", [](const Places& places) { return places.take(); }}};
    add("tree/expandAll", expandAll);
    add("tree/keystroke", [](auto& state, const auto& opened) { typeOnPage(state, opened, Tree::open); });
    add("page/keystroke", [](auto& state, const auto& opened) { typeOnPage(state, opened, Tree::closed); });
    add("tree/new-take", addTake);
    for (const auto& [name, route] : pages) {
        const auto target = route;
        add(std::string("tree/open-") + name,
            [target](auto& state, const auto& opened) { openPage(state, opened, target, Tree::open); });
        add(std::string("page/open-") + name,
            [target](auto& state, const auto& opened) { openPage(state, opened, target, Tree::closed); });
        add(std::string("tree/refresh-") + name,
            [target](auto& state, const auto& opened) { refreshAll(state, opened, target); });
    }
}

}  // namespace vantry::bench
