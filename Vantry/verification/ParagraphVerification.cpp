#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextEdit>
#include <QTextLayout>

#include "Vantry/interface/design/ParagraphEditor.h"
#include "Vantry/verification/Smoke.h"

namespace vantry {
namespace {

using Subject = ParagraphVerification::Subject;

constexpr QSize editingSize(400, 200);
constexpr QSize emptySize(420, 180);
constexpr QSize resizedSize(300, 220);

QString heading(int paragraph) {
    return QStringLiteral("第%1段：").arg(paragraph);
}

QString sixtyParagraphs() {
    constexpr int count = 60;
    QStringList paragraphs;
    for (int number = 1; number <= count; ++number)
        paragraphs.append(heading(number) +
                          QStringLiteral("中文长文字 📝，中间修改后还要继续输入。").repeated(3));
    return paragraphs.join(QStringLiteral("\n\n"));
}

void lay(QWidget& view, const QSize& size) {
    view.setAttribute(Qt::WA_DontShowOnScreen);
    view.resize(size);
    view.show();
}

void type(QTextEdit& view, const QString& text) {
    for (const QChar character : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
        QCoreApplication::sendEvent(&view, &press);
    }
}

void compose(QTextEdit& view, const QString& marked, const QString& committed) {
    QInputMethodEvent event(marked, {});
    event.setCommitString(committed);
    QCoreApplication::sendEvent(&view, &event);
}

QString markedText(const QTextEdit& view) {
    const QTextLayout* layout = view.textCursor().block().layout();
    return layout != nullptr ? layout->preeditAreaText() : QString();
}

void select(QTextEdit& view, int from, int to) {
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    view.setTextCursor(cursor);
}

bool selects(const QTextEdit& view, int from, int to) {
    return view.textCursor().anchor() == from && view.textCursor().position() == to;
}

/// Whether a press at the lowest point reaches the text.
bool isClickedAtItsFoot(QTextEdit& view) {
    const QPoint foot(view.width() / 2, view.height() - 1);
    QWidget* reached = view.childAt(foot);
    if (reached != view.viewport() || reached->height() < view.contentsRect().height())
        return false;
    QMouseEvent press(QEvent::MouseButtonPress, reached->mapFrom(&view, foot), view.mapToGlobal(foot),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(reached, &press);
    return press.isAccepted();
}

}  // namespace

void ParagraphVerification::verifyEditing(const Subject& subject) {
    QTextEdit& view = subject.view;
    QString& bound = subject.bound;
    lay(view, editingSize);
    QString expected = sixtyParagraphs();
    bound = expected;
    subject.synchronize();
    constexpr int middle = 30;
    int caret = static_cast<int>(expected.indexOf(heading(middle))) + 4;
    select(view, caret, caret);
    const auto write = [&](const QString& text, int replaced) {
        expected.replace(caret, replaced, text);
        caret += static_cast<int>(text.size());
    };

    type(view, QStringLiteral("插入"));
    write(QStringLiteral("插入"), 0);
    Smoke::demand(view.toPlainText() == bound, "Paragraph edits not published");
    for (int refresh = 0; refresh < 5; ++refresh)
        subject.synchronize();
    Smoke::demand(selects(view, caret, caret), "Autosave moved paragraph caret");
    type(view, QStringLiteral("中"));
    write(QStringLiteral("中"), 0);
    Smoke::demand(view.toPlainText() == expected && bound == expected, "Middle typing appended at end");

    select(view, caret, caret + 2);
    subject.synchronize();
    Smoke::demand(selects(view, caret, caret + 2), "Refresh lost selection");
    type(view, QStringLiteral("换"));
    write(QStringLiteral("换"), 2);
    Smoke::demand(view.toPlainText() == expected && bound == expected, "Middle replacement failed");

    compose(view, QStringLiteral("zhong"), {});
    bound = sixtyParagraphs();
    subject.synchronize();
    Smoke::demand(markedText(view) == QStringLiteral("zhong") && view.toPlainText() == expected,
                  "Refresh interrupted IME");
    bound = expected;
    compose(view, {}, QStringLiteral("中"));
    write(QStringLiteral("中"), 0);
    Smoke::demand(markedText(view).isEmpty() && bound == expected, "IME commit not saved");
    subject.synchronize();
    type(view, QStringLiteral("后"));
    write(QStringLiteral("后"), 0);
    Smoke::demand(view.toPlainText() == expected && bound == expected, "Chinese commit lost insertion point");

    bound = QStringLiteral("短文");
    subject.synchronize();
    Smoke::demand(view.toPlainText() == bound && view.textCursor().selectionEnd() < 3,
                  "External replacement left invalid selection");
}

void ParagraphVerification::verifyClickTarget(QTextEdit& view) {
    lay(view, emptySize);
    Smoke::demand(isClickedAtItsFoot(view), "Empty paragraph has no full-height click target");
    lay(view, resizedSize);
    Smoke::demand(isClickedAtItsFoot(view), "Resized paragraph lost its click target");
}

void ParagraphVerification::run() {
    Smoke::note("paragraphs are edited in QTextEdit; what is composed comes as QInputMethodEvent");
    QString bound;
    ParagraphEditor editor;
    editor.setBinding({[&bound] { return bound; }, [&bound](const QString& text) { bound = text; }});
    verifyEditing({editor, bound, [&editor] { editor.synchronize(); }});
    ParagraphEditor empty;
    verifyClickTarget(empty);
    Smoke::pass("paragraph middle insertion, selection, refresh, IME composition and empty-editor hit area");
}

}  // namespace vantry
