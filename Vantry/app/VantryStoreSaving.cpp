// Loading and saving: what reaches the disk, and when.

#include "Vantry/app/VantryStore.h"

#include "VantryCore/persistence/DiskStore.h"
#include "VantryCore/persistence/VantryError.h"

namespace vantry {
namespace {

/// How long the library rests after an edit before it is written.
constexpr std::chrono::milliseconds saveDelay{350};

bool exists(const std::filesystem::path& file, FileOperations& disk) {
    try {
        return disk.status(file).has_value();
    } catch (const std::exception&) {
        return false;  // the write will tell what is in the way
    }
}

}  // namespace

void VantryStore::load() {
    try {
        library_.set(DiskStore::read(libraryFile(), &savedFile, *around_.disk));
        savedLibrary_.set(*library_);
    } catch (const std::exception& failure) {
        error_.set(Text(localizedDescription(failure)));
        loadFailed_.set(true);
    }
}

void VantryStore::saveSoon() {
    commitCheckpoint();
    saveTask = around_.clock->callAfter(saveDelay, [this] { flush(); });
}

bool VantryStore::flush() {
    saveTask.reset();
    commitCheckpoint();
    if (loadFailed())
        return false;
    if (!hasUnsavedChanges() && !saveFailed() && exists(libraryFile(), *around_.disk))
        return true;
    try {
        DiskStore::write(library(), libraryFile(), &savedFile, *around_.disk);
    } catch (const std::exception& failure) {
        const Text description(localizedDescription(failure));
        saveFailed_.set(true);
        saveError = description;
        error_.set(description);
        return false;
    }
    nowSaved();
    return true;
}

void VantryStore::nowSaved() {
    savedLibrary_.set(library());
    savedAt_.set(around_.clock->now());
    saveFailed_.set(false);
    if (*error_ == saveError)
        error_.set(std::nullopt);
    saveError.reset();
}

}  // namespace vantry
