#include "Vantry/interface/pages/Contained.h"

#include <exception>

#include "Vantry/app/VantryStore.h"
#include "VantryCore/persistence/VantryError.h"

namespace vantry {

void contain(VantryStore& store, const std::function<void()>& action) noexcept {
    try {
        action();
    } catch (const std::exception& failure) {
        store.setError(Text(localizedDescription(failure)));
    }
}

}  // namespace vantry
