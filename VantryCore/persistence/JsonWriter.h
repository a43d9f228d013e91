#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantry {

/// Writes the tokens of compact JSON (RFC 8259) into a buffer, in the form that all our files have: "/" is
/// escaped, control characters are \b \f \n \r \t or \u00xx, other characters stand as UTF-8.
class JsonWriter {
public:
    /// Appends to `buffer`, which must outlive the writer.
    explicit JsonWriter(std::string& buffer)
        : out(buffer) {}

    /// A token that needs no escaping: punctuation, or a key in quotes.
    void raw(std::string_view token) { out.append(token); }
    void raw(char token) { out.push_back(token); }
    void text(std::string_view utf8);
    void integer(std::int64_t value);
    /// The shortest decimal that reads back to the same value. Whole numbers below 10^15 have no point, and
    /// negative zero, which equals zero, is written as 0.
    /// Throws std::domain_error when the number is not finite.
    void number(double value);
    void boolean(bool value) { raw(value ? std::string_view("true") : std::string_view("false")); }

private:
    std::string& out;
};

}  // namespace vantry
