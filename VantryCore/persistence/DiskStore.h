#pragma once

#include <filesystem>

#include "VantryCore/persistence/FileOperations.h"
#include "VantryCore/persistence/SavedFile.h"
#include "VantryCore/records/Library.h"

namespace vantry {

/// Reads and writes the library file. Its two promises: a file that could not be understood is never
/// overwritten, and a write that changes content leaves exactly the bytes that it replaced beside the new
/// file, under its name with ".previous" added. Calls must not run at the same time for one file.
struct DiskStore {
    /// The library in `file`; a new one when no file exists, which is not created.
    /// Throws std::system_error (reading), DecodingError or VantryError::Case::invalidBackup; nothing on the
    /// disk changes. `known`, when given, learns the bytes and the library, or forgets.
    [[nodiscard]] static Library read(const std::filesystem::path& file, SavedFile* known = nullptr,
                                      FileOperations& disk = FileOperations::system());

    /// Brings `file` to hold `library`. The steps, and what a crash after each leaves behind:
    ///
    /// 1. `library` is validated, the folder created: at most an empty folder.
    /// 2. The existing file is read, decoded and validated. If it holds an equal library the write is done:
    ///    neither file was touched, whatever the bytes look like. If `known` knows these very bytes, their
    ///    library is taken from it. The new bytes are encoded in memory.
    /// 3. The bytes that were read become ".previous", by a second name for the file where the file system
    ///    can do that, by a copy otherwise. A crash leaves the old file, and ".previous" equal either to what
    ///    it was or to the old file; perhaps a temporary name, which the next write removes.
    /// 4. The new bytes are written to a temporary file, synced and renamed over `file`: the old or the new
    ///    file, whole; perhaps a temporary file, which the next write removes.
    /// 5. The folder is synced: power may fail now.
    ///
    /// A symbolic link at `file` stays, and its target is replaced; ".previous" stands beside the link.
    /// Throws what failed: VantryError or std::domain_error for the library itself, DecodingError or
    /// VantryError for the existing file, std::system_error for the disk. `file` is then what it was.
    static void write(const Library& library, const std::filesystem::path& file, SavedFile* known = nullptr,
                      FileOperations& disk = FileOperations::system());

    /// Where the generation before the current one of `file` is kept.
    [[nodiscard]] static std::filesystem::path previousOf(const std::filesystem::path& file);
};

}  // namespace vantry
