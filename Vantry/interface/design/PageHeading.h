#pragma once

#include <QHBoxLayout>
#include <QWidget>

namespace vantry {

class Label;

/// The head of a page: where it belongs, its title, a line about it, and its actions at the right. Its height
/// is fixed: a long text is cut and shown whole as hover help.
class PageHeading final : public QWidget {
    Q_OBJECT

public:
    explicit PageHeading(QWidget* parent = nullptr);

    void setTexts(const QString& eyebrow, const QString& title, const QString& subtitle);
    /// Where the actions go, from left to right.
    [[nodiscard]] QHBoxLayout& actions() noexcept { return *row; }

private:
    Label* eyebrow;
    Label* title;
    Label* subtitle;
    QHBoxLayout* row;
};

}  // namespace vantry
