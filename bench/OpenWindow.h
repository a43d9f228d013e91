#pragma once

#include <optional>

#include <QString>
#include <QTemporaryDir>

#include "Vantry/app/AppDelegate.h"
#include "Vantry/app/Clock.h"
#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/VantryMotionPreference.h"
#include "Vantry/interface/navigation/RootView.h"
#include "bench/Workload.h"

namespace vantry::bench {

/// Lets everything happen that is queued, painting too.
void settle();

/// Time stands still: no save begins by itself.
class StillClock final : public Clock {
public:
    Moment now() override { return Moment{800000000}; }
    double uptime() override { return 0; }
    std::unique_ptr<DelayedCall> callAfter(std::chrono::milliseconds, std::function<void()>) override {
        return std::make_unique<DelayedCall>();
    }
};

/// The program on a copy of the library, as wide as it starts, without a screen.
class OpenWindow {
public:
    /// When it saves by itself.
    enum class Saving { never, asUsual };

    explicit OpenWindow(const Workload& work, Saving saving = Saving::never);
    ~OpenWindow();

    void press(const QString& name);
    void go(const Route& route);

    std::optional<VantryMotionPreference> still;
    StillClock clock;
    std::optional<QTemporaryDir> folder;
    std::optional<VantryStore> store;
    AppDelegate delegate;
    std::optional<RootView> window;
};

/// A take in the middle of the library, and the places above it.
struct Places {
    explicit Places(const Library& library);
    [[nodiscard]] Route project() const { return Route::project(projectID); }
    [[nodiscard]] Route act() const { return Route::act(projectID, actID); }
    [[nodiscard]] Route shot() const { return Route::shot(projectID, actID, shotID); }
    [[nodiscard]] Route take() const { return Route::take(projectID, actID, shotID, takeID); }

    Identifier projectID, actID, shotID, takeID;
};

}  // namespace vantry::bench
