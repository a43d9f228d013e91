#include "VantryCore/persistence/AtomicFile.h"

#include <cerrno>
#include <system_error>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/Environment.h"
#include "tests/support/FaultyFileOperations.h"
#include "tests/support/Files.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;
using support::contentOf;
using support::FaultyFileOperations;
using support::namesIn;
using support::TemporaryFolder;

using Names = std::vector<std::string>;

mode_t modeOf(const fs::path& file) {
    struct stat info {};
    EXPECT_EQ(::stat(file.c_str(), &info), 0);
    return info.st_mode & 07777;
}

int errorOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const std::system_error& failure) {
        return failure.code().value();
    }
    return 0;
}

TEST(AtomicFile, CreatesAndReplacesAFile) {
    const TemporaryFolder folder;
    AtomicFile::write(folder / "a", "first");
    EXPECT_EQ(contentOf(folder / "a"), "first");
    AtomicFile::write(folder / "a", "second and longer");
    EXPECT_EQ(contentOf(folder / "a"), "second and longer");
    AtomicFile::write(folder / "a", "");
    EXPECT_EQ(contentOf(folder / "a"), "");
    EXPECT_EQ(namesIn(folder.path()), Names{"a"});
}

TEST(AtomicFile, WritesBytesOfAnyKindAndSize) {
    const TemporaryFolder folder;
    std::string bytes(3'000'000, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 31 + i / 255);
    AtomicFile::write(folder / "a", bytes);
    EXPECT_TRUE(contentOf(folder / "a") == bytes);
}

TEST(AtomicFile, WritesAFileWithTheLongestNameThatThereIs) {
    const TemporaryFolder folder;
    for (const std::string& name : {std::string(255, 'x'), std::string(252, 'x') + "夜", [] {
                                        std::string characters;
                                        for (int i = 0; i < 85; ++i)
                                            characters += "夜";
                                        return characters;
                                    }()}) {
        ASSERT_EQ(name.size(), 255U);
        AtomicFile::write(folder / name, "first");
        AtomicFile::write(folder / name, "second");
        EXPECT_EQ(contentOf(folder / name), "second");
        const fs::path left = AtomicFile::temporaryName(folder / name);
        EXPECT_LE(left.filename().string().size(), 255U);
        support::putContent(left, "half");
        AtomicFile::removeLeftovers(folder / name);
        EXPECT_EQ(namesIn(folder.path()), Names{name});
        fs::remove(folder / name);
    }
}

TEST(AtomicFile, AnswersWhichFileTheNewOneIs) {
    const TemporaryFolder folder;
    const auto first = AtomicFile::write(folder / "a", "1");
    EXPECT_EQ(FileOperations::system().status(folder / "a")->identity, first);
    const auto second = AtomicFile::write(folder / "a", "2");
    EXPECT_EQ(FileOperations::system().status(folder / "a")->identity, second);
}

TEST(AtomicFile, ReplacesTheNameAndLeavesTheOldFileToWhoHasItOpen) {
    const TemporaryFolder folder;
    AtomicFile::write(folder / "a", "old");
    fs::create_hard_link(folder / "a", folder / "other name");
    AtomicFile::write(folder / "a", "new");
    EXPECT_EQ(contentOf(folder / "other name"), "old");
    EXPECT_EQ(contentOf(folder / "a"), "new");
}

TEST(AtomicFile, GivesANewFileTheUsualPermissions) {
    const TemporaryFolder folder;
    const mode_t mask = ::umask(022);
    ::umask(mask);
    AtomicFile::write(folder / "a", "x");
    EXPECT_EQ(modeOf(folder / "a"), 0666 & ~mask);
}

TEST(AtomicFile, KeepsThePermissionsOfAnExistingFile) {
    const TemporaryFolder folder;
    for (const mode_t mode : {0600U, 0644U, 0640U, 0444U, 0666U, 0755U, 0400U}) {
        support::putContent(folder / "a", "old");
        ASSERT_EQ(::chmod((folder / "a").c_str(), mode), 0);
        AtomicFile::write(folder / "a", "new");
        EXPECT_EQ(modeOf(folder / "a"), mode);
        fs::remove(folder / "a");
    }
}

TEST(AtomicFile, FollowsALinkAndLeavesItInPlace) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "elsewhere");
    support::putContent(folder / "elsewhere/target", "old");
    fs::create_symlink("elsewhere/target", folder / "relative");
    fs::create_symlink(folder / "relative", folder / "chain");
    AtomicFile::write(folder / "chain", "new");
    EXPECT_EQ(contentOf(folder / "elsewhere/target"), "new");
    EXPECT_TRUE(fs::is_symlink(folder / "relative"));
    EXPECT_TRUE(fs::is_symlink(folder / "chain"));
    EXPECT_EQ(namesIn(folder.path()), (Names{"chain", "elsewhere", "relative"}));
    EXPECT_EQ(namesIn(folder / "elsewhere"), Names{"target"});
}

TEST(AtomicFile, CreatesTheTargetOfADanglingLink) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "elsewhere");
    fs::create_symlink("elsewhere/target", folder / "a");
    AtomicFile::write(folder / "a", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "a"));
    EXPECT_EQ(contentOf(folder / "elsewhere/target"), "new");
    fs::create_symlink("nowhere/target", folder / "b");
    EXPECT_EQ(errorOf([&] { AtomicFile::write(folder / "b", "new"); }), ENOENT);
    EXPECT_TRUE(fs::is_symlink(folder / "b"));
}

TEST(AtomicFile, RefusesACircleOfLinks) {
    const TemporaryFolder folder;
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    EXPECT_EQ(errorOf([&] { AtomicFile::write(folder / "a", "new"); }), ELOOP);
    EXPECT_EQ(namesIn(folder.path()), (Names{"a", "b"}));
}

TEST(AtomicFile, FindsWhereALinkLeads) {
    const TemporaryFolder folder;
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("deep/c", folder / "b");
    EXPECT_EQ(AtomicFile::resolved(folder / "a"), folder / "deep/c");
    EXPECT_EQ(AtomicFile::resolved(folder / "plain"), folder / "plain");
    fs::create_symlink("/somewhere/else", folder / "far");
    EXPECT_EQ(AtomicFile::resolved(folder / "far"), "/somewhere/else");
    EXPECT_EQ(AtomicFile::resolved("no folder"), "no folder");
}

TEST(AtomicFile, LeavesAFolderInItsPlaceAlone) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "a");
    EXPECT_EQ(errorOf([&] { AtomicFile::write(folder / "a", "new"); }), EISDIR);
    EXPECT_TRUE(fs::is_directory(folder / "a"));
    EXPECT_EQ(namesIn(folder.path()), Names{"a"});
}

TEST(AtomicFile, FailsWithoutItsFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(errorOf([&] { AtomicFile::write(folder / "none/a", "new"); }), ENOENT);
    support::putContent(folder / "file", "x");
    EXPECT_EQ(errorOf([&] { AtomicFile::write(folder / "file/a", "new"); }), ENOTDIR);
    EXPECT_EQ(contentOf(folder / "file"), "x");
}

TEST(AtomicFile, NamesThePathInItsFailure) {
    const TemporaryFolder folder;
    try {
        AtomicFile::write(folder / "none/a", "new");
        FAIL() << "wrote into a folder that is not there";
    } catch (const std::system_error& failure) {
        EXPECT_NE(std::string(failure.what()).find("none"), std::string::npos) << failure.what();
    }
}

TEST(AtomicFile, HoldsTheOldOrTheNewWholeFileAtEveryStep) {
    const TemporaryFolder folder;
    support::putContent(folder / "a", "old");
    FaultyFileOperations disk;
    std::vector<std::string> seen;
    disk.beforeStep = [&](std::size_t, const std::string&) { seen.push_back(contentOf(folder / "a")); };
    AtomicFile::write(folder / "a", "new", disk);
    EXPECT_EQ(disk.stepNames(), (Names{"status", "createForWriting", "write", "write", "setMode", "sync",
                                       "close", "rename", "syncFolder"}));
    for (std::size_t i = 0; i < seen.size(); ++i)
        EXPECT_EQ(seen[i], disk.stepNames()[i] == "syncFolder" ? "new" : "old") << disk.stepNames()[i];
}

TEST(AtomicFile, LeavesTheOldFileAndNoOtherWhenAnyStepFails) {
    for (std::size_t step = 1; step <= 9; ++step) {
        const TemporaryFolder folder;
        support::putContent(folder / "a", "old");
        FaultyFileOperations disk;
        disk.failAt(step);
        EXPECT_EQ(errorOf([&] { AtomicFile::write(folder / "a", "new", disk); }), EIO) << step;
        EXPECT_EQ(contentOf(folder / "a"), disk.failedStep() == "syncFolder" ? "new" : "old")
            << disk.failedStep();
        EXPECT_EQ(namesIn(folder.path()), Names{"a"}) << disk.failedStep();
    }
}

TEST(AtomicFile, LeavesTheOldFileWhenTheDiskIsFull) {
    const TemporaryFolder folder;
    AtomicFile::write(folder / "a", "old");
    const std::string bytes(200'000, 'x');
    for (const std::size_t room : {0U, 1U, 4096U, 100'000U, 199'999U}) {
        const support::ScopedFileSizeLimit limit(room);
        EXPECT_EQ(errorOf([&] { AtomicFile::write(folder / "a", bytes); }), EFBIG) << room;
        EXPECT_EQ(contentOf(folder / "a"), "old") << room;
        EXPECT_EQ(namesIn(folder.path()), Names{"a"}) << room;
    }
    const support::ScopedFileSizeLimit limit(200'000);
    AtomicFile::write(folder / "a", bytes);
    EXPECT_TRUE(contentOf(folder / "a") == bytes);
}

TEST(AtomicFile, GivesItsTemporaryFilesFreshHiddenNamesBesideTheFile) {
    const auto first = AtomicFile::temporaryName("/films/library.json");
    EXPECT_EQ(first.parent_path(), "/films");
    EXPECT_TRUE(first.filename().string().starts_with(".library.json.")) << first;
    EXPECT_NE(first, AtomicFile::temporaryName("/films/library.json"));
    EXPECT_EQ(AtomicFile::temporaryName("library.json").parent_path(), ".");
}

}  // namespace
}  // namespace vantry
