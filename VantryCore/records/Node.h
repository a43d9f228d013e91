#pragma once

#include <memory>
#include <utility>
#include <vector>

namespace vantry {

/// A value that is shared until it is edited. Copies are pointer copies; reading never detaches; `edit()` is
/// the one way to change the value and copies it first when somebody else holds it too.
/// Equality looks at the pointer before the value.
template <class T>
class Node {
public:
    Node()
        : shared(std::make_shared<T>()) {}
    Node(T value)
        : shared(std::make_shared<T>(std::move(value))) {}

    [[nodiscard]] const T& operator*() const noexcept { return *shared; }
    [[nodiscard]] const T* operator->() const noexcept { return shared.get(); }

    /// The value for changing it in place. The reference is valid until this node is copied or destroyed.
    [[nodiscard]] T& edit() {
        if (shared.use_count() != 1)
            shared = std::make_shared<T>(std::as_const(*shared));
        return *shared;
    }

    /// Whether both are the very same value in memory, which makes them equal without a look.
    [[nodiscard]] bool isSameAs(const Node& other) const noexcept { return shared == other.shared; }
    /// Holds the value alive and counts as a sharer, so that the next edit copies. The only safe cache key.
    [[nodiscard]] std::shared_ptr<const T> handle() const noexcept { return shared; }

    friend bool operator==(const Node& a, const Node& b) { return a.shared == b.shared || *a == *b; }

private:
    std::shared_ptr<T> shared;
};

/// A list of records of the tree.
template <class T>
using NodeList = std::vector<Node<T>>;

/// The position of the record with that identifier, or the size of the list.
template <class List, class Id>
[[nodiscard]] std::size_t indexOfRecord(const List& list, const Id& id) {
    std::size_t index = 0;
    while (index < list.size() && !(list[index]->id == id))
        ++index;
    return index;
}

/// The record with that identifier, first match, or null. Valid until the list changes.
template <class T, class Id>
[[nodiscard]] const T* findRecord(const NodeList<T>& list, const Id& id) {
    const std::size_t index = indexOfRecord(list, id);
    return index < list.size() ? &*list[index] : nullptr;
}

/// The record with that identifier for changing it in place, or null when there is none.
template <class T, class Id>
[[nodiscard]] T* editRecord(NodeList<T>& list, const Id& id) {
    const std::size_t index = indexOfRecord(list, id);
    return index < list.size() ? &list[index].edit() : nullptr;
}

}  // namespace vantry
