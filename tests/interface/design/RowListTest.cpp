#include "Vantry/interface/design/RowList.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace vantry::test {
namespace {

class RowListTest : public testing::Test {
protected:
    void show(const QByteArrayList& keys) {
        QList<RowList::Row> rows;
        for (const QByteArray& key : keys)
            rows.append({key, {Glyph::folder, QString::fromUtf8(key), QStringLiteral("detail"), false}});
        list.setRows(rows);
    }
    RowButton* row(const char* title) {
        for (auto* button : list.findChildren<RowButton*>())
            if (button->plain() == QLatin1String(title) && button->isVisibleTo(&list))
                return button;
        return nullptr;
    }

    RowList list;
};

TEST_F(RowListTest, ARowThatStaysKeepsItsWidgetAndFocus) {
    show({"a", "b", "c"});
    list.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    list.activateWindow();
    RowButton* const b = row("b");
    b->setFocus();
    show({"x", "c", "b"});
    EXPECT_EQ(row("b"), b);
    EXPECT_TRUE(b->hasFocus());
    EXPECT_EQ(row("a"), nullptr);
    EXPECT_EQ(list.count(), 3);
}

TEST_F(RowListTest, RowsStandInTheirOrderForAssistiveTools) {
    show({"b", "c"});
    show({"a", "b", "c"});
    // What stands first among the children is told first.
    QByteArrayList titles;
    for (const auto* button : list.findChildren<RowButton*>())
        titles.append(button->plain().toUtf8());
    EXPECT_EQ(titles, (QByteArrayList{"a", "b", "c"}));
}

TEST_F(RowListTest, RowsStandInTheirOrderOnScreenAndForTheKeyboard) {
    show({"a", "b"});
    show({"c", "b", "d", "a"});
    list.resize(400, 400);
    list.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    list.activateWindow();
    row("c")->setFocus();
    int top = -1;
    for (const char* title : {"c", "b", "d", "a"}) {
        const int place = row(title)->mapTo(&list, QPoint()).y();
        EXPECT_GT(place, top);
        top = place;
        EXPECT_TRUE(row(title)->hasFocus()) << title;
        QTest::keyClick(list.focusWidget(), Qt::Key_Tab);
    }
}

TEST_F(RowListTest, ARowWithAMenuAsksForItByItsOwnButton) {
    const QString name = QStringLiteral("more");
    const auto row = [&](const char* key) {
        return RowList::Row{
            key, {Glyph::folder, QString::fromLatin1(key), QStringLiteral("detail"), false}, name};
    };
    list.setRows({row("a"), row("b")});
    list.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    list.activateWindow();
    QSignalSpy wanted(&list, &RowList::menuWanted);
    QSignalSpy pressed(&list, &RowList::activated);
    this->row("b")->setFocus();
    QTest::keyClick(list.focusWidget(), Qt::Key_Tab);
    auto* opener = qobject_cast<RowMenuButton*>(list.focusWidget());
    ASSERT_NE(opener, nullptr);
    EXPECT_EQ(opener->accessibleName(), name);
    QTest::keyClick(opener, Qt::Key_Return);
    QTest::simulateEvent(opener, true, Qt::Key_Return, Qt::NoModifier, QString(), true);
    ASSERT_EQ(wanted.count(), 1) << "a held key opens it once";
    EXPECT_EQ(wanted[0][0].toByteArray(), "b");
    EXPECT_EQ(wanted[0][1].value<QWidget*>(), opener);
    EXPECT_EQ(pressed.count(), 0);
}

TEST_F(RowListTest, PressingARowTellsItsKey) {
    show({"a", "b"});
    QSignalSpy spy(&list, &RowList::activated);
    QTest::mouseClick(row("b"), Qt::LeftButton);
    QTest::keyClick(row("a"), Qt::Key_Return);
    ASSERT_EQ(spy.count(), 2);
    EXPECT_EQ(spy[0][0].toByteArray(), "b");
    EXPECT_EQ(spy[1][0].toByteArray(), "a");
}

}  // namespace
}  // namespace vantry::test
