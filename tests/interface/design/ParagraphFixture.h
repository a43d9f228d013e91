#pragma once

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputMethodEvent>
#include <QTest>

#include "Vantry/interface/design/ParagraphEditor.h"

namespace vantry::test {

/// The characters of a text by their numbers, so that a failure shows the ones that cannot be seen.
inline std::string codes(const QString& text) {
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
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
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
    void replaceOutside(const QString& text) {
        stored = text;
        editor.synchronize();
    }
    void select(int from, int to) {
        QTextCursor cursor = editor.textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        editor.setTextCursor(cursor);
    }
    void putCaret(int place) { select(place, place); }
    [[nodiscard]] int caret() const { return editor.textCursor().position(); }
    static void settle() {
        for (int turn = 0; turn < 8; ++turn) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
        }
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

}  // namespace vantry::test
