// What each page shows and does.

#include <QScrollBar>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/SegmentedChoice.h"
#include "Vantry/interface/design/StatusPill.h"
#include "Vantry/interface/design/VantryDisclosure.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

class PagesTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
    }
    void type(const QString& field, const QString& text) const {
        auto& line = get<QLineEdit>(field, &page());
        line.selectAll();
        QTest::keyClicks(&line, text);
    }
    [[nodiscard]] QString value(const QString& control) const {
        return QAccessible::queryAccessibleInterface(&get(control))->text(QAccessible::Value);
    }
    [[nodiscard]] QString detailOf(const QString& row) const {
        return QAccessible::queryAccessibleInterface(&get(row, &page()))->text(QAccessible::Description);
    }
};

TEST_F(PagesTest, TheLibraryListsProductionsWithTheirCounts) {
    EXPECT_EQ(detailOf(QStringLiteral("候车室")), QStringLiteral("导演 · 林若水 · 1 幕 · 1 镜 · 0 已完成"));
    store->updateTake(project, act, shot, take, [](VantryTake& record) { record.result = TakeResult::good; });
    store->updateProject(project, [](Project& record) {
        record.director = "";
        record.conflictKey = Text("key");
    });
    settle();
    EXPECT_EQ(detailOf(QStringLiteral("候车室")),
              QStringLiteral("保留版本 · 导演 · 待填写 · 1 幕 · 1 镜 · 1 已完成"));
    clickOnPage(QStringLiteral("候车室"));
    EXPECT_EQ(route(), Route::project(project));
}

TEST_F(PagesTest, TheCardsOfTheLibraryTakeTheHeightOfTheirRows) {
    for (const char* title : {"A", "B", "C", "D"})
        store->addProject(title, "");
    settle();
    for (const QSize size : {QSize(1000, 680), QSize(1380, 900), QSize(1000, 680)}) {
        window->resize(size);
        settle();
        const auto* cards = get<QAbstractButton>(QStringLiteral("A"), &page()).parentWidget();
        EXPECT_EQ(cards->height(), 3 * Metrics::productionHeight + 2 * Metrics::gapCard);
        const QWidget& desk = *cards->parentWidget()->parentWidget()->parentWidget();
        const int end = cards->mapTo(&desk, QPoint(0, cards->height())).y();
        const auto& next = get<Label>(QStringLiteral("接下来的拍摄"), &page());
        if (size.width() == 1000) {
            EXPECT_EQ(next.mapTo(&desk, QPoint()).y(), end + Metrics::gapSection);
        }
    }
}

TEST_F(PagesTest, AProductionIsNamedDirectedAndDescribed) {
    openTab(Route::project(project), QStringLiteral("项目信息"));
    type(QStringLiteral("项目名称"), QStringLiteral("Night Ferry"));
    type(QStringLiteral("导演"), QStringLiteral("Anna"));
    QTest::keyClicks(&get<ParagraphEditor>(QStringLiteral("项目说明")), QStringLiteral("Two nights."));
    settle();
    const auto record = store->project(project);
    EXPECT_EQ(record->title, Text("Night Ferry"));
    EXPECT_EQ(record->director, Text("Anna"));
    EXPECT_EQ(record->notes, Text("Two nights."));
    EXPECT_TRUE(shows(QStringLiteral("Night Ferry"))) << "the heading follows";
    EXPECT_TRUE(shows(QStringLiteral("导演 · Anna")));
    openTab(Route::project(project), QStringLiteral("拍摄总览"));
    EXPECT_EQ(detailOf(QStringLiteral("第 1 幕")), QStringLiteral("1 镜 · 0 已完成 · 1 待拍"));
}

TEST_F(PagesTest, AnActIsNamedAndListsItsShots) {
    go(Route::act(project, act));
    type(QStringLiteral("幕名称"), QStringLiteral("Harbour"));
    EXPECT_EQ(store->act(project, act)->title, Text("Harbour"));
    store->updateShot(project, act, shot, [](Shot& record) {
        record.code = "20B";
        record.title = "Chen turns";
        record.takes[0].edit().stars = 3;
        record.takes[0].edit().result = TakeResult::good;
    });
    settle();
    EXPECT_EQ(detailOf(QStringLiteral("20B Chen turns")), QStringLiteral("1 Take · 3 ★ · 已完成"));
    EXPECT_TRUE(shows(QStringLiteral("1 / 1 镜已完成")));
    store->updateShot(project, act, shot, [](Shot& record) { record.cancelled = true; });
    settle();
    EXPECT_EQ(detailOf(QStringLiteral("20B Chen turns")), QStringLiteral("1 Take · 3 ★ · 已取消"));
}

TEST_F(PagesTest, AShotIsPlannedInItsFields) {
    go(shotRoute());
    type(QStringLiteral("镜号"), QStringLiteral("20B"));
    type(QStringLiteral("标题"), QStringLiteral("Chen turns"));
    type(QStringLiteral("景别"), QStringLiteral("Close-up"));
    type(QStringLiteral("机位 / 运动"), QStringLiteral("Slow push"));
    type(QStringLiteral("声音"), QStringLiteral("Boom"));
    QTest::keyClicks(&get<ParagraphEditor>(QStringLiteral("画面与动作")), QStringLiteral("He turns."));
    clickOnPage(QStringLiteral("MOS"));
    EXPECT_EQ(shotRecord().code, Text("20B"));
    EXPECT_EQ(shotRecord().title, Text("Chen turns"));
    EXPECT_EQ(shotRecord().framing, Text("Close-up"));
    EXPECT_EQ(shotRecord().movement, Text("Slow push"));
    EXPECT_EQ(shotRecord().soundDescription, Text("Boom"));
    EXPECT_EQ(shotRecord().description, Text("He turns."));
    EXPECT_EQ(shotRecord().soundMode, SoundMode::mos);
    EXPECT_TRUE(shows(QStringLiteral("20B Chen turns")));
}

TEST_F(PagesTest, AShotListsItsTakesNewestLast) {
    store->updateTake(project, act, shot, take, [](VantryTake& record) {
        record.notes = "\n  First line \u2028second";
        record.result = TakeResult::ng;
        record.stars = 2;
    });
    store->updateShot(project, act, shot, [](Shot& record) { record.newTake(); });
    go(shotRoute());
    EXPECT_EQ(detailOf(QStringLiteral("Take 01")), QStringLiteral("NG · 2 ★ · First line"));
    EXPECT_EQ(detailOf(QStringLiteral("Take 02")), QStringLiteral("待定 · 0 ★ · 还没有现场笔记"));
    const auto top = [this](const QString& row) { return get(row).mapTo(&page(), QPoint()).y(); };
    EXPECT_LT(top(QStringLiteral("Take 01")), top(QStringLiteral("Take 02")));
    clickOnPage(QStringLiteral("Take 01"));
    EXPECT_EQ(route(), takeRoute());
    clickOnPage(QStringLiteral("返回镜头"));
    EXPECT_EQ(route(), shotRoute());
}

TEST_F(PagesTest, AShotWithoutTakesSaysHowToBegin) {
    store->updateShot(project, act, shot, [](Shot& record) { record.takes.clear(); });
    go(shotRoute());
    EXPECT_TRUE(shows(QStringLiteral("准备好开拍后，新建第一条 Take。笔记和素材名逐条记录。")));
    clickOnPage(QStringLiteral("新 Take"));
    EXPECT_EQ(shotRecord().takes.size(), 1U);
    EXPECT_TRUE(get<ParagraphEditor>(QStringLiteral("现场笔记 · 自由输入")).hasFocus());
}

TEST_F(PagesTest, TheResultIsChosenByClickAndByKey) {
    go(takeRoute());
    clickOnPage(QStringLiteral("Good"));
    EXPECT_EQ(takeRecord().result, TakeResult::good);
    EXPECT_TRUE(shotRecord().complete());
    auto& good = get<Segment>(QStringLiteral("Good"));
    good.setFocus();
    QTest::keyClick(&good, Qt::Key_Right);
    settle();
    EXPECT_EQ(takeRecord().result, TakeResult::ng);
    clickOnPage(QStringLiteral("待定"));
    EXPECT_EQ(takeRecord().result, TakeResult::pending);
    EXPECT_TRUE(get<Segment>(QStringLiteral("待定")).isChecked());
}

TEST_F(PagesTest, PressingTheStarThatIsSetClearsTheRating) {
    go(takeRoute());
    clickOnPage(QStringLiteral("3 星"));
    EXPECT_EQ(takeRecord().stars, 3);
    EXPECT_EQ(value(QStringLiteral("3 星")), QStringLiteral("已选择"));
    EXPECT_EQ(value(QStringLiteral("4 星")), QStringLiteral("未选择"));
    clickOnPage(QStringLiteral("5 星"));
    EXPECT_EQ(takeRecord().stars, 5);
    clickOnPage(QStringLiteral("3 星"));
    clickOnPage(QStringLiteral("3 星"));
    EXPECT_EQ(takeRecord().stars, 0);
    EXPECT_EQ(value(QStringLiteral("1 星")), QStringLiteral("未选择"));
}

TEST_F(PagesTest, TheSoundModeShowsAndHidesNamesButKeepsThem) {
    const QString note = QStringLiteral("此前填写的素材名仍保留，可切回查看。");
    go(takeRoute());
    QTest::keyClicks(&get<ParagraphEditor>(QStringLiteral("相机素材名")), QStringLiteral("A001"));
    type(QStringLiteral("Mixer 素材名"), QStringLiteral("S01.WAV"));
    EXPECT_TRUE(shows(QStringLiteral("声音 Take 1")));
    clickOnPage(QStringLiteral("MOS"));
    EXPECT_EQ(find<QLineEdit>(*window, QStringLiteral("Mixer 素材名")), nullptr);
    EXPECT_TRUE(shows(note));
    EXPECT_EQ(takeRecord().soundMode, SoundMode::mos);
    clickOnPage(QStringLiteral("Room Tone"));
    EXPECT_EQ(find<ParagraphEditor>(*window, QStringLiteral("相机素材名")), nullptr);
    EXPECT_NE(find<QLineEdit>(*window, QStringLiteral("Mixer 素材名")), nullptr);
    EXPECT_TRUE(shows(note));
    clickOnPage(QStringLiteral("同期声"));
    EXPECT_FALSE(shows(note));
    EXPECT_EQ(get<ParagraphEditor>(QStringLiteral("相机素材名")).toPlainText(), QStringLiteral("A001"));
    EXPECT_EQ(get<QLineEdit>(QStringLiteral("Mixer 素材名")).text(), QStringLiteral("S01.WAV"));
    EXPECT_TRUE(shows(QStringLiteral("声音 Take 1")));
    EXPECT_EQ(takeRecord().cameraFile, Text("A001"));
    EXPECT_EQ(takeRecord().mixerFile, Text("S01.WAV"));
}

TEST_F(PagesTest, AModeThatNeedsANumberGivesOne) {
    store->updateShot(project, act, shot, [](Shot& record) { record.soundMode = SoundMode::mos; });
    const Identifier silent = store->addTake(project, act, shot);
    go(Route::take(project, act, shot, silent));
    EXPECT_FALSE(store->take(project, act, shot, silent)->soundNumber);
    clickOnPage(QStringLiteral("同期声"));
    EXPECT_EQ(store->take(project, act, shot, silent)->soundNumber, 2);
    EXPECT_TRUE(shows(QStringLiteral("声音 Take 2")));
}

TEST_F(PagesTest, TheCameraFieldExplainsItselfWhileItIsInUse) {
    go(takeRoute());
    auto& camera = get<ParagraphEditor>(QStringLiteral("相机素材名"));
    EXPECT_TRUE(shows(QStringLiteral("相机素材名")));
    camera.setFocus();
    settle();
    EXPECT_TRUE(shows(QStringLiteral("相机素材名 · 多机位分行填写")));
    notes().setFocus();
    settle();
    EXPECT_FALSE(shows(QStringLiteral("相机素材名 · 多机位分行填写")));
}

TEST_F(PagesTest, ARetainedTakeSaysSo) {
    const QString mark = QStringLiteral("合并保留的不同版本 · 原记录未覆盖");
    go(takeRoute());
    EXPECT_FALSE(shows(mark));
    store->updateTake(project, act, shot, take, [](VantryTake& record) { record.conflictKey = Text("key"); });
    settle();
    EXPECT_TRUE(shows(mark));
    go(shotRoute());
    EXPECT_EQ(detailOf(QStringLiteral("Take 01")), QStringLiteral("待定 · 0 ★ · 还没有现场笔记 · 保留版本"));
    const QList<StatusPill*> pills = page().findChildren<StatusPill*>();
    EXPECT_EQ(
        std::count_if(pills.cbegin(), pills.cend(), [](const StatusPill* pill) { return pill->isVisible(); }),
        1)
        << "the shot itself is none";
}

TEST_F(PagesTest, ARetainedShotSaysSo) {
    store->updateShot(project, act, shot, [](Shot& record) { record.conflictKey = Text("key"); });
    go(shotRoute());
    EXPECT_TRUE(shows(QStringLiteral("保留版本")));
    store->setLanguage("en");
    settle();
    EXPECT_TRUE(shows(QStringLiteral("Retained version")));
}

TEST_F(PagesTest, ANameThatLooksLikeMarkupLooksAndSpeaksRight) {
    const QString name = QStringLiteral("Tom & Jerry <b>");
    store->updateProject(project, [](Project& record) {
        record.title = "Tom & Jerry <b>";
        record.director = "Tom & Jerry <b>";
    });
    store->updateAct(project, act, [](Act& record) { record.title = "Tom & Jerry <b>"; });
    store->updateShot(project, act, shot, [](Shot& record) {
        record.code = "A&B";
        record.title = "<b>";
    });
    for (const Route& place :
         {Route::library(), Route::project(project), Route::act(project, act), shotRoute(), takeRoute()}) {
        go(place);
        for (auto* label : window->findChildren<Label*>()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
            EXPECT_TRUE(label->toolTip().isEmpty());
        }
        for (auto* button : window->findChildren<QAbstractButton*>()) {
            EXPECT_TRUE(button->shortcut().isEmpty()) << "an ampersand made a key of its own";
            EXPECT_FALSE(button->toolTip().contains(QStringLiteral("<b>")));
        }
    }
    go(Route::library());
    EXPECT_EQ(get<QAbstractButton>(name).text(), QStringLiteral("Tom && Jerry <b>"));
    go(Route::act(project, act));
    EXPECT_TRUE(shows(QStringLiteral("A&B <b>")));
    EXPECT_TRUE(shows(name)) << "in the heading";
}

TEST_F(PagesTest, NoParameterIsCutInAnyWidthOfTheWindow) {
    go(takeRoute());
    clickOnPage(QStringLiteral("相机、镜头、录制与监视"));
    // A page that is come back to has its panel open at once.
    go(Route::library());
    go(takeRoute());
    const auto& panel = *page().findChild<VantryDisclosure*>();
    for (const int width : {1000, 1140, 1150, 1200, 1249, 1250, 1380, 2000}) {
        window->resize(width, 800);
        settle();
        const auto fields = panel.findChildren<QLineEdit*>();
        ASSERT_EQ(fields.size(), 16);
        for (const QLineEdit* field : fields)
            for (const QWidget* around = field->parentWidget(); around != panel.parentWidget();
                 around = around->parentWidget())
                EXPECT_TRUE(around->rect().contains(QRect(field->mapTo(around, QPoint()), field->size())))
                    << width << ' ' << field->accessibleName().toStdString();
    }
}

TEST_F(PagesTest, AParameterBecomesTheDefaultWhenItIsSavedOrTheProgramEnds) {
    const auto defaults = [this] { return store->project(project)->defaults; };
    go(takeRoute());
    clickOnPage(QStringLiteral("相机、镜头、录制与监视"));
    auto& ratio = get<QLineEdit>(QStringLiteral("画幅"), &page());
    ratio.setFocus();
    QTest::keyClicks(&ratio, QStringLiteral("1.85"));
    EXPECT_EQ(defaults()["aspect"], Text("")) << "not while it is being entered";
    click(QStringLiteral("保存"));
    EXPECT_EQ(defaults()["aspect"], Text("1.85"));
    auto& iso = get<QLineEdit>(QStringLiteral("ISO"), &page());
    iso.setFocus();
    QTest::keyClicks(&iso, QStringLiteral("640"));
    window->close();
    settle();
    EXPECT_EQ(defaults()["iso"], Text("640"));
    EXPECT_FALSE(store->hasUnsavedChanges());
}

TEST_F(PagesTest, TheKeyboardGoesAlongWithAVerdictChosenByMouse) {
    go(takeRoute());
    auto& pending = get<Segment>(QStringLiteral("待定"));
    pending.setFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(takeRecord().result, TakeResult::ng);
    clickOnPage(QStringLiteral("待定"));
    EXPECT_EQ(QApplication::focusWidget(), &pending);
    press(Qt::Key_Space);
    EXPECT_EQ(takeRecord().result, TakeResult::pending);
}

TEST_F(PagesTest, TheKeysThatScrollDoSoOnThePageItself) {
    go(takeRoute());
    window->resize(1000, 680);
    settle();
    auto& bar = *page().findChild<PageColumn*>()->verticalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    page().setFocus();
    press(Qt::Key_End);
    EXPECT_EQ(bar.value(), bar.maximum());
    press(Qt::Key_PageUp);
    EXPECT_LT(bar.value(), bar.maximum());
    press(Qt::Key_Home);
    EXPECT_EQ(bar.value(), 0);
    press(Qt::Key_Down);
    EXPECT_GT(bar.value(), 0);
}

TEST_F(PagesTest, TheKeyboardReachesEveryControlOfTheTakeInOrder) {
    go(takeRoute());
    get<QAbstractButton>(QStringLiteral("新 Take · ⌘ Return")).setFocus(Qt::TabFocusReason);
    QStringList reached;
    for (int step = 0; step < 16; ++step) {
        reached.append(
            QAccessible::queryAccessibleInterface(QApplication::focusWidget())->text(QAccessible::Name));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(reached,
              (QStringList{"新 Take · ⌘ Return", "放大分镜图片 · 01", "查看分镜计划", "待定", "1 星", "2 星",
                           "3 星", "4 星", "5 星", "现场笔记 · 自由输入", "同期声", "相机素材名",
                           "Mixer 素材名", "相机、镜头、录制与监视", "返回镜头", "删除本条…"}));
}

}  // namespace
}  // namespace vantry::test
