#pragma once

#include <filesystem>
#include <string>

#include "VantryCore/persistence/LibraryValidation.h"
#include "VantryCore/records/Library.h"

namespace vantry {

/// What is known of a library file from its last reading or writing: its bytes and the library that they
/// decode to, which passed the validation. It answers one question only, "these are the same bytes, hence
/// this library", and spares a second decoding; whether something changed is always decided by the records.
/// It belongs to whoever saves; `DiskStore` fills it and keeps no other state.
struct SavedFile {
    std::filesystem::path path;  ///< empty while nothing is known
    std::string bytes;
    Library library;
    KnownValid valid;                ///< the library that was checked last, which need not be on the disk
    std::string spare;               ///< memory of the generation before, for the next encoding
    bool folderMayBeBehind = false;  ///< the last write could not sync the folder

    [[nodiscard]] bool knows(const std::filesystem::path& file) const {
        return !path.empty() && path == file;
    }
    /// Forgets everything; the next write takes every step.
    void forget() { *this = {}; }
};

}  // namespace vantry
