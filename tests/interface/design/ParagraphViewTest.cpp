// How an editor looks and moves, what it takes from a drag, and the field around it.

#include <QAbstractTextDocumentLayout>
#include <QAccessible>
#include <QDragEnterEvent>
#include <QImage>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryMotionPreference.h"
#include "Vantry/interface/design/VantryType.h"
#include "tests/interface/design/ParagraphFixture.h"

namespace vantry::test {
namespace {

class ParagraphViewTest : public ParagraphEditorTest {
protected:
    void resize(int width, int height) {
        window.setFixedSize(width, height);
        editor.resize(width, height);
        settle();
    }
    [[nodiscard]] int scroll() const { return editor.verticalScrollBar()->value(); }
    [[nodiscard]] bool caretIsInSight() const {
        return editor.viewport()->rect().contains(editor.cursorRect().center());
    }
    bool drop(QMimeData& data) {
        const QPoint place(20, 20);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(editor.viewport(), &enter);
        QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(editor.viewport(), &move);
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(editor.viewport(), &drop);
        return enter.isAccepted() && move.isAccepted() && drop.isAccepted();
    }
    [[nodiscard]] QColor colourOfCaret() {
        const QPoint middle = editor.cursorRect().center();
        return editor.viewport()->grab().toImage().pixelColor(editor.cursorRect().left(), middle.y());
    }
};

TEST_F(ParagraphViewTest, TheWholeFieldTakesClicksHoweverLittleIsWritten) {
    for (const QSize& size : {QSize(420, 180), QSize(300, 220)}) {
        resize(size.width(), size.height());
        bind({});
        editor.clearFocus();
        EXPECT_EQ(editor.viewport()->size(), editor.size());
        QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, editor.viewport()->rect().bottomRight());
        EXPECT_TRUE(editor.hasFocus());
        bind(QStringLiteral("ab"));
        putCaret(0);
        QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, editor.viewport()->rect().bottomRight());
        EXPECT_EQ(caret(), 2);
    }
}

TEST_F(ParagraphViewTest, TheScrollBarComesWithoutBreakingLinesAnew) {
    bind(QStringLiteral("short"));
    settle();
    const qreal width = editor.document()->textWidth();
    EXPECT_FALSE(editor.verticalScrollBar()->isVisible());
    replaceOutside(sixtyParagraphs());
    settle();
    EXPECT_TRUE(editor.verticalScrollBar()->isVisible());
    EXPECT_FALSE(editor.horizontalScrollBar()->isVisible());
    EXPECT_EQ(editor.document()->textWidth(), width);
    EXPECT_GE(Metrics::paddingEditor, Metrics::scrollMargin + Metrics::scrollHandle)
        << "the handle lies over the margin of the text";
}

TEST_F(ParagraphViewTest, HeightAloneNeverMovesTheText) {
    bind(sixtyParagraphs());
    settle();
    putCaret(0);
    editor.verticalScrollBar()->setValue(400);
    settle();
    for (const int height : {100, 260, 40, 180}) {
        resize(420, height);
        EXPECT_EQ(scroll(), 400) << height;
    }
}

TEST_F(ParagraphViewTest, ANewWidthRevealsTheCaretOfWhoIsWriting) {
    bind(sixtyParagraphs());
    settle();
    putCaret(static_cast<int>(stored->size()));
    editor.verticalScrollBar()->setValue(0);
    settle();
    ASSERT_FALSE(caretIsInSight());
    resize(300, 180);
    EXPECT_TRUE(caretIsInSight());
    editor.verticalScrollBar()->setValue(0);
    editor.clearFocus();
    resize(360, 180);
    EXPECT_FALSE(caretIsInSight()) << "nobody writes";
}

TEST_F(ParagraphViewTest, TextAndCaretHaveTheInkOfTheAppearance) {
    const QPalette before = QApplication::palette();
    bind({});
    for (const Palette& palette : {Palette::light(), Palette::dark()}) {
        QApplication::setPalette(palette.controls());
        settle();
        EXPECT_EQ(editor.palette().color(QPalette::Text), palette.editorInk);
        QTest::keyClicks(&editor, QStringLiteral(" "));
        EXPECT_EQ(colourOfCaret(), palette.editorInk);
    }
    QApplication::setPalette(before);
}

TEST_F(ParagraphViewTest, AnAppearanceChangesUnderAnOpenComposition) {
    const QPalette before = QApplication::palette();
    bind(sixtyParagraphs());
    settle();
    putCaret(500);
    editor.ensureCursorVisible();
    QTest::keyClicks(&editor, QStringLiteral("x"));
    compose(QStringLiteral("zhong"));
    const int place = scroll();
    QApplication::setPalette(Palette::dark().controls());
    settle();
    EXPECT_TRUE(editor.isComposing());
    EXPECT_EQ(scroll(), place);
    EXPECT_EQ(caret(), 501);
    EXPECT_TRUE(editor.document()->isUndoAvailable());
    QApplication::setPalette(before);
}

TEST_F(ParagraphViewTest, TheCaretIsHiddenWithoutTheKeyboard) {
    bind({});
    EXPECT_EQ(colourOfCaret(), Palette::of(editor).editorInk);
    editor.clearFocus();
    EXPECT_NE(colourOfCaret(), Palette::of(editor).editorInk);
    editor.setFocus();
    EXPECT_EQ(colourOfCaret(), Palette::of(editor).editorInk);
    QInputMethodEvent hiding(QStringLiteral("z"), {{QInputMethodEvent::Cursor, 0, 0, {}}});
    QApplication::sendEvent(&editor, &hiding);
    EXPECT_NE(colourOfCaret(), Palette::of(editor).editorInk) << "the input method has its own";
    commit({});
}

TEST_F(ParagraphViewTest, LinesAreEquallyFarApartInEveryScript) {
    bind(QStringLiteral("Latin\n中文\n🙂\nmixed 中 🙂"));
    QList<int> tops;
    for (QTextBlock block = editor.document()->begin(); block.isValid(); block = block.next())
        tops.append(qRound(editor.document()->documentLayout()->blockBoundingRect(block).top()));
    for (int line = 1; line < tops.size(); ++line)
        EXPECT_EQ(tops[line] - tops[line - 1], VantryType::paragraphLineHeight()) << line;
}

TEST_F(ParagraphViewTest, DroppedTextIsTakenAsPlainText) {
    bind({});
    QMimeData data;
    data.setHtml(QStringLiteral("<b>loud</b>"));
    data.setText(QStringLiteral("loud & <b>"));
    EXPECT_TRUE(drop(data));
    EXPECT_EQ(stored, QStringLiteral("loud & <b>"));
    EXPECT_TRUE(editor.currentCharFormat().properties().isEmpty());
}

TEST_F(ParagraphViewTest, DroppedFilesAndImagesAreRefused) {
    bind(QStringLiteral("text"));
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QStringLiteral("/folder/image.png"))});
    EXPECT_FALSE(drop(files));
    files.setText(QStringLiteral("/folder/image.png"));
    EXPECT_FALSE(drop(files));
    QMimeData image;
    image.setImageData(QImage(4, 4, QImage::Format_RGB32));
    image.setText(QStringLiteral("its title"));
    EXPECT_FALSE(drop(image));
    EXPECT_EQ(stored, QStringLiteral("text"));
    EXPECT_EQ(writes, 0);
}

TEST_F(ParagraphViewTest, AFieldHasItsTitleAndTheHeightThatItWasGiven) {
    ParagraphField field(120);
    field.setTitle(QStringLiteral("Tom & Jerry <b>x</b>"), QStringLiteral(" · a hint"));
    field.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&field));
    const auto name = [](QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    EXPECT_EQ(name(&field.editor()), QStringLiteral("Tom & Jerry <b>x</b>"));
    EXPECT_EQ(name(field.editor().parentWidget()), QStringLiteral("Tom & Jerry <b>x</b>"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&field.editor())->role(), QAccessible::EditableText);
    EXPECT_EQ(field.editor().parentWidget()->height(), 120);
}

TEST_F(ParagraphViewTest, AFieldsBorderFollowsTheKeyboardAtThePaceOfFeedback) {
    VantryMotionPreference motion;
    for (const bool still : {true, false}) {
        motion.setChoice(still);
        ParagraphField field(120);
        field.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&field));
        field.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
        // A window gives the keyboard to the first who takes it.
        field.editor().clearFocus();
        ASSERT_TRUE(QTest::qWaitFor([&] { return field.focusShare() == 0.0; }));
        field.editor().setFocus();
        EXPECT_EQ(field.focusShare(), still ? 1 : 0) << "at its end in the first frame, or on its way";
        ASSERT_TRUE(QTest::qWaitFor([&] { return field.focusShare() == 1.0; }));
        const QImage shown = field.grab().toImage();
        const QRect frame = field.editor().parentWidget()->geometry();
        EXPECT_EQ(shown.pixelColor(frame.left(), frame.center().y()), Palette::of(field).link);
        field.editor().clearFocus();
        ASSERT_TRUE(QTest::qWaitFor([&] { return field.focusShare() == 0.0; }));
    }
}

}  // namespace
}  // namespace vantry::test
