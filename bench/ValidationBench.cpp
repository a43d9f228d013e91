#include <benchmark/benchmark.h>

#include "VantryCore/persistence/JsonReader.h"
#include "VantryCore/persistence/LibraryValidation.h"
#include "bench/Workload.h"

namespace vantry::bench {
namespace {

void validateAll(benchmark::State& state, const Workload& work) {
    for (auto _ : state)
        validate(work.library);
}

void validateKeystroke(benchmark::State& state, const Workload& work) {
    Library edited = work.library;
    typeInto(edited, takePlaces(work.library).back());
    KnownValid known;
    known.accept(work.library);
    const Library& before = work.library;
    for (auto _ : state) {
        known.accept(edited);
        known.accept(before);
    }
    state.SetItemsProcessed(2 * state.iterations());
}

/// Comparing two libraries that are equal and share nothing.
void compareUnshared(benchmark::State& state, const Workload& work) {
    const Library other = decodePadded<Library>(work.bytes);
    for (auto _ : state)
        benchmark::DoNotOptimize(work.library == other);
}

}  // namespace

void registerValidation(const Workload& work) {
    const auto add = [&work](const char* name, auto function) {
        benchmark::RegisterBenchmark(name, [&work, function](benchmark::State& state) {
            function(state, work);
        })->Unit(benchmark::kMicrosecond);
    };
    add("validate/all", validateAll);
    add("validate/after-keystroke", validateKeystroke);
    add("compare/unshared", compareUnshared);
}

}  // namespace vantry::bench
