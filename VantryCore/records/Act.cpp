#include "VantryCore/records/Act.h"

#include <algorithm>
#include <string>

namespace vantry {

static_assert(listsEveryMember<Act>());

Act Act::make(Text title) {
    Act act;
    act.id = Identifier::random();
    act.title = std::move(title);
    return act;
}

Identifier Act::insertShot(const std::optional<Identifier>& after, const Parameters& defaults, Text title) {
    const std::size_t found = after ? indexOfRecord(shots, *after) : shots.size();
    std::string code = std::to_string(shots.size() + 1);
    if (code.size() < 2)
        code.insert(code.begin(), '0');
    if (found < shots.size())
        code = shots[found]->code.utf8() + "A";
    const auto inUse = [this](const Text& candidate) {
        return std::any_of(shots.begin(), shots.end(), [&](const auto& s) { return s->code == candidate; });
    };
    while (inUse(Text(code)))
        code += 'A';

    Shot shot = Shot::make(Text(std::move(code)), std::move(title), defaults);
    const Identifier id = shot.id;
    const std::size_t place = found < shots.size() ? found + 1 : shots.size();
    shots.insert(shots.begin() + static_cast<std::ptrdiff_t>(place), Node<Shot>(std::move(shot)));
    return id;
}

void Act::moveShot(const Identifier& shotID, std::int64_t offset) {
    const std::size_t index = indexOfRecord(shots, shotID);
    if (index == shots.size())
        return;
    const auto here = static_cast<std::int64_t>(index);
    const auto count = static_cast<std::int64_t>(shots.size());
    if (offset < -here || offset >= count - here)
        return;
    std::swap(shots[index], shots[static_cast<std::size_t>(here + offset)]);
}

void Act::moveShotBefore(const Identifier& shotID, const Identifier& targetID) {
    if (shotID == targetID)
        return;
    const std::size_t from = indexOfRecord(shots, shotID);
    const std::size_t to = indexOfRecord(shots, targetID);
    if (from == shots.size() || to == shots.size())
        return;
    const auto first = shots.begin();
    const auto at = [first](std::size_t i) { return first + static_cast<std::ptrdiff_t>(i); };
    if (from < to)
        std::rotate(at(from), at(from + 1), at(to));
    else
        std::rotate(at(to), at(from), at(from + 1));
}

std::int64_t Act::activeCount() const {
    return std::count_if(shots.begin(), shots.end(), [](const auto& shot) { return !shot->cancelled; });
}

std::int64_t Act::completedCount() const {
    return std::count_if(shots.begin(), shots.end(),
                         [](const auto& shot) { return !shot->cancelled && shot->complete(); });
}

}  // namespace vantry
