#pragma once

#include <QString>

namespace vantry::gallery {

/// A text in both languages of the interface.
struct Phrase {
    const char* chinese;
    const char* english;

    [[nodiscard]] QString in(bool isEnglish) const {
        return QString::fromUtf8(isEnglish ? english : chinese);
    }
};

}  // namespace vantry::gallery
