// Exchange by file, and the storyboard images: what crosses the edge of the data folder.

#include "Vantry/app/VantryStore.h"

#include <filesystem>
#include <stdexcept>
#include <utility>

#include "Vantry/app/Desktop.h"
#include "Vantry/app/FilePanels.h"
#include "VantryCore/persistence/AtomicFile.h"
#include "VantryCore/persistence/DiskStore.h"
#include "VantryCore/persistence/MediaFolder.h"
#include "VantryCore/persistence/OpenFile.h"
#include "VantryCore/persistence/VantryBackup.h"
#include "VantryCore/persistence/VantryError.h"
#include "VantryCore/records/ClockReading.h"
#include "VantryCore/records/Zone.h"

namespace vantry {
namespace {

std::string number(std::int64_t value) {
    return std::to_string(value);
}

Text describe(const MergeReport& report, bool english) {
    if (english)
        return Text("Merged: " + number(report.added) + " added, " + number(report.identical) +
                    " identical, " + number(report.conflicts) + " versions retained.");
    return Text("合并完成：新增 " + number(report.added) + "，相同保留 " + number(report.identical) +
                "，不同版本保留 " + number(report.conflicts) + "。");
}

/// The library and its images as the bytes of a file.
std::string backupOf(const Library& library, const MediaFolder& folder) {
    const VantryBackup backup(library, folder.read(library.mediaKeys(), VantryBackup::largestMedia));
    std::string file = VantryBackup::encode(backup);
    if (file.size() > VantryBackup::largestFile)
        throw VantryError(VantryError::Case::tooLarge);
    return file;
}

/// Whether a file is one of those that make up the library: another in its place would be the end of it.
bool belongsToLibrary(const std::filesystem::path& file, const VantryStore& store) {
    const auto target = std::filesystem::weakly_canonical(file);
    const auto library = std::filesystem::weakly_canonical(store.libraryFile());
    const auto media = std::filesystem::weakly_canonical(store.root() / "Media");
    return target == library || target == DiskStore::previousOf(library) || target == media ||
           target.parent_path() == media ||
           target == std::filesystem::weakly_canonical(DiskStore::previousOf(store.libraryFile()));
}

/// Writes a file that leaves the library. It is there whole or not at all.
void writeOutside(const std::filesystem::path& file, std::string_view bytes, const VantryStore& store,
                  FileOperations& disk) {
    if (belongsToLibrary(file, store))
        throw std::runtime_error(
            "资料库本身存放在这里，请另选位置 / The library itself is kept here. Choose another place");
    AtomicFile::removeLeftovers(AtomicFile::resolved(file));
    AtomicFile::write(file, bytes, disk);
}

void writeBackup(const std::filesystem::path& file, const VantryStore& store, FileOperations& disk) {
    const std::string bytes = backupOf(store.library(), MediaFolder(store.root(), disk));
    // Nothing leaves that could not come back.
    (void)VantryBackup::decodePadded(bytes);
    writeOutside(file, bytes, store, disk);
}

}  // namespace

void VantryStore::exportBackup() {
    flush();
    if (loadFailed() || around_.panels == nullptr)
        return;
    const std::string name = "Vantry-" + readClock(now(), Zone::machine()).dayText() + ".vantry";
    const auto file = around_.panels->save(FilePanels::Content::backup, name, english());
    if (!file)
        return;
    try {
        writeBackup(*file, *this, *around_.disk);
    } catch (const std::exception& failure) {
        report(failure);
        return;
    }
    notice_.set(english() ? Text("Backup exported, including storyboard images.")
                          : Text("备份已导出，包含分镜图片。"));
}

void VantryStore::importBackup() {
    if (loadFailed() || around_.panels == nullptr)
        return;
    const auto file = around_.panels->open(FilePanels::Content::backup, english());
    if (!file)
        return;
    try {
        const MergeReport merged =
            mergeBackupData(readWhole(*file, VantryBackup::largestFile, *around_.disk));
        notice_.set(describe(merged, english()));
    } catch (const std::exception& failure) {
        report(failure);
    }
}

MergeReport VantryStore::mergeBackupData(std::string file) {
    if (loadFailed())
        throw VantryError(VantryError::Case::invalidBackup);
    file.reserve(file.size() + readingPadding);
    const VantryBackup backup = VantryBackup::decodePadded(file);
    std::string().swap(file);
    // What is in memory is the base: it may hold text that has not reached the disk.
    Library merged = library();
    const MergeReport merge = Merge::apply(backup.library, merged, savedFile.valid);

    MediaFolder media(root(), *around_.disk);
    media.create();
    for (const auto& key : backup.library.mediaKeys())
        media.keep(key, backup.media.at(key));
    DiskStore::write(merged, libraryFile(), &savedFile, *around_.disk);

    // The disk has it: from here on nothing may fail.
    saveTask.reset();
    markCheckpoint();
    library_.set(std::move(merged));
    commitCheckpoint();
    nowSaved();
    return merge;
}

void VantryStore::importImage(Identifier projectID, Identifier actID, Identifier shotID) {
    if (loadFailed() || around_.panels == nullptr)
        return;
    if (const auto file = around_.panels->open(FilePanels::Content::image, english()))
        importImageFile(projectID, actID, shotID, file->string());
}

void VantryStore::importImageFile(Identifier projectID, Identifier actID, Identifier shotID,
                                  const std::string& path) {
    if (loadFailed())
        return;
    try {
        const std::string bytes = readWhole(path, VantryBackup::largestImage, *around_.disk);
        const std::string key = images.import(bytes, *around_.disk);
        markCheckpoint();
        updateShot(projectID, actID, shotID, [&](Shot& shot) { shot.imageKey = Text(key); });
    } catch (const std::exception& failure) {
        report(failure);
    }
}

std::string VantryStore::imageFile(const Text& key) const {
    try {
        return readWhole(MediaFolder(root(), *around_.disk).fileOf(key.utf8()), VantryBackup::largestFile,
                         *around_.disk);
    } catch (const std::exception&) {
        return {};
    }
}

void VantryStore::exportDocument(const std::string& suggestedName, const std::function<QByteArray()>& make) {
    if (loadFailed() || around_.panels == nullptr)
        return;
    const auto file = around_.panels->save(FilePanels::Content::pdf, suggestedName, english());
    if (!file)
        return;
    try {
        const QByteArray document = make();
        writeOutside(*file, {document.constData(), static_cast<std::size_t>(document.size())}, *this,
                     *around_.disk);
        if (around_.desktop != nullptr && !around_.desktop->open(*file))
            throw std::runtime_error(
                "PDF 已保存，但没有程序能打开它 / The PDF is saved, but no program opened it: " +
                file->string());
    } catch (const std::exception& failure) {
        report(failure);
    }
}

void VantryStore::report(const std::exception& failure) {
    error_.set(Text(localizedDescription(failure)));
}

QImage VantryStore::image(const std::optional<Text>& key, const QSize& bound) {
    return key ? images.image(key->utf8(), bound) : QImage();
}

}  // namespace vantry
