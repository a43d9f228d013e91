#include "Vantry/interface/library/ProjectView.h"

#include <QScrollBar>
#include <QSignalSpy>

#include "Vantry/interface/design/CompletionLine.h"
#include "Vantry/interface/design/EmptyViewCard.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/VantryDisclosure.h"
#include "Vantry/interface/design/WorkspaceTabs.h"
#include "Vantry/interface/library/PlanRows.h"
#include "Vantry/interface/library/ProjectOverview.h"
#include "Vantry/interface/library/ProjectTab.h"
#include "Vantry/interface/pages/ShootTime.h"
#include "tests/interface/design/Darkest.h"
#include "tests/interface/library/DeskFixture.h"

namespace vantry::test {
namespace {

const QString overview = QStringLiteral("拍摄总览");
const QString people = QStringLiteral("剧组与演员");
const QString callSheets = QStringLiteral("Call Sheet");
const QString details = QStringLiteral("项目信息");
const QString relatedFiles = QStringLiteral("相关资料");

/// Does something at the moment when a part of the page goes.
class OnHide final : public QObject {
public:
    OnHide(QWidget& part, std::function<void()> done)
        : action(std::move(done)) {
        part.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Hide)
            action();
        return false;
    }

private:
    const std::function<void()> action;
};

class ProjectViewTest : public DeskTest {
protected:
    void SetUp() override {
        DeskTest::SetUp();
        makeTake();
        clock.advance(1000);
        go(desk());
    }
    [[nodiscard]] Route desk() const { return Route::project(project); }
    void tab(const QString& title) const {
        get<Segment>(title, &page()).click();
        settle();
    }
    [[nodiscard]] int chosenTab() const { return page().findChild<WorkspaceTabs*>()->chosenIndex(); }
    [[nodiscard]] QLineEdit& field(const QString& name) const { return get<QLineEdit>(name, &page()); }
    void type(const QString& name, const QString& text) const {
        field(name).selectAll();
        QTest::keyClicks(&field(name), text);
        settle();
    }
    [[nodiscard]] VantryDisclosure& defaults() const { return *page().findChild<VantryDisclosure*>(); }
    [[nodiscard]] std::shared_ptr<const Project> record() const { return store->project(project); }
    void setSheets(const std::vector<std::pair<double, const char*>>& daysAndCalls) {
        std::vector<CallSheet> sheets;
        for (const auto& [days, call] : daysAndCalls) {
            CallSheet sheet = CallSheet::make(Moment{store->now().seconds + days * 86400});
            sheet.timeZoneID = "UTC";
            sheet.set("generalCall", call);
            sheet.set("location", "Pier & <b>3</b>");
            sheets.push_back(sheet);
        }
        store->updateProject(project, [&](Project& held) { held.setCallSheets(sheets); });
        settle();
    }
};

TEST_F(ProjectViewTest, IsNamedAndHasItsFiveTabsInBothLanguages) {
    expectShown({"项目工作台", "候车室", "导演 · 林若水"});
    auto& tabs = *page().findChild<WorkspaceTabs*>();
    const auto titles = [&] {
        QStringList all;
        for (auto* segment : tabs.findChildren<Segment*>())
            all.append(spoken(*segment, QAccessible::Name));
        return all;
    };
    EXPECT_EQ(titles(), (QStringList{overview, people, callSheets, details, relatedFiles}));
    EXPECT_EQ(chosenTab(), ProjectTab::overview);
    store->setLanguage("en");
    store->updateProject(project, [](Project& held) { held.director = ""; });
    settle();
    expectShown({"Production desk", "Director · Not set"});
    EXPECT_EQ(titles(), (QStringList{"Overview", "People", "Call Sheet", "Details", "Related files"}));
    EXPECT_NE(find<QAbstractButton>(page(), QStringLiteral("Export PDF")), nullptr);
    store->setLanguage("zh");
    settle();
    expectShown({QStringLiteral("导演 · 待填写")});
}

TEST_F(ProjectViewTest, TheOverviewCountsAndNamesInBothLanguages) {
    const Identifier off = store->addShot(project, act);
    store->addTake(project, act, off);
    store->updateShot(project, act, off, [](Shot& held) { held.cancelled = true; });
    store->addShot(project, act);
    store->updateTake(project, act, shot, take, [](VantryTake& held) { held.result = TakeResult::good; });
    settle();
    EXPECT_EQ(metrics(), (QStringList{"2", "1 / 2", "2"}));
    expectShown({"计划镜头", "拍摄完成", "现场 Take", "每镜至少有一条 Good，即计为完成。", "剧组与演员",
                 "0 位组员 · 0 位演员", "Call Sheet", "还没有通告单"});
    EXPECT_EQ(detailOf(QStringLiteral("第 1 幕")), QStringLiteral("2 镜 · 1 已完成 · 1 待拍"));
    EXPECT_EQ(spoken(*page().findChild<ActRow*>()->findChild<CompletionLine*>(), QAccessible::Name),
              QStringLiteral("1 / 2"));
    store->setLanguage("en");
    settle();
    expectShown({"Planned shots", "Complete", "Recorded takes",
                 "A shot is complete when it has at least one Good take.", "Crew & cast", "0 crew · 0 cast",
                 "Call Sheet", "No call sheets yet"});
    EXPECT_EQ(detailOf(QStringLiteral("第 1 幕")), QStringLiteral("2 shots · 1 complete · 1 remaining"));
    for (const char* button : {"Add act", "Open people board", "Manage call sheets"})
        EXPECT_NE(find<QAbstractButton>(page(), QString::fromLatin1(button)), nullptr) << button;
}

TEST_F(ProjectViewTest, WithoutActsItSaysHowToBegin) {
    store->updateProject(project, [](Project& held) { held.acts.clear(); });
    settle();
    expectShown({"添加第一幕", "再把每一镜的画面、动作和声音安排进去。"});
    EXPECT_EQ(metrics(), (QStringList{"0", "0 / 0", "0"}));
    store->setLanguage("en");
    settle();
    expectShown({"Add the first act", "Then plan the image, action and sound for each shot."});
    clickOnPage(QStringLiteral("Add act"));
    EXPECT_EQ(record()->acts.size(), 1U);
    EXPECT_FALSE(shows(QStringLiteral("Add the first act")));
}

TEST_F(ProjectViewTest, ARowOfAnActLeadsToIt) {
    clickOnPage(QStringLiteral("第 1 幕"));
    EXPECT_EQ(route(), Route::act(project, act));
}

TEST_F(ProjectViewTest, AnActIsAddedOnceWhereThePersonStays) {
    clickOnPage(QStringLiteral("新增幕"));
    EXPECT_EQ(record()->acts.size(), 2U);
    EXPECT_EQ(route(), desk());
    clickOnPage(QStringLiteral("新增幕"));
    EXPECT_EQ(record()->acts.size(), 2U) << "too soon";
    clock.advance(1000);
    clickOnPage(QStringLiteral("新增幕"));
    EXPECT_EQ(record()->acts.size(), 3U);
    click(QStringLiteral("撤销结构修改"));
    EXPECT_EQ(record()->acts.size(), 2U) << "one step of the history each";
}

TEST_F(ProjectViewTest, TheCardsLeadToTheirTabs) {
    clickOnPage(QStringLiteral("打开人员信息板"));
    EXPECT_EQ(chosenTab(), ProjectTab::people);
    expectShown({QStringLiteral("编辑后可收起为信息板")});
    tab(overview);
    clickOnPage(QStringLiteral("管理通告单"));
    EXPECT_EQ(chosenTab(), ProjectTab::callSheets);
    expectShown({"拍摄日通告", "人员、地点与集合时间"});
    tab(relatedFiles);
    expectShown({"参考资料", "文件、文件夹与链接"});
    EXPECT_EQ(route(), desk());
    store->setLanguage("en");
    settle();
    expectShown({"Reference library", "Files, folders and links"});
    tab(QStringLiteral("Call Sheet"));
    expectShown({"Call sheets", "People, places and call times"});
    tab(QStringLiteral("People"));
    expectShown({"Crew & cast", "Finish editing to return to the information board"});
    tab(QStringLiteral("Details"));
    expectShown({"Production details"});
}

TEST_F(ProjectViewTest, TheKeyboardGoesFromACardToTheTabThatItLedTo) {
    const std::vector<std::pair<QString, QString>> ways{{QStringLiteral("打开人员信息板"), people},
                                                        {QStringLiteral("管理通告单"), callSheets}};
    for (const auto& [button, title] : ways) {
        tab(overview);
        get<QAbstractButton>(button, &page()).setFocus(Qt::TabFocusReason);
        press(Qt::Key_Return);
        auto& chosen = get<Segment>(title, &page());
        EXPECT_EQ(QApplication::focusWidget(), &chosen);
        EXPECT_TRUE(chosen.isChecked());
        const QImage withRing = chosen.grab().toImage();
        press(Qt::Key_Return, Qt::NoModifier, true);
        press(Qt::Key_Space);
        EXPECT_EQ(route(), desk()) << "a key that is held, or pressed again, leaves no page";
        EXPECT_TRUE(chosen.isChecked());
        chosen.clearFocus();
        EXPECT_NE(chosen.grab().toImage(), withRing) << "who came by keyboard sees where";
    }
}

TEST_F(ProjectViewTest, AKeyThatIsHeldOpensATabOnce) {
    for (const QString name : {"打开人员信息板", "管理通告单"}) {
        tab(overview);
        auto& button = get<QAbstractButton>(name, &page());
        const QSignalSpy presses(&button, &QAbstractButton::clicked);
        QTest::simulateEvent(&button, true, Qt::Key_Return, Qt::NoModifier, QString(), true);
        EXPECT_EQ(presses.count(), 0) << "it was held before";
        QTest::keyClick(&button, Qt::Key_Return);
        EXPECT_EQ(presses.count(), 1);
    }
}

TEST_F(ProjectViewTest, ATabThatGoesKeepsWhereItWasScrolled) {
    for (int count = 0; count < 12; ++count)
        store->addAct(project);
    settle();
    auto& bar = *page().findChild<PageColumn*>()->verticalScrollBar();
    get<QAbstractButton>(QStringLiteral("新增幕"), &page()).setFocus(Qt::TabFocusReason);
    bar.setValue(bar.maximum());
    const int left = bar.value();
    ASSERT_GT(left, 0);
    tab(people);
    EXPECT_EQ(bar.value(), 0);
    tab(overview);
    EXPECT_EQ(bar.value(), left);
    // Whatever moves while it goes is not where the person left it.
    OnHide scrolling(*page().findChild<ProjectOverview*>(), [&] { bar.setValue(left / 2); });
    tab(people);
    tab(overview);
    EXPECT_EQ(bar.value(), left);
}

TEST_F(ProjectViewTest, OnlyTheTabThatIsChosenCanBeReached) {
    tab(details);
    EXPECT_EQ(find<QAbstractButton>(page(), QStringLiteral("新增幕")), nullptr);
    tab(overview);
    EXPECT_EQ(find<QLineEdit>(page(), QStringLiteral("项目名称")), nullptr);
    EXPECT_EQ(find<QAbstractButton>(page(), QStringLiteral("删除项目…")), nullptr);
}

TEST_F(ProjectViewTest, WhatATabShowsIsCalledAsTheTab) {
    tab(people);
    const auto named = [&](const QString& name) {
        const QList<Page*> parts = page().findChildren<Page*>();
        return std::any_of(parts.cbegin(), parts.cend(), [&](const Page* part) {
            return part->isVisible() && part->accessibleName() == name;
        });
    };
    EXPECT_TRUE(named(QStringLiteral("剧组与演员")));
    EXPECT_FALSE(named(QStringLiteral("拍摄总览")));
    store->setLanguage("en");
    settle();
    EXPECT_TRUE(named(QStringLiteral("People")));
}

TEST_F(ProjectViewTest, PeopleAreCountedAndListed) {
    store->updateProject(project, [](Project& held) {
        held.setCrew({CrewMember::make(CrewRole::makeup, "Ann & <b>Co</b>")});
        held.setCast({CastMember::make("Chen", "Zhou"), CastMember::make("", "")});
    });
    settle();
    expectShown({QStringLiteral("1 位组员 · 2 位演员")});
    tab(people);
    expectShown({"剧组与演员", "林若水", "Ann & <b>Co</b>", "Chen", "Zhou"});
}

TEST_F(ProjectViewTest, TheNextCallSheetIsTheFirstWhoseDayIsNotOver) {
    setSheets({{5, "08:00"}, {-3, "05:00"}, {2, "17:00"}});
    expectShown({QStringLiteral("17:00 · Pier & <b>3</b>")});
    setSheets({{-3, "05:00"}, {0, "06:00"}, {2, "17:00"}});
    expectShown({QStringLiteral("06:00 · Pier & <b>3</b>")});
    const CallSheet& today = store->project(project)->callSheets()[1];
    expectShown({QString::fromStdString(longDay(today.date, today.calendar().zone(), false))});
    tab(callSheets);
    EXPECT_NE(find<Label>(page(), QStringLiteral("05:00 · Pier & <b>3</b>")), nullptr);
}

TEST_F(ProjectViewTest, OnlyADayToComeStandsOut) {
    const Palette& palette = Palette::of(*window);
    const auto darkestOfDay = [&](const CallSheet& sheet) {
        const QString day = QString::fromStdString(longDay(sheet.date, sheet.calendar().zone(), false));
        return darkest(get<Label>(day, &page()).grab().toImage());
    };
    setSheets({{-3, "05:00"}, {2, "17:00"}});
    EXPECT_NEAR(darkestOfDay(record()->callSheets()[1]), palette.ink.lightness(), 5);
    setSheets({{-9, "04:00"}, {-3, "05:00"}});
    EXPECT_NEAR(darkestOfDay(record()->callSheets()[1]), palette.muted.lightness(), 5);
    EXPECT_FALSE(shows(QStringLiteral("还没有通告单"))) << "there are some";
}

TEST_F(ProjectViewTest, FieldsWriteWhatIsTypedAndTheHeadingFollows) {
    tab(details);
    type(QStringLiteral("项目名称"), QStringLiteral("Tom & Jerry <b>x</b>"));
    type(QStringLiteral("导演"), QStringLiteral("A & B"));
    EXPECT_EQ(record()->title, Text("Tom & Jerry <b>x</b>"));
    EXPECT_EQ(record()->director, Text("A & B"));
    expectShown({"Tom & Jerry <b>x</b>", "导演 · A & B"});
    EXPECT_EQ(page().accessibleName(), QStringLiteral("Tom & Jerry <b>x</b>"));
    EXPECT_EQ(field(QStringLiteral("项目名称")).cursorPosition(), 20) << "the caret stays";
    QTest::keyClicks(&get<ParagraphEditor>(QStringLiteral("项目说明")), QStringLiteral("Two nights."));
    EXPECT_EQ(record()->notes, Text("Two nights."));
}

TEST_F(ProjectViewTest, OneKeyWritesOnceAndWhatTheStoreShowsWritesNothing) {
    tab(details);
    store->flush();
    int changes = 0;
    const auto counting = QObject::connect(store.get(), &VantryStore::changed, [&](StoreMember member) {
        if (member == StoreMember::library)
            ++changes;
    });
    QTest::keyClicks(&field(QStringLiteral("导演")), QStringLiteral("x"));
    settle();
    EXPECT_EQ(changes, 1);
    store->flush();
    changes = 0;
    store->updateProject(project, [](Project& held) {
        held.title = "From elsewhere";
        held.defaults.set("iso", "800");
    });
    settle();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(field(QStringLiteral("项目名称")).text(), QStringLiteral("From elsewhere"));
    store->flush();
    store->setLanguage("en");
    settle();
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(store->hasUnsavedChanges());
    QObject::disconnect(counting);
}

TEST_F(ProjectViewTest, DetailsSpeakBothLanguagesOnTheSameWidgets) {
    tab(details);
    auto& title = field(QStringLiteral("项目名称"));
    title.setFocus();
    title.setCursorPosition(1);
    expectShown({"项目信息", "项目名称", "导演", "项目说明"});
    const QList<QWidget*> before = page().findChildren<QWidget*>();
    store->setLanguage("en");
    settle();
    expectShown({"Production details", "Project name", "Director", "Project notes"});
    EXPECT_EQ(&field(QStringLiteral("Project name")), &title);
    EXPECT_TRUE(title.hasFocus());
    EXPECT_EQ(title.cursorPosition(), 1);
    EXPECT_NE(find<QAbstractButton>(page(), QStringLiteral("Project defaults")), nullptr);
    EXPECT_NE(find<QAbstractButton>(page(), QStringLiteral("Delete project…")), nullptr);
    store->setLanguage("zh");
    settle();
    EXPECT_EQ(page().findChildren<QWidget*>(), before);
}

TEST_F(ProjectViewTest, TheDefaultsOpenFillAndStayOpen) {
    tab(details);
    EXPECT_FALSE(defaults().isExpanded());
    EXPECT_EQ(find<QLineEdit>(page(), QStringLiteral("ISO")), nullptr);
    clickOnPage(QStringLiteral("项目默认参数"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return find<QLineEdit>(page(), QStringLiteral("ISO")) != nullptr; }));
    expectShown({"新记录自动带入，已拍 Take 保持独立", "镜头", "相机", "录制与监视"});
    type(QStringLiteral("ISO"), QStringLiteral("800"));
    EXPECT_EQ(record()->defaults["iso"], Text("800"));
    auto& iso = field(QStringLiteral("ISO"));
    iso.selectAll();
    QTest::keyClick(&iso, Qt::Key_Backspace);
    EXPECT_TRUE(record()->defaults["iso"].empty());
    EXPECT_NE(record()->defaults.values.find("iso"), nullptr) << "an emptied field stores the empty text";
    tab(overview);
    tab(details);
    EXPECT_TRUE(defaults().isExpanded());
    go(Route::library());
    go(desk());
    EXPECT_TRUE(defaults().isExpanded());
    store->setLanguage("en");
    settle();
    expectShown({"Inherited by new records; recorded takes stay independent", "Lens", "Camera",
                 "Recording & monitoring"});
}

TEST_F(ProjectViewTest, DeletingGoesToTheLibraryAndUndoBringsItBackThere) {
    tab(details);
    clickOnPage(QStringLiteral("删除项目…"));
    EXPECT_NE(find<Label>(*QApplication::activeModalWidget(),
                          QStringLiteral("删除项目及其全部记录？可用撤销结构修改恢复。")),
              nullptr);
    answer(QStringLiteral("删除"));
    EXPECT_EQ(route(), Route::library());
    EXPECT_TRUE(store->library().projects.empty());
    EXPECT_EQ(tree().model()->rowCount(), 0);
    click(QStringLiteral("撤销结构修改"));
    EXPECT_EQ(route(), Route::library());
    EXPECT_EQ(store->library().projects.size(), 1U);
    EXPECT_EQ(tree().model()->rowCount(), 1) << "reachable again";
    clickOnPage(QStringLiteral("候车室"));
    EXPECT_EQ(route(), desk());
    EXPECT_EQ(chosenTab(), ProjectTab::details);
}

TEST_F(ProjectViewTest, AProductionThatIsNotThereIsMissingInBothLanguages) {
    go(Route::project(Identifier::random()));
    expectShown({"这条记录已删除", "返回资料库，或撤销刚才的结构修改。"});
    EXPECT_EQ(find<QAbstractButton>(page(), QStringLiteral("撤销结构修改")), nullptr);
    store->setLanguage("en");
    settle();
    expectShown({"This record was deleted", "Return to the library or undo the structure change."});
    clickOnPage(QStringLiteral("Back to library"));
    EXPECT_EQ(route(), Route::library());
}

TEST_F(ProjectViewTest, TheMissingPageIsNoWiderThanAPage) {
    window->resize(2200, 900);
    go(Route::project(Identifier::random()));
    int cards = 0;
    for (auto* card : page().findChildren<EmptyViewCard*>())
        if (card->isVisible()) {
            ++cards;
            EXPECT_LE(card->width(), Metrics::pageWidth);
        }
    EXPECT_EQ(cards, 1);
}

TEST_F(ProjectViewTest, LongNamesMakeNoHeadingGrow) {
    store->updateProject(project, [](Project& held) {
        held.title = Text(std::string(600, 'M') + " & <b>");
        held.director = Text(QStringLiteral("a very long name ").repeated(60).toStdString());
    });
    for (const int width : {Metrics::windowMinimumWidth, Metrics::windowWidth}) {
        window->resize(width, Metrics::windowMinimumHeight);
        settle();
        auto& tabs = *page().findChild<WorkspaceTabs*>();
        EXPECT_LT(tabs.mapTo(&page(), QPoint()).y(), 140) << width;
        EXPECT_LE(tabs.mapTo(&page(), QPoint(tabs.width(), 0)).x(), page().width());
    }
}

TEST_F(ProjectViewTest, TheKeyboardChoosesTabsByArrows) {
    auto& first = get<Segment>(overview, &page());
    first.setFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    EXPECT_EQ(chosenTab(), ProjectTab::people);
    EXPECT_TRUE(get<Segment>(people, &page()).hasFocus());
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(chosenTab(), ProjectTab::details);
    press(Qt::Key_Tab);
    EXPECT_EQ(spoken(*QApplication::focusWidget(), QAccessible::Name), QStringLiteral("项目名称"));
}

}  // namespace
}  // namespace vantry::test
