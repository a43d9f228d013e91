// Writing on the pages: what is typed reaches the record, what is only looked at stays as it is stored.

#include <QTextBlock>

#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

const Text foreignLines(std::string("one\r\ntwo\rthree\u2028four\u2029five\u00A0six") + '\0' + "\uFFFCseven");

class NotesTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
    }
};

TEST_F(NotesTest, LookingAtForeignLineEndsPublishesNothing) {
    store->updateTake(project, act, shot, take, [](VantryTake& record) {
        record.notes = foreignLines;
        record.cameraFile = foreignLines;
        record.mixerFile = foreignLines;
    });
    store->updateShot(project, act, shot, [](Shot& record) {
        for (Text Shot::*member : {&Shot::code, &Shot::title, &Shot::description, &Shot::framing,
                                   &Shot::movement, &Shot::soundDescription})
            record.*member = foreignLines;
    });
    store->updateAct(project, act, [](Act& record) { record.title = foreignLines; });
    store->updateProject(project, [](Project& record) {
        record.title = foreignLines;
        record.director = foreignLines;
        record.notes = foreignLines;
    });
    store->flush();
    const auto before = support::factsOf(file());
    for (const Route& place : {Route::project(project), Route::act(project, act), shotRoute(), takeRoute()}) {
        go(place);
        for (auto* editor : page().findChildren<ParagraphEditor*>()) {
            QTest::mouseClick(editor->viewport(), Qt::LeftButton);
            QTest::keyClick(editor, Qt::Key_End, Qt::ControlModifier);
        }
        for (auto* field : page().findChildren<QLineEdit*>()) {
            QTest::mouseClick(field, Qt::LeftButton);
            QTest::keyClick(field, Qt::Key_End);
        }
        page().setFocus();
        settle();
        EXPECT_FALSE(store->hasUnsavedChanges());
    }
    clock.advance(1000);
    EXPECT_EQ(support::factsOf(file()), before);
}

TEST_F(NotesTest, AnEditKeepsTheForeignLineEndsAroundIt) {
    store->updateTake(project, act, shot, take, [](VantryTake& record) { record.notes = foreignLines; });
    go(takeRoute());
    notes().setFocus();
    QTest::keyClick(&notes(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(&notes(), QStringLiteral("!"));
    EXPECT_EQ(takeRecord().notes.utf8(), foreignLines.utf8() + "!");
}

TEST_F(NotesTest, ATextThatBeginsWithAByteOrderMarkKeepsIt) {
    const Text marked("\uFEFFslate");
    store->updateTake(project, act, shot, take, [&](VantryTake& record) { record.notes = marked; });
    go(takeRoute());
    notes().setFocus();
    QTest::keyClick(&notes(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(&notes(), QStringLiteral("!"));
    EXPECT_EQ(takeRecord().notes.utf8(), marked.utf8() + "!");
}

TEST_F(NotesTest, AutosaveMovesNeitherCaretNorScroll) {
    std::string text;
    for (int number = 0; number < 120; ++number)
        text += "Paragraph " + std::to_string(number) + "\n";
    store->updateTake(project, act, shot, take, [&](VantryTake& record) { record.notes = Text(text); });
    go(takeRoute());
    notes().setFocus();
    QTextCursor cursor = notes().textCursor();
    cursor.setPosition(static_cast<int>(text.find("Paragraph 60")) + 4);
    notes().setTextCursor(cursor);
    notes().ensureCursorVisible();
    QTest::keyClicks(&notes(), QStringLiteral("x"));
    const int position = notes().textCursor().position();
    clock.advance(350);
    settle();
    EXPECT_FALSE(store->hasUnsavedChanges());
    EXPECT_EQ(notes().textCursor().position(), position);
    QTest::keyClicks(&notes(), QStringLiteral("y"));
    EXPECT_NE(takeRecord().notes.utf8().find("Paraxygraph 60"), std::string::npos);
}

TEST_F(NotesTest, AnOpenCompositionSurvivesASaveAndARefresh) {
    go(takeRoute());
    QTest::keyClicks(&notes(), QStringLiteral("a"));
    QInputMethodEvent compose(QStringLiteral("zhong"), {});
    QApplication::sendEvent(&notes(), &compose);
    clock.advance(350);
    store->setLanguage("en");
    settle();
    auto& editor = get<ParagraphEditor>(QStringLiteral("On-set notes · write freely"));
    EXPECT_TRUE(editor.isComposing());
    EXPECT_EQ(takeRecord().notes, Text("a"));
    commit(editor, QStringLiteral("中"));
    EXPECT_EQ(takeRecord().notes, Text("a中"));
}

TEST_F(NotesTest, WhatChangedElsewhereIsNotOverwrittenByAStalePage) {
    go(takeRoute());
    QTest::keyClicks(&notes(), QStringLiteral("mine"));
    store->updateTake(project, act, shot, take,
                      [](VantryTake& record) { record.notes = "theirs, and mine"; });
    // The page has not been brought in line yet when the next key comes.
    QTest::keyClicks(&notes(), QStringLiteral("!"));
    EXPECT_EQ(takeRecord().notes, Text("theirs, and mine!"));
    settle();
    EXPECT_EQ(notes().toPlainText(), QStringLiteral("theirs, and mine!"));
}

TEST_F(NotesTest, ARecordThatIsDeletedWhileItIsEditedStaysDeleted) {
    go(takeRoute());
    auto& editor = notes();
    QTest::keyClicks(&editor, QStringLiteral("typed"));
    store->updateShot(project, act, shot, [](Shot& record) { record.takes.clear(); });
    QTest::keyClicks(&editor, QStringLiteral(" and more"));
    settle();
    EXPECT_TRUE(shotRecord().takes.empty());
    EXPECT_TRUE(shows(QStringLiteral("这条记录已删除")));
    EXPECT_EQ(route(), takeRoute()) << "the place stays";
    clickOnPage(QStringLiteral("返回资料库"));
    EXPECT_EQ(route(), Route::library());
}

TEST_F(NotesTest, ARecordThatComesBackFindsItsPageAsItWas) {
    go(takeRoute());
    QTest::keyClicks(&notes(), QStringLiteral("typed"));
    ParagraphEditor* const editor = &notes();
    const auto kept = store->shot(project, act, shot)->takes;
    store->updateShot(project, act, shot, [](Shot& record) { record.takes.clear(); });
    settle();
    store->updateShot(project, act, shot, [&](Shot& record) { record.takes = kept; });
    settle();
    EXPECT_EQ(&notes(), editor);
    EXPECT_EQ(editor->toPlainText(), QStringLiteral("typed"));
}

TEST_F(NotesTest, TheStructuralUndoLeavesCaretAndTypingHistoryAlone) {
    go(takeRoute());
    notes().setFocus();
    QTest::keyClicks(&notes(), QStringLiteral("first second"));
    const Identifier added = store->addShot(project, act);
    settle();
    QTest::keyClicks(&notes(), QStringLiteral(" third"));
    QTextCursor caret = notes().textCursor();
    caret.setPosition(5);
    notes().setTextCursor(caret);
    click(QStringLiteral("撤销结构修改"));
    EXPECT_EQ(store->shot(project, act, added), nullptr);
    EXPECT_EQ(takeRecord().notes, Text("first second third"));
    EXPECT_EQ(notes().textCursor().position(), 5);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(takeRecord().notes, Text("first second third")) << "its own history is still there";
}

TEST_F(NotesTest, AVerdictTappedWhileWritingTakesNoKeyAway) {
    go(takeRoute());
    notes().setFocus();
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("held "));
    for (const char* name : {"4 星", "Good", "NG", "Good", "保存"}) {
        click(QString::fromUtf8(name));
        ASSERT_EQ(QApplication::focusWidget(), &notes()) << name;
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("on "));
    }
    EXPECT_EQ(takeRecord().notes, Text("held on on on on on "));
    EXPECT_EQ(takeRecord().stars, 4) << "the blank was written, not pressed";
    EXPECT_EQ(takeRecord().result, TakeResult::good);
}

TEST_F(NotesTest, AVerdictTappedWhileComposingWritesTheCompositionOnce) {
    go(takeRoute());
    notes().setFocus();
    QInputMethodEvent compose(QStringLiteral("zhong"), {});
    QApplication::sendEvent(&notes(), &compose);
    click(QStringLiteral("Good"));
    EXPECT_EQ(takeRecord().notes, Text("zhong"));
    EXPECT_EQ(takeRecord().result, TakeResult::good);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("!"));
    EXPECT_EQ(takeRecord().notes, Text("zhong!"));
}

TEST_F(NotesTest, ControlZInTheNotesIsNotTheStructuralUndo) {
    const Identifier added = store->addShot(project, act);
    go(takeRoute());
    notes().setFocus();
    QTest::keyClicks(&notes(), QStringLiteral("typed"));
    for (int times = 0; times < 4; ++times)
        press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(takeRecord().notes, Text(""));
    EXPECT_NE(store->shot(project, act, added), nullptr);
    EXPECT_TRUE(store->canUndo());
}

TEST_F(NotesTest, LeavingThePageKeepsWhatIsBeingComposed) {
    go(takeRoute());
    notes().setFocus();
    QInputMethodEvent compose(QStringLiteral("zhong"), {});
    QApplication::sendEvent(&notes(), &compose);
    go(shotRoute());
    EXPECT_EQ(takeRecord().notes, Text("zhong"));
    EXPECT_FALSE(store->hasUnsavedChanges()) << "on disk with the page that was left";
}

TEST_F(NotesTest, TheEndOfTheProgramKeepsWhatIsBeingComposed) {
    go(takeRoute());
    notes().setFocus();
    QInputMethodEvent compose(QStringLiteral("zhong"), {});
    QApplication::sendEvent(&notes(), &compose);
    window->close();
    settle();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(takeRecord().notes, Text("zhong"));
    EXPECT_FALSE(store->hasUnsavedChanges());
}

TEST_F(NotesTest, ControlReturnMakesNoTakeOutOfAComposition) {
    go(takeRoute());
    notes().setFocus();
    QInputMethodEvent compose(QStringLiteral("zhong"), {});
    QApplication::sendEvent(&notes(), &compose);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(shotRecord().takes.size(), 1U);
    EXPECT_EQ(route(), takeRoute());
    commit(notes(), QStringLiteral("中"));
    EXPECT_NE(takeRecord().notes.utf8().find("中"), std::string::npos);
}

TEST_F(NotesTest, ARecordThatIsDeletedUnderACompositionStaysDeleted) {
    go(takeRoute());
    notes().setFocus();
    QInputMethodEvent compose(QStringLiteral("zhong"), {});
    QApplication::sendEvent(&notes(), &compose);
    store->updateShot(project, act, shot, [](Shot& record) { record.takes.clear(); });
    settle();
    EXPECT_TRUE(shotRecord().takes.empty());
    EXPECT_TRUE(shows(QStringLiteral("这条记录已删除")));
}

TEST_F(NotesTest, TextsThatDifferInFormAloneAreNotWrittenBack) {
    store->updateTake(project, act, shot, take,
                      [](VantryTake& record) { record.notes = "e\u0301tage\r\nzwei"; });
    go(takeRoute());
    store->updateTake(project, act, shot, take,
                      [](VantryTake& record) { record.notes = "\u00E9tage\r\nzwei"; });
    settle();
    notes().setFocus();
    QTest::keyClick(&notes(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(&notes(), QStringLiteral("!"));
    EXPECT_EQ(takeRecord().notes.utf8().substr(takeRecord().notes.utf8().size() - 7), "\r\nzwei!");
}

TEST_F(NotesTest, EveryReturnBeginsAParagraph) {
    const auto type = [this](const char* keys) {
        for (const char key : std::string_view(keys))
            if (key == '\n')
                QTest::keyClick(&notes(), Qt::Key_Return);
            else
                QTest::keyClick(&notes(), key);
        settle();
    };
    go(takeRoute());
    notes().setFocus();
    type("\n\n\n\n\na");
    EXPECT_EQ(takeRecord().notes, Text("\n\n\n\n\na"));
    type("\n\nb\n\n\nc");
    EXPECT_EQ(takeRecord().notes, Text("\n\n\n\n\na\n\nb\n\n\nc"));
    for (QTextBlock block = notes().document()->begin(); block.isValid(); block = block.next())
        EXPECT_EQ(block.blockFormat().lineHeightType(), QTextBlockFormat::FixedHeight);
    QTest::keyClick(&notes(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(takeRecord().notes, Text("\n\n\n\n\na\n\nb\n\n\nc")) << "its own undo knows them";
}

TEST_F(NotesTest, AReturnWithShiftBeginsAParagraphToo) {
    go(takeRoute());
    notes().setFocus();
    QTest::keyClick(&notes(), Qt::Key_A);
    QTest::keyClick(&notes(), Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(&notes(), Qt::Key_B);
    EXPECT_EQ(takeRecord().notes, Text("a\nb"));
}

TEST_F(NotesTest, AKeyThatIsHeldFromElsewhereWritesNothing) {
    go(takeRoute());
    get<QAbstractButton>(QStringLiteral("返回镜头")).setFocus();
    notes().setFocus();
    press(Qt::Key_Return, Qt::NoModifier, true);
    QTest::simulateEvent(&notes(), true, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
    EXPECT_TRUE(notes().toPlainText().isEmpty());
    QTest::keyClick(&notes(), Qt::Key_A);
    press(Qt::Key_Return, Qt::NoModifier, true);
    EXPECT_EQ(notes().toPlainText(), QStringLiteral("a\n")) << "a key of its own repeats";
}

}  // namespace
}  // namespace vantry::test
