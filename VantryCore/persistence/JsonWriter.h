#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace vantry {

/// Writes the tokens of compact JSON (RFC 8259) into a buffer, in the form that all our files have: "/" is
/// escaped, control characters are \b \f \n \r \t or \u00xx, other characters stand as UTF-8.
class JsonWriter {
public:
    /// Appends to `buffer`, which must outlive the writer. It holds everything after `finish()`; until then
    /// the end may be missing.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): 16 KB are not filled for a few tokens
    explicit JsonWriter(std::string& buffer) noexcept
        : out(buffer) {}
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    /// A token that needs no escaping: punctuation, or a key in quotes.
    void raw(std::string_view token) {
        if (token.size() > room())
            return rawBeyondRoom(token);
        std::memcpy(block.data() + used, token.data(), token.size());
        used += token.size();
    }
    void raw(char token) {
        makeRoom(1);
        block[used++] = token;
    }
    void text(std::string_view utf8);
    void integer(std::int64_t value);
    /// The shortest decimal that reads back to the same value. Whole numbers below 10^15 have no point, and
    /// negative zero, which equals zero, is written as 0.
    /// Throws std::domain_error when the number is not finite.
    void number(double value);
    void boolean(bool value) { raw(value ? std::string_view("true") : std::string_view("false")); }

    /// How many bytes have been written through this writer.
    [[nodiscard]] std::size_t size() const noexcept { return out.size() + used; }
    /// Says that about so many bytes will follow, which spares copying.
    void expect(std::size_t size);
    void finish();

private:
    [[nodiscard]] std::size_t room() const noexcept { return block.size() - used; }
    void makeRoom(std::size_t size) {
        if (size > room())
            finish();
    }
    void rawBeyondRoom(std::string_view token);

    std::string& out;
    std::size_t used = 0;
    std::array<char, 1U << 14> block;  ///< what `out` does not have yet: small writes into it cost least
};

}  // namespace vantry
