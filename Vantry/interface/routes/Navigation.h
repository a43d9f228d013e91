#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

#include "Vantry/interface/routes/Route.h"

namespace vantry {

/// Where the user is and where Back leads. There is no way forward: a place left by Back is gone.
class Navigation {
public:
    /// Saves what is pending and answers whether that worked. No place is left while its edits cannot be
    /// written.
    using Flush = std::function<bool()>;

    /// The history never grows beyond this; the oldest entry goes.
    static constexpr std::size_t longestHistory = 100;

    /// `arriving` is told each new place before it becomes the current one.
    explicit Navigation(std::function<void(const Route&)> arriving = {})
        : arriving(std::move(arriving)) {}

    [[nodiscard]] const Route& route() const noexcept { return current; }
    /// The places that Back leads to, oldest first.
    [[nodiscard]] const std::vector<Route>& history() const noexcept { return visited; }
    /// Whether Back leads anywhere: with an empty history it leads to the library.
    [[nodiscard]] bool canGoBack() const noexcept { return !visited.empty() || current != Route::library(); }

    /// Goes to `target`, and answers whether that is a new place. Going to where one is does nothing and
    /// saves nothing. The library empties the history; a place of the history cuts it at that entry, so that
    /// it never holds one place twice.
    bool go(const Route& target, const Flush& flush);
    /// Goes to the newest entry of the history, or to the library; answers whether the place was left.
    bool goBack(const Flush& flush);

private:
    void arrive(const Route& target);

    std::function<void(const Route&)> arriving;
    Route current;
    std::vector<Route> visited;
};

}  // namespace vantry
