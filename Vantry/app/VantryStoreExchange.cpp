// Exchange by file, and the storyboard images: what crosses the edge of the data folder.

#include "Vantry/app/VantryStore.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "Vantry/app/FilePanels.h"
#include "VantryCore/persistence/AtomicFile.h"
#include "VantryCore/persistence/DiskStore.h"
#include "VantryCore/persistence/MediaFolder.h"
#include "VantryCore/persistence/OpenFile.h"
#include "VantryCore/persistence/VantryBackup.h"
#include "VantryCore/persistence/VantryError.h"
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

/// The day as the machine's clock shows it, such as 2026-11-15 (ISO 8601).
std::string dayName(Moment moment) {
    const auto unixSeconds =
        static_cast<std::int64_t>(std::floor(moment.seconds)) + unixSecondsOfReferenceDate;
    const std::chrono::sys_seconds local{
        std::chrono::seconds(unixSeconds + Zone::machine().offsetAt(unixSeconds))};
    const std::chrono::year_month_day day(std::chrono::floor<std::chrono::days>(local));
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "%04d-%02u-%02u", static_cast<int>(day.year()),
                  static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
    return name.data();
}

/// The library and its images as the bytes of a file.
std::string backupOf(const Library& library, const MediaFolder& folder) {
    const VantryBackup backup(library, folder.read(library.mediaKeys(), VantryBackup::largestMedia));
    std::string file = VantryBackup::encode(backup);
    if (file.size() > VantryBackup::largestFile)
        throw VantryError(VantryError::Case::tooLarge);
    return file;
}

/// Whether a file is one of those that make up the library: a backup in its place would be the end of it.
bool belongsToLibrary(const std::filesystem::path& file, const VantryStore& store) {
    const auto target = std::filesystem::weakly_canonical(file);
    const auto library = std::filesystem::weakly_canonical(store.libraryFile());
    const auto media = std::filesystem::weakly_canonical(store.root() / "Media");
    return target == library || target == DiskStore::previousOf(library) || target == media ||
           target.parent_path() == media ||
           target == std::filesystem::weakly_canonical(DiskStore::previousOf(store.libraryFile()));
}

void writeBackup(const std::filesystem::path& file, const VantryStore& store, FileOperations& disk) {
    if (belongsToLibrary(file, store))
        throw std::runtime_error(
            "资料库本身存放在这里，请另选位置 / The library itself is kept here. Choose another place");
    AtomicFile::removeLeftovers(AtomicFile::resolved(file));
    const std::string bytes = backupOf(store.library(), MediaFolder(store.root(), disk));
    // Nothing leaves that could not come back.
    (void)VantryBackup::decodePadded(bytes);
    AtomicFile::write(file, bytes, disk);
}

}  // namespace

void VantryStore::exportBackup() {
    flush();
    if (loadFailed() || around_.panels == nullptr)
        return;
    const std::string name = "Vantry-" + dayName(around_.clock->now()) + ".vantry";
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
    const auto file = around_.panels->open(FilePanels::Content::image, english());
    if (!file)
        return;
    try {
        const std::string bytes = readWhole(*file, VantryBackup::largestImage, *around_.disk);
        const std::string key = images.import(bytes, *around_.disk);
        markCheckpoint();
        updateShot(projectID, actID, shotID, [&](Shot& shot) { shot.imageKey = Text(key); });
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
