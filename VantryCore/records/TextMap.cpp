#include "VantryCore/records/TextMap.h"

#include <algorithm>

namespace vantry {
namespace {

bool isAsciiKey(std::string_view key) {
    unsigned char bits = 0;
    for (const char c : key)
        bits |= static_cast<unsigned char>(c);
    return bits < 0x80;
}

bool hasSmallerKey(const TextMap::Entry& a, const TextMap::Entry& b) {
    return a.first.utf8() < b.first.utf8();
}

/// The entries with their keys in NFC, ascending by it; entries of equivalent keys keep their order.
std::vector<std::pair<std::string, const TextMap::Entry*>>
byComposedKey(const std::vector<TextMap::Entry>& entries) {
    std::vector<std::pair<std::string, const TextMap::Entry*>> sorted;
    sorted.reserve(entries.size());
    for (const auto& entry : entries)
        sorted.emplace_back(composed(entry.first.utf8()), &entry);
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    return sorted;
}

}  // namespace

TextMap::TextMap(std::vector<Entry> unsorted)
    : entries(std::move(unsorted))
    , onlyAsciiKeys(std::all_of(entries.begin(), entries.end(),
                                [](const Entry& e) { return isAsciiKey(e.first.utf8()); })) {
    const bool ascending =
        std::adjacent_find(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
            return !hasSmallerKey(a, b);
        }) == entries.end();
    if (ascending && onlyAsciiKeys)
        return;
    const auto sorted = byComposedKey(entries);
    std::vector<Entry> kept;
    kept.reserve(entries.size());
    for (std::size_t i = 0; i < sorted.size(); ++i)
        if (i + 1 == sorted.size() || sorted[i].first != sorted[i + 1].first)
            kept.push_back(*sorted[i].second);
    std::sort(kept.begin(), kept.end(), hasSmallerKey);
    entries = std::move(kept);
}

std::size_t TextMap::indexOf(std::string_view key) const {
    const auto place =
        std::lower_bound(entries.begin(), entries.end(), key, [](const Entry& e, std::string_view k) {
            return std::string_view(e.first.utf8()) < k;
        });
    if (place != entries.end() && place->first.utf8() == key)
        return static_cast<std::size_t>(place - entries.begin());
    if (onlyAsciiKeys && isAsciiKey(key))
        return entries.size();
    const auto equivalent = std::find_if(entries.begin(), entries.end(), [key](const Entry& e) {
        return canonicallyEquivalent(e.first.utf8(), key);
    });
    return static_cast<std::size_t>(equivalent - entries.begin());
}

const Text* TextMap::find(std::string_view key) const {
    const std::size_t index = indexOf(key);
    return index < entries.size() ? &entries[index].second : nullptr;
}

const Text& TextMap::operator[](std::string_view key) const {
    static const Text nothing;
    const Text* value = find(key);
    return value != nullptr ? *value : nothing;
}

void TextMap::set(Text key, Text value) {
    const std::size_t index = indexOf(key.utf8());
    if (index < entries.size()) {
        if (entries[index].first.utf8() == key.utf8()) {
            entries[index].second = std::move(value);
            return;
        }
        entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(index));
    }
    onlyAsciiKeys = onlyAsciiKeys && isAsciiKey(key.utf8());
    const auto place =
        std::upper_bound(entries.begin(), entries.end(), key,
                         [](const Text& k, const Entry& e) { return k.utf8() < e.first.utf8(); });
    entries.emplace(place, std::move(key), std::move(value));
}

bool operator==(const TextMap& a, const TextMap& b) {
    if (a.entries == b.entries)
        return true;
    if (a.size() != b.size() || (a.onlyAsciiKeys && b.onlyAsciiKeys))
        return false;
    const auto left = byComposedKey(a.entries);
    const auto right = byComposedKey(b.entries);
    return std::equal(left.begin(), left.end(), right.begin(), [](const auto& x, const auto& y) {
        return x.first == y.first && x.second->second == y.second->second;
    });
}

}  // namespace vantry
