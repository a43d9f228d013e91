#include "VantryCore/persistence/Codec.h"

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <vector>

#include <openssl/evp.h>

#include "VantryCore/persistence/Base64.h"
#include "VantryCore/persistence/JsonWriter.h"
#include "VantryCore/persistence/RecordTable.h"
#include "VantryCore/persistence/VantryBackup.h"
#include "VantryCore/records/Library.h"

namespace vantry {
namespace {

/// After so many items of a list its size can be foretold.
constexpr std::size_t itemsThatTell = 16;

void write(JsonWriter& json, const Text& value) {
    json.text(value.utf8());
}

void write(JsonWriter& json, bool value) {
    json.boolean(value);
}

void write(JsonWriter& json, std::int64_t value) {
    json.integer(value);
}

void write(JsonWriter& json, double value) {
    json.number(value);
}

void write(JsonWriter& json, const Moment& value) {
    json.number(value.seconds);
}

void write(JsonWriter& json, const Identifier& value) {
    std::array<char, 38> quoted{};
    quoted.front() = '"';
    value.write(quoted.data() + 1);
    quoted.back() = '"';
    json.raw(std::string_view(quoted.data(), quoted.size()));
}

template <TextEnum E>
void write(JsonWriter& json, E value) {
    json.text(rawValue(value));
}

void write(JsonWriter& json, const Bytes& value) {
    std::string text;
    appendBase64(text, value);
    json.text(text);
}

void write(JsonWriter& json, const TextMap& value) {
    char before = '{';
    for (const auto& [key, text] : value) {
        json.raw(before);
        json.text(key.utf8());
        json.raw(':');
        json.text(text.utf8());
        before = ',';
    }
    json.raw(before == '{' ? std::string_view("{}") : std::string_view("}"));
}

void write(JsonWriter& json, const Media& value) {
    char before = '{';
    std::string text;
    for (const auto& [key, bytes] : value) {
        json.raw(before);
        json.text(key);
        json.raw(':');
        text.clear();
        appendBase64(text, bytes);
        json.text(text);
        before = ',';
    }
    json.raw(before == '{' ? std::string_view("{}") : std::string_view("}"));
}

template <Record T>
void write(JsonWriter& json, const T& value);

template <class T>
void write(JsonWriter& json, const Node<T>& value) {
    write(json, *value);
}

template <class T>
void write(JsonWriter& json, const std::vector<T>& value) {
    char before = '[';
    std::size_t written = 0;
    const std::size_t start = json.size();
    for (const auto& item : value) {
        json.raw(before);
        write(json, item);
        before = ',';
        if (++written == itemsThatTell)
            json.expect((json.size() - start) / written * (value.size() - written));
    }
    json.raw(before == '[' ? std::string_view("[]") : std::string_view("]"));
}

/// The key of a field in quotes with its colon, made by the compiler, behind one place for what precedes it.
template <Record T, std::size_t I>
constexpr auto keyToken() {
    constexpr std::string_view name = sortedField<T, I>.name;
    std::array<char, name.size() + 4> token{};
    token[1] = '"';
    std::copy(name.begin(), name.end(), token.begin() + 2);
    token[name.size() + 2] = '"';
    token[name.size() + 3] = ':';
    return token;
}

template <Record T, std::size_t I>
void writeKey(JsonWriter& json, char& before) {
    static constexpr auto token = keyToken<T, I>();
    json.raw(before);
    json.raw(std::string_view(token.data() + 1, token.size() - 1));
    before = ',';
}

template <Record T, std::size_t I, class Value>
void writeField(JsonWriter& json, const Value& value, char& before) {
    writeKey<T, I>(json, before);
    write(json, value);
}

template <Record T, std::size_t I, class Value>
void writeField(JsonWriter& json, const std::optional<Value>& value, char& before) {
    if (value)
        writeField<T, I>(json, *value, before);
}

template <Record T>
void write(JsonWriter& json, const T& value) {
    char before = '{';
    [&]<std::size_t... I>(std::index_sequence<I...>) {
        (writeField<T, I>(json, value.*(sortedField<T, I>.member), before), ...);
    }
    (std::make_index_sequence<fieldCount<T>>());
    json.raw('}');
}

std::array<std::uint8_t, 32> sha256(std::span<const std::uint8_t> bytes) {
    std::array<std::uint8_t, 32> digest{};
    unsigned int length = 0;
    if (EVP_Digest(bytes.data(), bytes.size(), digest.data(), &length, EVP_sha256(), nullptr) != 1 ||
        length != digest.size())
        throw std::runtime_error("SHA-256 is not available");
    return digest;
}

std::span<const std::uint8_t> asBytes(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace

template <class Value>
void Codec::encode(const Value& value, std::string& buffer) {
    buffer.clear();
    JsonWriter json(buffer);
    write(json, value);
    json.finish();
}

template <class Value>
std::string Codec::encode(const Value& value) {
    std::string buffer;
    encode(value, buffer);
    return buffer;
}

std::string Codec::hash(std::span<const std::uint8_t> bytes) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const auto byte : sha256(bytes)) {
        text += digits[byte >> 4];
        text += digits[byte & 0xF];
    }
    return text;
}

std::string Codec::hash(std::string_view bytes) {
    return hash(asBytes(bytes));
}

Identifier Codec::stableID(std::string_view text) {
    const auto digest = sha256(asBytes(text));
    Identifier::Bytes bytes;
    std::copy_n(digest.begin(), bytes.size(), bytes.begin());
    return Identifier(bytes);
}

// One line for each record: the encoder is compiled here and nowhere else.
template void Codec::encode(const Library&, std::string&);
template std::string Codec::encode(const Library&);
template std::string Codec::encode(const Project&);
template std::string Codec::encode(const Act&);
template std::string Codec::encode(const Shot&);
template std::string Codec::encode(const VantryTake&);
template std::string Codec::encode(const Parameters&);
template std::string Codec::encode(const Stroke&);
template std::string Codec::encode(const Point&);
template std::string Codec::encode(const CrewMember&);
template std::string Codec::encode(const CastMember&);
template std::string Codec::encode(const CallSheet&);
template std::string Codec::encode(const CallSheetPerson&);
template std::string Codec::encode(const RelatedFile&);
template void Codec::encode(const VantryBackup&, std::string&);
template std::string Codec::encode(const VantryBackup&);

}  // namespace vantry
