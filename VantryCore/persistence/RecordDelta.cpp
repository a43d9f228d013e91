#include "VantryCore/persistence/RecordDelta.h"

#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/RecordValue.h"

namespace vantry {
namespace {

/// The record behind an element of a list.
template <class T>
const T& recordOf(const T& element) {
    return element;
}

template <class T>
const T& recordOf(const Node<T>& element) {
    return *element;
}

template <class T>
inline constexpr bool isNode = false;
template <class T>
inline constexpr bool isNode<Node<T>> = true;

template <class T>
concept Identified = requires(const T& element) {
    recordOf(element).id;
};

// Each `revert` below brings `current` to what the rules make of it.

template <class T>
void revert(const T& before, const T& after, T& current);

template <class T>
void revertKey(const T& before, const T& after, T& current) {
    revert(before, after, current);
}

/// An absent optional is a missing key.
template <class T>
void revertKey(const std::optional<T>& before, const std::optional<T>& after, std::optional<T>& current) {
    if (before && after && current)
        revert(*before, *after, *current);
    else if (before && !after && !current)
        current = before;
    else if (!before && after && current && *current == *after)
        current.reset();
}

template <Record T>
void revertFields(const T& before, const T& after, T& current) {
    forEachField<T>([&](const auto& f) { revertKey(before.*f.member, after.*f.member, current.*f.member); });
}

void revertMap(const TextMap& before, const TextMap& after, TextMap& current) {
    std::vector<TextMap::Entry> result;
    for (const auto& [key, is] : current) {
        const Text* was = before.find(key.utf8());
        const Text* became = after.find(key.utf8());
        if (was == nullptr && became != nullptr && is == *became)
            continue;
        Text value = is;
        if (was != nullptr && became != nullptr)
            revert(*was, *became, value);
        result.emplace_back(key, std::move(value));
    }
    for (const auto& [key, was] : before)
        if (after.find(key.utf8()) == nullptr && current.find(key.utf8()) == nullptr)
            result.emplace_back(key, was);
    current = TextMap(std::move(result));
}

template <class T>
using Places = std::unordered_map<Identifier, const T*>;

/// The elements by identifier, or nothing when two share one.
template <Identified T>
std::optional<Places<T>> placesOf(const std::vector<T>& list) {
    Places<T> places;
    places.reserve(list.size());
    for (const auto& element : list)
        if (!places.emplace(recordOf(element).id, &element).second)
            return std::nullopt;
    return places;
}

template <Identified T>
std::vector<Identifier> identifiersIn(const std::vector<T>& list, const Places<T>& also) {
    std::vector<Identifier> identifiers;
    for (const auto& element : list)
        if (also.contains(recordOf(element).id))
            identifiers.push_back(recordOf(element).id);
    return identifiers;
}

/// Puts back what the change removed, each behind its nearest old neighbour that is there. Walks `before`
/// once and keeps, for every element of the result, what is to stand directly behind it.
template <Identified T>
void restoreRemoved(std::vector<T>& result, const std::vector<T>& before, const Places<T>& afterPlaces) {
    Places<T> present;
    for (const auto& element : result)
        present.emplace(recordOf(element).id, &element);
    std::optional<Identifier> neighbour;
    std::vector<T> front;
    std::unordered_map<Identifier, std::vector<T>> behind;
    bool anyRemoved = false;
    for (const auto& element : before) {
        const Identifier id = recordOf(element).id;
        if (present.contains(id)) {
            neighbour = id;
        } else if (!afterPlaces.contains(id)) {
            anyRemoved = true;
            (neighbour ? behind[*neighbour] : front).push_back(element);
        }
    }
    if (!anyRemoved)
        return;
    std::vector<T> restored = std::move(front);
    for (auto& element : result) {
        const Identifier id = recordOf(element).id;
        restored.push_back(std::move(element));
        if (const auto found = behind.find(id); found != behind.end())
            restored.insert(restored.end(), found->second.begin(), found->second.end());
    }
    result = std::move(restored);
}

template <Identified T>
void restoreOrder(std::vector<T>& result, const std::vector<T>& before, const Places<T>& beforePlaces) {
    std::unordered_map<Identifier, std::size_t> indexes;
    for (std::size_t i = 0; i < result.size(); ++i)
        indexes.emplace(recordOf(result[i]).id, i);
    std::vector<T> ordered;
    for (const auto& element : before)
        if (const auto found = indexes.find(recordOf(element).id); found != indexes.end())
            ordered.push_back(result[found->second]);
    std::size_t next = 0;
    for (auto& element : result)
        if (beforePlaces.contains(recordOf(element).id))
            element = std::move(ordered[next++]);
}

/// Lists of the same records in the same places need no matching: their elements are reverted one by one.
template <Identified T>
bool holdSameRecords(const std::vector<T>& before, const std::vector<T>& after,
                     const std::vector<T>& current) {
    if (before.size() != after.size() || after.size() != current.size())
        return false;
    for (std::size_t i = 0; i < before.size(); ++i)
        if (!(recordOf(before[i]).id == recordOf(after[i]).id &&
              recordOf(after[i]).id == recordOf(current[i]).id))
            return false;
    return true;
}

template <Identified T>
void revertList(const std::vector<T>& before, const std::vector<T>& after, std::vector<T>& current) {
    const auto beforePlaces = placesOf(before);
    const auto afterPlaces = placesOf(after);
    if (!beforePlaces || !afterPlaces || !placesOf(current))
        return;
    if (holdSameRecords(before, after, current)) {
        for (std::size_t i = 0; i < current.size(); ++i)
            revert(before[i], after[i], current[i]);
        return;
    }
    std::vector<T> result;
    result.reserve(current.size());
    for (auto& element : current) {
        const Identifier id = recordOf(element).id;
        const auto was = beforePlaces->find(id);
        const auto became = afterPlaces->find(id);
        if (was == beforePlaces->end() && became != afterPlaces->end())
            continue;
        if (was != beforePlaces->end() && became != afterPlaces->end())
            revert(*was->second, *became->second, element);
        result.push_back(std::move(element));
    }
    restoreRemoved(result, before, *afterPlaces);
    if (identifiersIn(before, *afterPlaces) != identifiersIn(after, *beforePlaces))
        restoreOrder(result, before, *beforePlaces);
    current = std::move(result);
}

template <class T>
void revertInside(const T& before, const T& after, T& current) {
    if constexpr (Record<T>)
        revertFields(before, after, current);
    else if constexpr (std::is_same_v<T, TextMap>)
        revertMap(before, after, current);
    else if constexpr (isNode<T>)
        revertInside(*before, *after, current.edit());
    // Everything else is one value, or a list of such: changed on both sides it stays.
}

template <class T>
void revertInside(const std::vector<T>& before, const std::vector<T>& after, std::vector<T>& current) {
    if constexpr (Identified<T>)
        revertList(before, after, current);
}

template <class T>
void revert(const T& before, const T& after, T& current) {
    if (before == after)
        return;
    if (current == after)
        current = before;
    else
        revertInside(before, after, current);
}

RecordValue valueOf(const Library& library) {
    return Codec::decode<RecordValue>(Codec::encode(library));
}

}  // namespace

Library RecordDelta::undo(const Library& before, const Library& after, const Library& current) {
    KnownValid known;
    return undo(before, after, current, known);
}

Library RecordDelta::undo(const Library& before, const Library& after, const Library& current,
                          KnownValid& known) {
    Library result = current;
    revert(before, after, result);
    known.accept(result);
    return result;
}

Library RecordDelta::undoByValues(const Library& before, const Library& after, const Library& current) {
    const RecordValue was = valueOf(before);
    const RecordValue became = valueOf(after);
    const RecordValue result = RecordValue::revert(was, became, valueOf(current));
    auto library = Codec::decode<Library>(Codec::encode(result));
    validate(library);
    return library;
}

}  // namespace vantry
