// What is open in the sidebar's tree, where it is scrolled, and how it shows both.

#include <QMouseEvent>
#include <QScrollBar>

#include "Vantry/interface/design/VantryMotionPreference.h"
#include "Vantry/interface/navigation/DisclosureLayer.h"
#include "Vantry/interface/navigation/LibraryTreeModel.h"
#include "tests/interface/design/Darkest.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

class SidebarTreeTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
    }
    [[nodiscard]] QModelIndex rowOf(const Route& place) const {
        return static_cast<const LibraryTreeModel*>(tree().model())->indexOf(place);
    }
    [[nodiscard]] bool isOpen(const Route& place) const { return tree().isExpanded(rowOf(place)); }
    [[nodiscard]] QScrollBar& bar() const { return *tree().verticalScrollBar(); }
    [[nodiscard]] DisclosureLayer& layer() const { return *tree().findChild<DisclosureLayer*>(); }
    /// Many productions with acts, so that there is something to scroll.
    void makeMany() {
        for (int count = 0; count < 40; ++count)
            store->addAct(store->addProject(Text("Production " + std::to_string(count)), ""));
        settle();
    }
    [[nodiscard]] QImage pictureOf(const QModelIndex& row) const {
        return tree().viewport()->grab(tree().visualRect(row)).toImage();
    }
    /// At least so much lighter a text is on a row that is pressed.
    static constexpr int fainter = 20;
    /// Moves the pointer there with the button down.
    void sendMove(const QPoint& place) const {
        QMouseEvent move(QEvent::MouseMove, place, tree().viewport()->mapToGlobal(place), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(tree().viewport(), &move);
    }
    void clickAt(const QModelIndex& row, int x) const {
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {},
                          QPoint(x, tree().visualRect(row).center().y()));
        settle();
    }
    /// All rows on show, found one after the other from the top.
    [[nodiscard]] QModelIndexList walk() const {
        QModelIndexList rows;
        for (QModelIndex row = tree().model()->index(0, 0); row.isValid(); row = tree().indexBelow(row))
            rows.append(row);
        return rows;
    }
};

TEST_F(SidebarTreeTest, ExpandAllIsAboutTheRecordsOfThatMoment) {
    click(QStringLiteral("全部展开"));
    const Identifier later = store->addAct(project);
    const Identifier laterShot = store->addShot(project, later);
    const Identifier other = store->addProject("Other", "");
    store->addAct(other);
    settle();
    EXPECT_TRUE(isOpen(Route::project(project)));
    EXPECT_FALSE(isOpen(Route::act(project, later)));
    EXPECT_FALSE(isOpen(Route::shot(project, later, laterShot)));
    EXPECT_FALSE(isOpen(Route::project(other)));
}

TEST_F(SidebarTreeTest, ARowIsOpenEvenBeforeAnythingIsInIt) {
    const Identifier empty = store->addAct(project);
    settle();
    click(QStringLiteral("全部展开"));
    const Identifier first = store->addShot(project, empty);
    settle();
    EXPECT_TRUE(isOpen(Route::act(project, empty)));
    EXPECT_TRUE(tree().visualRect(rowOf(Route::shot(project, empty, first))).isValid());
}

TEST_F(SidebarTreeTest, AnUndoBringsRowsBackAsTheyWereLeft) {
    const Identifier second = store->addShot(project, act);
    settle();
    click(QStringLiteral("全部展开"));
    tree().toggle(rowOf(Route::shot(project, act, second)));
    go(Route::act(project, act));
    clickOnPage(QStringLiteral("删除这一幕…"));
    answer(QStringLiteral("删除"));
    EXPECT_FALSE(rowOf(Route::act(project, act)).isValid());
    click(QStringLiteral("撤销结构修改"));
    EXPECT_TRUE(isOpen(Route::act(project, act)));
    EXPECT_TRUE(isOpen(shotRoute()));
    EXPECT_FALSE(isOpen(Route::shot(project, act, second)));
    EXPECT_TRUE(tree().visualRect(rowOf(takeRoute())).isValid());
}

TEST_F(SidebarTreeTest, ExpandAllForgetsWhatIsGone) {
    click(QStringLiteral("全部展开"));
    go(Route::act(project, act));
    clickOnPage(QStringLiteral("删除这一幕…"));
    answer(QStringLiteral("删除"));
    click(QStringLiteral("全部展开"));
    click(QStringLiteral("撤销结构修改"));
    ASSERT_TRUE(rowOf(Route::act(project, act)).isValid());
    EXPECT_FALSE(isOpen(Route::act(project, act)));
    EXPECT_TRUE(isOpen(Route::project(project)));
}

TEST_F(SidebarTreeTest, ANewTakeInAnOpenShotTakesItsPlace) {
    click(QStringLiteral("全部展开"));
    const Identifier fresh = store->addTake(project, act, shot);
    settle();
    const QModelIndexList rows = walk();
    ASSERT_EQ(rows.size(), 6);
    EXPECT_EQ(rows[4], rowOf(Route::take(project, act, shot, fresh)));
    EXPECT_EQ(LibraryTreeModel::kindOf(rows[5]), LibraryTreeModel::Kind::newTake);
    for (int at = 0; at < rows.size(); ++at)
        EXPECT_EQ(tree().visualRect(rows[at]).top(), at * 44);
}

TEST_F(SidebarTreeTest, RowsAreCountedAsTheyAreSeen) {
    makeMany();
    for (const QString how : {"全部展开", "收起"}) {
        click(how);
        bar().setValue(bar().maximum() / 2);
        const QModelIndexList rows = walk();
        EXPECT_EQ(tree().shownRows(), rows.size());
        for (int at = 0; at < rows.size(); ++at) {
            EXPECT_EQ(tree().shownRow(at), rows[at]);
            EXPECT_EQ(tree().placeOf(rows[at]), at);
        }
        EXPECT_FALSE(tree().shownRow(-1).isValid());
        EXPECT_FALSE(tree().shownRow(static_cast<int>(rows.size())).isValid());
    }
    EXPECT_EQ(tree().placeOf(rowOf(shotRoute())), -1) << "it is in a row that is closed";
}

TEST_F(SidebarTreeTest, WhatIsSeenStaysThroughEveryRefresh) {
    makeMany();
    click(QStringLiteral("全部展开"));
    go(takeRoute());
    bar().setValue(1000);
    const QPersistentModelIndex top = tree().indexAt({0, 0});
    const int at = tree().visualRect(top).top();
    const auto expectStill = [&](const char* what) {
        EXPECT_EQ(tree().indexAt({0, 0}), top) << what;
        EXPECT_EQ(tree().visualRect(top).top(), at) << what;
        EXPECT_EQ(tree().selectionModel()->selectedIndexes(), QModelIndexList{rowOf(takeRoute())}) << what;
    };
    commit(notes(), QStringLiteral("x"));
    settle();
    expectStill("a letter");
    store->setLanguage("en");
    settle();
    expectStill("another language");
    store->setLanguage("zh");
    const Identifier above = store->addTake(project, act, shot);
    settle();
    expectStill("a take above");
    store->updateShot(project, act, shot, [&](Shot& record) {
        std::erase_if(record.takes, [&](const auto& candidate) { return candidate->id == above; });
    });
    settle();
    expectStill("a take gone above");
    store->updateProject(project, [](Project& record) { record.title = "Renamed"; });
    settle();
    expectStill("another title");
}

TEST_F(SidebarTreeTest, TheChevronOpensAndTheRestOfTheRowLeads) {
    const QModelIndex row = rowOf(Route::project(project));
    for (const int x : {0, 6, 13, 20, 27}) {
        clickAt(row, x);
        EXPECT_TRUE(tree().isExpanded(row)) << x;
        clickAt(row, x);
        EXPECT_FALSE(tree().isExpanded(row)) << x;
        EXPECT_EQ(route(), Route::library()) << x;
    }
    for (const int x : {28, 100, 225}) {
        go(Route::library());
        clickAt(row, x);
        EXPECT_EQ(route(), Route::project(project)) << x;
        EXPECT_FALSE(tree().isExpanded(row)) << x;
    }
    go(Route::library());
    const QPoint chevron(13, tree().visualRect(row).center().y());
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, chevron);
    QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, chevron);
    settle();
    EXPECT_FALSE(tree().isExpanded(row)) << "two quick clicks are two clicks";
    EXPECT_EQ(route(), Route::library());
}

TEST_F(SidebarTreeTest, ClosingLooksBackFromTheRowThatWasSeen) {
    makeMany();
    click(QStringLiteral("全部展开"));
    const Identifier middle = store->library().projects[20]->id;
    const Identifier inIt = store->library().projects[20]->acts[0]->id;
    const QModelIndex seen = rowOf(Route::act(middle, inIt));
    bar().setValue(tree().placeOf(seen) * 44);
    ASSERT_EQ(tree().indexAt({0, 0}), seen);
    click(QStringLiteral("收起"));
    EXPECT_EQ(tree().indexAt({0, 0}), rowOf(Route::project(middle)));
    click(QStringLiteral("全部展开"));
    EXPECT_EQ(tree().indexAt({0, 0}), rowOf(Route::project(middle)));
}

TEST_F(SidebarTreeTest, OpeningIsShownWhileTheTreeIsThereAlready) {
    const QModelIndex row = rowOf(Route::project(project));
    tree().toggle(row);
    EXPECT_TRUE(layer().isVisible());
    EXPECT_LT(layer().progress(), 1);
    EXPECT_EQ(layer().y(), tree().visualRect(row).bottom() + 1) << "what stands above stays";
    clickAt(rowOf(Route::act(project, act)), 100);
    EXPECT_EQ(route(), Route::act(project, act)) << "clicks go to the rows";
    ASSERT_TRUE(QTest::qWaitFor([&] { return !layer().isVisible(); }));
    EXPECT_EQ(layer().progress(), 1);
    click(QStringLiteral("全部展开"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !layer().isVisible(); }));
    tree().toggle(row);
    EXPECT_TRUE(layer().isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !layer().isVisible(); }));
}

TEST_F(SidebarTreeTest, NothingIsShownWithReducedMotion) {
    VantryMotionPreference still;
    still.setChoice(true);
    tree().toggle(rowOf(Route::project(project)));
    EXPECT_FALSE(layer().isVisible());
    EXPECT_TRUE(isOpen(Route::project(project)));
    QTest::mouseClick(&get<QAbstractButton>(QStringLiteral("全部展开")), Qt::LeftButton);
    EXPECT_FALSE(layer().isVisible());
    EXPECT_TRUE(isOpen(shotRoute()));
}

TEST_F(SidebarTreeTest, ARowIsShownPressedWhileTheButtonIsDownOnIt) {
    VantryMotionPreference still;
    still.setChoice(true);
    click(QStringLiteral("全部展开"));
    const QModelIndex row = rowOf(Route::act(project, act));
    const QPoint onRow = tree().visualRect(row).center();
    const QPoint onOther = tree().visualRect(rowOf(shotRoute())).center();
    const QImage atRest = pictureOf(row);
    QTest::mousePress(tree().viewport(), Qt::LeftButton, {}, onRow);
    const QImage down = pictureOf(row);
    EXPECT_GT(darkest(down), darkest(atRest) + fainter) << "the texts too";
    sendMove(onOther);
    EXPECT_EQ(darkest(pictureOf(row)), darkest(atRest)) << "let go here, it is no click";
    sendMove(onRow);
    EXPECT_EQ(darkest(pictureOf(row)), darkest(down));
    QTest::mouseRelease(tree().viewport(), Qt::LeftButton, {}, onRow);
    settle();
    EXPECT_EQ(route(), Route::act(project, act));
    EXPECT_EQ(darkest(pictureOf(row)), darkest(atRest));
}

TEST_F(SidebarTreeTest, OnlyWhatCanBePressedIsShownPressed) {
    VantryMotionPreference still;
    still.setChoice(true);
    store->updateShot(project, act, shot, [](Shot& record) { record.cancelled = true; });
    click(QStringLiteral("全部展开"));
    const auto staysDark = [&](const QModelIndex& row, const QPoint& place, Qt::MouseButton button) {
        const int before = darkest(pictureOf(row));
        QTest::mousePress(tree().viewport(), button, {}, place);
        const bool stays = darkest(pictureOf(row)) == before;
        QTest::mouseRelease(tree().viewport(), button, {}, place);
        settle();
        return stays;
    };
    const QModelIndex off = tree().model()->index(1, 0, rowOf(shotRoute()));
    ASSERT_FALSE(off.flags().testFlag(Qt::ItemIsEnabled));
    EXPECT_TRUE(staysDark(off, tree().visualRect(off).center(), Qt::LeftButton));
    const QModelIndex row = rowOf(Route::act(project, act));
    EXPECT_TRUE(staysDark(row, tree().visualRect(row).center(), Qt::RightButton));
    EXPECT_TRUE(staysDark(row, {20, tree().visualRect(row).center().y()}, Qt::LeftButton)) << "its sign";
}

TEST_F(SidebarTreeTest, BeingPressedMovesAndEnds) {
    const QModelIndex row = rowOf(Route::project(project));
    const int atRest = darkest(pictureOf(row));
    const QPoint place = tree().visualRect(row).center();
    QTest::mousePress(tree().viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(darkest(pictureOf(row)), atRest) << "not all at once";
    EXPECT_TRUE(QTest::qWaitFor([&] { return darkest(pictureOf(row)) > atRest + fainter; }));
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_TRUE(QTest::qWaitFor([&] { return darkest(pictureOf(row)) == atRest; }))
        << "the release went there";
}

TEST_F(SidebarTreeTest, AKeyThatDoesNothingHereShowsNoRing) {
    VantryMotionPreference still;
    still.setChoice(true);
    const QModelIndex row = rowOf(Route::project(project));
    go(Route::project(project));
    tree().setCurrentIndex(row);
    tree().setFocus(Qt::MouseFocusReason);
    const QImage without = pictureOf(row);
    for (const Qt::Key key : {Qt::Key_Control, Qt::Key_Shift, Qt::Key_Alt, Qt::Key_Meta, Qt::Key_CapsLock,
                              Qt::Key_F5, Qt::Key_Escape}) {
        press(key);
        EXPECT_EQ(pictureOf(row), without) << key;
    }
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Home, Qt::Key_Left, Qt::Key_Space}) {
        tree().clearFocus();
        tree().setFocus(Qt::MouseFocusReason);
        ASSERT_EQ(pictureOf(row), without);
        press(key);
        EXPECT_NE(pictureOf(row), without) << key;
    }
}

TEST_F(SidebarTreeTest, TheFirstLetterOfATitleLeadsToItAndShowsSo) {
    store->addProject("Zebra", "");
    settle();
    tree().setCurrentIndex(rowOf(Route::project(project)));
    tree().setFocus(Qt::MouseFocusReason);
    const QModelIndex row = tree().model()->index(1, 0);
    const QImage without = pictureOf(row);
    QTest::keyClick(&tree(), 'z');
    EXPECT_EQ(tree().currentIndex(), row);
    EXPECT_NE(pictureOf(row), without);
}

TEST_F(SidebarTreeTest, TheKeyboardBeginsAtThePlaceOnScreen) {
    click(QStringLiteral("全部展开"));
    go(shotRoute());
    ASSERT_FALSE(tree().currentIndex().isValid());
    tree().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(tree().currentIndex(), rowOf(shotRoute()));
}

TEST_F(SidebarTreeTest, RowsSayWhatTheyHaveToTheLetter) {
    store->updateProject(project, [](Project& record) {
        record.title = "Tom & Jerry <b>x</b>";
        record.director = "";
        record.conflictKey = "key";
    });
    store->updateShot(project, act, shot, [](Shot& record) {
        record.code = "12";
        record.title = "Door";
    });
    settle();
    const auto said = [this](const Route& place) {
        const QModelIndex row = rowOf(place);
        return row.data().toString() + " | " + row.data(LibraryTreeModel::detailRole).toString();
    };
    EXPECT_EQ(said(Route::project(project)), "Tom & Jerry <b>x</b> | 导演： · 保留版本");
    EXPECT_EQ(said(Route::act(project, act)), "第 1 幕 | 1 镜 · 0 完成 / 1 未完");
    EXPECT_EQ(said(shotRoute()), "12 Door | 1 Take · 0★");
    EXPECT_EQ(said(takeRoute()), "Take 1 | — · 0★");
    store->setLanguage("en");
    store->updateTake(project, act, shot, take, [](VantryTake& record) {
        record.result = TakeResult::good;
        record.stars = 5;
    });
    settle();
    EXPECT_EQ(said(Route::project(project)), "Tom & Jerry <b>x</b> | Director:  · retained version");
    EXPECT_EQ(said(Route::act(project, act)), "第 1 幕 | 1 shots · 1 done / 0 remaining");
    EXPECT_EQ(said(shotRoute()), "12 Door | 1 Take · 5★ · ✓");
    EXPECT_EQ(said(takeRoute()), "Take 1 | Good · 5★");
    store->updateTake(project, act, shot, take, [](VantryTake& record) { record.result = TakeResult::ng; });
    settle();
    EXPECT_EQ(said(takeRoute()), "Take 1 | NG · 5★");
    const QModelIndex newTake = tree().model()->index(1, 0, rowOf(shotRoute()));
    EXPECT_EQ(newTake.data().toString(), "New take");
    EXPECT_TRUE(newTake.flags().testFlag(Qt::ItemIsEnabled));
    store->setLanguage("zh");
    settle();
    EXPECT_EQ(newTake.data().toString(), "新 Take");
}

}  // namespace
}  // namespace vantry::test
