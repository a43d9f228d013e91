#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vantry {

/// How deep arrays and objects may stand in one another; a deeper text is refused.
inline constexpr std::size_t deepestNesting = 64;

/// How many readable bytes must follow a text that is decoded in place.
inline constexpr std::size_t readingPadding = 64;

/// Decodes the JSON form (RFC 8259, UTF-8) of a record, strictly:
/// - keys in brackets of a record's table may be missing or null, all others are required;
/// - a value of another type, an unknown text of an enumeration and a text that is no UUID are refused;
/// - an integer may be written 3, 3.0 or 1e2; a fraction, or a value beyond 64 bits, is refused;
/// - byte-equal keys twice in one object, lone surrogates, invalid UTF-8, bytes behind the value and nesting
///   deeper than `deepestNesting` are refused, in the parts that the record does not know, too;
/// - unknown keys are otherwise ignored.
/// `json` must be followed by `readingPadding` bytes that may be read, whatever they hold.
/// Throws DecodingError with the place and the reason. Defined for `Library` and every record in it.
template <class Value>
[[nodiscard]] Value decodePadded(std::string_view json);

}  // namespace vantry
