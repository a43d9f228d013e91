// When the disk refuses: nothing that was typed is lost, nobody is left in the dark.

#include <QDialog>

#include "Vantry/interface/design/Sheet.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

class FailureTest : public WindowTest {
protected:
    [[nodiscard]] static AlertSheet* alert() {
        return qobject_cast<AlertSheet*>(QApplication::activeModalWidget());
    }
    void typeAndFail() {
        makeTake();
        go(takeRoute());
        disk.full = true;
        QTest::keyClicks(&notes(), QStringLiteral("precious"));
    }
};

TEST_F(FailureTest, APageIsNotLeftWhileItCannotBeSaved) {
    typeAndFail();
    go(Route::library());
    EXPECT_EQ(route(), takeRoute());
    EXPECT_EQ(notes().toPlainText(), QStringLiteral("precious"));
    EXPECT_TRUE(shows(QStringLiteral("尚未保存，请重试")));
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->windowTitle(), QStringLiteral("操作未完成"));
    EXPECT_NE(find<Label>(*alert(), toQString(*store->error())), nullptr);
    click(QStringLiteral("好"), alert());
    EXPECT_FALSE(store->error());
    EXPECT_EQ(alert(), nullptr);
    window->goBack();
    settle();
    EXPECT_EQ(route(), takeRoute()) << "nor by Back";
    EXPECT_NE(alert(), nullptr) << "the next attempt tells it again";

    disk.full = false;
    window->go(shotRoute());
    settle();
    EXPECT_EQ(route(), shotRoute());
    EXPECT_EQ(alert(), nullptr) << "a save that works takes its alert with it";
    EXPECT_TRUE(shows(QStringLiteral("已存于本机")));
}

TEST_F(FailureTest, TheSaveCommandTriesAgain) {
    typeAndFail();
    clock.advance(350);
    settle();
    EXPECT_TRUE(store->saveFailed());
    click(QStringLiteral("好"), alert());
    disk.full = false;
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(store->saveFailed()) << "one owner of the shortcut, so it works";
    EXPECT_EQ(DiskStore::read(file()).projects[0]->acts[0]->shots[0]->takes[0]->notes, Text("precious"));
    store->updateTake(project, act, shot, take, [](VantryTake& record) { record.stars = 1; });
    settle();
    click(QStringLiteral("保存"));
    EXPECT_FALSE(store->hasUnsavedChanges()) << "and so does its button";
}

TEST_F(FailureTest, AlertsAreOneAtATimeAndFollowTheStore) {
    store->setNotice(Text("first <b>notice</b>"));
    settle();
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->windowTitle(), QStringLiteral("完成"));
    EXPECT_NE(find<Label>(*alert(), QStringLiteral("first <b>notice</b>")), nullptr);
    store->setError(Text("an error"));
    settle();
    EXPECT_EQ(alert()->windowTitle(), QStringLiteral("操作未完成"));
    store->setLanguage("en");
    settle();
    EXPECT_EQ(alert()->windowTitle(), QStringLiteral("Operation could not complete"));
    click(QStringLiteral("OK"), alert());
    EXPECT_FALSE(store->error());
    ASSERT_NE(alert(), nullptr) << "the notice waited";
    EXPECT_EQ(alert()->windowTitle(), QStringLiteral("Done"));
    QTest::keyClick(alert(), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(store->notice());
    EXPECT_EQ(alert(), nullptr);
}

TEST_F(FailureTest, ALibraryThatCannotBeReadIsProtected) {
    std::filesystem::create_directories(root());
    support::putContent(file(), "invalid JSON");
    const auto before = support::factsOf(file());
    open();
    EXPECT_TRUE(store->loadFailed());
    EXPECT_TRUE(
        shows(QStringLiteral("数据读取失败。为保护原数据，当前禁止写入；请在设置中打开数据文件夹检查。")));
    EXPECT_TRUE(shows(QStringLiteral("资料库读取失败")));
    ASSERT_NE(alert(), nullptr);
    click(QStringLiteral("好"), alert());
    clickOnPage(QStringLiteral("新建项目"));
    auto* sheet = QApplication::activeModalWidget();
    QTest::keyClicks(&get<QLineEdit>(QStringLiteral("项目名称"), sheet), QStringLiteral("x"));
    EXPECT_FALSE(get<QAbstractButton>(QStringLiteral("创建"), sheet).isEnabled());
    QTest::keyClick(sheet, Qt::Key_Return);
    EXPECT_TRUE(sheet->isVisible()) << "refused: nothing happens";
    EXPECT_TRUE(store->library().projects.empty());
    click(QStringLiteral("取消"), sheet);
    store->setLanguage("en");
    settle();
    EXPECT_TRUE(
        shows(QStringLiteral("Data could not be read. Writing is disabled to protect the original. Open the "
                             "data folder in Settings.")));
    window->close();
    settle();
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(questions.empty());
    EXPECT_EQ(support::factsOf(file()), before);
}

TEST_F(FailureTest, QuittingSavesWithoutAQuestion) {
    makeTake();
    go(takeRoute());
    QTest::keyClicks(&notes(), QStringLiteral("last words"));
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(questions.empty());
    EXPECT_EQ(DiskStore::read(file()).projects[0]->acts[0]->shots[0]->takes[0]->notes, Text("last words"));
}

TEST_F(FailureTest, QuittingAsksWhenTheSaveFailsAndGoesBack) {
    typeAndFail();
    window->close();
    settle();
    EXPECT_TRUE(window->isVisible());
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_NE(questions[0].find("No space left"), std::string::npos);
    EXPECT_EQ(notes().toPlainText(), QStringLiteral("precious"));
    answerQuit = true;
    window->close();
    settle();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(questions.size(), 2U);
}

TEST_F(FailureTest, ASecondCloseBehindTheQuestionEndsNothing) {
    typeAndFail();
    bool stayed = false;
    whileAsking = [&] {
        window->close();
        settle();
        stayed = window->isVisible();
    };
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(stayed);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(questions.size(), 1U);
    EXPECT_EQ(notes().toPlainText(), QStringLiteral("precious"));
}

TEST_F(FailureTest, TheQuestionStandsAlone) {
    typeAndFail();
    store->setError(std::nullopt);
    settle();
    ASSERT_EQ(alert(), nullptr);
    bool alertBehind = true;
    whileAsking = [&] {
        settle();
        alertBehind = alert() != nullptr;
    };
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(alertBehind);
    EXPECT_EQ(questions.size(), 1U);
}

TEST_F(FailureTest, AFailureInsideAnActionIsShownAndGoesNoFurther) {
    makeTake();
    go(takeRoute());
    // A mutation that throws changes nothing; here the disk's listener does it in the middle of a click.
    const auto connection =
        QObject::connect(store.get(), &VantryStore::changed, store.get(), [](auto member) {
            if (member == VantryStore::Member::library)
                throw std::runtime_error("thrown on the way");
        });
    clickOnPage(QStringLiteral("Good"));
    QObject::disconnect(connection);
    ASSERT_NE(alert(), nullptr);
    EXPECT_NE(find<Label>(*alert(), QStringLiteral("thrown on the way")), nullptr);
}

}  // namespace
}  // namespace vantry::test
