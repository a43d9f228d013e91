#include <atomic>
#include <cerrno>
#include <chrono>
#include <iostream>
#include <map>
#include <new>

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/DiskStore.h"
#include "tests/support/FaultyFileOperations.h"
#include "tests/support/Files.h"
#include "tests/support/RandomRecords.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;
using support::contentOf;
using support::FaultyFileOperations;

/// What the writing process tells the one that kills it, in memory that both share.
struct Progress {
    std::atomic<std::uint32_t> completed{0};  ///< the last generation whose write returned
    std::atomic<std::uint32_t> begun{0};      ///< the last generation whose write began
    std::atomic<std::uint32_t> steps{0};
};

class SharedProgress {
public:
    SharedProgress() {
        void* memory =
            ::mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED)
            throw std::system_error(errno, std::generic_category(), "mmap");
        progress = new (memory) Progress;
    }
    SharedProgress(const SharedProgress&) = delete;
    SharedProgress& operator=(const SharedProgress&) = delete;
    ~SharedProgress() { ::munmap(progress, sizeof(Progress)); }
    Progress* operator->() const { return progress; }

private:
    Progress* progress;
};

/// About 300 KB, different in several places and in length from one generation to the next.
Library generation(std::uint32_t number) {
    static const Library base = [] {
        Library library = support::sampleLibrary();
        library.projects.resize(2, Project{});
        return library;
    }();
    Library library = base;
    library.projects[0].edit().title = Text("generation " + std::to_string(number));
    Shot& shot = library.projects[number % 2].edit().acts[0].edit().shots[number % 20].edit();
    shot.description = Text(std::string(number * 37 % 5000, 'x'));
    library.projects[1].edit().notes = Text(std::to_string(number));
    return library;
}

/// What the file of a generation holds.
const std::string& bytesOf(std::uint32_t number) {
    static std::map<std::uint32_t, std::string> known;
    if (known.size() > 8)
        known.erase(known.begin());
    auto& bytes = known[number];
    if (bytes.empty())
        bytes = Codec::encode(generation(number));
    return bytes;
}

/// The generation up to `latest` that a file holds, to the last byte; the last few come into question.
std::optional<std::uint32_t> generationIn(const fs::path& file, std::uint32_t latest) {
    const std::string bytes = contentOf(file);
    for (std::uint32_t back = 0; back < 3 && back < latest; ++back)
        if (bytes == bytesOf(latest - back))
            return latest - back;
    return std::nullopt;
}

struct Way {
    bool links = true;
    bool remembers = true;
    bool syncs = true;
    std::uint32_t dieAtStep = 0;  ///< of the process's life; 0 waits for the killer
};

class KilledWriter : public ::testing::Test {
protected:
    void SetUp() override { write(1); }

    void write(std::uint32_t number) {
        FaultyFileOperations disk;
        disk.skipSyncs();
        DiskStore::write(generation(number), file, nullptr, disk);
        shared->completed = number;
    }

    /// The life of the writing process: saves one generation after the other until it dies.
    [[noreturn]] void live(const Way& way) {
        FaultyFileOperations disk;
        if (!way.links)
            disk.refuseLinks();
        if (!way.syncs)
            disk.skipSyncs();
        disk.beforeStep = [&](std::size_t step, const std::string&) {
            shared->steps = static_cast<std::uint32_t>(step);
            if (step == way.dieAtStep)
                ::raise(SIGKILL);
        };
        SavedFile memory;
        for (std::uint32_t next = shared->completed + 1;; ++next) {
            const Library library = generation(next);
            shared->begun = next;
            try {
                DiskStore::write(library, file, way.remembers ? &memory : nullptr, disk);
            } catch (const std::exception&) {
                ::_exit(1);
            }
            shared->completed = next;
        }
    }

    /// Starts a writer, kills it and looks at what it left. Answers whether it died inside a write.
    bool killOnce(const Way& way, std::chrono::microseconds after) {
        shared->begun = shared->completed.load();
        shared->steps = 0;
        const pid_t writer = ::fork();
        if (writer == 0)
            live(way);
        EXPECT_GT(writer, 0);
        if (way.dieAtStep == 0) {
            while (shared->steps == 0)
                ::sched_yield();
            const auto moment = std::chrono::steady_clock::now() + after;
            while (std::chrono::steady_clock::now() < moment)
                ::sched_yield();
            ::kill(writer, SIGKILL);
        }
        int status = 0;
        while (::waitpid(writer, &status, 0) == -1 && errno == EINTR) {
        }
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
            << "the writer ended by itself: " << status;
        const bool inside = shared->begun > shared->completed;
        expectWholeGenerations(inside);
        return inside;
    }

    void expectWholeGenerations(bool inside) {
        const std::uint32_t completed = shared->completed;
        const auto current = generationIn(file, completed + 1);
        ASSERT_TRUE(current) << "the file is no whole generation";
        ASSERT_TRUE(*current == completed || (inside && *current == completed + 1))
            << *current << " instead of " << completed;
        if (*current > completed)
            ++foundNew;
        const fs::path previous = DiskStore::previousOf(file);
        if (fs::exists(previous)) {
            const auto kept = generationIn(previous, completed + 1);
            ASSERT_TRUE(kept) << "the previous file is no whole generation";
            // The one in front of the current one, or already the current one, which is about to be replaced.
            ASSERT_TRUE(*kept + 1 == *current || (*kept == *current && *current == completed))
                << *kept << " beside " << *current;
        } else {
            ASSERT_EQ(*current, 1U);
        }
        if (!support::temporaryNamesIn(folder.path()).empty())
            ++leftTemporary;

        // The next writer reads the file whole and carries on over whatever was left.
        write(*current + 1);
        ASSERT_TRUE(contentOf(file) == bytesOf(*current + 1));
        ASSERT_TRUE(contentOf(previous) == bytesOf(*current));
        ASSERT_EQ(support::namesIn(folder.path()),
                  (std::vector<std::string>{"library.json", "library.json.previous"}));
    }

    support::TemporaryFolder folder;
    fs::path file = folder / "library.json";
    SharedProgress shared;
    int foundNew = 0;
    int leftTemporary = 0;
};

TEST_F(KilledWriter, LeavesWholeGenerationsAtEveryStep) {
    int kills = 0;
    for (const Way& way :
         {Way{true, true, false}, Way{true, false, true}, Way{false, true, true}, Way{false, false, false}}) {
        FaultyFileOperations counting;
        if (!way.links)
            counting.refuseLinks();
        DiskStore::write(generation(shared->completed + 1), file, nullptr, counting);
        ++shared->completed;
        for (std::uint32_t step = 1; step <= counting.steps(); ++step) {
            Way dying = way;
            dying.dieAtStep = step;
            EXPECT_TRUE(killOnce(dying, {})) << "step " << step;
            ++kills;
            if (HasFatalFailure())
                return;
        }
    }
    RecordProperty("kills", kills);
    std::cout << kills << " kills, one at each step; " << leftTemporary << " left temporary files, "
              << foundNew << " the new generation\n";
    EXPECT_GT(kills, 60);
    EXPECT_GT(leftTemporary, 20);
    EXPECT_GT(foundNew, 0);
}

TEST_F(KilledWriter, LeavesWholeGenerationsAtAnyMoment) {
    constexpr int atRandomSteps = 40;
    constexpr int atRandomMoments = 100;
    support::RandomRecords random(11);
    int inside = 0;
    for (int round = 0; round < atRandomSteps + atRandomMoments; ++round) {
        Way way;
        way.links = random.chance(0.7);
        way.remembers = random.chance(0.5);
        way.syncs = random.chance(0.5);
        if (round < atRandomSteps)
            way.dieAtStep = static_cast<std::uint32_t>(random.number(1, 90));
        inside += killOnce(way, std::chrono::microseconds(random.number(0, 12'000))) ? 1 : 0;
        if (HasFatalFailure())
            return;
    }
    const int kills = atRandomSteps + atRandomMoments;
    RecordProperty("kills", kills);
    RecordProperty("inside", inside);
    std::cout << kills << " kills, " << inside << " inside a write; " << leftTemporary
              << " left temporary files, " << foundNew << " the new generation; " << shared->completed
              << " generations in all\n";
    EXPECT_GE(kills, 140);
    EXPECT_GE(inside, kills / 2);
}

}  // namespace
}  // namespace vantry
