#pragma once

#include <string_view>

#include <QString>
#include <QStringDecoder>

#include "VantryCore/records/Text.h"

namespace vantry {

// The edge between the records' UTF-8 and Qt's UTF-16; nothing else converts.

[[nodiscard]] inline QString toQString(std::string_view utf8) {
    // A byte order mark in front is a character of the text: `fromUtf8` would drop it.
    QStringDecoder decoder(QStringConverter::Utf8,
                           QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom);
    return decoder(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

[[nodiscard]] inline QString toQString(const Text& text) {
    return toQString(std::string_view(text.utf8()));
}

/// A lone surrogate, which UTF-8 cannot hold, becomes the replacement character.
[[nodiscard]] inline Text toText(const QString& text) {
    return Text(text.toStdString());
}

}  // namespace vantry
