// Structural undo: a bounded history of changes, each a library before and after.

#include "Vantry/app/VantryStore.h"

#include <utility>

#include "VantryCore/persistence/RecordDelta.h"
#include "VantryCore/persistence/VantryError.h"

namespace vantry {
namespace {

constexpr std::size_t deepestHistory = 20;

}  // namespace

void VantryStore::markCheckpoint() {
    if (loadFailed())
        return;
    commitCheckpoint();
    pendingCheckpoint_.set(library());
}

void VantryStore::commitCheckpoint() {
    if (!*pendingCheckpoint_)
        return;
    UndoEntry entry{**pendingCheckpoint_, library()};
    pendingCheckpoint_.set(std::nullopt);
    if (entry.before == entry.after)
        return;
    undoHistory.push_back(std::move(entry));
    if (undoHistory.size() > deepestHistory)
        undoHistory.erase(undoHistory.begin());
    emit changed(Member::undoHistory);
}

bool VantryStore::canUndo() const {
    if (loadFailed())
        return false;
    return !undoHistory.empty() || (*pendingCheckpoint_ && !(**pendingCheckpoint_ == library()));
}

void VantryStore::undo() {
    if (loadFailed())
        return;
    commitCheckpoint();
    if (undoHistory.empty())
        return;
    const UndoEntry& newest = undoHistory.back();
    try {
        Library result = RecordDelta::undo(newest.before, newest.after, library(), savedFile.valid);
        library_.set(std::move(result));
    } catch (const std::exception& failure) {
        report(failure);
        return;
    }
    undoHistory.pop_back();
    emit changed(Member::undoHistory);
    flush();
}

void VantryStore::report(const std::exception& failure) {
    error_.set(Text(localizedDescription(failure)));
}

}  // namespace vantry
