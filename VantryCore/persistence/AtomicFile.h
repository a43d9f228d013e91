#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "VantryCore/persistence/FileOperations.h"

namespace vantry {

/// Replacing a file in one step. A reader, or a crash at any moment, finds the whole old file or the whole
/// new one, never a part. When a call returns, the new file and its name are on the disk.
struct AtomicFile {
    /// Writes `bytes` to `file`: a temporary file beside it, fsync, rename, fsync of the folder. A symbolic
    /// link is followed, so that the link stays and its target is replaced. An existing file's permissions
    /// are kept; a new one gets those that the process gives to new files. Throws std::system_error with the
    /// path; then `file` is what it was and no temporary file is left. A failure of the last step alone
    /// leaves the new file in place, and is thrown as well. Answers which file the new one is.
    static FileIdentity write(const std::filesystem::path& file, std::string_view bytes,
                              FileOperations& disk = FileOperations::system());

    /// The same with these permissions, but a symbolic link at `file` is replaced, not followed.
    static FileIdentity writeHere(const std::filesystem::path& file, std::string_view bytes, mode_t mode,
                                  FileOperations& disk = FileOperations::system());

    /// A fresh name beside `file` for a temporary file.
    [[nodiscard]] static std::filesystem::path temporaryName(const std::filesystem::path& file);
    /// Removes the temporary files beside `file` that no living process writes any more, and no other files.
    static void removeLeftovers(const std::filesystem::path& file) noexcept;
    /// The same for the temporary files of whatever file in a folder that is ours alone.
    static void removeAllLeftovers(const std::filesystem::path& folder) noexcept;
    /// Where `file` leads when it is a symbolic link, which need not exist; `file` itself otherwise.
    [[nodiscard]] static std::filesystem::path resolved(const std::filesystem::path& file);
};

}  // namespace vantry
