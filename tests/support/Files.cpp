#include "tests/support/Files.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <ostream>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>

namespace vantry::support {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const fs::path& path) {
    throw std::system_error(errno, std::generic_category(), path.string());
}

void setTimes(const fs::path& file, const struct timespec& modified) {
    const struct timespec times[2] = {modified, modified};
    if (::utimensat(AT_FDCWD, file.c_str(), times, 0) != 0)
        fail(file);
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (fs::temp_directory_path() / "vantry-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        fail(pattern);
    folder = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::runtime_error("cannot read " + file.string());
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::optional<std::string> contentIfAny(const fs::path& file) {
    if (!fs::exists(file))
        return std::nullopt;
    return contentOf(file);
}

void putContent(const fs::path& file, std::string_view bytes) {
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream)
        throw std::runtime_error("cannot write " + file.string());
}

std::vector<std::string> namesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> temporaryNamesIn(const fs::path& folder) {
    auto names = namesIn(folder);
    std::erase_if(names, [](const std::string& name) { return !name.ends_with(".tmp"); });
    return names;
}

void PrintTo(const FileFacts& facts, std::ostream* out) {
    *out << facts.bytes.size() << " bytes \"" << facts.bytes.substr(0, 80) << "\", modified "
         << facts.changedNanoseconds << ", inode " << facts.inode << ", mode " << std::oct << facts.mode
         << std::dec;
}

std::optional<FileFacts> factsOf(const fs::path& file) {
    struct stat info {};
    if (::lstat(file.c_str(), &info) != 0)
        return std::nullopt;
    FileFacts facts;
    facts.bytes = contentOf(file);
    facts.changedNanoseconds =
        static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1'000'000'000 + info.st_mtim.tv_nsec;
    facts.inode = info.st_ino;
    facts.mode = info.st_mode;
    return facts;
}

void makeOld(const fs::path& file) {
    setTimes(file, {.tv_sec = 1'000'000'000, .tv_nsec = 123'456'789});
}

void copyModificationTime(const fs::path& model, const fs::path& file) {
    struct stat info {};
    if (::stat(model.c_str(), &info) != 0)
        fail(model);
    setTimes(file, info.st_mtim);
}

}  // namespace vantry::support
