// The frame of a shot, and what can be done with a shot from its page and from its act.

#include <QMenu>

#include "Vantry/interface/design/Sheet.h"
#include "Vantry/interface/shots/StoryboardPreview.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

const QString undoButton = QStringLiteral("撤销结构修改");
const QString menuButton = QStringLiteral("镜头操作");

class ShotActionsTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
        clock.advance(1000);
    }
    /// An image file of one colour.
    [[nodiscard]] std::filesystem::path picture(const char* name, QSize size, Qt::GlobalColor colour) const {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        auto path = folder / name;
        EXPECT_TRUE(image.save(QString::fromStdString(path.string())));
        return path;
    }
    [[nodiscard]] StoryboardPreview& frame() const { return *page().findChild<StoryboardPreview*>(); }
    /// The colour of the frame at a fraction of its size.
    [[nodiscard]] QColor colourAt(double x, double y) const {
        const QImage shown = frame().grab().toImage();
        return shown.pixelColor(static_cast<int>(shown.width() * x), static_cast<int>(shown.height() * y));
    }
    [[nodiscard]] bool canPress(const QString& name) const {
        return get<QAbstractButton>(name, &page()).isEnabled();
    }
    [[nodiscard]] std::vector<Identifier> order() const {
        std::vector<Identifier> shots;
        for (const auto& record : store->act(project, act)->shots)
            shots.push_back(record->id);
        return shots;
    }
    /// Opens the menu of the shot in that row and answers its entries, those that are off in brackets.
    QStringList openMenu(int row) const {
        std::vector<QAbstractButton*> buttons;
        for (auto* button : page().findChildren<QAbstractButton*>())
            if (button->accessibleName() == menuButton)
                buttons.push_back(button);
        std::sort(buttons.begin(), buttons.end(), [](auto* a, auto* b) {
            return a->mapToGlobal(QPoint()).y() < b->mapToGlobal(QPoint()).y();
        });
        QTest::mouseClick(buttons.at(static_cast<std::size_t>(row)), Qt::LeftButton);
        QStringList entries;
        for (const auto* entry : menu().actions())
            entries << (entry->isEnabled() ? entry->text()
                                           : QLatin1Char('[') + entry->text() + QLatin1Char(']'));
        return entries;
    }
    [[nodiscard]] static QMenu& menu() {
        auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (popup == nullptr)
            throw std::runtime_error("no menu is open");
        return *popup;
    }
    static void choose(const QString& entry) {
        for (auto* action : menu().actions())
            if (action->text() == entry) {
                QTest::mouseClick(&menu(), Qt::LeftButton, {}, menu().actionGeometry(action).center());
                settle();
                return;
            }
        throw std::runtime_error("the menu does not offer " + entry.toStdString());
    }
};

TEST_F(ShotActionsTest, AnImageComesIntoTheFrameAndGoes) {
    go(shotRoute());
    EXPECT_EQ(colourAt(0.1, 0.2), Palette::light().tint);
    EXPECT_FALSE(canPress(QStringLiteral("移除图片")));
    panels.choice = picture("wide.png", {640, 360}, Qt::red);
    clickOnPage(QStringLiteral("导入"));
    EXPECT_EQ(panels.asked, std::vector<std::string>{"open image"});
    ASSERT_TRUE(shotRecord().imageKey);
    EXPECT_EQ(support::contentOf(root() / "Media" / shotRecord().imageKey->utf8()),
              support::contentOf(*panels.choice));
    EXPECT_EQ(colourAt(0.5, 0.5), QColor(Qt::red));
    EXPECT_EQ(colourAt(0.02, 0.5), QColor(Qt::red)) << "as wide as the frame";

    clickOnPage(QStringLiteral("移除图片"));
    EXPECT_FALSE(shotRecord().imageKey);
    EXPECT_EQ(colourAt(0.1, 0.2), Palette::light().tint);
    EXPECT_FALSE(canPress(QStringLiteral("移除图片")));
    click(undoButton);
    EXPECT_TRUE(shotRecord().imageKey);
    EXPECT_EQ(colourAt(0.5, 0.5), QColor(Qt::red)) << "its file was kept";
    click(undoButton);
    EXPECT_FALSE(shotRecord().imageKey) << "the import is a change of its own";
}

TEST_F(ShotActionsTest, AnImageOfAnotherShapeIsShownWholeInTheMiddle) {
    go(shotRoute());
    panels.choice = picture("tall.png", {90, 360}, Qt::blue);
    clickOnPage(QStringLiteral("导入"));
    EXPECT_EQ(colourAt(0.5, 0.02), QColor(Qt::blue));
    EXPECT_EQ(colourAt(0.5, 0.97), QColor(Qt::blue));
    EXPECT_EQ(colourAt(0.3, 0.5), Palette::light().tint);
    EXPECT_EQ(colourAt(0.7, 0.5), Palette::light().tint);
}

TEST_F(ShotActionsTest, TheFrameKeepsItsShape) {
    go(shotRoute());
    for (const QSize& size : {QSize(1380, 900), QSize(1000, 680)}) {
        window->resize(size);
        settle();
        EXPECT_NEAR(frame().width() * 9.0 / 16.0, frame().height(), 1);
    }
}

TEST_F(ShotActionsTest, WhatIsNoImageIsAnErrorAndChangesNothing) {
    go(shotRoute());
    panels.choice = folder / "text.png";
    support::putContent(*panels.choice, "no image");
    clickOnPage(QStringLiteral("导入"));
    ASSERT_NE(topmost<AlertSheet>(), nullptr);
    EXPECT_EQ(topmost<AlertSheet>()->windowTitle(), QStringLiteral("操作未完成"));
    answer(QStringLiteral("好"));
    EXPECT_FALSE(shotRecord().imageKey);
}

TEST_F(ShotActionsTest, ADrawingIsShownAndGoesWithTheImage) {
    store->updateShot(project, act, shot, [](Shot& record) {
        record.strokes = {Stroke::make({{0.1, 0.5}, {0.9, 0.5}}), Stroke::make({{0.5, 0.25}}),
                          Stroke::make({})};
    });
    go(shotRoute());
    EXPECT_EQ(colourAt(0.5, 0.5), Palette::light().ink);
    EXPECT_EQ(colourAt(0.05, 0.5), Palette::light().tint);
    EXPECT_TRUE(canPress(QStringLiteral("移除图片")));
    clickOnPage(QStringLiteral("移除图片"));
    EXPECT_TRUE(shotRecord().strokes.empty());
    click(undoButton);
    EXPECT_EQ(shotRecord().strokes.size(), 3U);
}

TEST_F(ShotActionsTest, AFrameWhoseFileIsGoneIsEmpty) {
    store->updateShot(project, act, shot, [](Shot& record) { record.imageKey = Text(std::string(64, 'a')); });
    go(shotRoute());
    EXPECT_EQ(colourAt(0.5, 0.5), Palette::light().tint);
    EXPECT_TRUE(canPress(QStringLiteral("移除图片")));
    EXPECT_FALSE(store->error());
}

TEST_F(ShotActionsTest, AShotIsInsertedBehindThisOneAndOpened) {
    const Identifier last = store->addShot(project, act);
    clock.advance(1000);
    go(shotRoute());
    const QString insert = QStringLiteral("在本镜后插镜");
    auto& button = get<QAbstractButton>(insert, &page());
    button.setFocus(Qt::TabFocusReason);
    press(Qt::Key_Return);
    for (int repetition = 0; repetition < 10; ++repetition)
        press(Qt::Key_Return, Qt::NoModifier, true);
    ASSERT_EQ(order().size(), 3U);
    EXPECT_EQ(order()[0], shot);
    EXPECT_EQ(order()[2], last);
    EXPECT_EQ(route(), Route::shot(project, act, order()[1]));
    clickOnPage(insert);
    EXPECT_EQ(order().size(), 3U) << "too soon after the first";
    click(undoButton);
    EXPECT_EQ(order(), (std::vector{shot, last}));
    EXPECT_TRUE(shows(QStringLiteral("这条记录已删除")));
}

TEST_F(ShotActionsTest, AShotIsCalledOffAndPlannedAgain) {
    go(shotRoute());
    const QString pill = QStringLiteral("本镜已取消拍摄 · 记录仍保留");
    clickOnPage(QStringLiteral("取消本镜（保留记录）"));
    EXPECT_TRUE(shotRecord().cancelled);
    EXPECT_TRUE(shows(pill));
    EXPECT_EQ(shotRecord().takes.size(), 1U);
    EXPECT_FALSE(canPress(QStringLiteral("新 Take · ⌘ Return")));
    clickOnPage(QStringLiteral("恢复拍摄"));
    EXPECT_FALSE(shotRecord().cancelled);
    EXPECT_FALSE(shows(pill));
    click(undoButton);
    EXPECT_TRUE(shotRecord().cancelled);
    click(undoButton);
    EXPECT_FALSE(shotRecord().cancelled);
}

TEST_F(ShotActionsTest, AHeldReturnDoesWhatOnePressDoes) {
    store->updateShot(project, act, shot, [](Shot& record) {
        record.strokes = {Stroke::make({{0.5, 0.5}})};
    });
    go(shotRoute());
    const auto hold = [this](const QString& button) {
        get<QAbstractButton>(button, &page()).setFocus(Qt::TabFocusReason);
        press(Qt::Key_Return);
        for (int repetition = 0; repetition < 9; ++repetition)
            press(Qt::Key_Return, Qt::NoModifier, true);
    };
    hold(QStringLiteral("取消本镜（保留记录）"));
    EXPECT_TRUE(shotRecord().cancelled);
    hold(QStringLiteral("移除图片"));
    EXPECT_TRUE(shotRecord().strokes.empty());
    EXPECT_EQ(route(), shotRoute()) << "nor does it press what stands behind the button that went off";
    click(undoButton);
    EXPECT_EQ(shotRecord().strokes.size(), 1U);
    EXPECT_TRUE(shotRecord().cancelled);
    click(undoButton);
    EXPECT_FALSE(shotRecord().cancelled) << "two presses, two changes";
    panels.choice.reset();
    hold(QStringLiteral("导入"));
    EXPECT_EQ(panels.asked.size(), 1U);
}

TEST_F(ShotActionsTest, TheActMovesShotsAndUndoPutsThemBack) {
    const Identifier second = store->addShot(project, act);
    const Identifier third = store->addShot(project, act);
    go(Route::act(project, act));
    EXPECT_EQ(openMenu(0), (QStringList{"[上移]", "下移", "在后面插镜", "取消拍摄（保留记录）"}));
    choose(QStringLiteral("下移"));
    EXPECT_EQ(order(), (std::vector{second, shot, third}));
    EXPECT_EQ(openMenu(2), (QStringList{"上移", "[下移]", "在后面插镜", "取消拍摄（保留记录）"}));
    choose(QStringLiteral("上移"));
    EXPECT_EQ(order(), (std::vector{second, third, shot}));
    click(undoButton);
    EXPECT_EQ(order(), (std::vector{second, shot, third}));
    click(undoButton);
    EXPECT_EQ(order(), (std::vector{shot, second, third}));
}

TEST_F(ShotActionsTest, TheMenuOfTheActInsertsAndCancels) {
    go(Route::act(project, act));
    openMenu(0);
    choose(QStringLiteral("取消拍摄（保留记录）"));
    EXPECT_TRUE(shotRecord().cancelled);
    EXPECT_EQ(openMenu(0).last(), QStringLiteral("恢复镜头"));
    choose(QStringLiteral("恢复镜头"));
    EXPECT_FALSE(shotRecord().cancelled);
    openMenu(0);
    choose(QStringLiteral("在后面插镜"));
    ASSERT_EQ(order().size(), 2U);
    EXPECT_EQ(route(), Route::shot(project, act, order()[1]));
    go(Route::act(project, act));
    store->setLanguage("en");
    settle();
    QTest::mouseClick(&get<QAbstractButton>(QStringLiteral("Shot actions"), &page()), Qt::LeftButton);
    QStringList entries;
    for (const auto* entry : menu().actions())
        entries << entry->text();
    EXPECT_EQ(entries,
              (QStringList{"Move up", "Move down", "Insert shot after", "Cancel shot (keep records)"}));
    menu().close();
}

TEST_F(ShotActionsTest, AHeldReturnMovesNothing) {
    store->addShot(project, act);
    go(Route::act(project, act));
    const auto before = order();
    get<QAbstractButton>(menuButton, &page()).setFocus(Qt::TabFocusReason);
    press(Qt::Key_Return);
    QMenu& opened = menu();
    for (int repetition = 0; repetition < 10; ++repetition) {
        QTest::simulateEvent(&opened, true, Qt::Key_Return, Qt::NoModifier, QString(), true);
        settle();
        ASSERT_EQ(QApplication::activePopupWidget(), &opened);
    }
    EXPECT_EQ(order(), before);
    QTest::keyClick(&opened, Qt::Key_Down);
    QTest::keyClick(&opened, Qt::Key_Return);
    settle();
    EXPECT_EQ(order(), (std::vector{before[1], before[0]})) << "pressed anew it chooses";
    press(Qt::Key_Return, Qt::NoModifier, true);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "and held it opens nothing";
}

}  // namespace
}  // namespace vantry::test
