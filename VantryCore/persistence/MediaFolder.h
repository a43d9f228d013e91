#pragma once

#include <cstdint>
#include <filesystem>
#include <set>
#include <span>
#include <string>

#include "VantryCore/persistence/FileOperations.h"
#include "VantryCore/persistence/VantryBackup.h"

namespace vantry {

/// The storyboard images of a library: one file for each, named by the hash of its bytes, with no extension.
/// Files are written whole or not at all, and never removed. Failures of the disk are std::system_error.
class MediaFolder {
public:
    /// The folder "Media" in the data folder, which need not exist yet.
    explicit MediaFolder(const std::filesystem::path& dataFolder,
                         FileOperations& operations = FileOperations::system());

    [[nodiscard]] std::filesystem::path fileOf(const std::string& key) const { return folder / key; }

    /// Creates the folder, and removes what a process that died left behind in it.
    void create();
    /// The images of these keys. Throws VantryError tooLarge when they hold more than `limit` bytes together.
    [[nodiscard]] Media read(const std::set<std::string>& keys, std::uint64_t limit) const;
    /// Writes the image unless it is there. Throws VantryError missingMedia when other bytes are, which stay.
    void keep(const std::string& key, std::span<const std::uint8_t> bytes);
    /// Writes the image, whatever is there.
    void store(const std::string& key, std::span<const std::uint8_t> bytes);

private:
    std::filesystem::path folder;
    FileOperations& disk;
};

}  // namespace vantry
