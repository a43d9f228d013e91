#include "Vantry/interface/design/ParagraphEditor.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include "Vantry/interface/design/VantryType.h"

namespace vantry::test {
namespace {

std::string codes(const QString& text) {
    std::string out;
    for (const QChar character : text)
        out += QString::number(character.unicode(), 16).toStdString() + " ";
    return out;
}

/// An editor bound to a text that stands for the stored one.
class ParagraphEditorTest : public testing::Test {
protected:
    void SetUp() override {
        window.setFixedSize(420, 180);
        editor.setGeometry(0, 0, 420, 180);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        window.activateWindow();
        editor.setFocus();
    }
    void bind(const QString& text) {
        stored = text;
        editor.setBinding({[this] { return stored; },
                           [this](const QString& next) {
                               ++writes;
                               stored = next;
                           }});
    }
    void compose(const QString& text) {
        QInputMethodEvent event(text, {});
        QApplication::sendEvent(&editor, &event);
    }
    void commit(const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&editor, &event);
    }
    void select(int from, int to) {
        QTextCursor cursor = editor.textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        editor.setTextCursor(cursor);
    }
    static QString sixtyParagraphs() {
        QStringList paragraphs;
        for (int number = 1; number <= 60; ++number)
            paragraphs.append(QStringLiteral("第%1段 she turns at the window").arg(number));
        return paragraphs.join(QStringLiteral("\n\n"));
    }

    QWidget window;
    ParagraphEditor editor{&window};
    std::optional<QString> stored;
    int writes = 0;
};

TEST_F(ParagraphEditorTest, PublishesEachKeyAtOnce) {
    bind({});
    QTest::keyClicks(&editor, QStringLiteral("ab"));
    EXPECT_EQ(writes, 2);
    QTest::keyClick(&editor, Qt::Key_Return);
    QTest::keyClicks(&editor, QStringLiteral("c"));
    EXPECT_EQ(stored, QStringLiteral("ab\nc"));
}

TEST_F(ParagraphEditorTest, ClickingInAndOutPublishesNothing) {
    for (const QString& part : {QStringLiteral("\r\n"), QStringLiteral("\r"), QString(QChar(0x2028)),
                                QString(QChar(0x2029)), QString(QChar(u'\0')), QString(QChar(0xFFFC)),
                                QString(QChar(0xA0)), QString(QChar(0xFDD0)), QString(QChar(0xFEFF))}) {
        bind(QStringLiteral("one") + part + QStringLiteral("two"));
        QTest::mouseClick(editor.viewport(), Qt::LeftButton);
        QTest::keyClick(&editor, Qt::Key_End, Qt::ControlModifier);
        editor.clearFocus();
        editor.setFocus();
        editor.synchronize();
        EXPECT_EQ(writes, 0) << codes(part);
    }
}

TEST_F(ParagraphEditorTest, AnEditChangesNothingOutsideOfItself) {
    const QString tail =
        QStringLiteral("\r\nb\rc\u2028d\u2029e\u00A0f") + QChar(u'\0') + QChar(0xFFFC) + QStringLiteral("g");
    bind(QStringLiteral("a") + tail);
    select(0, 0);
    QTest::keyClicks(&editor, QStringLiteral("x"));
    EXPECT_EQ(codes(*stored), codes(QStringLiteral("xa") + tail));
    QTest::keyClick(&editor, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(&editor, Qt::Key_Backspace);
    EXPECT_EQ(codes(*stored), codes(QStringLiteral("xa") + tail.chopped(1)));
}

TEST_F(ParagraphEditorTest, TheCaretStandsStillWhileTheTextComesBack) {
    bind(sixtyParagraphs());
    const int caret = static_cast<int>(stored->indexOf(QStringLiteral("第30段"))) + 4;
    select(caret, caret);
    QTest::keyClicks(&editor, QStringLiteral("xy"));
    const int scroll = editor.verticalScrollBar()->value();
    for (int round = 0; round < 5; ++round)
        editor.synchronize();
    EXPECT_EQ(editor.textCursor().position(), caret + 2);
    EXPECT_EQ(editor.verticalScrollBar()->value(), scroll);
    QTest::keyClicks(&editor, QStringLiteral("z"));
    EXPECT_EQ(stored->mid(caret, 3), QStringLiteral("xyz"));
    EXPECT_EQ(stored, editor.toPlainText());
}

TEST_F(ParagraphEditorTest, ASelectionSurvivesARefreshAndIsWhatTypingReplaces) {
    bind(sixtyParagraphs());
    const int start = static_cast<int>(stored->indexOf(QStringLiteral("第30段")));
    select(start, start + 2);
    editor.synchronize();
    QTest::keyClicks(&editor, QStringLiteral("N"));
    EXPECT_EQ(stored->mid(start, 2), QStringLiteral("N0"));
}

TEST_F(ParagraphEditorTest, AnOutsideChangeElsewhereMovesNeitherCaretNorScroll) {
    bind(sixtyParagraphs());
    const int caret = static_cast<int>(stored->indexOf(QStringLiteral("第40段"))) + 3;
    select(caret, caret + 2);
    editor.ensureCursorVisible();
    const int scroll = editor.verticalScrollBar()->value();
    stored = *stored + QStringLiteral("\nmore from elsewhere");
    editor.synchronize();
    EXPECT_EQ(editor.toPlainText(), *stored);
    EXPECT_EQ(editor.textCursor().anchor(), caret);
    EXPECT_EQ(editor.textCursor().position(), caret + 2);
    EXPECT_EQ(editor.verticalScrollBar()->value(), scroll);
    EXPECT_FALSE(editor.document()->isUndoAvailable());
    EXPECT_EQ(writes, 0);
}

TEST_F(ParagraphEditorTest, AnOutsideReplacementLeavesTheSelectionInside) {
    bind(sixtyParagraphs());
    select(400, 420);
    stored = QStringLiteral("OK");
    editor.synchronize();
    EXPECT_EQ(editor.toPlainText(), QStringLiteral("OK"));
    EXPECT_LE(editor.textCursor().position(), 2);
    EXPECT_LE(editor.textCursor().anchor(), 2);
    EXPECT_EQ(writes, 0);
}

TEST_F(ParagraphEditorTest, ACompositionIsPublishedWhenItEndsAndNotBefore) {
    bind(QStringLiteral("前后"));
    select(1, 1);
    compose(QStringLiteral("zhong"));
    EXPECT_TRUE(editor.isComposing());
    EXPECT_EQ(writes, 0);
    commit(QStringLiteral("中"));
    EXPECT_FALSE(editor.isComposing());
    EXPECT_EQ(stored, QStringLiteral("前中后"));
    editor.synchronize();
    QTest::keyClicks(&editor, QStringLiteral("x"));
    EXPECT_EQ(stored, QStringLiteral("前中x后"));
}

TEST_F(ParagraphEditorTest, NothingEntersAnOpenComposition) {
    bind(QStringLiteral("first"));
    QTest::keyClick(&editor, Qt::Key_End);
    compose(QStringLiteral("zhong"));
    stored = QStringLiteral("FROM OUTSIDE first");
    editor.synchronize();
    EXPECT_TRUE(editor.isComposing());
    EXPECT_EQ(editor.toPlainText(), QStringLiteral("first"));
    commit(QStringLiteral("中"));
    EXPECT_EQ(stored, QStringLiteral("FROM OUTSIDE first中")) << "neither side's words are lost";
    editor.synchronize();
    EXPECT_EQ(editor.toPlainText(), *stored);
}

TEST_F(ParagraphEditorTest, PastesPlainTextOnly) {
    bind({});
    auto* data = new QMimeData;
    data->setHtml(QStringLiteral("<b>bold</b>"));
    data->setText(QStringLiteral("bold & <plain>\r\nline"));
    QApplication::clipboard()->setMimeData(data);
    QTest::keyClick(&editor, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(stored, QStringLiteral("bold & <plain>\nline"));
    EXPECT_FALSE(editor.textCursor().charFormat().font().bold());
}

TEST_F(ParagraphEditorTest, UndoAndRedoArePublished) {
    bind(QStringLiteral("a"));
    QTest::keyClick(&editor, Qt::Key_End);
    QTest::keyClicks(&editor, QStringLiteral("b"));
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stored, QStringLiteral("a"));
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(stored, QStringLiteral("ab"));
    for (int step = 0; step < 5; ++step)
        editor.undo();
    EXPECT_EQ(stored, QStringLiteral("a")) << "the text that it began with is no step";
}

TEST_F(ParagraphEditorTest, TextTypedIntoAnEmptyViewHasTheConfiguredForm) {
    bind({});
    QTest::keyClicks(&editor, QStringLiteral("a"));
    const QTextCursor cursor(editor.document()->firstBlock());
    EXPECT_EQ(cursor.block().blockFormat().lineHeight(), VantryType::paragraphLineHeight());
    EXPECT_EQ(editor.currentFont().pixelSize(), VantryType::font(VantryType::Role::body).pixelSize());
    editor.selectAll();
    QTest::keyClick(&editor, Qt::Key_Delete);
    QTest::keyClicks(&editor, QStringLiteral("b"));
    EXPECT_EQ(editor.document()->firstBlock().blockFormat().lineHeight(), VantryType::paragraphLineHeight());
    stored = QStringLiteral("from\noutside");
    editor.synchronize();
    for (QTextBlock block = editor.document()->begin(); block.isValid(); block = block.next())
        EXPECT_EQ(block.blockFormat().lineHeight(), VantryType::paragraphLineHeight());
}

TEST_F(ParagraphEditorTest, ACanonicallyEqualTextDoesNotComeBackAtThePerson) {
    bind(QStringLiteral("e\u0301"));
    QTest::keyClick(&editor, Qt::Key_End);
    stored = QStringLiteral("\u00E9");
    editor.synchronize();
    EXPECT_EQ(codes(editor.document()->toRawText()), codes(QStringLiteral("e\u0301")));
    QTest::keyClicks(&editor, QStringLiteral("!"));
    EXPECT_EQ(codes(*stored), codes(QStringLiteral("e\u0301!")));
}

TEST_F(ParagraphEditorTest, ARecordThatIsGoneIsNotWritten) {
    bind(QStringLiteral("text"));
    stored.reset();
    QTest::keyClicks(&editor, QStringLiteral("x"));
    editor.synchronize();
    EXPECT_EQ(writes, 0);
}

}  // namespace
}  // namespace vantry::test
