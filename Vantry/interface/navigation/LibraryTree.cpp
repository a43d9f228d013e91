#include "Vantry/interface/navigation/LibraryTree.h"

#include <utility>

#include <QHoverEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include "Vantry/interface/design/ButtonStyles.h"
#include "Vantry/interface/design/FocusRing.h"
#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/KeyboardFocus.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryMotion.h"
#include "Vantry/interface/navigation/DisclosureLayer.h"
#include "Vantry/interface/navigation/NavigationAccessibility.h"
#include "Vantry/interface/navigation/TreeRowDelegate.h"

namespace vantry {
namespace {

/// Whether the key is there to move among the rows, to open or to press one; not one that is only held with
/// others.
bool isForRows(int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_Right:
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Plus:
    case Qt::Key_Minus:
    case Qt::Key_Asterisk:
        return true;
    default:
        return false;
    }
}

}  // namespace

LibraryTree::LibraryTree(QWidget* parent)
    : QTreeView(parent)
    , hovered(*viewport(), VantryMotion::selection())
    , chosen(*viewport(), VantryMotion::selection())
    , pressed(*viewport(), VantryMotion::feedback())
    , layer(new DisclosureLayer(*viewport(), &Palette::navigation)) {
    installNavigationAccessibility();
    setItemDelegate(new TreeRowDelegate(this));
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

void LibraryTree::toggle(const QModelIndex& index) {
    disclose(index, [&] { setExpanded(index, !isExpanded(index)); });
}

void LibraryTree::disclose(const QModelIndex& index, const std::function<void()>& change) {
    const QPersistentModelIndex row = index;
    const int rows = shownRows();
    const int scrolled = verticalScrollBar()->value();
    layer->begin();
    change();
    const int difference = shownRows() - rows;
    if (!row.isValid() || difference == 0) {
        layer->cancel();
        return;
    }
    disclosed = row;
    announceOpening(*this, row);
    if (verticalScrollBar()->value() == scrolled)
        layer->slide(visualRect(row).bottom() + 1, difference * Metrics::treeRowHeight);
    else
        layer->fade();
}

void LibraryTree::discloseMany(const std::function<void()>& change) {
    layer->begin();
    disclosed = QPersistentModelIndex();
    QPersistentModelIndex top = indexAt({0, 0});
    const int offset = visualRect(top).top();
    change();
    while (top.isValid() && placeOf(top) < 0)
        top = top.parent();
    if (top.isValid())
        verticalScrollBar()->setValue(placeOf(top) * Metrics::treeRowHeight - offset);
    layer->fade();
}

void LibraryTree::openAll(const std::vector<QModelIndex>& rows) {
    discloseMany([&] { reopen(rows); });
}

void LibraryTree::reopen(const std::vector<QModelIndex>& rows) {
    // From here to the next question what is open is only noted down.
    if (rows.size() > 1)
        scheduleDelayedItemsLayout();
    for (const QModelIndex& row : rows)
        setExpanded(row, true);
}

void LibraryTree::rowsInserted(const QModelIndex& parent, int first, int last) {
    if (first < last || !parent.isValid() || !isExpanded(parent)) {
        QTreeView::rowsInserted(parent, first, last);
        return;
    }
    // Qt would lay out all rows of the tree anew. A row that is closed and opened is laid out alone.
    const QSignalBlocker quiet(this);
    collapse(parent);
    expand(parent);
}

void LibraryTree::closeAll() {
    discloseMany([this] { collapseAll(); });
}

void LibraryTree::keepingPlace(const std::function<void()>& change) {
    const int scrolled = verticalScrollBar()->value();
    if (scrolled == 0) {
        change();
        return;
    }
    const QPersistentModelIndex top = indexAt({0, 0});
    const int before = placeOf(top);
    change();
    if (!top.isValid())
        return;
    const int now = placeOf(top);
    if (now >= 0 && now != before)
        verticalScrollBar()->setValue(scrolled + (now - before) * Metrics::treeRowHeight);
}

QModelIndex LibraryTree::shownRow(int place) const {
    return place < 0 ? QModelIndex()
                     : indexAt({0, place * Metrics::treeRowHeight - verticalScrollBar()->value()});
}

int LibraryTree::placeOf(const QModelIndex& row) const {
    const QRect place = visualRect(row);
    return place.isValid() ? (place.top() + verticalScrollBar()->value()) / Metrics::treeRowHeight : -1;
}

int LibraryTree::shownRows() const {
    // The last one closes the tree: down from the last production into what is open.
    QModelIndex last;
    for (int rows = model()->rowCount(); rows > 0; rows = isExpanded(last) ? model()->rowCount(last) : 0)
        last = model()->index(rows - 1, 0, last);
    return last.isValid() ? placeOf(last) + 1 : 0;
}

void LibraryTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
    const QRectF surface(0, option.rect.top(), viewport()->width(), option.rect.height());
    const Palette& palette = Palette::of(*this);
    const ControlState state{.hovered = hovered.strength(index),
                             .pressed = pressed.strength(index),
                             .selected = chosen.strength(index)};
    const qreal opacity = VantryRowButtonStyle::look(palette, state).opacity;
    paintAsOne(*painter, surface, opacity, 1, [&](QPainter& inside) {
        VantryRowButtonStyle::paint(inside, surface, palette, state);
        QTreeView::drawRow(&inside, option, index);
    });
    if (!hasFocus() || !cameByKeyboard || index != currentIndex())
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintRing(*painter, surface, Metrics::radiusControl, palette.link);
    painter->restore();
}

void LibraryTree::drawBranches(QPainter* painter, const QRect& place, const QModelIndex& index) const {
    if (!model()->hasChildren(index))
        return;
    // It points right, and down while the row is open.
    constexpr double right = -90;
    const double way = index == disclosed ? layer->progress() : 1;
    const double turn = isExpanded(index) ? right * (1 - way) : right * way;
    constexpr qreal size = Metrics::treeChevron;
    painter->save();
    painter->translate(place.right() + 1 + Metrics::treeInset - size / 2, place.top() + place.height() / 2.0);
    painter->rotate(turn);
    paintGlyph(*painter, Glyph::chevronDown, QRectF(-size / 2, -size / 2, size, size),
               Palette::of(*this).muted);
    painter->restore();
}

void LibraryTree::keyPressEvent(QKeyEvent* event) {
    const QPersistentModelIndex before = currentIndex();
    if (isForRows(event->key()))
        showKeyboard();
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (plain) {
            press(currentIndex());
            return;
        }
        break;
    case Qt::Key_Right:
    case Qt::Key_Left:
    case Qt::Key_Plus:
    case Qt::Key_Minus:
        disclose(currentIndex(), [&] { QTreeView::keyPressEvent(event); });
        return;
    default:
        break;
    }
    QTreeView::keyPressEvent(event);
    // The first letters of a title lead to it.
    if (currentIndex() != before)
        showKeyboard();
}

void LibraryTree::showKeyboard() {
    cameByKeyboard = true;
    viewport()->update();
}

bool LibraryTree::isOnChevron(const QPoint& place) const {
    const QModelIndex index = indexAt(place);
    if (!index.isValid() || !model()->hasChildren(index))
        return false;
    const int start = visualRect(index).left();
    return place.x() >= start - Metrics::treeIndent &&
           place.x() < start + Metrics::treeInset + Metrics::gapInline;
}

bool LibraryTree::takesPress(QMouseEvent& event) {
    cameByKeyboard = false;
    pressTaken = event.button() == Qt::LeftButton && isOnChevron(event.position().toPoint());
    if (pressTaken)
        toggle(indexAt(event.position().toPoint()));
    held =
        event.button() == Qt::LeftButton && !pressTaken ? indexAt(event.position().toPoint()) : QModelIndex();
    showPressed(event.position().toPoint());
    return pressTaken;
}

void LibraryTree::showPressed(const QPoint& place) {
    const bool over = held.isValid() && held.flags().testFlag(Qt::ItemIsEnabled) && indexAt(place) == held;
    pressed.moveTo(over ? QModelIndex(held) : QModelIndex());
}

void LibraryTree::showReleased() {
    held = QPersistentModelIndex();
    pressed.moveTo({});
}

void LibraryTree::mouseMoveEvent(QMouseEvent* event) {
    showPressed(event->position().toPoint());
    QTreeView::mouseMoveEvent(event);
}

void LibraryTree::mousePressEvent(QMouseEvent* event) {
    if (!takesPress(*event))
        QTreeView::mousePressEvent(event);
}

void LibraryTree::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!takesPress(*event))
        QTreeView::mouseDoubleClickEvent(event);
}

void LibraryTree::mouseReleaseEvent(QMouseEvent* event) {
    showReleased();
    // The press was no press on the row, so this is no click on it.
    if (!std::exchange(pressTaken, false))
        QTreeView::mouseReleaseEvent(event);
}

void LibraryTree::focusInEvent(QFocusEvent* event) {
    cameByKeyboard = isKeyboardFocus(event->reason(), cameByKeyboard);
    // Who comes for the first time begins at the place that is on screen.
    if (!currentIndex().isValid() && cameByKeyboard && chosen.row().isValid() && placeOf(chosen.row()) >= 0)
        setCurrentIndex(chosen.row());
    QTreeView::focusInEvent(event);
}

void LibraryTree::resizeEvent(QResizeEvent* event) {
    layer->interrupt();
    QTreeView::resizeEvent(event);
}

void LibraryTree::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        layer->interrupt();
    QTreeView::changeEvent(event);
}

void LibraryTree::scrollContentsBy(int dx, int dy) {
    layer->interrupt();
    QTreeView::scrollContentsBy(dx, dy);
}

bool LibraryTree::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::HoverMove || event->type() == QEvent::HoverEnter) {
        const QModelIndex under = indexAt(static_cast<QHoverEvent*>(event)->position().toPoint());
        hovered.moveTo(under.flags().testFlag(Qt::ItemIsEnabled) ? under : QModelIndex());
    } else if (event->type() == QEvent::HoverLeave) {
        hovered.moveTo({});
    } else if (event->type() == QEvent::WindowDeactivate) {
        // The release belongs to the window that comes.
        showReleased();
    }
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
    const QModelIndexList places = selectionModel()->selectedIndexes();
    chosen.moveTo(places.isEmpty() ? QModelIndex() : places.first());
    viewport()->update();
    for (const QModelIndex& index : selected.indexes())
        announceRow(*this, index, QAccessible::Selection);
}

}  // namespace vantry
