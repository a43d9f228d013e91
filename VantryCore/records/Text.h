#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace vantry {

/// What a person wrote: UTF-8, kept byte for byte as it came in.
///
/// Two texts are equal when they are canonically equivalent (UAX #15): "é" in one code point equals "e" with
/// a combining accent. Equal texts may therefore differ in bytes; `utf8()` never changes them.
class Text {
public:
    Text() noexcept = default;
    /// Implicit on purpose: every literal of the program is UTF-8.
    Text(const char* utf8)
        : bytes(utf8) {}
    Text(std::string utf8) noexcept
        : bytes(std::move(utf8)) {}
    explicit Text(std::string_view utf8)
        : bytes(utf8) {}

    [[nodiscard]] const std::string& utf8() const noexcept { return bytes; }
    [[nodiscard]] bool empty() const noexcept { return bytes.empty(); }

    friend bool operator==(const Text& a, const Text& b) {
        return a.bytes == b.bytes || equivalentButNotIdentical(a.bytes, b.bytes);
    }

private:
    static bool equivalentButNotIdentical(std::string_view a, std::string_view b);

    std::string bytes;
};

/// Whether both texts have the same NFC form (UAX #15).
[[nodiscard]] bool canonicallyEquivalent(std::string_view a, std::string_view b);

/// The NFC form of a text (UAX #15): equal bytes for canonically equivalent texts.
[[nodiscard]] std::string composed(std::string_view text);

/// The part between the first and the last character that is not Unicode White_Space; it points into `text`.
/// Blanks, line ends, no-break and ideographic spaces all count as white space.
[[nodiscard]] std::string_view trimmed(std::string_view text) noexcept;

/// Whether there is nothing but Unicode White_Space in `text`.
[[nodiscard]] inline bool isBlank(std::string_view text) noexcept {
    return trimmed(text).empty();
}

}  // namespace vantry
