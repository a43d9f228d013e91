// What a person waits for in the window, without a screen: pages that open and are brought in line, and the
// tree of the sidebar with every row open.

#include <chrono>
#include <memory>
#include <optional>
#include <stdexcept>

#include <benchmark/benchmark.h>

#include <QAbstractButton>
#include <QTemporaryDir>

#include "Vantry/app/AppDelegate.h"
#include "Vantry/app/Clock.h"
#include "Vantry/app/QtText.h"
#include "Vantry/app/VantryApplication.h"
#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/VantryMotionPreference.h"
#include "Vantry/interface/design/VantryType.h"
#include "Vantry/interface/navigation/RootView.h"
#include "bench/Workload.h"

namespace vantry::bench {
namespace {

/// Time stands still: no save begins by itself.
class StillClock final : public Clock {
public:
    Moment now() override { return Moment{800000000}; }
    double uptime() override { return 0; }
    std::unique_ptr<DelayedCall> callAfter(std::chrono::milliseconds, std::function<void()>) override {
        return std::make_unique<DelayedCall>();
    }
};

void makeApplication() {
    static int count = 1;
    static char name[] = "vantry-bench";
    static char* arguments[] = {name, nullptr};
    static std::optional<QTemporaryDir> runtime;
    static std::unique_ptr<VantryApplication> application;
    if (application != nullptr)
        return;
    runtime.emplace();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_RUNTIME_DIR", runtime->path().toUtf8());
    application = std::make_unique<VantryApplication>(count, arguments);
    const QString bundle = QCoreApplication::applicationDirPath() + QStringLiteral("/Vantry_Vantry.rcc");
    if (!VantryType::registerFonts(bundle))
        throw std::runtime_error("the resource file is missing");
}

/// Lets everything happen that is queued, painting too.
void settle() {
    for (int turn = 0; turn < 3; ++turn) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

/// The program on a copy of the library, as wide as it starts.
class OpenWindow {
public:
    explicit OpenWindow(const Workload& work) {
        makeApplication();
        // What is measured is the work, not its show.
        still.emplace().setChoice(true);
        std::filesystem::create_directories(work.scratch);
        folder.emplace(toQString(Text(work.scratch.string())) + QStringLiteral("/window"));
        const std::filesystem::path root = folder->path().toStdString();
        std::filesystem::create_hard_link(work.file, root / "library.json");
        Surroundings around;
        around.clock = &clock;
        store.emplace(root, around);
        if (store->loadFailed())
            throw std::runtime_error("the library cannot be read");
        store->setLanguage("en");
        window.emplace(*store, delegate);
        window->show();
        settle();
    }
    ~OpenWindow() {
        window.reset();
        settle();
    }

    void press(const QString& name) {
        for (auto* button : window->findChildren<QAbstractButton*>())
            if (button->accessibleName() == name)
                return button->click();
        throw std::runtime_error("no button is called " + name.toStdString());
    }
    void go(const Route& route) {
        window->go(route);
        settle();
    }

    std::optional<VantryMotionPreference> still;
    StillClock clock;
    std::optional<QTemporaryDir> folder;
    std::optional<VantryStore> store;
    AppDelegate delegate;
    std::optional<RootView> window;
};

/// A take in the middle of the library, and the places above it.
struct Places {
    explicit Places(const Library& library) {
        const auto takes = takePlaces(library);
        const TakePlace place = takes.at(takes.size() / 2);
        const Project& project = *library.projects[place.project];
        const Act& act = *project.acts[place.act];
        const Shot& shot = *act.shots[place.shot];
        projectID = project.id;
        actID = act.id;
        shotID = shot.id;
        takeID = shot.takes[place.take]->id;
    }
    [[nodiscard]] Route project() const { return Route::project(projectID); }
    [[nodiscard]] Route act() const { return Route::act(projectID, actID); }
    [[nodiscard]] Route shot() const { return Route::shot(projectID, actID, shotID); }
    [[nodiscard]] Route take() const { return Route::take(projectID, actID, shotID, takeID); }

    Identifier projectID, actID, shotID, takeID;
};

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
