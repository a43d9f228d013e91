#include "Vantry/interface/design/LazyCells.h"

#include <algorithm>
#include <utility>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QScrollBar>
#include <QSet>

#include "Vantry/interface/design/LayoutRules.h"
#include "Vantry/interface/design/Metrics.h"

namespace vantry {
namespace {

bool hasFocusWithin(const QWidget& cell) {
    const QWidget* const focused = QApplication::focusWidget();
    return focused != nullptr && (focused == &cell || cell.isAncestorOf(focused));
}

/// The cell and what is in it, as the keyboard walks through them.
QList<QWidget*> stopsOf(QWidget& cell) {
    QList<QWidget*> stops;
    if ((cell.focusPolicy() & Qt::TabFocus) != 0)
        stops.append(&cell);
    for (auto* part : cell.findChildren<QWidget*>())
        if ((part->focusPolicy() & Qt::TabFocus) != 0)
            stops.append(part);
    return stops;
}

}  // namespace

LazyCells::LazyCells(Shape cellShape, Make makeCell, Fill fillCell, QWidget* parent)
    : QWidget(parent)
    , shape(cellShape)
    , make(std::move(makeCell))
    , fill(std::move(fillCell)) {
    // Not a fixed one: Qt would then hold the height of the hint for the least, whatever the width.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

qsizetype LazyCells::columnsAt(int width) const {
    if (shape.columns != nullptr)
        return shape.columns(width);
    return shape.minimum == 0 ? 1 : planColumns(width, shape.minimum, shape.gap, {}).columns;
}

QSize LazyCells::cellAt(int width) const {
    const auto columns = static_cast<int>(columnsAt(width));
    const int cellWidth = (width - (columns - 1) * shape.gap) / columns;
    return {cellWidth, shape.heightFor != nullptr ? shape.heightFor(cellWidth) : shape.height};
}

int LazyCells::heightForWidth(int width) const {
    const qsizetype columns = columnsAt(width);
    const auto rows = static_cast<int>((keys.size() + columns - 1) / columns);
    return rows == 0 ? 0 : rows * cellAt(width).height() + (rows - 1) * shape.gap;
}

QSize LazyCells::sizeHint() const {
    return {Metrics::sideWidth, heightForWidth(width())};
}

QSize LazyCells::minimumSizeHint() const {
    return {Metrics::controlHeight * 2, 0};
}

QRect LazyCells::place(qsizetype index) const {
    const qsizetype columns = columnsAt(width());
    const QSize cell = cellAt(width());
    const auto row = static_cast<int>(index / columns);
    const auto column = static_cast<int>(index % columns);
    // The last column ends on the right edge, whatever the shares round to.
    const int left =
        column > 0 && column + 1 == columns ? width() - cell.width() : column * (cell.width() + shape.gap);
    return {QPoint(left, row * (cell.height() + shape.gap)), cell};
}

/// What lies in the visible part of the page, or not further from it than half of its height.
QRect LazyCells::nearby() const {
    if (area == nullptr)
        return {0, 0, width(), heightForWidth(width())};
    const QWidget& view = *area->viewport();
    const int margin = view.height() / 2;
    return QRect(mapFrom(&view, QPoint(0, 0)), QSize(width(), view.height())).adjusted(0, -margin, 0, margin);
}

void LazyCells::setKeys(QList<QByteArray> wanted) {
    const bool isOther = wanted != keys;
    if (isOther) {
        keys = std::move(wanted);
        const QSet<QByteArray> staying(keys.cbegin(), keys.cend());
        for (const QByteArray& key : cells.keys())
            if (!staying.contains(key))
                drop(key);
        updateGeometry();
        update();
    }
    fillCells();
    bringIn();
    if (isOther)
        chain();
}

void LazyCells::fillCells() {
    for (auto cell = cells.cbegin(); cell != cells.cend(); ++cell)
        fill(*cell.value(), cell.key());
}

void LazyCells::drop(const QByteArray& key) {
    QWidget* const cell = cells.take(key);
    cell->hide();
    cell->deleteLater();
}

void LazyCells::bringIn() {
    if (!isVisible() || width() <= 0)
        return;
    const QRect near = nearby();
    const qsizetype columns = columnsAt(width());
    const int step = cellAt(width()).height() + shape.gap;
    const qsizetype first = std::max(near.top() / step, 0) * columns;
    const qsizetype end = std::min(near.bottom() < 0 ? 0 : (near.bottom() / step + 1) * columns, keys.size());
    bool isNew = false;
    QSet<QByteArray> wanted;
    for (qsizetype index = first; index < end; ++index) {
        const QByteArray& key = keys[index];
        wanted.insert(key);
        QWidget*& cell = cells[key];
        if (cell == nullptr) {
            cell = make(key, this);
            fill(*cell, key);
            isNew = true;
        }
        cell->setGeometry(place(index));
        cell->show();
    }
    // What has just left may come back: it goes when it is further.
    const QRect keeping = near.adjusted(0, -near.height() / 2, 0, near.height() / 2);
    for (const QByteArray& key : cells.keys()) {
        if (wanted.contains(key))
            continue;
        QWidget& cell = *cells[key];
        const QRect where = place(keys.indexOf(key));
        if (where.intersects(keeping) || hasFocusWithin(cell))
            cell.setGeometry(where);
        else
            drop(key);
    }
    if (isNew)
        chain();
}

/// Puts the cells in their order for the keyboard, behind what stands in front of the list, and for assistive
/// tools, which walk through them in the order in which they were raised.
void LazyCells::chain() {
    QList<std::pair<qsizetype, QWidget*>> order;
    for (qsizetype index = 0; index < keys.size() && order.size() < cells.size(); ++index)
        if (QWidget* const cell = cells.value(keys[index]))
            order.append({index, cell});
    QWidget* previous = this;
    // Qt places nothing behind what the keyboard does not reach.
    setFocusPolicy(Qt::TabFocus);
    for (const auto& [index, cell] : std::as_const(order)) {
        cell->raise();
        for (QWidget* stop : stopsOf(*cell)) {
            QWidget::setTabOrder(previous, stop);
            previous = stop;
        }
    }
    setFocusPolicy(Qt::NoFocus);
}

/// Finds the page that it scrolls with, and what holds it there.
void LazyCells::follow() {
    QAbstractScrollArea* found = nullptr;
    for (QWidget* widget = parentWidget(); widget != nullptr && found == nullptr;
         widget = widget->parentWidget())
        found = qobject_cast<QAbstractScrollArea*>(widget);
    if (found == area)
        return;
    if (area != nullptr)
        area->viewport()->removeEventFilter(this);
    disconnect(scrolled);
    area = found;
    if (area == nullptr)
        return;
    QWidget* const view = area->viewport();
    view->installEventFilter(this);
    for (QWidget* outer = parentWidget(); outer != view && outer->parentWidget() != view;
         outer = outer->parentWidget())
        outer->installEventFilter(this);
    scrolled = connect(area->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { bringIn(); });
}

bool LazyCells::eventFilter(QObject* watched, QEvent* event) {
    const bool isViewport = area != nullptr && watched == area->viewport();
    // Something above what holds the list grew or went, which moves the list without a word to it.
    if (event->type() == (isViewport ? QEvent::Resize : QEvent::Move))
        QMetaObject::invokeMethod(
            this, [this] { bringIn(); }, Qt::QueuedConnection);
    return QWidget::eventFilter(watched, event);
}

bool LazyCells::event(QEvent* event) {
    // Something above it grew or went.
    if (event->type() == QEvent::Move)
        bringIn();
    return QWidget::event(event);
}

void LazyCells::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    bringIn();
}

void LazyCells::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    follow();
    bringIn();
}

}  // namespace vantry
