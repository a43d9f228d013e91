#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "Vantry/interface/navigation/LibraryTreeModel.h"

namespace vantry {

/// What a row is made of and followed by.
struct LibraryTreeModel::Entry {
    Kind kind = Kind::project;
    Identifier id;  ///< the record's; a new take's row has its shot's
    Record record;
    bool enabled = true;

    /// Unique among siblings. A new take's row is the only one of its shot's children with the shot's own.
    [[nodiscard]] const Identifier& key() const noexcept { return id; }
};

/// A row that somebody has looked at.
struct LibraryTreeModel::Row {
    Row() = default;
    explicit Row(Entry made)
        : entry(std::move(made)) {}

    [[nodiscard]] int glyph() const;

    Entry entry;
    Row* parent = nullptr;  ///< null for the root alone
    std::size_t place = 0;  ///< among its siblings
    bool loaded = false;    ///< whether `children` have been made
    std::vector<std::unique_ptr<Row>> children;
};

}  // namespace vantry
