#pragma once

#include <functional>

namespace vantry {

class VantryStore;

/// Runs `action`. What it throws ends here and is shown as the store's error: nothing may reach the event
/// loop.
void contain(VantryStore& store, const std::function<void()>& action) noexcept;

}  // namespace vantry
