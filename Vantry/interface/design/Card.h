#pragma once

#include <QVBoxLayout>
#include <QWidget>

namespace vantry {

class SectionLabel;

/// A surface for things that belong together and can be edited or opened, with or without a title.
class Card final : public QWidget {
    Q_OBJECT

public:
    explicit Card(QWidget* parent = nullptr);

    /// With a short fact at the right of the title, if there is one.
    void setTitle(const QString& title, const QString& trailing = {});
    /// Where the content goes, from the top.
    [[nodiscard]] QVBoxLayout& content() noexcept { return *column; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* column;
    SectionLabel* label;
};

}  // namespace vantry
