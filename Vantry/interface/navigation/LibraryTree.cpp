#include "Vantry/interface/navigation/LibraryTree.h"

#include <QHoverEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryType.h"
#include "Vantry/interface/navigation/LibraryTreeModel.h"
#include "Vantry/interface/navigation/NavigationAccessibility.h"

namespace vantry {
namespace {

/// Draws a row's sign and its one or two lines; the tree draws what lies behind.
class RowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {Metrics::sidebarMinimum, Metrics::treeRowHeight};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const auto& tree = *static_cast<const LibraryTree*>(option.widget);
        const Palette& palette = Palette::of(tree);
        const QRect row = option.rect;
        const bool chosen = tree.selectionModel()->isSelected(index);
        const bool enabled = index.flags().testFlag(Qt::ItemIsEnabled);
        painter->save();
        const int start = row.left() + 2 * Metrics::treeInset;
        const QRectF sign(start, row.center().y() - Metrics::iconSmall / 2.0, Metrics::iconSmall,
                          Metrics::iconSmall);
        const auto glyph = static_cast<Glyph>(index.data(LibraryTreeModel::glyphRole).toInt());
        paintGlyph(*painter, glyph, sign, palette.muted, glyph == Glyph::folder);

        const QString detail = index.data(LibraryTreeModel::detailRole).toString();
        const int left = start + Metrics::iconSmall + Metrics::gapInline;
        const int width = row.right() - left;
        const int titleHeight = VantryType::lineHeight(VantryType::Role::label);
        const int detailHeight = detail.isEmpty() ? 0 : VantryType::lineHeight(VantryType::Role::caption);
        const int top = row.top() + (row.height() - titleHeight - detailHeight) / 2;
        const auto line = [&](const QString& text, int y, int height) {
            painter->drawText(QRect(left, y, width, height), Qt::AlignLeft | Qt::AlignVCenter,
                              painter->fontMetrics().elidedText(singleLine(text), Qt::ElideRight, width));
        };
        painter->setFont(VantryType::font(VantryType::Role::label, chosen ? QFont::DemiBold : QFont::Medium));
        painter->setPen(enabled ? palette.ink : palette.muted);
        line(index.data(Qt::DisplayRole).toString(), top, titleHeight);
        painter->setFont(VantryType::font(VantryType::Role::caption));
        painter->setPen(palette.muted);
        line(detail, top + titleHeight, detailHeight);
        painter->restore();
    }
};

}  // namespace

LibraryTree::LibraryTree(QWidget* parent)
    : QTreeView(parent) {
    installNavigationAccessibility();
    setItemDelegate(new RowDelegate(this));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIndentation(Metrics::treeIndent);
    setAnimated(false);
    setExpandsOnDoubleClick(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::NoSelection);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The strip of the bar is the margin at the right, whether there is something to scroll or not.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    connect(this, &QTreeView::clicked, this, &LibraryTree::press);
}

void LibraryTree::setPlace(const QModelIndex& index) {
    if (!index.isValid())
        selectionModel()->clearSelection();
    else if (!selectionModel()->isSelected(index))
        selectionModel()->select(index, QItemSelectionModel::ClearAndSelect);
}

void LibraryTree::press(const QModelIndex& index) {
    if (index.isValid() && index.flags().testFlag(Qt::ItemIsEnabled))
        emit rowPressed(index);
}

void LibraryTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
    const Palette& palette = Palette::of(*this);
    const bool chosen = selectionModel()->isSelected(index);
    constexpr qreal half = Metrics::hairline / 2.0;
    const QRectF surface = QRectF(0, option.rect.top(), viewport()->width(), option.rect.height())
                               .adjusted(half, half, -half, -half);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (chosen || index == hovered) {
        painter->setPen(chosen ? QPen(palette.rule, Metrics::hairline) : QPen(Qt::NoPen));
        painter->setBrush(chosen ? palette.selected : palette.hover);
        painter->drawRoundedRect(surface, Metrics::radiusControl, Metrics::radiusControl);
    }
    if (chosen) {
        const QRectF bar(0, surface.top() + Metrics::gapField, Metrics::selectionBar,
                         surface.height() - 2 * Metrics::gapField);
        painter->setPen(Qt::NoPen);
        painter->setBrush(palette.ink);
        painter->drawRoundedRect(bar, Metrics::hairline, Metrics::hairline);
    }
    if (hasFocus() && index == currentIndex()) {
        painter->setPen(QPen(palette.link, Metrics::ring));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(surface.adjusted(half, half, -half, -half), Metrics::radiusControl,
                                 Metrics::radiusControl);
    }
    painter->restore();
    QTreeView::drawRow(painter, option, index);
}

void LibraryTree::drawBranches(QPainter* painter, const QRect& place, const QModelIndex& index) const {
    if (!model()->hasChildren(index))
        return;
    const QRectF chevron(place.right() + 1 - Metrics::treeChevron + Metrics::treeInset,
                         place.center().y() - Metrics::treeChevron / 2.0, Metrics::treeChevron,
                         Metrics::treeChevron);
    paintGlyph(*painter, isExpanded(index) ? Glyph::chevronDown : Glyph::chevronRight, chevron,
               Palette::of(*this).muted);
}

void LibraryTree::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if ((event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
            press(currentIndex());
            return;
        }
        break;
    default:
        break;
    }
    QTreeView::keyPressEvent(event);
}

bool LibraryTree::viewportEvent(QEvent* event) {
    const QPersistentModelIndex before = hovered;
    if (event->type() == QEvent::HoverMove || event->type() == QEvent::HoverEnter)
        hovered = indexAt(static_cast<QHoverEvent*>(event)->position().toPoint());
    else if (event->type() == QEvent::HoverLeave)
        hovered = QPersistentModelIndex();
    if (hovered != before)
        viewport()->update();
    return QTreeView::viewportEvent(event);
}

// The base would name rows to assistive tools by places that count a header in; these rows are counted
// without.

void LibraryTree::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QAbstractItemView::currentChanged(current, previous);  // NOLINT(bugprone-parent-virtual-call): see above
    viewport()->update();
    if (hasFocus() && current.isValid())
        announceRow(*this, current, QAccessible::Focus);
}

void LibraryTree::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): see above
    QAbstractItemView::selectionChanged(selected, deselected);
    viewport()->update();
    for (const QModelIndex& index : selected.indexes())
        announceRow(*this, index, QAccessible::Selection);
}

}  // namespace vantry
