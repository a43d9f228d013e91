#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace vantry {

/// The choosers of files, as the store sees them. A call returns when the person has answered; meanwhile the
/// rest of the program runs on, so whatever was looked up before has to be looked up again.
class FilePanels {
public:
    enum class Content : std::uint8_t {
        backup,  ///< a `.vantry` file; any file may be chosen
        image,   ///< PNG, JPEG, HEIC or TIFF
        pdf,     ///< a document to read and print
    };

    FilePanels() = default;
    FilePanels(const FilePanels&) = delete;
    FilePanels& operator=(const FilePanels&) = delete;
    virtual ~FilePanels() = default;

    /// An existing file, or nothing when the person changed their mind.
    [[nodiscard]] virtual std::optional<std::filesystem::path> open(Content content, bool english) = 0;
    /// Where to write a new file; the person has agreed to replace one that is there.
    [[nodiscard]] virtual std::optional<std::filesystem::path>
    save(Content content, const std::string& suggestedName, bool english) = 0;
};

}  // namespace vantry
