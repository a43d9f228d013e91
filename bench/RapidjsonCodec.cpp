#include "bench/RapidjsonCodec.h"

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <vector>

#include <rapidjson/document.h>
#include <rapidjson/writer.h>

#include "VantryCore/persistence/Base64.h"
#include "VantryCore/persistence/RecordTable.h"

namespace vantry::bench {
namespace {

using Value = rapidjson::Value;

void demand(bool holds) {
    if (!holds)
        throw std::runtime_error("not what was expected");
}

std::string_view viewOf(const Value& value) {
    demand(value.IsString());
    return {value.GetString(), value.GetStringLength()};
}

void read(const Value& value, Text& out) {
    out = Text(viewOf(value));
}

void read(const Value& value, bool& out) {
    demand(value.IsBool());
    out = value.GetBool();
}

void read(const Value& value, std::int64_t& out) {
    demand(value.IsInt64());
    out = value.GetInt64();
}

void read(const Value& value, double& out) {
    demand(value.IsNumber());
    out = value.GetDouble();
}

void read(const Value& value, Moment& out) {
    read(value, out.seconds);
}

void read(const Value& value, Identifier& out) {
    const auto id = Identifier::parse(viewOf(value));
    demand(id.has_value());
    out = *id;
}

template <TextEnum E>
void read(const Value& value, E& out) {
    const auto& texts = EnumTexts<E>::texts;
    const auto found = std::find(texts.begin(), texts.end(), viewOf(value));
    demand(found != texts.end());
    out = static_cast<E>(found - texts.begin());
}

void read(const Value& value, Bytes& out) {
    auto bytes = decodeBase64(viewOf(value));
    demand(bytes.has_value());
    out = std::move(*bytes);
}

void read(const Value& value, TextMap& out) {
    demand(value.IsObject());
    for (const auto& member : value.GetObject())
        out.set(Text(viewOf(member.name)), Text(viewOf(member.value)));
}

template <Record T>
void read(const Value& value, T& out);

template <class T>
void read(const Value& value, Node<T>& out) {
    read(value, out.edit());
}

template <class T>
void read(const Value& value, std::vector<T>& out) {
    demand(value.IsArray());
    out.reserve(value.Size());
    for (const auto& item : value.GetArray())
        read(item, out.emplace_back());
}

template <class T>
void read(const Value& value, std::optional<T>& out) {
    if (!value.IsNull())
        read(value, out.emplace());
}

template <Record T, std::size_t... I>
void readField(std::size_t index, const Value& value, T& out, std::index_sequence<I...>) {
    ((index == I ? read(value, out.*(sortedField<T, I>.member)) : void()), ...);
}

/// Takes the members as they come and looks for each key where the one before it was found, the way that is
/// kindest to a rival.
template <Record T>
void read(const Value& value, T& out) {
    static constexpr auto keys = sortedKeys<T>();
    demand(value.IsObject());
    std::size_t expected = 0;
    for (const auto& member : value.GetObject()) {
        const std::string_view key = viewOf(member.name);
        const auto found = std::find(keys.begin() + static_cast<std::ptrdiff_t>(expected), keys.end(), key);
        demand(found != keys.end());
        const auto index = static_cast<std::size_t>(found - keys.begin());
        readField(index, member.value, out, std::make_index_sequence<fieldCount<T>>());
        expected = index + 1;
    }
}

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

void write(Writer& json, std::string_view text) {
    json.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

void write(Writer& json, const Text& value) {
    write(json, std::string_view(value.utf8()));
}

void write(Writer& json, bool value) {
    json.Bool(value);
}

void write(Writer& json, std::int64_t value) {
    json.Int64(value);
}

void write(Writer& json, double value) {
    json.Double(value);
}

void write(Writer& json, const Moment& value) {
    json.Double(value.seconds);
}

void write(Writer& json, const Identifier& value) {
    std::array<char, 36> text{};
    value.write(text.data());
    write(json, std::string_view(text.data(), text.size()));
}

template <TextEnum E>
void write(Writer& json, E value) {
    write(json, rawValue(value));
}

void write(Writer& json, const Bytes& value) {
    std::string text;
    appendBase64(text, value);
    write(json, std::string_view(text));
}

void write(Writer& json, const TextMap& value) {
    json.StartObject();
    for (const auto& [key, text] : value) {
        json.Key(key.utf8().data(), static_cast<rapidjson::SizeType>(key.utf8().size()));
        write(json, text);
    }
    json.EndObject();
}

template <Record T>
void write(Writer& json, const T& value);

template <class T>
void write(Writer& json, const Node<T>& value) {
    write(json, *value);
}

template <class T>
void write(Writer& json, const std::vector<T>& value) {
    json.StartArray();
    for (const auto& item : value)
        write(json, item);
    json.EndArray();
}

template <class Value>
void writeField(Writer& json, std::string_view key, const Value& value) {
    json.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
    write(json, value);
}

template <class Value>
void writeField(Writer& json, std::string_view key, const std::optional<Value>& value) {
    if (value)
        writeField(json, key, *value);
}

template <Record T>
void write(Writer& json, const T& value) {
    json.StartObject();
    [&]<std::size_t... I>(std::index_sequence<I...>) {
        (writeField(json, sortedField<T, I>.name, value.*(sortedField<T, I>.member)), ...);
    }
    (std::make_index_sequence<fieldCount<T>>());
    json.EndObject();
}

}  // namespace

Library decodeByRapidjson(std::string_view json) {
    rapidjson::Document document;
    document.Parse<rapidjson::kParseFullPrecisionFlag | rapidjson::kParseValidateEncodingFlag>(json.data(),
                                                                                               json.size());
    demand(!document.HasParseError());
    Library library;
    read(document, library);
    return library;
}

void encodeByRapidjson(const Library& library, rapidjson::StringBuffer& out) {
    Writer writer(out);
    write(writer, library);
}

}  // namespace vantry::bench
