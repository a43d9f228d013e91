#pragma once

#include <cstdint>

namespace vantry {

/// What a notification of the store is about.
enum class StoreMember : std::uint8_t {
    library,
    savedLibrary,
    language,
    appearance,
    error,
    notice,
    savedAt,
    saveFailed,
    loadFailed,
    undoHistory,
};

}  // namespace vantry
