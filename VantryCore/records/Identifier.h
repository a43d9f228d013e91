#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vantry {

/// The identity of a record: the 16 bytes of a UUID (RFC 4122). It is made with the record and never changes.
/// A default one is all zero and stands for "not decoded yet"; no record that a user sees has it.
class Identifier {
public:
    using Bytes = std::array<std::uint8_t, 16>;

    constexpr Identifier() noexcept = default;
    constexpr explicit Identifier(const Bytes& value) noexcept
        : raw(value) {}

    /// A fresh random identifier (version 4) from the system's generator.
    /// Throws std::system_error when the system gives no randomness.
    [[nodiscard]] static Identifier random();
    /// Reads the canonical text of 36 characters, letters in either case; anything else gives nothing.
    [[nodiscard]] static std::optional<Identifier> parse(std::string_view text) noexcept;

    /// The canonical text: 36 characters, capitals.
    [[nodiscard]] std::string text() const;
    /// Writes the 36 characters of `text()` to `out`, without an end mark.
    void write(char* out) const noexcept;
    [[nodiscard]] constexpr const Bytes& bytes() const noexcept { return raw; }

    friend constexpr bool operator==(const Identifier&, const Identifier&) noexcept = default;
    friend constexpr auto operator<=>(const Identifier&, const Identifier&) noexcept = default;

private:
    Bytes raw{};
};

}  // namespace vantry

template <>
struct std::hash<vantry::Identifier> {
    std::size_t operator()(const vantry::Identifier& id) const noexcept {
        // Most identifiers are random already, but one from a file may hold anything: mix both halves.
        std::uint64_t halves[2];
        std::memcpy(halves, id.bytes().data(), sizeof halves);
        std::uint64_t mixed = (halves[0] ^ (halves[1] * 0x9E3779B97F4A7C15ULL)) * 0xBF58476D1CE4E5B9ULL;
        return static_cast<std::size_t>(mixed ^ (mixed >> 32));
    }
};
