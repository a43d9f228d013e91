#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "VantryCore/persistence/FileOperations.h"
#include "VantryCore/persistence/SavedFile.h"

namespace vantry::bench {

/// The real disk, looked at: counts what a save does.
class CountingDisk final : public FileOperations {
public:
    std::uint64_t bytesWritten = 0;
    std::uint64_t links = 0;
    std::uint64_t syncs = 0;

    void write(int file, std::string_view bytes, const std::filesystem::path& path) override {
        bytesWritten += bytes.size();
        FileOperations::write(file, bytes, path);
    }
    void sync(int file, const std::filesystem::path& path) override {
        ++syncs;
        FileOperations::sync(file, path);
    }
    void syncFolder(const std::filesystem::path& folder) override {
        ++syncs;
        FileOperations::syncFolder(folder);
    }
    bool link(const std::filesystem::path& existing, const std::filesystem::path& name) override {
        // The old file has been read by now. A second decoding would have brought fresh nodes.
        if (!oldLibrary->projects.empty() && !known->library.projects[0].isSameAs(oldLibrary->projects[0]))
            ++decodings;
        const bool done = FileOperations::link(existing, name);
        links += done ? 1 : 0;
        return done;
    }

    const SavedFile* known = nullptr;     ///< what the save is given
    const Library* oldLibrary = nullptr;  ///< the one that `known` has before the save
    std::uint64_t decodings = 0;          ///< of an old file that had not changed
};

}  // namespace vantry::bench
