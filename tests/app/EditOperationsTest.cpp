#include "tests/app/StoreFixture.h"

#include <stdexcept>

namespace vantry::test {
namespace {

using EditOperationsTest = StoreTest;

TEST_F(EditOperationsTest, ANewProjectIsOnDiskAtOnce) {
    const auto store = open();
    const Identifier id = store->addProject("雨夜车站", "Zoë");
    const Library onDisk = DiskStore::read(file());
    ASSERT_EQ(onDisk.projects.size(), 1U);
    EXPECT_EQ(onDisk.projects[0]->id, id);
    EXPECT_EQ(onDisk.projects[0]->title, Text("雨夜车站"));
    EXPECT_EQ(onDisk.projects[0]->director, Text("Zoë"));
}

TEST_F(EditOperationsTest, ANewProjectIsReturnedEvenWhenTheSaveFails) {
    put(root(), "in the way");
    const auto store = open();
    const Identifier id = store->addProject("kept", "");
    ASSERT_TRUE(store->project(id));
    EXPECT_TRUE(store->saveFailed());
}

TEST_F(EditOperationsTest, NewActsAndShotsAreNamedInTheLanguageOfTheMoment) {
    const auto store = open();
    project = store->addProject("p", "");
    act = store->addAct(project);
    EXPECT_EQ(store->act(project, act)->title, Text("第 1 幕"));
    shot = store->addShot(project, act);
    EXPECT_EQ(store->shot(project, act, shot)->title, Text("未命名镜头"));
    store->setLanguage("en");
    const Identifier second = store->addAct(project);
    EXPECT_EQ(store->act(project, second)->title, Text("Act 2"));
    EXPECT_EQ(store->shot(project, act, store->addShot(project, act))->title, Text("Untitled shot"));
    EXPECT_EQ(store->act(project, act)->title, Text("第 1 幕")) << "what was written stays";
    store->setLanguage("fr");
    EXPECT_EQ(store->act(project, store->addAct(project))->title, Text("第 3 幕"));
    EXPECT_EQ(store->language(), Text("fr"));
}

TEST_F(EditOperationsTest, TheFirstValuesOfAShotBecomeTheProjectsDefaults) {
    const auto store = open();
    project = store->addProject("p", "");
    act = store->addAct(project);
    const Identifier early = store->addShot(project, act);
    shot = store->addShot(project, act);
    store->updateShot(project, act, shot, [](Shot& record) { record.parameters.set("iso", "800"); });
    take = store->addTake(project, act, shot);
    EXPECT_EQ(store->project(project)->defaults["iso"], Text("800"));
    EXPECT_EQ(store->take(project, act, shot, take)->parameters["iso"], Text("800"));
    const Identifier late = store->addShot(project, act);
    EXPECT_EQ(store->shot(project, act, late)->parameters["iso"], Text("800"));
    EXPECT_EQ(store->shot(project, act, early)->parameters["iso"], Text(""));
    store->addTake(project, act, early);
    EXPECT_EQ(store->shot(project, act, early)->parameters["iso"], Text("800"));
}

TEST_F(EditOperationsTest, ACancelledShotTakesNoNewTake) {
    const auto store = open();
    makeTake(*store);
    store->updateShot(project, act, shot, [](Shot& record) { record.cancelled = true; });
    const Identifier refused = store->addTake(project, act, shot);
    EXPECT_NE(refused, Identifier());
    EXPECT_FALSE(store->take(project, act, shot, refused));
    EXPECT_EQ(store->shot(project, act, shot)->takes.size(), 1U);
}

TEST_F(EditOperationsTest, UnknownTargetsAnswerAnIdentifierThatNamesNothing) {
    const auto store = open();
    makeTake(*store);
    const Identifier unknown = Identifier::random();
    for (const Identifier& id :
         {store->addAct(unknown), store->addShot(unknown, act), store->addShot(project, unknown),
          store->addTake(project, act, unknown), store->addTake(project, unknown, shot)}) {
        EXPECT_NE(id, Identifier());
        EXPECT_FALSE(store->act(project, id));
        EXPECT_FALSE(store->shot(project, act, id));
    }
    EXPECT_EQ(store->project(project)->acts.size(), 1U);
}

TEST_F(EditOperationsTest, LookupsNeedEachStepAbove) {
    const auto store = open();
    makeTake(*store);
    const Identifier other = store->addProject("other", "");
    EXPECT_TRUE(store->take(project, act, shot, take));
    EXPECT_FALSE(store->act(other, act));
    EXPECT_FALSE(store->shot(other, act, shot));
    EXPECT_FALSE(store->take(project, act, take, take));
}

TEST_F(EditOperationsTest, ARecordThatWasLookedUpNeverChanges) {
    const auto store = open();
    makeTake(*store);
    const auto before = store->take(project, act, shot, take);
    type(*store, "later");
    EXPECT_EQ(before->notes, Text(""));
    EXPECT_EQ(store->take(project, act, shot, take)->notes, Text("later"));
}

TEST_F(EditOperationsTest, AnUnknownProjectSchedulesNoSaveAndAnUnknownLowerRecordDoes) {
    const auto store = open();
    makeTake(*store);
    store->flush();
    ASSERT_EQ(clock.waiting(), 0U);
    bool ran = false;
    store->updateProject(Identifier::random(), [&](Project&) { ran = true; });
    EXPECT_EQ(clock.waiting(), 0U);
    store->updateTake(project, act, shot, Identifier::random(), [&](VantryTake&) { ran = true; });
    EXPECT_EQ(clock.waiting(), 1U);
    EXPECT_FALSE(ran);
    const int writes = disk.writes;
    clock.advance(350);
    EXPECT_EQ(disk.writes, writes) << "the library is clean";
}

TEST_F(EditOperationsTest, MovingExchangesNeighboursAndNeverTouchesCodes) {
    const auto store = open();
    project = store->addProject("p", "");
    act = store->addAct(project);
    std::vector<Identifier> shots;
    for (int i = 0; i < 4; ++i)
        shots.push_back(store->addShot(project, act));
    const auto order = [&] {
        std::string codes;
        for (const auto& record : store->act(project, act)->shots)
            codes += record->code.utf8() + " ";
        return codes;
    };
    store->flush();
    const int writes = disk.writes;
    store->moveShot(project, act, shots[0], -1);
    EXPECT_EQ(order(), "01 02 03 04 ");
    EXPECT_EQ(clock.waiting(), 1U) << "a move that changes nothing still schedules a save";
    clock.advance(350);
    EXPECT_EQ(disk.writes, writes);
    store->moveShot(project, act, shots[0], 1);
    EXPECT_EQ(order(), "02 01 03 04 ");
    store->moveShot(project, act, shots[0], 2);
    EXPECT_EQ(order(), "02 04 03 01 ");
    store->moveShot(project, act, shots[0], 1);
    EXPECT_EQ(order(), "02 04 03 01 ");
    store->moveShotBefore(project, act, shots[0], shots[1]);
    EXPECT_EQ(order(), "01 02 04 03 ");
    store->moveShotBefore(project, act, shots[0], shots[2]);
    EXPECT_EQ(order(), "02 04 01 03 ");
    const Identifier elsewhere = store->addShot(project, store->addAct(project));
    store->moveShotBefore(project, act, shots[1], elsewhere);
    store->moveShotBefore(project, act, shots[1], shots[1]);
    EXPECT_EQ(order(), "02 04 01 03 ");
}

TEST_F(EditOperationsTest, AMutationThatThrowsLeavesNothingHalfChanged) {
    const auto store = open();
    makeTake(*store);
    type(*store, "whole");
    const Library before = store->library();
    EXPECT_THROW(store->updateTake(project, act, shot, take,
                                   [](VantryTake& record) {
                                       record.notes = "half";
                                       throw std::runtime_error("stop");
                                   }),
                 std::runtime_error);
    EXPECT_EQ(store->library(), before);
}

TEST_F(EditOperationsTest, RemovingAProjectSavesAtOnce) {
    const auto store = open();
    makeTake(*store);
    const Identifier other = store->addProject("stays", "");
    store->removeProject(project);
    const Library onDisk = DiskStore::read(file());
    ASSERT_EQ(onDisk.projects.size(), 1U);
    EXPECT_EQ(onDisk.projects[0]->id, other);
}

TEST_F(EditOperationsTest, RecordedDefaultsFillOnlyWhatIsUnset) {
    const auto store = open();
    project = store->addProject("p", "");
    Parameters values;
    values.set("iso", "800");
    values.set("fps", "  ");
    values.set("focal", "50");
    store->recordDefaults(project, values);
    values.set("iso", "400");
    store->recordDefaults(project, values);
    EXPECT_EQ(store->project(project)->defaults["iso"], Text("800"));
    EXPECT_EQ(store->project(project)->defaults.values.find("fps"), nullptr);
    EXPECT_EQ(store->project(project)->defaults.values.find("focal"), nullptr);
}

}  // namespace
}  // namespace vantry::test
