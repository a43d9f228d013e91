#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vantry::support {

/// A key of a JSON object and the text of its value, both as they are written, the key without its quotes.
struct JsonMember {
    std::string key;
    std::string value;
};

/// The members of an object in the order of the text. A scanner of its own, so that the tests of the reader
/// do not rest on the reader; the text must be JSON.
[[nodiscard]] std::vector<JsonMember> membersOf(std::string_view object);
/// The items of an array.
[[nodiscard]] std::vector<std::string> itemsOf(std::string_view array);
[[nodiscard]] std::string objectOf(const std::vector<JsonMember>& members);
[[nodiscard]] std::string arrayOf(const std::vector<std::string>& items);

/// The object with another value under `key`, which must be there.
[[nodiscard]] std::string withValue(std::string_view object, std::string_view key, std::string_view value);
/// The object without `key`.
[[nodiscard]] std::string withoutKey(std::string_view object, std::string_view key);

/// How a JSON text is to be written anew without a change of what it says.
struct JsonStyle {
    bool keysReversed = false;
    std::string lineEnd;  ///< between members and items
    std::string blank;    ///< behind colons and in front of members
    /// Changes the inside of a text that is a value, escapes as written.
    std::function<std::string(const std::string&)> text;
    std::function<std::string(const std::string&)> number;
};

/// The JSON text in another style.
[[nodiscard]] std::string restyled(std::string_view json, const JsonStyle& style);
/// As a person's editor would lay it out: keys in the opposite order, one to a line, indented.
[[nodiscard]] std::string prettyPrinted(std::string_view json);

}  // namespace vantry::support
