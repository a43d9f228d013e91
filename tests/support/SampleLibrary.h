#pragma once

#include <filesystem>
#include <string>
#include <type_traits>

#include "VantryCore/records/Library.h"

namespace vantry::support {

/// The sample library that comes with the program, as its bytes.
[[nodiscard]] const std::string& sampleFileBytes();
[[nodiscard]] const Library& sampleLibrary();
/// The beginning of the sample, cut down to about that many bytes of JSON.
[[nodiscard]] Library smallSample(std::size_t bytes);

/// A small valid library in which every optional field of every record is there and every list holds
/// something. The same at each call, identifiers included.
[[nodiscard]] Library completeLibrary();

/// The first record of each type in `completeLibrary()`.
template <class T>
[[nodiscard]] T completeRecord();

/// A library with one production of that title; identifiers are the same at each call.
[[nodiscard]] Library libraryTitled(const std::string& title);

}  // namespace vantry::support
