#include <set>

#include "tests/app/ExchangeFixture.h"
#include "tests/support/FaultyFileOperations.h"

namespace vantry::test {
namespace {

using support::FaultyFileOperations;

class ImportFaultTest : public ExchangeTest {
protected:
    /// A data folder with a saved library, and the backup to bring in.
    void SetUp() override {
        const auto store = open();
        makeTake(*store);
        type(*store, "saved");
        store->flush();
        start = store->library();
        backup = backupOf(otherLibrary(start));
        fs::copy(root(), outside("Start"), fs::copy_options::recursive);
    }
    void startAnew() {
        fs::remove_all(root());
        fs::copy(outside("Start"), root(), fs::copy_options::recursive);
    }

    Library start;
    std::string backup;
};

TEST_F(ImportFaultTest, ChangesMemoryOnlyWhenTheDiskHasIt) {
    for (const auto extent : {FaultyFileOperations::Extent::once, FaultyFileOperations::Extent::onwards}) {
        std::set<std::string> failures;
        for (std::size_t step = 1;; ++step) {
            startAnew();
            FaultyFileOperations faulty;
            faults = &faulty;
            const auto store = open();
            type(*store, "unsaved");
            const Library before = store->library();
            faulty.failAt(faulty.steps() + step, extent);
            bool succeeded = true;
            try {
                store->mergeBackupData(backup);
            } catch (const std::exception&) {
                succeeded = false;
            }
            const std::string failed = faulty.failedStep();
            if (failed.empty()) {
                EXPECT_TRUE(succeeded);
                break;
            }
            failures.insert(failed);
            const Library onDisk = DiskStore::read(file());
            if (succeeded) {
                EXPECT_EQ(onDisk, store->library()) << failed;
                EXPECT_FALSE(store->hasUnsavedChanges()) << failed;
            } else {
                EXPECT_EQ(store->library(), before) << failed;
                EXPECT_EQ(store->savedLibrary(), start) << failed;
            }
            // The disk comes back: nothing that was typed is lost, and the import can be repeated.
            faulty.failAt(0);
            store->mergeBackupData(backup);
            EXPECT_EQ(takesIn(*store)[0]->notes, Text("unsaved")) << failed;
            EXPECT_EQ(takesIn(*store).size(), 2U) << failed;
            EXPECT_EQ(DiskStore::read(file()), store->library()) << failed;
            EXPECT_EQ(contentOf(media() / Codec::hash(picture)), picture) << failed;
            EXPECT_EQ(support::namesIn(media()).size(), 1U) << failed;
        }
        for (const char* step : {"createFolders", "createForWriting", "write", "sync", "rename", "read"})
            EXPECT_TRUE(failures.contains(step)) << step;
    }
}

TEST_F(ImportFaultTest, KeepsTypingSavedAfterAnImportThatFailed) {
    FaultyFileOperations faulty;
    faults = &faulty;
    const auto store = open();
    type(*store, "waits for its save");
    faulty.failAt(faulty.steps() + 1, FaultyFileOperations::Extent::onwards);
    EXPECT_THROW(store->mergeBackupData(backup), std::system_error);
    EXPECT_EQ(clock.waiting(), 1U) << "the save that was waiting still is";
    faulty.failAt(0);
    clock.advance(350);
    EXPECT_EQ(notesOnDisk(), Text("waits for its save"));
}

}  // namespace
}  // namespace vantry::test
