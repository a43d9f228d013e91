#include "VantryCore/records/CallSheet.h"

#include <algorithm>
#include <string>
#include <unordered_set>

#include "VantryCore/records/Project.h"

namespace vantry {

static_assert(listsEveryMember<CallSheet>());
static_assert(listsEveryMember<CallSheetPerson>());

namespace {

struct ClockTime {
    int hour = 0;
    int minute = 0;
};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::optional<ClockTime> readClockTime(std::string_view written) {
    static constexpr std::string_view fullWidthColon = "：";
    std::string text;
    for (std::string_view rest = trimmed(written); !rest.empty();) {
        const bool colon = rest.starts_with(fullWidthColon);
        text += colon ? ':' : rest.front();
        rest.remove_prefix(colon ? fullWidthColon.size() : 1);
    }
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos || text.find(':', colon + 1) != std::string::npos)
        return std::nullopt;
    const std::string_view hour = std::string_view(text).substr(0, colon);
    const std::string_view minute = std::string_view(text).substr(colon + 1);
    if (hour.empty() || hour.size() > 2 || minute.size() != 2 ||
        !std::all_of(hour.begin(), hour.end(), isDigit) ||
        !std::all_of(minute.begin(), minute.end(), isDigit))
        return std::nullopt;
    ClockTime time;
    for (const char digit : hour)
        time.hour = time.hour * 10 + (digit - '0');
    for (const char digit : minute)
        time.minute = time.minute * 10 + (digit - '0');
    if (time.hour > 23 || time.minute > 59)
        return std::nullopt;
    return time;
}

}  // namespace

CallSheet CallSheet::make(Moment date) {
    CallSheet sheet;
    sheet.id = Identifier::random();
    sheet.date = date;
    sheet.timeZoneID = Text(Zone::machine().identifier());
    return sheet;
}

Calendar CallSheet::calendar() const {
    const auto zone = Zone::find(timeZoneID.utf8());
    return Calendar(zone ? *zone : Zone::machine());
}

std::string_view CallSheet::calendarTimeKey() const {
    return isBlank((*this)["generalCall"].utf8()) ? "shootingStart" : "generalCall";
}

std::optional<Moment> CallSheet::calendarStart() const {
    const auto time = readClockTime((*this)[calendarTimeKey()].utf8());
    if (!time)
        return std::nullopt;
    const Calendar calendar = this->calendar();
    const auto dayStart = calendar.startOfDay(date);
    if (!dayStart)
        return std::nullopt;
    // One second earlier, so that 00:00 of a day that begins at midnight is still ahead.
    const auto found = calendar.nextMoment(Moment{dayStart->seconds - 1}, time->hour, time->minute);
    if (!found || !calendar.isSameDay(*found, date))
        return std::nullopt;
    return found;
}

void CallSheet::addProjectPeople(const Project& project, bool english) {
    std::unordered_set<Identifier> used;
    for (const auto& person : people)
        if (person.sourceID)
            used.insert(*person.sourceID);
    const auto add = [&](const Identifier& source, Text role, Text name, bool isCast) {
        if (!used.insert(source).second)
            return;
        CallSheetPerson person;
        person.id = Identifier::random();
        person.sourceID = source;
        person.isCast = isCast;
        person.role = std::move(role);
        person.name = std::move(name);
        people.push_back(std::move(person));
    };
    if (!project.director.empty())
        add(project.id, english ? "Director" : "导演", project.director, false);
    for (const auto& member : project.crew())
        add(member.id, member.title(english), member.name, false);
    for (const auto& member : project.cast())
        add(member.id, member.character, member.actor, true);
}

CallSheetSyncResult CallSheet::syncProjectPeople(const Project& project, bool english) {
    CallSheet scratch;
    scratch.addProjectPeople(project, english);
    CallSheetSyncResult result;
    for (auto& candidate : scratch.people) {
        bool found = false;
        for (auto& person : people) {
            if (person.sourceID != candidate.sourceID)
                continue;
            found = true;
            if (person.name == candidate.name && person.role == candidate.role &&
                person.isCast == candidate.isCast)
                continue;
            person.name = candidate.name;
            person.role = candidate.role;
            person.isCast = candidate.isCast;
            ++result.updated;
        }
        if (!found) {
            people.push_back(std::move(candidate));
            ++result.added;
        }
    }
    return result;
}

}  // namespace vantry
