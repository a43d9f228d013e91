#pragma once

#include <optional>
#include <tuple>

#include "VantryCore/records/Shot.h"

namespace vantry {

/// An act: its shots in shooting plan order.
struct Act {
    Identifier id;
    std::optional<Text> conflictKey;
    Text title;
    NodeList<Shot> shots;

    static constexpr auto fields() {
        return std::tuple(field("id", &Act::id), field("conflictKey", &Act::conflictKey),
                          field("title", &Act::title), field("shots", &Act::shots));
    }

    /// A new act with a fresh identifier.
    [[nodiscard]] static Act make(Text title);

    /// Adds a new shot behind `after`, or at the end when `after` is absent or names no shot of this act, and
    /// returns its identifier. Its code is new within the act; no other code changes.
    Identifier insertShot(const std::optional<Identifier>& after, const Parameters& defaults, Text title);
    /// Exchanges the shot with the one `offset` places further. Does nothing when the shot is unknown or the
    /// place lies outside the list.
    void moveShot(const Identifier& shotID, std::int64_t offset);
    /// Puts the shot in front of `targetID`. Does nothing when either is not in this act or both are one.
    void moveShotBefore(const Identifier& shotID, const Identifier& targetID);

    /// The number of shots that are not cancelled.
    [[nodiscard]] std::int64_t activeCount() const;
    /// The number of shots that are neither cancelled nor without a good take.
    [[nodiscard]] std::int64_t completedCount() const;
};

}  // namespace vantry
