// The fixed places, the keys that lead to them, and the way back.

#include "Vantry/interface/design/Sheet.h"
#include "Vantry/interface/navigation/NavigationRow.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

struct Place {
    Route route;
    Qt::Key key;
    QString chinese, english;
    QStringList chineseHeading, englishHeading;
};

const std::vector<Place>& places() {
    static const std::vector<Place> all{
        {Route::library(), Qt::Key_1, "资料库", "Library", {}, {}},
        {Route::search(),
         Qt::Key_F,
         "搜索",
         "Search",
         {"跨项目检索", "搜索", "从镜号、素材名或一句笔记找到现场记录。"},
         {"Across productions", "Search", "Find the record behind a shot code, filename or note."}},
        {Route::calendar(),
         Qt::Key_3,
         "日历",
         "Calendar",
         {"拍摄计划", "日历", "选一天，看当天每一镜与通告单。"},
         {"Shoot planner", "Calendar", "Choose a day. See every shot and call time."}},
        {Route::settings(),
         Qt::Key_Comma,
         "设置",
         "Settings",
         {"Vantry", "设置", "工作习惯与本机数据，分开管理。"},
         {"Vantry", "Settings", "Your workspace preferences and your local data."}}};
    return all;
}

class PlacesTest : public WindowTest {
protected:
    [[nodiscard]] NavigationRow& row(const QString& name) const {
        return get<NavigationRow>(name, tree().parentWidget());
    }
    [[nodiscard]] QStringList heading() const {
        QStringList lines;
        for (auto* label : page().findChildren<Label*>())
            if (label->isVisible())
                lines << label->text();
        return lines;
    }
    /// A key that the input method lets through while it composes in the notes.
    void pressWhileComposing(Qt::Key key) {
        QInputMethodEvent compose(QStringLiteral("zhun"), {});
        QApplication::sendEvent(&notes(), &compose);
        press(key, Qt::ControlModifier);
    }
};

TEST_F(PlacesTest, EachHasARowAKeyAndAMark) {
    for (const bool english : {false, true}) {
        store->setLanguage(english ? "en" : "zh");
        settle();
        for (const bool byKey : {false, true})
            for (const Place& place : places()) {
                go(place.route == Route::library() ? Route::search() : Route::library());
                NavigationRow& target = row(english ? place.english : place.chinese);
                EXPECT_EQ(target.height(), 44);
                EXPECT_FALSE(QAccessible::queryAccessibleInterface(&target)->state().selected);
                if (byKey)
                    press(place.key, Qt::ControlModifier);
                else
                    QTest::mouseClick(&target, Qt::LeftButton);
                settle();
                EXPECT_EQ(route(), place.route) << place.english.toStdString();
                int marked = 0;
                for (auto* other : window->findChildren<NavigationRow*>())
                    marked += other->isChosen() ? 1 : 0;
                EXPECT_EQ(marked, 1);
                EXPECT_TRUE(target.isChosen());
                EXPECT_TRUE(QAccessible::queryAccessibleInterface(&target)->state().selected);
            }
    }
}

TEST_F(PlacesTest, WhatIsToComeHasItsHeadingAndNothingElse) {
    for (const Place& place : places()) {
        if (place.chineseHeading.isEmpty())
            continue;
        go(place.route);
        EXPECT_EQ(heading(), place.chineseHeading);
        store->setLanguage("en");
        settle();
        EXPECT_EQ(heading(), place.englishHeading);
        EXPECT_TRUE(page().findChildren<QAbstractButton*>().isEmpty());
        EXPECT_TRUE(page().findChildren<QLineEdit*>().isEmpty());
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&page())->text(QAccessible::Name), place.english);
        store->setLanguage("zh");
        settle();
    }
}

TEST_F(PlacesTest, NoKeyOfASecondPlace) {
    press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(route(), Route::library());
    EXPECT_TRUE(window->navigation().history().empty());
}

TEST_F(PlacesTest, NoShortcutFiresInTheMiddleOfAComposition) {
    makeTake();
    go(takeRoute());
    notes().setFocus();
    QTest::keyClicks(&notes(), QStringLiteral("x"));
    for (const Qt::Key key :
         {Qt::Key_1, Qt::Key_F, Qt::Key_3, Qt::Key_Comma, Qt::Key_S, Qt::Key_Return, Qt::Key_Q}) {
        pressWhileComposing(key);
        EXPECT_EQ(route(), takeRoute()) << key;
        EXPECT_TRUE(store->hasUnsavedChanges()) << key;
        EXPECT_EQ(shotRecord().takes.size(), 1U) << key;
        EXPECT_TRUE(window->isVisible());
        EXPECT_TRUE(notes().isComposing()) << "it goes on";
    }
    commit(notes(), QStringLiteral("准"));
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(store->hasUnsavedChanges());
    EXPECT_EQ(takeRecord().notes, Text("x准"));
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(route(), Route::search());
}

TEST_F(PlacesTest, ACompositionThatWasLeftHoldsNothingBack) {
    makeTake();
    go(takeRoute());
    notes().setFocus();
    pressWhileComposing(Qt::Key_F);
    EXPECT_EQ(route(), takeRoute());
    tree().setFocus();
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(route(), Route::search());
    press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(route(), Route::library());
}

TEST_F(PlacesTest, NoShortcutReachesBehindASheet) {
    makeTake();
    store->updateProject(project, [](Project& record) { record.title = "unsaved"; });
    clickOnPage(QStringLiteral("新建项目"));
    auto* sheet = topmost<Sheet>();
    ASSERT_NE(sheet, nullptr);
    sheet->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(sheet));
    for (const Qt::Key key : {Qt::Key_F, Qt::Key_3, Qt::Key_Comma, Qt::Key_S, Qt::Key_Q}) {
        press(key, Qt::ControlModifier);
        EXPECT_EQ(route(), Route::library()) << key;
        EXPECT_TRUE(store->hasUnsavedChanges()) << key;
        EXPECT_TRUE(sheet->isVisible());
    }
}

TEST_F(PlacesTest, BackLeadsThroughTheHistoryAndThenToTheLibrary) {
    auto& back = get<QAbstractButton>(QStringLiteral("返回"));
    go(Route::search());
    go(Route::calendar());
    go(Route::settings());
    go(Route::calendar());
    EXPECT_EQ(window->navigation().history(), (std::vector<Route>{Route::library(), Route::search()}));
    click(QStringLiteral("返回"));
    EXPECT_EQ(route(), Route::search());
    click(QStringLiteral("返回"));
    EXPECT_EQ(route(), Route::library());
    EXPECT_FALSE(back.isEnabled());
}

TEST_F(PlacesTest, WithAnEmptyHistoryTheCalendarLeadsBackToTheLibrary) {
    go(Route::calendar());
    // The oldest entry, the library, goes with the hundred and first place.
    for (int places = 0; places < 100; ++places)
        window->go(Route::project(Identifier::random()));
    go(Route::calendar());
    EXPECT_TRUE(window->navigation().history().empty());
    EXPECT_EQ(route(), Route::calendar());
    EXPECT_TRUE(get<QAbstractButton>(QStringLiteral("返回")).isEnabled());
    click(QStringLiteral("返回"));
    EXPECT_EQ(route(), Route::library());
}

TEST_F(PlacesTest, GoingWhereOneIsNeitherSavesNorMoves) {
    makeTake();
    go(takeRoute());
    const auto history = window->navigation().history();
    QTest::keyClicks(&notes(), QStringLiteral("x"));
    Page* const shown = &page();
    go(takeRoute());
    EXPECT_TRUE(store->hasUnsavedChanges());
    EXPECT_EQ(window->navigation().history(), history);
    EXPECT_EQ(&page(), shown);
}

TEST_F(PlacesTest, TheKeyboardIsOnThePageFromTheStartAndAfterACard) {
    makeTake();
    go(Route::library());
    EXPECT_TRUE(QApplication::focusWidget() == &page());
    get<QAbstractButton>(QStringLiteral("设置"), tree().parentWidget()).setFocus();
    clickOnPage(toQString(store->project(project)->title));
    EXPECT_EQ(route(), Route::project(project));
    EXPECT_TRUE(QApplication::focusWidget() == &page());
}

TEST_F(PlacesTest, AfterACrumbTheKeyboardIsOnThePage) {
    makeTake();
    go(takeRoute());
    click(QStringLiteral("第 1 幕"),
          find<QAbstractButton>(*window, QStringLiteral("第 1 幕"))->parentWidget());
    EXPECT_EQ(route(), Route::act(project, act));
    QWidget* const focused = QApplication::focusWidget();
    EXPECT_TRUE(focused == &page() || page().isAncestorOf(focused))
        << (focused != nullptr ? focused->accessibleName().toStdString() : "nowhere");
}

}  // namespace
}  // namespace vantry::test
