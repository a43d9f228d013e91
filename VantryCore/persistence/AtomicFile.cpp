#include "VantryCore/persistence/AtomicFile.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantry {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view temporaryEnding = ".tmp";

/// The most bytes that file systems take for a name.
constexpr std::size_t longestName = 255;

/// A long name is cut between two characters, so that there is room for the rest.
std::string temporaryBeginning(const fs::path& file) {
    static const std::size_t room = longestName - freshNamePart().size() - temporaryEnding.size() - 2;
    std::string name = file.filename().string();
    if (name.size() > room) {
        std::size_t end = room;
        while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80)
            --end;
        name.resize(end);
    }
    return "." + name + ".";
}

/// Whether a name is one of those that `temporaryName` gives for a file whose temporary names begin so,
/// random part included: a person's own ".library.json.backup.tmp" is none.
bool isTemporaryName(std::string_view name, std::string_view beginning) {
    static const std::string model = freshNamePart();
    if (name.size() != beginning.size() + model.size() + temporaryEnding.size() ||
        !name.starts_with(beginning) || !name.ends_with(temporaryEnding))
        return false;
    const std::string_view random = name.substr(beginning.size(), model.size());
    return std::equal(random.begin(), random.end(), model.begin(), [](char c, char like) {
        return like == '-' ? c == '-' : (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
    });
}

/// Removes the entry of a folder unless a living process writes it.
void removeIfLeft(const fs::path& path) {
    const int left = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (left == -1)
        return;
    if (::flock(left, LOCK_EX | LOCK_NB) == 0)
        ::unlink(path.c_str());
    ::close(left);
}

/// Removes the leftovers among the entries whose name `isOurs` accepts. A folder that cannot be listed keeps
/// them; the write itself will tell what is wrong.
template <class IsOurs>
void removeLeftoversIn(const fs::path& folder, IsOurs isOurs) noexcept {
    try {
        for (const auto& entry : fs::directory_iterator(folder))
            if (isOurs(entry.path().filename().string()))
                removeIfLeft(entry.path());
    } catch (const std::exception&) {
        return;
    }
}

/// The permissions that the process gives to a new file. There is no way to ask without setting; the call
/// that follows puts it back, and nothing else runs in between on the one thread that saves.
mode_t newFileMode() {
    static const mode_t mode = [] {
        const mode_t mask = ::umask(022);
        ::umask(mask);
        return static_cast<mode_t>(0666 & ~mask);
    }();
    return mode;
}

/// Removes the temporary file unless the write came to its end.
class Temporary {
public:
    Temporary(const fs::path& name, FileOperations& operations)
        : path(name)
        , disk(operations)
        , file(operations.createForWriting(name))
        , lock(::fcntl(file, F_DUPFD_CLOEXEC, 0)) {}
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;
    ~Temporary() {
        if (file != -1)
            ::close(file);
        if (!renamed)
            disk.remove(path);
        if (lock != -1)
            ::close(lock);
    }

    FileIdentity fill(std::string_view bytes, mode_t mode) {
        disk.write(file, bytes, path);
        disk.setMode(file, mode, path);
        disk.sync(file, path);
        struct stat info {};
        if (::fstat(file, &info) != 0)
            throw std::system_error(errno, std::generic_category(), path.string());
        disk.close(std::exchange(file, -1), path);
        return {info.st_dev, info.st_ino};
    }
    void takeOver(const fs::path& target) {
        disk.rename(path, target);
        renamed = true;
    }

private:
    const fs::path& path;
    FileOperations& disk;
    int file;
    int lock;  ///< keeps the file locked, and so from being taken for a leftover, until it has its name
    bool renamed = false;
};

}  // namespace

fs::path AtomicFile::temporaryName(const fs::path& file) {
    return folderOf(file) / (temporaryBeginning(file) + freshNamePart() + std::string(temporaryEnding));
}

fs::path AtomicFile::resolved(const fs::path& file) {
    fs::path path = file;
    std::error_code error;
    // As many steps as Linux takes itself before it speaks of a circle.
    for (int step = 0; step < 40; ++step) {
        const fs::path target = fs::read_symlink(path, error);
        if (error)
            return path;
        path = target.is_absolute() ? target : folderOf(path) / target;
    }
    throw std::system_error(ELOOP, std::generic_category(), file.string());
}

FileIdentity AtomicFile::write(const fs::path& file, std::string_view bytes, FileOperations& disk) {
    const fs::path target = resolved(file);
    const auto existing = disk.status(target);
    if (existing && S_ISDIR(existing->mode))
        throw std::system_error(EISDIR, std::generic_category(), file.string());
    return writeHere(target, bytes, existing ? existing->mode : newFileMode(), disk);
}

FileIdentity AtomicFile::writeHere(const fs::path& file, std::string_view bytes, mode_t mode,
                                   FileOperations& disk) {
    const fs::path name = temporaryName(file);
    try {
        Temporary temporary(name, disk);
        const FileIdentity identity = temporary.fill(bytes, mode);
        temporary.takeOver(file);
        disk.syncFolder(folderOf(file));
        return identity;
    } catch (const std::system_error& failure) {
        // A person knows the file and nothing of temporary names.
        throw std::system_error(failure.code(), file.string());
    }
}

void AtomicFile::removeLeftovers(const fs::path& file) noexcept {
    removeLeftoversIn(folderOf(file), [&file](const std::string& name) {
        return isTemporaryName(name, temporaryBeginning(file));
    });
}

void AtomicFile::removeAllLeftovers(const fs::path& folder) noexcept {
    removeLeftoversIn(folder, [](const std::string& name) {
        const std::size_t size = temporaryEnding.size() + freshNamePart().size();
        return name.size() > size && name.starts_with('.') &&
               isTemporaryName(name, std::string_view(name).substr(0, name.size() - size));
    });
}

}  // namespace vantry
