#pragma once

#include <string>

#include "VantryCore/records/Moment.h"
#include "VantryCore/records/Zone.h"

namespace vantry {

/// A day and time as the pages show it in lists: "Sat 21 Nov, 20:30", or "11月21日 周六 20:30". The year
/// stands with it where it is not that of `now`.
[[nodiscard]] std::string shootTime(Moment moment, Moment now, const Zone& zone, bool english);

/// The same without the day of the week: "21 Nov, 20:30", or "11月21日 20:30".
[[nodiscard]] std::string dayAndTime(Moment moment, Moment now, const Zone& zone, bool english);

/// A day in full: "Saturday 21 November 2026", or "2026年11月21日 星期六".
[[nodiscard]] std::string longDay(Moment moment, const Zone& zone, bool english);

}  // namespace vantry
