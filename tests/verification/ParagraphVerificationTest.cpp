#include <gtest/gtest.h>

#include <QInputMethodEvent>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>

#include "tests/verification/Failing.h"

namespace vantry::test {
namespace {

/// What is wrong with an editor.
enum class Fault {
    none,
    neverPublishes,
    refreshMovesCaret,
    typesAtTheEnd,
    refreshDropsSelection,
    keepsWhatIsReplaced,
    refreshEndsComposition,
    publishesKeysAlone,
    commitMovesCaret,
    refusesOutsideText,
    foot,
    footOnceResized,
};

/// A text view bound by hand, in the way that one writes first.
class FaultyEditor final : public QTextEdit {
public:
    FaultyEditor(Fault wrong, QString& text)
        : fault(wrong)
        , bound(text) {
        setAcceptRichText(false);
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        connect(this, &QTextEdit::textChanged, this, [this] {
            if (fault != Fault::neverPublishes && (fault != Fault::publishesKeysAlone || byKey))
                publish();
        });
    }

    void synchronize() {
        const bool composing = !textCursor().block().layout()->preeditAreaText().isEmpty();
        const bool same = toPlainText() == bound;
        if (composing && (fault != Fault::refreshEndsComposition || same))
            return;
        if (same && fault != Fault::refreshMovesCaret && fault != Fault::refreshDropsSelection)
            return;
        if (fault == Fault::refusesOutsideText && !toPlainText().isEmpty())
            return;
        const int anchor = textCursor().anchor();
        const int position = textCursor().position();
        {
            const QScopedValueRollback guard(showing, true);
            setPlainText(bound);
        }
        if (fault == Fault::refreshMovesCaret)
            return;
        const int end = static_cast<int>(bound.size());
        QTextCursor cursor = textCursor();
        cursor.setPosition(std::min(fault == Fault::refreshDropsSelection ? position : anchor, end));
        cursor.setPosition(std::min(position, end), QTextCursor::KeepAnchor);
        setTextCursor(cursor);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const QScopedValueRollback guard(byKey, true);
        // The first two letters go where they belong, so that it is found by its next one.
        if (fault == Fault::typesAtTheEnd && ++keys > 2)
            moveCursor(QTextCursor::End);
        if (fault == Fault::keepsWhatIsReplaced) {
            QTextCursor cursor = textCursor();
            cursor.clearSelection();
            setTextCursor(cursor);
        }
        QTextEdit::keyPressEvent(event);
    }
    void inputMethodEvent(QInputMethodEvent* event) override {
        QTextEdit::inputMethodEvent(event);
        if (fault == Fault::commitMovesCaret && !event->commitString().isEmpty())
            moveCursor(QTextCursor::End);
    }
    void resizeEvent(QResizeEvent* event) override {
        QTextEdit::resizeEvent(event);
        constexpr int dead = 40;
        const bool first = height() < 200;
        if (fault == Fault::foot || (fault == Fault::footOnceResized && !first))
            setViewportMargins(0, 0, 0, dead);
    }

private:
    void publish() {
        if (!showing && toPlainText() != bound)
            bound = toPlainText();
    }

    const Fault fault;
    QString& bound;
    bool showing = false;
    bool byKey = false;
    int keys = 0;
};

std::string failureWith(Fault fault) {
    return failureOf([fault] {
        QString bound;
        FaultyEditor editor(fault, bound);
        ParagraphVerification::verifyEditing({editor, bound, [&editor] { editor.synchronize(); }});
        QString nothing;
        FaultyEditor empty(fault, nothing);
        ParagraphVerification::verifyClickTarget(empty);
    });
}

TEST(ParagraphVerificationTest, TheEditorPasses) {
    testing::internal::CaptureStdout();
    const std::string failure = failureOf([] { ParagraphVerification::run(); });
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(failure, "");
    EXPECT_NE(printed.find("PASS: paragraph middle insertion, selection, refresh, IME composition and "
                           "empty-editor hit area\n"),
              std::string::npos);
}

TEST(ParagraphVerificationTest, AnEditorWithOneFaultIsToldByIt) {
    const struct {
        Fault fault;
        const char* text;
    } cases[] = {
        {Fault::none, ""},
        {Fault::neverPublishes, "Paragraph edits not published"},
        {Fault::refreshMovesCaret, "Autosave moved paragraph caret"},
        {Fault::typesAtTheEnd, "Middle typing appended at end"},
        {Fault::refreshDropsSelection, "Refresh lost selection"},
        {Fault::keepsWhatIsReplaced, "Middle replacement failed"},
        {Fault::refreshEndsComposition, "Refresh interrupted IME"},
        {Fault::publishesKeysAlone, "IME commit not saved"},
        {Fault::commitMovesCaret, "Chinese commit lost insertion point"},
        {Fault::refusesOutsideText, "External replacement left invalid selection"},
        {Fault::foot, "Empty paragraph has no full-height click target"},
        {Fault::footOnceResized, "Resized paragraph lost its click target"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(failureWith(test.fault), test.text);
}

}  // namespace
}  // namespace vantry::test
