#include <malloc.h>

#include <algorithm>
#include <array>
#include <random>
#include <stdexcept>
#include <vector>

#include <benchmark/benchmark.h>
#include <openssl/evp.h>

#include <QByteArray>
#include <QCryptographicHash>

#include "VantryCore/persistence/Merge.h"
#include "VantryCore/persistence/RecordDelta.h"
#include "VantryCore/persistence/VantryBackup.h"
#include "bench/Workload.h"

namespace vantry::bench {
namespace {

constexpr std::size_t mostBytesByValues = 30'000'000;  // beyond, the plain form needs gigabytes
constexpr std::size_t divergedTakes = 1000;
constexpr std::size_t imageCount = 18;
constexpr std::size_t imageSize = 5'000'000;

/// A shot deleted, and a note typed elsewhere since.
struct DeletedShot {
    Library before, after, current;

    explicit DeletedShot(const Library& library)
        : before(library)
        , after(library) {
        const auto places = takePlaces(library);
        const TakePlace& deleted = places[places.size() / 2];
        auto& shots = after.projects[deleted.project].edit().acts[deleted.act].edit().shots;
        shots.erase(shots.begin() + static_cast<std::ptrdiff_t>(deleted.shot));
        current = after;
        typeInto(current, places.front());
    }
};

void undoDeletion(benchmark::State& state, const Workload& work) {
    const DeletedShot change(work.library);
    KnownValid known;
    for (auto _ : state) {
        state.PauseTiming();
        known.accept(change.current);
        state.ResumeTiming();
        Library result = RecordDelta::undo(change.before, change.after, change.current, known);
        benchmark::DoNotOptimize(result);
    }
}

void undoByValues(benchmark::State& state, const Workload& work) {
    const DeletedShot change(work.library);
    for (auto _ : state)
        benchmark::DoNotOptimize(RecordDelta::undoByValues(change.before, change.after, change.current));
}

/// What the history of twenty small structural changes holds in memory.
void historyMemory(benchmark::State& state, const Workload& work) {
    const auto places = takePlaces(work.library);
    double grown = 0;
    for (auto _ : state) {
        Library library = work.library;
        std::vector<std::pair<Library, Library>> entries;
        const std::size_t before = ::mallinfo2().uordblks + ::mallinfo2().hblkhd;
        for (std::size_t i = 0; i < 20; ++i) {
            const Library snapshot = library;
            const TakePlace& place = places[i * (places.size() - 1) / 19];
            auto& takes =
                library.projects[place.project].edit().acts[place.act].edit().shots[place.shot].edit().takes;
            takes.push_back(takes.front());
            entries.emplace_back(snapshot, library);
        }
        grown = static_cast<double>(::mallinfo2().uordblks + ::mallinfo2().hblkhd - before);
        benchmark::DoNotOptimize(entries);
    }
    state.counters["bytes"] = grown;
}

void mergeEqual(benchmark::State& state, const Workload& work) {
    const auto incoming = decodePadded<Library>(work.bytes);
    KnownValid known;
    known.accept(work.library);
    for (auto _ : state) {
        Library local = work.library;
        if (Merge::apply(incoming, local, known).added != 0)
            throw std::runtime_error("an equal library added something");
    }
}

void mergeDiverged(benchmark::State& state, const Workload& work) {
    auto incoming = decodePadded<Library>(work.bytes);
    const auto places = takePlaces(incoming);
    const std::size_t count = std::min(divergedTakes, places.size());
    for (std::size_t i = 0; i < count; ++i)
        typeInto(incoming, places[i * places.size() / count]);
    KnownValid known;
    for (auto _ : state) {
        state.PauseTiming();
        known.accept(work.library);
        Library local = work.library;
        state.ResumeTiming();
        if (Merge::apply(incoming, local, known).conflicts != static_cast<std::int64_t>(count))
            throw std::runtime_error("not every differing take was kept");
    }
    state.counters["copies"] = static_cast<double>(count);
}

void knowAll(benchmark::State& state, const Workload& work) {
    for (auto _ : state) {
        KnownValid known;
        known.accept(work.library);
    }
}

/// A library whose first shots have images of noise, 90 MB together.
const VantryBackup& backupWithImages(const Workload& work) {
    static const VantryBackup backup = [&work] {
        std::mt19937_64 random(1);
        Library library = work.library;
        for (auto& project : library.projects)
            for (auto& act : project.edit().acts)
                for (auto& shot : act.edit().shots)
                    shot.edit().imageKey.reset();
        Media media;
        auto& shots = library.projects[0].edit().acts[0].edit().shots;
        for (std::size_t i = 0; i < std::min(imageCount, shots.size()); ++i) {
            Bytes bytes(imageSize);
            std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<std::uint8_t>(random()); });
            const std::string key = Codec::hash(bytes);
            shots[i].edit().imageKey = Text(key);
            media[key] = std::move(bytes);
        }
        return VantryBackup(std::move(library), std::move(media));
    }();
    return backup;
}

void countImages(benchmark::State& state, const VantryBackup& backup) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(backup.media.size() * imageSize));
}

void encodeBackup(benchmark::State& state, const Workload& work) {
    const VantryBackup& backup = backupWithImages(work);
    for (auto _ : state)
        benchmark::DoNotOptimize(VantryBackup::encode(backup));
    countImages(state, backup);
}

void decodeBackup(benchmark::State& state, const Workload& work) {
    const VantryBackup& backup = backupWithImages(work);
    const std::string file = VantryBackup::encode(backup);
    for (auto _ : state)
        benchmark::DoNotOptimize(VantryBackup::decodePadded(file));
    countImages(state, backup);
}

void base64ByQt(benchmark::State& state, const Workload& work) {
    const VantryBackup& backup = backupWithImages(work);
    for (auto _ : state)
        for (const auto& [key, bytes] : backup.media)
            benchmark::DoNotOptimize(QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                                             static_cast<qsizetype>(bytes.size()))
                                         .toBase64());
    countImages(state, backup);
}

const Bytes& oneImage() {
    static const Bytes image(imageSize, 0x5A);
    return image;
}

void hashOurs(benchmark::State& state, const Workload&) {
    for (auto _ : state)
        benchmark::DoNotOptimize(Codec::hash(oneImage()));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(imageSize));
}

void hashByOpenssl(benchmark::State& state, const Workload&) {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned int length = 0;
    for (auto _ : state) {
        EVP_Digest(oneImage().data(), imageSize, digest.data(), &length, EVP_sha256(), nullptr);
        benchmark::DoNotOptimize(digest);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(imageSize));
}

void hashByQt(benchmark::State& state, const Workload&) {
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(oneImage().data()), imageSize);
    for (auto _ : state)
        benchmark::DoNotOptimize(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(imageSize));
}

}  // namespace

void registerExchange(const Workload& work) {
    const auto add = [&work](const char* name, auto function) {
        return benchmark::RegisterBenchmark(
            name, [&work, function](benchmark::State& state) { function(state, work); });
    };
    add("undo/ours", undoDeletion)->Unit(benchmark::kMicrosecond);
    if (work.bytes.size() <= mostBytesByValues)
        add("undo/by-values", undoByValues)->Unit(benchmark::kMicrosecond);
    add("undo/history-memory", historyMemory)->Iterations(1);
    add("merge/equal", mergeEqual)->Unit(benchmark::kMillisecond);
    add("merge/diverged", mergeDiverged)->Unit(benchmark::kMillisecond);
    add("merge/identifiers-once", knowAll)->Unit(benchmark::kMillisecond);
    // The same images whatever the library: one size is enough, and the file stays within its limit.
    if (work.bytes.size() <= mostBytesByValues) {
        add("backup/encode-images", encodeBackup)->Unit(benchmark::kMillisecond);
        add("backup/decode-images", decodeBackup)->Unit(benchmark::kMillisecond);
        add("backup/base64-by-qt", base64ByQt)->Unit(benchmark::kMillisecond);
        add("hash/ours", hashOurs)->Unit(benchmark::kMillisecond);
        add("hash/openssl", hashByOpenssl)->Unit(benchmark::kMillisecond);
        add("hash/qt", hashByQt)->Unit(benchmark::kMillisecond);
    }
}

}  // namespace vantry::bench
