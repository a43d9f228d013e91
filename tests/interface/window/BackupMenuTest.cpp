// Export and import from the menu, with a person who chooses the file.

#include "Vantry/interface/design/Sheet.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

const QString exportEntry = QStringLiteral("导出备份…");
const QString importEntry = QStringLiteral("导入并合并…");

class BackupMenuTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
        panels.choice = backup();
    }
    [[nodiscard]] std::filesystem::path backup() const { return folder / "day.vantry"; }
    [[nodiscard]] QAction& actionOf(const QString& entry) const {
        const QList<QAction*> actions = window->menuBar()->findChildren<QAction*>();
        return **std::find_if(actions.cbegin(), actions.cend(),
                              [&](const QAction* action) { return action->text() == entry; });
    }
    /// Reads the alert on screen, presses its button and answers its title and text.
    [[nodiscard]] std::pair<QString, QString> readAlert() const {
        auto* alert = topmost<AlertSheet>();
        if (alert == nullptr)
            return {};
        std::pair<QString, QString> told{alert->windowTitle(), alert->accessibleDescription()};
        QTest::keyClick(alert, Qt::Key_Escape);
        settle();
        return told;
    }
    [[nodiscard]] QString readNotice() const {
        const auto [title, text] = readAlert();
        EXPECT_EQ(title, QStringLiteral("完成"));
        return text;
    }
};

TEST_F(BackupMenuTest, TheExportIsANoticeAndAFile) {
    choose(exportEntry);
    EXPECT_EQ(panels.asked, std::vector<std::string>{"save backup"});
    EXPECT_EQ(panels.suggested, "Vantry-2026-05-09.vantry");
    EXPECT_EQ(readNotice(), QStringLiteral("备份已导出，包含分镜图片。"));
    EXPECT_FALSE(support::contentOf(backup()).empty());
    EXPECT_FALSE(store->notice());
}

TEST_F(BackupMenuTest, AnImportShowsBothVersionsAndUndoTakesItBack) {
    choose(exportEntry);
    (void)readAlert();
    go(takeRoute());
    QTest::keyClicks(&notes(), QStringLiteral("not saved yet"));
    const Library before = store->library();
    choose(importEntry);
    EXPECT_EQ(readNotice(), QStringLiteral("合并完成：新增 0，相同保留 3，不同版本保留 1。"));
    EXPECT_EQ(notes().toPlainText(), QStringLiteral("not saved yet"));
    ASSERT_EQ(shotRecord().takes.size(), 2U);
    const Route copy = Route::take(project, act, shot, shotRecord().takes[1]->id);
    go(copy);
    EXPECT_TRUE(shows(QStringLiteral("合并保留的不同版本 · 原记录未覆盖")));
    EXPECT_TRUE(notes().toPlainText().isEmpty());
    EXPECT_EQ(DiskStore::read(file()), store->library());

    const auto onDisk = support::factsOf(file());
    const auto previous = support::factsOf(root() / "library.json.previous");
    for (int repetition = 0; repetition < 3; ++repetition) {
        choose(importEntry);
        EXPECT_EQ(readNotice(), QStringLiteral("合并完成：新增 0，相同保留 4，不同版本保留 0。"));
    }
    EXPECT_EQ(support::factsOf(file()), onDisk);
    EXPECT_EQ(support::factsOf(root() / "library.json.previous"), previous);

    click(QStringLiteral("撤销结构修改"));
    EXPECT_TRUE(shows(QStringLiteral("这条记录已删除")));
    EXPECT_EQ(route(), copy);
    EXPECT_EQ(store->library(), before);
}

TEST_F(BackupMenuTest, AnotherLibraryTakesItInWhole) {
    choose(exportEntry);
    (void)readAlert();
    const Library exported = store->library();
    std::filesystem::remove_all(root());
    open();
    choose(importEntry);
    EXPECT_EQ(readNotice(), QStringLiteral("合并完成：新增 1，相同保留 0，不同版本保留 0。"));
    EXPECT_EQ(store->library().projects, exported.projects);
    clickOnPage(QStringLiteral("候车室"));
    EXPECT_EQ(route(), Route::project(project));
}

TEST_F(BackupMenuTest, APersonWhoChangesTheirMindChangesNothing) {
    panels.choice.reset();
    const Library before = store->library();
    choose(exportEntry);
    choose(importEntry);
    EXPECT_EQ(panels.asked, (std::vector<std::string>{"save backup", "open backup"}));
    EXPECT_EQ(topmost<QWidget>(), nullptr);
    EXPECT_EQ(store->library(), before);
    EXPECT_FALSE(std::filesystem::exists(backup()));
}

TEST_F(BackupMenuTest, AFileThatIsNoBackupIsAnErrorAndChangesNothing) {
    support::putContent(backup(), "no backup");
    const Library before = store->library();
    const auto onDisk = support::factsOf(file());
    choose(importEntry);
    const auto [title, text] = readAlert();
    EXPECT_EQ(title, QStringLiteral("操作未完成"));
    EXPECT_FALSE(text.isEmpty());
    EXPECT_EQ(store->library(), before);
    EXPECT_EQ(support::factsOf(file()), onDisk);
}

TEST_F(BackupMenuTest, AnExportThatCannotBeWrittenIsAnError) {
    panels.choice = folder / "nowhere" / "day.vantry";
    choose(exportEntry);
    EXPECT_EQ(readAlert().first, QStringLiteral("操作未完成"));
    EXPECT_FALSE(std::filesystem::exists(folder / "nowhere"));
}

TEST_F(BackupMenuTest, WhileAPanelIsOpenNothingQuits) {
    bool stayed = false;
    bool refused = false;
    panels.whileOpen = [&] {
        window->close();
        settle();
        stayed = window->isVisible();
        refused = !delegate->shouldTerminate();
    };
    go(shotRoute());
    for (const auto& openPanel : std::vector<std::function<void()>>{
             [this] { choose(exportEntry); },
             [this] { choose(importEntry); },
             [this] { clickOnPage(QStringLiteral("导入")); },
         }) {
        stayed = refused = false;
        openPanel();
        EXPECT_TRUE(stayed);
        EXPECT_TRUE(refused);
        EXPECT_TRUE(window->isVisible());
        (void)readAlert();
    }
    EXPECT_TRUE(questions.empty());
    window->close();
    settle();
    EXPECT_FALSE(window->isVisible()) << "afterwards it does";
}

TEST_F(BackupMenuTest, WhatChangesWhileThePanelIsOpenIsPartOfTheImport) {
    choose(exportEntry);
    (void)readAlert();
    panels.whileOpen = [this] {
        store->updateTake(project, act, shot, take, [](VantryTake& record) { record.stars = 5; });
        clock.advance(350);
        settle();
    };
    choose(importEntry);
    EXPECT_EQ(readNotice(), QStringLiteral("合并完成：新增 0，相同保留 3，不同版本保留 1。"));
    EXPECT_EQ(takeRecord().stars, 5);
}

TEST_F(BackupMenuTest, APanelHoldsNobodyUpAndIsOne) {
    for (const QString& entry : {exportEntry, importEntry}) {
        panels.asked.clear();
        QAction& action = actionOf(entry);
        action.trigger();
        actionOf(importEntry).trigger();
        EXPECT_TRUE(panels.asked.empty()) << "what pressed it goes on at once";
        settle();
        EXPECT_EQ(panels.asked.size(), 1U);
        (void)readAlert();
    }
    window->close();
    actionOf(exportEntry).trigger();
    settle();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(panels.asked.size(), 1U) << "nor does it open without a window";
}

TEST_F(BackupMenuTest, ALibraryThatCannotBeReadOffersNeither) {
    support::putContent(file(), "invalid JSON");
    open();
    (void)readAlert();
    EXPECT_THROW(choose(exportEntry), std::runtime_error);
    EXPECT_THROW(choose(importEntry), std::runtime_error);
    EXPECT_TRUE(panels.asked.empty());
}

TEST_F(BackupMenuTest, TheNoticeIsInTheLanguageOfTheMoment) {
    store->setLanguage("en");
    settle();
    choose(QStringLiteral("Export backup…"));
    EXPECT_EQ(readAlert(), (std::pair(QStringLiteral("Done"),
                                      QStringLiteral("Backup exported, including storyboard images."))));
    choose(QStringLiteral("Import and merge…"));
    EXPECT_EQ(readAlert().second, QStringLiteral("Merged: 0 added, 4 identical, 0 versions retained."));
}

}  // namespace
}  // namespace vantry::test
