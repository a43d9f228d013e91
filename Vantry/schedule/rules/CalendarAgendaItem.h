#pragma once

#include <variant>
#include <vector>

#include "Vantry/schedule/rules/Locations.h"
#include "VantryCore/records/Calendar.h"

namespace vantry {

/// A line of a day's agenda: a shot or a call sheet.
class CalendarAgendaItem {
public:
    using Event = std::variant<ShotLocation, CallSheetLocation>;

    explicit CalendarAgendaItem(Event what);

    [[nodiscard]] const Event& event() const noexcept { return held; }
    [[nodiscard]] const Identifier& id() const;
    /// When it begins; a shot from the day before keeps its own beginning. The distant past without one.
    [[nodiscard]] Moment start() const noexcept { return begin; }

    /// What is on the day that contains `day`, by beginning, then by identifier: the order is the same
    /// whatever the order of the lists. Cancelled and unscheduled shots, and sheets without a readable time,
    /// are on no day; a sheet is on the one day of its beginning.
    [[nodiscard]] static std::vector<CalendarAgendaItem>
    daily(const std::vector<ShotLocation>& shots, const std::vector<CallSheetLocation>& callSheets,
          Moment day, const Calendar& calendar);

private:
    Event held;
    Moment begin;
};

}  // namespace vantry
