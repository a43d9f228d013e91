#pragma once

#include <utility>
#include <vector>

#include "VantryCore/records/Text.h"

namespace vantry {

/// A map from text to text whose keys are told apart by canonical equivalence: "é" is one key, however it is
/// written. It is a value; iteration goes in the order of Unicode scalar values of the keys.
class TextMap {
public:
    using Entry = std::pair<Text, Text>;

    TextMap() = default;
    /// The map of these entries; of equivalent keys the last one wins. Takes n log n steps, whatever they
    /// hold.
    explicit TextMap(std::vector<Entry> unsorted);

    /// Stores `value` under `key`. An equivalent key that was there is replaced, its spelling too.
    void set(Text key, Text value);
    /// The value of `key`, or null when there is none. Valid until the next `set`.
    [[nodiscard]] const Text* find(std::string_view key) const;
    /// The value of `key`, or the empty text when there is none.
    [[nodiscard]] const Text& operator[](std::string_view key) const;

    [[nodiscard]] std::size_t size() const noexcept { return entries.size(); }
    [[nodiscard]] bool empty() const noexcept { return entries.empty(); }
    [[nodiscard]] auto begin() const noexcept { return entries.begin(); }
    [[nodiscard]] auto end() const noexcept { return entries.end(); }

    /// Whether both hold equal values under the same keys. An absent key and an empty value differ.
    friend bool operator==(const TextMap& a, const TextMap& b);

private:
    [[nodiscard]] std::size_t indexOf(std::string_view key) const;

    std::vector<Entry> entries;  ///< ascending by the bytes of the key, which is the order of scalar values
    bool onlyAsciiKeys = true;
};

}  // namespace vantry
