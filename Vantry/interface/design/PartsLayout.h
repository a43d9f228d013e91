#pragma once

#include <memory>
#include <vector>

#include <QLayout>

namespace vantry {

/// What the layouts of pages have in common: they own their items, take those that are not hidden into
/// account, and their height follows from their width.
class PartsLayout : public QLayout {
public:
    ~PartsLayout() override;

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override { return static_cast<int>(items.size()); }
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }

protected:
    explicit PartsLayout(QWidget* parent);

    /// The parts that are there to be seen, in their order.
    [[nodiscard]] std::vector<QLayoutItem*> shownParts() const;
    /// The height that a part asks for at that width.
    [[nodiscard]] static int heightOf(const QLayoutItem& part, int width);

private:
    std::vector<std::unique_ptr<QLayoutItem>> items;
};

}  // namespace vantry
