#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "Vantry/app/VantryApplication.h"

namespace vantry::test {
namespace {

/// A window with a shortcut and a button, both noting whether they were triggered by a repetition.
class HeldKeyTest : public testing::Test {
protected:
    void SetUp() override {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&field);
        layout->addWidget(&button);
        auto* action = new QAction(&window);
        action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return));
        window.addAction(action);
        QObject::connect(action, &QAction::triggered, [this] { note(); });
        QObject::connect(&button, &QPushButton::clicked, [this] { note(); });
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        window.activateWindow();
        field.setFocus();
    }
    void note() { heard.push_back(VantryApplication::instance().isRepeat()); }

    QWidget window;
    QLineEdit field;
    QPushButton button{"Create"};
    std::vector<bool> heard;
};

TEST_F(HeldKeyTest, AShortcutKnowsWhetherItsKeyIsHeld) {
    QTest::simulateEvent(&field, true, Qt::Key_Return, Qt::ControlModifier, QString(), false);
    QTest::simulateEvent(&field, true, Qt::Key_Return, Qt::ControlModifier, QString(), true);
    QTest::simulateEvent(&field, true, Qt::Key_Return, Qt::ControlModifier, QString(), true);
    EXPECT_EQ(heard, (std::vector{false, true, true}));
    EXPECT_FALSE(VantryApplication::instance().isRepeat()) << "valid only while the event is handled";
}

TEST_F(HeldKeyTest, AReleaseAndAPressOfTheSameMomentAreOneHeldKey) {
    const auto send = [this](QEvent::Type type, quint64 at) {
        QKeyEvent event(type, Qt::Key_N, Qt::NoModifier);
        event.setTimestamp(at);
        QCoreApplication::sendEvent(&button, &event);
    };
    std::vector<bool> repeats;
    class Listener : public QObject {
    public:
        explicit Listener(std::vector<bool>& target)
            : seen(target) {}
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::KeyPress)
                seen.push_back(VantryApplication::instance().isRepeat());
            return false;
        }
        std::vector<bool>& seen;
    } listener(repeats);
    button.installEventFilter(&listener);
    send(QEvent::KeyPress, 1000);
    send(QEvent::KeyRelease, 1660);
    send(QEvent::KeyPress, 1660);
    send(QEvent::KeyRelease, 1700);
    send(QEvent::KeyPress, 1701);
    send(QEvent::KeyRelease, 1800);
    send(QEvent::KeyPress, 1900);
    EXPECT_EQ(repeats, (std::vector{false, true, true, false}));
}

TEST_F(HeldKeyTest, AClickAfterAHeldKeyIsNoRepetition) {
    QTest::simulateEvent(&field, true, Qt::Key_Return, Qt::ControlModifier, QString(), true);
    heard.clear();
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(heard, std::vector{false});
}

TEST_F(HeldKeyTest, ATimerDuringAHeldKeyIsNoRepetition) {
    QTest::simulateEvent(&field, true, Qt::Key_Return, Qt::ControlModifier, QString(), true);
    heard.clear();
    QMetaObject::invokeMethod(
        &window, [this] { note(); }, Qt::QueuedConnection);
    QCoreApplication::processEvents();
    EXPECT_EQ(heard, std::vector{false});
}

}  // namespace
}  // namespace vantry::test
