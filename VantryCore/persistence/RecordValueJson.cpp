#include "VantryCore/persistence/JsonDocument.h"
#include "VantryCore/persistence/JsonWriter.h"
#include "VantryCore/persistence/RecordValue.h"

#include <algorithm>
#include <cmath>
#include <variant>

namespace vantry {
namespace {

using json::Place;
using simdjson::dom::element;
using simdjson::dom::element_type;

RecordValue read(const element& value, const Place& place);

/// Every whole number within 64 bits is an integer.
RecordValue readNumber(double number) {
    // 2^63 itself is no signed integer any more, -2^63 is.
    if (std::trunc(number) == number && number >= -0x1p63 && number < 0x1p63)
        return RecordValue(static_cast<std::int64_t>(number));
    return RecordValue(number);
}

RecordValue readArray(const simdjson::dom::array& array, const Place& place) {
    RecordValue::Array items;
    for (const element item : array)
        items.push_back(read(item, place.at(items.size())));
    return RecordValue(std::move(items));
}

RecordValue readObject(const simdjson::dom::object& object, const Place& place) {
    RecordValue::Object members;
    bool equivalentKeys = false;
    for (const auto& [key, item] : object) {
        // Of equivalent keys the last one wins, with its spelling.
        equivalentKeys = members.erase(Text(key)) != 0 || equivalentKeys;
        members.emplace(Text(key), read(item, place.at(key)));
    }
    if (equivalentKeys)
        json::refuseRepeatedKeys(object, place);
    return RecordValue(std::move(members));
}

RecordValue read(const element& value, const Place& place) {
    switch (value.type()) {
    case element_type::BOOL:
        return RecordValue(bool(value));
    case element_type::STRING:
        return RecordValue(Text(std::string_view(value)));
    case element_type::INT64:
        return RecordValue(std::int64_t(value));
    case element_type::UINT64:
        return RecordValue(static_cast<double>(std::uint64_t(value)));
    case element_type::DOUBLE:
        return readNumber(double(value));
    case element_type::OBJECT:
        return readObject(value, place);
    case element_type::ARRAY:
        return readArray(value, place);
    default:
        return {};
    }
}

class Writer {
public:
    explicit Writer(JsonWriter& writer)
        : json(writer) {}

    void operator()(const RecordValue::Null&) { json.raw("null"); }
    void operator()(bool value) { json.boolean(value); }
    void operator()(std::int64_t value) { json.integer(value); }
    void operator()(double value) { json.number(value); }
    void operator()(const Text& value) { json.text(value.utf8()); }
    void operator()(const RecordValue::Array& items) {
        json.raw('[');
        bool first = true;
        for (const auto& item : items) {
            if (!std::exchange(first, false))
                json.raw(',');
            std::visit(*this, item.content());
        }
        json.raw(']');
    }
    void operator()(const RecordValue::Object& members) {
        // The object is ordered by composed keys, the JSON form by the keys as they are.
        std::vector<const RecordValue::Object::value_type*> sorted;
        for (const auto& member : members)
            sorted.push_back(&member);
        std::sort(sorted.begin(), sorted.end(),
                  [](const auto* a, const auto* b) { return a->first.utf8() < b->first.utf8(); });
        json.raw('{');
        bool first = true;
        for (const auto* member : sorted) {
            if (!std::exchange(first, false))
                json.raw(',');
            json.text(member->first.utf8());
            json.raw(':');
            std::visit(*this, member->second.content());
        }
        json.raw('}');
    }

private:
    JsonWriter& json;
};

}  // namespace

template <>
std::string Codec::encode<RecordValue>(const RecordValue& value) {
    std::string buffer;
    JsonWriter json(buffer);
    std::visit(Writer(json), value.content());
    json.finish();
    return buffer;
}

template <>
RecordValue decodePadded<RecordValue>(std::string_view text) {
    const json::Document document(text);
    return read(document.root(), Place{});
}

}  // namespace vantry
