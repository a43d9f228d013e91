#include "tests/app/ExchangeFixture.h"

namespace vantry::test {
namespace {

const Text invalidBackup = "备份格式或校验不正确 / Invalid backup or checksum";
const Text missingMedia = "图片文件缺失 / Missing image file";
const Text tooLarge = "文件过大（备份上限 200 MB，单张图片 25 MB） / File exceeds size limit";

class ImportTest : public ExchangeTest {
protected:
    void SetUp() override {
        store = open();
        makeTake(*store);
        store->flush();
    }
    /// Everything that a failed import must leave alone.
    struct State {
        Library library;
        Library saved;
        std::optional<support::FileFacts> file;
        std::optional<support::FileFacts> previous;
        std::optional<Moment> savedAt;
        bool canUndo;

        friend bool operator==(const State&, const State&) = default;
    };
    [[nodiscard]] State state() const {
        return {store->library(),         store->savedLibrary(),
                support::factsOf(file()), support::factsOf(previous()),
                store->savedAt(),         store->canUndo()};
    }
    void expectRefused(const std::string& bytes, VantryError::Case reason) {
        const State before = state();
        try {
            store->mergeBackupData(bytes);
            ADD_FAILURE() << "accepted";
        } catch (const VantryError& failure) {
            EXPECT_EQ(failure.which(), reason);
        }
        EXPECT_TRUE(state() == before);
    }

    std::unique_ptr<VantryStore> store;
};

TEST_F(ImportTest, KeepsBothSidesAndBecomesOneUndo) {
    const Library before = store->library();
    const MergeReport report = store->mergeBackupData(backupOf(otherLibrary(before)));
    EXPECT_EQ(report, (MergeReport{1, 3, 1}));
    ASSERT_EQ(takesIn(*store).size(), 2U);
    EXPECT_EQ(takesIn(*store)[0]->notes, Text(""));
    EXPECT_EQ(takesIn(*store)[1]->notes, Text("另一台设备的不同内容"));
    EXPECT_TRUE(takesIn(*store)[1]->conflictKey);
    EXPECT_NE(store->project(foreignProject), nullptr);
    EXPECT_EQ(contentOf(media() / Codec::hash(picture)), picture);
    EXPECT_FALSE(store->hasUnsavedChanges());
    EXPECT_EQ(DiskStore::read(file()), store->library());
    EXPECT_EQ(store->savedAt(), clock.now());

    type(*store, "typed after the import");
    store->undo();
    EXPECT_EQ(store->project(foreignProject), nullptr);
    ASSERT_EQ(takesIn(*store).size(), 1U);
    EXPECT_EQ(takesIn(*store)[0]->notes, Text("typed after the import"));
    EXPECT_EQ(notesOnDisk(), Text("typed after the import"));
    EXPECT_TRUE(fs::exists(media() / Codec::hash(picture)));
}

TEST_F(ImportTest, StartsFromTextThatHasNotReachedTheDisk) {
    const std::string backup = backupOf(otherLibrary(store->library()));
    const std::string onDisk = contentOf(file());
    type(*store, "Unsaved local paragraph\n\n保留");
    store->mergeBackupData(backup);
    ASSERT_EQ(takesIn(*store).size(), 2U);
    EXPECT_EQ(takesIn(*store)[0]->notes, Text("Unsaved local paragraph\n\n保留"));
    EXPECT_EQ(takesIn(*store)[1]->notes, Text("另一台设备的不同内容"));
    EXPECT_FALSE(store->hasUnsavedChanges());
    EXPECT_EQ(notesOnDisk(), Text("Unsaved local paragraph\n\n保留"));
    // The generation before is the file as it stood before the import.
    EXPECT_EQ(contentOf(previous()), onDisk);
    // The save that was waiting has nothing left to do.
    EXPECT_EQ(clock.waiting(), 0U);
}

TEST_F(ImportTest, AddsNothingWhenItIsRepeated) {
    const std::string backup = backupOf(otherLibrary(store->library()));
    const std::string beforeImport = contentOf(file());
    store->mergeBackupData(backup);
    const Library merged = store->library();
    const auto current = support::factsOf(file());
    store->undo();
    store->mergeBackupData(backup);
    EXPECT_EQ(store->library(), merged);
    EXPECT_EQ(contentOf(file()), current->bytes);
    const auto facts = support::factsOf(file());
    const auto kept = support::factsOf(previous());
    EXPECT_EQ(kept->bytes, beforeImport);
    for (int i = 0; i < 10; ++i) {
        const MergeReport report = store->mergeBackupData(backup);
        EXPECT_EQ(report, (MergeReport{0, 7, 0}));
        EXPECT_EQ(store->library(), merged);
        EXPECT_EQ(support::factsOf(file()), facts);
        EXPECT_EQ(support::factsOf(previous()), kept);
    }
    // Only the first of them changed anything: one undo takes it all back.
    store->undo();
    EXPECT_EQ(store->project(foreignProject), nullptr);
}

TEST_F(ImportTest, KeepsAnEditedCopyAndBringsADeletedOneBack) {
    const std::string backup = backupOf(otherLibrary(store->library()));
    store->mergeBackupData(backup);
    const Identifier copy = takesIn(*store)[1]->id;
    store->updateTake(project, act, shot, copy, [](VantryTake& record) { record.notes = "edited"; });
    store->mergeBackupData(backup);
    ASSERT_EQ(takesIn(*store).size(), 3U);
    const Identifier revision = takesIn(*store)[2]->id;
    EXPECT_NE(revision, copy);
    EXPECT_EQ(revision, Codec::stableID(takesIn(*store)[2]->conflictKey->utf8() + ":revision:1"));
    store->updateShot(project, act, shot, [&](Shot& record) {
        std::erase_if(record.takes, [&](const auto& candidate) { return candidate->id == revision; });
    });
    store->mergeBackupData(backup);
    ASSERT_EQ(takesIn(*store).size(), 3U);
    EXPECT_EQ(takesIn(*store)[2]->id, revision);
    EXPECT_EQ(takesIn(*store)[1]->notes, Text("edited"));
}

TEST_F(ImportTest, ShowsTheMergedLibraryWhenReopened) {
    store->mergeBackupData(backupOf(otherLibrary(store->library())));
    const auto reopened = open();
    EXPECT_EQ(reopened->library(), store->library());
    EXPECT_FALSE(reopened->loadFailed());
}

TEST_F(ImportTest, ClearsAFailedSaveThatItMadeGood) {
    fs::rename(root(), outside("away"));
    put(root(), "a file in place of the folder");
    type(*store, "could not be saved");
    EXPECT_FALSE(store->flush());
    ASSERT_TRUE(store->error());
    fs::remove(root());
    fs::rename(outside("away"), root());
    store->mergeBackupData(backupOf(otherLibrary(store->savedLibrary())));
    EXPECT_FALSE(store->saveFailed());
    EXPECT_FALSE(store->error());
    EXPECT_EQ(notesOnDisk(), Text("could not be saved"));
}

TEST_F(ImportTest, RefusesWhatIsNoBackupAndChangesNothing) {
    type(*store, "unsaved");
    for (const std::string bytes : {"", "not a backup", "{}", "[]", "null"}) {
        const State before = state();
        EXPECT_THROW(store->mergeBackupData(bytes), DecodingError) << bytes;
        EXPECT_TRUE(state() == before);
    }
    std::string backup = backupOf(otherLibrary(store->library()));
    expectRefused(std::string(backup).replace(backup.find("VantryBackup"), 12, "vantryBackup"),
                  VantryError::Case::invalidBackup);
    const std::size_t key = backup.find(Codec::hash(picture) + "\":\"i");
    ASSERT_NE(key, std::string::npos);
    std::string damaged = backup;
    damaged[key + 64 + 3 + 20] = damaged[key + 64 + 3 + 20] == 'A' ? 'B' : 'A';
    expectRefused(damaged, VantryError::Case::missingMedia);
    std::string large = backup;
    large.resize(VantryBackup::largestFile + 1, ' ');
    expectRefused(large, VantryError::Case::tooLarge);
    large.pop_back();
    EXPECT_NO_THROW(store->mergeBackupData(large));
}

TEST_F(ImportTest, RefusesARecordWhoseIdentifierStandsElsewhere) {
    Library other = otherLibrary(store->library());
    other.projects.back().edit().acts[0].edit().id = take;
    other.projects.erase(other.projects.begin());
    expectRefused(backupOf(other), VantryError::Case::invalidBackup);
}

TEST_F(ImportTest, LeavesAnImageWithOtherBytesAloneAndRefuses) {
    const fs::path image = media() / Codec::hash(picture);
    put(image, "other bytes");
    expectRefused(backupOf(otherLibrary(store->library())), VantryError::Case::missingMedia);
    EXPECT_EQ(contentOf(image), "other bytes");
    put(image, picture);
    support::makeOld(image);
    const auto facts = support::factsOf(image);
    store->mergeBackupData(backupOf(otherLibrary(store->library())));
    EXPECT_EQ(support::factsOf(image), facts) << "an image that is there is not written again";
}

TEST_F(ImportTest, WritesNoImageThatTheLibraryDoesNotName) {
    const Library other = otherLibrary(store->library());
    const std::string extra = pngOf(Qt::magenta);
    store->mergeBackupData(VantryBackup::encode(VantryBackup(
        other, {{Codec::hash(picture), bytesOf(picture)}, {Codec::hash(extra), bytesOf(extra)}})));
    EXPECT_EQ(support::namesIn(media()), std::vector<std::string>{Codec::hash(picture)});
}

TEST_F(ImportTest, RefusesWhenAFileStandsInPlaceOfTheMediaFolder) {
    put(media(), "a file");
    const State before = state();
    EXPECT_THROW(store->mergeBackupData(backupOf(otherLibrary(store->library()))), std::system_error);
    EXPECT_TRUE(state() == before);
    EXPECT_EQ(contentOf(media()), "a file");
}

TEST_F(ImportTest, MergesIntoMemoryWhenAnotherProgramChangedTheFile) {
    type(*store, "mine");
    Library foreign = store->savedLibrary();
    foreign.projects[0].edit().title = "changed by another program";
    put(file(), Codec::encode(foreign));
    store->mergeBackupData(backupOf(otherLibrary(store->library())));
    EXPECT_EQ(notesOnDisk(), Text("mine"));
    // What the other program wrote is kept as the generation before.
    EXPECT_EQ(contentOf(previous()), Codec::encode(foreign));
}

TEST_F(ImportTest, RefusesWhenTheFileOnDiskWasDamaged) {
    type(*store, "mine");
    put(file(), "invalid JSON");
    const State before = state();
    EXPECT_THROW(store->mergeBackupData(backupOf(otherLibrary(store->library()))), DecodingError);
    EXPECT_TRUE(state() == before);
    EXPECT_EQ(takeIn(*store)->notes, Text("mine"));
}

TEST_F(ImportTest, IsRefusedAfterAFailedLoad) {
    const std::string backup = backupOf(otherLibrary(store->library()));
    put(file(), "invalid JSON");
    store = open();
    expectRefused(backup, VantryError::Case::invalidBackup);
    panels.answer = outside("backup.vantry");
    store->importBackup();
    store->exportBackup();
    EXPECT_EQ(panels.asked, 0);
    EXPECT_FALSE(fs::exists(media()));
    EXPECT_EQ(contentOf(file()), "invalid JSON");
}

TEST_F(ImportTest, TellsInBothLanguagesWhatItDid) {
    put(outside("backup.vantry"), backupOf(otherLibrary(store->library())));
    panels.answer = outside("backup.vantry");
    store->importBackup();
    EXPECT_EQ(panels.lastContent, FilePanels::Content::backup);
    EXPECT_EQ(store->notice(), Text("合并完成：新增 1，相同保留 3，不同版本保留 1。"));
    store->setLanguage("en");
    store->importBackup();
    EXPECT_EQ(store->notice(), Text("Merged: 0 added, 7 identical, 0 versions retained."));
    EXPECT_FALSE(store->error());
}

TEST_F(ImportTest, ReportsAFailureAndNothingForACancelledPanel) {
    store->importBackup();
    EXPECT_FALSE(store->notice());
    EXPECT_FALSE(store->error());
    panels.answer = outside("gone.vantry");
    store->importBackup();
    EXPECT_TRUE(store->error());
    EXPECT_FALSE(store->notice());
    put(outside("text.vantry"), "a text");
    panels.answer = outside("text.vantry");
    store->importBackup();
    EXPECT_TRUE(store->error());
    EXPECT_FALSE(store->notice());
}

TEST_F(ImportTest, AsksTheSizeBeforeItReads) {
    put(outside("large.vantry"), "");
    fs::resize_file(outside("large.vantry"), 5'000'000'000);
    panels.answer = outside("large.vantry");
    store->importBackup();
    EXPECT_EQ(store->error(), tooLarge);
}

TEST_F(ImportTest, MergesIntoWhatTheLibraryBecameWhileThePanelWasOpen) {
    put(outside("backup.vantry"), backupOf(otherLibrary(store->library())));
    panels.answer = outside("backup.vantry");
    panels.meanwhile = [this] { type(*store, "typed while the panel was open"); };
    store->importBackup();
    EXPECT_EQ(takesIn(*store)[0]->notes, Text("typed while the panel was open"));
    EXPECT_EQ(takesIn(*store).size(), 2U);
}

}  // namespace
}  // namespace vantry::test
