#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/records/Text.h"

namespace vantry {

/// A value of the shape of JSON. What it means to compare and to revert records is told by it, so that a
/// field which a later version adds takes part by itself.
///
/// Equality is structural and strict about the case: the integer 1, the number 1.0 and the text "1" all
/// differ, and so do a missing key and null. Texts and keys are equal under canonical equivalence.
///
/// Reading takes the first of these that fits: null, truth value, text, integer, number, object, list. So
/// every whole number that 64 bits hold is an integer, however it is written.
class RecordValue {
public:
    struct Null {
        friend bool operator==(const Null&, const Null&) = default;
    };
    /// Orders keys by their composed form, so that equivalent keys are one key.
    struct KeyOrder {
        using is_transparent = void;
        bool operator()(const Text& a, const Text& b) const;
    };
    using Object = std::map<Text, RecordValue, KeyOrder>;
    using Array = std::vector<RecordValue>;
    using Payload = std::variant<Null, Object, Array, Text, std::int64_t, double, bool>;

    RecordValue() = default;
    RecordValue(Payload value)
        : payload(std::move(value)) {}

    [[nodiscard]] const Object* object() const { return std::get_if<Object>(&payload); }
    [[nodiscard]] const Array* array() const { return std::get_if<Array>(&payload); }
    [[nodiscard]] const Payload& content() const { return payload; }

    /// The text under the key "id" of an object, if it is a text; null otherwise.
    [[nodiscard]] const Text* id() const;
    /// A copy without the keys "id", "conflictKey" and "sourceID" at any depth; all else is content.
    [[nodiscard]] RecordValue withoutIdentity() const;

    /// `current` with the one change taken out that made `after` of `before`; whatever came later stays, and
    /// where both touched the same place the later work wins. Lists of records are matched by their
    /// identifiers; any other list is one value.
    [[nodiscard]] static RecordValue revert(const RecordValue& before, const RecordValue& after,
                                            const RecordValue& current);

    friend bool operator==(const RecordValue& a, const RecordValue& b) { return a.payload == b.payload; }

private:
    Payload payload;
};

// The JSON form of a value, and the way back; the rules are those of all records.
template <>
std::string Codec::encode<RecordValue>(const RecordValue& value);
template <>
RecordValue decodePadded<RecordValue>(std::string_view json);

}  // namespace vantry
