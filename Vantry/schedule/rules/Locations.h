#pragma once

#include <memory>
#include <vector>

#include "VantryCore/records/Library.h"

namespace vantry {

/// A shot with the records that hold it, as they were when the list was made.
struct ShotLocation {
    std::shared_ptr<const Project> project;
    std::shared_ptr<const Act> act;
    std::shared_ptr<const Shot> shot;

    [[nodiscard]] const Identifier& id() const noexcept { return shot->id; }
};

/// A call sheet with the production that it belongs to.
struct CallSheetLocation {
    std::shared_ptr<const Project> project;
    const CallSheet* sheet = nullptr;  ///< in `project`, which keeps it alive

    [[nodiscard]] const Identifier& id() const noexcept { return sheet->id; }
};

/// Every shot of the library, in its order: cancelled and unscheduled ones, too. Made afresh at each call.
[[nodiscard]] std::vector<ShotLocation> locations(const Library& library);
/// Every call sheet of the library, in its order.
[[nodiscard]] std::vector<CallSheetLocation> callSheetLocations(const Library& library);

}  // namespace vantry
