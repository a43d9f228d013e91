#include <algorithm>
#include <chrono>
#include <random>
#include <stdexcept>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/CountingDisk.h"
#include "bench/Workload.h"

namespace vantry::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t mostKeystrokes = 3000;
constexpr double longestTyping = 2;  // seconds

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

double quantile(std::vector<double> samples, double part) {
    const auto at = static_cast<std::ptrdiff_t>(part * static_cast<double>(samples.size() - 1));
    std::nth_element(samples.begin(), samples.begin() + at, samples.end());
    return samples[static_cast<std::size_t>(at)];
}

/// One character typed into the notes of some take: the edit under a held snapshot, the question whether
/// there is something to save, and the snapshot that undo keeps. Types for a while; the time is the median.
void keystroke(benchmark::State& state, const Workload& work) {
    const auto places = takePlaces(work.library);
    std::mt19937 random(1);
    std::uniform_int_distribution<std::size_t> any(0, places.size() - 1);
    const Library saved = work.library;
    Library library = work.library;
    Library undo = library;
    std::vector<double> samples;
    double total = 0;
    for (auto _ : state) {
        while (samples.size() < mostKeystrokes && total < longestTyping) {
            const TakePlace place = places[any(random)];
            const auto start = Clock::now();
            typeInto(library, place);
            const bool dirty = !(library == saved);
            undo = library;
            samples.push_back(secondsSince(start));
            total += samples.back();
            if (!dirty)
                throw std::runtime_error("a keystroke went unnoticed");
        }
        state.SetIterationTime(quantile(samples, 0.5));
    }
    benchmark::DoNotOptimize(undo);
    state.counters["median_us"] = quantile(samples, 0.5) * 1e6;
    state.counters["p99_us"] = quantile(samples, 0.99) * 1e6;
    state.counters["keystrokes"] = static_cast<double>(samples.size());
}

template <class T>
Node<T> deepCopy(const Node<T>& node) {
    return Node<T>(*node);
}

/// A library that shares nothing with the other one.
Library deepCopy(const Library& library) {
    Library copy = library;
    for (auto& project : copy.projects) {
        for (auto& act : project.edit().acts) {
            for (auto& shot : act.edit().shots)
                for (auto& take : shot.edit().takes)
                    take = deepCopy(take);
        }
    }
    return copy;
}

void copyDeeply(benchmark::State& state, const Workload& work) {
    for (auto _ : state) {
        Library copy = deepCopy(work.library);
        benchmark::DoNotOptimize(copy);
        state.PauseTiming();
        copy = {};
        state.ResumeTiming();
    }
}

/// What a save costs that finds nothing to do: the question whether anything changed and a look at the file.
void cleanFlush(benchmark::State& state, const Workload& work) {
    const Library saved = work.library;
    const Library library = work.library;
    CountingDisk disk;
    for (auto _ : state) {
        const bool dirty = !(library == saved);
        const auto status = disk.status(work.file);
        if (dirty || !status)
            throw std::runtime_error("nothing changed, and the file is there");
    }
    state.counters["bytes_written"] = static_cast<double>(disk.bytesWritten);
}

void oneStatus(benchmark::State& state, const Workload& work) {
    FileOperations& disk = FileOperations::system();
    for (auto _ : state)
        benchmark::DoNotOptimize(disk.status(work.file));
}

}  // namespace

void registerKeystrokes(const Workload& work) {
    const auto add = [&work](const char* name, auto function) {
        return benchmark::RegisterBenchmark(
                   name, [&work, function](benchmark::State& state) { function(state, work); })
            ->Unit(benchmark::kMicrosecond);
    };
    add("keystroke/ours", keystroke)->UseManualTime()->Iterations(1);
    add("keystroke/deep-copy", copyDeeply);
    add("flush/clean", cleanFlush);
    add("flush/one-status", oneStatus);
}

}  // namespace vantry::bench
