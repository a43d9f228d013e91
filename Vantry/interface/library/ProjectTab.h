#pragma once

namespace vantry {

/// The tabs of a production's page by their places.
struct ProjectTab {
    static constexpr int overview = 0;
    static constexpr int people = 1;
    static constexpr int callSheets = 2;
    static constexpr int details = 3;
    static constexpr int relatedFiles = 4;
};

}  // namespace vantry
