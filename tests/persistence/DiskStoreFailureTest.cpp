#include <cerrno>
#include <system_error>

#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/DiskStore.h"
#include "tests/support/FaultyFileOperations.h"
#include "tests/support/Files.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;
using support::FaultyFileOperations;
using support::libraryTitled;
using support::TemporaryFolder;

/// One way to come to a write that will fail somewhere.
struct Situation {
    const char* name;
    std::size_t generations;  ///< how many were saved before
    bool remembers;           ///< with the memory of the last write
    bool links;               ///< on a file system with hard links
    FaultyFileOperations::Extent extent;
};

void PrintTo(const Situation& situation, std::ostream* out) {
    *out << situation.name;
}

constexpr auto once = FaultyFileOperations::Extent::once;
constexpr auto onwards = FaultyFileOperations::Extent::onwards;

const Situation situations[] = {
    {"first_write", 0, false, true, once},
    {"second_write", 1, false, true, once},
    {"third_write", 2, false, true, once},
    {"third_write_with_memory", 2, true, true, once},
    {"third_write_without_links", 2, false, false, once},
    {"third_write_with_memory_without_links", 2, true, false, once},
    {"second_write_without_links", 1, false, false, once},
    {"first_write_disk_gone", 0, false, true, onwards},
    {"third_write_disk_gone", 2, false, true, onwards},
    {"third_write_disk_gone_with_memory", 2, true, true, onwards},
    {"third_write_disk_gone_without_links", 2, false, false, onwards},
};

Library generation(std::size_t number) {
    // Long enough that a write that is cut in half is cut in half.
    return libraryTitled(std::string(5000, 'x') + std::to_string(number));
}

class FailingWrite : public ::testing::TestWithParam<Situation> {
protected:
    void SetUp() override { prepare(); }

    /// A fresh folder with the generations of the situation.
    void prepare() {
        fs::remove_all(folder / "data");
        memory = {};
        if (GetParam().generations > 0)
            fs::create_directory(folder / "data");
        for (std::size_t i = 0; i < GetParam().generations; ++i)
            write(generation(i));
        before = support::contentIfAny(file);
        previousBefore = support::contentIfAny(previous);
    }
    SavedFile* known() { return GetParam().remembers ? &memory : nullptr; }

    void write(const Library& library) {
        FaultyFileOperations disk;
        disk.skipSyncs();
        DiskStore::write(library, file, known(), disk);
    }
    /// The file system of the situation, which fails at that step.
    void spoil(FaultyFileOperations& disk, std::size_t step) {
        disk.skipSyncs();
        if (!GetParam().links)
            disk.refuseLinks();
        disk.failAt(step, GetParam().extent);
    }

    /// Whether the write was stopped.
    bool fails(const Library& library, FaultyFileOperations& disk) {
        try {
            DiskStore::write(library, file, known(), disk);
        } catch (const std::system_error& failure) {
            EXPECT_EQ(failure.code().value(), EIO);
            return true;
        }
        return false;
    }

    void expectWholeGenerations(const Library& fresh, bool written, const std::string& place) {
        const auto now = support::contentIfAny(file);
        if (written)
            EXPECT_EQ(now, Codec::encode(fresh)) << place;
        else
            EXPECT_EQ(now, before) << place;
        const auto previousNow = support::contentIfAny(previous);
        EXPECT_TRUE(previousNow == previousBefore || previousNow == before) << place;
        if (written) {
            EXPECT_EQ(previousNow, before) << place;
        }
    }

    void expectThreeMoreSavesToCleanUp(const std::string& place) {
        for (std::size_t more = 100; more < 103; ++more) {
            const auto replaced = support::contentIfAny(file);
            write(generation(more));
            EXPECT_EQ(support::contentOf(file), Codec::encode(generation(more))) << place;
            EXPECT_EQ(support::contentIfAny(previous), replaced) << place;
        }
        EXPECT_EQ(support::namesIn(folder / "data"),
                  (std::vector<std::string>{"library.json", "library.json.previous"}))
            << place;
    }

    TemporaryFolder folder;
    fs::path file = folder / "data/library.json";
    fs::path previous = DiskStore::previousOf(file);
    SavedFile memory;
    std::optional<std::string> before;
    std::optional<std::string> previousBefore;
};

TEST_P(FailingWrite, KeepsWholeGenerationsWhicheverStepFails) {
    const Library fresh = generation(50);
    std::size_t step = 1;
    for (bool stopped = true; stopped; ++step) {
        prepare();
        FaultyFileOperations disk;
        spoil(disk, step);
        const bool failed = fails(fresh, disk);
        stopped = !disk.failedStep().empty();
        const std::string place = std::string("step ") + std::to_string(step) + " " + disk.failedStep();

        // The folder's sync alone comes when the new file has its name already.
        const bool written = support::contentIfAny(file) == Codec::encode(fresh);
        EXPECT_TRUE(failed || written) << place;
        if (failed && written) {
            EXPECT_EQ(disk.failedStep(), "syncFolder") << place;
        }
        if (stopped) {
            EXPECT_EQ(failed, disk.failedStep() != "link" || GetParam().extent == onwards) << place;
        }
        expectWholeGenerations(fresh, written, place);
        if (stopped && GetParam().extent == once && fs::exists(folder / "data")) {
            EXPECT_TRUE(support::temporaryNamesIn(folder / "data").empty()) << place;
        }

        // The user goes on: the same library once more, then others.
        write(fresh);
        EXPECT_EQ(support::contentOf(file), Codec::encode(fresh)) << place;
        EXPECT_EQ(support::contentIfAny(previous), before) << place;
        expectThreeMoreSavesToCleanUp(place);
    }
    EXPECT_GT(step, 9U);
}

TEST_P(FailingWrite, SavesWhatWasTypedAfterTheFailureAndNotWhatWasTypedBefore) {
    std::size_t step = 1;
    for (bool stopped = true; stopped; ++step) {
        prepare();
        // Edited in place, as the store does when nobody else holds the tree.
        Library library = generation(50);
        FaultyFileOperations disk;
        spoil(disk, step);
        (void)fails(library, disk);
        stopped = !disk.failedStep().empty();
        library.projects[0].edit().notes = "typed after the failure";
        write(library);
        EXPECT_EQ(support::contentOf(file), Codec::encode(library)) << "step " << step;
        library.projects[0].edit().notes = "typed after that";
        write(library);
        EXPECT_EQ(support::contentOf(file), Codec::encode(library)) << "step " << step;
    }
}

TEST_P(FailingWrite, NeverLosesTheOldFileWhenItFailsAgainAndAgain) {
    for (std::size_t attempt = 1; attempt < 40; ++attempt) {
        FaultyFileOperations disk;
        spoil(disk, attempt);
        const auto stood = support::contentIfAny(file);
        const Library fresh = generation(200 + attempt);
        const bool failed = fails(fresh, disk);
        const auto now = support::contentIfAny(file);
        EXPECT_TRUE(now == stood || now == Codec::encode(fresh)) << attempt;
        if (!failed) {
            EXPECT_EQ(now, Codec::encode(fresh)) << attempt;
        }
        if (now) {
            EXPECT_NO_THROW((void)DiskStore::read(file)) << attempt;
        }
        if (const auto kept = support::contentIfAny(previous)) {
            EXPECT_NO_THROW((void)Codec::decode<Library>(*kept)) << attempt;
        }
    }
    write(generation(99));
    expectThreeMoreSavesToCleanUp("at the end");
}

INSTANTIATE_TEST_SUITE_P(At, FailingWrite, ::testing::ValuesIn(situations),
                         [](const auto& info) { return info.param.name; });

TEST(FailingSync, OfTheFolderIsMadeUpForByTheNextSaveThoughItFindsEqualContent) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    SavedFile memory;
    DiskStore::write(generation(1), file, &memory);
    FaultyFileOperations failing;
    failing.beforeStep = [](std::size_t, const std::string& step) {
        if (step == "syncFolder")
            throw std::system_error(EIO, std::generic_category(), "folder");
    };
    EXPECT_THROW(DiskStore::write(generation(2), file, &memory, failing), std::system_error);
    EXPECT_EQ(support::contentOf(file), Codec::encode(generation(2)));

    const auto syncsOfASave = [&] {
        FaultyFileOperations disk;
        DiskStore::write(generation(2), file, &memory, disk);
        const auto& steps = disk.stepNames();
        EXPECT_EQ(std::count(steps.begin(), steps.end(), "rename"), 0);
        return std::count(steps.begin(), steps.end(), "syncFolder");
    };
    EXPECT_GT(syncsOfASave(), 0);
    EXPECT_EQ(syncsOfASave(), 0);
    EXPECT_EQ(support::contentOf(DiskStore::previousOf(file)), Codec::encode(generation(1)));
}

TEST(FailingRead, IsTheSystemsFailureAndChangesNothing) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    DiskStore::write(support::completeLibrary(), file);
    const auto before = support::factsOf(file);
    FaultyFileOperations counting;
    (void)DiskStore::read(file, nullptr, counting);
    for (std::size_t step = 1; step <= counting.steps(); ++step) {
        FaultyFileOperations disk;
        disk.failAt(step);
        SavedFile memory;
        EXPECT_THROW((void)DiskStore::read(file, &memory, disk), std::system_error) << step;
        EXPECT_TRUE(memory.path.empty()) << step;
        EXPECT_EQ(support::factsOf(file), before) << step;
    }
    EXPECT_EQ(support::namesIn(folder.path()), std::vector<std::string>{"library.json"});
}

}  // namespace
}  // namespace vantry
