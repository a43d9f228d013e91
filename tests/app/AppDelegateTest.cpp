#include "tests/app/StoreFixture.h"

#include <csignal>

#include <QCoreApplication>
#include <QEventLoop>

#include "Vantry/app/AppDelegate.h"

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

INSTANTIATE_TEST_SUITE_P(Signals, EndingSignalTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

}  // namespace
}  // namespace vantry::test
