#pragma once

#include <cstdint>
#include <string>

#include "VantryCore/records/Moment.h"
#include "VantryCore/records/Zone.h"

namespace vantry {

/// What the calendar and the clock of a zone show (Gregorian, ISO 8601).
struct ClockReading {
    std::int64_t year = 1;  ///< 0 is the year before 1
    int month = 1;          ///< 1 to 12
    int day = 1;            ///< 1 to 31
    int hour = 0;           ///< 0 to 23
    int minute = 0;
    int second = 0;

    [[nodiscard]] std::string dayText() const;       ///< "2026-11-15"; years before 1 count backwards from 1
    [[nodiscard]] std::string monthDayText() const;  ///< "11-15"
    [[nodiscard]] std::string timeText() const;      ///< "09:05"
};

/// What the clock of the zone shows at that moment. Moments beyond the reach of `Calendar`, about three
/// million years, read as the last one within it.
[[nodiscard]] ClockReading readClock(Moment moment, const Zone& zone);

}  // namespace vantry
