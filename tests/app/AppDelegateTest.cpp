#include "tests/app/StoreFixture.h"

#include <csignal>

#include <QEventLoop>
#include <QGuiApplication>
#include <QSessionManager>

#include "Vantry/app/AppDelegate.h"

namespace vantry::test {
namespace {

/// The desktop at the end of its session: what it allows, and what it was told.
struct Desktop {
    bool allowsInteraction = true;
    bool released = false;
    bool cancelled = false;
};

Desktop desktop;

}  // namespace
}  // namespace vantry::test

// Without a display there is no session to end. In this program these definitions stand before Qt's own.

bool QSessionManager::allowsInteraction() {
    return vantry::test::desktop.allowsInteraction;
}

void QSessionManager::release() {
    vantry::test::desktop.released = true;
}

void QSessionManager::cancel() {
    vantry::test::desktop.cancelled = true;
}

namespace vantry::test {
namespace {

class AppDelegateTest : public StoreTest {
protected:
    [[nodiscard]] AppDelegate::Question question() {
        return [this](const Text& reason) {
            reasons.push_back(reason);
            if (whileAsking)
                whileAsking();
            return quits;
        };
    }

    std::vector<Text> reasons;
    std::function<void()> whileAsking;
    bool quits = false;
};

TEST_F(AppDelegateTest, BeforeTheWindowAppearedThereIsNothingToSave) {
    AppDelegate delegate(question());
    EXPECT_TRUE(delegate.shouldTerminate());
    EXPECT_TRUE(reasons.empty());
}

TEST_F(AppDelegateTest, PendingEditsAreSavedAndNothingIsAsked) {
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    makeTake(*store);
    type(*store, "last words");
    EXPECT_TRUE(delegate.shouldTerminate());
    EXPECT_EQ(notesOnDisk(), Text("last words"));
    EXPECT_TRUE(reasons.empty());
}

TEST_F(AppDelegateTest, AFailedLoadQuitsWithoutAQuestion) {
    put(file(), "invalid JSON");
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    EXPECT_TRUE(delegate.shouldTerminate());
    EXPECT_TRUE(reasons.empty());
    EXPECT_EQ(contentOf(file()), "invalid JSON");
}

TEST_F(AppDelegateTest, AFailedSaveAsksEachTimeUntilThePersonQuits) {
    put(root(), "in the way");
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    makeTake(*store);
    EXPECT_FALSE(delegate.shouldTerminate());
    EXPECT_FALSE(delegate.shouldTerminate());
    ASSERT_EQ(reasons.size(), 2U);
    EXPECT_EQ(reasons[0], *store->error());
    quits = true;
    EXPECT_TRUE(delegate.shouldTerminate());
    EXPECT_TRUE(delegate.shouldTerminate()) << "the answer holds for the rest of the way out";
    EXPECT_EQ(reasons.size(), 3U);
}

TEST_F(AppDelegateTest, WithNobodyToAskAFailedSaveEndsNothing) {
    put(root(), "in the way");
    AppDelegate delegate;
    const auto store = open();
    delegate.setStore(*store);
    makeTake(*store);
    EXPECT_FALSE(delegate.shouldTerminate());
    delegate.askBy(question());
    quits = true;
    EXPECT_TRUE(delegate.shouldTerminate());
    EXPECT_EQ(reasons.size(), 1U);
}

TEST_F(AppDelegateTest, GoingBackKeepsEverythingAndALaterQuitSaves) {
    put(root(), "in the way");
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    makeTake(*store);
    type(*store, "kept");
    EXPECT_FALSE(delegate.shouldTerminate());
    fs::remove(root());
    EXPECT_TRUE(delegate.shouldTerminate());
    EXPECT_EQ(notesOnDisk(), Text("kept"));
    EXPECT_EQ(reasons.size(), 1U);
}

TEST_F(AppDelegateTest, AnErrorThatTheGuardsOwnSaveSetIsAskedAbout) {
    put(root(), "in the way");
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    makeTake(*store);
    store->setError(std::nullopt);
    EXPECT_FALSE(delegate.shouldTerminate()) << "its save failed again and said so";
    EXPECT_EQ(reasons.size(), 1U);
}

TEST_F(AppDelegateTest, AFailureWithoutATextQuitsWithoutAQuestion) {
    put(root(), "in the way");
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    makeTake(*store);
    ASSERT_TRUE(store->saveFailed());
    // Whoever watches may dismiss the text as soon as it appears.
    QObject::connect(store.get(), &VantryStore::changed, [&](VantryStore::Member member) {
        if (member == VantryStore::Member::error)
            store->setError(std::nullopt);
    });
    store->setError(std::nullopt);
    EXPECT_TRUE(delegate.shouldTerminate());
    EXPECT_TRUE(reasons.empty());
}

TEST_F(AppDelegateTest, AskedAgainBehindItsQuestionItSaysNo) {
    put(root(), "in the way");
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    makeTake(*store);
    bool inner = true;
    whileAsking = [&] { inner = delegate.shouldTerminate(); };
    quits = true;
    EXPECT_TRUE(delegate.shouldTerminate());
    EXPECT_FALSE(inner);
    EXPECT_EQ(reasons.size(), 1U);
}

TEST_F(AppDelegateTest, WhatIsTypedAfterTheAnswerIsAskedAboutAgain) {
    put(root(), "in the way");
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    makeTake(*store);
    quits = true;
    EXPECT_TRUE(delegate.shouldTerminate());
    type(*store, "the session did not end after all");
    EXPECT_TRUE(delegate.shouldTerminate());
    EXPECT_EQ(reasons.size(), 2U);
}

class EndingSignalTest : public AppDelegateTest, public testing::WithParamInterface<int> {};

TEST_P(EndingSignalTest, SavesAndEndsWithoutAQuestion) {
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    delegate.watchSystem();
    makeTake(*store);
    type(*store, "typed a moment ago");
    QMetaObject::invokeMethod(
        qApp, [] { ::raise(GetParam()); }, Qt::QueuedConnection);
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_EQ(notesOnDisk(), Text("typed a moment ago"));
    EXPECT_TRUE(reasons.empty());
}

TEST_P(EndingSignalTest, EndsAnOpenQuestionToo) {
    put(root(), "in the way");
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    delegate.watchSystem();
    makeTake(*store);
    whileAsking = [] {
        ::raise(GetParam());
        QEventLoop().exec();
    };
    QMetaObject::invokeMethod(
        qApp, [&] { (void)delegate.shouldTerminate(); }, Qt::QueuedConnection);
    EXPECT_EQ(QCoreApplication::exec(), 1) << "something was lost, and the status says so";
}

class SessionEndTest : public AppDelegateTest {
protected:
    void SetUp() override { desktop = {}; }
    /// What Qt does when the desktop's session is about to end.
    static void endSession() {
        auto* session = qApp->findChild<QSessionManager*>();
        ASSERT_NE(session, nullptr);
        emit qApp->commitDataRequest(*session);
    }
};

TEST_F(SessionEndTest, EndsWhenThereIsNothingToSave) {
    AppDelegate delegate(question());
    delegate.watchSystem();
    endSession();
    EXPECT_FALSE(desktop.cancelled);
    EXPECT_TRUE(reasons.empty());
}

TEST_F(SessionEndTest, SavesWhatWasTypedAndAsksNothing) {
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    delegate.watchSystem();
    makeTake(*store);
    for (const bool allowsInteraction : {true, false}) {
        desktop.allowsInteraction = allowsInteraction;
        const Text notes = allowsInteraction ? "with time for a question" : "without";
        type(*store, notes);
        endSession();
        EXPECT_EQ(notesOnDisk(), notes);
    }
    EXPECT_FALSE(desktop.cancelled);
    EXPECT_TRUE(reasons.empty());
}

TEST_F(SessionEndTest, GoesOnWhenTheSaveFailedAndThePersonGoesBack) {
    put(root(), "in the way");
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    delegate.watchSystem();
    makeTake(*store);
    type(*store, "kept");
    endSession();
    EXPECT_TRUE(desktop.cancelled);
    EXPECT_TRUE(desktop.released) << "others wait for their own questions";
    ASSERT_EQ(reasons.size(), 1U);
    EXPECT_EQ(reasons[0], *store->error());

    desktop = {};
    fs::remove(root());
    endSession();
    EXPECT_FALSE(desktop.cancelled);
    EXPECT_EQ(notesOnDisk(), Text("kept"));
    EXPECT_EQ(reasons.size(), 1U);
}

TEST_F(SessionEndTest, EndsWhenTheSaveFailedAndThePersonQuits) {
    put(root(), "in the way");
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    delegate.watchSystem();
    makeTake(*store);
    quits = true;
    endSession();
    EXPECT_FALSE(desktop.cancelled);
    EXPECT_TRUE(desktop.released);
    EXPECT_TRUE(delegate.shouldTerminate()) << "the answer holds for the rest of the way out";
    EXPECT_EQ(reasons.size(), 1U);
}

TEST_F(SessionEndTest, AsksNothingWhereTheDesktopAllowsNoQuestion) {
    put(root(), "in the way");
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    delegate.watchSystem();
    makeTake(*store);
    store->setError(std::nullopt);
    desktop.allowsInteraction = false;
    endSession();
    EXPECT_TRUE(store->saveFailed());
    EXPECT_TRUE(store->error()) << "it tried to save";
    EXPECT_TRUE(reasons.empty());
    EXPECT_FALSE(desktop.cancelled);
    EXPECT_FALSE(delegate.shouldTerminate()) << "nobody has been asked yet";
}

TEST_F(SessionEndTest, GoesOnBehindAnOpenQuestion) {
    put(root(), "in the way");
    AppDelegate delegate(question());
    const auto store = open();
    delegate.setStore(*store);
    delegate.watchSystem();
    makeTake(*store);
    whileAsking = [] { endSession(); };
    EXPECT_FALSE(delegate.shouldTerminate());
    EXPECT_TRUE(desktop.cancelled);
    EXPECT_EQ(reasons.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Signals, EndingSignalTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

}  // namespace
}  // namespace vantry::test
