#include "tests/app/StoreFixture.h"

#include <QElapsedTimer>
#include <QTest>

namespace vantry::test {
namespace {

TEST(SystemClockTest, ADelayedCallIsNeverEarly) {
    using namespace std::chrono_literals;
    std::vector<std::chrono::milliseconds> delays{0ms, 1ms, 3ms, 7ms, 16ms, 35ms, 50ms, 90ms};
    std::vector<std::unique_ptr<DelayedCall>> calls;
    std::size_t done = 0;
    for (const auto delay : delays) {
        const auto start = std::chrono::steady_clock::now();
        calls.push_back(Clock::system().callAfter(delay, [&done, start, delay] {
            EXPECT_GE(std::chrono::steady_clock::now() - start, delay);
            ++done;
        }));
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return done == delays.size(); }));
}

TEST(SystemClockTest, ADestroyedCallDoesNotRun) {
    bool ran = false;
    auto cancelled = Clock::system().callAfter(std::chrono::milliseconds(0), [&] { ran = true; });
    cancelled.reset();
    bool later = false;
    const auto after = Clock::system().callAfter(std::chrono::milliseconds(5), [&] { later = true; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return later; }));
    EXPECT_FALSE(ran);
}

TEST(SystemClockTest, ACallMayDestroyItself) {
    std::unique_ptr<DelayedCall> call;
    bool ran = false;
    call = Clock::system().callAfter(std::chrono::milliseconds(0), [&] {
        call.reset();
        ran = true;
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return ran; }));
}

class RealTimeTest : public StoreTest {};

TEST_F(RealTimeTest, TheFileHoldsTheNoteNoEarlierThanTheDelay) {
    VantryStore store(root());
    makeTake(store);
    store.flush();
    QElapsedTimer timer;
    timer.start();
    type(store, "by the real clock");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !store.hasUnsavedChanges(); }));
    EXPECT_GE(timer.elapsed(), 350);
    EXPECT_EQ(notesOnDisk(), Text("by the real clock"));
}

}  // namespace
}  // namespace vantry::test
