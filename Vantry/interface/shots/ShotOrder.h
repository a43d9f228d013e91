#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "VantryCore/records/Project.h"

namespace vantry {

/// A shot in the order of its production. It points into the project that it was asked of, and is valid as
/// long as that is.
struct OrderedShot {
    const Act* act;
    const Shot* shot;
};

/// The order in which one walks along the shots of a production: every act in order, and every shot of it,
/// cancelled ones included.
class ShotOrder {
public:
    /// `project` must outlive this.
    explicit ShotOrder(const Project& project);

    [[nodiscard]] const std::vector<OrderedShot>& ordered() const noexcept { return shots; }
    /// Where that shot stands, from 0; nothing when it is not in the project.
    [[nodiscard]] std::optional<std::size_t> indexOf(const Identifier& shotID) const;
    /// The next shot in that direction, 1 or -1, that is not cancelled; nothing at the end.
    [[nodiscard]] std::optional<OrderedShot> neighbor(const Identifier& shotID, int step) const;
    /// Those whose act's title, code or title contains what a person typed, blanks around it left out; case,
    /// marks and width do not count. All of them for nothing.
    [[nodiscard]] std::vector<OrderedShot> matching(std::string_view query) const;

private:
    std::vector<OrderedShot> shots;
};

}  // namespace vantry
