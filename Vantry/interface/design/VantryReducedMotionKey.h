#pragma once

namespace vantry {

/// Where the value of `vantryReduceMotion` is kept. Read it by that function; only VantryMotionPreference
/// writes it.
struct VantryReducedMotionKey {
    static constexpr bool defaultValue = false;
    inline static bool value = defaultValue;
};

}  // namespace vantry
