#pragma once

#include <functional>

namespace vantry {

/// Where a yes or no lives that a component only shows: it reads there before it shows, and writes there what
/// the person chose.
struct FlagBinding {
    std::function<bool()> read;
    std::function<void(bool)> write;
};

}  // namespace vantry
