#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "VantryCore/records/Library.h"

namespace vantry::bench {

/// The library that all benchmarks of one run work on, in both its forms.
struct Workload {
    std::filesystem::path file;
    std::filesystem::path scratch;  ///< a folder of our own, on the disk that is measured
    std::string bytes;              ///< of the file, with room for decoding in place behind them
    Library library;

    /// Reads the file. Throws what reading it throws.
    [[nodiscard]] static Workload load(const std::filesystem::path& file);
};

/// Where a take stands, by positions.
struct TakePlace {
    std::size_t project = 0, act = 0, shot = 0, take = 0;
};
/// All takes of a library, in order.
[[nodiscard]] std::vector<TakePlace> takePlaces(const Library& library);
/// Types one character at the end of that take's notes, by the identifiers, as the program does it.
void typeInto(Library& library, const TakePlace& place);

// Each adds its benchmarks; `work` must outlive their run.
void registerDecoding(const Workload& work);
void registerDocuments(const Workload& work);
void registerEncoding(const Workload& work);
void registerExchange(const Workload& work);
void registerKeystrokes(const Workload& work);
void registerNotes(const Workload& work);
void registerSaving(const Workload& work);
void registerValidation(const Workload& work);
void registerWindow(const Workload& work);

}  // namespace vantry::bench
