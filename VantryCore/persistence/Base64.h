#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantry {

/// Appends the Base64 form of the bytes (RFC 4648, section 4, with padding).
void appendBase64(std::string& out, std::span<const std::uint8_t> bytes);

/// The bytes of a Base64 text (RFC 4648, section 4), or nothing when it has a character outside the alphabet,
/// a blank or line end included, or lacks its padding.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> decodeBase64(std::string_view text);

}  // namespace vantry
