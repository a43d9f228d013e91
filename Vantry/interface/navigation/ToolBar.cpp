#include "Vantry/interface/navigation/ToolBar.h"

#include <QHBoxLayout>
#include <QPainter>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/navigation/ToolButton.h"
#include "Vantry/interface/navigation/WindowActions.h"

namespace vantry {

ToolBar::ToolBar(WindowActions& actions, QWidget* parent)
    : QWidget(parent) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Metrics::gapCard, 0, Metrics::gapCard, Metrics::hairline);
    row->setSpacing(Metrics::gapTrack);
    row->addWidget(new ToolButton(actions.back(), Glyph::chevronLeft, this));
    row->addWidget(new ToolButton(actions.home(), Glyph::house, this));
    row->addStretch();
    row->addWidget(new ToolButton(actions.undo(), Glyph::undo, this));
    row->addWidget(new ToolButton(actions.save(), Glyph::check, this));
    setFixedHeight(Metrics::toolbarHeight);
}

void ToolBar::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(0, height() - Metrics::hairline, width(), Metrics::hairline,
                            Palette::of(*this).rule);
}

}  // namespace vantry
