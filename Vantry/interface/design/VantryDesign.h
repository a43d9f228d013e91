#pragma once

#include "Vantry/interface/design/VantryType.h"

namespace vantry {

/// The design as pages name it, where a part of it stands for the whole.
struct VantryDesign {
    /// What a page is called in.
    static constexpr VantryType::Role title = VantryType::Role::title;
};

}  // namespace vantry
