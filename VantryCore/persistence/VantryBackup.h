#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/records/Library.h"

namespace vantry {

/// Image files by the key that names them.
using Media = std::map<std::string, Bytes>;

/// A whole library with its storyboard images, as it goes from one machine to another in one JSON file. It is
/// the only gate through which bytes from outside become a library that a merge may touch.
struct VantryBackup {
    /// What a whole file may hold, in bytes.
    static constexpr std::uint64_t largestFile = 200'000'000;
    /// What the images of an export may hold together; leaves room for their growth to text.
    static constexpr std::uint64_t largestMedia = 100'000'000;
    /// What an image that is brought in may hold; one in a backup may hold more.
    static constexpr std::uint64_t largestImage = 25'000'000;

    Text format = "VantryBackup";
    std::int64_t version = 1;
    Library library;
    Media media;        ///< the image files, byte for byte; keys that no shot names are carried along
    TextMap checksums;  ///< SHA-256 of each image, by its key

    static constexpr auto fields() {
        using B = VantryBackup;
        return std::tuple(field("format", &B::format), field("version", &B::version),
                          field("library", &B::library), field("media", &B::media),
                          field("checksums", &B::checksums));
    }

    VantryBackup() = default;
    /// The envelope of a library and its images. Whether the images are complete shows in `decode`.
    VantryBackup(Library content, Media images);

    /// The JSON form, with room behind it for decoding in place. Memory for the images is asked for once.
    [[nodiscard]] static std::string encode(const VantryBackup& backup);

    /// The checked backup in the bytes of a file. Fails at the first of these, in this order:
    /// more than `largestFile` bytes (VantryError tooLarge), a text that is not the JSON form of a backup
    /// (DecodingError), another format or version, a library that is not valid (VantryError invalidBackup),
    /// an image of the library that is missing, or whose bytes, checksum and key do not agree (VantryError
    /// missingMedia).
    [[nodiscard]] static VantryBackup decode(std::string_view file);
    /// The same for bytes that are followed by `readingPadding` readable ones, without a copy of them.
    [[nodiscard]] static VantryBackup decodePadded(std::string_view file);
};

}  // namespace vantry
