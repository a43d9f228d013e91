#pragma once

#include <QScrollArea>
#include <QVBoxLayout>

namespace vantry {

/// The scrolling body of a page: its content stands in one centred column of at most the page's width and,
/// where the window is higher, takes the height that is there.
class PageColumn final : public QScrollArea {
    Q_OBJECT

public:
    explicit PageColumn(QWidget* parent = nullptr);

    /// What the content's widgets are made in.
    [[nodiscard]] QWidget* body() noexcept { return inside; }
    [[nodiscard]] QVBoxLayout& content() noexcept { return *column; }

private:
    QWidget* inside;
    QVBoxLayout* column;
};

}  // namespace vantry
