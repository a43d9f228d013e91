#pragma once

#include <string>

#include <QWidget>

namespace vantry {

/// A yes or no of a part of a page, kept by the page memory: which panel is open, what is being edited.
///
/// Inside the workspace what was never set is false. Only outside of it, where there is no memory, the flag
/// keeps its own value, which begins as `fallback`.
class PageFlag {
public:
    /// `part` must outlive the flag.
    PageFlag(const QWidget& part, std::string key, bool fallback = false);

    [[nodiscard]] bool value() const;
    void setValue(bool value);

private:
    const QWidget* part;
    std::string key;
    bool fallback;
};

/// The same for a choice among several, counted from 0.
class PageChoice {
public:
    PageChoice(const QWidget& part, std::string key, int fallback = 0);

    [[nodiscard]] int value() const;
    void setValue(int value);

private:
    const QWidget* part;
    std::string key;
    int fallback;
};

}  // namespace vantry
