#include "Vantry/interface/shots/ShotOrder.h"

#include <algorithm>
#include <iterator>

#include "VantryCore/records/TextSearch.h"

namespace vantry {

ShotOrder::ShotOrder(const Project& project) {
    for (const auto& act : project.acts)
        for (const auto& shot : act->shots)
            shots.push_back({&*act, &*shot});
}

std::optional<std::size_t> ShotOrder::indexOf(const Identifier& shotID) const {
    const auto found = std::find_if(shots.begin(), shots.end(),
                                    [&](const OrderedShot& held) { return held.shot->id == shotID; });
    if (found == shots.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - shots.begin());
}

std::optional<OrderedShot> ShotOrder::neighbor(const Identifier& shotID, int step) const {
    const auto current = indexOf(shotID);
    if (!current)
        return std::nullopt;
    for (auto at = static_cast<std::ptrdiff_t>(*current) + step; at >= 0 && at < std::ssize(shots);
         at += step)
        if (const OrderedShot& found = shots[static_cast<std::size_t>(at)]; !found.shot->cancelled)
            return found;
    return std::nullopt;
}

std::vector<OrderedShot> ShotOrder::matching(std::string_view query) const {
    const std::string_view wanted = trimmed(query);
    if (wanted.empty())
        return shots;
    const TextQuery text(wanted);
    std::vector<OrderedShot> found;
    const Act* act = nullptr;
    bool isActFound = false;
    for (const OrderedShot& held : shots) {
        if (held.act != act) {
            act = held.act;
            isActFound = text.isIn(act->title.utf8());
        }
        if (isActFound || text.isIn(held.shot->code.utf8()) || text.isIn(held.shot->title.utf8()))
            found.push_back(held);
    }
    return found;
}

}  // namespace vantry
