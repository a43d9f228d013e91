#pragma once

namespace vantry {

/// Where the value of `vantryReduceMotion` is kept. Read it by that function; only VantryMotionPreference
/// writes it.
struct VantryReducedMotionKey {
    static constexpr bool defaultValue = false;
    /// How many preferences want the interface to hold still.
    inline static int wishes = 0;
    [[nodiscard]] static bool value() noexcept { return wishes > 0 || defaultValue; }
};

}  // namespace vantry
