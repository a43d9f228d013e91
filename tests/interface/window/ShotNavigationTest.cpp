// The strip that leads along the shots of a production, and the chooser.

#include <QScrollArea>
#include <QScrollBar>

#include "Vantry/interface/shots/ShotChooser.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

class ShotNavigationTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
        shots = {shot, store->addShot(project, act), store->addShot(project, act)};
        secondAct = store->addAct(project);
        far = store->addShot(project, secondAct);
        settle();
    }
    [[nodiscard]] Route routeOf(std::size_t at) const { return Route::shot(project, act, shots.at(at)); }
    [[nodiscard]] QAbstractButton& previous() const { return button("上一镜"); }
    [[nodiscard]] QAbstractButton& next() const { return button("下一镜"); }
    [[nodiscard]] QAbstractButton& position() const { return button("选择分镜"); }
    [[nodiscard]] QAbstractButton& button(const char* name) const {
        return get<QAbstractButton>(QString::fromUtf8(name), &page());
    }
    void cancel(const Identifier& id) const {
        store->updateShot(project, act, id, [](Shot& record) { record.cancelled = true; });
        settle();
    }
    ShotChooser& choose() const {
        QTest::mouseClick(&position(), Qt::LeftButton);
        settle();
        auto* sheet = topmost<ShotChooser>();
        if (sheet == nullptr)
            throw std::runtime_error("the chooser is not open");
        return *sheet;
    }
    /// The rows of the chooser, each with what is said of it.
    static QStringList rows(ShotChooser& sheet) {
        QList<QAbstractButton*> found = sheet.findChildren<QAbstractButton*>();
        found.removeIf([](const QAbstractButton* row) {
            return !row->isVisible() || row->accessibleDescription().isEmpty();
        });
        std::sort(found.begin(), found.end(), [](const auto* a, const auto* b) {
            return a->mapToGlobal(QPoint()).y() < b->mapToGlobal(QPoint()).y();
        });
        QStringList told;
        for (const auto* row : found)
            told.append(row->accessibleName() + QStringLiteral(" | ") + row->accessibleDescription());
        return told;
    }

    std::vector<Identifier> shots;
    Identifier secondAct, far;
};

TEST_F(ShotNavigationTest, LeadsAlongAllActsAndTellsWhereOneIs) {
    go(shotRoute());
    EXPECT_FALSE(previous().isEnabled());
    EXPECT_EQ(position().text(), QStringLiteral("1 / 4"));
    clickOnPage(QStringLiteral("下一镜"));
    EXPECT_EQ(route(), routeOf(1));
    clickOnPage(QStringLiteral("下一镜"));
    clickOnPage(QStringLiteral("下一镜"));
    EXPECT_EQ(route(), Route::shot(project, secondAct, far));
    EXPECT_FALSE(next().isEnabled());
    EXPECT_EQ(position().text(), QStringLiteral("4 / 4"));
    clickOnPage(QStringLiteral("上一镜"));
    EXPECT_EQ(route(), routeOf(2));
}

TEST_F(ShotNavigationTest, SkipsCancelledShotsAndCountsThem) {
    cancel(shots[1]);
    go(shotRoute());
    EXPECT_EQ(position().text(), QStringLiteral("1 / 4"));
    clickOnPage(QStringLiteral("下一镜"));
    EXPECT_EQ(route(), routeOf(2));
    EXPECT_EQ(position().text(), QStringLiteral("3 / 4"));
    go(routeOf(1));
    EXPECT_EQ(position().text(), QStringLiteral("2 / 4")) << "a cancelled one keeps its place";
    EXPECT_TRUE(previous().isEnabled()) << "and has neighbours";
    EXPECT_TRUE(next().isEnabled());
    go(routeOf(2));
    cancel(shots[0]);
    store->updateShot(project, secondAct, far, [](Shot& record) { record.cancelled = true; });
    settle();
    EXPECT_FALSE(previous().isEnabled()) << "all others are off";
    EXPECT_FALSE(next().isEnabled());
}

TEST_F(ShotNavigationTest, OneShotAloneLeadsNowhere) {
    for (std::size_t at : {1U, 2U})
        store->updateAct(project, act, [&](Act& record) {
            std::erase_if(record.shots, [&](const auto& held) { return held->id == shots[at]; });
        });
    store->updateAct(project, secondAct, [](Act& record) { record.shots.clear(); });
    go(shotRoute());
    EXPECT_FALSE(previous().isEnabled());
    EXPECT_FALSE(next().isEnabled());
    EXPECT_EQ(position().text(), QStringLiteral("1 / 1"));
}

TEST_F(ShotNavigationTest, StandsOnThePageOfATakeToo) {
    go(takeRoute());
    EXPECT_EQ(position().text(), QStringLiteral("1 / 4"));
    clickOnPage(QStringLiteral("下一镜"));
    EXPECT_EQ(route(), routeOf(1));
    go(takeRoute());
    store->updateAct(project, act, [&](Act& record) {
        std::erase_if(record.shots, [&](const auto& held) { return !(held->id == shot); });
    });
    store->updateAct(project, secondAct, [](Act& record) { record.shots.clear(); });
    settle();
    for (auto* foot : page().findChildren<QAbstractButton*>())
        if (foot->accessibleName() == QStringLiteral("下一镜")) {
            EXPECT_FALSE(foot->isEnabled());
        }
}

TEST_F(ShotNavigationTest, KeepsItsNamesWhereItIsNarrow) {
    go(shotRoute());
    const int wide = next().width();
    window->resize(1000, 680);
    settle();
    EXPECT_EQ(next().width(), 44);
    EXPECT_LT(next().width(), wide);
    EXPECT_EQ(next().accessibleName(), QStringLiteral("下一镜"));
    window->resize(1380, 900);
    settle();
    EXPECT_EQ(next().width(), wide);
}

TEST_F(ShotNavigationTest, NobodyLeavesWhatCannotBeSaved) {
    go(shotRoute());
    QTest::keyClicks(&get<QLineEdit>(QStringLiteral("标题"), &page()), QStringLiteral("precious"));
    disk.full = true;
    clickOnPage(QStringLiteral("下一镜"));
    EXPECT_EQ(route(), shotRoute());
    EXPECT_TRUE(store->error());
    answer(QStringLiteral("好"));
    ShotChooser& sheet = choose();
    click(QStringLiteral("02 未命名镜头"), &sheet);
    EXPECT_EQ(route(), shotRoute());
    disk.full = false;
    EXPECT_NE(shotRecord().title.utf8().find("precious"), std::string::npos);
}

TEST_F(ShotNavigationTest, TheChooserListsAllWithTheirActs) {
    store->updateAct(project, act, [](Act& record) { record.title = "Harbour"; });
    cancel(shots[1]);
    go(shotRoute());
    ShotChooser& sheet = choose();
    EXPECT_EQ(sheet.windowTitle(), QStringLiteral("切换分镜"));
    EXPECT_EQ(rows(sheet), (QStringList{"01 未命名镜头 | Harbour", "02 未命名镜头 | Harbour · 已取消",
                                        "03 未命名镜头 | Harbour", "01 未命名镜头 | 第 2 幕"}));
    EXPECT_TRUE(find<QLabel>(sheet, QStringLiteral("上／下一镜按项目顺序切换，自动跳过已取消的镜头。")));
    click(QStringLiteral("02 未命名镜头"), &sheet);
    EXPECT_EQ(route(), routeOf(1)) << "the way to a cancelled one";
    EXPECT_EQ(topmost<ShotChooser>(), nullptr);
}

TEST_F(ShotNavigationTest, TheChooserTellsWhichShotIsOnThePage) {
    go(routeOf(1));
    ShotChooser& sheet = choose();
    const auto selected = [&](const char* row) {
        auto& button = get<QAbstractButton>(QString::fromUtf8(row), &sheet);
        return bool(QAccessible::queryAccessibleInterface(&button)->state().selected);
    };
    EXPECT_TRUE(selected("02 未命名镜头"));
    EXPECT_FALSE(selected("03 未命名镜头"));
}

TEST_F(ShotNavigationTest, TheChooserFindsWhatIsTypedAndForgetsIt) {
    store->updateShot(project, act, shots[2], [](Shot& record) { record.title = "Window Turn"; });
    go(shotRoute());
    ShotChooser* sheet = &choose();
    const QString prompt = QStringLiteral("搜索幕、镜号或名称");
    auto& query = get<QLineEdit>(prompt, sheet);
    EXPECT_TRUE(query.hasFocus());
    QTest::keyClicks(&query, QStringLiteral(" window "));
    settle();
    EXPECT_EQ(rows(*sheet), (QStringList{"03 Window Turn | 第 1 幕"}));
    query.setText(QStringLiteral("nothing here"));
    settle();
    EXPECT_TRUE(rows(*sheet).isEmpty());
    EXPECT_TRUE(find<QLabel>(*sheet, QStringLiteral("没有匹配的分镜")));
    click(QStringLiteral("关闭"), sheet);
    EXPECT_EQ(route(), shotRoute());
    sheet = &choose();
    EXPECT_TRUE(get<QLineEdit>(prompt, sheet).text().isEmpty());
    EXPECT_EQ(rows(*sheet).size(), 4);
    QTest::keyClicks(&get<QLineEdit>(prompt, sheet), QStringLiteral("turn"));
    press(Qt::Key_Return);
    EXPECT_EQ(route(), routeOf(2)) << "Return goes to the first that is found";
}

TEST_F(ShotNavigationTest, DownLeadsFromTheSearchToTheRows) {
    store->updateShot(project, act, shots[2], [](Shot& record) { record.title = "Window Turn"; });
    go(routeOf(1));
    ShotChooser& sheet = choose();
    press(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), QStringLiteral("02 未命名镜头"))
        << "where one is";
    press(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), QStringLiteral("03 Window Turn"));
    auto& query = get<QLineEdit>(QStringLiteral("搜索幕、镜号或名称"), &sheet);
    query.setFocus();
    query.setText(QStringLiteral("01"));
    settle();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(route(), shotRoute()) << "the first that is found";
}

TEST_F(ShotNavigationTest, DownFindsARowThatWasScrolledAway) {
    for (int more = 0; more < 60; ++more)
        store->addShot(project, secondAct);
    go(shotRoute());
    ShotChooser& sheet = choose();
    auto& bar = *sheet.findChild<QScrollArea*>()->verticalScrollBar();
    bar.setValue(bar.maximum());
    settle();
    press(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), QStringLiteral("01 未命名镜头"));
    press(Qt::Key_Return);
    EXPECT_EQ(route(), shotRoute());
}

TEST_F(ShotNavigationTest, TheChooserFollowsLanguageAndRecordsAndEscCloses) {
    go(shotRoute());
    ShotChooser& sheet = choose();
    store->setLanguage("en");
    store->updateShot(project, secondAct, far, [](Shot& record) { record.title = "Last"; });
    settle();
    EXPECT_EQ(sheet.windowTitle(), QStringLiteral("Switch shot"));
    EXPECT_EQ(rows(sheet).last(), QStringLiteral("01 Last | 第 2 幕"));
    EXPECT_TRUE(find<QLineEdit>(sheet, QStringLiteral("Search scene, shot code or title")));
    press(Qt::Key_Escape);
    EXPECT_EQ(topmost<ShotChooser>(), nullptr);
    EXPECT_EQ(route(), shotRoute());
}

}  // namespace
}  // namespace vantry::test
