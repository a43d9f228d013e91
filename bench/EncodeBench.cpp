#include <cstring>
#include <stdexcept>
#include <vector>

#include <QJsonDocument>
#include <benchmark/benchmark.h>

#include "VantryCore/persistence/Codec.h"
#include "bench/QtRecords.h"
#include "bench/RapidjsonCodec.h"
#include "bench/Workload.h"

namespace vantry::bench {
namespace {

void setBytes(benchmark::State& state, const Workload& work) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(work.bytes.size()));
}

void encodeOurs(benchmark::State& state, const Workload& work) {
    for (auto _ : state)
        benchmark::DoNotOptimize(Codec::encode(work.library).data());
    setBytes(state, work);
}

void encodeOursIntoUsedBuffer(benchmark::State& state, const Workload& work) {
    std::string buffer = Codec::encode(work.library);
    for (auto _ : state) {
        Codec::encode(work.library, buffer);
        benchmark::DoNotOptimize(buffer.data());
    }
    setBytes(state, work);
}

void encodeIntoRapidjson(benchmark::State& state, const Workload& work) {
    for (auto _ : state) {
        rapidjson::StringBuffer buffer;
        encodeByRapidjson(work.library, buffer);
        benchmark::DoNotOptimize(buffer.GetString());
    }
    setBytes(state, work);
}

QJsonDocument parseByQt(const Workload& work) {
    return QJsonDocument::fromJson(
        QByteArray::fromRawData(work.bytes.data(), static_cast<qsizetype>(work.bytes.size())));
}

void encodeByQt(benchmark::State& state, const Workload& work) {
    const auto library = qt::fromDocument(parseByQt(work));
    for (auto _ : state)
        benchmark::DoNotOptimize(qt::toDocument(library).toJson(QJsonDocument::Compact).constData());
    setBytes(state, work);
}

/// Only the last step of it: the document is there already.
void encodeByQtFromDocument(benchmark::State& state, const Workload& work) {
    const auto document = parseByQt(work);
    for (auto _ : state)
        benchmark::DoNotOptimize(document.toJson(QJsonDocument::Compact).constData());
    setBytes(state, work);
}

void copyFresh(benchmark::State& state, const Workload& work) {
    for (auto _ : state) {
        const std::string copy(work.bytes);
        benchmark::DoNotOptimize(copy.data());
    }
    setBytes(state, work);
}

void copyIntoUsedBuffer(benchmark::State& state, const Workload& work) {
    std::string copy = work.bytes;
    for (auto _ : state) {
        std::memcpy(copy.data(), work.bytes.data(), work.bytes.size());
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
    setBytes(state, work);
}

}  // namespace

void registerEncoding(const Workload& work) {
    if (Codec::encode(work.library) != work.bytes)
        throw std::runtime_error("encoding does not give the bytes that were read");
    const auto add = [&work](const char* name, auto function) {
        benchmark::RegisterBenchmark(name, [&work, function](benchmark::State& state) {
            function(state, work);
        })->Unit(benchmark::kMicrosecond);
    };
    add("encode/ours", encodeOurs);
    add("encode/ours-used-buffer", encodeOursIntoUsedBuffer);
    add("encode/rapidjson", encodeIntoRapidjson);
    add("encode/qt", encodeByQt);
    add("encode/qt-from-document", encodeByQtFromDocument);
    add("encode/copy", copyFresh);
    add("encode/copy-used-buffer", copyIntoUsedBuffer);
}

}  // namespace vantry::bench
