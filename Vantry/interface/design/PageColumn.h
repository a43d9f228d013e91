#pragma once

#include <optional>
#include <string>

#include <QScrollArea>
#include <QVBoxLayout>

namespace vantry {

class PageScrollMemory;

/// The scrolling body of a page: its content stands in one centred column of at most the page's width and,
/// where the window is higher, takes the height that is there. It is found again where it was left.
class PageColumn final : public QScrollArea {
    Q_OBJECT

public:
    /// What is above the page: it begins closer to a trail of crumbs.
    enum class Above { nothing, crumbs };

    explicit PageColumn(Above above, QWidget* parent = nullptr);

    /// What the content's widgets are made in.
    [[nodiscard]] QWidget* body() noexcept { return inside; }
    [[nodiscard]] QVBoxLayout& content() noexcept { return *column; }
    /// From now on the page has a position of its own for `memoryKey`, one of its tabs: the one that it was
    /// left at, else its top.
    void setMemoryKey(const std::string& memoryKey);
    /// Scrolls as that key does, from a line to the end; false, if it is none of those.
    bool scrollBy(const QKeyEvent& key);

private:
    QWidget* inside;
    QVBoxLayout* column;
    PageScrollMemory* memory;
    std::optional<std::string> key;
};

/// The body of `page`, which it fills.
[[nodiscard]] PageColumn* crewPage(QWidget* page, PageColumn::Above above);

}  // namespace vantry
