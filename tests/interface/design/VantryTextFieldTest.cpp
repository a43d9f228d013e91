#include "Vantry/interface/design/VantryTextField.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QInputMethodEvent>
#include <QTest>

namespace vantry::test {
namespace {

/// A field bound to a text that stands for the stored one.
class VantryTextFieldTest : public testing::Test {
protected:
    void SetUp() override {
        field.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&field));
        field.activateWindow();
        field.setFocus();
    }
    void bind(const QString& text) {
        stored = text;
        field.setBinding({[this] { return stored; },
                          [this](const QString& next) {
                              ++writes;
                              stored = next;
                          }});
    }

    VantryTextField field;
    std::optional<QString> stored;
    int writes = 0;
};

TEST_F(VantryTextFieldTest, PublishesWhatIsTyped) {
    bind(QStringLiteral("Night"));
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClicks(&field, QStringLiteral(" Ferry"));
    EXPECT_EQ(stored, QStringLiteral("Night Ferry"));
}

TEST_F(VantryTextFieldTest, PublishesWhatAnAssistiveToolEnters) {
    bind(QStringLiteral("Night"));
    QAccessibleEditableTextInterface* tool =
        QAccessible::queryAccessibleInterface(&field)->editableTextInterface();
    ASSERT_NE(tool, nullptr);
    tool->insertText(5, QStringLiteral(" Ferry"));
    EXPECT_EQ(stored, QStringLiteral("Night Ferry"));
    tool->replaceText(0, 5, QStringLiteral("Day"));
    EXPECT_EQ(stored, QStringLiteral("Day Ferry"));
    tool->deleteText(3, 9);
    EXPECT_EQ(stored, QStringLiteral("Day"));
}

TEST_F(VantryTextFieldTest, ATextWithLineEndsIsNotTouched) {
    const QString text =
        QStringLiteral("one\r\ntwo\nthree\u2028four\u2029five") + QChar(u'\0') + QStringLiteral("six");
    bind(text);
    field.clearFocus();
    field.setFocus();
    field.synchronize();
    EXPECT_EQ(writes, 0);
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClicks(&field, QStringLiteral("!"));
    EXPECT_EQ(stored, text + QLatin1Char('!'));
}

TEST_F(VantryTextFieldTest, AVeryLongTextIsKeptWhole) {
    const QString text(100000, QLatin1Char('x'));
    bind(text);
    QTest::keyClick(&field, Qt::Key_Home);
    QTest::keyClicks(&field, QStringLiteral("y"));
    EXPECT_EQ(stored, QLatin1Char('y') + text);
}

TEST_F(VantryTextFieldTest, AnOutsideTextLeavesTheCaretWhereItCanStand) {
    bind(QStringLiteral("A long title"));
    field.setCursorPosition(6);
    stored = QStringLiteral("A longer title");
    field.synchronize();
    EXPECT_EQ(field.text(), *stored);
    EXPECT_EQ(field.cursorPosition(), 6);
    stored = QStringLiteral("A");
    field.synchronize();
    EXPECT_EQ(field.cursorPosition(), 1);
    EXPECT_EQ(writes, 0);
}

TEST_F(VantryTextFieldTest, AnOpenCompositionIsNotDisturbed) {
    bind(QStringLiteral("ab"));
    QTest::keyClick(&field, Qt::Key_End);
    QInputMethodEvent compose(QStringLiteral("zhong"), {});
    QApplication::sendEvent(&field, &compose);
    stored = QStringLiteral("abc");
    field.synchronize();
    EXPECT_EQ(field.text(), QStringLiteral("ab"));
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("中"));
    QApplication::sendEvent(&field, &commit);
    EXPECT_EQ(stored, QStringLiteral("abc中")) << "the change from outside is still there";
    field.synchronize();
    EXPECT_EQ(field.text(), QStringLiteral("abc中"));
}

TEST_F(VantryTextFieldTest, ARecordThatIsGoneIsNotWritten) {
    bind(QStringLiteral("title"));
    stored.reset();
    QTest::keyClicks(&field, QStringLiteral("x"));
    field.synchronize();
    EXPECT_EQ(writes, 0);
}

}  // namespace
}  // namespace vantry::test
