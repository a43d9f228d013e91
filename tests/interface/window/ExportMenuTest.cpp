// The documents of a production from its page, with a person who chooses the file.

#include <QMenu>

#include "VantryCore/records/CallSheetFields.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

class ExportMenuTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
        panels.choice = document();
        go(Route::project(project));
    }
    [[nodiscard]] std::filesystem::path document() const { return folder / "day.pdf"; }

    /// Opens the menu of the page.
    [[nodiscard]] QMenu& openMenu() const {
        clickOnPage(store->english() ? QStringLiteral("Export PDF") : QStringLiteral("导出 PDF"));
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr)
            throw std::runtime_error("no menu is open");
        return *menu;
    }
    static QStringList entries(const QMenu& menu) {
        QStringList texts;
        for (const QAction* action : menu.actions())
            texts << action->text() + (action->isEnabled() ? "" : " (off)");
        return texts;
    }
    static QMenu& callSheets(const QMenu& menu) { return *menu.actions().back()->menu(); }
    /// Presses the entry at that place of the menu.
    void press(int entry) const {
        const QPointer<QMenu> menu(&openMenu());
        QAction* action = menu->actions().at(entry);
        action->trigger();
        if (menu)
            menu->close();
        settle();
    }
    void pressCallSheet(int entry) const {
        const QPointer<QMenu> menu(&openMenu());
        callSheets(*menu).actions().at(entry)->trigger();
        if (menu)
            menu->close();
        settle();
    }
    [[nodiscard]] bool isPDF() const { return support::contentOf(document()).starts_with("%PDF-"); }
    void setTitle(const Text& title) {
        store->updateProject(project, [&](Project& record) { record.title = title; });
        settle();
    }
    /// Sheets for the days of March 2026 in that order.
    void makeSheets(const std::vector<int>& days) {
        store->updateProject(project, [&](Project& record) {
            std::vector<CallSheet> sheets;
            for (const int day : days) {
                CallSheet sheet = CallSheet::make(Moment{794016000.0 + day * 86400.0});
                sheet.set("version", Text("第 " + std::to_string(sheets.size()) + " 版 & more"));
                sheets.push_back(std::move(sheet));
            }
            record.setCallSheets(std::move(sheets));
        });
        store->flush();
        settle();
    }
};

TEST_F(ExportMenuTest, OffersTheDocumentsInBothLanguages) {
    QMenu& menu = openMenu();
    EXPECT_EQ(entries(menu),
              (QStringList{"分镜计划 PDF · 给 DP", "拍摄报告 PDF · 给导演", "Call Sheet PDF"}));
    EXPECT_EQ(entries(callSheets(menu)), QStringList{"请先新建通告单 (off)"});
    menu.close();
    store->setLanguage("en");
    settle();
    QMenu& english = openMenu();
    EXPECT_EQ(entries(english),
              (QStringList{"Storyboard PDF · for DP", "Shoot report PDF · for director", "Call Sheet PDF"}));
    EXPECT_EQ(entries(callSheets(english)), QStringList{"Create a call sheet first (off)"});
    english.close();
}

TEST_F(ExportMenuTest, ListsTheCallSheetsByTheirDays) {
    makeSheets({20, 5, 20, 12});
    QMenu& menu = openMenu();
    EXPECT_EQ(entries(callSheets(menu)),
              (QStringList{"2026-03-06 · 第 1 版 && more", "2026-03-13 · 第 3 版 && more",
                           "2026-03-21 · 第 0 版 && more", "2026-03-21 · 第 2 版 && more"}));
    menu.close();
}

TEST_F(ExportMenuTest, WritesAndOpensEachDocumentUnderItsName) {
    makeSheets({20});
    setTitle("夜/班");
    press(0);
    EXPECT_EQ(panels.suggested, "夜-班-Storyboard.pdf");
    EXPECT_TRUE(isPDF());
    press(1);
    EXPECT_EQ(panels.suggested, "夜-班-Report.pdf");
    pressCallSheet(0);
    EXPECT_EQ(panels.suggested, "夜-班-2026-03-21-CallSheet.pdf");
    EXPECT_EQ(panels.asked, std::vector<std::string>(3, "save pdf"));
    EXPECT_EQ(desktop.opened, std::vector(3, document()));
    EXPECT_FALSE(store->error());
}

TEST_F(ExportMenuTest, ProposesNoNameThatADiskRefuses) {
    std::string title = "a/b\n";
    for (int i = 0; i < 500; ++i)
        title += "夜";
    setTitle(Text(title));
    press(1);
    EXPECT_EQ(panels.suggested.substr(0, 4), "a-b-");
    EXPECT_LE(panels.suggested.size(), 255U);
    EXPECT_TRUE(panels.suggested.ends_with("夜-Report.pdf"));
}

TEST_F(ExportMenuTest, ProposesANameWithoutTheSignsOfAPath) {
    makeSheets({20});
    setTitle("a/b");
    std::vector<std::string> proposed;
    for (const auto& choose : std::vector<std::function<void()>>{[this] { press(0); }, [this] { press(1); },
                                                                 [this] { pressCallSheet(0); }}) {
        choose();
        proposed.push_back(panels.suggested);
    }
    EXPECT_EQ(proposed, (std::vector<std::string>{"a-b-Storyboard.pdf", "a-b-Report.pdf",
                                                  "a-b-2026-03-21-CallSheet.pdf"}));
}

TEST_F(ExportMenuTest, SavesWhatWasTypedFirst) {
    setTitle("Typed just now");
    ASSERT_TRUE(store->hasUnsavedChanges());
    panels.whileOpen = [this] { EXPECT_FALSE(store->hasUnsavedChanges()); };
    press(0);
    EXPECT_EQ(panels.suggested, "Typed just now-Storyboard.pdf");
}

TEST_F(ExportMenuTest, AProductionIsPrintedThoughTheDiskRefusesToSave) {
    setTitle("Unsaved");
    disk.full = true;
    panels.whileOpen = [this] { disk.full = false; };
    press(0);
    EXPECT_EQ(panels.asked.size(), 1U);
    EXPECT_TRUE(isPDF());
}

TEST_F(ExportMenuTest, ACallSheetThatCannotBeSavedIsNotPrinted) {
    makeSheets({20});
    setTitle("Unsaved");
    disk.full = true;
    pressCallSheet(0);
    EXPECT_TRUE(panels.asked.empty());
    EXPECT_FALSE(std::filesystem::exists(document()));
    EXPECT_TRUE(store->saveFailed());
    disk.full = false;
}

TEST_F(ExportMenuTest, APersonWhoChangesTheirMindGetsNothing) {
    panels.choice = std::nullopt;
    press(0);
    EXPECT_FALSE(std::filesystem::exists(document()));
    EXPECT_TRUE(desktop.opened.empty());
    EXPECT_FALSE(store->error());
}

TEST_F(ExportMenuTest, AProductionThatGoesMeanwhileIsPrintedAsItWas) {
    panels.whileOpen = [this] { store->removeProject(project); };
    press(0);
    EXPECT_TRUE(isPDF());
    EXPECT_FALSE(store->error());
}

TEST_F(ExportMenuTest, IsFoundByAssistiveToolsWhileItIsOpen) {
    makeSheets({20});
    auto& button = get<QAbstractButton>(QStringLiteral("导出 PDF"));
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&button);
    EXPECT_EQ(spoken->role(), QAccessible::ButtonMenu);
    EXPECT_EQ(spoken->childCount(), 0);
    spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    settle();
    ASSERT_EQ(spoken->childCount(), 1);
    QAccessibleInterface* menu = spoken->child(0);
    EXPECT_EQ(menu->role(), QAccessible::PopupMenu);
    EXPECT_EQ(menu->text(QAccessible::Name), QStringLiteral("导出 PDF"));
    EXPECT_EQ(spoken->indexOfChild(menu), 0);
    ASSERT_EQ(menu->childCount(), 3);
    EXPECT_EQ(menu->child(1)->text(QAccessible::Name), QStringLiteral("拍摄报告 PDF · 给导演"));
    QAccessibleInterface* sheets = menu->child(2)->child(0);
    ASSERT_EQ(sheets->childCount(), 1);
    EXPECT_EQ(sheets->child(0)->text(QAccessible::Name), QStringLiteral("2026-03-21 · 第 0 版 & more"));
    menu->child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(panels.asked.empty()) << "the tool goes on at once";
    EXPECT_NE(QApplication::activePopupWidget(), nullptr);
    panels.whileOpen = [] { EXPECT_EQ(QApplication::activePopupWidget(), nullptr); };
    settle();
    EXPECT_EQ(panels.suggested, "候车室-Storyboard.pdf");
    EXPECT_EQ(spoken->childCount(), 0);
}

TEST_F(ExportMenuTest, OpensOnePanelHoweverOftenItIsAsked) {
    makeSheets({20});
    QMenu& menu = openMenu();
    QAction* plan = menu.actions().at(0);
    QAction* sheet = callSheets(menu).actions().at(0);
    panels.whileOpen = [&] {
        sheet->trigger();
        settle();
    };
    plan->trigger();
    plan->trigger();
    sheet->trigger();
    settle();
    EXPECT_EQ(panels.asked.size(), 1U);
    EXPECT_EQ(panels.suggested, "候车室-Storyboard.pdf");
    panels.whileOpen = {};
    press(1);
    EXPECT_EQ(panels.suggested, "候车室-Report.pdf") << "and again afterwards";
}

TEST_F(ExportMenuTest, WhatIsLeftBeforeThePanelOpensOpensNone) {
    QAction* plan = openMenu().actions().at(0);
    plan->trigger();
    window->go(Route::library());
    settle();
    EXPECT_TRUE(panels.asked.empty());
    go(Route::project(project));
    plan = openMenu().actions().at(0);
    plan->trigger();
    store->removeProject(project);
    settle();
    EXPECT_TRUE(panels.asked.empty());
    EXPECT_FALSE(store->error());
}

TEST_F(ExportMenuTest, AWindowThatClosesOpensNoPanel) {
    QAction* plan = openMenu().actions().at(0);
    window->close();
    plan->trigger();
    settle();
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(panels.asked.empty());
}

TEST_F(ExportMenuTest, APageThatGoesWhileItsPanelIsOpenIsNotMissed) {
    panels.whileOpen = [this] {
        window->go(Route::library());
        settle();
    };
    press(0);
    EXPECT_TRUE(isPDF());
    EXPECT_EQ(route(), Route::library());
}

TEST_F(ExportMenuTest, OpensByTheKeyboardAndClosesByEscape) {
    get<QAbstractButton>(QStringLiteral("导出 PDF")).setFocus(Qt::TabFocusReason);
    WindowTest::press(Qt::Key_Return);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Escape);
    settle();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(panels.asked.empty());
}

}  // namespace
}  // namespace vantry::test
