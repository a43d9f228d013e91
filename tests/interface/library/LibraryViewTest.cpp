#include "Vantry/interface/library/LibraryView.h"

#include <algorithm>

#include "Vantry/interface/design/CompletionLine.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Sheet.h"
#include "Vantry/interface/library/PlanRows.h"
#include "Vantry/interface/library/ProductionCard.h"
#include "tests/interface/design/HelpOver.h"
#include "tests/interface/library/DeskFixture.h"

namespace vantry::test {
namespace {

constexpr double hour = 3600;

class LibraryViewTest : public DeskTest {
protected:
    /// The names of the shots that come up, from the top.
    [[nodiscard]] QStringList upcoming() const {
        QStringList names;
        QList<UpcomingRow*> rows = page().findChildren<UpcomingRow*>();
        std::sort(rows.begin(), rows.end(), [](auto* a, auto* b) { return a->y() < b->y(); });
        for (auto* row : rows)
            if (row->isVisible())
                names.append(row->plain());
        return names;
    }
    Identifier addShot(const char* code, std::optional<double> inHours, bool cancelled = false) {
        const Identifier id = store->addShot(project, act);
        const Moment now = store->now();
        store->updateShot(project, act, id, [&](Shot& record) {
            record.code = code;
            record.title = "Title";
            record.cancelled = cancelled;
            if (inHours)
                record.scheduledAt = Moment{now.seconds + *inHours * hour};
        });
        return id;
    }
    void makeAct() {
        project = store->addProject("Night Ferry", "Mei");
        act = store->addAct(project);
        store->updateAct(project, act, [](Act& record) { record.title = "Harbour"; });
        settle();
    }
};

TEST_F(LibraryViewTest, AnEmptyLibrarySaysHowToBeginInBothLanguages) {
    expectShown({"拍摄工作空间", "资料库", "从分镜计划，到现场的每一条记录。", "项目", "计划镜头",
                 "已完成镜头", "从一个项目开始", "添加项目，再按幕编排镜头、排期与现场记录。", "接下来的拍摄",
                 "暂无后续排期", "在分镜中设置日期与时间，安排会出现在这里。"});
    EXPECT_FALSE(shows(QStringLiteral("我的项目")));
    EXPECT_EQ(metrics(), (QStringList{"0", "0", "0"}));
    EXPECT_TRUE(upcoming().isEmpty());
    EXPECT_EQ(detailOf(QStringLiteral("搜索资料库")), QStringLiteral("镜号、现场笔记、相机或 Mixer 素材名"));
    EXPECT_NE(find<QAbstractButton>(page(), QStringLiteral("新建项目")), nullptr);
    EXPECT_NE(find<QAbstractButton>(page(), QStringLiteral("查看日历")), nullptr);
    store->setLanguage("en");
    settle();
    expectShown({"Production workspace", "Library", "From the first shot plan to the last take.",
                 "Productions", "Planned shots", "Completed shots", "Begin with a project",
                 "Add a production to plan shots, schedule days and log takes.", "Coming up",
                 "No upcoming shoots", "Set a date and time in a shot plan to see it here."});
    EXPECT_EQ(detailOf(QStringLiteral("Search library")),
              QStringLiteral("Shot codes, on-set notes, camera or mixer filenames"));
    EXPECT_NE(find<QAbstractButton>(page(), QStringLiteral("New project")), nullptr);
    EXPECT_NE(find<QAbstractButton>(page(), QStringLiteral("Open calendar")), nullptr);
}

TEST_F(LibraryViewTest, AProductionShowsItsCardInsteadOfTheBeginning) {
    makeAct();
    expectShown({QStringLiteral("我的项目")});
    EXPECT_FALSE(shows(QStringLiteral("从一个项目开始")));
    EXPECT_EQ(detailOf(QStringLiteral("Night Ferry")), QStringLiteral("导演 · Mei · 1 幕 · 0 镜 · 0 已完成"));
    store->setLanguage("en");
    store->updateProject(project, [](Project& record) {
        record.director = "";
        record.conflictKey = Text("key");
    });
    settle();
    EXPECT_EQ(detailOf(QStringLiteral("Night Ferry")),
              QStringLiteral("Retained version · Director · Not set · 1 acts · 0 shots · 0 complete"));
}

TEST_F(LibraryViewTest, CountsWhatIsPlannedAndDone) {
    makeAct();
    const Identifier done = addShot("1", {});
    addShot("2", {});
    const Identifier off = addShot("3", {}, true);
    for (const Identifier& id : {done, off}) {
        const Identifier good = store->addTake(project, act, id);
        store->updateTake(project, act, id, good,
                          [](VantryTake& record) { record.result = TakeResult::good; });
    }
    store->addProject("Second", "");
    settle();
    EXPECT_EQ(metrics(), (QStringList{"2", "2", "1"})) << "a cancelled shot counts in neither";
    EXPECT_EQ(detailOf(QStringLiteral("Night Ferry")), QStringLiteral("导演 · Mei · 1 幕 · 3 镜 · 1 已完成"));
    auto& card = get<ProductionCard>(QStringLiteral("Night Ferry"), &page());
    EXPECT_EQ(spoken(*card.findChild<CompletionLine*>(), QAccessible::Name), QStringLiteral("1 / 2"));
}

TEST_F(LibraryViewTest, CardsStandInTheOrderOfTheLibraryAndLeadToTheirDesks) {
    const Identifier b = store->addProject("B", "");
    const Identifier a = store->addProject("A", "");
    settle();
    const auto placeOf = [&](const char* name) {
        return get<ProductionCard>(QString::fromLatin1(name), &page()).mapTo(&page(), QPoint());
    };
    EXPECT_TRUE(placeOf("B").y() < placeOf("A").y() || placeOf("B").x() < placeOf("A").x());
    clickOnPage(QStringLiteral("A"));
    EXPECT_EQ(route(), Route::project(a));
    go(Route::library());
    get<ProductionCard>(QStringLiteral("B"), &page()).setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(route(), Route::project(b));
}

TEST_F(LibraryViewTest, WhatComesUpIsWhatIsNotOver) {
    makeAct();
    addShot("later", 30);
    addShot("running", -0.4);
    addShot("over", -0.6);
    addShot("ends now", -0.5);
    addShot("never", {});
    addShot("off", 5, true);
    addShot("soon", 1);
    addShot("soon too", 1);
    settle();
    EXPECT_EQ(upcoming(), (QStringList{"ends now · Title", "running · Title", "soon · Title",
                                       "soon too · Title", "later · Title"}));
    EXPECT_FALSE(shows(QStringLiteral("暂无后续排期")));
}

TEST_F(LibraryViewTest, AShootGoesWhenItEndsWhileThePageStandsOpen) {
    makeAct();
    addShot("1", -0.25);
    const Identifier second = addShot("2", 0.5);
    addShot("far", 1000);
    settle();
    const QStringList all{"1 · Title", "2 · Title", "far · Title"};
    const auto pass = [this](double hours) {
        clock.advance(static_cast<long long>(hours * hour * 1000));
        settle();
    };
    pass(0.25);
    EXPECT_EQ(upcoming(), all) << "it ends now";
    clock.advance(1);
    settle();
    EXPECT_EQ(upcoming(), all.mid(1));
    store->updateShot(project, act, second,
                      [&](Shot& record) { record.scheduledAt = Moment{store->now().seconds + 3 * hour}; });
    settle();
    pass(1);
    EXPECT_EQ(upcoming(), all.mid(1)) << "it was put off";
    pass(2.6);
    EXPECT_EQ(upcoming(), all.mid(2));
    pass(1200);
    EXPECT_TRUE(upcoming().isEmpty());
    EXPECT_TRUE(shows(QStringLiteral("暂无后续排期")));
}

TEST_F(LibraryViewTest, AShootThatIsMovedOrCancelledMovesOrGoes) {
    makeAct();
    const Identifier first = addShot("1", 1);
    const Identifier second = addShot("2", 2);
    addShot("3", 3);
    settle();
    store->updateShot(project, act, first,
                      [&](Shot& record) { record.scheduledAt = Moment{store->now().seconds + 9 * hour}; });
    settle();
    EXPECT_EQ(upcoming(), (QStringList{"2 · Title", "3 · Title", "1 · Title"}));
    store->updateShot(project, act, second, [](Shot& record) { record.cancelled = true; });
    settle();
    EXPECT_EQ(upcoming(), (QStringList{"3 · Title", "1 · Title"}));
}

TEST_F(LibraryViewTest, ARowTellsWhenWhatAndWhereAndLeadsToTheShot) {
    makeAct();
    shot = addShot("20B", 1);
    settle();
    const QString detail = detailOf(QStringLiteral("20B · Title"));
    EXPECT_TRUE(detail.endsWith(QStringLiteral(" · Night Ferry · Harbour"))) << detail.toStdString();
    clickOnPage(QStringLiteral("20B · Title"));
    EXPECT_EQ(route(), shotRoute());
}

TEST_F(LibraryViewTest, ItsButtonsLeadToCalendarSearchAndTheSheet) {
    clickOnPage(QStringLiteral("查看日历"));
    EXPECT_EQ(route(), Route::calendar());
    go(Route::library());
    clickOnPage(QStringLiteral("搜索资料库"));
    EXPECT_EQ(route(), Route::search());
    go(Route::library());
    clickOnPage(QStringLiteral("新建项目"));
    EXPECT_NE(topmost<Sheet>(), nullptr);
    EXPECT_TRUE(store->library().projects.empty());
}

TEST_F(LibraryViewTest, TheKeyboardWalksInTheOrderOfReading) {
    makeAct();
    addShot("1", 1);
    addShot("2", 2);
    store->addProject("Second", "");
    settle();
    const QStringList order{"新建项目",  "Night Ferry", "Second",    "1 · Title",
                            "2 · Title", "查看日历",    "搜索资料库"};
    for (const int width : {Metrics::windowMinimumWidth, Metrics::windowWidth}) {
        window->resize(width, Metrics::windowHeight);
        settle();
        get<QAbstractButton>(order.first(), &page()).setFocus(Qt::TabFocusReason);
        QStringList met;
        for (int step = 0; step < order.size(); ++step) {
            met.append(spoken(*QApplication::focusWidget(), QAccessible::Name));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            settle();
        }
        EXPECT_EQ(met.join(" | ").toStdString(), order.join(" | ").toStdString()) << width;
    }
}

TEST_F(LibraryViewTest, StandsBelowEachOtherInANarrowWindowAndBesideInAWideOne) {
    makeAct();
    addShot("1", 1);
    settle();
    auto* card = page().findChild<ProductionCard*>();
    auto* row = page().findChild<UpcomingRow*>();
    const auto place = [&](QWidget* part) { return part->mapTo(&page(), QPoint()); };
    window->resize(Metrics::windowWidth, Metrics::windowHeight);
    settle();
    EXPECT_GT(place(row).x(), place(card).x());
    window->resize(Metrics::windowMinimumWidth, Metrics::windowMinimumHeight);
    settle();
    EXPECT_EQ(place(row).x(), place(card).x());
    EXPECT_GT(place(row).y(), place(card).y());
    EXPECT_EQ(page().findChild<ProductionCard*>(), card) << "the same page, laid out by its width";
}

TEST_F(LibraryViewTest, ALanguageIsChangedOnTheWidgetsThatAreThere) {
    makeAct();
    addShot("1", 1);
    settle();
    const QList<QWidget*> before = page().findChildren<QWidget*>();
    for (const char* language : {"en", "zh", "en"}) {
        store->setLanguage(language);
        settle();
        EXPECT_EQ(page().findChildren<QWidget*>(), before);
    }
    expectShown({QStringLiteral("Productions"), QStringLiteral("Coming up")});
}

TEST_F(LibraryViewTest, TitlesAreShownLetterByLetter) {
    const QString name = QStringLiteral("Tom & Jerry <b>x</b>");
    project = store->addProject(toText(name), "a <i>b</i> & c");
    act = store->addAct(project);
    store->updateAct(project, act, [&](Act& record) { record.title = "A & <u>B</u>"; });
    const Identifier id = addShot("1&2", 1);
    store->updateShot(project, act, id, [&](Shot& record) { record.title = "<s>no</s>"; });
    settle();
    auto& card = get<ProductionCard>(name, &page());
    EXPECT_EQ(card.plain(), name);
    EXPECT_TRUE(card.shortcut().isEmpty());
    EXPECT_EQ(helpOver(card), asHelp(name));
    EXPECT_EQ(detailOf(name), QStringLiteral("导演 · a <i>b</i> & c · 1 幕 · 1 镜 · 0 已完成"));
    EXPECT_EQ(upcoming(), QStringList{QStringLiteral("1&2 · <s>no</s>")});
    EXPECT_TRUE(detailOf(QStringLiteral("1&2 · <s>no</s>"))
                    .endsWith(QStringLiteral(" · Tom & Jerry <b>x</b> · A & <u>B</u>")));
}

TEST_F(LibraryViewTest, ManyProductionsAreAListOfWhichLittleExists) {
    for (int count = 0; count < 150; ++count)
        store->addProject("Production", "");
    settle();
    EXPECT_LT(page().findChildren<ProductionCard*>().size(), 60);
    EXPECT_EQ(metrics().first(), QStringLiteral("150"));
}

}  // namespace
}  // namespace vantry::test
