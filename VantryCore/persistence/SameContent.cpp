#include "VantryCore/persistence/SameContent.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/Merge.h"
#include "VantryCore/persistence/RecordValue.h"

namespace vantry {
namespace {

constexpr std::array<std::string_view, 3> identityKeys{"id", "conflictKey", "sourceID"};

constexpr bool isIdentity(std::string_view key) {
    return std::find(identityKeys.begin(), identityKeys.end(), key) != identityKeys.end();
}

template <class T>
bool same(const T& a, const T& b) {
    return a == b;
}

template <Record T>
bool same(const T& a, const T& b);
template <class T>
bool same(const Node<T>& a, const Node<T>& b);
template <class T>
bool same(const std::vector<T>& a, const std::vector<T>& b);
template <class T>
bool same(const std::optional<T>& a, const std::optional<T>& b);

/// In a map that a person fills, too, these keys count as identity, however they are spelled.
bool isIdentity(const Text& key) {
    return std::any_of(identityKeys.begin(), identityKeys.end(),
                       [&](std::string_view name) { return canonicallyEquivalent(key.utf8(), name); });
}

TextMap content(const TextMap& map) {
    std::vector<TextMap::Entry> entries;
    for (const auto& entry : map)
        if (!isIdentity(entry.first))
            entries.push_back(entry);
    return TextMap(std::move(entries));
}

bool same(const TextMap& a, const TextMap& b) {
    return a == b || content(a) == content(b);
}

template <Record T>
bool same(const T& a, const T& b) {
    bool all = true;
    forEachField<T>(
        [&](const auto& f) { all = all && (isIdentity(f.name) || same(a.*f.member, b.*f.member)); });
    return all;
}

template <class T>
bool same(const Node<T>& a, const Node<T>& b) {
    return a.isSameAs(b) || same(*a, *b);
}

template <class T>
bool same(const std::vector<T>& a, const std::vector<T>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const T& x, const T& y) { return same(x, y); });
}

template <class T>
bool same(const std::optional<T>& a, const std::optional<T>& b) {
    return a.has_value() == b.has_value() && (!a || same(*a, *b));
}

template <class T>
const T& comparable(const T& record) {
    return record;
}

Project comparable(const Project& project) {
    return Merge::comparableProject(project);
}

template <class T>
RecordValue contentOf(const T& record) {
    return Codec::decode<RecordValue>(Codec::encode(record)).withoutIdentity();
}

}  // namespace

template <class T>
bool sameContent(const T& a, const T& b) {
    return same(comparable(a), comparable(b));
}

template <class T>
bool sameContentByValues(const T& a, const T& b) {
    return contentOf(comparable(a)) == contentOf(comparable(b));
}

template bool sameContent(const Project&, const Project&);
template bool sameContent(const Act&, const Act&);
template bool sameContent(const Shot&, const Shot&);
template bool sameContent(const VantryTake&, const VantryTake&);
template bool sameContentByValues(const Project&, const Project&);
template bool sameContentByValues(const Act&, const Act&);
template bool sameContentByValues(const Shot&, const Shot&);
template bool sameContentByValues(const VantryTake&, const VantryTake&);

}  // namespace vantry
