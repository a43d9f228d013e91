#include <cstdlib>
#include <ctime>

#include "VantryCore/persistence/AtomicFile.h"
#include "tests/app/ExchangeFixture.h"
#include "tests/support/FaultyFileOperations.h"

namespace vantry::test {
namespace {

const Text tooLarge = "文件过大（备份上限 200 MB，单张图片 25 MB） / File exceeds size limit";
const Text missingMedia = "图片文件缺失 / Missing image file";

class ExportTest : public ExchangeTest {
protected:
    void SetUp() override {
        store = open();
        makeTake(*store);
        panels.answer = outside("backup.vantry");
    }
    /// Gives the shot an image of so many bytes, which need not be a picture.
    void giveImage(std::size_t size) {
        const std::string bytes(size, 'x');
        put(media() / Codec::hash(bytes), bytes);
        store->updateShot(project, act, shot,
                          [&](Shot& record) { record.imageKey = Text(Codec::hash(bytes)); });
    }

    std::unique_ptr<VantryStore> store;
};

TEST_F(ExportTest, WritesALibraryWithItsImagesThatCanBeImportedElsewhere) {
    put(outside("frame.png"), picture);
    panels.answer = outside("frame.png");
    store->importImage(project, act, shot);
    type(*store, "not yet saved");
    panels.answer = outside("backup.vantry");
    store->exportBackup();
    EXPECT_EQ(store->notice(), Text("备份已导出，包含分镜图片。"));
    EXPECT_FALSE(store->error());
    EXPECT_FALSE(store->hasUnsavedChanges()) << "what is exported is what is saved";

    const VantryBackup backup = VantryBackup::decode(contentOf(outside("backup.vantry")));
    EXPECT_EQ(backup.library, store->library());
    EXPECT_EQ(backup.media, (Media{{Codec::hash(picture), bytesOf(picture)}}));

    VantryStore elsewhere(outside("Elsewhere"));
    EXPECT_EQ(elsewhere.mergeBackupData(contentOf(outside("backup.vantry"))).added, 1);
    EXPECT_EQ(elsewhere.library(), store->library());
    EXPECT_EQ(elsewhere.image(Text(Codec::hash(picture)), {}).size(), QSize(12, 8));
}

TEST_F(ExportTest, TellsInTheLanguageOfTheInterface) {
    store->setLanguage("en");
    store->exportBackup();
    EXPECT_EQ(store->notice(), Text("Backup exported, including storyboard images."));
}

TEST_F(ExportTest, SuggestsTheDayAsTheMachineShowsIt) {
    // 2026-11-15 at 23:30 in Shanghai is the 15th there, though the 15th is not yet over in UTC either; half
    // an hour later it is the 16th in Shanghai alone.
    const char* const before = std::getenv("TZ");
    const std::string kept = before != nullptr ? before : "";
    ::setenv("TZ", "Asia/Shanghai", 1);
    const double evening = 1794756600 - unixSecondsOfReferenceDate;
    clock.advance(static_cast<long long>((evening - clock.now().seconds) * 1000));
    store->exportBackup();
    EXPECT_EQ(panels.lastName, "Vantry-2026-11-15.vantry");
    clock.advance(30LL * 60 * 1000);
    store->exportBackup();
    EXPECT_EQ(panels.lastName, "Vantry-2026-11-16.vantry");
    if (before != nullptr)
        ::setenv("TZ", kept.c_str(), 1);
    else
        ::unsetenv("TZ");
}

TEST_F(ExportTest, SavesButWritesNothingElseWhenThePanelIsCancelled) {
    panels.answer = std::nullopt;
    type(*store, "unsaved");
    store->exportBackup();
    EXPECT_EQ(notesOnDisk(), Text("unsaved"));
    EXPECT_FALSE(store->notice());
    EXPECT_FALSE(store->error());
}

TEST_F(ExportTest, ComesFromMemoryWhenTheSaveFails) {
    store->flush();
    put(file(), "damaged by another program");
    type(*store, "only in memory");
    store->exportBackup();
    EXPECT_TRUE(store->saveFailed());
    EXPECT_TRUE(store->notice());
    EXPECT_EQ(VantryBackup::decode(contentOf(outside("backup.vantry"))).library, store->library());
}

TEST_F(ExportTest, FailsWhenAnImageIsGone) {
    giveImage(10);
    fs::remove_all(media());
    store->exportBackup();
    EXPECT_TRUE(store->error());
    EXPECT_FALSE(store->notice());
    EXPECT_FALSE(fs::exists(outside("backup.vantry")));
}

TEST_F(ExportTest, WritesNoFileThatCouldNotComeBack) {
    giveImage(10);
    put(media() / Codec::hash(std::string(10, 'x')), "other bytes");
    put(outside("backup.vantry"), "the backup of last week");
    store->exportBackup();
    EXPECT_EQ(store->error(), missingMedia);
    EXPECT_EQ(contentOf(outside("backup.vantry")), "the backup of last week");
}

TEST_F(ExportTest, TakesImagesOfExactly100MillionBytesAndNotOneMore) {
    giveImage(100'000'000);
    store->exportBackup();
    EXPECT_FALSE(store->error());
    EXPECT_TRUE(fs::exists(outside("backup.vantry")));
    fs::remove(outside("backup.vantry"));
    giveImage(100'000'001);
    store->exportBackup();
    EXPECT_EQ(store->error(), tooLarge);
    EXPECT_FALSE(fs::exists(outside("backup.vantry")));
}

TEST_F(ExportTest, FailsWhenTheFileWouldBeTooLarge) {
    // Images within their limit, and a library of a hundred million bytes beside them.
    giveImage(80'000'000);
    std::string notes;
    notes.assign(100'000'000, 'n');
    store->updateTake(project, act, shot, take, [&](VantryTake& record) { record.notes = Text(notes); });
    store->exportBackup();
    EXPECT_EQ(store->error(), tooLarge);
    EXPECT_FALSE(fs::exists(outside("backup.vantry")));
}

TEST_F(ExportTest, NeverReplacesTheLibraryItself) {
    giveImage(10);
    store->flush();
    type(*store, "second generation");
    store->flush();
    const Text refused =
        "资料库本身存放在这里，请另选位置 / The library itself is kept here. Choose another place";
    const fs::path image = media() / Codec::hash(std::string(10, 'x'));
    fs::create_symlink(file(), outside("link.vantry"));
    fs::create_directory_symlink(root(), outside("linked"));
    for (const auto& place :
         {file(), previous(), image, media() / "new.vantry", media(), outside("link.vantry"),
          outside("linked") / "library.json", root() / "." / "library.json"}) {
        const auto library = support::factsOf(file());
        const auto generation = support::factsOf(previous());
        panels.answer = place;
        store->exportBackup();
        EXPECT_EQ(store->error(), refused) << place;
        EXPECT_FALSE(store->notice()) << place;
        EXPECT_EQ(support::factsOf(file()), library) << place;
        EXPECT_EQ(support::factsOf(previous()), generation) << place;
        EXPECT_EQ(contentOf(image), std::string(10, 'x')) << place;
        store->setError(std::nullopt);
    }
    // Another file in the same folder is nobody's business.
    panels.answer = root() / "backup.vantry";
    store->exportBackup();
    EXPECT_FALSE(store->error());
    EXPECT_TRUE(fs::exists(root() / "backup.vantry"));
}

TEST_F(ExportTest, RemovesWhatAnExportThatDiedLeftBesideItsFile) {
    const fs::path left = AtomicFile::temporaryName(outside("backup.vantry"));
    put(left, "half a backup");
    const fs::path other = AtomicFile::temporaryName(outside("other.vantry"));
    put(other, "somebody else's");
    store->exportBackup();
    EXPECT_FALSE(fs::exists(left));
    EXPECT_TRUE(fs::exists(other));
}

TEST_F(ExportTest, NamesTheFileThatThePersonChoseWhenItFails) {
    panels.answer = outside("gone") / "backup.vantry";
    store->exportBackup();
    ASSERT_TRUE(store->error());
    EXPECT_NE(store->error()->utf8().find("gone/backup.vantry"), std::string::npos) << store->error()->utf8();
}

TEST_F(ExportTest, LeavesNoPartOfAFileWhenTheDiskFails) {
    giveImage(1000);
    store->flush();
    put(outside("backup.vantry"), "the backup of last week");
    const std::size_t names = support::namesIn(outside("")).size();
    std::set<std::string> failures;
    for (std::size_t step = 1;; ++step) {
        support::FaultyFileOperations faulty;
        faults = &faulty;
        store = open();
        panels.meanwhile = [&] { faulty.failAt(faulty.steps() + step); };
        store->exportBackup();
        if (faulty.failedStep().empty())
            break;
        failures.insert(faulty.failedStep());
        const std::string written = contentOf(outside("backup.vantry"));
        if (written != "the backup of last week") {
            EXPECT_NO_THROW((void)VantryBackup::decode(written)) << faulty.failedStep();
        }
        EXPECT_LE(support::namesIn(outside("")).size(), names) << faulty.failedStep();
        store->setError(std::nullopt);
        store->setNotice(std::nullopt);
    }
    EXPECT_TRUE(failures.contains("write"));
    EXPECT_TRUE(failures.contains("rename"));
}

}  // namespace
}  // namespace vantry::test
