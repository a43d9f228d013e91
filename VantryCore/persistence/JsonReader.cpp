#include "VantryCore/persistence/JsonReader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <tuple>
#include <unordered_set>
#include <utility>
#include <vector>

#include "VantryCore/persistence/Base64.h"
#include "VantryCore/persistence/JsonDocument.h"
#include "VantryCore/persistence/RecordTable.h"
#include "VantryCore/persistence/VantryBackup.h"
#include "VantryCore/records/Library.h"

namespace vantry {
namespace {

using json::fail;
using json::failRepeatedKey;
using json::Place;
using json::quoted;
using json::refuseRepeatedKeys;
using simdjson::dom::element;
using simdjson::dom::element_type;

std::string_view kindOf(const element& value) {
    switch (value.type()) {
    case element_type::ARRAY:
        return "a list";
    case element_type::OBJECT:
        return "an object";
    case element_type::STRING:
        return "a text";
    case element_type::BOOL:
        return "a truth value";
    case element_type::NULL_VALUE:
        return "null";
    default:
        return "a number";
    }
}

[[noreturn]] void failKind(const Place& place, std::string_view expected, const element& value) {
    fail(place, "expected " + std::string(expected) + ", found " + std::string(kindOf(value)));
}

/// Looks through a part that no record knows, for keys that stand twice.
void readIgnored(const element& value, const Place& place) {
    if (value.type() == element_type::ARRAY) {
        std::size_t index = 0;
        for (const element item : simdjson::dom::array(value))
            readIgnored(item, place.at(index++));
    } else if (value.type() == element_type::OBJECT) {
        std::unordered_set<std::string_view> keys;
        for (const auto& [key, item] : simdjson::dom::object(value)) {
            if (!keys.insert(key).second)
                failRepeatedKey(place, key);
            readIgnored(item, place.at(key));
        }
    }
}

std::string_view readText(const element& value, const Place& place) {
    std::string_view text;
    if (value.get(text) != simdjson::SUCCESS)
        failKind(place, "a text", value);
    return text;
}

void read(const element& value, Text& out, const Place& place) {
    out = Text(readText(value, place));
}

void read(const element& value, bool& out, const Place& place) {
    if (value.get(out) != simdjson::SUCCESS)
        failKind(place, "a truth value", value);
}

void read(const element& value, std::int64_t& out, const Place& place) {
    switch (value.type()) {
    case element_type::INT64:
        out = std::int64_t(value);
        return;
    case element_type::UINT64:
        fail(place, "the integer is beyond 64 bits");
    case element_type::DOUBLE: {
        const double number = double(value);
        if (std::trunc(number) != number)
            fail(place, "expected an integer, found a fraction");
        // 2^63 itself is no signed integer any more, -2^63 is.
        if (!(number >= -0x1p63 && number < 0x1p63))
            fail(place, "the integer is beyond 64 bits");
        out = static_cast<std::int64_t>(number);
        return;
    }
    default:
        failKind(place, "an integer", value);
    }
}

void read(const element& value, double& out, const Place& place) {
    switch (value.type()) {
    case element_type::INT64:
        out = static_cast<double>(std::int64_t(value));
        return;
    case element_type::UINT64:
        out = static_cast<double>(std::uint64_t(value));
        return;
    case element_type::DOUBLE:
        out = double(value);
        return;
    default:
        failKind(place, "a number", value);
    }
}

void read(const element& value, Moment& out, const Place& place) {
    read(value, out.seconds, place);
}

void read(const element& value, Identifier& out, const Place& place) {
    const std::string_view text = readText(value, place);
    const auto id = Identifier::parse(text);
    if (!id)
        fail(place, quoted(text) + " is no identifier");
    out = *id;
}

template <TextEnum E>
void read(const element& value, E& out, const Place& place) {
    const std::string_view text = readText(value, place);
    const auto& texts = EnumTexts<E>::texts;
    const auto found = std::find(texts.begin(), texts.end(), text);
    if (found == texts.end())
        fail(place, quoted(text) + " is not one of the known texts");
    out = static_cast<E>(found - texts.begin());
}

void read(const element& value, Bytes& out, const Place& place) {
    auto bytes = decodeBase64(readText(value, place));
    if (!bytes)
        fail(place, "the text is not Base64");
    out = std::move(*bytes);
}

void read(const element& value, TextMap& out, const Place& place) {
    simdjson::dom::object object;
    if (value.get(object) != simdjson::SUCCESS)
        failKind(place, "an object", value);
    std::vector<TextMap::Entry> entries;
    entries.reserve(object.size());
    for (const auto& [key, item] : object)
        entries.emplace_back(std::piecewise_construct, std::forward_as_tuple(key),
                             std::forward_as_tuple(readText(item, place.at(key))));
    const std::size_t count = entries.size();
    out = TextMap(std::move(entries));
    // Equivalent keys become one, which is no failure unless they are the very same.
    if (out.size() != count)
        refuseRepeatedKeys(object, place);
}

void read(const element& value, Media& out, const Place& place) {
    simdjson::dom::object object;
    if (value.get(object) != simdjson::SUCCESS)
        failKind(place, "an object", value);
    out.clear();
    for (const auto& [key, item] : object) {
        const auto [entry, isNew] = out.try_emplace(std::string(key));
        if (!isNew)
            failRepeatedKey(place, key);
        read(item, entry->second, place.at(key));
    }
}

template <Record T>
void read(const element& value, T& out, const Place& place);

template <class T>
void read(const element& value, Node<T>& out, const Place& place) {
    read(value, out.edit(), place);
}

template <class T>
void read(const element& value, std::vector<T>& out, const Place& place) {
    simdjson::dom::array array;
    if (value.get(array) != simdjson::SUCCESS)
        failKind(place, "a list", value);
    out.clear();
    out.reserve(array.size());
    for (const element item : array) {
        const Place here = place.at(out.size());
        read(item, out.emplace_back(), here);
    }
}

template <class T>
void read(const element& value, std::optional<T>& out, const Place& place) {
    out.reset();
    if (!value.is_null())
        read(value, out.emplace(), place);
}

template <class T>
inline constexpr bool isOptional = false;
template <class T>
inline constexpr bool isOptional<std::optional<T>> = true;

template <Record T>
using ReadField = void (*)(const element&, T&, const Place&);

/// One function for each key of a record, in the order of the sorted table.
template <Record T>
constexpr auto fieldReaders() {
    return []<std::size_t... I>(std::index_sequence<I...>) {
        return std::array<ReadField<T>, sizeof...(I)>{
            [](const element& value, T& record, const Place& place) {
                read(value, record.*(sortedField<T, I>.member), place);
            }...};
    }
    (std::make_index_sequence<fieldCount<T>>());
}

template <Record T>
constexpr std::uint32_t requiredFields() {
    return []<std::size_t... I>(std::index_sequence<I...>) {
        return ((isOptional<typename decltype(sortedField<T, I>)::Value> ? 0U : 1U << I) | ...);
    }
    (std::make_index_sequence<fieldCount<T>>());
}

using Members = simdjson::dom::object::iterator;

/// Reads members as long as they come in the order of the table, which is how our own files have them: here
/// the compiler knows each key that can be next. Answers which fields were read, a bit for each.
template <Record T>
std::uint32_t readInOrder(Members& next, const Members& end, T& out, const Place& place) {
    std::uint32_t seen = 0;
    std::string_view key = next != end ? next.key() : std::string_view();
    const auto take = [&]<std::size_t I>(std::integral_constant<std::size_t, I>) {
        constexpr std::string_view name = sortedField<T, I>.name;
        // The size is a constant for the compiler, which makes the comparison a few instructions.
        if (key.size() != name.size() || std::memcmp(key.data(), name.data(), name.size()) != 0)
            return;
        read(next.value(), out.*(sortedField<T, I>.member), place.at(name));
        seen |= 1U << I;
        ++next;
        key = next != end ? next.key() : std::string_view();
    };
    [&]<std::size_t... I>(std::index_sequence<I...>) {
        (take(std::integral_constant<std::size_t, I>()), ...);
    }
    (std::make_index_sequence<fieldCount<T>>());
    return seen;
}

/// Reads members in any order, known or not. Answers which fields were read by now.
template <Record T>
std::uint32_t readInAnyOrder(Members& next, const Members& end, std::uint32_t seen, T& out,
                             const Place& place) {
    static constexpr auto keys = sortedKeys<T>();
    static constexpr auto readers = fieldReaders<T>();
    std::vector<std::string_view> unknown;
    for (; next != end; ++next) {
        const std::string_view key = next.key();
        const auto index = static_cast<std::size_t>(std::find(keys.begin(), keys.end(), key) - keys.begin());
        if (index == keys.size()) {
            unknown.push_back(key);
            readIgnored(next.value(), place.at(key));
            continue;
        }
        if ((seen >> index & 1U) != 0)
            failRepeatedKey(place, key);
        seen |= 1U << index;
        readers[index](next.value(), out, place.at(keys[index]));
    }
    std::sort(unknown.begin(), unknown.end());
    if (const auto twice = std::adjacent_find(unknown.begin(), unknown.end()); twice != unknown.end())
        failRepeatedKey(place, *twice);
    return seen;
}

template <Record T>
void read(const element& value, T& out, const Place& place) {
    static constexpr std::uint32_t required = requiredFields<T>();
    simdjson::dom::object object;
    if (value.get(object) != simdjson::SUCCESS)
        failKind(place, "an object", value);
    Members next = object.begin();
    const Members end = object.end();
    std::uint32_t seen = readInOrder(next, end, out, place);
    if (next != end)
        seen = readInAnyOrder(next, end, seen, out, place);
    if (const std::uint32_t missing = required & ~seen; missing != 0)
        fail(place, "missing key " + quoted(sortedKeys<T>()[std::countr_zero(missing)]));
}

}  // namespace

template <class Value>
Value decodePadded(std::string_view json) {
    const json::Document document(json);
    Value value;
    read(document.root(), value, Place{});
    return value;
}

template Library decodePadded<Library>(std::string_view);
template Project decodePadded<Project>(std::string_view);
template Act decodePadded<Act>(std::string_view);
template Shot decodePadded<Shot>(std::string_view);
template VantryTake decodePadded<VantryTake>(std::string_view);
template Parameters decodePadded<Parameters>(std::string_view);
template Stroke decodePadded<Stroke>(std::string_view);
template Point decodePadded<Point>(std::string_view);
template CrewMember decodePadded<CrewMember>(std::string_view);
template CastMember decodePadded<CastMember>(std::string_view);
template CallSheet decodePadded<CallSheet>(std::string_view);
template CallSheetPerson decodePadded<CallSheetPerson>(std::string_view);
template RelatedFile decodePadded<RelatedFile>(std::string_view);
template VantryBackup decodePadded<VantryBackup>(std::string_view);

}  // namespace vantry
