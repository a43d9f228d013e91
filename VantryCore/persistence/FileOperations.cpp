#include "VantryCore/persistence/FileOperations.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "VantryCore/records/Identifier.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& path, int code = errno) {
    throw std::system_error(code, std::generic_category(), path.string());
}

/// Repeats a call that a signal interrupted.
template <class Call>
auto restarting(Call&& call) {
    while (true) {
        const auto result = call();
        if (result != -1 || errno != EINTR)
            return result;
    }
}

}  // namespace

bool FileStatus::isRegularFile() const noexcept {
    return S_ISREG(mode);
}

FileOperations& FileOperations::system() {
    static FileOperations operations;
    return operations;
}

void FileOperations::createFolders(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        throw std::system_error(error, folder.string());
    // A plain file in the place of the folder is no error to everybody who creates folders.
    if (!fs::is_directory(folder, error))
        fail(folder, ENOTDIR);
}

std::optional<FileStatus> FileOperations::status(const fs::path& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return std::nullopt;
        fail(path);
    }
    return FileStatus{{info.st_dev, info.st_ino}, static_cast<std::uint64_t>(info.st_size), info.st_mode};
}

int FileOperations::openForReading(const fs::path& path) {
    const int file = restarting([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC); });
    if (file == -1)
        fail(path);
    return file;
}

int FileOperations::createForWriting(const fs::path& path) {
    const int file =
        restarting([&] { return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600); });
    if (file == -1)
        fail(path);
    // A file system without locks leaves nothing to tell by; the file is ours all the same.
    (void)::flock(file, LOCK_EX | LOCK_NB);
    return file;
}

std::size_t FileOperations::read(int file, char* buffer, std::size_t size, const fs::path& path) {
    const auto count = restarting([&] { return ::read(file, buffer, size); });
    if (count == -1)
        fail(path);
    return static_cast<std::size_t>(count);
}

void FileOperations::write(int file, std::string_view bytes, const fs::path& path) {
    while (!bytes.empty()) {
        const auto count = restarting([&] { return ::write(file, bytes.data(), bytes.size()); });
        if (count == -1)
            fail(path);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void FileOperations::setMode(int file, mode_t mode, const fs::path& path) {
    if (::fchmod(file, mode & 07777) != 0)
        fail(path);
}

void FileOperations::sync(int file, const fs::path& path) {
#if defined(__APPLE__)
    // fsync alone leaves the bytes in the drive's own memory there.
    if (::fcntl(file, F_FULLFSYNC) == 0)
        return;
#endif
    if (restarting([&] { return ::fsync(file); }) != 0)
        fail(path);
}

void FileOperations::close(int file, const fs::path& path) {
    // The descriptor is gone even when the call was interrupted.
    if (::close(file) != 0 && errno != EINTR)
        fail(path);
}

void FileOperations::rename(const fs::path& from, const fs::path& to) {
    if (::rename(from.c_str(), to.c_str()) != 0)
        fail(to);
}

bool FileOperations::link(const fs::path& existing, const fs::path& name) {
    return ::linkat(AT_FDCWD, existing.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

void FileOperations::remove(const fs::path& path) noexcept {
    ::unlink(path.c_str());
}

void FileOperations::syncFolder(const fs::path& folder) {
    const int file = restarting([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    // A folder that may be written but not listed cannot be opened; its names are left to the file system.
    if (file == -1 && errno == EACCES)
        return;
    if (file == -1)
        fail(folder);
    const int result = restarting([&] { return ::fsync(file); });
    const int code = errno;
    ::close(file);
    // Some file systems have nothing to sync for a folder and say so.
    if (result != 0 && code != EINVAL && code != ENOTSUP)
        fail(folder, code);
}

fs::path folderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

std::string freshNamePart() {
    return Identifier::random().text().substr(0, 13);
}

}  // namespace vantry
