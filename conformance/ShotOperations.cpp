#include <array>

#include "Vantry/interface/shots/ShotOrder.h"
#include "VantryCore/records/Act.h"
#include "conformance/Operation.h"
#include "conformance/RecordJson.h"

namespace vantry::conformance {
namespace {

Json newTake(const Json& in) {
    auto shot = toRecord<Shot>(in.at("shot"));
    const Identifier id = shot.newTake();
    const VantryTake& take = *findRecord(shot.takes, id);
    return {{"number", take.number},
            {"cameraNumber", orNull(take.cameraNumber)},
            {"soundNumber", orNull(take.soundNumber)},
            {"soundMode", rawValue(take.soundMode)},
            {"parameters", toJson(take.parameters)},
            {"takeCount", shot.takes.size()}};
}

Json setSoundMode(const Json& in) {
    auto shot = toRecord<Shot>(in.at("shot"));
    shot.setSoundMode(toCase<SoundMode>(in.at("mode")), toIdentifier(in.at("takeID")));
    Json takes = Json::array();
    for (const auto& take : shot.takes)
        takes.push_back({{"id", take->id.text()},
                         {"number", take->number},
                         {"cameraNumber", orNull(take->cameraNumber)},
                         {"soundNumber", orNull(take->soundNumber)},
                         {"soundMode", rawValue(take->soundMode)}});
    return {{"takes", takes}};
}

Json shotFacts(const Json& in) {
    const auto shot = toRecord<Shot>(in.at("shot"));
    const auto end = shot.scheduledEnd();
    return {{"complete", shot.complete()},
            {"maxStars", shot.maxStars()},
            {"scheduledEnd", end ? Json(end->seconds) : Json()}};
}

Json actCounts(const Json& in) {
    const auto act = toRecord<Act>(in.at("act"));
    return {{"active", act.activeCount()}, {"completed", act.completedCount()}};
}

Json navigation(const Json& in) {
    const auto project = toRecord<Project>(in.at("project"));
    const Identifier shotID = toIdentifier(in.at("shotID"));
    const ShotOrder order(project);
    const auto neighbor = [&](int step) {
        const auto found = order.neighbor(shotID, step);
        return found ? Json(found->shot->id.text()) : Json();
    };
    const auto index = order.indexOf(shotID);
    Json matches = Json::array();
    for (const auto& held : order.matching(in.at("query").get_ref<const std::string&>()))
        matches.push_back(held.shot->id.text());
    return {{"previous", neighbor(-1)},
            {"next", neighbor(1)},
            {"position", index ? Json(*index + 1) : Json()},
            {"count", order.ordered().size()},
            {"matches", matches}};
}

Json insertShot(const Json& in) {
    auto act = toRecord<Act>(in.at("act"));
    std::optional<Identifier> after;
    if (!in.at("after").is_null())
        after = toIdentifier(in.at("after"));
    const Identifier id = act.insertShot(after, toRecord<Parameters>(in.at("defaults")),
                                         Text(in.at("title").get_ref<const std::string&>()));
    const std::size_t index = indexOfRecord(act.shots, id);
    const Shot& shot = *act.shots.at(index);
    return {{"index", index},
            {"code", shot.code.utf8()},
            {"title", shot.title.utf8()},
            {"parameters", toJson(shot.parameters)}};
}

Json moveShot(const Json& in) {
    auto act = toRecord<Act>(in.at("act"));
    const Identifier id = toIdentifier(in.at("shotID"));
    if (in.contains("by"))
        act.moveShot(id, in.at("by"));
    else
        act.moveShotBefore(id, toIdentifier(in.at("before")));
    Json codes = Json::array();
    Json ids = Json::array();
    for (const auto& shot : act.shots) {
        codes.push_back(shot->code.utf8());
        ids.push_back(shot->id.text());
    }
    return {{"codes", codes}, {"ids", ids}};
}

constexpr std::array operations{
    NamedOperation{"shot.newTake", newTake},       NamedOperation{"shot.setSoundMode", setSoundMode},
    NamedOperation{"shot.facts", shotFacts},       NamedOperation{"act.counts", actCounts},
    NamedOperation{"act.insertShot", insertShot},  NamedOperation{"act.moveShot", moveShot},
    NamedOperation{"shot.navigation", navigation},
};

}  // namespace

std::span<const NamedOperation> shotOperations() {
    return operations;
}

}  // namespace vantry::conformance
