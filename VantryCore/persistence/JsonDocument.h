#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <simdjson.h>

#include "VantryCore/persistence/JsonReader.h"
#include "VantryCore/persistence/VantryError.h"

// What the readers of JSON have in common. Only sources include this: it brings simdjson with it.
namespace vantry::json {

static_assert(readingPadding >= simdjson::SIMDJSON_PADDING);

/// Where in the document a value stands, as a chain from the value outwards. Lives on the stack.
struct Place {
    const Place* outer = nullptr;
    std::string_view key;
    std::size_t index = 0;

    [[nodiscard]] std::string text() const {
        if (outer == nullptr)
            return {};
        std::string path = outer->text();
        if (key.data() == nullptr)
            return path + "[" + std::to_string(index) + "]";
        return path.empty() ? std::string(key) : path + "." + std::string(key);
    }
    [[nodiscard]] Place at(std::string_view name) const { return {this, name, 0}; }
    [[nodiscard]] Place at(std::size_t position) const { return {this, {}, position}; }
};

[[noreturn]] inline void fail(const Place& place, const std::string& reason) {
    throw DecodingError(place.text(), reason);
}

inline std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

[[noreturn]] inline void failRepeatedKey(const Place& place, std::string_view key) {
    fail(place, "the key " + quoted(key) + " stands twice");
}

/// Fails when a key stands twice in the object, byte for byte.
inline void refuseRepeatedKeys(const simdjson::dom::object& object, const Place& place) {
    std::vector<std::string_view> keys;
    for (const auto& member : object)
        keys.push_back(member.key);
    std::sort(keys.begin(), keys.end());
    if (const auto twice = std::adjacent_find(keys.begin(), keys.end()); twice != keys.end())
        failRepeatedKey(place, *twice);
}

/// A JSON text that has been parsed whole: what is not JSON, or nested deeper than `deepestNesting`, fails
/// here with DecodingError. The text must be followed by `readingPadding` readable bytes.
class Document {
public:
    explicit Document(std::string_view json) {
        if (const auto error = parser.allocate(std::max<std::size_t>(json.size(), 1), deepestNesting);
            error != simdjson::SUCCESS)
            throw DecodingError({}, std::string("too large to read: ") + simdjson::error_message(error));
        if (const auto error = parser.parse(json.data(), json.size(), false).get(element);
            error != simdjson::SUCCESS)
            throw DecodingError({}, std::string("not valid JSON: ") + simdjson::error_message(error));
    }

    [[nodiscard]] const simdjson::dom::element& root() const noexcept { return element; }

private:
    simdjson::dom::parser parser;
    simdjson::dom::element element;
};

}  // namespace vantry::json
