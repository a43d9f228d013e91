#pragma once

#include <optional>

#include <QByteArray>

#include "VantryCore/records/Identifier.h"

namespace vantry {

/// The key of the row that stands for a record.
[[nodiscard]] inline QByteArray rowKey(const Identifier& id) {
    return QByteArray::fromStdString(id.text());
}

/// The record that a row stands for.
[[nodiscard]] inline std::optional<Identifier> recordOf(const QByteArray& key) {
    return Identifier::parse({key.constData(), static_cast<std::size_t>(key.size())});
}

}  // namespace vantry
