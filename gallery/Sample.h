#pragma once

#include <memory>

#include <QTemporaryDir>

#include "Vantry/app/Clock.h"
#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/routes/Route.h"

namespace vantry::gallery {

/// A production, and the three fates of a save, on data folders that last as long as this.
class Sample final {
public:
    Sample();

    /// All of it is on disk.
    [[nodiscard]] VantryStore& saved() noexcept { return *savedStore; }
    /// An edit waits to be saved, and waits on.
    [[nodiscard]] VantryStore& pending() noexcept { return *pendingStore; }
    /// The last save failed.
    [[nodiscard]] VantryStore& failed() noexcept { return *failedStore; }
    /// The take of `saved` that is on screen.
    [[nodiscard]] const Route& place() const noexcept { return takeRoute; }

private:
    /// It is always the same minute, and nothing falls due.
    class StillClock final : public Clock {
    public:
        Moment now() override;
        double uptime() override { return 0; }
        std::unique_ptr<DelayedCall> callAfter(std::chrono::milliseconds delay,
                                               std::function<void()> call) override;
    };

    [[nodiscard]] std::unique_ptr<VantryStore> storeIn(const char* folder);
    void fill(VantryStore& store);

    QTemporaryDir folder;
    StillClock clock;
    std::unique_ptr<VantryStore> savedStore;
    std::unique_ptr<VantryStore> pendingStore;
    std::unique_ptr<VantryStore> failedStore;
    Route takeRoute;
};

}  // namespace vantry::gallery
