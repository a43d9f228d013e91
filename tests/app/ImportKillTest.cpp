#include <array>
#include <cerrno>
#include <chrono>
#include <iostream>

#include <sched.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/app/ExchangeFixture.h"
#include "tests/support/FaultyFileOperations.h"
#include "tests/support/RandomRecords.h"

namespace vantry::test {
namespace {

using support::FaultyFileOperations;

/// An import in a process of its own, which is killed.
class ImportKillTest : public ExchangeTest {
protected:
    void SetUp() override {
        const auto store = open();
        makeTake(*store);
        type(*store, "saved");
        store->flush();
        start = store->library();
        Library other = otherLibrary(start);
        Media media;
        for (int i = 0; i < images; ++i) {
            const std::string image = pngOf(QColor(i, 255 - i, 128), 120 + i, 90);
            media[Codec::hash(image)] = bytesOf(image);
            Shot framed = Shot::make(Text(std::to_string(i)), "framed", {});
            framed.imageKey = Text(Codec::hash(image));
            other.projects.back().edit().acts[0].edit().shots.emplace_back(std::move(framed));
        }
        media[Codec::hash(picture)] = bytesOf(picture);
        backup = VantryBackup::encode(VantryBackup(other, media));
        merged = start;
        Merge::apply(other, merged);
        fs::copy(root(), outside("Start"), fs::copy_options::recursive);
    }

    /// Runs the import; at the given step it dies by itself.
    [[noreturn]] void import(std::size_t dieAtStep, bool syncs, int begun) {
        FaultyFileOperations operations;
        if (!syncs)
            operations.skipSyncs();
        faults = &operations;
        const auto store = open();
        if (dieAtStep != 0)
            operations.beforeStep = [last = dieAtStep + operations.steps()](std::size_t step,
                                                                            const std::string&) {
                if (step >= last)
                    ::raise(SIGKILL);
            };
        if (::write(begun, "b", 1) != 1)
            ::_exit(2);
        try {
            store->mergeBackupData(backup);
        } catch (const std::exception&) {
            ::_exit(1);
        }
        // It was quick: the kill comes after the end.
        while (true)
            ::sched_yield();
    }

    void killOnce(std::size_t dieAtStep, bool syncs, std::chrono::microseconds after) {
        fs::remove_all(root());
        fs::copy(outside("Start"), root(), fs::copy_options::recursive);
        std::array<int, 2> ends{};
        ASSERT_EQ(::pipe(ends.data()), 0);
        const pid_t child = ::fork();
        if (child == 0)
            import(dieAtStep, syncs, ends[1]);
        ASSERT_GT(child, 0);
        char begun = 0;
        ASSERT_EQ(::read(ends[0], &begun, 1), 1);
        ::close(ends[0]);
        ::close(ends[1]);
        const auto moment = std::chrono::steady_clock::now() + after;
        while (std::chrono::steady_clock::now() < moment)
            ::sched_yield();
        if (dieAtStep == 0)
            ::kill(child, SIGKILL);
        int status = 0;
        while (::waitpid(child, &status, 0) == -1 && errno == EINTR) {
        }
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
        expectOldOrMerged();
    }

    void expectOldOrMerged() {
        const Library found = DiskStore::read(file());
        const bool isMerged = found == merged;
        ASSERT_TRUE(isMerged || found == start);
        (isMerged ? foundMerged : foundOld) += 1;
        std::size_t whole = 0;
        bool leftover = false;
        for (const auto& name :
             fs::exists(media()) ? support::namesIn(media()) : std::vector<std::string>()) {
            if (name.starts_with('.')) {
                leftover = true;
                continue;
            }
            ASSERT_EQ(Codec::hash(contentOf(media() / name)), name) << "an image is not whole";
            ++whole;
        }
        leftovers += leftover ? 1 : 0;
        if (isMerged) {
            ASSERT_EQ(whole, std::size_t(images) + 1) << "the library names images that are not there";
        } else if (whole > 0) {
            ++amongImages;
        }
        // A repeated import completes it.
        faults = nullptr;
        const auto store = open();
        store->mergeBackupData(backup);
        ASSERT_EQ(store->library(), merged);
        ASSERT_EQ(DiskStore::read(file()), merged);
        ASSERT_EQ(support::namesIn(media()).size(), std::size_t(images) + 1);
    }

    static constexpr int images = 12;
    Library start;
    Library merged;
    std::string backup;
    int foundOld = 0;
    int foundMerged = 0;
    int amongImages = 0;
    int leftovers = 0;
};

TEST_F(ImportKillTest, LeavesTheOldOrTheMergedLibraryAndCanBeRepeated) {
    constexpr int kills = 200;
    constexpr int atSteps = 90;
    support::RandomRecords random(7);
    // The steps of an import that nobody stops.
    FaultyFileOperations counting;
    std::size_t steps = 0;
    std::chrono::microseconds duration{};
    {
        faults = &counting;
        const auto store = open();
        steps = counting.steps();
        const auto begun = std::chrono::steady_clock::now();
        store->mergeBackupData(backup);
        duration =
            std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begun);
        steps = counting.steps() - steps;
    }
    ASSERT_GT(steps, 100U);
    for (int round = 0; round < kills; ++round) {
        if (round < atSteps)
            killOnce(1 + static_cast<std::size_t>(round) * (steps - 1) / (atSteps - 1), false, {});
        else
            killOnce(0, random.chance(0.5),
                     std::chrono::microseconds(random.number(0, duration.count() * 2)));
        if (HasFatalFailure())
            return;
    }
    std::cout << kills << " kills: " << foundOld << " left the old library, " << amongImages
              << " of them among the images, " << leftovers << " a temporary file, " << foundMerged
              << " the merged library\n";
    EXPECT_EQ(foundOld + foundMerged, kills);
    EXPECT_GT(foundMerged, 10);
    EXPECT_GT(amongImages, kills / 4);
}

}  // namespace
}  // namespace vantry::test
