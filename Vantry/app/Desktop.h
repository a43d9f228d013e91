#pragma once

#include <filesystem>

namespace vantry {

/// The desktop's other programs, as the store sees them.
class Desktop {
public:
    Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    virtual ~Desktop() = default;

    /// Opens the file with the program that the person has chosen for its kind, and does not wait for it.
    /// Answers whether there is one.
    [[nodiscard]] virtual bool open(const std::filesystem::path& file) = 0;
};

}  // namespace vantry
