#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "VantryCore/persistence/JsonReader.h"
#include "VantryCore/records/Identifier.h"

namespace vantry {

/// The one place that turns records into bytes and names things by hash.
struct Codec {
    /// The JSON form of a record: keys sorted by Unicode scalar value at every depth, compact, UTF-8.
    /// Equal bytes for every call with the same record. Throws std::domain_error for a float that is not
    /// finite. Defined for `Library` and every record in it.
    template <class Value>
    [[nodiscard]] static std::string encode(const Value& value);
    /// The same into `buffer`, whose content is replaced and whose memory is used again.
    template <class Value>
    static void encode(const Value& value, std::string& buffer);

    /// The record of a JSON text; the rules and the failures are those of `decodePadded`.
    template <class Value>
    [[nodiscard]] static Value decode(std::string_view json) {
        std::string padded;
        padded.reserve(json.size() + readingPadding);
        padded.assign(json);
        return decodePadded<Value>(padded);
    }

    /// SHA-256 (FIPS 180-4) as 64 lower-case hexadecimal digits.
    [[nodiscard]] static std::string hash(std::span<const std::uint8_t> bytes);
    [[nodiscard]] static std::string hash(std::string_view bytes);
    /// The identifier that always comes out the same for the same UTF-8 text: the first 16 bytes of its
    /// SHA-256, with no version or variant set.
    [[nodiscard]] static Identifier stableID(std::string_view text);
};

}  // namespace vantry
