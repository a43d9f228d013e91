#include "Vantry/interface/navigation/TreeRowDelegate.h"

#include <QAbstractItemView>
#include <QPainter>

#include "Vantry/interface/design/ButtonStyles.h"
#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryType.h"
#include "Vantry/interface/navigation/LibraryTreeModel.h"

namespace vantry {

QSize TreeRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {Metrics::sidebarMinimum, Metrics::treeRowHeight};
}

void TreeRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    const auto& tree = *static_cast<const QAbstractItemView*>(option.widget);
    const Palette& palette = Palette::of(tree);
    const QRect row = option.rect;
    const bool chosen = tree.selectionModel()->isSelected(index);
    const bool enabled = index.flags().testFlag(Qt::ItemIsEnabled);
    painter->save();
    painter->setOpacity(VantryRowButtonStyle::look(palette, {.enabled = enabled ? 1.0 : 0.0}).opacity);
    const int start = row.left() + Metrics::treeInset + Metrics::gapInline;
    const QRectF sign(start, row.top() + (row.height() - Metrics::iconSmall) / 2.0, Metrics::iconSmall,
                      Metrics::iconSmall);
    const auto glyph = static_cast<Glyph>(index.data(LibraryTreeModel::glyphRole).toInt());
    paintGlyph(*painter, glyph, sign, chosen ? palette.ink : palette.muted);

    const QString detail = index.data(LibraryTreeModel::detailRole).toString();
    const int left = start + Metrics::iconSmall + Metrics::gapInline;
    const int width = tree.viewport()->width() - Metrics::paddingSidebar - left;
    const int detailHeight = detail.isEmpty() ? 0 : Metrics::treeDetailHeight;
    const int top = row.top() + (row.height() - Metrics::treeTitleHeight - detailHeight) / 2;
    paintLine(*painter, {left, top, width, Metrics::treeTitleHeight},
              VantryType::font(VantryType::Role::label, chosen ? QFont::DemiBold : QFont::Medium),
              palette.ink, index.data(Qt::DisplayRole).toString());
    paintLine(*painter, {left, top + Metrics::treeTitleHeight, width, detailHeight},
              VantryType::font(VantryType::Role::caption), palette.muted, detail);
    painter->restore();
}

}  // namespace vantry
