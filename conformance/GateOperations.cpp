#include <array>
#include <stdexcept>

#include "Vantry/app/VantryCreationGate.h"
#include "conformance/Operation.h"
#include "conformance/RecordJson.h"

namespace vantry::conformance {
namespace {

using Kind = VantryCreationAction::Kind;

constexpr std::array<std::pair<std::string_view, Kind>, 8> kinds{{
    {"act", Kind::act},
    {"shot", Kind::shot},
    {"take", Kind::take},
    {"callSheet", Kind::callSheet},
    {"crew", Kind::crew},
    {"cast", Kind::cast},
    {"callSheetPerson", Kind::callSheetPerson},
    {"project", Kind::project},
}};

VantryCreationAction toAction(const Json& json) {
    const auto& name = json.at("kind").get_ref<const std::string&>();
    const Json& id = json.at("id");
    for (const auto& [text, kind] : kinds)
        if (text == name)
            return {kind, id.is_null() ? Identifier() : toIdentifier(id)};
    throw std::invalid_argument("nothing of the kind " + name + " is created");
}

Json sequence(const Json& in) {
    VantryCreationGate gate;
    const double interval = in.at("interval");
    Json accepted = Json::array();
    for (const auto& attempt : in.at("attempts"))
        accepted.push_back(gate.accept(toAction(attempt.at("action")), attempt.at("at"), interval));
    return {{"accepted", accepted}};
}

constexpr std::array operations{NamedOperation{"gate.sequence", sequence}};

}  // namespace

std::span<const NamedOperation> gateOperations() {
    return operations;
}

}  // namespace vantry::conformance
