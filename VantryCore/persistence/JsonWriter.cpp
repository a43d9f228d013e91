#include "VantryCore/persistence/JsonWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace vantry {
namespace {

/// What stands behind the backslash of each byte: 0 for none, 'u' for the long form.
constexpr std::array<char, 256> makeEscapes() {
    std::array<char, 256> escapes{};
    for (std::size_t i = 0; i < 0x20; ++i)
        escapes[i] = 'u';
    escapes['\b'] = 'b';
    escapes['\f'] = 'f';
    escapes['\n'] = 'n';
    escapes['\r'] = 'r';
    escapes['\t'] = 't';
    escapes['"'] = '"';
    escapes['\\'] = '\\';
    escapes['/'] = '/';
    return escapes;
}

constexpr auto escapes = makeEscapes();

/// Sixteen bytes that the processor looks at together. GCC and Clang make the right instructions of it.
using Sixteen [[gnu::vector_size(16)]] = unsigned char;
using TwoWords [[gnu::vector_size(16)]] = std::uint64_t;

template <class Value>
Value load(const char* from) {
    Value value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

template <class Value>
void store(char* to, Value value) {
    std::memcpy(to, &value, sizeof value);
}

/// Whether one of the bytes needs an escape. Below 0x20 are those without a bit in 0xE0.
inline bool needsEscape(Sixteen bytes) {
    const auto found = TwoWords(((bytes & 0xE0) == 0) | (bytes == '"') | (bytes == '\\') | (bytes == '/'));
    return (found[0] | found[1]) != 0;
}

/// Copies fewer than sixteen bytes, unless one of them needs an escape. Answers whether it did.
inline bool copyShortPlain(char* to, const char* from, std::size_t size) {
    // The second half overlaps with the first.
    if (size >= 8) {
        const auto head = load<std::uint64_t>(from);
        const auto tail = load<std::uint64_t>(from + size - 8);
        store(to, head);
        store(to + size - 8, tail);
        return !needsEscape(Sixteen(TwoWords{head, tail}));
    }
    if (size >= 4) {
        const auto head = load<std::uint32_t>(from);
        const auto tail = load<std::uint32_t>(from + size - 4);
        store(to, head);
        store(to + size - 4, tail);
        const std::uint64_t both = std::uint64_t{head} << 32 | tail;
        return !needsEscape(Sixteen(TwoWords{both, both}));
    }
    char escape = 0;
    for (std::size_t i = 0; i < size; ++i) {
        to[i] = from[i];
        escape |= escapes[static_cast<unsigned char>(from[i])];
    }
    return escape == 0;
}

/// Copies up to the first sixteen bytes of which one needs an escape. Answers how many.
inline std::size_t copyPlain(char* to, const char* from, std::size_t size) {
    if (size < 16)
        return copyShortPlain(to, from, size) ? size : 0;
    std::size_t at = 0;
    for (; at + 16 <= size; at += 16) {
        const auto bytes = load<Sixteen>(from + at);
        if (needsEscape(bytes))
            return at;
        store(to + at, bytes);
    }
    // The last sixteen overlap with what is copied already.
    const auto last = load<Sixteen>(from + size - 16);
    if (needsEscape(last))
        return at;
    store(to + size - 16, last);
    return size;
}

/// Writes one character, escaped if it has to be. Answers the end of what it wrote.
inline char* writeByte(char* to, char character) {
    const auto byte = static_cast<unsigned char>(character);
    if (escapes[byte] == 0) {
        *to++ = character;
        return to;
    }
    *to++ = '\\';
    *to++ = escapes[byte];
    if (escapes[byte] == 'u') {
        constexpr char digits[] = "0123456789abcdef";
        *to++ = '0';
        *to++ = '0';
        *to++ = digits[byte >> 4];
        *to++ = digits[byte & 0xF];
    }
    return to;
}

/// The longest form of one byte, \u00xx.
constexpr std::size_t longestEscape = 6;
/// How much of a text is written at once, so that the longest form of it has room.
constexpr std::size_t textAtOnce = 2048;
constexpr std::size_t longestNumber = 40;
/// Below this, growing step by step costs nothing that anybody notices.
constexpr std::size_t worthReserving = 1U << 20;

/// Writes a text without its quotes. Answers the end of what it wrote.
inline char* writeEscaped(char* to, const char* from, std::size_t size) {
    while (true) {
        const std::size_t plain = copyPlain(to, from, size);
        to += plain;
        from += plain;
        size -= plain;
        if (size == 0)
            return to;
        const std::size_t mixed = std::min<std::size_t>(size, 16);
        for (std::size_t i = 0; i < mixed; ++i)
            to = writeByte(to, from[i]);
        from += mixed;
        size -= mixed;
    }
}

}  // namespace

void JsonWriter::finish() {
    out.append(block.data(), used);
    used = 0;
}

void JsonWriter::rawBeyondRoom(std::string_view token) {
    finish();
    if (token.size() > block.size())
        out.append(token);
    else
        raw(token);
}

void JsonWriter::expect(std::size_t size) {
    if (size > worthReserving)
        out.reserve(out.size() + used + size);
}

void JsonWriter::text(std::string_view utf8) {
    static_assert(sizeof block >= textAtOnce * longestEscape + 2);
    char before = '"';
    do {
        const auto part = utf8.substr(0, textAtOnce);
        utf8.remove_prefix(part.size());
        makeRoom(part.size() * longestEscape + 2);
        char* to = block.data() + used;
        if (before != 0)
            *to++ = std::exchange(before, 0);
        to = writeEscaped(to, part.data(), part.size());
        if (utf8.empty())
            *to++ = '"';
        used = static_cast<std::size_t>(to - block.data());
    } while (!utf8.empty());
}

void JsonWriter::integer(std::int64_t value) {
    makeRoom(longestNumber);
    char* to = block.data() + used;
    used = static_cast<std::size_t>(std::to_chars(to, to + longestNumber, value).ptr - block.data());
}

void JsonWriter::number(double value) {
    if (!std::isfinite(value))
        throw std::domain_error("a number that is not finite has no JSON form");
    const double size = std::abs(value);
    if (size < 1e15) {
        const auto whole = static_cast<std::int64_t>(value);
        if (static_cast<double>(whole) == value) {
            integer(whole);
            return;
        }
    }
    const auto form = size >= 1e-5 && size < 1e15 ? std::chars_format::fixed : std::chars_format::scientific;
    makeRoom(longestNumber);
    char* to = block.data() + used;
    used = static_cast<std::size_t>(std::to_chars(to, to + longestNumber, value, form).ptr - block.data());
}

}  // namespace vantry
