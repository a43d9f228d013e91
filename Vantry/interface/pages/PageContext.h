#pragma once

#include <functional>

#include "Vantry/interface/routes/Route.h"

namespace vantry {

class VantryStore;

/// What the window gives each page. All of it outlives the page.
struct PageContext {
    VantryStore& store;
    std::function<void(const Route&)> go;  ///< the only way to another place
    std::function<void()> refreshSoon;     ///< brings all that is visible in line once this event is done
    std::function<void(const Route&)>
        goWriting{};  ///< to another place, with the keyboard where one writes there
};

}  // namespace vantry
