#include "Vantry/interface/routes/Navigation.h"

#include <algorithm>

namespace vantry {

void Navigation::arrive(const Route& target) {
    if (arriving)
        arriving(target);
    current = target;
}

bool Navigation::go(const Route& target, const Flush& flush) {
    if (target == current || !flush())
        return false;
    const auto earlier = std::find(visited.rbegin(), visited.rend(), target);
    if (target == Route::library()) {
        visited.clear();
    } else if (earlier != visited.rend()) {
        visited.erase(std::prev(earlier.base()), visited.end());
    } else {
        visited.push_back(current);
        if (visited.size() > longestHistory)
            visited.erase(visited.begin());
    }
    arrive(target);
    return true;
}

bool Navigation::goBack(const Flush& flush) {
    if (!flush())
        return false;
    Route target;
    if (!visited.empty()) {
        target = visited.back();
        visited.pop_back();
    }
    arrive(target);
    return true;
}

}  // namespace vantry
