#include "VantryCore/persistence/Merge.h"

#include <algorithm>
#include <optional>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/RetainedCopy.h"
#include "VantryCore/persistence/SameContent.h"
#include "VantryCore/records/Identifiers.h"

namespace vantry {
namespace {

/// The records inside a record; of a constant one they are constant.
template <class P>
auto& childrenOf(P& record) {
    if constexpr (std::is_same_v<std::remove_const_t<P>, Project>)
        return record.acts;
    else if constexpr (std::is_same_v<std::remove_const_t<P>, Act>)
        return record.shots;
    else
        return record.takes;
}

template <class T>
inline constexpr bool hasChildren = !std::is_same_v<T, VantryTake>;

template <class T>
std::int64_t recordCount(const T& record) {
    std::int64_t count = 1;
    if constexpr (hasChildren<T>)
        for (const auto& child : childrenOf(record))
            count += recordCount(*child);
    return count;
}

template <class T>
inline constexpr bool isChildList = false;
template <>
inline constexpr bool isChildList<NodeList<Act>> = true;
template <>
inline constexpr bool isChildList<NodeList<Shot>> = true;
template <>
inline constexpr bool isChildList<NodeList<VantryTake>> = true;

template <class T>
inline constexpr bool isOptionalList = false;
template <class T>
inline constexpr bool isOptionalList<std::optional<std::vector<T>>> = true;

/// Whether the fields of both are equal, children aside; an absent list of people equals an empty one.
template <class T>
bool haveEqualOwnFields(const T& a, const T& b) {
    bool equal = true;
    forEachField<T>([&](const auto& f) {
        using Value = typename std::decay_t<decltype(f)>::Value;
        const auto& left = a.*f.member;
        const auto& right = b.*f.member;
        if constexpr (isChildList<Value>)
            return;
        else if constexpr (isOptionalList<Value>)
            equal = equal && ((left && !left->empty()) || (right && !right->empty()) ? left == right : true);
        else
            equal = equal && left == right;
    });
    return equal;
}

/// Finds records of a list that grows at its end. Both sides mostly hold the same records in the same order,
/// so the place behind the last one found is tried first.
template <class T>
class Finder {
public:
    std::optional<std::size_t> byIdentifier(const NodeList<T>& list, const Identifier& id) {
        if (next < list.size() && list[next]->id == id)
            return next++;
        index(list);
        const auto found = places.find(id);
        if (found == places.end())
            return std::nullopt;
        next = found->second + 1;
        return found->second;
    }
    /// The places of the retained copies with that mark, ascending.
    const std::vector<std::size_t>& byConflictKey(const NodeList<T>& list, const std::string& key) {
        static const std::vector<std::size_t> none;
        index(list);
        const auto found = copies.find(key);
        return found == copies.end() ? none : found->second;
    }

private:
    void index(const NodeList<T>& list) {
        for (; indexed < list.size(); ++indexed) {
            places.emplace(list[indexed]->id, indexed);
            if (const auto& key = list[indexed]->conflictKey)
                copies[composed(key->utf8())].push_back(indexed);
        }
    }

    std::size_t next = 0;
    std::size_t indexed = 0;
    std::unordered_map<Identifier, std::size_t> places;
    std::unordered_map<std::string, std::vector<std::size_t>> copies;
};

/// A list of the local library that is copied when it changes first.
template <class T>
class GrowingList {
public:
    explicit GrowingList(const NodeList<T>& local)
        : original(local) {}

    [[nodiscard]] const NodeList<T>& now() const { return changed ? *changed : original; }
    [[nodiscard]] NodeList<T>& edit() {
        if (!changed)
            changed = original;
        return *changed;
    }
    /// The list if it changed.
    [[nodiscard]] std::optional<NodeList<T>> taken() { return std::move(changed); }

private:
    const NodeList<T>& original;
    std::optional<NodeList<T>> changed;
};

class Merger {
public:
    explicit Merger(const KnownValid& local)
        : known(local) {}

    MergeReport report;
    /// Whether records came into a retained copy. What was recognised by it before may be so no more.
    bool copiesChanged = false;

    /// What the list becomes with the incoming records brought in; nothing when it stays as it is.
    template <class T>
    std::optional<NodeList<T>> merged(const NodeList<T>& local, const NodeList<T>& incoming) {
        GrowingList<T> list(local);
        Finder<T> finder;
        for (const auto& record : incoming) {
            const auto place = finder.byIdentifier(list.now(), record->id);
            if (!place) {
                append(list, record);
                ++report.added;
            } else if (list.now()[*place].isSameAs(record)) {
                report.identical += recordCount(*record);
            } else if (haveEqualOwnFields(*list.now()[*place], *record)) {
                ++report.identical;
                mergeChildren(list, *place, *record);
            } else {
                retain(list, finder, record);
            }
        }
        return list.taken();
    }

private:
    template <class T>
    void mergeChildren(GrowingList<T>& list, std::size_t place, const T& incoming) {
        if constexpr (hasChildren<T>)
            if (auto children = merged(childrenOf(*list.now()[place]), childrenOf(incoming))) {
                copiesChanged = copiesChanged || incoming.conflictKey.has_value();
                childrenOf(list.edit()[place].edit()) = std::move(*children);
            }
    }

    template <class T>
    void append(GrowingList<T>& list, Node<T> record) {
        forEachIdentifier(*record, [this](const Identifier& id) { appended.insert(id); });
        list.edit().push_back(std::move(record));
    }

    /// Keeps a copy of a record that differs, unless one with its content is there.
    template <class T>
    void retain(GrowingList<T>& list, Finder<T>& finder, const Node<T>& record) {
        const std::string key = Codec::hash(Codec::encode(*record));
        for (const std::size_t place : finder.byConflictKey(list.now(), key)) {
            if (sameContent(*list.now()[place], *record)) {
                ++report.identical;
                return;
            }
        }
        T copy = retainedCopy(*record, key, key);
        for (int revision = 1; isAnyInUse(copy); ++revision)
            copy = retainedCopy(*record, key, key + ":revision:" + std::to_string(revision));
        append(list, Node<T>(std::move(copy)));
        ++report.conflicts;
    }

    /// Whether an identifier of the copy is one of the local library or of what this run has appended.
    template <class T>
    bool isAnyInUse(const T& copy) const {
        bool any = false;
        forEachIdentifier(
            copy, [&](const Identifier& id) { any = any || known.uses(id) || appended.contains(id); });
        return any;
    }

    const KnownValid& known;
    absl::flat_hash_set<Identifier, std::hash<Identifier>> appended;
};

template <class T>
void dropIfEmpty(std::optional<std::vector<T>>& list) {
    if (list && list->empty())
        list.reset();
}

}  // namespace

MergeReport Merge::apply(const Library& incoming, Library& local) {
    KnownValid known;
    return apply(incoming, local, known);
}

MergeReport Merge::apply(const Library& incoming, Library& local, KnownValid& known) {
    validate(incoming);
    known.accept(local);
    Merger merger(known);
    Library result = local;
    const auto bringIn = [&] {
        if (auto projects = merger.merged(result.projects, incoming.projects))
            result.projects = std::move(*projects);
    };
    bringIn();
    const std::int64_t identical = merger.report.identical;
    // What a second import would add comes at once, so that there is nothing left for it to add.
    while (std::exchange(merger.copiesChanged, false))
        bringIn();
    merger.report.identical = identical;
    known.accept(result);
    local = std::move(result);
    return merger.report;
}

Project Merge::comparableProject(const Project& project) {
    Project comparable = project;
    dropIfEmpty(comparable.crewMembers);
    dropIfEmpty(comparable.castMembers);
    dropIfEmpty(comparable.callSheetRecords);
    dropIfEmpty(comparable.relatedFileRecords);
    return comparable;
}

}  // namespace vantry
