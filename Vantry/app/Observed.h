#pragma once

#include <functional>
#include <utility>

namespace vantry {

/// A member that is watched: assigning a different value tells, assigning an equal one does nothing at all
/// and keeps the value that was there.
template <class T>
class Observed {
public:
    Observed(T initial, std::function<void()> whenChanged)
        : current(std::move(initial))
        , changed(std::move(whenChanged)) {}
    Observed(const Observed&) = delete;
    Observed& operator=(const Observed&) = delete;

    [[nodiscard]] const T& operator*() const noexcept { return current; }
    [[nodiscard]] const T* operator->() const noexcept { return &current; }

    void set(T value) {
        if (current == value)
            return;
        current = std::move(value);
        changed();
    }

private:
    T current;
    std::function<void()> changed;
};

}  // namespace vantry
