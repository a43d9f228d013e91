// Every page is found again as it was left: scrolled to the same place, with the same tab and panels.

#include <QScrollBar>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/VantryDisclosure.h"
#include "Vantry/interface/routes/PageEnvironment.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

const QString details = QStringLiteral("项目信息");
const QString overview = QStringLiteral("拍摄总览");

class PlacesAsLeftTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        window->resize(Metrics::windowMinimumWidth, Metrics::windowMinimumHeight);
        makeTake();
        store->updateShot(project, act, shot, [](Shot& record) {
            for (int count = 0; count < 40; ++count)
                record.newTake();
        });
        store->updateProject(project, [](Project& record) {
            for (int count = 0; count < 20; ++count)
                record.acts.emplace_back(Act::make("Act"));
        });
        settle();
    }
    [[nodiscard]] QScrollBar& bar() const {
        for (auto* column : page().findChildren<PageColumn*>())
            if (column->isVisible())
                return *column->verticalScrollBar();
        throw std::runtime_error("the page does not scroll");
    }
    /// Scrolls the page so far, once what moves on it gives it that height.
    void scroll(int y) const {
        ASSERT_TRUE(QTest::qWaitFor([&] { return bar().maximum() >= y; })) << bar().maximum();
        bar().setValue(y);
        settle();
    }
    void chooseTab(const QString& title) const {
        get<QAbstractButton>(title, &page()).click();
        settle();
    }
    [[nodiscard]] VantryDisclosure& defaults() const { return *page().findChild<VantryDisclosure*>(); }
    [[nodiscard]] bool isChosen(const QString& tab) const {
        return get<QAbstractButton>(tab, &page()).isChecked();
    }
    [[nodiscard]] PageMemory& memory() const { return PageEnvironment::of(page())->memory(); }
};

TEST_F(PlacesAsLeftTest, FromATakeToItsShotAndBack) {
    go(takeRoute());
    scroll(60);
    go(shotRoute());
    EXPECT_EQ(bar().value(), 0) << "a first visit begins at the top";
    scroll(500);
    window->goBack();
    settle();
    ASSERT_EQ(route(), takeRoute());
    EXPECT_EQ(bar().value(), 60);
    go(shotRoute());
    EXPECT_EQ(bar().value(), 500);
}

TEST_F(PlacesAsLeftTest, TwoTakesOfAShotAreTwoPlaces) {
    const Route other = Route::take(project, act, shot, shotRecord().takes[1]->id);
    go(takeRoute());
    scroll(60);
    go(other);
    EXPECT_EQ(bar().value(), 0);
    scroll(20);
    go(takeRoute());
    EXPECT_EQ(bar().value(), 60);
    go(other);
    EXPECT_EQ(bar().value(), 20);
}

TEST_F(PlacesAsLeftTest, TheTabsOfAProductionHavePositionsOfTheirOwn) {
    go(Route::project(project));
    scroll(700);
    chooseTab(details);
    EXPECT_EQ(bar().value(), 0);
    defaults().setExpanded(true);
    settle();
    scroll(130);
    chooseTab(overview);
    EXPECT_EQ(bar().value(), 700);
    chooseTab(details);
    EXPECT_EQ(bar().value(), 130);
    go(Route::act(project, act));
    go(Route::project(project));
    EXPECT_TRUE(isChosen(details));
    EXPECT_EQ(bar().value(), 130) << "of the tab that was open";
    EXPECT_TRUE(defaults().isExpanded());
    chooseTab(overview);
    EXPECT_EQ(bar().value(), 700);
    EXPECT_TRUE(memory().offsets.empty());
    EXPECT_EQ(memory().scopedOffsets.at(route()).size(), 2U);
}

TEST_F(PlacesAsLeftTest, EachProductionRemembersItsTabAndItsPanel) {
    const Identifier other = store->addProject("Other", "");
    openTab(Route::project(project), details);
    defaults().setExpanded(true);
    settle();
    go(Route::project(other));
    EXPECT_TRUE(isChosen(overview));
    chooseTab(details);
    EXPECT_FALSE(defaults().isExpanded());
    chooseTab(QStringLiteral("相关资料"));
    go(Route::project(project));
    EXPECT_TRUE(isChosen(details));
    EXPECT_TRUE(defaults().isExpanded());
    go(Route::project(other));
    EXPECT_TRUE(isChosen(QStringLiteral("相关资料")));
}

TEST_F(PlacesAsLeftTest, ADeletedProductionThatComesBackIsAsItWasLeft) {
    openTab(Route::project(project), details);
    defaults().setExpanded(true);
    settle();
    scroll(150);
    clickOnPage(QStringLiteral("删除项目…"));
    const int left = bar().value();
    answer(QStringLiteral("删除"));
    ASSERT_EQ(route(), Route::library());
    click(QStringLiteral("撤销结构修改"));
    go(Route::project(project));
    EXPECT_TRUE(isChosen(details));
    EXPECT_TRUE(defaults().isExpanded());
    EXPECT_EQ(bar().value(), left);
}

TEST_F(PlacesAsLeftTest, ARecordThatIsGoneOnScreenAndBackIsAsItWasLeft) {
    go(shotRoute());
    scroll(500);
    store->markCheckpoint();
    store->updateAct(project, act, [](Act& record) { record.shots.clear(); });
    settle();
    EXPECT_TRUE(shows(QStringLiteral("这条记录已删除")));
    click(QStringLiteral("撤销结构修改"));
    EXPECT_FALSE(shows(QStringLiteral("这条记录已删除")));
    EXPECT_EQ(bar().value(), 500);
    go(Route::library());
    go(shotRoute());
    EXPECT_EQ(bar().value(), 500);
}

TEST_F(PlacesAsLeftTest, ScrollingRebuildsNothing) {
    go(shotRoute());
    const Page* const shown = &page();
    int changes = 0;
    memory().onChange([&] { ++changes; });
    for (int y = 0; y < 500; y += 50)
        scroll(y);
    EXPECT_EQ(&page(), shown);
    EXPECT_EQ(changes, 0);
}

TEST_F(PlacesAsLeftTest, ThePlaceOnScreenIsTheActiveOne) {
    for (const Route& place : {takeRoute(), shotRoute(), Route::project(project), Route::library()}) {
        go(place);
        EXPECT_EQ(memory().active, place);
        EXPECT_EQ(PageEnvironment::of(page())->route(), place);
    }
}

TEST_F(PlacesAsLeftTest, ARestartBeginsWithEmptyMemory) {
    openTab(Route::project(project), details);
    defaults().setExpanded(true);
    settle();
    store->flush();
    open();
    window->resize(Metrics::windowMinimumWidth, Metrics::windowMinimumHeight);
    EXPECT_EQ(route(), Route::library());
    go(Route::project(project));
    EXPECT_TRUE(isChosen(overview));
    chooseTab(details);
    EXPECT_FALSE(defaults().isExpanded());
    EXPECT_EQ(bar().value(), 0);
}

}  // namespace
}  // namespace vantry::test
