#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "VantryCore/records/Library.h"

namespace vantry {

/// The library around one structural change.
struct UndoEntry {
    Library before;
    Library after;
};

/// The structural changes that can be taken back, twenty at most, and the one that is being made. It lives in
/// memory only; as libraries share their nodes, an entry costs what it changed.
class UndoHistory {
public:
    static constexpr std::size_t depth = 20;

    /// Remembers the library as it is before a change.
    void begin(const Library& before) { pending = before; }
    /// Files the change that was begun, `now` being the library after it, unless nothing changed. Answers
    /// whether there is an entry more.
    bool commit(const Library& now);
    /// Whether there is a change to take back, were it filed now.
    [[nodiscard]] bool canUndo(const Library& now) const;

    [[nodiscard]] bool empty() const noexcept { return entries.empty(); }
    /// The change that is taken back next; there must be one.
    [[nodiscard]] const UndoEntry& newest() const { return entries.back(); }
    void dropNewest() { entries.pop_back(); }

private:
    std::vector<UndoEntry> entries;  ///< oldest first
    std::optional<Library> pending;
};

}  // namespace vantry
