#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include <sys/types.h>

namespace vantry {

/// Which file stands behind a name: two names with one identity are one file.
struct FileIdentity {
    dev_t device = 0;
    ino_t inode = 0;

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// What `FileOperations::status` tells of an existing file or folder.
struct FileStatus {
    FileIdentity identity;
    std::uint64_t size = 0;
    mode_t mode = 0;

    [[nodiscard]] bool isRegularFile() const noexcept;
};

/// The few calls to the file system of which a save is made, each one step that can fail.
///
/// The functions do what their POSIX names say and throw std::system_error with the path that they were
/// about. A test overrides single ones to fail or to stop the process at a given step; `system()` is the real
/// one. Symbolic links are followed unless the function says otherwise.
class FileOperations {
public:
    FileOperations() = default;
    FileOperations(const FileOperations&) = delete;
    FileOperations& operator=(const FileOperations&) = delete;
    virtual ~FileOperations() = default;

    /// The operating system itself.
    [[nodiscard]] static FileOperations& system();

    /// Creates a folder with all its parents; an existing one is no failure.
    virtual void createFolders(const std::filesystem::path& folder);
    /// What stands at `path`, or nothing when nothing does.
    [[nodiscard]] virtual std::optional<FileStatus> status(const std::filesystem::path& path);
    /// Opens for reading and answers the descriptor, which the caller closes.
    [[nodiscard]] virtual int openForReading(const std::filesystem::path& path);
    /// Creates a new file for writing, readable for its owner alone until `setMode`; fails when the name is
    /// taken. Answers the descriptor, which the caller closes. The open file holds an exclusive lock, by
    /// which others can tell it from one that was left behind.
    [[nodiscard]] virtual int createForWriting(const std::filesystem::path& path);
    /// Reads up to `size` bytes; 0 at the end of the file.
    [[nodiscard]] virtual std::size_t read(int file, char* buffer, std::size_t size,
                                           const std::filesystem::path& path);
    /// Writes all bytes.
    virtual void write(int file, std::string_view bytes, const std::filesystem::path& path);
    virtual void setMode(int file, mode_t mode, const std::filesystem::path& path);
    /// Waits until the file's content is on the disk.
    virtual void sync(int file, const std::filesystem::path& path);
    /// Closes; a failure that the system held back until now is thrown.
    virtual void close(int file, const std::filesystem::path& path);
    /// Replaces `to` by `from` in one step; neither link is followed.
    virtual void rename(const std::filesystem::path& from, const std::filesystem::path& to);
    /// Gives the file at `existing` (its target, if that is a symbolic link) a second, new name. Answers
    /// whether that was possible: not every file system can, and none over two of them.
    [[nodiscard]] virtual bool link(const std::filesystem::path& existing, const std::filesystem::path& name);
    /// Removes a file's name; no failure is reported.
    virtual void remove(const std::filesystem::path& path) noexcept;
    /// Waits until the names in a folder are on the disk.
    virtual void syncFolder(const std::filesystem::path& folder);
};

/// The folder that a file stands in; "." for a bare name.
[[nodiscard]] std::filesystem::path folderOf(const std::filesystem::path& file);
/// A random part for the name of a temporary file.
[[nodiscard]] std::string freshNamePart();

}  // namespace vantry
