#include "VantryCore/persistence/JsonWriter.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <stdexcept>

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

constexpr std::uint64_t everyByte(std::uint64_t byte) {
    return byte * 0x0101010101010101ULL;
}

constexpr std::uint64_t zeroBytes(std::uint64_t word) {
    return (word - everyByte(0x01)) & ~word & everyByte(0x80);
}

/// Whether one of eight bytes needs an escape.
bool needsEscape(std::uint64_t word) {
    const std::uint64_t control = (word - everyByte(0x20)) & ~word & everyByte(0x80);
    return (control | zeroBytes(word ^ everyByte('"')) | zeroBytes(word ^ everyByte('\\')) |
            zeroBytes(word ^ everyByte('/'))) != 0;
}

/// The number of bytes from the start that need no escape.
std::size_t plainLength(const char* text, std::size_t size) {
    std::size_t at = 0;
    for (; at + 8 <= size; at += 8) {
        std::uint64_t word;
        std::memcpy(&word, text + at, 8);
        if (needsEscape(word))
            break;
    }
    while (at < size && escapes[static_cast<unsigned char>(text[at])] == 0)
        ++at;
    return at;
}

}  // namespace

void JsonWriter::text(std::string_view utf8) {
    out.push_back('"');
    const char* at = utf8.data();
    std::size_t left = utf8.size();
    while (true) {
        const std::size_t plain = plainLength(at, left);
        out.append(at, plain);
        at += plain;
        left -= plain;
        if (left == 0)
            break;
        const auto byte = static_cast<unsigned char>(*at);
        out.push_back('\\');
        out.push_back(escapes[byte]);
        if (escapes[byte] == 'u') {
            constexpr char digits[] = "0123456789abcdef";
            out.append("00");
            out.push_back(digits[byte >> 4]);
            out.push_back(digits[byte & 0xF]);
        }
        ++at;
        --left;
    }
    out.push_back('"');
}

void JsonWriter::integer(std::int64_t value) {
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    out.append(digits.data(), end);
}

void JsonWriter::number(double value) {
    if (!std::isfinite(value))
        throw std::domain_error("a number that is not finite has no JSON form");
    const double size = std::abs(value);
    if (size < 1e15 && std::trunc(value) == value) {
        integer(static_cast<std::int64_t>(value));
        return;
    }
    std::array<char, 40> digits;
    const auto form = size >= 1e-5 && size < 1e15 ? std::chars_format::fixed : std::chars_format::scientific;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, form).ptr;
    out.append(digits.data(), end);
}

}  // namespace vantry
