#include "tests/support/FaultyFileOperations.h"

#include <cerrno>
#include <system_error>

namespace vantry::support {

namespace fs = std::filesystem;

void FaultyFileOperations::failAt(std::size_t step, Extent extent) {
    failing = step;
    failingExtent = extent;
}

bool FaultyFileOperations::fails(const char* name) {
    names.emplace_back(name);
    if (beforeStep)
        beforeStep(names.size(), name);
    const bool due = failing != 0 && (names.size() == failing ||
                                      (failingExtent == Extent::onwards && names.size() > failing));
    if (due && firstFailure.empty())
        firstFailure = name;
    return due;
}

void FaultyFileOperations::step(const char* name, const fs::path& path) {
    if (fails(name))
        throw std::system_error(EIO, std::generic_category(), path.string());
}

void FaultyFileOperations::createFolders(const fs::path& folder) {
    step("createFolders", folder);
    FileOperations::createFolders(folder);
}

std::optional<FileStatus> FaultyFileOperations::status(const fs::path& path) {
    step("status", path);
    return FileOperations::status(path);
}

int FaultyFileOperations::openForReading(const fs::path& path) {
    step("openForReading", path);
    return FileOperations::openForReading(path);
}

int FaultyFileOperations::createForWriting(const fs::path& path) {
    step("createForWriting", path);
    return FileOperations::createForWriting(path);
}

std::size_t FaultyFileOperations::read(int file, char* buffer, std::size_t size, const fs::path& path) {
    step("read", path);
    return FileOperations::read(file, buffer, size, path);
}

void FaultyFileOperations::write(int file, std::string_view bytes, const fs::path& path) {
    const std::size_t half = bytes.size() / 2;
    step("write", path);
    FileOperations::write(file, bytes.substr(0, half), path);
    step("write", path);
    FileOperations::write(file, bytes.substr(half), path);
}

void FaultyFileOperations::setMode(int file, mode_t mode, const fs::path& path) {
    step("setMode", path);
    FileOperations::setMode(file, mode, path);
}

void FaultyFileOperations::sync(int file, const fs::path& path) {
    step("sync", path);
    if (syncsReachTheDisk)
        FileOperations::sync(file, path);
}

void FaultyFileOperations::close(int file, const fs::path& path) {
    const bool failed = fails("close");
    FileOperations::close(file, path);
    if (failed)
        throw std::system_error(EIO, std::generic_category(), path.string());
}

void FaultyFileOperations::rename(const fs::path& from, const fs::path& to) {
    step("rename", to);
    FileOperations::rename(from, to);
}

bool FaultyFileOperations::link(const fs::path& existing, const fs::path& name) {
    return !fails("link") && linksWork && FileOperations::link(existing, name);
}

void FaultyFileOperations::remove(const fs::path& path) noexcept {
    if (!fails("remove"))
        FileOperations::remove(path);
}

void FaultyFileOperations::syncFolder(const fs::path& folder) {
    step("syncFolder", folder);
    if (syncsReachTheDisk)
        FileOperations::syncFolder(folder);
}

}  // namespace vantry::support
