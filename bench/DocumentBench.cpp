#include <malloc.h>

#include <algorithm>
#include <fstream>

#include <benchmark/benchmark.h>

#include "Vantry/documents/PDFExport.h"
#include "Vantry/documents/PDFWriter.h"
#include "Vantry/schedule/rules/DayCounts.h"
#include "bench/Workload.h"

namespace vantry::bench {
namespace {

constexpr std::size_t mostBytesOfDocuments = 30'000'000;  // the pages of larger libraries are no others
constexpr std::size_t shotsOfReport = 400;
constexpr int daysOfMonth = 42;

/// A production of the library's own shots, as many as make some hundred pages.
Project makeProduction(const Library& library) {
    Project production = *library.projects.front();
    auto& shots = production.acts.front().edit().shots;
    shots.clear();
    while (shots.size() < shotsOfReport)
        for (const auto& shot : library.projects.front()->shots())
            if (shots.size() < shotsOfReport)
                shots.push_back(shot);
    production.acts.resize(1);
    return production;
}

/// What the process holds in memory that is its own, in bytes.
double ownMemory() {
    ::malloc_trim(0);
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word)
        if (word == "RssAnon:") {
            double kilobytes = 0;
            status >> kilobytes;
            return kilobytes * 1024;
        }
    return 0;
}

void writeReport(benchmark::State& state, const Workload& work) {
    const Project production = makeProduction(work.library);
    const DocumentSetting setting{false, Moment{}, *Zone::find("UTC")};
    double pages = 0;
    double memory = 0;
    double bytes = 0;
    for (auto _ : state) {
        const double before = ownMemory();
        PDFWriter writer(setting.now);
        PDFExport::write(production, true, setting, writer);
        pages += writer.pageNumber();
        memory = std::max(memory, ownMemory() - before);
        const QByteArray document = writer.finish();
        bytes = static_cast<double>(document.size());
        memory = std::max(memory, ownMemory() - before);
    }
    state.counters["pages_per_second"] = benchmark::Counter(pages, benchmark::Counter::kIsRate);
    state.counters["memory_beyond_document"] = memory - bytes;
}

/// The days of the calendar page in the middle of the library's shoots.
std::vector<DayInterval> month(const std::vector<ShotLocation>& shots, const Calendar& calendar) {
    std::vector<Moment> starts;
    for (const auto& location : shots)
        if (location.shot->scheduledAt)
            starts.push_back(*location.shot->scheduledAt);
    std::sort(starts.begin(), starts.end());
    std::vector<DayInterval> days;
    auto day = calendar.day(starts.empty() ? Moment{} : starts[starts.size() / 2]);
    while (day && days.size() < daysOfMonth) {
        days.push_back(*day);
        day = calendar.day(day->end);
    }
    return days;
}

void countMonth(benchmark::State& state, const Workload& work) {
    const Calendar calendar(*Zone::find("Asia/Shanghai"));
    const auto days = month(locations(work.library), calendar);
    for (auto _ : state)
        benchmark::DoNotOptimize(countLibraryDays(days, work.library));
}

}  // namespace

void registerDocuments(const Workload& work) {
    if (work.bytes.size() <= mostBytesOfDocuments)
        benchmark::RegisterBenchmark("document/report", [&work](auto& state) {
            writeReport(state, work);
        })->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("schedule/month", [&work](auto& state) {
        countMonth(state, work);
    })->Unit(benchmark::kMillisecond);
}

}  // namespace vantry::bench
