// Structural undo: which changes are remembered, and how one is taken back.

#include "Vantry/app/VantryStore.h"

#include <utility>

#include "VantryCore/persistence/RecordDelta.h"

namespace vantry {

void VantryStore::markCheckpoint() {
    if (loadFailed())
        return;
    commitCheckpoint();
    history.begin(library());
}

void VantryStore::commitCheckpoint() {
    if (history.commit(library()))
        emit changed(Member::undoHistory);
}

bool VantryStore::canUndo() const {
    return !loadFailed() && history.canUndo(library());
}

void VantryStore::undo() {
    if (loadFailed())
        return;
    commitCheckpoint();
    if (history.empty())
        return;
    const UndoEntry& newest = history.newest();
    try {
        Library result = RecordDelta::undo(newest.before, newest.after, library(), savedFile.valid);
        library_.set(std::move(result));
    } catch (const std::exception& failure) {
        report(failure);
        return;
    }
    history.dropNewest();
    emit changed(Member::undoHistory);
    flush();
}

}  // namespace vantry
