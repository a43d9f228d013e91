#pragma once

#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>

#include "VantryCore/persistence/FileOperations.h"

namespace vantry {

/// A file that is open for reading. Opening and reading throw std::system_error with the path.
class OpenFile {
public:
    /// What a sensible reader takes at once, in bytes.
    static constexpr std::size_t chunkSize = 1U << 18;

    /// `name` and `operations` must outlive this.
    OpenFile(const std::filesystem::path& name, FileOperations& operations)
        : path(name)
        , disk(operations)
        , file(operations.openForReading(name)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile();

    /// Reads up to `size` bytes; 0 at the end of the file.
    [[nodiscard]] std::size_t read(char* buffer, std::size_t size) {
        return disk.read(file, buffer, size, path);
    }
    /// What was opened, whatever has the name by now.
    [[nodiscard]] FileStatus status() const;
    /// Appends what is left of the file to `bytes`, with room behind for decoding in place. Stops soon after
    /// `limit` bytes in all.
    void readRest(std::string& bytes, std::uint64_t expectedSize,
                  std::uint64_t limit = std::numeric_limits<std::uint64_t>::max());

private:
    const std::filesystem::path& path;
    FileOperations& disk;
    int file;
};

/// Whether something stands at that path. Throws for what cannot be read to its end: a pipe or a device
/// would keep the program waiting. A folder passes; opening it fails.
[[nodiscard]] bool isReadable(const std::filesystem::path& file, FileOperations& disk);

/// All bytes of a file, with `readingPadding` readable bytes behind. Throws VantryError tooLarge for one of
/// more than `limit` bytes, without reading it, and std::system_error when it is not there or not readable.
[[nodiscard]] std::string readWhole(const std::filesystem::path& file, std::uint64_t limit,
                                    FileOperations& disk = FileOperations::system());

/// Whether the file holds exactly these bytes. Throws std::system_error when it cannot be read.
[[nodiscard]] bool holdsBytes(const std::filesystem::path& file, std::string_view bytes,
                              FileOperations& disk = FileOperations::system());

}  // namespace vantry
