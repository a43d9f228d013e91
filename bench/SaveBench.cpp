#include <cerrno>
#include <chrono>
#include <cstdint>
#include <memory>
#include <random>
#include <stdexcept>
#include <system_error>
#include <vector>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/DiskStore.h"
#include "bench/CountingDisk.h"
#include "bench/Workload.h"

namespace vantry::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int repetitionsOfSmallFiles = 41;
constexpr int repetitionsOfLargeFiles = 21;
constexpr std::size_t largeFile = 100U << 20;

/// A library that was opened and is being typed into, with its file on the disk.
struct Session {
    explicit Session(const Workload& work)
        : library(work.library)
        , places(takePlaces(work.library))
        , file(work.scratch / "ours.json") {
        // Twice, so that there is a previous generation and all buffers are in use.
        DiskStore::write(library, file, &known);
        type();
        DiskStore::write(library, file, &known);
    }

    void type() { typeInto(library, places[random() % places.size()]); }

    Library library;
    std::vector<TakePlace> places;
    std::filesystem::path file;
    SavedFile known;
    std::mt19937 random{1};
};

void saveOurs(benchmark::State& state, Session& session) {
    CountingDisk disk;
    disk.known = &session.known;
    for (auto _ : state) {
        session.type();
        const Library before = session.known.library;
        disk.oldLibrary = &before;
        const auto start = Clock::now();
        DiskStore::write(session.library, session.file, &session.known, disk);
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
    const auto each = static_cast<double>(state.iterations());
    state.counters["bytes_beyond_file"] =
        static_cast<double>(disk.bytesWritten) / each - static_cast<double>(session.known.bytes.size());
    state.counters["decodings"] = static_cast<double>(disk.decodings) / each;
    state.counters["links"] = static_cast<double>(disk.links) / each;
    state.counters["syncs"] = static_cast<double>(disk.syncs) / each;
}

void check(long result, const std::filesystem::path& path) {
    if (result < 0)
        throw std::system_error(errno, std::generic_category(), path.string());
}

/// The least that any save has to do: write, fsync, rename. The bytes are there already.
void writePlainly(std::string_view bytes, const std::filesystem::path& file) {
    std::filesystem::path temporary = file;
    temporary += ".new";
    const int descriptor = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    check(descriptor, temporary);
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        check(count, temporary);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    check(::fsync(descriptor), temporary);
    check(::close(descriptor), temporary);
    check(::rename(temporary.c_str(), file.c_str()), file);
}

void savePlainly(benchmark::State& state, const Workload& work) {
    const auto file = work.scratch / "plain.json";
    for (auto _ : state) {
        const auto start = Clock::now();
        writePlainly(work.bytes, file);
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
}

}  // namespace

void registerSaving(const Workload& work) {
    std::filesystem::remove_all(work.scratch);
    std::filesystem::create_directories(work.scratch);
    const auto session = std::make_shared<Session>(work);
    writePlainly(work.bytes, work.scratch / "plain.json");
    const int repetitions = work.bytes.size() < largeFile ? repetitionsOfSmallFiles : repetitionsOfLargeFiles;
    // One save each time: repetitions are shuffled among all benchmarks, so that no variant always stands
    // behind the same other one.
    const auto add = [repetitions](const char* name, auto function) {
        benchmark::RegisterBenchmark(name, function)
            ->Unit(benchmark::kMicrosecond)
            ->UseManualTime()
            ->Iterations(1)
            ->Repetitions(repetitions);
    };
    add("save/ours", [session](benchmark::State& state) { saveOurs(state, *session); });
    add("save/plain", [&work](benchmark::State& state) { savePlainly(state, work); });
}

}  // namespace vantry::bench
