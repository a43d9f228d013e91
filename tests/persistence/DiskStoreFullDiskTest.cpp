#include <cerrno>
#include <system_error>

#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/DiskStore.h"
#include "tests/support/Environment.h"
#include "tests/support/FaultyFileOperations.h"
#include "tests/support/Files.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;
using support::TemporaryFolder;

TEST(FullDisk, LeavesTheOldFileAndIsGoneWhenThereIsRoomAgain) {
    Library library = support::smallSample(150'000);
    const std::string old = Codec::encode(library);
    library.projects[0].edit().notes = "changed";
    const std::string fresh = Codec::encode(library);
    for (const bool links : {true, false})
        for (const bool remembers : {true, false})
            for (const std::size_t room :
                 {std::size_t{0}, std::size_t{1}, std::size_t{4096}, std::size_t{65'536}, old.size() - 1,
                  old.size(), fresh.size() - 1}) {
                const TemporaryFolder folder;
                const fs::path file = folder / "library.json";
                support::putContent(file, old);
                SavedFile memory;
                (void)DiskStore::read(file, &memory);
                support::FaultyFileOperations disk;
                if (!links)
                    disk.refuseLinks();
                const auto write = [&] {
                    DiskStore::write(library, file, remembers ? &memory : nullptr, disk);
                };
                if (room < fresh.size()) {
                    const support::ScopedFileSizeLimit limit(room);
                    try {
                        write();
                        ADD_FAILURE() << "wrote more than there is room for";
                    } catch (const std::system_error& failure) {
                        EXPECT_EQ(failure.code().value(), EFBIG);
                    }
                }
                EXPECT_EQ(support::contentOf(file), old) << room;
                EXPECT_TRUE(support::temporaryNamesIn(folder.path()).empty()) << room;
                const auto previous = support::contentIfAny(DiskStore::previousOf(file));
                EXPECT_TRUE(!previous || *previous == old) << room;
                write();
                EXPECT_EQ(support::contentOf(file), fresh) << room;
                EXPECT_EQ(support::contentOf(DiskStore::previousOf(file)), old) << room;
                EXPECT_EQ(support::namesIn(folder.path()).size(), 2U) << room;
            }
}

TEST(FullDisk, OnTheFirstWriteLeavesNothingBehind) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    {
        const support::ScopedFileSizeLimit limit(10);
        EXPECT_THROW(DiskStore::write(support::completeLibrary(), file), std::system_error);
    }
    EXPECT_TRUE(fs::is_empty(folder.path()));
    EXPECT_TRUE(DiskStore::read(file) == Library{});
}

}  // namespace
}  // namespace vantry
