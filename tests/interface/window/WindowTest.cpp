// The window as a whole: from the empty library to a take on disk, places and the way between them.

#include <QDialog>
#include <QSignalSpy>

#include "Vantry/interface/design/SegmentedChoice.h"
#include "Vantry/interface/design/TabularLabel.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

TEST_F(WindowTest, FromAnEmptyLibraryToATakeOnDisk) {
    open(true);
    EXPECT_TRUE(shows(QStringLiteral("从一个项目开始")));
    clickOnPage(QStringLiteral("新建项目"));
    auto* sheet = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(sheet, nullptr);
    QTest::keyClicks(&get<QLineEdit>(QStringLiteral("项目名称"), sheet), QStringLiteral("  Night Ferry "));
    QTest::keyClicks(&get<QLineEdit>(QStringLiteral("导演"), sheet), QStringLiteral("Mei "));
    click(QStringLiteral("创建"), sheet);
    EXPECT_FALSE(sheet->isVisible());
    ASSERT_EQ(store->library().projects.size(), 1U);
    project = store->library().projects[0]->id;
    EXPECT_EQ(store->library().projects[0]->title, Text("Night Ferry"));
    EXPECT_EQ(store->library().projects[0]->director, Text("Mei ")) << "as typed";
    EXPECT_EQ(route(), Route::project(project));

    clickOnPage(QStringLiteral("新增幕"));
    EXPECT_EQ(route(), Route::project(project)) << "the page stays";
    clickOnPage(QStringLiteral("第 1 幕"));
    clickOnPage(QStringLiteral("新增分镜"));
    act = *route().actID();
    const auto record = store->act(project, act);
    ASSERT_EQ(record->shots.size(), 1U);
    shot = record->shots[0]->id;
    EXPECT_EQ(route(), shotRoute()) << "a new shot is opened";

    press(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_EQ(shotRecord().takes.size(), 1U);
    take = shotRecord().takes[0]->id;
    EXPECT_EQ(route(), takeRoute());
    EXPECT_TRUE(shows(QStringLiteral("Take 01")));

    QTest::mouseClick(notes().viewport(), Qt::LeftButton);
    QTest::keyClicks(&notes(), QStringLiteral("Best so far"));
    QTest::keyClick(&notes(), Qt::Key_Return);
    QInputMethodEvent compose(QStringLiteral("zhunque"), {});
    QApplication::sendEvent(&notes(), &compose);
    commit(notes(), QStringLiteral("焦点准确"));
    clickOnPage(QStringLiteral("Good"));
    clickOnPage(QStringLiteral("4 星"));

    const auto onDisk = [this]() -> std::optional<VantryTake> {
        const Library library = DiskStore::read(file());
        const Project* found = findRecord(library.projects, project);
        if (found == nullptr || found->acts.empty() || found->acts[0]->shots.empty() ||
            found->acts[0]->shots[0]->takes.empty())
            return std::nullopt;
        return *found->acts[0]->shots[0]->takes[0];
    };
    ASSERT_TRUE(QTest::qWaitFor([&] { return onDisk() && onDisk()->stars == 4; }));
    EXPECT_EQ(onDisk()->notes, Text("Best so far\n焦点准确"));
    EXPECT_EQ(onDisk()->result, TakeResult::good);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shows(QStringLiteral("已存于本机")); }));
}

TEST_F(WindowTest, HasItsTitleSizeAndColumns) {
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Vantry"));
    EXPECT_EQ(window->size(), QSize(1380, 900));
    EXPECT_EQ(window->minimumSize(), QSize(1000, 680));
    window->resize(1000, 680);
    settle();
    EXPECT_EQ(window->size(), QSize(1000, 680));
    QWidget* sidebar = tree().parentWidget();
    EXPECT_EQ(sidebar->width(), 250);
    EXPECT_EQ(sidebar->minimumWidth(), 220);
    EXPECT_EQ(sidebar->maximumWidth(), 360);
}

TEST_F(WindowTest, NeedsNoMoreThanItsSmallestSizeOnAnyPage) {
    makeTake();
    window->resize(1000, 680);
    for (const char* spoken : {"zh", "en"}) {
        store->setLanguage(Text(spoken));
        for (const Route& place : {Route::library(), Route::project(project), Route::act(project, act),
                                   shotRoute(), takeRoute()}) {
            go(place);
            EXPECT_EQ(window->size(), QSize(1000, 680));
            for (auto* button : page().findChildren<QAbstractButton*>()) {
                if (!button->isVisible())
                    continue;
                EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->text().toStdString();
                const QRect place = QRect(button->mapTo(&page(), QPoint()), button->size());
                EXPECT_LE(place.right(), page().width()) << button->text().toStdString();
            }
        }
    }
}

TEST_F(WindowTest, TheSheetCreatesNothingFromABlankName) {
    clickOnPage(QStringLiteral("新建项目"));
    auto* sheet = QApplication::activeModalWidget();
    ASSERT_NE(sheet, nullptr);
    auto& create = get<QAbstractButton>(QStringLiteral("创建"), sheet);
    EXPECT_FALSE(create.isEnabled());
    auto& name = get<QLineEdit>(QStringLiteral("项目名称"), sheet);
    commit(name, QStringLiteral(" 　\t"));
    EXPECT_FALSE(create.isEnabled());
    QTest::keyClick(&name, Qt::Key_Return);
    settle();
    EXPECT_TRUE(store->library().projects.empty());
    QTest::keyClicks(&name, QStringLiteral("x"));
    EXPECT_TRUE(create.isEnabled());
    click(QStringLiteral("取消"), sheet);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_TRUE(store->library().projects.empty());

    click(QStringLiteral("新建项目"), tree().parentWidget());
    EXPECT_TRUE(
        get<QLineEdit>(QStringLiteral("项目名称"), QApplication::activeModalWidget()).text().isEmpty())
        << "it begins anew";
}

TEST_F(WindowTest, ReturnInTheSheetCreatesAndEscapeCancels) {
    clickOnPage(QStringLiteral("新建项目"));
    QTest::keyClicks(&get<QLineEdit>(QStringLiteral("项目名称"), QApplication::activeModalWidget()),
                     QStringLiteral("x"));
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    clickOnPage(QStringLiteral("新建项目"));
    auto& name = get<QLineEdit>(QStringLiteral("项目名称"), QApplication::activeModalWidget());
    QTest::keyClicks(&name, QStringLiteral("y"));
    QTest::keyClick(&name, Qt::Key_Return);
    settle();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    ASSERT_EQ(store->library().projects.size(), 1U);
    EXPECT_EQ(store->library().projects[0]->title, Text("y"));
}

TEST_F(WindowTest, TwoQuickPressesOfCreateMakeOneProject) {
    clickOnPage(QStringLiteral("新建项目"));
    auto* sheet = QApplication::activeModalWidget();
    QTest::keyClicks(&get<QLineEdit>(QStringLiteral("项目名称"), sheet), QStringLiteral("Once"));
    auto& create = get<QAbstractButton>(QStringLiteral("创建"), sheet);
    QTest::mouseClick(&create, Qt::LeftButton);
    QTest::mouseClick(&create, Qt::LeftButton);
    settle();
    EXPECT_EQ(store->library().projects.size(), 1U);
}

TEST_F(WindowTest, ANewProjectIsOpenInTheTree) {
    clickOnPage(QStringLiteral("新建项目"));
    auto* sheet = QApplication::activeModalWidget();
    QTest::keyClicks(&get<QLineEdit>(QStringLiteral("项目名称"), sheet), QStringLiteral("Open"));
    click(QStringLiteral("创建"), sheet);
    clickOnPage(QStringLiteral("新增幕"));
    const QModelIndex row = tree().model()->index(0, 0);
    EXPECT_EQ(tree().model()->rowCount(row), 1);
    EXPECT_TRUE(tree().isExpanded(row));
    EXPECT_TRUE(tree().visualRect(tree().model()->index(0, 0, row)).isValid());
}

TEST_F(WindowTest, CrumbsLeadUpAndTheCurrentOneNowhere) {
    makeTake();
    go(takeRoute());
    const Text code = shotRecord().code;
    auto& shotCrumb = get<QAbstractButton>(toQString(code) + QStringLiteral(" 未命名镜头"));
    EXPECT_TRUE(shotCrumb.isEnabled()) << "the take itself has no crumb";
    QTest::mouseClick(&shotCrumb, Qt::LeftButton);
    settle();
    EXPECT_EQ(route(), shotRoute());
    EXPECT_FALSE(get<QAbstractButton>(toQString(code) + QStringLiteral(" 未命名镜头")).isEnabled());
    click(QStringLiteral("第 1 幕"));
    EXPECT_EQ(route(), Route::act(project, act));
    click(QStringLiteral("候车室"));
    EXPECT_EQ(route(), Route::project(project));
}

TEST_F(WindowTest, BackHomeAndTheShortcutOfTheLibrary) {
    auto& back = get<QAbstractButton>(QStringLiteral("返回"));
    EXPECT_FALSE(back.isEnabled());
    makeTake();
    go(Route::project(project));
    go(Route::act(project, act));
    EXPECT_TRUE(back.isEnabled());
    QTest::mouseClick(&back, Qt::LeftButton);
    settle();
    EXPECT_EQ(route(), Route::project(project));
    press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(route(), Route::library());
    EXPECT_FALSE(back.isEnabled());
    go(takeRoute());
    notes().setFocus();
    press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(route(), Route::library()) << "from inside the notes too";
}

TEST_F(WindowTest, AHundredCleanNavigationsTouchNoFile) {
    makeTake();
    support::makeOld(file());
    const auto before = support::factsOf(file());
    const auto previous = support::factsOf(root() / "library.json.previous");
    for (int round = 0; round < 25; ++round)
        for (const Route& place : {Route::project(project), shotRoute(), takeRoute(), Route::library()})
            go(place);
    clock.advance(10000);
    EXPECT_EQ(support::factsOf(file()), before);
    EXPECT_EQ(support::factsOf(root() / "library.json.previous"), previous);
}

TEST_F(WindowTest, LeavingAPageSavesItAtOnce) {
    makeTake();
    go(takeRoute());
    QTest::keyClicks(&notes(), QStringLiteral("typed just now"));
    go(shotRoute());
    EXPECT_EQ(DiskStore::read(file()).projects[0]->acts[0]->shots[0]->takes[0]->notes,
              Text("typed just now"));
}

TEST_F(WindowTest, TheStatusLineTellsTheStateAndTheTime) {
    EXPECT_TRUE(shows(QStringLiteral("Vantry · 0.7.7")));
    EXPECT_TRUE(shows(QStringLiteral("已存于本机")));
    makeTake();
    go(takeRoute());
    const auto& time = *window->findChild<TabularLabel*>();
    // 800000000 seconds after the first of 2001 in UTC are 14:13 on the clocks of Shanghai.
    EXPECT_EQ(time.text(), QStringLiteral("14:13"));
    EXPECT_TRUE(time.isVisible());
    QTest::keyClicks(&notes(), QStringLiteral("x"));
    settle();
    EXPECT_TRUE(shows(QStringLiteral("正在保存…")));
    EXPECT_FALSE(time.isVisible());
    clock.advance(350);
    settle();
    EXPECT_TRUE(shows(QStringLiteral("已存于本机")));
    store->setLanguage("en");
    settle();
    EXPECT_TRUE(shows(QStringLiteral("Saved on this Mac")));
}

TEST_F(WindowTest, ManyChangesAreOneRefresh) {
    makeTake();
    go(takeRoute());
    auto& heading = get<Label>(QStringLiteral("未命名镜头"), &page());
    // The row of the shot tells each time that it is brought in line with another title.
    QSignalSpy changes(tree().model(), &QAbstractItemModel::dataChanged);
    for (const char* title : {"one", "two", "three"})
        store->updateShot(project, act, shot, [&](Shot& record) { record.title = title; });
    EXPECT_EQ(heading.text(), QStringLiteral("未命名镜头")) << "events only mark";
    settle();
    EXPECT_EQ(heading.text(), QStringLiteral("three"));
    EXPECT_EQ(changes.count(), 1);
    store->updateShot(project, act, shot, [&](Shot& record) { record.title = "four"; });
    window->refreshNow();
    EXPECT_EQ(heading.text(), QStringLiteral("four"));
}

TEST_F(WindowTest, TheKeyboardWalksFromTheSidebarThroughTheBarsToThePage) {
    makeTake();
    go(takeRoute());
    get<QAbstractButton>(QStringLiteral("资料库"), tree().parentWidget()).setFocus();
    QStringList reached;
    for (int step = 0; step < 20; ++step) {
        reached.append(
            QAccessible::queryAccessibleInterface(QApplication::focusWidget())->text(QAccessible::Name));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(reached, (QStringList{"资料库",
                                    "搜索",
                                    "日历",
                                    "设置",
                                    "全部展开",
                                    "收起",
                                    "目录",
                                    "新建项目",
                                    "返回",
                                    "资料库",
                                    "撤销结构修改",
                                    "保存",
                                    "资料库",
                                    "候车室",
                                    "第 1 幕",
                                    toQString(shotRecord().code) + " 未命名镜头",
                                    "选择分镜",
                                    "新 Take · ⌘ Return",
                                    "放大分镜图片 · 01",
                                    "查看分镜计划"}));
}

TEST_F(WindowTest, TheAppearanceChangesWithoutRebuildingAnything) {
    makeTake();
    go(takeRoute());
    Page* const shown = &page();
    notes().setFocus();
    store->setAppearance("dark");
    settle();
    EXPECT_EQ(Palette::of(*window).canvas, Palette::dark().canvas);
    EXPECT_EQ(&page(), shown);
    EXPECT_TRUE(notes().hasFocus());
    store->setAppearance("light");
    settle();
    EXPECT_EQ(Palette::of(*window).canvas, Palette::light().canvas);
}

}  // namespace
}  // namespace vantry::test
