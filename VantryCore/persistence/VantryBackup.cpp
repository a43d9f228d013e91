#include "VantryCore/persistence/VantryBackup.h"

#include <utility>
#include <vector>

#include "VantryCore/persistence/LibraryValidation.h"
#include "VantryCore/persistence/VantryError.h"

namespace vantry {
namespace {

/// Base64 is a third longer than the bytes; about every 64th of its characters is a "/", which is escaped.
std::size_t encodedSize(std::size_t bytes) {
    return bytes / 3 * 4 + bytes / 20 + 200;
}

TextMap checksumsOf(const Media& media) {
    std::vector<TextMap::Entry> entries;
    entries.reserve(media.size());
    for (const auto& [key, bytes] : media)
        entries.emplace_back(Text(key), Text(Codec::hash(bytes)));
    return TextMap(std::move(entries));
}

void checkSize(std::string_view file) {
    if (file.size() > VantryBackup::largestFile)
        throw VantryError(VantryError::Case::tooLarge);
}

bool holdsImage(const VantryBackup& backup, const std::string& key) {
    const auto image = backup.media.find(key);
    if (image == backup.media.end())
        return false;
    const Text hash(Codec::hash(image->second));
    const Text* checksum = backup.checksums.find(key);
    return checksum != nullptr && *checksum == hash && Text(key) == hash;
}

}  // namespace

VantryBackup::VantryBackup(Library content, Media images)
    : library(std::move(content))
    , media(std::move(images))
    , checksums(checksumsOf(media)) {}

std::string VantryBackup::encode(const VantryBackup& backup) {
    std::size_t size = readingPadding;
    for (const auto& [key, bytes] : backup.media)
        size += encodedSize(bytes.size());
    std::string file;
    file.reserve(size);
    Codec::encode(backup, file);
    file.reserve(file.size() + readingPadding);
    return file;
}

VantryBackup VantryBackup::decode(std::string_view file) {
    checkSize(file);
    std::string padded;
    padded.reserve(file.size() + readingPadding);
    padded.assign(file);
    return decodePadded(padded);
}

VantryBackup VantryBackup::decodePadded(std::string_view file) {
    checkSize(file);
    auto backup = vantry::decodePadded<VantryBackup>(file);
    if (!(backup.format == Text("VantryBackup")) || backup.version != 1)
        throw VantryError(VantryError::Case::invalidBackup);
    validate(backup.library);
    for (const auto& key : backup.library.mediaKeys())
        if (!holdsImage(backup, key))
            throw VantryError(VantryError::Case::missingMedia);
    return backup;
}

}  // namespace vantry
