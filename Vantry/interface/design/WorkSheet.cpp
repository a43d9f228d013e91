#include "Vantry/interface/design/WorkSheet.h"

#include <QPainter>
#include <QPainterPath>

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"

namespace vantry {
namespace {

/// A row of the sheet, from edge to edge, with the padding of a sheet at its sides.
QHBoxLayout* band(int height, QVBoxLayout& rows) {
    auto* holder = new QWidget;
    holder->setFixedHeight(height);
    auto* row = new QHBoxLayout(holder);
    row->setContentsMargins(Metrics::paddingSheet, 0, Metrics::paddingSheet, 0);
    row->setSpacing(Metrics::gapInline);
    rows.addWidget(holder);
    return row;
}

int heightOf(WorkSheet::Footer footer) {
    if (footer == WorkSheet::Footer::none)
        return 0;
    return footer == WorkSheet::Footer::text ? Metrics::sheetFooterHeight : Metrics::sheetButtonsHeight;
}

}  // namespace

WorkSheet::WorkSheet(const QSize& size, Footer kind, QWidget* parent)
    : SheetWindow(parent)
    , wanted(size)
    , footerHeight(heightOf(kind))
    , heading(new Label(VantryType::Role::heading, &Palette::ink)) {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(Metrics::hairline, 0, Metrics::hairline, 0);
    rows->setSpacing(0);
    rows->setSizeConstraint(QLayout::SetNoConstraint);
    QHBoxLayout* const header = band(Metrics::sheetHeaderHeight, *rows);
    header->setSpacing(Metrics::gapCard);
    actionRow = new QHBoxLayout;
    actionRow->setSpacing(Metrics::gapInline);
    header->addWidget(heading, 1);
    header->addLayout(actionRow);
    column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    rows->addLayout(column, 1);
    footerRow = band(footerHeight, *rows);
}

void WorkSheet::setTitle(const QString& title) {
    heading->setPlain(title);
    setWindowTitle(title);
    setAccessibleName(title);
}

QSize WorkSheet::contentSize() const {
    return {width() - 2 * Metrics::hairline, height() - Metrics::sheetHeaderHeight - footerHeight};
}

void WorkSheet::paintEvent(QPaintEvent* event) {
    SheetWindow::paintEvent(event);
    const Palette& palette = Palette::of(*this);
    constexpr int edge = Metrics::hairline;
    QPainterPath inside;
    inside.addRoundedRect(QRectF(rect()).adjusted(edge, edge, -edge, -edge), Metrics::radiusPanel - edge,
                          Metrics::radiusPanel - edge);
    QPainterPath foot;
    foot.addRect(QRectF(0, height() - footerHeight, width(), footerHeight));
    const QRect middle = rect().adjusted(edge, Metrics::sheetHeaderHeight, -edge, -footerHeight);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(middle.left(), middle.top() - edge, middle.width(), edge, palette.rule);
    if (footerHeight == 0)
        return;
    painter.fillPath(inside & foot, palette.card);
    painter.fillRect(middle, palette.navigation);
    painter.fillRect(middle.left(), middle.bottom() + 1, middle.width(), edge, palette.rule);
}

}  // namespace vantry
