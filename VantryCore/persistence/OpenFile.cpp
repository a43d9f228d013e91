#include "VantryCore/persistence/OpenFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

#include "VantryCore/persistence/JsonReader.h"
#include "VantryCore/persistence/VantryError.h"

namespace vantry {

OpenFile::~OpenFile() {
    ::close(file);
}

FileStatus OpenFile::status() const {
    struct stat info {};
    if (::fstat(file, &info) != 0)
        throw std::system_error(errno, std::generic_category(), path.string());
    return {{info.st_dev, info.st_ino}, static_cast<std::uint64_t>(info.st_size), info.st_mode};
}

void OpenFile::readRest(std::string& bytes, std::uint64_t expectedSize, std::uint64_t limit) {
    bytes.reserve(std::max<std::size_t>(expectedSize, bytes.size()) + chunkSize + readingPadding);
    while (bytes.size() <= limit) {
        const std::size_t before = bytes.size();
        bytes.resize(before + chunkSize);
        const std::size_t count = read(bytes.data() + before, chunkSize);
        bytes.resize(before + count);
        if (count == 0)
            return;
    }
}

bool isReadable(const std::filesystem::path& file, FileOperations& disk) {
    const auto status = disk.status(file);
    if (status && !status->isRegularFile() && !S_ISDIR(status->mode))
        throw std::system_error(EINVAL, std::generic_category(), file.string());
    return status.has_value();
}

std::string readWhole(const std::filesystem::path& file, std::uint64_t limit, FileOperations& disk) {
    const auto refuseBeyondLimit = [limit](std::uint64_t size) {
        if (size > limit)
            throw VantryError(VantryError::Case::tooLarge);
    };
    if (!isReadable(file, disk))
        throw std::system_error(ENOENT, std::generic_category(), file.string());
    OpenFile open(file, disk);
    const std::uint64_t size = open.status().size;
    refuseBeyondLimit(size);
    std::string bytes;
    open.readRest(bytes, size, limit);
    refuseBeyondLimit(bytes.size());
    return bytes;
}

bool holdsBytes(const std::filesystem::path& file, std::string_view bytes, FileOperations& disk) {
    if (!isReadable(file, disk))
        return false;
    OpenFile open(file, disk);
    std::vector<char> chunk(OpenFile::chunkSize);
    while (true) {
        const std::size_t count = open.read(chunk.data(), chunk.size());
        if (count == 0)
            return bytes.empty();
        if (count > bytes.size() || std::memcmp(chunk.data(), bytes.data(), count) != 0)
            return false;
        bytes.remove_prefix(count);
    }
}

}  // namespace vantry
