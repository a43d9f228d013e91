#include "VantryCore/records/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace vantry {
namespace {

bool isAscii(std::string_view text) noexcept {
    std::size_t at = 0;
    for (; at + 8 <= text.size(); at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + at, 8);
        if ((word & 0x8080808080808080ULL) != 0)
            return false;
    }
    return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

const icu::Normalizer2& composer() {
    UErrorCode status = U_ZERO_ERROR;
    return *icu::Normalizer2::getNFCInstance(status);
}

UChar32 codePointAt(std::string_view text, std::size_t at) noexcept {
    UChar32 point = 0;
    auto index = static_cast<std::int64_t>(at);
    const auto length = static_cast<std::int64_t>(text.size());
    U8_NEXT_OR_FFFD(text.data(), index, length, point);
    return point;
}

bool isLeadByte(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

std::size_t nextCodePoint(std::string_view text, std::size_t at) noexcept {
    do
        ++at;
    while (at < text.size() && !isLeadByte(text[at]));
    return at;
}

/// So many bytes are looked at in one go.
constexpr std::size_t span = 1024;

std::size_t commonStart(std::string_view a, std::string_view b) noexcept {
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t count = 0;
    while (shorter - count >= span && std::memcmp(a.data() + count, b.data() + count, span) == 0)
        count += span;
    while (count < shorter && a[count] == b[count])
        ++count;
    return count;
}

std::size_t commonEnd(std::string_view a, std::string_view b) noexcept {
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t count = 0;
    while (shorter - count >= span &&
           std::memcmp(a.data() + a.size() - count - span, b.data() + b.size() - count - span, span) == 0)
        count += span;
    while (count < shorter && a[a.size() - 1 - count] == b[b.size() - 1 - count])
        ++count;
    return count;
}

/// Whether what stands before `at` can never combine with what stands behind it.
bool startsFresh(const icu::Normalizer2& nfc, std::string_view text, std::size_t at) noexcept {
    return at >= text.size() || (isLeadByte(text[at]) && nfc.hasBoundaryBefore(codePointAt(text, at)) != 0);
}

}  // namespace

std::string composed(std::string_view text) {
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    UErrorCode status = U_ZERO_ERROR;
    composer().normalizeUTF8(0, icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())), sink,
                             nullptr, status);
    return result;
}

bool canonicallyEquivalent(std::string_view a, std::string_view b) {
    if (a == b)
        return true;
    // A common beginning and end cannot decide; cutting them off keeps a keystroke in a long note cheap.
    const icu::Normalizer2& nfc = composer();
    std::size_t head = commonStart(a, b);
    while (head > 0 && !(startsFresh(nfc, a, head) && startsFresh(nfc, b, head)))
        --head;
    a.remove_prefix(head);
    b.remove_prefix(head);
    std::size_t tail = commonEnd(a, b);
    while (tail > 0 && !startsFresh(nfc, a, a.size() - tail))
        --tail;
    a.remove_suffix(tail);
    b.remove_suffix(tail);
    return !(isAscii(a) && isAscii(b)) && composed(a) == composed(b);
}

bool Text::equivalentButNotIdentical(std::string_view a, std::string_view b) {
    return canonicallyEquivalent(a, b);
}

std::string_view trimmed(std::string_view text) noexcept {
    std::size_t start = 0;
    while (start < text.size() && u_isUWhiteSpace(codePointAt(text, start)) != 0)
        start = nextCodePoint(text, start);
    std::size_t end = text.size();
    while (end > start) {
        std::size_t last = end - 1;
        while (last > start && !isLeadByte(text[last]))
            --last;
        if (u_isUWhiteSpace(codePointAt(text, last)) == 0)
            break;
        end = last;
    }
    return text.substr(start, end - start);
}

}  // namespace vantry
