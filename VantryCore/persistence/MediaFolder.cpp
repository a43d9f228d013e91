#include "VantryCore/persistence/MediaFolder.h"

#include "VantryCore/persistence/AtomicFile.h"
#include "VantryCore/persistence/OpenFile.h"
#include "VantryCore/persistence/VantryError.h"

namespace vantry {
namespace {

std::string_view asText(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

MediaFolder::MediaFolder(const std::filesystem::path& dataFolder, FileOperations& operations)
    : folder(dataFolder / "Media")
    , disk(operations) {}

void MediaFolder::create() {
    disk.createFolders(folder);
    AtomicFile::removeAllLeftovers(folder);
}

Media MediaFolder::read(const std::set<std::string>& keys, std::uint64_t limit) const {
    Media media;
    std::uint64_t left = limit;
    for (const auto& key : keys) {
        const std::string bytes = readWhole(fileOf(key), left, disk);
        left -= bytes.size();
        media[key].assign(bytes.begin(), bytes.end());
    }
    return media;
}

void MediaFolder::keep(const std::string& key, std::span<const std::uint8_t> bytes) {
    const auto file = fileOf(key);
    if (!disk.status(file))
        AtomicFile::write(file, asText(bytes), disk);
    else if (!holdsBytes(file, asText(bytes), disk))
        throw VantryError(VantryError::Case::missingMedia);
}

void MediaFolder::store(const std::string& key, std::span<const std::uint8_t> bytes) {
    AtomicFile::write(fileOf(key), asText(bytes), disk);
}

}  // namespace vantry
