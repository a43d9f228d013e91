#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolTip>

#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/RowButton.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry::test {
namespace {

class MenuTest : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        before = QApplication::palette();
        QApplication::setPalette(palette().controls());
        enabled = menu.addAction(QStringLiteral("Move down"));
        enabled->setShortcut(Qt::CTRL | Qt::Key_D);
        disabled = menu.addAction(QStringLiteral("Move up"));
        disabled->setEnabled(false);
        separator = menu.addSeparator();
        chosen = menu.addAction(QStringLiteral("Dark"));
        chosen->setCheckable(true);
        chosen->setChecked(true);
        menu.popup({0, 0});
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    }
    void TearDown() override {
        menu.close();
        QApplication::setPalette(before);
    }
    [[nodiscard]] const Palette& palette() const { return GetParam() ? Palette::dark() : Palette::light(); }
    [[nodiscard]] QImage shown() { return menu.grab().toImage(); }
    /// How far the boldest pixel of a part is from the surface of the menu.
    [[nodiscard]] int contrast(const QRect& part) {
        const QImage image = shown();
        int most = 0;
        for (int y = part.top(); y <= part.bottom(); ++y)
            for (int x = part.left(); x <= part.right(); ++x)
                most =
                    std::max(most, std::abs(image.pixelColor(x, y).lightness() - palette().card.lightness()));
        return most;
    }

    QPalette before;
    QMenu menu;
    QAction* enabled = nullptr;
    QAction* disabled = nullptr;
    QAction* separator = nullptr;
    QAction* chosen = nullptr;
};

TEST_P(MenuTest, IsARoundSurfaceWithAnOutline) {
    const QImage image = shown();
    EXPECT_EQ(image.pixelColor(menu.width() / 2, 0), palette().rule);
    EXPECT_EQ(image.pixelColor(menu.width() / 2, menu.height() - 1), palette().rule);
    EXPECT_EQ(image.pixelColor(0, menu.height() / 2), palette().rule);
    EXPECT_EQ(image.pixelColor(menu.width() / 2, 3), palette().card);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_FALSE(menu.mask().contains(QPoint(0, 0)));
    EXPECT_TRUE(menu.mask().contains(QPoint(0, menu.height() / 2)));
}

TEST_P(MenuTest, EntriesAreHighAndWideEnoughToHit) {
    for (const QAction* action : {enabled, disabled, chosen}) {
        const QRect place = menu.actionGeometry(const_cast<QAction*>(action));
        EXPECT_EQ(place.height(), Metrics::menuItemHeight);
        EXPECT_GE(place.width(), Metrics::menuWidth);
        EXPECT_EQ(place.left(), Metrics::hairline + Metrics::paddingMenu);
    }
    EXPECT_EQ(menu.actionGeometry(separator).height(), Metrics::menuSeparatorHeight);
    EXPECT_EQ(shown().pixelColor(menu.actionGeometry(separator).center()), palette().rule);
}

TEST_P(MenuTest, TheEntryUnderTheKeyboardIsFilledWithRoundCorners) {
    const QRect place = menu.actionGeometry(enabled);
    const QPoint inside = place.topLeft() + QPoint(Metrics::radiusControl, 3);
    EXPECT_EQ(shown().pixelColor(inside), palette().card);
    menu.setActiveAction(enabled);
    EXPECT_EQ(shown().pixelColor(inside), palette().hover);
    EXPECT_EQ(shown().pixelColor(place.topLeft()), palette().card);
    menu.setActiveAction(disabled);
    EXPECT_EQ(shown().pixelColor(menu.actionGeometry(disabled).topLeft() + QPoint(Metrics::radiusControl, 3)),
              palette().card);
}

TEST_P(MenuTest, ADisabledEntryIsFainterButReadable) {
    const int full = contrast(menu.actionGeometry(enabled));
    const int faint = contrast(menu.actionGeometry(disabled));
    EXPECT_LT(faint, full * 2 / 3);
    EXPECT_GT(faint, full / 3);
}

TEST_P(MenuTest, AChosenEntryHasAMarkBeforeItsText) {
    const QRect place = menu.actionGeometry(chosen);
    const QRect mark(place.left() + Metrics::paddingMenuItem, place.top(), Metrics::iconSmall,
                     place.height());
    EXPECT_GT(contrast(mark), 100);
    chosen->setChecked(false);
    EXPECT_EQ(contrast(mark), 0);
}

TEST_P(MenuTest, TheBarHasTheCanvasAndFillsTheOpenEntry) {
    QMenuBar bar;
    QAction* file = bar.addMenu(QStringLiteral("File"))->menuAction();
    bar.addMenu(QStringLiteral("Edit"));
    bar.resize(400, bar.sizeHint().height());
    bar.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&bar));
    const QRect place = bar.actionGeometry(file);
    const QPoint inside = place.topLeft() + QPoint(Metrics::radiusControl, Metrics::gapLines + 2);
    EXPECT_EQ(bar.grab().toImage().pixelColor(inside), palette().canvas);
    EXPECT_EQ(bar.grab().toImage().pixelColor(bar.width() - 4, 4), palette().canvas);
    bar.setActiveAction(file);
    EXPECT_EQ(bar.grab().toImage().pixelColor(inside), palette().hover);
}

TEST_P(MenuTest, WhatTakesSomethingAwayIsLastBehindALineAndInDanger) {
    RowMenu rowMenu;
    QAction* plain = rowMenu.addAction(QStringLiteral("Move up"));
    QAction* remove = rowMenu.addDestructive(QStringLiteral("Remove & forget"));
    rowMenu.popup({0, 0});
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&rowMenu));
    ASSERT_EQ(rowMenu.actions().size(), 3);
    EXPECT_TRUE(rowMenu.actions()[1]->isSeparator());
    EXPECT_EQ(rowMenu.actions().last(), remove);
    EXPECT_EQ(remove->text(), QStringLiteral("Remove && forget"));
    const QImage image = rowMenu.grab().toImage();
    const auto has = [&](QAction* action, const QColor& colour) {
        const QRect place = rowMenu.actionGeometry(action);
        for (int y = place.top(); y <= place.bottom(); ++y)
            for (int x = place.left(); x <= place.right(); ++x)
                if (image.pixelColor(x, y) == colour)
                    return true;
        return false;
    };
    EXPECT_TRUE(has(remove, palette().danger));
    EXPECT_TRUE(has(plain, palette().ink));
    EXPECT_FALSE(has(plain, palette().danger));
    EXPECT_FALSE(has(remove, palette().ink));
    rowMenu.close();
}

/// The window that shows hover help.
QWidget* helpWindow() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->inherits("QTipLabel") && window->isVisible())
            return window;
    return nullptr;
}

TEST_P(MenuTest, HoverHelpIsARoundSurfaceOfInkWithOneLine) {
    QToolTip::setPalette(palette().controls());
    const QString text = QStringLiteral("Click again to clear the rating");
    QToolTip::showText({10, 10}, asHelp(text), &menu);
    QWidget* help = helpWindow();
    ASSERT_NE(help, nullptr);
    const QFont caption = VantryType::font(VantryType::Role::caption);
    EXPECT_NEAR(help->width(), QFontMetrics(caption).horizontalAdvance(text) + 20, 3);
    EXPECT_NEAR(help->height(), 28, 2);
    const QImage image = help->grab().toImage();
    EXPECT_EQ(image.pixelColor(help->width() / 2, 2), palette().ink);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    QToolTip::hideText();
}

TEST_P(MenuTest, APickerLooksLikeAFieldAndItsListLikeAMenu) {
    QComboBox picker;
    picker.addItems({QStringLiteral("All projects"), QStringLiteral("Tom & Jerry <b>")});
    picker.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&picker));
    EXPECT_EQ(picker.height(), 44);
    const QImage image = picker.grab().toImage();
    EXPECT_EQ(image.pixelColor(picker.width() / 2, 3), palette().card);
    EXPECT_EQ(image.pixelColor(picker.width() / 2, 0), picker.hasFocus() ? palette().link : palette().rule);
    picker.showPopup();
    QWidget* list = picker.view()->window();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(list));
    EXPECT_EQ(list->height(), 2 * Metrics::menuItemHeight + 2 * (Metrics::hairline + Metrics::paddingMenu));
    const QImage shownList = list->grab().toImage();
    EXPECT_EQ(shownList.pixelColor(list->width() / 2, 0), palette().rule);
    EXPECT_EQ(shownList.pixelColor(3, list->height() / 2), palette().card);
    EXPECT_EQ(shownList.pixelColor(list->width() - 20, list->height() - 12), palette().card);
    picker.hidePopup();
}

INSTANTIATE_TEST_SUITE_P(Appearances, MenuTest, testing::Bool(),
                         [](const auto& tested) { return tested.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace vantry::test
