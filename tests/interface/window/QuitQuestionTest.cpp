// The question before the process ends although the last save failed: what it shows, and what answers it.

#include <csignal>

#include <QTimer>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Sheet.h"
#include "Vantry/interface/navigation/QuitQuestion.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

const QString goBack = QStringLiteral("返回 / Go back");
const QString quit = QStringLiteral("退出 / Quit");

class QuitQuestionTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        delegate->askBy([this](const Text& reason) {
            questions.push_back(reason.utf8());
            return askToQuit(*window, reason);
        });
        makeTake();
        go(takeRoute());
        disk.full = true;
        QTest::keyClicks(&notes(), QStringLiteral("precious"));
    }
    /// Lets the person do that as soon as the question is on screen.
    void onceAsked(std::function<void(QuestionSheet&)> does) {
        auto* watch = new QTimer(window.get());
        QObject::connect(watch, &QTimer::timeout, window.get(), [watch, does = std::move(does)] {
            auto* sheet = topmost<QuestionSheet>();
            if (sheet == nullptr || !sheet->isActiveWindow())
                return;
            watch->deleteLater();
            watch->stop();
            does(*sheet);
        });
        watch->start(0);
    }
    void closeAndAnswer(const QString& button) {
        onceAsked([this, button](QuestionSheet& sheet) { click(button, &sheet); });
        window->close();
        settle();
    }
};

TEST_F(QuitQuestionTest, TellsWhyInBothLanguagesWhateverTheInterfaceSpeaks) {
    for (const char* spoken : {"zh", "en"}) {
        store->setLanguage(spoken);
        settle();
        onceAsked([this](QuestionSheet& sheet) {
            EXPECT_NE(find<Label>(sheet, QStringLiteral("Vantry")), nullptr);
            EXPECT_NE(find<Label>(sheet, toQString(*store->error())), nullptr);
            auto& no = get<QPushButton>(goBack, &sheet);
            auto& yes = get<QPushButton>(quit, &sheet);
            EXPECT_LT(no.geometry().right(), yes.geometry().left());
            EXPECT_TRUE(no.isDefault());
            EXPECT_TRUE(no.hasFocus());
            EXPECT_FALSE(yes.isDefault());
            click(goBack, &sheet);
        });
        window->close();
        settle();
    }
    EXPECT_EQ(questions.size(), 2U);
}

TEST_F(QuitQuestionTest, IsAnAlertOverTheWindow) {
    onceAsked([this](QuestionSheet& sheet) {
        EXPECT_EQ(sheet.windowModality(), Qt::WindowModal);
        EXPECT_EQ(sheet.parentWidget(), window.get());
        auto* heard = QAccessible::queryAccessibleInterface(&sheet);
        EXPECT_EQ(heard->role(), QAccessible::AlertMessage);
        EXPECT_EQ(heard->text(QAccessible::Name), QStringLiteral("Vantry"));
        EXPECT_EQ(heard->text(QAccessible::Description), toQString(*store->error()));
        click(goBack, &sheet);
    });
    window->close();
    settle();
    EXPECT_EQ(questions.size(), 1U);
}

TEST_F(QuitQuestionTest, GoingBackKeepsEverythingAndQuitEndsIt) {
    closeAndAnswer(goBack);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(notes().toPlainText(), QStringLiteral("precious"));
    EXPECT_EQ(topmost<QuestionSheet>(), nullptr);
    click(QStringLiteral("好"), QApplication::activeModalWidget());
    closeAndAnswer(quit);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(questions.size(), 2U);
}

TEST_F(QuitQuestionTest, EscapeAndReturnAndAHeldReturnGoBack) {
    struct Press {
        Qt::Key key;
        bool heldBefore;
    };
    for (const Press way :
         {Press{Qt::Key_Escape, false}, Press{Qt::Key_Return, false}, Press{Qt::Key_Return, true}}) {
        onceAsked([this, way](QuestionSheet& sheet) {
            if (way.heldBefore) {
                press(way.key, Qt::NoModifier, true);
                EXPECT_TRUE(sheet.isVisible()) << "the repetition of a key pressed earlier answers nothing";
            }
            press(way.key);
        });
        press(Qt::Key_Q, Qt::ControlModifier);
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(topmost<QuestionSheet>(), nullptr);
        click(QStringLiteral("好"), QApplication::activeModalWidget());
    }
    EXPECT_EQ(questions.size(), 3U);
}

TEST_F(QuitQuestionTest, ASecondCloseBehindItChangesNothing) {
    onceAsked([this](QuestionSheet& sheet) {
        window->close();
        settle();
        EXPECT_TRUE(window->isVisible());
        EXPECT_TRUE(sheet.isVisible());
        EXPECT_EQ(topmost<QuestionSheet>(), &sheet) << "alone on screen";
        click(goBack, &sheet);
    });
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(questions.size(), 1U);
}

TEST_F(QuitQuestionTest, LiesOverTheSheetThatIsOpen) {
    click(QStringLiteral("新建项目"));
    auto* below = QApplication::activeModalWidget();
    ASSERT_NE(below, nullptr);
    onceAsked([&](QuestionSheet& sheet) {
        EXPECT_EQ(sheet.parentWidget(), below);
        click(goBack, &sheet);
    });
    EXPECT_FALSE(delegate->shouldTerminate());
    EXPECT_TRUE(below->isVisible());
    EXPECT_EQ(questions.size(), 1U);
}

TEST_F(QuitQuestionTest, GoesWithTheSheetThatItLiesOver) {
    auto* below = new AlertSheet(window.get());
    below->open();
    onceAsked([below](QuestionSheet&) { delete below; });
    EXPECT_FALSE(delegate->shouldTerminate()) << "nobody has agreed";
    EXPECT_EQ(questions.size(), 1U);
    settle();
}

TEST_F(QuitQuestionTest, ASignalEndsTheProgramWhileItIsOpen) {
    delegate->watchSystem();
    onceAsked([](QuestionSheet&) { ::raise(SIGTERM); });
    window->close();
    EXPECT_EQ(QCoreApplication::exec(), 1) << "something was lost, and the status says so";
    EXPECT_EQ(topmost<QuestionSheet>(), nullptr);
    EXPECT_EQ(questions.size(), 1U);
}

}  // namespace
}  // namespace vantry::test
