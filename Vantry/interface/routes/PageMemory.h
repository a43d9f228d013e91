#pragma once

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "Vantry/interface/routes/Route.h"

namespace vantry {

/// Where a scrolled page begins, in points from its left and upper edges.
struct ScrollOrigin {
    double x = 0;
    double y = 0;

    friend bool operator==(const ScrollOrigin&, const ScrollOrigin&) = default;
};

/// How each place was left while the program runs: where it was scrolled, which panels were open, which tab
/// was chosen. Nothing of it is stored. Entries are kept for good, so a record that an undo brings back finds
/// its page as it was.
class PageMemory {
public:
    /// The place on screen. Whoever leaves a place sets it before anything of the old page goes: a page that
    /// is being taken down must not write over its own memory.
    Route active;

    // Where pages are scrolled; nobody is told of a change, since no page may be rebuilt by scrolling.
    std::unordered_map<Route, ScrollOrigin> offsets;
    /// The same inside a scope of a page, one of its tabs.
    std::unordered_map<Route, std::unordered_map<std::string, ScrollOrigin>> scopedOffsets;

    /// Whether the panel was left open; nothing for one that nobody touched.
    [[nodiscard]] std::optional<bool> panel(const Route& route, const std::string& key) const {
        return find(panels, route, key);
    }
    void setPanel(const Route& route, const std::string& key, bool open) { set(panels, route, key, open); }
    /// The tab, mode or scope that was chosen; nothing where nobody has chosen.
    [[nodiscard]] std::optional<int> choice(const Route& route, const std::string& key) const {
        return find(choices, route, key);
    }
    void setChoice(const Route& route, const std::string& key, int choice) {
        set(choices, route, key, choice);
    }
    /// Calls `listener` whenever a panel or a choice has changed; the last one given counts.
    void onChange(std::function<void()> listener) { changed = std::move(listener); }

private:
    template <class T>
    using ByRoute = std::unordered_map<Route, std::unordered_map<std::string, T>>;

    template <class T>
    [[nodiscard]] static std::optional<T> find(const ByRoute<T>& all, const Route& route,
                                               const std::string& key) {
        const auto page = all.find(route);
        if (page == all.end())
            return std::nullopt;
        const auto entry = page->second.find(key);
        return entry == page->second.end() ? std::nullopt : std::optional(entry->second);
    }
    template <class T>
    void set(ByRoute<T>& all, const Route& route, const std::string& key, T value) {
        if (find(all, route, key) == value)
            return;
        all[route][key] = value;
        if (changed)
            changed();
    }

    ByRoute<bool> panels;
    ByRoute<int> choices;
    std::function<void()> changed;
};

}  // namespace vantry
