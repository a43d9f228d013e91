#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/records/Field.h"
#include "VantryCore/records/Identifier.h"
#include "conformance/Case.h"

namespace vantry::conformance {

/// The record of a JSON object, read by the product's own decoder.
template <class Record>
[[nodiscard]] Record toRecord(const Json& json) {
    return Codec::decode<Record>(json.dump());
}

/// The JSON object of a record, written by the product's own encoder.
template <class Record>
[[nodiscard]] Json toJson(const Record& record) {
    return Json::parse(Codec::encode(record));
}

/// The value, or null when there is none.
template <class Value>
[[nodiscard]] Json orNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json();
}

[[nodiscard]] inline Identifier toIdentifier(const Json& json) {
    const auto id = Identifier::parse(json.get_ref<const std::string&>());
    if (!id)
        throw std::invalid_argument(json.dump() + " is no identifier");
    return *id;
}

/// The case of an enumeration whose JSON form is that text.
template <TextEnum E>
[[nodiscard]] E toCase(const Json& json) {
    const auto& texts = EnumTexts<E>::texts;
    for (std::size_t i = 0; i < texts.size(); ++i)
        if (texts[i] == json.get_ref<const std::string&>())
            return static_cast<E>(i);
    throw std::invalid_argument(json.dump() + " is not one of the known texts");
}

}  // namespace vantry::conformance
