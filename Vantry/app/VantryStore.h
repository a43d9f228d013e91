#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <QByteArray>
#include <QImage>
#include <QObject>
#include <QSize>

#include "Vantry/app/Clock.h"
#include "Vantry/app/Observed.h"
#include "Vantry/app/StoreMember.h"
#include "Vantry/app/StoryboardImages.h"
#include "Vantry/app/Surroundings.h"
#include "Vantry/app/UndoHistory.h"
#include "Vantry/app/VantryCreationGate.h"
#include "VantryCore/persistence/Merge.h"
#include "VantryCore/persistence/SavedFile.h"
#include "VantryCore/records/Library.h"

namespace vantry {

/// The application's one state object: the library in memory, the user's choices, the texts of the alerts and
/// all state of saving. Pages read it and call its operations; nothing else changes the library.
/// Everything runs on the main thread. Operations report nothing to their caller: failures go to `error`. A
/// lookup that finds nothing changes nothing. After a failed load no operation changes library or disk.
class VantryStore final : public QObject {
    Q_OBJECT

public:
    using Member = StoreMember;

    /// Opens the library in `root`; without one, in the folder that VANTRY_DATA_DIR names, else in the user's
    /// data folder. A folder that is not there is an empty library; it appears with the first `flush`. A
    /// library that cannot be read sets `loadFailed` and `error`.
    explicit VantryStore(const std::optional<std::filesystem::path>& root, Surroundings around = {});
    ~VantryStore() override;

    [[nodiscard]] const std::filesystem::path& root() const noexcept { return folder; }
    [[nodiscard]] std::filesystem::path libraryFile() const { return folder / "library.json"; }
    [[nodiscard]] const Library& library() const noexcept { return *library_; }
    [[nodiscard]] const Library& savedLibrary() const noexcept { return *savedLibrary_; }
    [[nodiscard]] bool hasUnsavedChanges() const { return !(*library_ == *savedLibrary_); }
    [[nodiscard]] const std::optional<Moment>& savedAt() const noexcept { return *savedAt_; }
    [[nodiscard]] bool saveFailed() const noexcept { return *saveFailed_; }
    [[nodiscard]] bool loadFailed() const noexcept { return *loadFailed_; }

    [[nodiscard]] const Text& language() const noexcept { return *language_; }
    void setLanguage(const Text& language);
    /// The one test of the language: "en" is English, anything else Chinese.
    [[nodiscard]] bool english() const;
    [[nodiscard]] const Text& appearance() const noexcept { return *appearance_; }
    void setAppearance(const Text& appearance);
    [[nodiscard]] bool reducesMotion() const noexcept { return *reducesMotion_; }
    void setReducesMotion(bool reduces);

    [[nodiscard]] const std::optional<Text>& error() const noexcept { return *error_; }
    void setError(std::optional<Text> text) { error_.set(std::move(text)); }
    [[nodiscard]] const std::optional<Text>& notice() const noexcept { return *notice_; }
    void setNotice(std::optional<Text> text) { notice_.set(std::move(text)); }

    // Lookups: the record as it is now, first match, or null. It is a value of this moment and never changes.
    [[nodiscard]] std::shared_ptr<const Project> project(Identifier projectID) const;
    [[nodiscard]] std::shared_ptr<const Act> act(Identifier projectID, Identifier actID) const;
    [[nodiscard]] std::shared_ptr<const Shot> shot(Identifier projectID, Identifier actID,
                                                   Identifier shotID) const;
    [[nodiscard]] std::shared_ptr<const VantryTake> take(Identifier projectID, Identifier actID,
                                                         Identifier shotID, Identifier takeID) const;

    template <class T>
    using Change = std::function<void(T&)>;
    // Edits: `mutate` changes the record; it must not call the store. If it throws, nothing has changed.
    // The save follows 0.35 s after the last edit.
    void updateProject(Identifier projectID, const Change<Project>& mutate);
    void updateAct(Identifier projectID, Identifier actID, const Change<Act>& mutate);
    void updateShot(Identifier projectID, Identifier actID, Identifier shotID, const Change<Shot>& mutate);
    void updateTake(Identifier projectID, Identifier actID, Identifier shotID, Identifier takeID,
                    const Change<VantryTake>& mutate);

    // Creations: the new record's identifier, or one that names nothing when the target is not there.
    Identifier addProject(const Text& title, const Text& director);  ///< on disk at once
    Identifier addAct(Identifier projectID);
    Identifier addShot(Identifier projectID, Identifier actID, const std::optional<Identifier>& after = {});
    Identifier addTake(Identifier projectID, Identifier actID, Identifier shotID);
    void moveShot(Identifier projectID, Identifier actID, Identifier shotID, std::int64_t offset);
    void moveShotBefore(Identifier projectID, Identifier actID, Identifier shotID, Identifier targetID);
    /// Takes the project out of the library and saves at once.
    void removeProject(Identifier projectID);
    /// Lets the project learn the values that it has no default for.
    void recordDefaults(Identifier projectID, const Parameters& values);

    /// Asked in front of every creation; false means: do nothing and show nothing.
    [[nodiscard]] bool acceptCreation(const VantryCreationAction& action);

    /// Remembers the library as it is before a structural change; first step of each.
    void markCheckpoint();
    [[nodiscard]] bool canUndo() const;
    /// Takes the newest structural change back, nothing written later, and saves. A failure changes nothing.
    void undo();

    // What leaves and comes in. Each call lasts until the person has answered the panel.
    /// Saves, then writes the library with its images to a file that the person chooses.
    void exportBackup();
    void importBackup();  ///< merges a backup that the person chooses; tells in `notice` what it did
    /// Merges the backup in the bytes of a file into the library in memory, unsaved text included, as one
    /// structural change that is saved first. Throws what failed; then nothing has changed anywhere.
    MergeReport mergeBackupData(std::string file);

    /// Brings an image that the person chooses, or the one in the file of that path, into the shot.
    void importImage(Identifier projectID, Identifier actID, Identifier shotID);
    void importImageFile(Identifier projectID, Identifier actID, Identifier shotID, const std::string& path);
    /// The image of that key, no larger than `bound`, not enlarged; null without key, file or image.
    [[nodiscard]] QImage image(const std::optional<Text>& key, const QSize& bound);
    /// The bytes of the image file of that key; none when there is no such file.
    [[nodiscard]] std::string imageFile(const Text& key) const;
    /// Asks where to keep a document, makes and writes it whole or not at all, opens it. Reports to `error`.
    void exportDocument(const std::string& suggestedName, const std::function<QByteArray()>& make);
    [[nodiscard]] Moment now() const { return around_.clock->now(); }
    [[nodiscard]] Clock& clock() const noexcept { return *around_.clock; }
    void saveSoon();  ///< 0.35 s from now, unless called again before
    /// Saves now. Answers whether the disk holds the library; costs a comparison when nothing changed.
    bool flush();

signals:
    /// A member has a different value. Never sent for an equal one.
    void changed(vantry::StoreMember member);

private:
    void load();
    void commitCheckpoint();
    void nowSaved();
    void report(const std::exception& failure);
    [[nodiscard]] std::function<void()> notifier(Member member);

    Surroundings around_;
    Observed<Library> library_;
    Observed<Text> language_;
    Observed<Text> appearance_;
    Observed<bool> reducesMotion_;
    Observed<std::optional<Text>> error_;
    Observed<std::optional<Text>> notice_;
    Observed<std::optional<Moment>> savedAt_;
    Observed<bool> saveFailed_;
    Observed<bool> loadFailed_;
    std::filesystem::path folder;
    VantryCreationGate creationGate;
    std::unique_ptr<DelayedCall> saveTask;
    Observed<Library> savedLibrary_;
    std::optional<Text> saveError;
    UndoHistory history;
    StoryboardImages images;
    SavedFile savedFile;
};

}  // namespace vantry
