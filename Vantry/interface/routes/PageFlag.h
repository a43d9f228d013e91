#pragma once

#include <string>

#include <QWidget>

namespace vantry {

/// A value of a part of a page that the page memory keeps.
///
/// Inside the workspace what was never set reads as nothing: false, or 0. Only outside of it, where there is
/// no memory, it keeps its own value, which begins as `fallback`.
template <class T>
class PageValue {
public:
    /// `part` must outlive this.
    PageValue(const QWidget& part, std::string key, T fallback = {});

    [[nodiscard]] T value() const;
    void setValue(T value);

private:
    const QWidget* part;
    std::string key;
    T fallback;
};

/// Which panel is open, what is being edited.
using PageFlag = PageValue<bool>;
/// A choice among several, counted from 0: a tab, a mode, a scope.
using PageChoice = PageValue<int>;

extern template class PageValue<bool>;
extern template class PageValue<int>;

}  // namespace vantry
