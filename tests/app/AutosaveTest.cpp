#include "tests/app/StoreFixture.h"

namespace vantry::test {
namespace {

using AutosaveTest = StoreTest;

TEST_F(AutosaveTest, AnEditIsOnDiskAfterTheDelayAndNotBefore) {
    const auto store = open();
    makeTake(*store);
    store->flush();
    type(*store, "走位准确");
    EXPECT_TRUE(store->hasUnsavedChanges());
    clock.advance(349);
    EXPECT_EQ(notesOnDisk(), Text(""));
    clock.advance(1);
    EXPECT_EQ(notesOnDisk(), Text("走位准确"));
    EXPECT_FALSE(store->hasUnsavedChanges());
    EXPECT_EQ(store->savedAt(), clock.now());
}

TEST_F(AutosaveTest, EachFurtherEditPushesTheSaveBack) {
    const auto store = open();
    makeTake(*store);
    store->flush();
    const int before = disk.writes;
    for (int i = 0; i < 20; ++i) {
        type(*store, Text("note " + std::to_string(i)));
        clock.advance(200);
    }
    EXPECT_EQ(disk.writes, before);
    clock.advance(149);
    EXPECT_EQ(disk.writes, before);
    clock.advance(1);
    EXPECT_EQ(notesOnDisk(), Text("note 19"));
}

TEST_F(AutosaveTest, AFlushWithinTheDelayWritesOnce) {
    const auto store = open();
    makeTake(*store);
    store->flush();
    type(*store, "once");
    const int before = disk.writes;
    EXPECT_TRUE(store->flush());
    const int after = disk.writes;
    EXPECT_GT(after, before);
    const auto saved = store->savedAt();
    clock.advance(5000);
    EXPECT_EQ(disk.writes, after);
    EXPECT_EQ(store->savedAt(), saved);
    EXPECT_EQ(clock.waiting(), 0U);
}

TEST_F(AutosaveTest, AHundredCleanFlushesTouchNothing) {
    const auto store = open();
    makeTake(*store);
    store->flush();
    type(*store, "second generation");
    store->flush();
    const auto savedAt = store->savedAt();
    const auto fileTime = fs::last_write_time(file());
    const auto previousTime = fs::last_write_time(previous());
    const int writes = disk.writes;
    clock.advance(10000);
    for (int i = 0; i < 100; ++i)
        EXPECT_TRUE(store->flush());
    EXPECT_EQ(disk.writes, writes);
    EXPECT_EQ(store->savedAt(), savedAt);
    EXPECT_EQ(fs::last_write_time(file()), fileTime);
    EXPECT_EQ(fs::last_write_time(previous()), previousTime);
}

TEST_F(AutosaveTest, TypingTheOldTextAgainMakesTheLibraryClean) {
    const auto store = open();
    makeTake(*store);
    type(*store, "café");
    store->flush();
    const int writes = disk.writes;
    type(*store, "cafe");
    EXPECT_TRUE(store->hasUnsavedChanges());
    type(*store, "café");
    EXPECT_FALSE(store->hasUnsavedChanges());
    clock.advance(1000);
    EXPECT_EQ(disk.writes, writes);
}

TEST_F(AutosaveTest, TheOtherSpellingOfTheSameTextIsNoChange) {
    const auto store = open();
    makeTake(*store);
    type(*store, "caf\u00e9");
    store->flush();
    const int writes = disk.writes;
    int notifications = 0;
    QObject::connect(store.get(), &VantryStore::changed, [&] { ++notifications; });
    type(*store, "cafe\u0301");
    EXPECT_FALSE(store->hasUnsavedChanges());
    EXPECT_EQ(notifications, 0);
    clock.advance(1000);
    EXPECT_EQ(disk.writes, writes);
}

TEST_F(AutosaveTest, ADeletedFileComesBackWithoutAPreviousGenerationMadeFromNothing) {
    const auto store = open();
    makeTake(*store);
    store->flush();
    fs::remove(previous());
    const std::string bytes = contentOf(file());
    fs::remove(file());
    EXPECT_TRUE(store->flush());
    EXPECT_EQ(contentOf(file()), bytes);
    EXPECT_FALSE(fs::exists(previous()));
}

TEST_F(AutosaveTest, AFailedSaveKeepsEverythingAndTheNextFlushRetries) {
    put(root(), "a file where the folder should be");
    const auto store = open();
    makeTake(*store);
    type(*store, "kept in memory");
    EXPECT_FALSE(store->flush());
    EXPECT_TRUE(store->saveFailed());
    ASSERT_TRUE(store->error());
    EXPECT_EQ(store->take(project, act, shot, take)->notes, Text("kept in memory"));
    EXPECT_FALSE(store->savedAt());
    EXPECT_EQ(contentOf(root()), "a file where the folder should be");

    fs::remove(root());
    EXPECT_TRUE(store->flush());
    EXPECT_FALSE(store->saveFailed());
    EXPECT_FALSE(store->error());
    EXPECT_EQ(notesOnDisk(), Text("kept in memory"));
}

TEST_F(AutosaveTest, ASaveThatRecoversNeedsNoFurtherEdit) {
    const auto store = open();
    makeTake(*store);
    store->flush();
    const std::string good = contentOf(file());
    put(file(), "invalid JSON");
    type(*store, "first");
    EXPECT_FALSE(store->flush());
    type(*store, "");
    EXPECT_FALSE(store->hasUnsavedChanges());
    EXPECT_FALSE(store->flush()) << "equal again, but the last attempt failed";
    put(file(), good);
    EXPECT_TRUE(store->flush());
    EXPECT_FALSE(store->saveFailed());
}

TEST_F(AutosaveTest, EveryKeystrokeAfterAFailedSaveIsInTheNextFile) {
    const auto store = open();
    makeTake(*store);
    store->flush();
    const std::string good = contentOf(file());
    put(file(), "invalid JSON");
    Text typed("");
    for (int i = 0; i < 30; ++i) {
        typed = Text(typed.utf8() + "字");
        type(*store, typed);
        if (i % 10 == 9) {
            clock.advance(350);
            EXPECT_TRUE(store->saveFailed());
            EXPECT_EQ(contentOf(file()), "invalid JSON");
        }
    }
    put(file(), good);
    type(*store, Text(typed.utf8() + "完"));
    clock.advance(350);
    EXPECT_EQ(notesOnDisk(), Text(typed.utf8() + "完"));
}

TEST_F(AutosaveTest, AnErrorOfAnotherOriginOutlivesASuccessfulSave) {
    put(root(), "in the way");
    const auto store = open();
    makeTake(*store);
    EXPECT_FALSE(store->flush());
    store->setError(Text("another failure"));
    fs::remove(root());
    EXPECT_TRUE(store->flush());
    EXPECT_EQ(store->error(), Text("another failure"));
}

TEST_F(AutosaveTest, AClearedErrorComesBackWithTheNextFailure) {
    put(root(), "in the way");
    const auto store = open();
    makeTake(*store);
    EXPECT_FALSE(store->flush());
    const auto text = store->error();
    store->setError(std::nullopt);
    EXPECT_TRUE(store->saveFailed());
    EXPECT_FALSE(store->flush());
    EXPECT_EQ(store->error(), text);
}

TEST_F(AutosaveTest, AStoreThatDiesWithAPendingSaveDoesNotCallBack) {
    auto store = open();
    makeTake(*store);
    type(*store, "pending");
    EXPECT_EQ(clock.waiting(), 1U);
    store.reset();
    EXPECT_EQ(clock.waiting(), 0U);
    clock.advance(1000);
}

}  // namespace
}  // namespace vantry::test
