#include "Vantry/interface/design/Pressable.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QFocusFrame>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QVariantAnimation>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/RowButton.h"
#include "Vantry/interface/design/VantryMotionPreference.h"

namespace vantry::test {
namespace {

/// Two buttons in a scrolled page of a window.
class PressableTest : public testing::Test {
protected:
    void SetUp() override {
        before = QApplication::palette();
        QApplication::setPalette(Palette::light().controls());
        window.setGeometry(0, 0, 300, 200);
        page->setMinimumHeight(600);
        first->setPlain(QStringLiteral("New take"));
        first->move(40, 40);
        second->setPlain(QStringLiteral("Delete take"));
        second->move(40, 120);
        for (Button* button : {first, second})
            button->resize(button->sizeHint());
        area.setWidget(page);
        area.setWidgetResizable(true);
        auto* column = new QVBoxLayout(&window);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(&area);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        preference.setChoice(true);
    }
    void TearDown() override { QApplication::setPalette(before); }
    [[nodiscard]] QList<QFocusFrame*> rings() { return window.findChildren<QFocusFrame*>(); }
    [[nodiscard]] QColor seen(int x, int y) {
        return window.grab().toImage().pixelColor(first->mapTo(&window, QPoint(x, y)));
    }
    [[nodiscard]] const Palette& palette() const { return Palette::of(window); }

    QPalette before;
    QWidget window;
    QScrollArea area;
    QWidget* page = new QWidget;
    Button* first = new Button(Button::Kind::quiet, Glyph::none, page);
    Button* second = new Button(Button::Kind::destructive, Glyph::none, page);
    VantryMotionPreference preference;
};

TEST_F(PressableTest, TheKeyboardHasARingAroundTheButton) {
    first->setFocus(Qt::TabFocusReason);
    ASSERT_EQ(rings().size(), 1);
    const int middle = first->height() / 2;
    EXPECT_EQ(seen(-1, middle), palette().canvas) << "a gap of two";
    EXPECT_EQ(seen(-2, middle), palette().canvas);
    EXPECT_EQ(seen(-3, middle), palette().link) << "a ring of two";
    EXPECT_EQ(seen(-4, middle), palette().link);
    EXPECT_EQ(seen(-5, middle), palette().canvas);
    EXPECT_EQ(seen(first->width() + 3, middle), palette().link);
    EXPECT_EQ(seen(first->width() / 2, -3), palette().link);
    EXPECT_EQ(seen(2, middle), palette().button);
    second->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(rings().size(), 1) << "it goes with the focus";
    EXPECT_EQ(seen(-3, middle), palette().canvas);
}

TEST_F(PressableTest, ThePointerLeavesTheKeyboardWhereItIs) {
    // A click on what does not want the keyboard offers it to what is around.
    area.setFocusPolicy(Qt::NoFocus);
    second->setFocus(Qt::OtherFocusReason);
    QSignalSpy pressed(first, &QAbstractButton::clicked);
    QTest::mouseClick(first, Qt::LeftButton);
    EXPECT_EQ(pressed.count(), 1);
    EXPECT_TRUE(second->hasFocus());
    EXPECT_TRUE(rings().isEmpty());
}

TEST_F(PressableTest, TheRingTakesNoClicksAndIsNothingToAssistiveTools) {
    first->setFocus(Qt::TabFocusReason);
    ASSERT_EQ(rings().size(), 1);
    EXPECT_TRUE(rings().first()->testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(window.childAt(first->mapTo(&window, first->rect().center())), first);
    QWidget* around = rings().first()->parentWidget();
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(around);
    ASSERT_NE(spoken, nullptr);
    for (int index = 0; index < spoken->childCount(); ++index)
        EXPECT_EQ(qobject_cast<QFocusFrame*>(spoken->child(index)->object()), nullptr);
}

TEST_F(PressableTest, TheRingFollowsAScrolledPageAndIsCutWithIt) {
    first->setFocus(Qt::TabFocusReason);
    ASSERT_EQ(rings().size(), 1);
    area.verticalScrollBar()->setValue(30);
    EXPECT_EQ(seen(-3, first->height() / 2), palette().link);
    EXPECT_TRUE(area.isAncestorOf(rings().first())) << "what scrolls out of sight takes it along";
    first->hide();
    for (const QFocusFrame* ring : rings())
        EXPECT_NE(ring->widget(), first);
}

TEST_F(PressableTest, WhatIsPressedIsPaintedSo) {
    EXPECT_EQ(seen(3, 22), palette().button);
    first->setDown(true);
    EXPECT_EQ(seen(3, 22), palette().selected);
    EXPECT_EQ(seen(0, 22), palette().link);
    first->setDown(false);
    EXPECT_EQ(seen(0, 22), palette().button);
}

TEST_F(PressableTest, ItsStatesMoveAsFeedback) {
    preference.setChoice(false);
    static_cast<void>(window.grab());
    first->setDown(true);
    static_cast<void>(window.grab());
    const auto moves = first->findChildren<QVariantAnimation*>();
    ASSERT_EQ(moves.size(), 1) << "being pressed alone";
    EXPECT_EQ(moves[0]->duration(), 120);
    moves[0]->setCurrentTime(0);
    const QColor before = seen(2, 22);
    moves[0]->setCurrentTime(119);
    const QColor after = seen(2, 22);
    EXPECT_EQ(before, palette().button);
    EXPECT_NE(after, before);
    moves[0]->setCurrentTime(120);
    EXPECT_EQ(seen(3, 22), palette().selected);
}

TEST_F(PressableTest, ARowMovesItsFillAsASelection) {
    preference.setChoice(false);
    RowButton row(page);
    row.setGeometry(0, 200, 280, 72);
    row.show();
    static_cast<void>(row.grab());
    row.setSelected(true);
    static_cast<void>(row.grab());
    const auto moves = row.findChildren<QVariantAnimation*>();
    ASSERT_EQ(moves.size(), 1);
    EXPECT_EQ(moves[0]->duration(), 160);
}

TEST_F(PressableTest, ADisabledButtonFadesAsAWhole) {
    first->setEnabled(false);
    const QColor faded = seen(3, 22);
    for (const auto part : {&QColor::red, &QColor::green, &QColor::blue}) {
        const double expected = 0.45 * (palette().button.*part)() + 0.55 * (palette().canvas.*part)();
        EXPECT_NEAR((faded.*part)(), expected, 1);
    }
}

TEST_F(PressableTest, SizesAreThoseOfItsStyle) {
    EXPECT_EQ(first->sizeHint().height(), 44);
    const int text = first->fontMetrics().horizontalAdvance(first->plain()) + 1;
    EXPECT_EQ(first->sizeHint().width(), text + 28);
    Button primary(Button::Kind::primary);
    primary.setPlain(first->plain());
    EXPECT_EQ(primary.sizeHint(), QSize(text + 32, 44));
    Button inlined(Button::Kind::inlined);
    inlined.setPlain(first->plain());
    const QSize bare = inlined.sizeHint();
    EXPECT_LT(bare.height(), 44);
    inlined.setTrailing(Glyph::arrowRight);
    EXPECT_EQ(inlined.sizeHint().width(), bare.width() + Metrics::iconSmall + Metrics::gapInline);
}

}  // namespace
}  // namespace vantry::test
