#pragma once

#include <cmath>

namespace vantry {

/// A point in time: seconds since 2001-01-01 00:00:00 UTC, fractions included. It knows no calendar; a
/// `Calendar` is applied where a day is asked for.
struct Moment {
    double seconds = 0;

    /// The present moment by the system's clock.
    [[nodiscard]] static Moment now();
    [[nodiscard]] bool isFinite() const noexcept { return std::isfinite(seconds); }

    friend bool operator==(const Moment&, const Moment&) noexcept = default;
    friend auto operator<=>(const Moment&, const Moment&) noexcept = default;
};

/// Seconds from 1970-01-01 to 2001-01-01, both 00:00:00 UTC.
inline constexpr long long unixSecondsOfReferenceDate = 978307200;

}  // namespace vantry
