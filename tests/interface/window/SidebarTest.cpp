// The tree of the sidebar in the window.

#include <QSignalSpy>

#include "Vantry/interface/navigation/LibraryTreeModel.h"
#include "Vantry/interface/navigation/NavigationRow.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

class SidebarTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
    }
    [[nodiscard]] QModelIndex rowOf(const Route& place) const {
        return static_cast<const LibraryTreeModel*>(tree().model())->indexOf(place);
    }
    void clickRow(const QModelIndex& row) const {
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualRect(row).center());
        settle();
    }
    [[nodiscard]] QAccessibleInterface& spokenTree() const {
        return *QAccessible::queryAccessibleInterface(&tree());
    }
    /// The row of that name that assistive tools find.
    [[nodiscard]] QAccessibleInterface* spokenRow(const QString& name) const {
        for (int at = 0; at < spokenTree().childCount(); ++at)
            if (spokenTree().child(at)->text(QAccessible::Name) == name)
                return spokenTree().child(at);
        return nullptr;
    }
};

TEST_F(SidebarTest, StartsClosedAndOpensAndClosesAll) {
    EXPECT_FALSE(tree().isExpanded(rowOf(Route::project(project))));
    click(QStringLiteral("全部展开"));
    for (const Route& place : {Route::project(project), Route::act(project, act), shotRoute()})
        EXPECT_TRUE(tree().isExpanded(rowOf(place)));
    click(QStringLiteral("收起"));
    for (const Route& place : {Route::project(project), Route::act(project, act), shotRoute()})
        EXPECT_FALSE(tree().isExpanded(rowOf(place)));
}

TEST_F(SidebarTest, ARowLeadsToItsPlaceAndIsMarkedThere) {
    click(QStringLiteral("全部展开"));
    for (const Route& place : {Route::act(project, act), takeRoute(), Route::project(project), shotRoute()}) {
        clickRow(rowOf(place));
        EXPECT_EQ(route(), place);
        EXPECT_EQ(tree().selectionModel()->selectedIndexes(), QModelIndexList{rowOf(place)});
    }
    go(Route::library());
    EXPECT_TRUE(tree().selectionModel()->selectedIndexes().isEmpty());
}

TEST_F(SidebarTest, TheKeyboardWalksOpensAndPresses) {
    tree().setFocus();
    tree().setCurrentIndex(rowOf(Route::project(project)));
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    EXPECT_EQ(tree().currentIndex(), rowOf(Route::act(project, act)));
    EXPECT_EQ(route(), Route::library()) << "walking is not pressing";
    press(Qt::Key_Return);
    EXPECT_EQ(route(), Route::act(project, act));
    EXPECT_TRUE(tree().hasFocus());
    press(Qt::Key_Up);
    press(Qt::Key_Space);
    EXPECT_EQ(route(), Route::project(project));
}

TEST_F(SidebarTest, APlaceIsPressedOnceByAKeyThatIsHeld) {
    for (const QString name : {"资料库", "搜索", "日历", "设置"}) {
        auto& place = get<NavigationRow>(name);
        const QSignalSpy presses(&place, &NavigationRow::clicked);
        place.setFocus(Qt::TabFocusReason);
        press(Qt::Key_Return);
        press(Qt::Key_Return, Qt::NoModifier, true);
        EXPECT_EQ(presses.count(), 1) << name.toStdString();
    }
}

TEST_F(SidebarTest, OpenRowsStayOpenThroughChangesAndComeBackOpen) {
    click(QStringLiteral("全部展开"));
    const auto kept = store->library().projects[0];
    store->addShot(project, act);
    store->updateProject(project, [](Project& record) { record.title = "Renamed"; });
    settle();
    EXPECT_TRUE(tree().isExpanded(rowOf(shotRoute())));
    store->removeProject(project);
    settle();
    EXPECT_EQ(tree().model()->rowCount(), 0);
    // What an undo does: the record is back with its identifier.
    const Identifier other = store->addProject("Other", "");
    store->updateProject(other, [&](Project& record) { record = *kept; });
    settle();
    ASSERT_TRUE(rowOf(Route::project(project)).isValid());
    for (const Route& place : {Route::project(project), Route::act(project, act), shotRoute()})
        EXPECT_TRUE(tree().isExpanded(rowOf(place)));
}

TEST_F(SidebarTest, RowsFollowTheRecordsAtOnce) {
    click(QStringLiteral("全部展开"));
    go(takeRoute());
    clickOnPage(QStringLiteral("Good"));
    clickOnPage(QStringLiteral("4 星"));
    EXPECT_EQ(rowOf(takeRoute()).data(LibraryTreeModel::detailRole).toString(), QStringLiteral("Good · 4★"));
    EXPECT_EQ(rowOf(shotRoute()).data(LibraryTreeModel::detailRole).toString(),
              QStringLiteral("1 Take · 4★ · ✓"));
    EXPECT_EQ(rowOf(Route::act(project, act)).data(LibraryTreeModel::detailRole).toString(),
              QStringLiteral("1 镜 · 1 完成 / 0 未完"));
    go(Route::act(project, act));
    EXPECT_TRUE(shows(QStringLiteral("1 / 1 镜已完成")));
}

TEST_F(SidebarTest, ToolsFindRowsWithNameDetailStateAndPress) {
    EXPECT_EQ(spokenTree().role(), QAccessible::Tree);
    EXPECT_EQ(spokenTree().text(QAccessible::Name), QStringLiteral("目录"));
    ASSERT_EQ(spokenTree().childCount(), 1);
    auto* row = spokenTree().child(0);
    EXPECT_EQ(row->role(), QAccessible::TreeItem);
    EXPECT_EQ(row->text(QAccessible::Name), QStringLiteral("候车室"));
    EXPECT_EQ(row->text(QAccessible::Description), QStringLiteral("导演：林若水"));
    EXPECT_TRUE(row->state().collapsed);
    EXPECT_EQ(spokenTree().child(0), row) << "a row is one object";
    EXPECT_EQ(spokenTree().indexOfChild(row), 0);
    EXPECT_EQ(row->parent(), &spokenTree());
    EXPECT_TRUE(row->rect().isValid());

    row->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    settle();
    EXPECT_EQ(spokenTree().childCount(), 2);
    EXPECT_TRUE(row->state().expanded);
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    settle();
    EXPECT_EQ(route(), Route::project(project));
    EXPECT_TRUE(row->state().selected);

    click(QStringLiteral("全部展开"));
    auto* newTake = spokenRow(QStringLiteral("新 Take"));
    ASSERT_NE(newTake, nullptr);
    newTake->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    settle();
    EXPECT_EQ(shotRecord().takes.size(), 2U);
    store->removeProject(project);
    settle();
    EXPECT_EQ(spokenTree().childCount(), 0);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&tree())->childAt(0, 0), nullptr);
}

TEST_F(SidebarTest, ARowThatIsOffOffersNoPress) {
    store->updateShot(project, act, shot, [](Shot& record) { record.cancelled = true; });
    click(QStringLiteral("全部展开"));
    auto* newTake = spokenRow(QStringLiteral("新 Take"));
    ASSERT_NE(newTake, nullptr);
    EXPECT_TRUE(newTake->state().disabled);
    EXPECT_TRUE(newTake->actionInterface()->actionNames().isEmpty());
}

}  // namespace
}  // namespace vantry::test
