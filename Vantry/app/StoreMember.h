#pragma once

#include <cstdint>

namespace vantry {

/// What a notification of the store is about.
enum class StoreMember : std::uint8_t {
    library,
    savedLibrary,
    language,
    appearance,
    reducesMotion,
    error,
    notice,
    savedAt,
    saveFailed,
    loadFailed,
    undoHistory,
};

}  // namespace vantry
