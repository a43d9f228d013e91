#include "VantryCore/records/Moment.h"

#include <chrono>

namespace vantry {

Moment Moment::now() {
    const auto since = std::chrono::system_clock::now().time_since_epoch();
    const auto reference = std::chrono::seconds(unixSecondsOfReferenceDate);
    return Moment{std::chrono::duration<double>(since - reference).count()};
}

}  // namespace vantry
