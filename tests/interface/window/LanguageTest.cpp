// The language changes at once on everything, and nothing is rebuilt for it.

#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>

#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

/// Every text that can be seen or heard, without what a person has written.
QStringList texts(QWidget& window) {
    QStringList all;
    for (auto* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || qobject_cast<QLineEdit*>(widget) ||
            qobject_cast<ParagraphEditor*>(widget))
            continue;
        all << widget->accessibleName() << widget->toolTip();
        if (auto* button = qobject_cast<QAbstractButton*>(widget))
            all << button->text();
        if (auto* label = qobject_cast<QLabel*>(widget))
            all << label->text();
    }
    for (auto* action : window.findChildren<QAction*>())
        all << action->text();
    all.removeAll(QString());
    return all;
}

/// What stands in `these` and not in `those`.
std::string difference(QStringList these, const QStringList& those) {
    for (const QString& text : those)
        these.removeOne(text);
    return these.join(QStringLiteral(" / ")).toStdString();
}

bool isChinese(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.script() == QChar::Script_Han; });
}

class LanguageTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        project = store->addProject("Night Ferry", "Mei");
        act = store->addAct(project);
        shot = store->addShot(project, act);
        take = store->addTake(project, act, shot);
        store->updateAct(project, act, [](Act& record) { record.title = "Act"; });
        store->updateShot(project, act, shot, [](Shot& record) { record.title = "Window"; });
        settle();
    }
};

TEST_F(LanguageTest, EveryTextOfEveryPageChangesAndChangesBack) {
    for (const Route& place :
         {Route::library(), Route::project(project), Route::act(project, act), shotRoute(), takeRoute(),
          Route::take(project, act, shot, Identifier::random())}) {
        go(place);
        const QStringList chinese = texts(*window);
        store->setLanguage("en");
        settle();
        for (const QString& text : texts(*window))
            EXPECT_TRUE(!isChinese(text) || text == QStringLiteral("中文")) << text.toStdString();
        EXPECT_TRUE(std::any_of(chinese.begin(), chinese.end(), isChinese));
        store->setLanguage("zh");
        settle();
        EXPECT_EQ(difference(chinese, texts(*window)), "");
        EXPECT_EQ(difference(texts(*window), chinese), "");
    }
}

TEST_F(LanguageTest, ALanguageThatIsNotEnglishIsChinese) {
    store->setLanguage("fr");
    settle();
    EXPECT_TRUE(shows(QStringLiteral("从分镜计划，到现场的每一条记录。")));
}

TEST_F(LanguageTest, AChangeWhileWritingKeepsCaretFocusTextScrollAndUndo) {
    go(takeRoute());
    auto& editor = notes();
    editor.setFocus();
    for (int line = 0; line < 40; ++line) {
        QTest::keyClicks(&editor, QStringLiteral("line"));
        QTest::keyClick(&editor, Qt::Key_Return);
    }
    QTextCursor cursor = editor.textCursor();
    cursor.setPosition(52);
    cursor.setPosition(57, QTextCursor::KeepAnchor);
    editor.setTextCursor(cursor);
    const int scroll = editor.verticalScrollBar()->value();
    const QString text = editor.toPlainText();
    for (const char* spoken : {"en", "zh"}) {
        store->setLanguage(Text(spoken));
        settle();
        EXPECT_TRUE(editor.hasFocus());
        EXPECT_EQ(editor.textCursor().anchor(), 52);
        EXPECT_EQ(editor.textCursor().position(), 57);
        EXPECT_EQ(editor.toPlainText(), text);
        EXPECT_EQ(editor.verticalScrollBar()->value(), scroll);
    }
    EXPECT_TRUE(editor.document()->isUndoAvailable());
    EXPECT_EQ(&notes(), &editor);
    QTest::keyClicks(&editor, QStringLiteral("X"));
    EXPECT_EQ(takeRecord().notes.utf8().substr(50, 5),
              text.mid(50, 2).toStdString() + "X" + text.mid(57, 2).toStdString());
}

TEST_F(LanguageTest, WhatAPersonWroteStays) {
    go(takeRoute());
    commit(notes(), QStringLiteral("资料库 Library"));
    store->setLanguage("en");
    settle();
    EXPECT_EQ(takeRecord().notes, Text("资料库 Library"));
    EXPECT_EQ(store->library().projects[0]->title, Text("Night Ferry"));
}

TEST_F(LanguageTest, TheMenuChoosesLanguageAndAppearance) {
    const auto choose = [this](const QString& text) {
        for (auto* action : window->findChildren<QAction*>())
            if (action->text() == text && action->isCheckable())
                action->trigger();
        settle();
    };
    choose(QStringLiteral("English"));
    EXPECT_EQ(store->language(), Text("en"));
    choose(QStringLiteral("Dark"));
    EXPECT_EQ(store->appearance(), Text("dark"));
    choose(QStringLiteral("System"));
    EXPECT_EQ(store->appearance(), Text("system"));
    choose(QStringLiteral("Light"));
    choose(QStringLiteral("中文"));
    EXPECT_EQ(store->language(), Text("zh"));
    EXPECT_EQ(store->appearance(), Text("light"));
}

TEST_F(LanguageTest, TheMenuHasItsTextsAndKeys) {
    const auto entries = [this](int menu) {
        QStringList texts;
        for (auto* action : window->menuBar()->actions()[menu]->menu()->actions())
            if (!action->isSeparator())
                texts << action->text() + QLatin1Char(' ') + action->shortcut().toString();
        return texts;
    };
    EXPECT_EQ(entries(0), (QStringList{"保存 Ctrl+S", "导出备份… ", "导入并合并… ", "退出 Vantry Ctrl+Q"}));
    store->setLanguage("en");
    settle();
    EXPECT_EQ(entries(0),
              (QStringList{"Save Ctrl+S", "Export backup… ", "Import and merge… ", "Quit Vantry Ctrl+Q"}));
    for (auto* action : window->menuBar()->actions()[0]->menu()->actions()) {
        const bool quits = action->text() == QStringLiteral("Quit Vantry");
        EXPECT_TRUE(action->isSeparator() ||
                    action->menuRole() == (quits ? QAction::QuitRole : QAction::NoRole))
            << action->text().toStdString();
    }
}

}  // namespace
}  // namespace vantry::test
