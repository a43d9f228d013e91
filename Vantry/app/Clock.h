#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "VantryCore/records/Moment.h"

namespace vantry {

/// A call that is due later. Destroying it cancels it; after the call has run that does nothing.
class DelayedCall {
public:
    DelayedCall() = default;
    DelayedCall(const DelayedCall&) = delete;
    DelayedCall& operator=(const DelayedCall&) = delete;
    virtual ~DelayedCall() = default;
};

/// Time as the application sees it. Tests bring their own.
class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    /// The system's clock and the event loop's timers.
    [[nodiscard]] static Clock& system();

    [[nodiscard]] virtual Moment now() = 0;
    /// Seconds of a clock that no setting moves.
    [[nodiscard]] virtual double uptime() = 0;
    /// Runs `call` once on this thread, `delay` from now: never earlier, and then at once. It may destroy its
    /// own DelayedCall.
    [[nodiscard]] virtual std::unique_ptr<DelayedCall> callAfter(std::chrono::milliseconds delay,
                                                                 std::function<void()> call) = 0;
};

}  // namespace vantry
