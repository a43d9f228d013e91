#include "VantryCore/persistence/DiskStore.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

#include "VantryCore/persistence/AtomicFile.h"
#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/LibraryValidation.h"
#include "VantryCore/persistence/OpenFile.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;

struct FileContent {
    std::string bytes;      ///< empty when they are those that were known
    bool isKnown = false;   ///< the bytes are the known ones, to the last
    FileIdentity identity;  ///< of the file that was read
    mode_t mode = 0;
};

/// Reads the file in chunks beside the known bytes. Only a file that differs is kept in memory.
FileContent readBeside(const fs::path& path, std::string_view known, bool hasKnown, FileOperations& disk) {
    OpenFile file(path, disk);
    const FileStatus status = file.status();
    FileContent content;
    content.identity = status.identity;
    content.mode = status.mode;
    if (hasKnown && status.size == known.size()) {
        std::vector<char> chunk(OpenFile::chunkSize);
        std::size_t at = 0;
        while (true) {
            const std::size_t count = file.read(chunk.data(), chunk.size());
            if (count == 0 && at == known.size()) {
                content.isKnown = true;
                return content;
            }
            if (count == 0 || count > known.size() - at ||
                std::memcmp(chunk.data(), known.data() + at, count) != 0) {
                content.bytes.assign(known.substr(0, at));
                content.bytes.append(chunk.data(), count);
                if (count == 0)
                    return content;
                break;
            }
            at += count;
        }
    }
    file.readRest(content.bytes, status.size);
    return content;
}

/// The library in the bytes of a file, which `valid` knows from then on.
Library decodeAndValidate(std::string& bytes, KnownValid& valid) {
    bytes.reserve(bytes.size() + readingPadding);
    auto library = decodePadded<Library>(bytes);
    valid.accept(library);
    return library;
}

/// Makes the file that was read the previous generation without copying it. Answers whether that worked.
bool linkAsPrevious(const fs::path& file, const fs::path& previous, const FileIdentity& read,
                    FileOperations& disk) {
    std::error_code error;
    if (!fs::is_symlink(previous, error)) {
        // A crash stopped the last save between its two steps. A rename between two names of one file would
        // do nothing but leave the temporary name behind.
        const auto before = disk.status(previous);
        if (before && before->identity == read)
            return true;
    }
    const fs::path name = AtomicFile::temporaryName(previous);
    if (!disk.link(file, name))
        return false;
    try {
        // The name may lead to another file by now; only the one that was read may become the previous one.
        const auto linked = disk.status(name);
        if (linked && linked->isRegularFile() && linked->identity == read) {
            disk.rename(name, previous);
            return true;
        }
    } catch (...) {
        disk.remove(name);
        throw;
    }
    disk.remove(name);
    return false;
}

/// Makes the names that a save gave last, though their file is as it should be.
void syncFolders(const fs::path& file, FileOperations& disk) {
    disk.syncFolder(folderOf(AtomicFile::resolved(file)));
    disk.syncFolder(folderOf(file));
}

/// "previous" stands beside the path that was passed in: a symbolic link in its place is replaced, not
/// followed.
void keepPrevious(const fs::path& file, const FileContent& read, std::string_view bytes,
                  FileOperations& disk) {
    const fs::path previous = DiskStore::previousOf(file);
    if (!linkAsPrevious(file, previous, read.identity, disk))
        AtomicFile::writeHere(previous, bytes, read.mode, disk);
}

}  // namespace

fs::path DiskStore::previousOf(const fs::path& file) {
    fs::path previous = file;
    previous += ".previous";
    return previous;
}

Library DiskStore::read(const fs::path& file, SavedFile* known, FileOperations& disk) {
    if (known != nullptr)
        known->forget();
    if (!isReadable(file, disk))
        return {};
    std::string bytes = readBeside(file, {}, false, disk).bytes;
    SavedFile learnt;
    Library library = decodeAndValidate(bytes, learnt.valid);
    if (known != nullptr) {
        learnt.path = file;
        learnt.bytes = std::move(bytes);
        learnt.library = library;
        *known = std::move(learnt);
    }
    return library;
}

void DiskStore::write(const Library& library, const fs::path& file, SavedFile* known, FileOperations& disk) {
    SavedFile nobody;
    SavedFile& memory = known != nullptr ? *known : nobody;
    const bool knows = memory.knows(file);
    memory.valid.accept(library);
    const fs::path folder = folderOf(file);
    disk.createFolders(folder);
    AtomicFile::removeLeftovers(AtomicFile::resolved(file));
    AtomicFile::removeLeftovers(previousOf(file));

    std::optional<FileContent> old;
    if (isReadable(file, disk)) {
        old = readBeside(file, memory.bytes, knows, disk);
        if (!old->isKnown) {
            Library onDisk = decodeAndValidate(old->bytes, memory.valid);
            memory.path = file;
            memory.bytes = std::move(old->bytes);
            memory.library = std::move(onDisk);
        }
        if (memory.library == library) {
            if (memory.folderMayBeBehind)
                syncFolders(file, disk);
            memory.folderMayBeBehind = false;
            return;
        }
    }

    std::string& fresh = memory.spare;
    Codec::encode(library, fresh);
    // Copied before the disk changes: once it has, learning that must not fail halfway.
    fs::path writtenPath = file;
    Library written = library;
    if (old)
        keepPrevious(file, *old, memory.bytes, disk);
    memory.folderMayBeBehind = true;
    AtomicFile::write(file, fresh, disk);
    if (AtomicFile::resolved(file) != file)
        disk.syncFolder(folder);  // ".previous" stands here, the new file elsewhere
    memory.folderMayBeBehind = false;
    memory.path.swap(writtenPath);
    memory.bytes.swap(fresh);
    std::swap(memory.library, written);
}

}  // namespace vantry
