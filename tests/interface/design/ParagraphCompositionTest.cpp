// What an input method composes in an editor: nothing disturbs it, and nothing of it is lost.

#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include "tests/interface/design/ParagraphFixture.h"

namespace vantry::test {
namespace {

class ParagraphCompositionTest : public ParagraphEditorTest {
protected:
    void SetUp() override {
        ParagraphEditorTest::SetUp();
        bind(QStringLiteral("前后"));
        putCaret(1);
        compose(QStringLiteral("zhong"));
    }
    [[nodiscard]] QString composed() const { return editor.textCursor().block().layout()->preeditAreaText(); }
};

TEST_F(ParagraphCompositionTest, AStaleTextChangesNothing) {
    replaceOutside(QStringLiteral("stale"));
    EXPECT_EQ(composed(), QStringLiteral("zhong"));
    EXPECT_EQ(editor.toPlainText(), QStringLiteral("前后"));
    EXPECT_EQ(caret(), 1);
}

TEST_F(ParagraphCompositionTest, CandidatesAreShownAtTheCaret) {
    QInputMethodQueryEvent query(Qt::ImCursorRectangle | Qt::ImAnchorRectangle);
    QApplication::sendEvent(&editor, &query);
    for (const auto asked : {Qt::ImCursorRectangle, Qt::ImAnchorRectangle}) {
        const QRectF place = query.value(asked).toRectF();
        EXPECT_TRUE(place.isValid()) << "a place without width is none";
        EXPECT_EQ(place.topLeft().toPoint().y(), editor.cursorRect().top());
    }
    EXPECT_EQ(query.value(Qt::ImCursorRectangle).toRectF().topLeft().toPoint(),
              editor.cursorRect().topLeft());
}

TEST_F(ParagraphCompositionTest, AnOutsideTextEntersWhenItIsGivenUp) {
    replaceOutside(QStringLiteral("新前后"));
    compose({});
    EXPECT_EQ(editor.toPlainText(), QStringLiteral("新前后"));
    EXPECT_EQ(caret(), 2);
    EXPECT_EQ(writes, 0);
}

TEST_F(ParagraphCompositionTest, AnOutsideTextMeetsWhatIsCommitted) {
    replaceOutside(QStringLiteral("新前后"));
    commit(QStringLiteral("中"));
    EXPECT_EQ(stored, QStringLiteral("新前中后"));
    EXPECT_EQ(editor.toPlainText(), QStringLiteral("新前中后"));
    QTest::keyClicks(&editor, QStringLiteral("x"));
    EXPECT_EQ(stored, QStringLiteral("新前中x后"));
}

TEST_F(ParagraphCompositionTest, ACommitThatComesBehindItsEndIsNotLost) {
    // Some frameworks end the composition first and send the text after that.
    replaceOutside(QStringLiteral("新前后"));
    compose({});
    commit(QStringLiteral("中"));
    EXPECT_EQ(stored, QStringLiteral("新前中后"));
}

TEST_F(ParagraphCompositionTest, LosingTheFocusWritesWhatWasComposed) {
    editor.clearFocus();
    EXPECT_FALSE(editor.isComposing());
    EXPECT_EQ(stored, QStringLiteral("前zhong后"));
    replaceOutside(QStringLiteral("later"));
    EXPECT_EQ(editor.toPlainText(), QStringLiteral("later"));
}

TEST_F(ParagraphCompositionTest, AClickElsewhereInTheTextWritesWhatWasComposed) {
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, QPoint(300, 150));
    EXPECT_FALSE(editor.isComposing());
    EXPECT_EQ(stored, QStringLiteral("前zhong后"));
}

TEST_F(ParagraphCompositionTest, ItReplacesTheSelectionThatItBeganOn) {
    commit({});
    bind(QStringLiteral("keep OLD keep"));
    select(5, 8);
    compose(QStringLiteral("xin"));
    commit(QStringLiteral("新"));
    EXPECT_EQ(stored, QStringLiteral("keep 新 keep"));
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stored, QStringLiteral("keep OLD keep"));
}

TEST_F(ParagraphCompositionTest, ARecordThatGoesMeanwhileIsNotWritten) {
    stored.reset();
    editor.synchronize();
    EXPECT_TRUE(editor.isComposing());
    editor.clearFocus();
    EXPECT_EQ(writes, 0);
    EXPECT_FALSE(stored.has_value());
}

TEST_F(ParagraphCompositionTest, ANewWidthLeavesItWhereItIs) {
    const int scroll = editor.verticalScrollBar()->value();
    window.setFixedSize(300, 180);
    editor.resize(300, 180);
    settle();
    EXPECT_EQ(composed(), QStringLiteral("zhong"));
    EXPECT_EQ(editor.verticalScrollBar()->value(), scroll);
}

TEST_F(ParagraphCompositionTest, UndoAfterwardsTakesTheCommittedTextBack) {
    commit(QStringLiteral("中"));
    editor.synchronize();
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stored, QStringLiteral("前后"));
}

}  // namespace
}  // namespace vantry::test
