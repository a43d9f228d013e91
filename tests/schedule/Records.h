#pragma once

#include <string>
#include <vector>

#include "Vantry/schedule/rules/CalendarAgendaItem.h"
#include "VantryCore/records/ClockReading.h"
#include "tests/support/Clock.h"

namespace vantry::test {

inline Calendar calendarOf(const std::string& zone) {
    return Calendar(*Zone::find(zone));
}

/// The moment at which the clock of the zone shows a text such as "2026-10-18 23:50:07". What is missing at
/// its end is zero.
inline Moment at(const std::string& zone, const std::string& clock) {
    const auto number = [&clock](std::size_t position, std::size_t length) {
        return position < clock.size() ? std::stoi(clock.substr(position, length)) : 0;
    };
    ClockReading reading;
    reading.year = number(0, 4);
    reading.month = number(5, 2);
    reading.day = number(8, 2);
    reading.hour = number(11, 2);
    reading.minute = number(14, 2);
    reading.second = number(17, 2);
    return calendarOf(zone).momentShowing(reading).value();
}

inline Moment later(Moment moment, double minutes) {
    return Moment{moment.seconds + minutes * 60};
}

inline Shot shotWithoutTime(const char* code) {
    return Shot::make(code, "", {});
}

inline Shot shotFrom(Moment start, std::int64_t minutes, const char* code = "01") {
    Shot shot = shotWithoutTime(code);
    shot.scheduledAt = start;
    shot.durationMinutes = minutes;
    return shot;
}

inline Shot cancelled(Shot shot) {
    shot.cancelled = true;
    return shot;
}

/// A sheet for the day of that zone which contains `date`, called for the time that is written.
inline CallSheet sheetFor(const char* zone, Moment date, const char* call, const char* name = "sheet") {
    CallSheet sheet = CallSheet::make(date);
    sheet.timeZoneID = zone;
    sheet.set("generalCall", call);
    sheet.set("company", name);
    return sheet;
}

/// The shots in one act of one production.
inline std::vector<ShotLocation> located(const std::vector<Shot>& shots) {
    Act act = Act::make("Act");
    act.shots.assign(shots.begin(), shots.end());
    Project project = Project::make("Production");
    project.acts.emplace_back(std::move(act));
    Library library;
    library.projects.emplace_back(std::move(project));
    return locations(library);
}

/// The sheets in one production.
inline std::vector<CallSheetLocation> located(const std::vector<CallSheet>& sheets) {
    Project project = Project::make("Production");
    project.setCallSheets(sheets);
    Library library;
    library.projects.emplace_back(std::move(project));
    return callSheetLocations(library);
}

inline std::string nameOf(const CalendarAgendaItem& item) {
    if (const auto* shot = std::get_if<ShotLocation>(&item.event()))
        return shot->shot->code.utf8();
    return (*std::get<CallSheetLocation>(item.event()).sheet)["company"].utf8();
}

using Names = std::vector<std::string>;

/// The codes of the shots and the companies of the sheets, in the order of the agenda.
inline Names namesOf(const std::vector<CalendarAgendaItem>& agenda) {
    Names names;
    for (const auto& item : agenda)
        names.push_back(nameOf(item));
    return names;
}

inline Names namesOf(const std::vector<ShotLocation>& shots) {
    Names names;
    for (const auto& location : shots)
        names.push_back(location.shot->code.utf8());
    return names;
}

}  // namespace vantry::test
