#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "VantryCore/persistence/AtomicFile.h"
#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/DiskStore.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/FaultyFileOperations.h"
#include "tests/support/Files.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;
using support::FaultyFileOperations;
using support::libraryTitled;
using support::namesIn;
using support::TemporaryFolder;

using Names = std::vector<std::string>;

TEST(Leftovers, OfTheDeadAreRemovedByTheNextWrite) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    DiskStore::write(libraryTitled("one"), file);
    support::putContent(AtomicFile::temporaryName(file), "half a lib");
    support::putContent(AtomicFile::temporaryName(DiskStore::previousOf(file)), "half a lib");
    fs::create_hard_link(file, AtomicFile::temporaryName(DiskStore::previousOf(file)));
    DiskStore::write(libraryTitled("two"), file);
    EXPECT_EQ(namesIn(folder.path()), (Names{"library.json", "library.json.previous"}));
    EXPECT_TRUE(DiskStore::read(file) == libraryTitled("two"));
    EXPECT_EQ(support::contentOf(DiskStore::previousOf(file)), Codec::encode(libraryTitled("one")));
}

TEST(Leftovers, BesideTheTargetOfALinkAreRemovedToo) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "elsewhere");
    fs::create_symlink("elsewhere/real.json", folder / "library.json");
    DiskStore::write(libraryTitled("one"), folder / "library.json");
    support::putContent(AtomicFile::temporaryName(folder / "elsewhere/real.json"), "half a lib");
    DiskStore::write(libraryTitled("two"), folder / "library.json");
    EXPECT_EQ(namesIn(folder / "elsewhere"), Names{"real.json"});
    EXPECT_EQ(namesIn(folder.path()), (Names{"elsewhere", "library.json", "library.json.previous"}));
}

TEST(Leftovers, ThatArePipesStopNobody) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    ASSERT_EQ(::mkfifo(AtomicFile::temporaryName(file).c_str(), 0600), 0);
    DiskStore::write(libraryTitled("one"), file);
    EXPECT_TRUE(DiskStore::read(file) == libraryTitled("one"));
}

TEST(Leftovers, OfTheLivingStay) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    DiskStore::write(libraryTitled("one"), file);
    const fs::path name = AtomicFile::temporaryName(file);
    auto& disk = FileOperations::system();
    const int open = disk.createForWriting(name);
    DiskStore::write(libraryTitled("two"), file);
    EXPECT_TRUE(fs::exists(name));
    disk.close(open, name);
    DiskStore::write(libraryTitled("three"), file);
    EXPECT_FALSE(fs::exists(name));
}

TEST(Leftovers, OfAnotherProcessThatIsStillWritingStay) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    DiskStore::write(libraryTitled("one"), file);
    FaultyFileOperations disk;
    std::string report;
    disk.beforeStep = [&](std::size_t, const std::string& step) {
        // Another process saves while this one is in the middle of its write.
        if (step == "sync" && report.empty())
            report = support::inChildProcess([&] {
                DiskStore::write(libraryTitled("other"), file);
                return std::to_string(support::temporaryNamesIn(folder.path()).size());
            });
    };
    DiskStore::write(libraryTitled("two"), file, nullptr, disk);
    EXPECT_EQ(report, "1");
    EXPECT_TRUE(DiskStore::read(file) == libraryTitled("two"));
    EXPECT_TRUE(support::temporaryNamesIn(folder.path()).empty());
}

TEST(Leftovers, AreToldFromFilesOfTheUser) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    const Names own{".library.json.backup.tmp",
                    ".library.json.tmp",
                    "library.json.tmp",
                    ".library.json.swp",
                    ".library.json",
                    ".library.json.0123.tmp.bak",
                    "library.json.previous.tmp",
                    ".other.json.12345678-1234.tmp",
                    ".library.json.previous.mine.tmp",
                    ".library.json.my-long-notes.tmp"};
    for (const auto& name : own)
        support::putContent(folder / name, "mine");
    DiskStore::write(libraryTitled("one"), file);
    DiskStore::write(libraryTitled("two"), file);
    for (const auto& name : own)
        EXPECT_TRUE(fs::exists(folder / name)) << name;
}

TEST(Leftovers, ThatAreFoldersOrLinksStay) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    const fs::path asFolder = AtomicFile::temporaryName(file);
    const fs::path asLink = AtomicFile::temporaryName(file);
    fs::create_directory(asFolder);
    support::putContent(folder / "precious", "mine");
    fs::create_symlink("precious", asLink);
    DiskStore::write(libraryTitled("one"), file);
    EXPECT_TRUE(fs::is_directory(asFolder));
    EXPECT_EQ(support::contentOf(folder / "precious"), "mine");
}

}  // namespace
}  // namespace vantry
