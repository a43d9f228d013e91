#include "tests/app/StoreFixture.h"
#include "tests/support/FaultyFileOperations.h"

namespace vantry::test {
namespace {

class StructuralUndoTest : public StoreTest {
protected:
    /// What the disk holds and what memory holds are the same, and saved.
    static void expectSaved(const VantryStore& store) {
        EXPECT_FALSE(store.hasUnsavedChanges());
        EXPECT_EQ(DiskStore::read(store.libraryFile()), store.library());
    }
    void removeShot(VantryStore& store) {
        store.markCheckpoint();
        store.updateAct(project, act, [this](Act& record) {
            std::erase_if(record.shots, [this](const auto& candidate) { return candidate->id == shot; });
        });
    }
};

TEST_F(StructuralUndoTest, TakesBackTheAddedShotAndKeepsWhatWasWrittenLater) {
    const auto store = open();
    makeTake(*store);
    const Identifier added = store->addShot(project, act);
    const Text notes = "Written after structural operation\n\nKeep this paragraph.";
    type(*store, notes);
    store->updateShot(project, act, added, [](Shot& record) { record.title = "goes with the shot"; });
    EXPECT_TRUE(store->canUndo());
    store->undo();
    EXPECT_EQ(store->shot(project, act, added), nullptr);
    ASSERT_NE(takeIn(*store), nullptr);
    EXPECT_EQ(takeIn(*store)->notes, notes);
    EXPECT_EQ(notesOnDisk(), notes);
    expectSaved(*store);
}

TEST_F(StructuralUndoTest, BringsADeletedShotBackWithItsTakesAndKeepsNotesTypedElsewhere) {
    const auto store = open();
    makeTake(*store);
    type(*store, "in the shot");
    const Identifier other = store->addShot(project, act);
    removeShot(*store);
    EXPECT_EQ(takeIn(*store), nullptr);
    store->updateShot(project, act, other, [](Shot& record) { record.description = "typed elsewhere"; });
    store->undo();
    ASSERT_NE(takeIn(*store), nullptr);
    EXPECT_EQ(takeIn(*store)->notes, Text("in the shot"));
    EXPECT_EQ(store->act(project, act)->shots.front()->id, shot);
    EXPECT_EQ(store->shot(project, act, other)->description, Text("typed elsewhere"));
    expectSaved(*store);
}

TEST_F(StructuralUndoTest, DoesNothingWithAnEmptyHistory) {
    const auto store = open();
    int notifications = 0;
    QObject::connect(store.get(), &VantryStore::changed, [&] { ++notifications; });
    EXPECT_FALSE(store->canUndo());
    store->undo();
    EXPECT_EQ(notifications, 0);
    EXPECT_FALSE(store->error());
    EXPECT_FALSE(fs::exists(file()));
}

TEST_F(StructuralUndoTest, KeepsNoEntryOfAnOperationThatChangedNothing) {
    const auto store = open();
    store->markCheckpoint();
    EXPECT_FALSE(store->canUndo());
    store->addTake(Identifier::random(), act, shot);
    EXPECT_FALSE(store->canUndo());
    store->flush();
    EXPECT_FALSE(store->canUndo());
}

TEST_F(StructuralUndoTest, FilesAPendingChangeWhenTheNextBegins) {
    const auto store = open();
    makeTake(*store);
    store->flush();
    while (store->canUndo())
        store->undo();
    makeTake(*store);
    const std::size_t shots = store->act(project, act)->shots.size();
    store->markCheckpoint();
    type(*store, "joins the entry of an operation that changed nothing itself");
    EXPECT_TRUE(store->canUndo());
    store->undo();
    EXPECT_EQ(takeIn(*store)->notes, Text(""));
    EXPECT_EQ(store->act(project, act)->shots.size(), shots);
}

TEST_F(StructuralUndoTest, RemembersTwentyChangesAndDropsTheOldest) {
    const auto store = open();
    const Identifier first = store->addProject("0", "");
    for (int i = 1; i <= 20; ++i)
        store->addProject(Text(std::to_string(i)), "");
    for (int i = 0; i < 20; ++i) {
        ASSERT_TRUE(store->canUndo());
        store->undo();
    }
    EXPECT_FALSE(store->canUndo());
    store->undo();
    ASSERT_EQ(store->library().projects.size(), 1U);
    EXPECT_EQ(store->library().projects[0]->id, first);
    expectSaved(*store);
}

TEST_F(StructuralUndoTest, FilesTheStateRightAfterTheChangeWithoutTheTextThatFollows) {
    const auto store = open();
    makeTake(*store);
    const Identifier added = store->addShot(project, act);
    // Typed into the record that the change moved: were it part of "after", the undo would take it back.
    store->updateShot(project, act, shot, [](Shot& record) { record.title = "typed at once"; });
    store->undo();
    EXPECT_EQ(store->shot(project, act, added), nullptr);
    EXPECT_EQ(store->shot(project, act, shot)->title, Text("typed at once"));
}

TEST_F(StructuralUndoTest, TakesBackFourChangesInARowAndNothingElse) {
    const auto store = open();
    makeTake(*store);
    const Identifier second = store->addShot(project, act);
    type(*store, "after the add");
    removeShot(*store);
    store->updateShot(project, act, second, [](Shot& record) { record.title = "after the delete"; });
    const Identifier third = store->addShot(project, act);
    store->markCheckpoint();
    store->moveShot(project, act, third, -1);
    store->updateShot(project, act, third, [](Shot& record) { record.framing = "after the move"; });
    const auto order = [&] {
        std::vector<Identifier> ids;
        for (const auto& record : store->act(project, act)->shots)
            ids.push_back(record->id);
        return ids;
    };
    ASSERT_EQ(order(), (std::vector{third, second}));
    store->undo();
    EXPECT_EQ(order(), (std::vector{second, third}));
    EXPECT_EQ(store->shot(project, act, third)->framing, Text("after the move"));
    expectSaved(*store);
    store->undo();
    EXPECT_EQ(order(), (std::vector{second}));
    expectSaved(*store);
    store->undo();
    EXPECT_EQ(order(), (std::vector{shot, second}));
    EXPECT_EQ(takeIn(*store)->notes, Text("after the add"));
    EXPECT_EQ(store->shot(project, act, second)->title, Text("after the delete"));
    expectSaved(*store);
    store->undo();
    EXPECT_EQ(order(), (std::vector{shot}));
    EXPECT_EQ(takeIn(*store)->notes, Text("after the add"));
    expectSaved(*store);
}

TEST_F(StructuralUndoTest, KeepsTheEntryWhenTheResultWouldNotBeValid) {
    const auto store = open();
    makeTake(*store);
    removeShot(*store);
    // The same identifier has come to stand elsewhere, so the deleted shot cannot come back.
    store->updateProject(project, [&](Project& record) {
        Act foreign = Act::make("foreign");
        foreign.id = shot;
        record.acts.emplace_back(std::move(foreign));
    });
    ASSERT_TRUE(store->flush());
    const Library before = store->library();
    const std::string bytes = contentOf(file());
    store->undo();
    EXPECT_EQ(store->error(), Text("备份格式或校验不正确 / Invalid backup or checksum"));
    EXPECT_EQ(store->library(), before);
    EXPECT_EQ(contentOf(file()), bytes);
    EXPECT_TRUE(store->canUndo());
    store->updateProject(project, [](Project& record) { record.acts.pop_back(); });
    store->undo();
    EXPECT_NE(takeIn(*store), nullptr);
}

TEST_F(StructuralUndoTest, LeavesTheNewLibraryInMemoryWhenItsSaveFails) {
    support::FaultyFileOperations faulty;
    faults = &faulty;
    const auto store = open();
    makeTake(*store);
    type(*store, "kept");
    removeShot(*store);
    ASSERT_TRUE(store->flush());
    faulty.failAt(faulty.steps() + 1, support::FaultyFileOperations::Extent::onwards);
    store->undo();
    EXPECT_TRUE(store->saveFailed());
    ASSERT_NE(takeIn(*store), nullptr);
    EXPECT_TRUE(store->hasUnsavedChanges());
    // The disk comes back: what was undone stays undone, and is saved without another edit.
    faulty.failAt(0);
    EXPECT_TRUE(store->flush());
    EXPECT_EQ(notesOnDisk(), Text("kept"));
}

TEST_F(StructuralUndoTest, WorksAfterASaveThatFailed) {
    support::FaultyFileOperations faulty;
    faults = &faulty;
    const auto store = open();
    makeTake(*store);
    ASSERT_TRUE(store->flush());
    faulty.failAt(faulty.steps() + 1, support::FaultyFileOperations::Extent::onwards);
    const Identifier added = store->addShot(project, act);
    EXPECT_FALSE(store->flush());
    faulty.failAt(0);
    store->undo();
    EXPECT_EQ(store->shot(project, act, added), nullptr);
    EXPECT_FALSE(store->saveFailed());
    expectSaved(*store);
}

TEST_F(StructuralUndoTest, IsRefusedAfterAFailedLoad) {
    put(file(), "invalid JSON");
    const auto store = open();
    store->markCheckpoint();
    EXPECT_FALSE(store->canUndo());
    store->undo();
    EXPECT_EQ(contentOf(file()), "invalid JSON");
}

TEST_F(StructuralUndoTest, TellsObserversThatTheHistoryChanged) {
    const auto store = open();
    int told = 0;
    QObject::connect(store.get(), &VantryStore::changed, [&](VantryStore::Member member) {
        if (member == VantryStore::Member::undoHistory)
            ++told;
    });
    store->addProject("one", "");
    EXPECT_EQ(told, 1);
    store->undo();
    EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace vantry::test
