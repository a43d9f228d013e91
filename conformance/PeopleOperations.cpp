#include <algorithm>
#include <array>
#include <set>

#include "VantryCore/records/Project.h"
#include "conformance/MachineZone.h"
#include "conformance/Operation.h"
#include "conformance/RecordJson.h"

namespace vantry::conformance {
namespace {

Json crewTitle(const Json& in) {
    return {{"title", toRecord<CrewMember>(in.at("member")).title(in.at("english")).utf8()}};
}

Json calendarStart(const Json& in) {
    const MachineZone zone(in.at("machineZone"));
    const auto sheet = toRecord<CallSheet>(in.at("sheet"));
    const auto start = sheet.calendarStart();
    return {{"start", start ? Json(start->seconds) : Json()}, {"timeKey", sheet.calendarTimeKey()}};
}

std::set<Identifier> rowIdentifiers(const CallSheet& sheet) {
    std::set<Identifier> ids;
    for (const auto& person : sheet.people)
        ids.insert(person.id);
    return ids;
}

/// The rows of the sheet; those that were not there before are without their fresh identifier.
Json people(const CallSheet& sheet, const std::set<Identifier>& before) {
    Json rows = Json::array();
    for (const auto& person : sheet.people) {
        rows.push_back(toJson(person));
        if (!before.contains(person.id))
            rows.back().erase("id");
    }
    return rows;
}

Json addProjectPeople(const Json& in) {
    auto sheet = toRecord<CallSheet>(in.at("sheet"));
    const auto before = rowIdentifiers(sheet);
    sheet.addProjectPeople(toRecord<Project>(in.at("project")), in.at("english"));
    return {{"people", people(sheet, before)}};
}

Json syncProjectPeople(const Json& in) {
    auto sheet = toRecord<CallSheet>(in.at("sheet"));
    const auto before = rowIdentifiers(sheet);
    const auto result = sheet.syncProjectPeople(toRecord<Project>(in.at("project")), in.at("english"));
    return {{"people", people(sheet, before)}, {"added", result.added}, {"updated", result.updated}};
}

constexpr std::array operations{
    NamedOperation{"crew.title", crewTitle},
    NamedOperation{"callSheet.calendarStart", calendarStart},
    NamedOperation{"callSheet.addProjectPeople", addProjectPeople},
    NamedOperation{"callSheet.syncProjectPeople", syncProjectPeople},
};

}  // namespace

std::span<const NamedOperation> peopleOperations() {
    return operations;
}

}  // namespace vantry::conformance
