#pragma once

#include <cstddef>
#include <functional>
#include <optional>

#include "VantryCore/records/Identifier.h"

namespace vantry {

/// A place in the workspace. The first four carry the identifiers of the records down to their level; a route
/// may name a record that is gone. Two routes are equal when place and all identifiers are.
class Route {
public:
    enum class Place { project, act, shot, take, library, search, calendar, settings };

    /// The library.
    constexpr Route() noexcept = default;

    [[nodiscard]] static constexpr Route project(const Identifier& project) noexcept {
        return Route(Place::project, project, {}, {}, {});
    }
    [[nodiscard]] static constexpr Route act(const Identifier& project, const Identifier& act) noexcept {
        return Route(Place::act, project, act, {}, {});
    }
    [[nodiscard]] static constexpr Route shot(const Identifier& project, const Identifier& act,
                                              const Identifier& shot) noexcept {
        return Route(Place::shot, project, act, shot, {});
    }
    [[nodiscard]] static constexpr Route take(const Identifier& project, const Identifier& act,
                                              const Identifier& shot, const Identifier& take) noexcept {
        return Route(Place::take, project, act, shot, take);
    }
    [[nodiscard]] static constexpr Route library() noexcept { return {}; }
    [[nodiscard]] static constexpr Route search() noexcept { return Route(Place::search, {}, {}, {}, {}); }
    [[nodiscard]] static constexpr Route calendar() noexcept {
        return Route(Place::calendar, {}, {}, {}, {});
    }
    [[nodiscard]] static constexpr Route settings() noexcept {
        return Route(Place::settings, {}, {}, {}, {});
    }

    [[nodiscard]] constexpr Place place() const noexcept { return where; }

    // The identifiers that this place carries; nothing for those that it does not.
    [[nodiscard]] constexpr std::optional<Identifier> projectID() const noexcept {
        return depth() >= 1 ? std::optional(inProject) : std::nullopt;
    }
    [[nodiscard]] constexpr std::optional<Identifier> actID() const noexcept {
        return depth() >= 2 ? std::optional(inAct) : std::nullopt;
    }
    [[nodiscard]] constexpr std::optional<Identifier> shotID() const noexcept {
        return depth() >= 3 ? std::optional(inShot) : std::nullopt;
    }
    [[nodiscard]] constexpr std::optional<Identifier> takeID() const noexcept {
        return depth() >= 4 ? std::optional(ofTake) : std::nullopt;
    }

    friend constexpr bool operator==(const Route&, const Route&) noexcept = default;

private:
    constexpr Route(Place place, const Identifier& project, const Identifier& act, const Identifier& shot,
                    const Identifier& take) noexcept
        : where(place)
        , inProject(project)
        , inAct(act)
        , inShot(shot)
        , ofTake(take) {}

    /// How many levels of records lead to this place.
    [[nodiscard]] constexpr int depth() const noexcept {
        switch (where) {
        case Place::project:
            return 1;
        case Place::act:
            return 2;
        case Place::shot:
            return 3;
        case Place::take:
            return 4;
        case Place::library:
        case Place::search:
        case Place::calendar:
        case Place::settings:
            return 0;
        }
        return 0;
    }

    Place where = Place::library;
    Identifier inProject;
    Identifier inAct;
    Identifier inShot;
    Identifier ofTake;
};

}  // namespace vantry

template <>
struct std::hash<vantry::Route> {
    std::size_t operator()(const vantry::Route& route) const noexcept {
        auto mixed = static_cast<std::size_t>(route.place());
        for (const auto& id : {route.projectID(), route.actID(), route.shotID(), route.takeID()})
            mixed = mixed * 31 + (id ? std::hash<vantry::Identifier>{}(*id) : 0);
        return mixed;
    }
};
