#pragma once

#include <functional>
#include <string>
#include <vector>

#include "VantryCore/persistence/FileOperations.h"

namespace vantry::support {

/// The real file system, in which every call is a numbered step that can be made to fail.
///
/// A failing call throws an input/output error and does nothing, with three exceptions in the nature of the
/// calls: `link` answers false, `remove` silently leaves the name, and `close` closes all the same. `write`
/// is two steps of half the bytes each, so that a file can be left half written.
class FaultyFileOperations : public FileOperations {
public:
    enum class Extent {
        once,     ///< that step alone
        onwards,  ///< that step and all behind it: the disk is gone
    };

    /// Lets the step of that number, counted from 1, fail.
    void failAt(std::size_t step, Extent extent = Extent::once);
    /// Pretends a file system without hard links.
    void refuseLinks() { linksWork = false; }
    /// Syncs in name only. A process that dies loses nothing by it, only a machine does.
    void skipSyncs() { syncsReachTheDisk = false; }
    /// Is called before each step with its number and name, and may change the disk or end the process.
    std::function<void(std::size_t step, const std::string& name)> beforeStep;

    [[nodiscard]] std::size_t steps() const noexcept { return names.size(); }
    /// The names of the steps so far, such as "rename".
    [[nodiscard]] const std::vector<std::string>& stepNames() const noexcept { return names; }
    /// The name of the first step that failed, empty while none did.
    [[nodiscard]] const std::string& failedStep() const noexcept { return firstFailure; }

    void createFolders(const std::filesystem::path& folder) override;
    [[nodiscard]] std::optional<FileStatus> status(const std::filesystem::path& path) override;
    [[nodiscard]] int openForReading(const std::filesystem::path& path) override;
    [[nodiscard]] int createForWriting(const std::filesystem::path& path) override;
    [[nodiscard]] std::size_t read(int file, char* buffer, std::size_t size,
                                   const std::filesystem::path& path) override;
    void write(int file, std::string_view bytes, const std::filesystem::path& path) override;
    void setMode(int file, mode_t mode, const std::filesystem::path& path) override;
    void sync(int file, const std::filesystem::path& path) override;
    void close(int file, const std::filesystem::path& path) override;
    void rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
    [[nodiscard]] bool link(const std::filesystem::path& existing,
                            const std::filesystem::path& name) override;
    void remove(const std::filesystem::path& path) noexcept override;
    void syncFolder(const std::filesystem::path& folder) override;

private:
    bool fails(const char* name);
    void step(const char* name, const std::filesystem::path& path);

    std::vector<std::string> names;
    std::string firstFailure;
    std::size_t failing = 0;
    Extent failingExtent = Extent::once;
    bool linksWork = true;
    bool syncsReachTheDisk = true;
};

}  // namespace vantry::support
