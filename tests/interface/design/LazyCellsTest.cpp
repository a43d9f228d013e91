#include "Vantry/interface/design/LazyCells.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

namespace vantry::test {
namespace {

constexpr int rowHeight = 40;
constexpr int gap = 2;
constexpr int step = rowHeight + gap;

QList<QByteArray> numbered(int count) {
    QList<QByteArray> keys;
    for (int number = 0; number < count; ++number)
        keys.append(QByteArray::number(number));
    return keys;
}

/// A list between two buttons, in a page that scrolls in a window of 400 by 300.
class LazyCellsTest : public testing::Test {
protected:
    void SetUp() override { open(0); }

    void open(int minimum) {
        delete area;
        area = new QScrollArea;
        area->setWidgetResizable(true);
        area->setFrameShape(QFrame::NoFrame);
        area->setFocusPolicy(Qt::NoFocus);
        auto* content = new QWidget;
        auto* column = new QVBoxLayout(content);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(0);
        above = new QWidget;
        above->setFixedHeight(0);
        before = new QPushButton(QStringLiteral("before"));
        cells = new LazyCells(
            {rowHeight, gap, minimum},
            [this](const QByteArray& key, QWidget* holder) {
                ++made;
                auto* button = new QPushButton(holder);
                button->setObjectName(QString::fromLatin1(key));
                button->setFocusPolicy(Qt::StrongFocus);
                return button;
            },
            [this](QWidget& cell, const QByteArray& key) {
                static_cast<QPushButton&>(cell).setText(prefix + QString::fromLatin1(key));
            });
        after = new QPushButton(QStringLiteral("after"));
        holder = new QWidget;
        auto* inner = new QVBoxLayout(holder);
        inner->setContentsMargins(0, 0, 0, 0);
        inner->addWidget(cells);
        column->addWidget(above);
        column->addWidget(before);
        column->addWidget(holder);
        column->addWidget(after);
        column->addStretch();
        for (auto* button : {before, after})
            button->setFocusPolicy(Qt::StrongFocus);
        area->setWidget(content);
        area->resize(400, 300);
        area->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(area));
        area->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(area));
    }
    void TearDown() override {
        delete area;
        settle();
    }
    static void settle() {
        for (int turn = 0; turn < 6; ++turn) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
    void show(const QList<QByteArray>& keys) {
        cells->setKeys(keys);
        settle();
    }
    void scroll(int y) const {
        area->verticalScrollBar()->setValue(y);
        settle();
    }
    /// The rows that can be seen, by what is in fact there.
    [[nodiscard]] QStringList seen() const {
        QStringList texts;
        for (auto* button : cells->findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly))
            if (button->isVisible() && !button->visibleRegion().isEmpty())
                texts.append(button->text());
        return texts;
    }
    /// What the keyboard meets from the focused widget on, so many steps far.
    [[nodiscard]] QStringList walk(int steps, Qt::Key key = Qt::Key_Tab) const {
        QStringList met;
        for (int index = 0; index < steps; ++index) {
            QTest::keyClick(QApplication::focusWidget(), key);
            settle();
            const auto* button = qobject_cast<QPushButton*>(QApplication::focusWidget());
            met.append(button != nullptr ? button->text() : QStringLiteral("?"));
        }
        return met;
    }

    QScrollArea* area = nullptr;
    QWidget* above = nullptr;
    QWidget* holder = nullptr;
    QPushButton* before = nullptr;
    QPushButton* after = nullptr;
    LazyCells* cells = nullptr;
    QString prefix;
    int made = 0;
};

TEST_F(LazyCellsTest, OnlyThoseNearTheVisiblePartExist) {
    show(numbered(10000));
    EXPECT_EQ(cells->count(), 10000);
    EXPECT_EQ(cells->height(), 10000 * step - gap);
    EXPECT_LE(cells->existing(), 2 * 300 / step + 2);
    EXPECT_GE(cells->existing(), 300 / step);
    EXPECT_NE(cells->cell("0"), nullptr);
    EXPECT_EQ(cells->cell("5000"), nullptr);
}

TEST_F(LazyCellsTest, ScrollingBringsOthersInAndLetsTheFirstGo) {
    show(numbered(10000));
    scroll(5000 * step);
    EXPECT_NE(cells->cell("5000"), nullptr);
    EXPECT_EQ(cells->cell("0"), nullptr);
    EXPECT_LE(cells->existing(), 5 * 300 / step + 5);
    EXPECT_GE(seen().size(), 300 / step);
    scroll(area->verticalScrollBar()->maximum());
    EXPECT_NE(cells->cell("9999"), nullptr);
    EXPECT_TRUE(seen().contains(QStringLiteral("9999")));
    scroll(0);
    EXPECT_EQ(seen().first(), QStringLiteral("0"));
    EXPECT_EQ(cells->findChildren<QPushButton*>().size(), cells->existing()) << "what went is gone";
}

TEST_F(LazyCellsTest, ACellInSightKeepsItsWidget) {
    show(numbered(100));
    QWidget* const third = cells->cell("3");
    scroll(2 * step);
    EXPECT_EQ(cells->cell("3"), third);
    const int before = made;
    show(numbered(100));
    EXPECT_EQ(made, before) << "the same keys make nothing";
}

TEST_F(LazyCellsTest, ThoseThatExistAreFilledAnewAndTheOthersWhenTheyCome) {
    show(numbered(100));
    prefix = QStringLiteral("now ");
    show(numbered(100));
    EXPECT_EQ(static_cast<QPushButton*>(cells->cell("2"))->text(), QStringLiteral("now 2"));
    scroll(50 * step);
    EXPECT_EQ(static_cast<QPushButton*>(cells->cell("50"))->text(), QStringLiteral("now 50"));
}

TEST_F(LazyCellsTest, TheCellWithTheFocusStaysWhereverItIs) {
    show(numbered(10000));
    QPointer<QWidget> first = cells->cell("0");
    first->setFocus();
    scroll(5000 * step);
    ASSERT_FALSE(first.isNull());
    EXPECT_TRUE(first->hasFocus());
    EXPECT_EQ(cells->cell("0"), first);
    EXPECT_EQ(first->geometry(), cells->place(0));
    after->setFocus();
    scroll(6000 * step);
    EXPECT_TRUE(first.isNull()) << "it goes with the focus";
}

TEST_F(LazyCellsTest, TabWalksThroughAllRowsAndOnwardToWhatFollows) {
    show(numbered(60));
    before->setFocus();
    QStringList expected;
    for (const QByteArray& key : numbered(60))
        expected.append(QString::fromLatin1(key));
    expected.append(QStringLiteral("after"));
    EXPECT_EQ(walk(61), expected);
}

TEST_F(LazyCellsTest, BacktabWalksThroughAllRowsAndOnwardToWhatStandsInFront) {
    show(numbered(60));
    scroll(area->verticalScrollBar()->maximum());
    after->setFocus();
    QStringList expected;
    for (const QByteArray& key : numbered(60))
        expected.prepend(QString::fromLatin1(key));
    expected.append(QStringLiteral("before"));
    EXPECT_EQ(walk(61, Qt::Key_Backtab), expected);
}

TEST_F(LazyCellsTest, TheRowWithTheKeyboardIsInSight) {
    show(numbered(60));
    before->setFocus();
    for (int index = 0; index < 40; ++index) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        settle();
        EXPECT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty()) << index;
    }
}

TEST_F(LazyCellsTest, ARowThatGoesLeavesTheOthersAndTheirOrder) {
    show({"a", "b", "c", "d"});
    QWidget* const c = cells->cell("c");
    show({"a", "c", "d"});
    EXPECT_EQ(cells->cell("b"), nullptr);
    EXPECT_EQ(cells->cell("c"), c);
    EXPECT_EQ(c->geometry(), cells->place(1));
    before->setFocus();
    EXPECT_EQ(walk(4), (QStringList{"a", "c", "d", "after"}));
}

TEST_F(LazyCellsTest, ARowThatComesStandsInItsPlace) {
    show({"a", "c"});
    show({"a", "b", "c"});
    EXPECT_EQ(cells->cell("b")->geometry(), cells->place(1));
    before->setFocus();
    EXPECT_EQ(walk(4), (QStringList{"a", "b", "c", "after"}));
}

TEST_F(LazyCellsTest, ARowThatMovesStandsInItsNewPlaceForEyeKeyboardAndTools) {
    show({"a", "b", "c"});
    show({"c", "a", "b"});
    EXPECT_EQ(cells->cell("c")->geometry(), cells->place(0));
    EXPECT_EQ(cells->cell("a")->geometry(), cells->place(1));
    before->setFocus();
    EXPECT_EQ(walk(4), (QStringList{"c", "a", "b", "after"}));
    QStringList heard;
    const auto* spoken = QAccessible::queryAccessibleInterface(cells);
    for (int index = 0; index < spoken->childCount(); ++index)
        heard.append(spoken->child(index)->text(QAccessible::Name));
    EXPECT_EQ(heard, (QStringList{"c", "a", "b"}));
}

TEST_F(LazyCellsTest, AssistiveToolsMeetTheCellsInTheirOrder) {
    show(numbered(200));
    scroll(100 * step);
    scroll(95 * step);
    int last = -1;
    const auto* spoken = QAccessible::queryAccessibleInterface(cells);
    ASSERT_GT(spoken->childCount(), 5);
    for (int index = 0; index < spoken->childCount(); ++index) {
        const int number = spoken->child(index)->text(QAccessible::Name).toInt();
        EXPECT_GT(number, last);
        last = number;
    }
}

TEST_F(LazyCellsTest, CellsTakeTheWidthOfTheList) {
    show(numbered(20));
    EXPECT_EQ(cells->cell("1")->geometry(), QRect(0, step, cells->width(), rowHeight));
    area->resize(655, 300);
    settle();
    EXPECT_GT(cells->width(), 600);
    EXPECT_EQ(cells->cell("1")->geometry(), QRect(0, step, cells->width(), rowHeight));
}

TEST_F(LazyCellsTest, TwoColumnsWhereTheyFitAndElseOne) {
    open(150);
    show(numbered(5));
    for (const int width : {401, 420, 303}) {
        area->resize(width, 400);
        settle();
        EXPECT_EQ(cells->height(), 3 * step - gap) << width;
        EXPECT_EQ(cells->heightForWidth(cells->width()), cells->height());
        const QRect first = cells->cell("0")->geometry();
        const QRect second = cells->cell("1")->geometry();
        EXPECT_EQ(first.left(), 0);
        EXPECT_EQ(second.right(), cells->width() - 1) << "on the right edge, whatever the halves round to";
        EXPECT_EQ(first.size(), second.size());
        EXPECT_EQ(cells->cell("2")->y(), step);
    }
    area->resize(2 * 150 + gap - 1, 400);
    settle();
    EXPECT_EQ(cells->height(), 5 * step - gap);
    EXPECT_EQ(cells->cell("1")->geometry(), QRect(0, step, cells->width(), rowHeight));
    before->setFocus();
    EXPECT_EQ(walk(6), (QStringList{"0", "1", "2", "3", "4", "after"}));
}

TEST_F(LazyCellsTest, AHigherWindowShowsMoreOfThem) {
    show(numbered(1000));
    area->resize(400, 900);
    settle();
    EXPECT_GE(seen().size(), 850 / step);
}

TEST_F(LazyCellsTest, WhatGoesAboveTheListBringsItsRowsIn) {
    above->setFixedHeight(5000);
    settle();
    show(numbered(1000));
    EXPECT_EQ(seen(), QStringList());
    above->setFixedHeight(0);
    settle();
    EXPECT_GE(seen().size(), 250 / step);
}

TEST_F(LazyCellsTest, AnEmptyListTakesNoRoomAndOneThatIsEmptiedLetsAllGo) {
    EXPECT_EQ(cells->heightForWidth(400), 0);
    show(numbered(3));
    EXPECT_EQ(cells->heightForWidth(400), 3 * step - gap);
    show({});
    EXPECT_EQ(cells->existing(), 0);
    EXPECT_EQ(cells->height(), 0);
    EXPECT_EQ(cells->findChildren<QPushButton*>().size(), 0);
}

}  // namespace
}  // namespace vantry::test
