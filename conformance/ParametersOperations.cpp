#include <array>

#include "VantryCore/records/Project.h"
#include "conformance/Operation.h"
#include "conformance/RecordJson.h"

namespace vantry::conformance {
namespace {

Json fillingDefaults(const Json& in) {
    const auto parameters = toRecord<Parameters>(in.at("parameters"));
    const auto defaults = toRecord<Parameters>(in.at("defaults"));
    return {{"parameters", toJson(parameters.fillingDefaults(defaults))}};
}

Json summary(const Json& in) {
    return {{"text", parameterSummary(toRecord<Parameters>(in.at("parameters")))}};
}

Json captureFirstValues(const Json& in) {
    auto project = toRecord<Project>(in.at("project"));
    project.captureFirstValues(toRecord<Parameters>(in.at("values")));
    return {{"defaults", toJson(project.defaults)}};
}

/// A fresh take without its identifier and its moment, which nobody can foresee.
Json newTakeToJson(const VantryTake& take) {
    Json json = toJson(take);
    json.erase("id");
    json.erase("createdAt");
    json["cameraNumber"] = orNull(take.cameraNumber);
    json["soundNumber"] = orNull(take.soundNumber);
    return json;
}

Json addTake(const Json& in) {
    auto project = toRecord<Project>(in.at("project"));
    const Identifier actID = toIdentifier(in.at("actID"));
    const Identifier shotID = toIdentifier(in.at("shotID"));
    const auto takeID = project.addTake(actID, shotID);
    const Act* act = findRecord(project.acts, actID);
    const Shot* shot = act != nullptr ? findRecord(act->shots, shotID) : nullptr;
    const VantryTake* take = shot != nullptr && takeID ? findRecord(shot->takes, *takeID) : nullptr;
    return {{"defaults", toJson(project.defaults)},
            {"shotParameters", shot != nullptr ? toJson(shot->parameters) : Json()},
            {"take", take != nullptr ? newTakeToJson(*take) : Json()}};
}

constexpr std::array operations{
    NamedOperation{"parameters.fillingDefaults", fillingDefaults},
    NamedOperation{"parameters.summary", summary},
    NamedOperation{"project.captureFirstValues", captureFirstValues},
    NamedOperation{"store.addTake", addTake},
};

}  // namespace

std::span<const NamedOperation> parametersOperations() {
    return operations;
}

}  // namespace vantry::conformance
