#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "VantryCore/records/Field.h"
#include "VantryCore/records/Identifier.h"
#include "VantryCore/records/Text.h"

namespace vantry {

/// Bytes of any kind; Base64 text in the JSON form.
using Bytes = std::vector<std::uint8_t>;

enum class RelatedFileKind : std::uint8_t { file, folder, link };

template <>
struct EnumTexts<RelatedFileKind> {
    static constexpr std::array<std::string_view, 3> texts{"file", "folder", "link"};
};

/// An address by the generic grammar of RFC 3986.
struct LinkURL {
    std::string text;    ///< the whole address, as typed but for percent-encoding
    std::string scheme;  ///< in lower case
    std::string host;    ///< empty when the address has none
};

/// A pointer to something outside the library: a file, a folder or a web page. The original is never copied,
/// moved or deleted.
struct RelatedFile {
    Identifier id;
    RelatedFileKind kind = RelatedFileKind::file;
    Text name;
    Text location;  ///< an absolute path, or the address of a link as it was typed
    std::optional<Bytes> bookmark;
    Text notes;

    static constexpr auto fields() {
        using R = RelatedFile;
        return std::tuple(field("id", &R::id), field("kind", &R::kind), field("name", &R::name),
                          field("location", &R::location), field("bookmark", &R::bookmark),
                          field("notes", &R::notes));
    }

    /// A new reference with a fresh identifier.
    [[nodiscard]] static RelatedFile make(RelatedFileKind kind, Text name, Text location);

    /// Reads what a person typed as an address, or gives nothing.
    /// White space at both ends is dropped; a text without ":" gets "https://" in front. The rest is kept as
    /// typed, no slash added and no case changed; a character that the grammar of RFC 3986 does not allow in
    /// its place is percent-encoded where the grammar allows that (user, host name, path, query, fragment),
    /// and makes the text no address elsewhere (scheme, port, bracketed IP address).
    /// Refused are the schemes javascript, data, file, about and blob, and http or https without a host.
    [[nodiscard]] static std::optional<LinkURL> linkURL(std::string_view text);

    /// The address of the reference: of a link if it is one, always of a file or folder (RFC 8089).
    [[nodiscard]] std::optional<LinkURL> url() const;
    /// Whether it opens in a web browser: its scheme is http or https.
    [[nodiscard]] bool isWebLink() const;
    /// Two references with one kind and one identity point at the same thing.
    [[nodiscard]] Text identity() const;
};

}  // namespace vantry
