#include <QColor>

#include "VantryCore/persistence/VantryBackup.h"
#include "tests/app/ImageFiles.h"
#include "tests/app/StoreFixture.h"
#include "tests/support/FaultyFileOperations.h"
#include "tests/support/Files.h"

namespace vantry::test {
namespace {

const Text notAnImage = "备份格式或校验不正确 / Invalid backup or checksum";
const Text tooLarge = "文件过大（备份上限 200 MB，单张图片 25 MB） / File exceeds size limit";

class ImportImageTest : public StoreTest {
protected:
    void SetUp() override {
        store = open();
        makeTake(*store);
        store->flush();
    }
    [[nodiscard]] fs::path media() const { return root() / "Media"; }
    /// Puts a file where the person will choose it.
    void offer(const std::string& name, const std::string& bytes) {
        const fs::path chosen = fs::path(folder.path().toStdString()) / "Desktop" / name;
        put(chosen, bytes);
        panels.answer = chosen;
    }
    [[nodiscard]] std::optional<Text> imageKey() const { return store->shot(project, act, shot)->imageKey; }
    void import() { store->importImage(project, act, shot); }

    std::unique_ptr<VantryStore> store;
};

TEST_F(ImportImageTest, KeepsTheBytesUnderTheirHashAndShowsThem) {
    const std::string bytes = pngOf(Qt::darkGreen);
    offer("frame.png", bytes);
    import();
    EXPECT_EQ(panels.lastContent, FilePanels::Content::image);
    ASSERT_EQ(imageKey(), Text(Codec::hash(bytes)));
    EXPECT_EQ(contentOf(media() / Codec::hash(bytes)), bytes);
    EXPECT_FALSE(store->error());
    const QImage image = store->image(imageKey(), {});
    EXPECT_EQ(image.size(), QSize(12, 8));
    EXPECT_EQ(image.pixelColor(3, 3), QColor(Qt::darkGreen));
    clock.advance(350);
    EXPECT_EQ(DiskStore::read(file()).projects[0]->acts[0]->shots[0]->imageKey, imageKey());
}

TEST_F(ImportImageTest, AsksTheBytesAndNotTheNameWhatTheFileIs) {
    offer("notes.txt", pngOf(Qt::red));
    import();
    EXPECT_TRUE(imageKey());
    store->undo();
    offer("text.png", "a text");
    import();
    EXPECT_FALSE(imageKey());
    EXPECT_EQ(store->error(), notAnImage);
}

TEST_F(ImportImageTest, TakesHeicAsItIs) {
    const std::string bytes = support::contentOf(fs::path(TEST_IMAGES) / "gradient.heic");
    offer("IMG_0001.HEIC", bytes);
    import();
    ASSERT_EQ(imageKey(), Text(Codec::hash(bytes)));
    EXPECT_EQ(contentOf(media() / Codec::hash(bytes)), bytes);
    EXPECT_EQ(store->image(imageKey(), QSize(32, 32)).size(), QSize(32, 24));
}

TEST_F(ImportImageTest, IsOneStructuralChangeAndLeavesTheDrawing) {
    store->updateShot(project, act, shot, [](Shot& record) {
        record.strokes.push_back(Stroke{Identifier::random(), {{0.25, 0.5}}});
    });
    offer("frame.png", pngOf(Qt::blue));
    import();
    type(*store, "typed after the import");
    EXPECT_EQ(store->shot(project, act, shot)->strokes.size(), 1U);
    store->undo();
    EXPECT_FALSE(imageKey());
    EXPECT_EQ(store->shot(project, act, shot)->strokes.size(), 1U);
    EXPECT_EQ(takeIn(*store)->notes, Text("typed after the import"));
    // The file stays: another undo may need it, and it does no harm.
    EXPECT_EQ(support::namesIn(media()).size(), 1U);
}

TEST_F(ImportImageTest, KeepsOneFileForOneImageInTwoShots) {
    const Identifier second = store->addShot(project, act);
    offer("frame.png", pngOf(Qt::yellow));
    import();
    store->importImage(project, act, second);
    EXPECT_EQ(imageKey(), store->shot(project, act, second)->imageKey);
    EXPECT_EQ(support::namesIn(media()).size(), 1U);
}

TEST_F(ImportImageTest, AcceptsExactly25MillionBytesAndNotOneMore) {
    // What follows the end of a PNG belongs to no image.
    std::string bytes = pngOf(Qt::cyan);
    bytes.resize(VantryBackup::largestImage, '\0');
    offer("large.png", bytes);
    import();
    EXPECT_EQ(imageKey(), Text(Codec::hash(bytes)));
    EXPECT_FALSE(store->error());
    store->undo();
    bytes.push_back('\0');
    offer("larger.png", bytes);
    import();
    EXPECT_FALSE(imageKey());
    EXPECT_EQ(store->error(), tooLarge);
}

TEST_F(ImportImageTest, TakesAFileThatWasChosenInAnotherWayByTheSameRules) {
    const std::string bytes = pngOf(Qt::darkGreen);
    offer("分镜.png", bytes);
    const std::string path = panels.answer->string();
    store->importImageFile(project, act, shot, path);
    EXPECT_EQ(panels.asked, 0);
    EXPECT_EQ(imageKey(), Text(Codec::hash(bytes)));
    offer("text.png", "a text");
    store->importImageFile(project, act, shot, panels.answer->string());
    EXPECT_EQ(store->error(), notAnImage);
    EXPECT_EQ(imageKey(), Text(Codec::hash(bytes)));
    store->undo();
    EXPECT_FALSE(imageKey()) << "one structural change";
    put(file(), "invalid JSON");
    store = open();
    store->importImageFile(project, act, shot, path);
    EXPECT_EQ(contentOf(file()), "invalid JSON");
}

TEST_F(ImportImageTest, DoesNothingWhenThePanelIsCancelled) {
    import();
    EXPECT_EQ(panels.asked, 1);
    EXPECT_FALSE(store->error());
    EXPECT_FALSE(fs::exists(media()));
}

TEST_F(ImportImageTest, LooksTheShotUpAgainAfterThePanel) {
    offer("frame.png", pngOf(Qt::red));
    panels.meanwhile = [this] { store->updateAct(project, act, [](Act& record) { record.shots.clear(); }); };
    import();
    EXPECT_FALSE(store->error());
    EXPECT_TRUE(store->act(project, act)->shots.empty());
}

TEST_F(ImportImageTest, ReportsAFileThatIsGone) {
    panels.answer = fs::path(folder.path().toStdString()) / "gone.png";
    import();
    EXPECT_TRUE(store->error());
    EXPECT_FALSE(imageKey());
}

TEST_F(ImportImageTest, ChangesNothingWhenAFileStandsInPlaceOfTheFolder) {
    put(media(), "a file");
    offer("frame.png", pngOf(Qt::red));
    const bool couldUndo = store->canUndo();
    import();
    EXPECT_TRUE(store->error());
    EXPECT_FALSE(imageKey());
    EXPECT_EQ(store->canUndo(), couldUndo);
    EXPECT_EQ(contentOf(media()), "a file");
}

TEST_F(ImportImageTest, LeavesNoPartOfAFileWhenTheDiskFails) {
    const std::string bytes = pngOf(Qt::red);
    offer("frame.png", bytes);
    std::size_t failures = 0;
    for (std::size_t step = 1;; ++step) {
        support::FaultyFileOperations faulty;
        faults = &faulty;
        store = open();
        fs::remove_all(media());
        faulty.failAt(faulty.steps() + step);
        import();
        if (faulty.failedStep().empty())
            break;
        ++failures;
        // Waiting for the folder's names is the last step: by then the file is whole.
        if (faulty.failedStep() != "syncFolder" && faulty.failedStep() != "close" &&
            faulty.failedStep() != "remove") {
            EXPECT_TRUE(store->error()) << faulty.failedStep();
            EXPECT_FALSE(imageKey()) << faulty.failedStep();
        }
        if (fs::exists(media())) {
            for (const auto& name : support::namesIn(media()))
                EXPECT_EQ(contentOf(media() / name), bytes) << faulty.failedStep();
        }
    }
    EXPECT_GT(failures, 6U);
}

TEST_F(ImportImageTest, ShowsNothingForNoKeyAMissingFileOrAFileThatIsNoImage) {
    EXPECT_TRUE(store->image({}, QSize(10, 10)).isNull());
    EXPECT_TRUE(store->image(Text(std::string(64, 'a')), QSize(10, 10)).isNull());
    put(media() / std::string(64, 'b'), "no image");
    EXPECT_TRUE(store->image(Text(std::string(64, 'b')), QSize(10, 10)).isNull());
    fs::create_directories(media() / std::string(64, 'c'));
    EXPECT_TRUE(store->image(Text(std::string(64, 'c')), QSize(10, 10)).isNull());
    EXPECT_FALSE(store->error());
}

TEST_F(ImportImageTest, NoticesThatAFileIsGoneOrWasReplacedAlthoughItWasShown) {
    offer("frame.png", pngOf(Qt::red));
    import();
    const auto key = imageKey();
    const fs::path kept = media() / key->utf8();
    EXPECT_EQ(store->image(key, {}).pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(store->image(key, {}).pixelColor(0, 0), QColor(Qt::red));
    const fs::path other = media() / "other";
    put(other, pngOf(Qt::blue));
    fs::rename(other, kept);
    EXPECT_EQ(store->image(key, {}).pixelColor(0, 0), QColor(Qt::blue));
    fs::remove(kept);
    EXPECT_TRUE(store->image(key, {}).isNull());
    import();
    EXPECT_EQ(store->image(key, {}).pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(ImportImageTest, IsRefusedAfterAFailedLoad) {
    put(file(), "invalid JSON");
    store = open();
    offer("frame.png", pngOf(Qt::red));
    import();
    EXPECT_EQ(panels.asked, 0);
    EXPECT_FALSE(fs::exists(media()));
}

}  // namespace
}  // namespace vantry::test
