#pragma once

#include <compare>
#include <map>

#include "VantryCore/records/Identifier.h"

namespace vantry {

/// What is about to be created, and where. Two actions are one key of the gate only if both are equal.
struct VantryCreationAction {
    enum class Kind { act, shot, take, callSheet, crew, cast, callSheetPerson, project };

    Kind kind = Kind::project;
    Identifier target;  ///< the record that will hold the new one; unused for a project

    static VantryCreationAction act(const Identifier& projectID) { return {Kind::act, projectID}; }
    static VantryCreationAction shot(const Identifier& actID) { return {Kind::shot, actID}; }
    static VantryCreationAction take(const Identifier& shotID) { return {Kind::take, shotID}; }
    static VantryCreationAction callSheet(const Identifier& projectID) {
        return {Kind::callSheet, projectID};
    }
    static VantryCreationAction crew(const Identifier& projectID) { return {Kind::crew, projectID}; }
    static VantryCreationAction cast(const Identifier& projectID) { return {Kind::cast, projectID}; }
    static VantryCreationAction callSheetPerson(const Identifier& sheetID) {
        return {Kind::callSheetPerson, sheetID};
    }
    static VantryCreationAction project() { return {}; }

    friend auto operator<=>(const VantryCreationAction&, const VantryCreationAction&) = default;
};

/// Keeps a doubled click or a held key from creating two records. It is no rate limit but a wait for silence:
/// the first attempt is accepted at once, and a refused one renews the time as well, so a storm is refused
/// until it has paused.
struct VantryCreationGate {
    std::map<VantryCreationAction, double> attempts;  ///< seconds of the newest attempt for each key

    /// Whether an attempt at `now` may create something. `now` and `interval` are seconds of one steady
    /// clock.
    [[nodiscard]] bool accept(const VantryCreationAction& action, double now, double interval);
};

}  // namespace vantry
