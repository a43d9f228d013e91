#include <exception>
#include <iostream>

#include <benchmark/benchmark.h>

#include "bench/Workload.h"

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    if (count != 2) {
        std::cerr << "usage: vantry-bench [--benchmark_...] LIBRARY.json\n"
                     "Measures on that library. Saves go to a folder \"scratch\" beside it.\n";
        return 2;
    }
    try {
        using namespace vantry::bench;
        const Workload work = Workload::load(arguments[1]);
        registerDecoding(work);
        registerDocuments(work);
        registerEncoding(work);
        registerExchange(work);
        registerKeystrokes(work);
        registerNotes(work);
        registerSaving(work);
        registerValidation(work);
        registerWindow(work);
        benchmark::RunSpecifiedBenchmarks();
        std::filesystem::remove_all(work.scratch);
    } catch (const std::exception& failure) {
        std::cerr << arguments[1] << ": " << failure.what() << "\n";
        return 1;
    }
    return 0;
}
