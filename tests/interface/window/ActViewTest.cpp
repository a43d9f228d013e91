// The desk of an act: rows and cards, and shots that are dragged into another order.

#include <QScrollArea>
#include <QScrollBar>

#include "Vantry/interface/design/CompletionLine.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/shots/ShotTile.h"
#include "Vantry/interface/shots/StoryboardFrame.h"
#include "Vantry/interface/shots/StoryboardPreview.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

class ActViewTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
        shots = {shot};
        for (int more = 0; more < 3; ++more)
            shots.push_back(store->addShot(project, act));
        settle();
        clock.advance(1000);
        go(Route::act(project, act));
    }
    [[nodiscard]] QList<ShotTile*> tiles() const {
        QList<ShotTile*> found = page().findChildren<ShotTile*>();
        found.removeIf([](const ShotTile* tile) { return !tile->isVisible(); });
        std::sort(found.begin(), found.end(), [](const ShotTile* a, const ShotTile* b) {
            return std::pair(a->y(), a->x()) < std::pair(b->y(), b->x());
        });
        return found;
    }
    [[nodiscard]] std::vector<Identifier> order() const {
        std::vector<Identifier> found;
        for (const auto& record : store->act(project, act)->shots)
            found.push_back(record->id);
        return found;
    }
    /// Drags a row by its handle to that height of another.
    void drag(int from, int to, int y) const {
        ShotTile& tile = *tiles().at(from);
        const QPoint handle(Metrics::handleInset + 4, tile.height() / 2);
        const QPoint target = tile.mapFrom(&page(), tiles().at(to)->mapTo(&page(), QPoint(200, y)));
        QTest::mousePress(&tile, Qt::LeftButton, {}, handle);
        QTest::mouseMove(&tile, handle + QPoint(0, 30));
        QTest::mouseMove(&tile, target);
        settle();
    }
    void release(int row) const {
        QTest::mouseRelease(tiles().at(row), Qt::LeftButton);
        settle();
    }

    std::vector<Identifier> shots;
};

TEST_F(ActViewTest, ARowTellsWhatThereIsToKnowOfAShot) {
    store->updateShot(project, act, shot, [this](Shot& record) {
        record.code = "20B";
        record.title = "Tom & Jerry <b>x</b>";
        record.description = "Line one\nline two";
        record.scheduledAt = Moment{store->now().seconds};
        record.takes[0].edit().stars = 4;
    });
    settle();
    ShotTile& tile = *tiles()[0];
    for (const char* text : {"20B Tom & Jerry <b>x</b>", "1 Take", "4 ★", "待拍", "Line one\nline two"})
        EXPECT_NE(find<QLabel>(tile, QString::fromUtf8(text)), nullptr) << text;
    EXPECT_TRUE(tile.accessibleDescription().startsWith(QStringLiteral("1 Take · 4 ★ · 待拍 · ")));
    EXPECT_NE(find<QLabel>(*tiles()[1], QStringLiteral("添加画面与动作说明")), nullptr) << "the hint";
    store->updateTake(project, act, shot, take, [](VantryTake& record) { record.result = TakeResult::good; });
    settle();
    EXPECT_NE(find<QLabel>(tile, QStringLiteral("已完成")), nullptr);
    EXPECT_TRUE(shows(QStringLiteral("1 / 4 镜已完成")));
    EXPECT_NE(find<CompletionLine>(page(), QStringLiteral("1 / 4")), nullptr);
    store->updateShot(project, act, shot, [](Shot& record) { record.cancelled = true; });
    settle();
    EXPECT_NE(find<QLabel>(tile, QStringLiteral("已取消")), nullptr);
    EXPECT_TRUE(shows(QStringLiteral("0 / 3 镜已完成")));
    EXPECT_FALSE(get<QAbstractButton>(QStringLiteral("新 Take"), &tile).isEnabled());
    EXPECT_TRUE(get<QAbstractButton>(QStringLiteral("新 Take"), tiles()[1]).isEnabled());
    store->setLanguage("en");
    settle();
    for (const char* text : {"Cancelled", "1 Take"})
        EXPECT_NE(find<QLabel>(tile, QString::fromUtf8(text)), nullptr) << text;
    EXPECT_NE(find<QAbstractButton>(tile, QStringLiteral("Edit shot")), nullptr);
}

TEST_F(ActViewTest, ARowLeadsToItsShotAndToANewTake) {
    click(QStringLiteral("编辑分镜"), tiles()[1]);
    EXPECT_EQ(route(), Route::shot(project, act, shots[1]));
    go(Route::act(project, act));
    click(QStringLiteral("新 Take"), tiles()[1]);
    const auto held = store->shot(project, act, shots[1]);
    ASSERT_EQ(held->takes.size(), 1U);
    EXPECT_EQ(route(), Route::take(project, act, shots[1], held->takes[0]->id));
    EXPECT_TRUE(notes().hasFocus()) << "a click leads to the notes";
    go(Route::act(project, act));
    clock.advance(1000);
    auto& button = get<QAbstractButton>(QStringLiteral("新 Take"), tiles()[2]);
    button.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&button, Qt::Key_Space);
    settle();
    EXPECT_EQ(route().shotID(), shots[2]);
    EXPECT_TRUE(route().takeID());
    EXPECT_FALSE(notes().hasFocus()) << "the key may still be held";
}

TEST_F(ActViewTest, AnEmptyActSaysHowToBegin) {
    store->updateAct(project, act, [](Act& record) { record.shots.clear(); });
    settle();
    EXPECT_TRUE(shows(QStringLiteral("为这一幕添加第一镜")));
    EXPECT_FALSE(shows(QStringLiteral("镜号在调整顺序后保持不变。图片可点击放大。")));
    EXPECT_TRUE(shows(QStringLiteral("0 / 0 镜已完成")));
    clickOnPage(QStringLiteral("新增分镜"));
    EXPECT_EQ(route().shotID(), store->act(project, act)->shots[0]->id);
}

TEST_F(ActViewTest, TheGridHasThreeColumnsTwoOrTheListOne) {
    clickOnPage(QStringLiteral("网格"));
    ASSERT_EQ(tiles().size(), 4);
    EXPECT_TRUE(shows(QStringLiteral("分镜视图")));
    EXPECT_EQ(tiles()[2]->y(), tiles()[0]->y());
    EXPECT_GT(tiles()[3]->y(), tiles()[0]->y());
    EXPECT_EQ(tiles()[0]->height(), ShotTile::cardHeight(tiles()[0]->width()));
    EXPECT_EQ(tiles()[2]->geometry().right() + 1, tiles()[0]->parentWidget()->width());
    window->resize(1000, 680);
    settle();
    EXPECT_EQ(tiles()[1]->y(), tiles()[0]->y());
    EXPECT_GT(tiles()[2]->y(), tiles()[0]->y());
    for (const int width : {1000, 1140, 1200, 1380, 1700, 2560}) {
        window->resize(width, 900);
        settle();
        const auto& frame = *tiles()[0]->findChild<StoryboardPreview*>();
        EXPECT_EQ(frame.height(), StoryboardFrame::heightFor(frame.width()))
            << "it fills its card at " << width;
        EXPECT_EQ(frame.x(), tiles()[0]->width() - frame.geometry().right() - 1);
    }
    clickOnPage(QStringLiteral("清单"));
    EXPECT_EQ(tiles()[0]->height(), Metrics::shotRowHeight);
    EXPECT_TRUE(shows(QStringLiteral("拖动可排序")));
}

TEST_F(ActViewTest, EachActRemembersItsMode) {
    const Identifier other = store->addAct(project);
    store->addShot(project, other);
    clickOnPage(QStringLiteral("网格"));
    go(Route::act(project, other));
    EXPECT_TRUE(get<QAbstractButton>(QStringLiteral("清单"), &page()).isChecked());
    go(Route::act(project, act));
    EXPECT_TRUE(get<QAbstractButton>(QStringLiteral("网格"), &page()).isChecked());
    EXPECT_EQ(tiles()[0]->height(), ShotTile::cardHeight(tiles()[0]->width()));
}

TEST_F(ActViewTest, NothingOfARowLiesOnAnotherPartOrOutside) {
    store->updateShot(project, act, shot, [](Shot& record) {
        record.title = std::string(300, 'x');
        record.description = Text(std::string(5000, 'y'));
        record.scheduledAt = Moment{0};
    });
    for (const char* lang : {"zh", "en"})
        for (const QSize size : {QSize(1000, 680), QSize(1380, 900), QSize(2560, 1440)})
            for (const char* mode : {"List", "Grid"}) {
                store->setLanguage(lang);
                window->resize(size);
                settle();
                const QString name = store->english()                   ? QString::fromUtf8(mode)
                                     : std::string_view(mode) == "List" ? QStringLiteral("清单")
                                                                        : QStringLiteral("网格");
                clickOnPage(name);
                const ShotTile& tile = *tiles()[0];
                QList<QWidget*> parts = tile.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
                parts.removeIf([](const QWidget* part) { return !part->isVisible(); });
                for (const QWidget* part : parts) {
                    EXPECT_TRUE(tile.rect().contains(part->geometry())) << part->metaObject()->className();
                    for (const QWidget* other : parts)
                        EXPECT_TRUE(part == other || !part->geometry().intersects(other->geometry()))
                            << lang << size.width() << mode << part->metaObject()->className() << ' '
                            << other->metaObject()->className();
                }
            }
}

TEST_F(ActViewTest, ADraggedRowGoesInFrontOfTheOneThatItIsDroppedOn) {
    drag(2, 0, 50);
    EXPECT_EQ(order(), shots) << "not before it is let go";
    release(2);
    EXPECT_EQ(order(), (std::vector{shots[2], shots[0], shots[1], shots[3]}));
    EXPECT_EQ(route(), Route::act(project, act));
    click(QStringLiteral("撤销结构修改"));
    EXPECT_EQ(order(), shots);
    drag(0, 2, 100);
    release(0);
    EXPECT_EQ(order(), (std::vector{shots[1], shots[0], shots[2], shots[3]}));
}

TEST_F(ActViewTest, DroppedOnTheLowerHalfOfTheLastItGoesBehind) {
    drag(0, 3, Metrics::shotRowHeight - 5);
    release(0);
    EXPECT_EQ(order(), (std::vector{shots[1], shots[2], shots[3], shots[0]}));
    click(QStringLiteral("撤销结构修改"));
    EXPECT_EQ(order(), shots) << "one change";
    drag(0, 3, 5);
    release(0);
    EXPECT_EQ(order(), (std::vector{shots[1], shots[2], shots[0], shots[3]}));
}

TEST_F(ActViewTest, TheOneBeforeTheLastGoesBehindItAsAChangeOfItsOwn) {
    store->markCheckpoint();
    store->updateShot(project, act, shots[3],
                      [](Shot& record) { record.imageKey = Text(std::string(64, 'a')); });
    drag(2, 3, Metrics::shotRowHeight - 5);
    release(2);
    EXPECT_EQ(order(), (std::vector{shots[0], shots[1], shots[3], shots[2]}));
    click(QStringLiteral("撤销结构修改"));
    EXPECT_EQ(order(), shots);
    EXPECT_TRUE(store->shot(project, act, shots[3])->imageKey) << "and nothing else";
}

TEST_F(ActViewTest, ADragThatLeadsNowhereChangesNothing) {
    const bool couldUndo = store->canUndo();
    drag(1, 1, 60);
    release(1);
    drag(1, 2, 20);
    release(1);
    EXPECT_EQ(order(), shots);
    drag(0, 2, 50);
    QTest::keyClick(tiles()[0], Qt::Key_Escape);
    release(0);
    EXPECT_EQ(order(), shots) << "given up";
    QTest::mouseClick(tiles()[0], Qt::LeftButton, {}, QPoint(12, 50));
    EXPECT_EQ(order(), shots);
    EXPECT_EQ(store->canUndo(), couldUndo);
}

TEST_F(ActViewTest, ADragGivesTheKeyboardBack) {
    auto& name = get<QLineEdit>(QStringLiteral("幕名称"), &page());
    name.setFocus();
    drag(0, 2, 50);
    release(0);
    EXPECT_NE(order(), shots);
    EXPECT_TRUE(name.hasFocus());
}

TEST_F(ActViewTest, CodesStayAsTheyWereInAnyOrder) {
    drag(3, 0, 20);
    release(3);
    store->updateShot(project, act, shots[3], [](Shot& record) { record.cancelled = true; });
    std::vector<std::string> codes;
    for (const auto& record : store->act(project, act)->shots)
        codes.push_back(record->code.utf8());
    EXPECT_EQ(codes, (std::vector<std::string>{"04", "01", "02", "03"}));
}

TEST_F(ActViewTest, ThePageScrollsAlongWithADrag) {
    for (int more = 0; more < 40; ++more)
        store->addShot(project, act);
    settle();
    auto* area = page().findChild<QScrollArea*>();
    auto& bar = *area->verticalScrollBar();
    ShotTile& tile = *tiles()[0];
    const QPoint handle(12, 50);
    QTest::mousePress(&tile, Qt::LeftButton, {}, handle);
    QTest::mouseMove(&tile, handle + QPoint(0, 30));
    const QPoint foot = area->viewport()->mapToGlobal(QPoint(100, area->viewport()->height() - 2));
    QTest::mouseMove(&tile, tile.mapFromGlobal(foot));
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar.value() > 1000; }));
    QTest::mouseMove(&tile, tile.mapFromGlobal(area->viewport()->mapToGlobal(QPoint(100, 300))));
    QTest::mouseRelease(&tile, Qt::LeftButton);
    settle();
    EXPECT_NE(order().front(), shot);
    EXPECT_EQ(order().size(), 44U);
}

TEST_F(ActViewTest, OnlyWhatIsNearExists) {
    store->updateAct(project, act, [](Act& record) {
        for (int more = 0; more < 1000; ++more)
            record.shots.emplace_back(Shot::make("x", "y", {}));
    });
    settle();
    EXPECT_LT(page().findChildren<ShotTile*>().size(), 40);
    clickOnPage(QStringLiteral("网格"));
    EXPECT_LT(page().findChildren<ShotTile*>().size(), 40);
}

TEST_F(ActViewTest, DeletingItGoesToTheProductionAndUndoBringsItBack) {
    clickOnPage(QStringLiteral("删除这一幕…"));
    answer(QStringLiteral("删除"));
    EXPECT_EQ(route(), Route::project(project));
    EXPECT_TRUE(store->project(project)->acts.empty());
    click(QStringLiteral("撤销结构修改"));
    EXPECT_EQ(order(), shots);
}

}  // namespace
}  // namespace vantry::test
