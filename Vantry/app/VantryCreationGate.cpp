#include "Vantry/app/VantryCreationGate.h"

namespace vantry {

bool VantryCreationGate::accept(const VantryCreationAction& action, double now, double interval) {
    std::erase_if(attempts, [&](const auto& entry) { return now - entry.second >= interval; });
    return attempts.insert_or_assign(action, now).second;
}

}  // namespace vantry
