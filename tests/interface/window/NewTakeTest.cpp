// The ways to a new take, and the storm of keys and clicks that must make only one.

#include "Vantry/interface/navigation/LibraryTreeModel.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

class NewTakeTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
        clock.advance(1000);
    }
    [[nodiscard]] std::size_t takes() const { return shotRecord().takes.size(); }
    [[nodiscard]] QModelIndex newTakeRow() const {
        const auto* model = static_cast<const LibraryTreeModel*>(tree().model());
        const QModelIndex row = model->indexOf(shotRoute());
        return model->index(model->rowCount(row) - 1, 0, row);
    }
};

TEST_F(NewTakeTest, GoesToTheNewTakeWithEmptyNotes) {
    go(takeRoute());
    QTest::keyClicks(&notes(), QStringLiteral("about the first"));
    store->updateTake(project, act, shot, take, [](VantryTake& record) { record.cameraFile = "A001"; });
    clickOnPage(QStringLiteral("新 Take · ⌘ Return"));
    ASSERT_EQ(takes(), 2U);
    EXPECT_EQ(route(), Route::take(project, act, shot, shotRecord().takes[1]->id));
    EXPECT_TRUE(shows(QStringLiteral("Take 02")));
    EXPECT_TRUE(notes().toPlainText().isEmpty());
    EXPECT_TRUE(shotRecord().takes[1]->cameraFile.empty());
}

TEST_F(NewTakeTest, TheShortcutWorksFromInsideTheNotes) {
    go(takeRoute());
    notes().setFocus();
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(takes(), 2U);
    EXPECT_TRUE(takeRecord().notes.empty()) << "the key wrote nothing";
    clock.advance(500);
    notes().setFocus();
    press(Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(takes(), 3U) << "the other key of that name too";
}

TEST_F(NewTakeTest, AHeldKeyMakesOneTakeHoweverLong) {
    go(takeRoute());
    notes().setFocus();
    press(Qt::Key_Return, Qt::ControlModifier);
    for (int repetition = 0; repetition < 40; ++repetition) {
        clock.advance(30);
        press(Qt::Key_Return, Qt::ControlModifier, true);
    }
    EXPECT_EQ(takes(), 2U);
    clock.advance(400);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(takes(), 2U) << "each refused attempt renewed the pause";
    clock.advance(500);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(takes(), 3U);
}

TEST_F(NewTakeTest, ADoubledClickMakesOneTake) {
    go(shotRoute());
    auto& button = get<QAbstractButton>(QStringLiteral("新 Take · ⌘ Return"));
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseDClick(&button, Qt::LeftButton);
    settle();
    EXPECT_EQ(takes(), 2U);
}

TEST_F(NewTakeTest, DoubledClicksMakeOneActAndOneShot) {
    go(Route::project(project));
    QTest::mouseDClick(&get<QAbstractButton>(QStringLiteral("新增幕")), Qt::LeftButton);
    QTest::mouseClick(&get<QAbstractButton>(QStringLiteral("新增幕")), Qt::LeftButton);
    settle();
    EXPECT_EQ(store->project(project)->acts.size(), 2U);
    go(Route::act(project, act));
    // As a window hears it: the second press comes where the button was.
    const QPoint place = get(QStringLiteral("新增分镜")).mapTo(window.get(), QPoint(60, 20));
    QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {}, place);
    settle();
    ASSERT_EQ(store->act(project, act)->shots.size(), 2U);
    const Identifier made = store->act(project, act)->shots[1]->id;
    EXPECT_TRUE(store->shot(project, act, made)->takes.empty()) << "what stands there now was not meant";
    EXPECT_EQ(route(), Route::shot(project, act, made)) << "it is opened";
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, place);
    settle();
    EXPECT_EQ(store->shot(project, act, made)->takes.size(), 1U) << "a press of its own is";
    go(Route::act(project, act));
    click(QStringLiteral("新增分镜"));
    EXPECT_EQ(store->act(project, act)->shots.size(), 2U) << "too soon after the first";
    clock.advance(1000);
    click(QStringLiteral("新增分镜"));
    EXPECT_EQ(store->act(project, act)->shots.size(), 3U);
}

TEST_F(NewTakeTest, TheRowOfTheTreeMakesOneByClickAndByKey) {
    tree().expandAll();
    settle();
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualRect(newTakeRow()).center());
    settle();
    ASSERT_EQ(takes(), 2U);
    EXPECT_EQ(route(), Route::take(project, act, shot, shotRecord().takes[1]->id));
    clock.advance(1000);
    tree().setFocus();
    tree().setCurrentIndex(newTakeRow());
    press(Qt::Key_Return);
    EXPECT_EQ(takes(), 3U);
    for (int repetition = 0; repetition < 20; ++repetition) {
        clock.advance(100);
        press(Qt::Key_Return, Qt::NoModifier, true);
    }
    EXPECT_EQ(takes(), 3U);
    EXPECT_TRUE(tree().hasFocus()) << "the keyboard stays in the tree";
}

TEST_F(NewTakeTest, ACancelledShotOffersNone) {
    store->updateShot(project, act, shot, [](Shot& record) { record.cancelled = true; });
    go(shotRoute());
    EXPECT_FALSE(get<QAbstractButton>(QStringLiteral("新 Take · ⌘ Return")).isEnabled());
    EXPECT_TRUE(shows(QStringLiteral("本镜已取消拍摄 · 记录仍保留")));
    press(Qt::Key_Return, Qt::ControlModifier);
    go(takeRoute());
    press(Qt::Key_Return, Qt::ControlModifier);
    tree().press(newTakeRow());
    settle();
    EXPECT_EQ(takes(), 1U);
    EXPECT_EQ(route(), takeRoute());
}

TEST_F(NewTakeTest, TheKeyboardIsInTheNotesOfTheTakeThatTheShortcutMade) {
    go(takeRoute());
    notes().setFocus();
    press(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_EQ(takes(), 2U);
    EXPECT_TRUE(notes().hasFocus());
    // Control is let go a little before Return.
    press(Qt::Key_Return, Qt::NoModifier, true);
    press(Qt::Key_Return, Qt::NoModifier, true);
    QTest::keyClicks(&notes(), QStringLiteral("typed at once"));
    settle();
    EXPECT_EQ(shotRecord().takes[1]->notes, Text("typed at once"));
    EXPECT_TRUE(shotRecord().takes[0]->notes.empty());
}

TEST_F(NewTakeTest, AClickLeadsToTheNotesAndAKeyOnTheButtonDoesNot) {
    go(shotRoute());
    click(QStringLiteral("新 Take · ⌘ Return"));
    ASSERT_EQ(takes(), 2U);
    EXPECT_TRUE(notes().hasFocus());
    clock.advance(1000);
    auto& button = get<QAbstractButton>(QStringLiteral("新 Take · ⌘ Return"));
    button.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&button, Qt::Key_Space);
    settle();
    ASSERT_EQ(takes(), 3U);
    EXPECT_FALSE(notes().hasFocus()) << "the key may still be held";
}

TEST_F(NewTakeTest, WhatIsEnteredInATakeReachesTheNextOne) {
    go(takeRoute());
    clickOnPage(QStringLiteral("相机、镜头、录制与监视"));
    auto& iso = get<QLineEdit>(QStringLiteral("ISO"), &page());
    iso.setFocus();
    QTest::keyClicks(&iso, QStringLiteral("800"));
    press(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_EQ(takes(), 2U);
    EXPECT_EQ(shotRecord().takes[1]->parameters["iso"], Text("800"));
    EXPECT_EQ(store->project(project)->defaults["iso"], Text("800"));
}

TEST_F(NewTakeTest, AFieldThatIsLeftTeachesTheProduction) {
    go(takeRoute());
    clickOnPage(QStringLiteral("相机、镜头、录制与监视"));
    auto& iso = get<QLineEdit>(QStringLiteral("ISO"), &page());
    iso.setFocus();
    QTest::keyClicks(&iso, QStringLiteral("400"));
    EXPECT_EQ(store->project(project)->defaults["iso"], Text());
    QTest::keyClick(&iso, Qt::Key_Tab);
    EXPECT_EQ(store->project(project)->defaults["iso"], Text("400"));
    iso.setFocus();
    iso.selectAll();
    QTest::keyClicks(&iso, QStringLiteral("1600"));
    QTest::keyClick(&iso, Qt::Key_Tab);
    EXPECT_EQ(store->project(project)->defaults["iso"], Text("400")) << "only what was unset";
    EXPECT_EQ(takeRecord().parameters["iso"], Text("1600"));
}

}  // namespace
}  // namespace vantry::test
