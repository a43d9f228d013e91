#pragma once

#include <functional>
#include <optional>

#include <QString>

namespace vantry {

/// Where a field's text lives. A field holds no text of its own that counts: it reads before it writes, so
/// that it changes what is there now and not what was there when it last looked.
struct TextBinding {
    std::function<std::optional<QString>()> read;  ///< nothing when the record is gone
    std::function<void(const QString&)> write;
};

}  // namespace vantry
