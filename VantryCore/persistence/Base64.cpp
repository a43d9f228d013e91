#include "VantryCore/persistence/Base64.h"

#include <algorithm>

#include <openssl/evp.h>

namespace vantry {
namespace {

/// OpenSSL counts in int; both sizes divide into whole groups of the coding.
constexpr std::size_t bytesAtOnce = 3U << 24;
constexpr std::size_t textAtOnce = 4U << 24;

bool isInAlphabet(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' || c == '/';
}

}  // namespace

void appendBase64(std::string& out, std::span<const std::uint8_t> bytes) {
    const std::size_t start = out.size();
    const std::size_t length = (bytes.size() + 2) / 3 * 4;
    out.resize(start + length + 1);  // EVP_EncodeBlock writes an end mark
    std::size_t at = start;
    for (std::size_t from = 0; from < bytes.size(); from += bytesAtOnce) {
        const auto part = bytes.subspan(from, std::min(bytesAtOnce, bytes.size() - from));
        at += static_cast<std::size_t>(EVP_EncodeBlock(reinterpret_cast<unsigned char*>(out.data() + at),
                                                       part.data(), static_cast<int>(part.size())));
    }
    out.resize(start + length);
}

std::optional<std::vector<std::uint8_t>> decodeBase64(std::string_view text) {
    // EVP_DecodeBlock forgives blanks at both ends and padding anywhere: look first.
    if (text.size() % 4 != 0)
        return std::nullopt;
    std::size_t padding = 0;
    while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=')
        ++padding;
    if (!std::all_of(text.begin(), text.end() - static_cast<std::ptrdiff_t>(padding), isInAlphabet))
        return std::nullopt;
    std::vector<std::uint8_t> bytes(text.size() / 4 * 3);
    std::size_t at = 0;
    for (std::size_t from = 0; from < text.size(); from += textAtOnce) {
        const auto part = text.substr(from, textAtOnce);
        const int written =
            EVP_DecodeBlock(bytes.data() + at, reinterpret_cast<const unsigned char*>(part.data()),
                            static_cast<int>(part.size()));
        if (written < 0)
            return std::nullopt;
        at += static_cast<std::size_t>(written);
    }
    bytes.resize(bytes.size() - padding);
    return bytes;
}

}  // namespace vantry
