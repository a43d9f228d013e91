#pragma once

#include <QStyledItemDelegate>

namespace vantry {

/// Draws the sign of a tree's row and its one or two lines; what lies behind them the tree draws itself.
class TreeRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

}  // namespace vantry
