#include "VantryCore/records/Identifier.h"

#include <cerrno>
#include <system_error>

#include <unistd.h>

#if defined(__APPLE__)
#include <sys/random.h>
#endif

namespace vantry {
namespace {

constexpr std::array<int, 4> hyphens{8, 13, 18, 23};

constexpr std::array<std::int8_t, 256> makeDigitValues() {
    std::array<std::int8_t, 256> values{};
    for (auto& value : values)
        value = -1;
    for (int i = 0; i < 10; ++i)
        values[static_cast<std::size_t>('0' + i)] = static_cast<std::int8_t>(i);
    for (int i = 0; i < 6; ++i) {
        values[static_cast<std::size_t>('a' + i)] = static_cast<std::int8_t>(10 + i);
        values[static_cast<std::size_t>('A' + i)] = static_cast<std::int8_t>(10 + i);
    }
    return values;
}

constexpr auto digitValues = makeDigitValues();

/// The two digits of each byte.
constexpr std::array<std::array<char, 2>, 256> makeDigitPairs() {
    constexpr char digits[] = "0123456789ABCDEF";
    std::array<std::array<char, 2>, 256> pairs{};
    for (std::size_t i = 0; i < pairs.size(); ++i)
        pairs[i] = {digits[i >> 4], digits[i & 0xF]};
    return pairs;
}

constexpr auto digitPairs = makeDigitPairs();

constexpr bool isHyphenPlace(std::size_t at) noexcept {
    return at == 8 || at == 13 || at == 18 || at == 23;
}

}  // namespace

Identifier Identifier::random() {
    Bytes bytes;
    if (::getentropy(bytes.data(), bytes.size()) != 0)
        throw std::system_error(errno, std::generic_category(), "random identifier");
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40);
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    return Identifier(bytes);
}

std::optional<Identifier> Identifier::parse(std::string_view text) noexcept {
    if (text.size() != 36)
        return std::nullopt;
    for (const int place : hyphens)
        if (text[static_cast<std::size_t>(place)] != '-')
            return std::nullopt;
    Bytes bytes;
    std::size_t at = 0;
    int broken = 0;
    for (auto& byte : bytes) {
        if (isHyphenPlace(at))
            ++at;
        const int high = digitValues[static_cast<unsigned char>(text[at])];
        const int low = digitValues[static_cast<unsigned char>(text[at + 1])];
        broken |= high | low;
        byte = static_cast<std::uint8_t>(((high & 0xF) << 4) | (low & 0xF));
        at += 2;
    }
    if (broken < 0)
        return std::nullopt;
    return Identifier(bytes);
}

void Identifier::write(char* out) const noexcept {
    for (const int place : hyphens)
        out[place] = '-';
    std::size_t at = 0;
    for (const auto byte : raw) {
        if (isHyphenPlace(at))
            ++at;
        std::memcpy(out + at, digitPairs[byte].data(), 2);
        at += 2;
    }
}

std::string Identifier::text() const {
    std::string result(36, '\0');
    write(result.data());
    return result;
}

}  // namespace vantry
