#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "Vantry/app/VantryStore.h"
#include "Vantry/verification/Smoke.h"
#include "VantryCore/persistence/DiskStore.h"
#include "VantryCore/persistence/VantryBackup.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// What a file looks like from outside: its bytes and when it was last written.
struct FileState {
    std::string bytes;
    fs::file_time_type time;

    explicit FileState(const fs::path& file)
        : bytes(contentOf(file))
        , time(fs::last_write_time(file)) {}
    friend bool operator==(const FileState&, const FileState&) = default;
};

struct Place {
    Identifier project, act, shot, take;
};

/// A production with one act, one shot and one take.
Place makePlace(VantryStore& store) {
    Place place;
    place.project = store.addProject("Verification", "");
    place.act = store.addAct(place.project);
    place.shot = store.addShot(place.project, place.act);
    place.take = store.addTake(place.project, place.act, place.shot);
    return place;
}

void write(VantryStore& store, const Place& place, const Text& notes) {
    store.updateTake(place.project, place.act, place.shot, place.take,
                     [&](VantryTake& take) { take.notes = notes; });
}

Text notesOnDisk(const VantryStore& store, const Place& place) {
    VantryStore reopened(store.root());
    const auto take = reopened.take(place.project, place.act, place.shot, place.take);
    return take ? take->notes : Text();
}

void verifyEdits(const fs::path& root) {
    VantryStore store(root / "Edits");
    const Identifier project = store.addProject("Verification", "");
    const Identifier act = store.addAct(project);
    const Identifier shot = store.addShot(project, act);
    store.updateShot(project, act, shot, [](Shot& record) { record.parameters.set("iso", "800"); });
    const Identifier take = store.addTake(project, act, shot);
    const auto learned = store.project(project);
    const auto logged = store.take(project, act, shot, take);
    Smoke::demand(learned && logged && learned->defaults["iso"] == Text("800") &&
                      logged->parameters["iso"] == Text("800"),
                  "New take missed first project default");
    Smoke::demand(store.hasUnsavedChanges(), "Unsaved edits incorrectly reported as saved");
    store.flush();
    const Identifier added = store.addShot(project, act);
    const Text later = "Written after structural operation\n\nKeep this paragraph.";
    store.updateTake(project, act, shot, take, [&](VantryTake& record) { record.notes = later; });
    store.undo();
    const auto kept = store.take(project, act, shot, take);
    Smoke::demand(kept && kept->notes == later, "Structure undo erased later notes");
    Smoke::demand(!store.shot(project, act, added), "Undo did not reverse added shot");
    Smoke::demand(!store.hasUnsavedChanges() && DiskStore::read(store.libraryFile()) == store.library(),
                  "Successful undo save did not clear dirty state");
}

void verifyCleanNavigation(const fs::path& root) {
    VantryStore store(root / "Navigation");
    const Place place = makePlace(store);
    write(store, place, "First");
    store.flush();
    write(store, place, "Second");
    store.flush();
    const fs::path previous = DiskStore::previousOf(store.libraryFile());
    const FileState library(store.libraryFile());
    const FileState generation(previous);
    const auto savedAt = store.savedAt();
    for (int i = 0; i < 100; ++i)
        Smoke::demand(store.flush(), "Unchanged navigation save failed");
    Smoke::demand(store.savedAt() == savedAt, "Clean navigation replayed the save indicator");
    Smoke::demand(FileState(previous) == generation, "Clean navigation overwrote the previous snapshot");
    Smoke::demand(FileState(store.libraryFile()) == library, "Clean navigation rewrote the library");

    fs::remove(store.libraryFile());
    Smoke::demand(store.flush() && contentOf(store.libraryFile()) == library.bytes,
                  "Missing clean file was not recreated");
    Smoke::demand(FileState(previous) == generation, "Clean navigation overwrote the previous snapshot");

    write(store, place, "Pending\n\n保留");
    const bool saved = store.flush();
    Smoke::demand(notesOnDisk(store, place) == Text("Pending\n\n保留"), "Navigation lost pending edits");
    Smoke::demand(saved && !store.hasUnsavedChanges(), "Dirty navigation save failed");
    Smoke::pass(
        "100 clean navigations avoid writes; previous snapshot, dirty save and file recovery preserved");
}

/// The library as another machine has it: the take reads otherwise, and a production is new.
VantryBackup backupFromElsewhere(const Library& library, const Place& place) {
    Library other = library;
    for (auto& project : other.projects)
        if (project->id == place.project)
            project.edit().acts[0].edit().shots[0].edit().takes[0].edit().notes = "From another machine";
    other.projects.emplace_back(Project::make("Imported"));
    return {other, {}};
}

void verifyImport(VantryStore& store, const Place& place) {
    const std::string backup = Codec::encode(backupFromElsewhere(store.library(), place));
    const std::string beforeImport = contentOf(store.libraryFile());
    const Text unsaved = "Unsaved local paragraph\n\n保留";
    write(store, place, unsaved);
    store.mergeBackupData(backup);
    Smoke::demand(!store.hasUnsavedChanges(), "Import saved state is stale");
    const auto take = store.take(place.project, place.act, place.shot, place.take);
    Smoke::demand(take && take->notes == unsaved && notesOnDisk(store, place) == unsaved,
                  "Import erased unsaved text");
    const Library merged = store.library();
    Smoke::demand(store.mergeBackupData(backup).added == 0 && store.library() == merged,
                  "Repeated import duplicated records");
    Smoke::demand(store.flush(), "Post-import save failed");
    Smoke::demand(contentOf(DiskStore::previousOf(store.libraryFile())) == beforeImport,
                  "Import overwrote pre-import previous");
}

void verifyRefusedImport(VantryStore& store) {
    const Library before = store.library();
    const FileState library(store.libraryFile());
    const FileState generation(DiskStore::previousOf(store.libraryFile()));
    bool refused = false;
    try {
        store.mergeBackupData("not a backup");
    } catch (const std::exception&) {
        refused = true;
    }
    Smoke::demand(refused, "Expected rejected import");
    Smoke::demand(VantryStore(store.root()).library() == before, "Reopen lost imported data");
    Smoke::demand(store.library() == before, "Failed import changed memory");
    Smoke::demand(FileState(store.libraryFile()) == library, "Failed import changed disk");
    Smoke::demand(FileState(DiskStore::previousOf(store.libraryFile())) == generation,
                  "Failed import changed previous");
}

void verifyImportRegression(const fs::path& root) {
    VantryStore store(root / "ImportRegression");
    const Place place = makePlace(store);
    write(store, place, "Saved");
    store.flush();
    verifyImport(store, place);
    verifyRefusedImport(store);
}

void verifySaveFailure(const fs::path& root) {
    const fs::path folder = root / "SaveFailure";
    std::ofstream(folder) << "A file blocks creation of the data directory";
    Smoke::demand(fs::is_regular_file(folder), "A file blocks creation of the data directory");
    VantryStore store(folder);
    const Identifier project = store.addProject("Must survive save failure", "");
    Smoke::demand(!store.flush() && store.saveFailed() && store.error(), "Save failure appeared successful");
    const auto kept = store.project(project);
    Smoke::demand(kept && kept->title == Text("Must survive save failure"), "Must survive save failure");
    fs::remove(folder);
    Smoke::demand(store.flush() && fs::exists(store.libraryFile()),
                  "Save did not recover after storage became writable");
    Smoke::demand(!store.saveFailed() && !store.error(), "Recovered save state stayed failed");
}

/// A file that turns unreadable while the program runs stays, and so does what was typed.
void verifyDamagedFile(const fs::path& root) {
    VantryStore store(root / "Damaged");
    const Place place = makePlace(store);
    store.flush();
    std::ofstream(store.libraryFile(), std::ios::trunc) << "invalid JSON";
    const FileState damaged(store.libraryFile());
    write(store, place, "Typed over a damaged file");
    Smoke::demand(!store.flush() && FileState(store.libraryFile()) == damaged,
                  "Must not overwrite unreadable library");
    fs::remove(store.libraryFile());
    Smoke::demand(store.flush() && notesOnDisk(store, place) == Text("Typed over a damaged file"),
                  "Retry lost pending data");
}

void verifyLoadFailure(const fs::path& root) {
    const fs::path folder = root / "LoadFailure";
    fs::create_directories(folder);
    std::ofstream(folder / "library.json") << "invalid JSON";
    const FileState found(folder / "library.json");
    VantryStore store(folder);
    const bool refused = store.loadFailed() && store.error() && !store.flush();
    store.addProject("Refused", "");
    Smoke::demand(refused && FileState(folder / "library.json") == found,
                  "Unreadable source data was overwritten");
    Smoke::demand(store.library().projects.empty(), "Load failure allowed mutation");
}

}  // namespace

void StoreVerification::run(const fs::path& root) {
    fs::create_directories(root);
    verifyEdits(root);
    verifyCleanNavigation(root);
    verifyImportRegression(root);
    verifySaveFailure(root);
    verifyDamagedFile(root);
    verifyLoadFailure(root);
}

}  // namespace vantry
