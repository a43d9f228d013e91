#include "Vantry/app/UndoHistory.h"

#include <utility>

namespace vantry {

bool UndoHistory::commit(const Library& now) {
    if (!pending)
        return false;
    UndoEntry entry{std::move(*pending), now};
    pending.reset();
    if (entry.before == entry.after)
        return false;
    entries.push_back(std::move(entry));
    if (entries.size() > depth)
        entries.erase(entries.begin());
    return true;
}

bool UndoHistory::canUndo(const Library& now) const {
    return !entries.empty() || (pending && !(*pending == now));
}

}  // namespace vantry
