#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/VantryError.h"

namespace vantry::fuzz {

/// Ends the process, which the fuzzer reports, when a promise does not hold.
inline void demand(bool holds, const char* promise) {
    if (holds)
        return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// The lines of the input, of which there must be `count`; nothing otherwise. Our JSON forms hold no line
/// end.
inline std::optional<std::vector<std::string_view>> linesOf(std::string_view text, std::size_t count) {
    std::vector<std::string_view> lines;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    lines.push_back(text);
    return lines.size() == count ? std::optional(std::move(lines)) : std::nullopt;
}

/// One value in each line, or nothing when one cannot be read.
template <class T>
std::optional<std::vector<T>> valuesOf(std::string_view text, std::size_t count) {
    const auto lines = linesOf(text, count);
    if (!lines)
        return std::nullopt;
    std::vector<T> values;
    for (const auto line : *lines) {
        try {
            values.push_back(Codec::decode<T>(line));
        } catch (const DecodingError&) {
            return std::nullopt;
        }
    }
    return values;
}

/// What the work answers, or nothing when it is refused as content that breaks a rule.
template <class Work>
auto unlessRefused(Work&& work) -> std::optional<decltype(work())> {
    try {
        return work();
    } catch (const VantryError& failure) {
        demand(failure.which() == VantryError::Case::invalidBackup, "a refusal says that content is invalid");
        return std::nullopt;
    }
}

}  // namespace vantry::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
