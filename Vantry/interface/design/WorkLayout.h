#pragma once

#include <array>
#include <memory>

#include <QLayout>

namespace vantry {

/// A main part and a side part: beside each other where there is room, the side below the main part where the
/// page is narrow. The height follows from the width.
class WorkLayout final : public QLayout {
public:
    /// A part, or both, may be missing.
    WorkLayout(int sideWidth, int gap, QWidget* parent = nullptr);
    ~WorkLayout() override;

    /// The first item is the main part, the second the side; more are not taken.
    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    void setGeometry(const QRect& rectangle) override;

private:
    [[nodiscard]] bool isWide(int width) const;

    const int sideWidth;
    const int gap;
    std::array<std::unique_ptr<QLayoutItem>, 2> items;
};

}  // namespace vantry
