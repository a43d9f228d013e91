#include "Vantry/interface/design/PageColumn.h"

#include <QHBoxLayout>

#include "Vantry/interface/design/Metrics.h"

namespace vantry {

PageColumn::PageColumn(QWidget* parent)
    : QScrollArea(parent)
    , inside(new QWidget)
    , column(new QVBoxLayout(inside)) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The strip of the bar is part of the margin, so that the width never depends on the content.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    inside->setMaximumWidth(Metrics::pageWidth);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::gapBlock);
    auto* centred = new QWidget;
    auto* row = new QHBoxLayout(centred);
    row->setContentsMargins(Metrics::paddingPage, Metrics::paddingUnderCrumbs,
                            Metrics::paddingPage - Metrics::scrollStrip, Metrics::paddingPage);
    row->addStretch();
    row->addWidget(inside, 1000);
    row->addStretch();
    setWidget(centred);
    centred->setAutoFillBackground(false);
}

}  // namespace vantry
