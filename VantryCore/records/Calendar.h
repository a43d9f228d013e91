#pragma once

#include <optional>

#include "VantryCore/records/Moment.h"
#include "VantryCore/records/Zone.h"

namespace vantry {

struct ClockReading;

/// From the first moment up to, but not including, the end.
struct DayInterval {
    Moment start;
    Moment end;
};

/// The Gregorian calendar of a zone. Days are what the clocks of that zone show: a day may have 23 or 25
/// hours, may begin later than midnight, and a wall time may be missing or come twice.
///
/// Moments beyond about three million years from now are on no calendar: for them there is no answer.
class Calendar {
public:
    explicit Calendar(Zone zone)
        : timeZone(std::move(zone)) {}

    [[nodiscard]] const Zone& zone() const noexcept { return timeZone; }

    /// The first moment of the day that contains `inside`.
    [[nodiscard]] std::optional<Moment> startOfDay(Moment inside) const;
    /// That day, up to the first moment of the next.
    [[nodiscard]] std::optional<DayInterval> day(Moment inside) const;
    /// The first moment of the minute that contains `inside`, by the clock of the zone.
    [[nodiscard]] std::optional<Moment> startOfMinute(Moment inside) const;
    [[nodiscard]] bool isSameDay(Moment a, Moment b) const;
    /// The first moment at which calendar and clock show that; none for a wall time that is missing, and for
    /// fields out of range.
    [[nodiscard]] std::optional<Moment> momentShowing(const ClockReading& reading) const;
    /// The first moment behind `after` whose clock shows `hour`:`minute`:00. A wall time that a change of the
    /// clocks removes is skipped to another day, never moved to a neighbour.
    [[nodiscard]] std::optional<Moment> nextMoment(Moment after, int hour, int minute) const;

private:
    Zone timeZone;
};

}  // namespace vantry
