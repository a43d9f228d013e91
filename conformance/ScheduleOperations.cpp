#include <array>
#include <vector>

#include "Vantry/documents/CallSheetPDF.h"
#include "Vantry/schedule/rules/CalendarAgendaItem.h"
#include "Vantry/schedule/rules/ShootSchedule.h"
#include "conformance/MachineZone.h"
#include "conformance/Operation.h"
#include "conformance/RecordJson.h"

namespace vantry::conformance {
namespace {

Calendar calendarOf(const Json& in) {
    const auto zone = Zone::find(in.at("zone").get_ref<const std::string&>());
    if (!zone)
        throw std::invalid_argument(in.at("zone").dump() + " is no zone");
    return Calendar(*zone);
}

Moment momentOf(const Json& json) {
    return Moment{json.get<double>()};
}

template <class List, class IdentifierOf>
Json identifiers(const List& list, IdentifierOf identifierOf) {
    Json ids = Json::array();
    for (const auto& item : list)
        ids.push_back(identifierOf(item).text());
    return ids;
}

Json occurs(const Json& in) {
    return {{"occurs",
             ShootSchedule::occurs(toRecord<Shot>(in.at("shot")), momentOf(in.at("day")), calendarOf(in))}};
}

Json overlaps(const Json& in) {
    return {{"overlaps", ShootSchedule::overlaps(toRecord<Shot>(in.at("a")), toRecord<Shot>(in.at("b")))}};
}

Json normalizeMinute(const Json& in) {
    return {{"moment", ShootSchedule::normalizedToMinute(momentOf(in.at("moment")), calendarOf(in)).seconds}};
}

Json agenda(const Json& in) {
    const auto library = toRecord<Library>(in.at("library"));
    const std::string filter = in.at("projectFilter");
    const auto isOut = [&](const auto& location) {
        return filter != "all" && location.project->id.text() != filter;
    };
    auto shots = locations(library);
    auto sheets = callSheetLocations(library);
    std::erase_if(shots, isOut);
    std::erase_if(sheets, isOut);
    const auto items = CalendarAgendaItem::daily(shots, sheets, momentOf(in.at("day")), calendarOf(in));
    return {{"ids", identifiers(items, [](const auto& item) { return item.id(); })}};
}

/// What the sheet that schedules a shot finds while the person fills it in.
Json conflicts(const Json& in) {
    const auto library = toRecord<Library>(in.at("library"));
    const auto all = locations(library);
    const auto minutes = ShootSchedule::typedMinutes(in.at("durationText").get_ref<const std::string&>());
    std::optional<Shot> planned;
    for (const auto& location : all)
        if (!location.shot->cancelled && in.at("shotID") == location.id().text())
            planned = *location.shot;
    if (!planned || !minutes || !ShootSchedule::isDuration(*minutes))
        return {{"valid", false}, {"ids", Json::array()}};
    planned->scheduledAt = ShootSchedule::normalizedToMinute(momentOf(in.at("date")), calendarOf(in));
    planned->durationMinutes = *minutes;
    return {{"valid", true},
            {"ids", identifiers(ShootSchedule::conflicts(all, *planned),
                                [](const auto& location) { return location.id(); })}};
}

Json scheduledShots(const Json& in) {
    const MachineZone zone(in.at("machineZone"));
    const auto shots = CallSheetPDF::scheduledShots(toRecord<Project>(in.at("project")),
                                                    toRecord<CallSheet>(in.at("sheet")));
    return {{"ids", identifiers(shots, [](const auto& scheduled) { return scheduled.shot->id; })}};
}

Json timeRange(const Json& in) {
    const MachineZone zone(in.at("machineZone"));
    return {{"text",
             CallSheetPDF::timeRange(toRecord<Shot>(in.at("shot")), toRecord<CallSheet>(in.at("sheet")))}};
}

constexpr std::array operations{
    NamedOperation{"schedule.occurs", occurs},
    NamedOperation{"schedule.overlaps", overlaps},
    NamedOperation{"schedule.normalizeMinute", normalizeMinute},
    NamedOperation{"schedule.agenda", agenda},
    NamedOperation{"schedule.conflicts", conflicts},
    NamedOperation{"callSheet.scheduledShots", scheduledShots},
    NamedOperation{"callSheet.timeRange", timeRange},
};

}  // namespace

std::span<const NamedOperation> scheduleOperations() {
    return operations;
}

}  // namespace vantry::conformance
