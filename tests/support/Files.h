#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace vantry::support {

/// A fresh empty folder that goes away with everything in it.
class TemporaryFolder {
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    [[nodiscard]] const std::filesystem::path& path() const noexcept { return folder; }
    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const { return folder / name; }

private:
    std::filesystem::path folder;
};

/// All bytes of a file. Throws when it cannot be read.
[[nodiscard]] std::string contentOf(const std::filesystem::path& file);
/// The same, or nothing when there is no such file.
[[nodiscard]] std::optional<std::string> contentIfAny(const std::filesystem::path& file);
/// Writes over whatever stands there, in place, as an editor without care would.
void putContent(const std::filesystem::path& file, std::string_view bytes);
/// The names in a folder, sorted.
[[nodiscard]] std::vector<std::string> namesIn(const std::filesystem::path& folder);
/// The names in a folder that look like temporary files.
[[nodiscard]] std::vector<std::string> temporaryNamesIn(const std::filesystem::path& folder);

/// Everything that must stay when a file is left alone.
struct FileFacts {
    std::string bytes;
    std::int64_t changedNanoseconds = 0;  ///< the modification time
    ino_t inode = 0;
    mode_t mode = 0;

    friend bool operator==(const FileFacts&, const FileFacts&) = default;
};

/// Readable enough for a failed comparison.
void PrintTo(const FileFacts& facts, std::ostream* out);

[[nodiscard]] std::optional<FileFacts> factsOf(const std::filesystem::path& file);
/// Sets the modification time to a moment long ago, so that a write can be told by it.
void makeOld(const std::filesystem::path& file);
/// Gives `file` the modification time of `model`, to the nanosecond.
void copyModificationTime(const std::filesystem::path& model, const std::filesystem::path& file);

}  // namespace vantry::support
