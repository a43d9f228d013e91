#include "VantryCore/records/TextMap.h"

#include <algorithm>

namespace vantry {
namespace {

bool isAsciiKey(std::string_view key) {
    return std::all_of(key.begin(), key.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

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
    return std::all_of(a.begin(), a.end(), [&b](const TextMap::Entry& entry) {
        const Text* other = b.find(entry.first.utf8());
        return other != nullptr && *other == entry.second;
    });
}

}  // namespace vantry
