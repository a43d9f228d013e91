#include <cerrno>
#include <system_error>

#include <gtest/gtest.h>

#include "VantryCore/persistence/AtomicFile.h"
#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/DiskStore.h"
#include "tests/support/FaultyFileOperations.h"
#include "tests/support/Files.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;
using support::contentOf;
using support::FaultyFileOperations;
using support::libraryTitled;
using support::namesIn;
using support::TemporaryFolder;

using Names = std::vector<std::string>;

std::string bytesOf(const char* title) {
    return Codec::encode(libraryTitled(title));
}

/// A folder in which library.json is a link.
class LinkedLibrary : public ::testing::Test {
protected:
    void SetUp() override {
        fs::create_directory(folder / "data");
        fs::create_directory(folder / "elsewhere");
    }
    void link(const fs::path& target) { fs::create_symlink(target, file); }

    void expectThreeSaves(const fs::path& target) {
        std::string before;
        for (const auto* title : {"one", "two", "three"}) {
            DiskStore::write(libraryTitled(title), file);
            EXPECT_TRUE(fs::is_symlink(file));
            EXPECT_FALSE(fs::is_symlink(target));
            EXPECT_EQ(contentOf(target), bytesOf(title));
            EXPECT_TRUE(DiskStore::read(file) == libraryTitled(title));
            if (!before.empty()) {
                EXPECT_EQ(contentOf(folder / "data/library.json.previous"), before);
                EXPECT_FALSE(fs::is_symlink(folder / "data/library.json.previous"));
            }
            before = bytesOf(title);
        }
    }

    TemporaryFolder folder;
    fs::path file = folder / "data/library.json";
};

TEST_F(LinkedLibrary, IsFollowedByARelativeLink) {
    link("../elsewhere/real.json");
    expectThreeSaves(folder / "elsewhere/real.json");
    EXPECT_EQ(namesIn(folder / "data"), (Names{"library.json", "library.json.previous"}));
    EXPECT_EQ(namesIn(folder / "elsewhere"), Names{"real.json"});
}

TEST_F(LinkedLibrary, IsFollowedByAnAbsoluteLink) {
    link(folder / "elsewhere/real.json");
    expectThreeSaves(folder / "elsewhere/real.json");
    EXPECT_EQ(namesIn(folder / "elsewhere"), Names{"real.json"});
}

TEST_F(LinkedLibrary, IsFollowedByAChainOfLinks) {
    fs::create_symlink("real.json", folder / "elsewhere/second");
    fs::create_symlink("../elsewhere/second", folder / "data/first");
    link("first");
    expectThreeSaves(folder / "elsewhere/real.json");
    EXPECT_TRUE(fs::is_symlink(folder / "elsewhere/second"));
    EXPECT_EQ(namesIn(folder / "elsewhere"), (Names{"real.json", "second"}));
}

TEST_F(LinkedLibrary, ThatDanglesReadsAsANewLibrary) {
    link("../nowhere/real.json");
    EXPECT_TRUE(DiskStore::read(file) == Library{});
    try {
        DiskStore::write(libraryTitled("one"), file);
        ADD_FAILURE() << "wrote into a folder that is not there";
    } catch (const std::system_error& failure) {
        EXPECT_EQ(failure.code().value(), ENOENT);
    }
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(namesIn(folder / "data"), Names{"library.json"});
    fs::create_directory(folder / "nowhere");
    expectThreeSaves(folder / "nowhere/real.json");
}

TEST_F(LinkedLibrary, InACircleFailsAndStays) {
    link("second");
    fs::create_symlink("library.json", folder / "data/second");
    EXPECT_THROW((void)DiskStore::read(file), std::system_error);
    EXPECT_THROW(DiskStore::write(libraryTitled("one"), file), std::system_error);
    EXPECT_EQ(namesIn(folder / "data"), (Names{"library.json", "second"}));
}

TEST_F(LinkedLibrary, ToADamagedFileIsNeverTouched) {
    link("../elsewhere/real.json");
    support::putContent(folder / "elsewhere/real.json", "invalid JSON");
    EXPECT_ANY_THROW((void)DiskStore::read(file));
    EXPECT_ANY_THROW(DiskStore::write(libraryTitled("one"), file));
    EXPECT_EQ(contentOf(folder / "elsewhere/real.json"), "invalid JSON");
}

TEST_F(LinkedLibrary, WhoseFolderIsALinkIsSavedThere) {
    fs::remove(folder / "data");
    fs::create_directory_symlink("elsewhere", folder / "data");
    DiskStore::write(libraryTitled("one"), file);
    DiskStore::write(libraryTitled("two"), file);
    EXPECT_TRUE(fs::is_symlink(folder / "data"));
    EXPECT_EQ(namesIn(folder / "elsewhere"), (Names{"library.json", "library.json.previous"}));
}

TEST_F(LinkedLibrary, MakesBothFoldersDurable) {
    link("../elsewhere/real.json");
    DiskStore::write(libraryTitled("one"), file);
    FaultyFileOperations disk;
    DiskStore::write(libraryTitled("two"), file, nullptr, disk);
    EXPECT_EQ(std::count(disk.stepNames().begin(), disk.stepNames().end(), "syncFolder"), 2);
}

/// What may stand in the place of the previous file.
class PreviousPlace : public ::testing::Test {
protected:
    void SetUp() override { DiskStore::write(libraryTitled("one"), file); }

    void expectSavedOver(FaultyFileOperations& disk) {
        DiskStore::write(libraryTitled("two"), file, nullptr, disk);
        EXPECT_EQ(contentOf(file), bytesOf("two"));
        EXPECT_EQ(contentOf(previous), bytesOf("one"));
        EXPECT_FALSE(fs::is_symlink(previous));
        EXPECT_TRUE(support::temporaryNamesIn(folder.path()).empty());
        EXPECT_FALSE(fs::equivalent(file, previous));
    }
    void expectSavedOver() {
        FaultyFileOperations disk;
        expectSavedOver(disk);
    }

    TemporaryFolder folder;
    fs::path file = folder / "library.json";
    fs::path previous = folder / "library.json.previous";
};

TEST_F(PreviousPlace, MayHoldALinkWhichIsReplacedAndNotFollowed) {
    for (const bool links : {true, false}) {
        support::putContent(folder / "precious", "mine");
        fs::remove(previous);
        fs::create_symlink("precious", previous);
        FaultyFileOperations disk;
        if (!links)
            disk.refuseLinks();
        DiskStore::write(libraryTitled("one"), file);
        expectSavedOver(disk);
        EXPECT_EQ(contentOf(folder / "precious"), "mine");
    }
}

TEST_F(PreviousPlace, MayHoldALinkToTheLibraryItself) {
    fs::create_symlink("library.json", previous);
    expectSavedOver();
}

TEST_F(PreviousPlace, MayHoldADanglingLink) {
    fs::create_symlink("nowhere", previous);
    expectSavedOver();
    EXPECT_FALSE(fs::exists(folder / "nowhere"));
}

TEST_F(PreviousPlace, MayHoldALinkInACircle) {
    fs::create_symlink("library.json.previous", previous);
    expectSavedOver();
}

TEST_F(PreviousPlace, KeepsItsLinkWhenTheCopyFails) {
    support::putContent(folder / "precious", "mine");
    fs::create_symlink("precious", previous);
    FaultyFileOperations counting;
    counting.refuseLinks();
    for (std::size_t step = 1;; ++step) {
        FaultyFileOperations disk;
        disk.refuseLinks();
        disk.failAt(step);
        try {
            DiskStore::write(libraryTitled("two"), file, nullptr, disk);
        } catch (const std::system_error&) {
        }
        if (contentOf(file) == bytesOf("two") || disk.failedStep().empty())
            break;
        // Either still the link, or already the whole copy.
        ASSERT_TRUE(fs::is_symlink(previous) || support::contentIfAny(previous) == bytesOf("one"))
            << "step " << step << " " << disk.failedStep();
    }
    EXPECT_EQ(contentOf(folder / "precious"), "mine");
}

TEST_F(PreviousPlace, MayBeTheSameFileAfterACrash) {
    fs::create_hard_link(file, previous);
    expectSavedOver();
}

TEST_F(PreviousPlace, MayBeTheSameFileForSeveralFailuresInARow) {
    for (int attempt = 0; attempt < 3; ++attempt) {
        FaultyFileOperations disk;
        disk.beforeStep = [](std::size_t, const std::string& step) {
            if (step == "createForWriting")
                throw std::system_error(ENOSPC, std::generic_category(), "full");
        };
        EXPECT_THROW(DiskStore::write(libraryTitled("two"), file, nullptr, disk), std::system_error);
        EXPECT_EQ(contentOf(file), bytesOf("one"));
        EXPECT_EQ(contentOf(previous), bytesOf("one"));
        EXPECT_EQ(namesIn(folder.path()), (Names{"library.json", "library.json.previous"}));
    }
    expectSavedOver();
}

TEST_F(PreviousPlace, MayHoldAnything) {
    for (const std::string& bytes :
         {std::string(), std::string("garbage"), bytesOf("one"), std::string(100'000, '\0')}) {
        DiskStore::write(libraryTitled("one"), file);
        fs::remove(previous);
        support::putContent(previous, bytes);
        expectSavedOver();
    }
}

// What happens to the file between the moment it was read and the moment it is kept.

TEST_F(PreviousPlace, HoldsTheBytesThatWereReadWhenTheFileIsReplacedBehindOurBack) {
    FaultyFileOperations disk;
    bool replaced = false;
    disk.beforeStep = [&](std::size_t, const std::string& step) {
        if (step != "link" || replaced)
            return;
        replaced = true;
        support::putContent(folder / "foreign", bytesOf("foreign"));
        fs::rename(folder / "foreign", file);
    };
    DiskStore::write(libraryTitled("two"), file, nullptr, disk);
    EXPECT_TRUE(replaced);
    EXPECT_EQ(contentOf(previous), bytesOf("one"));
    EXPECT_EQ(contentOf(file), bytesOf("two"));
    EXPECT_EQ(namesIn(folder.path()), (Names{"library.json", "library.json.previous"}));
}

TEST_F(PreviousPlace, HoldsTheBytesThatWereReadWhenTheFileIsRemovedBehindOurBack) {
    FaultyFileOperations disk;
    disk.beforeStep = [&](std::size_t, const std::string& step) {
        if (step == "link")
            fs::remove(file);
    };
    DiskStore::write(libraryTitled("two"), file, nullptr, disk);
    EXPECT_EQ(contentOf(previous), bytesOf("one"));
    EXPECT_EQ(contentOf(file), bytesOf("two"));
    EXPECT_EQ(namesIn(folder.path()), (Names{"library.json", "library.json.previous"}));
}

TEST_F(PreviousPlace, HoldsTheBytesThatWereReadWhenAFolderTakesThePlaceBehindOurBack) {
    FaultyFileOperations disk;
    disk.beforeStep = [&](std::size_t, const std::string& step) {
        if (step == "link" && !fs::is_directory(file)) {
            fs::remove(file);
            fs::create_directory(file);
        }
    };
    EXPECT_THROW(DiskStore::write(libraryTitled("two"), file, nullptr, disk), std::system_error);
    EXPECT_EQ(contentOf(previous), bytesOf("one"));
    EXPECT_TRUE(fs::is_directory(file));
    EXPECT_TRUE(support::temporaryNamesIn(folder.path()).empty());
}

}  // namespace
}  // namespace vantry
