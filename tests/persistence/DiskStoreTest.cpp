#include "VantryCore/persistence/DiskStore.h"

#include <cerrno>
#include <limits>
#include <system_error>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "VantryCore/persistence/AtomicFile.h"
#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/LibraryValidation.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Environment.h"
#include "tests/support/FaultyFileOperations.h"
#include "tests/support/Files.h"
#include "tests/support/RandomRecords.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;
using support::contentOf;
using support::libraryTitled;
using support::namesIn;
using support::TemporaryFolder;

using Names = std::vector<std::string>;
const Names bothFiles{"library.json", "library.json.previous"};

/// The number of the system's error, 0 for none.
int errorOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const std::system_error& failure) {
        return failure.code().value();
    }
    return 0;
}

TEST(DiskStore, ReadsAMissingFileAsANewLibraryAndCreatesNothing) {
    const TemporaryFolder folder;
    EXPECT_TRUE(DiskStore::read(folder / "library.json") == Library{});
    EXPECT_TRUE(DiskStore::read(folder / "none/library.json") == Library{});
    support::putContent(folder / "file", "x");
    EXPECT_TRUE(DiskStore::read(folder / "file/library.json") == Library{});
    EXPECT_EQ(namesIn(folder.path()), Names{"file"});
    EXPECT_NO_THROW(validate(DiskStore::read(folder / "library.json")));
}

TEST(DiskStore, WritesAnEmptyLibraryToAFreshFolderWithoutAPreviousOne) {
    const TemporaryFolder folder;
    const fs::path file = folder / "deep/er/library.json";
    DiskStore::write(Library{}, file);
    EXPECT_EQ(namesIn(folder / "deep/er"), Names{"library.json"});
    EXPECT_EQ(contentOf(file), R"({"format":"Vantry","projects":[],"version":1})");
}

TEST(DiskStore, KeepsWhatItReplacedByteForByte) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    std::string before;
    for (int generation = 0; generation < 6; ++generation) {
        const Library library = libraryTitled(std::to_string(generation));
        DiskStore::write(library, file);
        EXPECT_EQ(contentOf(file), Codec::encode(library));
        if (generation > 0) {
            EXPECT_EQ(contentOf(DiskStore::previousOf(file)), before);
            EXPECT_EQ(namesIn(folder.path()), bothFiles);
        }
        before = contentOf(file);
    }
}

TEST(DiskStore, KeepsForeignBytesAsThePreviousOnesToo) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    const std::string foreign =
        "{ \"version\": 1.0,\n\t\"projects\": [], \"format\": \"Vantry\", \"own\": [1, 2] }\r\n";
    support::putContent(file, foreign);
    DiskStore::write(libraryTitled("new"), file);
    EXPECT_EQ(contentOf(DiskStore::previousOf(file)), foreign);
    EXPECT_TRUE(DiskStore::read(file) == libraryTitled("new"));
}

TEST(DiskStore, NamesThePreviousFileAfterTheFile) {
    EXPECT_EQ(DiskStore::previousOf("/films/library.json"), "/films/library.json.previous");
    EXPECT_EQ(DiskStore::previousOf("notes"), "notes.previous");
    const TemporaryFolder folder;
    DiskStore::write(libraryTitled("one"), folder / "my films");
    DiskStore::write(libraryTitled("two"), folder / "my films");
    EXPECT_EQ(namesIn(folder.path()), (Names{"my films", "my films.previous"}));
}

TEST(DiskStore, WritesBesideTheWorkingFolderWhenThePathIsANameAlone) {
    const TemporaryFolder folder;
    const std::string report = support::inChildProcess([&] {
        fs::current_path(folder.path());
        DiskStore::write(libraryTitled("one"), "library.json");
        DiskStore::write(libraryTitled("two"), "library.json");
        return DiskStore::read("library.json") == libraryTitled("two") ? "read" : "lost";
    });
    EXPECT_EQ(report, "read");
    EXPECT_EQ(namesIn(folder.path()), bothFiles);
}

TEST(DiskStore, ReadsWhatItWrote) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    for (std::uint64_t seed = 0; seed < 20; ++seed) {
        const Library library = support::RandomRecords(seed).validLibrary();
        DiskStore::write(library, file);
        EXPECT_TRUE(DiskStore::read(file) == library) << seed;
    }
    DiskStore::write(support::sampleLibrary(), file);
    EXPECT_EQ(contentOf(file), support::sampleFileBytes());
}

TEST(DiskStore, RefusesAnInvalidLibraryBeforeItTouchesTheDisk) {
    Library invalid = support::completeLibrary();
    invalid.projects[0].edit().acts[0].edit().shots[0].edit().takes[0].edit().stars = 6;
    const TemporaryFolder folder;
    support::FaultyFileOperations disk;
    EXPECT_THROW(DiskStore::write(invalid, folder / "deep/library.json", nullptr, disk), VantryError);
    EXPECT_EQ(disk.steps(), 0U);
    EXPECT_TRUE(fs::is_empty(folder.path()));

    const fs::path file = folder / "library.json";
    SavedFile memory;
    DiskStore::write(support::completeLibrary(), file, &memory);
    const auto before = support::factsOf(file);
    EXPECT_THROW(DiskStore::write(invalid, file), VantryError);
    EXPECT_THROW(DiskStore::write(invalid, file, &memory), VantryError);
    EXPECT_EQ(support::factsOf(file), before);
    EXPECT_EQ(namesIn(folder.path()), Names{"library.json"});
}

TEST(DiskStore, RefusesNumbersThatHaveNoFormBeforeItTouchesTheDisk) {
    Library library = support::completeLibrary();
    library.projects[0].edit().createdAt.seconds = std::numeric_limits<double>::infinity();
    const TemporaryFolder folder;
    EXPECT_THROW(DiskStore::write(library, folder / "deep/library.json"), VantryError);
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(DiskStore, FailsWhereAFileStandsInThePlaceOfTheFolder) {
    const TemporaryFolder folder;
    support::putContent(folder / "data", "a file");
    support::makeOld(folder / "data");
    const auto before = support::factsOf(folder / "data");
    EXPECT_EQ(errorOf([&] { DiskStore::write(Library{}, folder / "data/library.json"); }), ENOTDIR);
    EXPECT_EQ(errorOf([&] { DiskStore::write(Library{}, folder / "data/deeper/library.json"); }), ENOTDIR);
    EXPECT_EQ(support::factsOf(folder / "data"), before);
    EXPECT_EQ(namesIn(folder.path()), Names{"data"});
}

TEST(DiskStore, FailsWhereAFolderStandsInThePlaceOfThePreviousFile) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    DiskStore::write(libraryTitled("one"), file);
    fs::create_directory(folder / "library.json.previous");
    support::putContent(folder / "library.json.previous/mine", "x");
    const auto before = support::factsOf(file);
    EXPECT_EQ(errorOf([&] { DiskStore::write(libraryTitled("two"), file); }), EISDIR);
    EXPECT_EQ(support::factsOf(file), before);
    EXPECT_EQ(namesIn(folder.path()), bothFiles);
    EXPECT_EQ(contentOf(folder / "library.json.previous/mine"), "x");
}

TEST(DiskStore, KeepsThePermissionsOfTheFile) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    DiskStore::write(libraryTitled("one"), file);
    ASSERT_EQ(::chmod(file.c_str(), 0640), 0);
    DiskStore::write(libraryTitled("two"), file);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    EXPECT_EQ(fs::status(DiskStore::previousOf(file)).permissions(), fs::perms(0640));
}

TEST(DiskStore, IsDurableWhenItReturns) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    DiskStore::write(libraryTitled("one"), file);
    support::FaultyFileOperations disk;
    DiskStore::write(libraryTitled("two"), file, nullptr, disk);
    const auto& steps = disk.stepNames();
    const auto place = [&](const std::string& name) {
        return std::find(steps.rbegin(), steps.rend(), name) - steps.rbegin();
    };
    // Counted from the end: the folder's sync is last, in front of it the rename, in front of that the
    // file's.
    EXPECT_EQ(place("syncFolder"), 0);
    EXPECT_LT(place("syncFolder"), place("rename"));
    EXPECT_LT(place("rename"), place("sync"));
    EXPECT_LT(place("sync"), place("write"));
}

TEST(DiskStore, MakesNoSecondCopyOfThePreviousBytesWhereLinksWork) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    DiskStore::write(libraryTitled("one"), file);
    const auto before = support::factsOf(file);
    DiskStore::write(libraryTitled("two"), file);
    EXPECT_EQ(support::factsOf(DiskStore::previousOf(file)), before);
}

TEST(DiskStore, CopiesThePreviousBytesWhereLinksDoNotWork) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    support::FaultyFileOperations disk;
    disk.refuseLinks();
    for (const auto* title : {"one", "two", "three"}) {
        const auto before = support::contentIfAny(file);
        DiskStore::write(libraryTitled(title), file, nullptr, disk);
        EXPECT_EQ(support::contentIfAny(DiskStore::previousOf(file)), before);
    }
    EXPECT_EQ(namesIn(folder.path()), bothFiles);
    EXPECT_EQ(fs::hard_link_count(file), 1U);
}

TEST(DiskStore, KeepsThePermissionsInACopyOfThePreviousBytes) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    DiskStore::write(libraryTitled("one"), file);
    ASSERT_EQ(::chmod(file.c_str(), 0600), 0);
    support::FaultyFileOperations disk;
    disk.refuseLinks();
    DiskStore::write(libraryTitled("two"), file, nullptr, disk);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0600));
    EXPECT_EQ(fs::status(DiskStore::previousOf(file)).permissions(), fs::perms(0600));
}

TEST(DiskStore, FailsWhereTheFolderIsADanglingLink) {
    const TemporaryFolder folder;
    fs::create_symlink("nowhere", folder / "data");
    EXPECT_NE(errorOf([&] { DiskStore::write(Library{}, folder / "data/library.json"); }), 0);
    EXPECT_TRUE(fs::is_symlink(folder / "data"));
    EXPECT_EQ(namesIn(folder.path()), Names{"data"});
}

/// What a process without rights sees.
std::string asNobody(const std::function<void()>& work) {
    return support::inChildProcess([&]() -> std::string {
        support::becomeUnprivileged();
        try {
            work();
        } catch (const std::system_error& failure) {
            return failure.code() == std::errc::permission_denied ? "no right" : failure.what();
        }
        return "done";
    });
}

TEST(DiskStore, TellsAFileItMayNotReadFromAMissingOne) {
    const TemporaryFolder folder;
    fs::permissions(folder.path(), fs::perms(0755));
    const fs::path file = folder / "library.json";
    DiskStore::write(libraryTitled("one"), file);
    EXPECT_EQ(asNobody([&] { (void)DiskStore::read(file); }), "done");
    fs::permissions(file, fs::perms(0000));
    EXPECT_EQ(asNobody([&] { (void)DiskStore::read(file); }), "no right");
    EXPECT_EQ(asNobody([&] { DiskStore::write(libraryTitled("two"), file); }), "no right");
    fs::permissions(file, fs::perms(0644));
    EXPECT_EQ(contentOf(file), Codec::encode(libraryTitled("one")));
}

TEST(DiskStore, TellsAFolderItMayNotEnterFromAMissingOne) {
    const TemporaryFolder folder;
    fs::permissions(folder.path(), fs::perms(0755));
    fs::create_directory(folder / "data");
    const fs::path file = folder / "data/library.json";
    DiskStore::write(libraryTitled("one"), file);
    fs::permissions(folder / "data", fs::perms(0000));
    EXPECT_EQ(asNobody([&] { (void)DiskStore::read(file); }), "no right");
    EXPECT_EQ(asNobody([&] { DiskStore::write(libraryTitled("two"), file); }), "no right");
    fs::permissions(folder / "data", fs::perms(0755));
    EXPECT_EQ(contentOf(file), Codec::encode(libraryTitled("one")));
}

TEST(DiskStore, LeavesBothFilesAloneInAFolderItMayNotChange) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    DiskStore::write(libraryTitled("one"), file);
    DiskStore::write(libraryTitled("two"), file);
    fs::permissions(folder.path(), fs::perms(0555));
    EXPECT_EQ(asNobody([&] { DiskStore::write(libraryTitled("three"), file); }), "no right");
    EXPECT_EQ(asNobody([&] { DiskStore::write(libraryTitled("two"), file); }), "done");
    fs::permissions(folder.path(), fs::perms(0755));
    EXPECT_EQ(contentOf(file), Codec::encode(libraryTitled("two")));
    EXPECT_EQ(contentOf(DiskStore::previousOf(file)), Codec::encode(libraryTitled("one")));
    EXPECT_EQ(namesIn(folder.path()), bothFiles);
}

}  // namespace
}  // namespace vantry
