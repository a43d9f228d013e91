#pragma once

#include <vector>

#include "Vantry/interface/routes/Route.h"
#include "VantryCore/records/Text.h"

namespace vantry {

struct Library;

/// One step of the trail above a page.
struct Crumb {
    Text title;
    Route route;

    friend bool operator==(const Crumb&, const Crumb&) = default;
};

/// The trail from the library to `route`. It ends in front of the first record that is gone, and is empty
/// outside the productions. A take has no crumb: its page names it.
[[nodiscard]] std::vector<Crumb> crumbs(const Library& library, const Route& route, bool english);

}  // namespace vantry
