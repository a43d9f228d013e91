#include "Vantry/interface/design/ParagraphEditor.h"

#include <QAccessible>
#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>

#include "Vantry/interface/design/VantryType.h"
#include "tests/interface/design/ParagraphFixture.h"

namespace vantry::test {
namespace {

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

TEST_F(ParagraphEditorTest, AnIdleTextChangeOfTheToolkitPublishesNothing) {
    bind(QStringLiteral("text"));
    compose(QStringLiteral("zhong"));
    compose({});
    editor.document()->markContentsDirty(0, 4);
    EXPECT_EQ(writes, 0);
}

TEST_F(ParagraphEditorTest, TheTextThatSomebodyElseWroteMeanwhileIsNotLost) {
    bind(QStringLiteral("one two three"));
    QTest::keyClick(&editor, Qt::Key_End);
    stored = QStringLiteral("ONE two three");
    QTest::keyClicks(&editor, QStringLiteral("!"));
    EXPECT_EQ(stored, QStringLiteral("ONE two three!"));
    editor.synchronize();
    EXPECT_EQ(editor.toPlainText(), QStringLiteral("ONE two three!"));
    EXPECT_EQ(caret(), 14);
}

TEST_F(ParagraphEditorTest, AnOutsideChangeInFrontMovesTheSelectionWithItsWords) {
    bind(QStringLiteral("alpha beta gamma"));
    select(6, 10);
    replaceOutside(QStringLiteral("the alpha beta gamma"));
    EXPECT_EQ(editor.textCursor().selectedText(), QStringLiteral("beta"));
    EXPECT_EQ(writes, 0);
}

TEST_F(ParagraphEditorTest, NoCharacterThatAPersonSeesIsSplitByAnOutsideChange) {
    const QString waving = QStringLiteral("👋");
    const QString wavingDark = QStringLiteral("👋🏽");
    const QString flag = QStringLiteral("🇨🇳");
    const QString family = QStringLiteral("👩‍👩‍👧");
    struct Case {
        QString before, after;
        int caret;
    };
    const Case cases[] = {
        {QStringLiteral("a") + waving, QStringLiteral("a") + wavingDark, 3},
        {QStringLiteral("ab"), flag, 2},
        {QStringLiteral("abcd") + flag, flag, 2},
        {QStringLiteral("👩"), family, 2},
        {QStringLiteral("abcdefgh"), family, 5},
        {QStringLiteral("e"), QStringLiteral("e\u0301"), 1},
    };
    for (const Case& test : cases) {
        bind(test.before);
        for (int anchor = 0; anchor <= test.caret; ++anchor) {
            replaceOutside(test.before);
            select(anchor, test.caret);
            replaceOutside(test.after);
            const QTextCursor kept = editor.textCursor();
            for (const int place : {kept.anchor(), kept.position()})
                EXPECT_TRUE(place == 0 || place == test.after.size() ||
                            (place == 1 && test.after.startsWith(QLatin1Char('a'))))
                    << codes(test.after) << "at " << place;
        }
    }
}

TEST_F(ParagraphEditorTest, ACaretIsNeverInsideOfASurrogatePair) {
    bind(QStringLiteral("a🙂b"));
    putCaret(2);
    EXPECT_EQ(caret(), 1);
    select(2, 4);
    EXPECT_EQ(editor.textCursor().selectedText(), QStringLiteral("🙂b"));
    QAccessible::queryAccessibleInterface(&editor)->textInterface()->setCursorPosition(2);
    QTest::keyClicks(&editor, QStringLiteral("x"));
    EXPECT_EQ(stored, QStringLiteral("ax🙂b"));
}

TEST_F(ParagraphEditorTest, AnOutsideReplacementOfASelectionLeavesItAtTheEndOfWhatCame) {
    bind(QStringLiteral("keep OLD keep"));
    select(5, 8);
    replaceOutside(QStringLiteral("keep newer keep"));
    EXPECT_LE(editor.textCursor().selectionEnd(), 10);
    EXPECT_GE(editor.textCursor().selectionStart(), 5);
    QTest::keyClicks(&editor, QStringLiteral("x"));
    EXPECT_TRUE(stored->startsWith(QStringLiteral("keep "))) << stored->toStdString();
    EXPECT_TRUE(stored->endsWith(QStringLiteral(" keep"))) << stored->toStdString();
}

TEST_F(ParagraphEditorTest, AnOutsideReplacementEndsTheUndoHistoryAndARefreshDoesNot) {
    bind(QStringLiteral("a"));
    QTest::keyClick(&editor, Qt::Key_End);
    QTest::keyClicks(&editor, QStringLiteral("bc"));
    editor.synchronize();
    EXPECT_TRUE(editor.document()->isUndoAvailable());
    replaceOutside(QStringLiteral("other"));
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stored, QStringLiteral("other"));
    EXPECT_FALSE(editor.document()->isUndoAvailable());
    EXPECT_FALSE(editor.document()->isRedoAvailable());
}

TEST_F(ParagraphEditorTest, ScrollStaysAlsoFarDownInALongTextThatChangesAbove) {
    bind((QStringLiteral("a line of notes") + QLatin1Char('\n')).repeated(3000));
    settle();
    editor.moveCursor(QTextCursor::End);
    const int scroll = editor.verticalScrollBar()->value();
    ASSERT_GT(scroll, 10000);
    replaceOutside(QStringLiteral("X") + stored->mid(1));
    EXPECT_EQ(editor.verticalScrollBar()->value(), scroll);
    EXPECT_EQ(caret(), stored->size());
}

TEST_F(ParagraphEditorTest, AnAssistiveToolWritesPlainText) {
    bind(QStringLiteral("old"));
    QAccessible::queryAccessibleInterface(&editor)->editableTextInterface()->replaceText(
        0, 3, QStringLiteral("Tom & Jerry <b>x</b>"));
    EXPECT_EQ(stored, QStringLiteral("Tom & Jerry <b>x</b>"));
    EXPECT_EQ(editor.toPlainText(), *stored);
}

TEST_F(ParagraphEditorTest, ATextThatIsSetAsAWholeHasTheConfiguredForm) {
    bind(QStringLiteral("old"));
    editor.setPlainText(QStringLiteral("one\ntwo"));
    EXPECT_EQ(stored, QStringLiteral("one\ntwo"));
    editor.setHtml(QStringLiteral("<h1>loud</h1><p>soft</p>"));
    EXPECT_EQ(stored, QStringLiteral("loud\nsoft"));
    for (QTextBlock block = editor.document()->begin(); block.isValid(); block = block.next()) {
        EXPECT_EQ(block.blockFormat().lineHeight(), VantryType::paragraphLineHeight());
        EXPECT_EQ(block.blockFormat().topMargin(), 0);
        EXPECT_TRUE(block.charFormat().properties().isEmpty());
        for (auto part = block.begin(); !part.atEnd(); ++part)
            EXPECT_TRUE(part.fragment().charFormat().properties().isEmpty());
    }
}

TEST_F(ParagraphEditorTest, ARightToLeftParagraphIsReadFromTheRight) {
    bind(QStringLiteral("plain"));
    EXPECT_EQ(editor.document()->firstBlock().textDirection(), Qt::LeftToRight);
    for (const QString& written :
         {QStringLiteral("שלום"), QStringLiteral("سلام"), QStringLiteral("𞤢𞤣")}) {
        replaceOutside(written);
        EXPECT_EQ(editor.document()->firstBlock().textDirection(), Qt::RightToLeft) << codes(written);
        replaceOutside(QStringLiteral("latin"));
        EXPECT_EQ(editor.document()->firstBlock().textDirection(), Qt::LeftToRight);
    }
}

}  // namespace
}  // namespace vantry::test
