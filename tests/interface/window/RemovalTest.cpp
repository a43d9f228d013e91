// Deleting a record from its page: the question, what a yes does, and the way back.

#include <QPushButton>
#include <QToolButton>

#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/Sheet.h"
#include "tests/interface/design/HelpOver.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

const QString undoButton = QStringLiteral("撤销结构修改");
const QString missing = QStringLiteral("这条记录已删除");

class RemovalTest : public WindowTest {
protected:
    struct Level {
        Route place;
        Route parent;
        QString button, question, englishButton, englishQuestion;
    };

    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
    }
    [[nodiscard]] std::vector<Level> levels() const {
        return {{takeRoute(), shotRoute(), "删除本条…", "删除这条 Take？可撤销。", "Delete take…",
                 "Delete this take? This can be undone."},
                {shotRoute(), Route::act(project, act), "删除镜头…", "删除镜头及其 Take？可撤销。",
                 "Delete shot…", "Delete this shot and its takes? This can be undone."},
                {Route::act(project, act), Route::project(project), "删除这一幕…",
                 "删除这一幕及其镜头？可撤销。", "Delete this act…",
                 "Delete this act and its shots? This can be undone."},
                {Route::project(project), Route::library(), "删除项目…",
                 "删除项目及其全部记录？可用撤销结构修改恢复。", "Delete project…",
                 "Delete this project and all its records? You can undo the structure change."}};
    }
    /// Shows the page, and of a production's page the tab with its button.
    void show(const Level& level) {
        go(level.place);
        if (level.place == Route::project(project))
            openTab(level.place, store->english() ? QStringLiteral("Details") : QStringLiteral("项目信息"));
    }
    [[nodiscard]] static QuestionSheet* question() { return topmost<QuestionSheet>(); }
    void focusByTab(const QString& button, QWidget* within = nullptr) const {
        get<QAbstractButton>(button, within).setFocus(Qt::TabFocusReason);
        settle();
    }
    void hold(Qt::Key key, int repetitions) const {
        for (int repetition = 0; repetition < repetitions; ++repetition)
            press(key, Qt::NoModifier, true);
    }
};

TEST_F(RemovalTest, EachPageAsksAndDeletesItsRecordAndUndoBringsItBack) {
    const Library before = store->library();
    for (const Level& level : levels()) {
        show(level);
        clickOnPage(level.button);
        ASSERT_NE(question(), nullptr) << level.button.toStdString();
        EXPECT_EQ(question()->windowTitle(), level.question);
        EXPECT_NE(find<Label>(*question(), level.question), nullptr);
        EXPECT_EQ(store->library(), before) << "the question alone changes nothing";
        answer(QStringLiteral("删除"));
        EXPECT_EQ(question(), nullptr);
        EXPECT_EQ(route(), level.parent);
        EXPECT_FALSE(shows(missing));
        EXPECT_NE(store->library(), before);
        EXPECT_EQ(DiskStore::read(file()), store->library());

        click(undoButton);
        EXPECT_EQ(store->library(), before);
        EXPECT_EQ(DiskStore::read(file()), before);
        EXPECT_EQ(route(), level.parent) << "an undo leads nowhere";
        show(level);
        EXPECT_FALSE(shows(missing));
        EXPECT_NE(find<QAbstractButton>(page(), level.button), nullptr);
    }
}

TEST_F(RemovalTest, CancelEscapeAndReturnChangeNothing) {
    const Library before = store->library();
    const auto onDisk = support::factsOf(file());
    for (const Level& level : levels()) {
        show(level);
        for (int way = 0; way < 3; ++way) {
            clickOnPage(level.button);
            ASSERT_NE(question(), nullptr);
            EXPECT_EQ(question()->windowModality(), Qt::WindowModal);
            if (way == 0)
                answer(QStringLiteral("取消"));
            else
                QTest::keyClick(QApplication::focusWidget(), way == 1 ? Qt::Key_Escape : Qt::Key_Return);
            settle();
            EXPECT_EQ(question(), nullptr);
            EXPECT_EQ(route(), level.place);
            EXPECT_EQ(store->library(), before);
        }
    }
    EXPECT_EQ(support::factsOf(file()), onDisk);
}

TEST_F(RemovalTest, TheDestructiveButtonIsLastAndNotTheDefault) {
    go(takeRoute());
    clickOnPage(QStringLiteral("删除本条…"));
    auto& no = get<QPushButton>(QStringLiteral("取消"), question());
    auto& yes = get<QPushButton>(QStringLiteral("删除"), question());
    EXPECT_FALSE(yes.isDefault());
    EXPECT_FALSE(yes.autoDefault());
    EXPECT_TRUE(no.hasFocus());
    EXPECT_LT(no.geometry().right(), yes.geometry().left());
}

TEST_F(RemovalTest, TheQuestionFollowsTheLanguage) {
    for (const Level& level : levels()) {
        show(level);
        clickOnPage(level.button);
        store->setLanguage("en");
        settle();
        EXPECT_EQ(question()->windowTitle(), level.englishQuestion);
        EXPECT_NE(find<QAbstractButton>(*question(), QStringLiteral("Delete")), nullptr);
        EXPECT_NE(find<QAbstractButton>(page(), level.englishButton), nullptr);
        answer(QStringLiteral("Cancel"));
        clickOnPage(level.englishButton);
        store->setLanguage("zh");
        settle();
        EXPECT_EQ(question()->windowTitle(), level.question);
        answer(QStringLiteral("取消"));
    }
}

TEST_F(RemovalTest, WhatWasTypedElsewhereSurvivesTheUndo) {
    const Identifier other = store->addShot(project, act);
    const Identifier kept = store->addTake(project, act, other);
    go(shotRoute());
    clickOnPage(QStringLiteral("删除镜头…"));
    answer(QStringLiteral("删除"));
    go(Route::take(project, act, other, kept));
    QTest::keyClicks(&notes(), QStringLiteral("typed after the deletion"));
    click(undoButton);
    EXPECT_EQ(store->act(project, act)->shots[0]->id, shot) << "at its old place";
    EXPECT_EQ(store->take(project, act, other, kept)->notes, Text("typed after the deletion"));
    EXPECT_EQ(notes().toPlainText(), QStringLiteral("typed after the deletion"));
    EXPECT_EQ(DiskStore::read(file()), store->library());
    go(takeRoute());
    EXPECT_FALSE(shows(missing));
}

TEST_F(RemovalTest, WhenItCannotBeSavedThePersonStaysOnTheMissingPage) {
    const Library before = store->library();
    go(Route::project(project));
    const auto history = window->navigation().history();
    for (const Level& level : levels()) {
        if (level.place != route())
            show(level);
        const auto way = window->navigation().history();
        disk.full = true;
        clickOnPage(level.button);
        answer(QStringLiteral("删除"));
        ASSERT_NE(topmost<AlertSheet>(), nullptr);
        answer(QStringLiteral("好"));
        EXPECT_EQ(route(), level.place);
        EXPECT_EQ(window->navigation().history(), way);
        EXPECT_TRUE(shows(missing));
        EXPECT_EQ(DiskStore::read(file()), before);

        disk.full = false;
        click(undoButton);
        EXPECT_FALSE(shows(missing)) << "the same page is back";
        EXPECT_NE(find<QAbstractButton>(page(), level.button), nullptr);
        EXPECT_EQ(store->library(), before);
        EXPECT_FALSE(store->hasUnsavedChanges());
    }
}

TEST_F(RemovalTest, AnUndoThatCannotBeSavedKeepsTheRecordInMemory) {
    const Library before = store->library();
    go(shotRoute());
    clickOnPage(QStringLiteral("删除镜头…"));
    answer(QStringLiteral("删除"));
    disk.full = true;
    click(undoButton);
    answer(QStringLiteral("好"));
    EXPECT_EQ(store->library(), before);
    EXPECT_TRUE(shows(QStringLiteral("尚未保存，请重试")));
    disk.full = false;
    click(QStringLiteral("保存"));
    EXPECT_EQ(DiskStore::read(file()), before);
}

TEST_F(RemovalTest, AHeldReturnOpensTheQuestionOnceAndDeletesOnce) {
    store->addTake(project, act, shot);
    go(takeRoute());
    focusByTab(QStringLiteral("删除本条…"));
    press(Qt::Key_Return);
    for (int repetition = 0; repetition < 20; ++repetition) {
        press(Qt::Key_Return, Qt::NoModifier, true);
        ASSERT_NE(question(), nullptr) << "a repetition presses nothing in it";
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    settle();
    press(Qt::Key_Return);
    hold(Qt::Key_Return, 20);
    EXPECT_EQ(route(), shotRoute());
    EXPECT_EQ(question(), nullptr);
    EXPECT_EQ(shotRecord().takes.size(), 1U);
}

TEST_F(RemovalTest, AHeldReturnLeavesTheMissingPageAlone) {
    go(takeRoute());
    focusByTab(QStringLiteral("删除本条…"));
    press(Qt::Key_Return);
    disk.full = true;
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    press(Qt::Key_Return);
    answer(QStringLiteral("好"));
    disk.full = false;
    hold(Qt::Key_Return, 20);
    EXPECT_EQ(route(), takeRoute());
    EXPECT_TRUE(shows(missing));
}

TEST_F(RemovalTest, AQuestionAboutARecordThatIsGoneCloses) {
    go(takeRoute());
    clickOnPage(QStringLiteral("删除本条…"));
    store->updateShot(project, act, shot, [](Shot& record) { record.takes.clear(); });
    settle();
    EXPECT_EQ(question(), nullptr);
    EXPECT_EQ(route(), takeRoute());
    EXPECT_TRUE(shows(missing));
}

TEST_F(RemovalTest, TheUndoIsOneActionAndUsableWhenThereIsSomethingToUndo) {
    open();
    auto& button = get<QAbstractButton>(undoButton);
    EXPECT_FALSE(button.isEnabled()) << "the history does not outlive the program";
    go(Route::project(project));
    clickOnPage(QStringLiteral("新增幕"));
    EXPECT_TRUE(button.isEnabled());
    const auto acts = [this] { return store->project(project)->acts.size(); };
    EXPECT_EQ(acts(), 2U);
    choose(undoButton);
    EXPECT_EQ(acts(), 1U);
    EXPECT_FALSE(button.isEnabled());
    EXPECT_THROW(choose(undoButton), std::runtime_error) << "nor by the menu";
    store->setLanguage("en");
    settle();
    EXPECT_EQ(helpOver(button), asHelp(QStringLiteral("Undo structure change")));
    EXPECT_TRUE(
        get<QToolButton>(QStringLiteral("Undo structure change")).defaultAction()->shortcut().isEmpty())
        << "that key belongs to texts";
}

TEST_F(RemovalTest, TypingIsNotTakenBackByIt) {
    go(takeRoute());
    QTest::keyClicks(&notes(), QStringLiteral("typed"));
    for (int change = 0; change < 4; ++change)
        click(undoButton);
    EXPECT_FALSE(get<QAbstractButton>(undoButton).isEnabled());
    EXPECT_TRUE(store->library().projects.empty()) << "the production itself was the first change";
    EXPECT_TRUE(shows(missing));
}

}  // namespace
}  // namespace vantry::test
