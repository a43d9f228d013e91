#include <stdexcept>

#include <benchmark/benchmark.h>
#include <simdjson.h>

#include "VantryCore/persistence/JsonReader.h"
#include "bench/QtRecords.h"
#include "bench/RapidjsonCodec.h"
#include "bench/Workload.h"

namespace vantry::bench {
namespace {

void setBytes(benchmark::State& state, const Workload& work) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(work.bytes.size()));
}

/// What is made is destroyed outside the measured time, for ours and for the rivals alike.
template <class Decode>
void measure(benchmark::State& state, const Workload& work, Decode&& decode) {
    for (auto _ : state) {
        auto result = decode(work);
        benchmark::DoNotOptimize(result);
        state.PauseTiming();
        { const auto discarded = std::move(result); }
        state.ResumeTiming();
    }
    setBytes(state, work);
}

Library decodeOurs(const Workload& work) {
    return decodePadded<Library>(work.bytes);
}

/// The part of our own decoding that we did not write; no record is made.
simdjson::dom::parser parseBySimdjson(const Workload& work) {
    simdjson::dom::parser parser;
    if (parser.parse(work.bytes.data(), work.bytes.size(), false).error() != simdjson::SUCCESS)
        throw std::runtime_error("simdjson refuses the file");
    return parser;
}

qt::Library decodeByQt(const Workload& work) {
    const auto json = QByteArray::fromRawData(work.bytes.data(), static_cast<qsizetype>(work.bytes.size()));
    return qt::fromDocument(QJsonDocument::fromJson(json));
}

/// The rivals have to do the same work, or the comparison says nothing.
void checkRivals(const Workload& work) {
    if (!(decodeByRapidjson(work.bytes) == work.library))
        throw std::runtime_error("rapidjson reads another library");
    qsizetype takes = 0;
    for (const auto& project : decodeByQt(work).projects)
        for (const auto& act : project.acts)
            for (const auto& shot : act.shots)
                takes += shot.takes.size();
    if (static_cast<std::size_t>(takes) != takePlaces(work.library).size())
        throw std::runtime_error("Qt reads another library");
}

}  // namespace

void registerDecoding(const Workload& work) {
    checkRivals(work);
    const auto add = [&work](const char* name, auto decode) {
        benchmark::RegisterBenchmark(name, [&work, decode](benchmark::State& state) {
            measure(state, work, decode);
        })->Unit(benchmark::kMicrosecond);
    };
    add("decode/ours", decodeOurs);
    add("decode/rapidjson", [](const Workload& w) { return decodeByRapidjson(w.bytes); });
    add("decode/qt", decodeByQt);
    add("decode/simdjson-dom-alone", parseBySimdjson);
}

}  // namespace vantry::bench
