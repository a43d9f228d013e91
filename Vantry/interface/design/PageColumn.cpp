#include "Vantry/interface/design/PageColumn.h"

#include <QHBoxLayout>
#include <QHash>
#include <QKeyEvent>
#include <QScrollBar>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/routes/PageScrollMemory.h"

namespace vantry {

PageColumn::PageColumn(Above above, QWidget* parent)
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
    row->setContentsMargins(Metrics::paddingPage,
                            above == Above::crumbs ? Metrics::paddingUnderCrumbs : Metrics::paddingPage,
                            Metrics::paddingPage - Metrics::scrollStrip, Metrics::paddingPage);
    row->addStretch();
    row->addWidget(inside, 1000);
    row->addStretch();
    setWidget(centred);
    centred->setAutoFillBackground(false);
    memory = new PageScrollMemory(centred);
}

void PageColumn::setMemoryKey(const std::string& memoryKey) {
    if (key == memoryKey)
        return;
    const bool isFirst = !key;
    key = memoryKey;
    memory->setScope(key);
    // What is restored comes later.
    if (!isFirst)
        verticalScrollBar()->setValue(0);
}

bool PageColumn::scrollBy(const QKeyEvent& key) {
    static const QHash<int, QAbstractSlider::SliderAction> steps{
        {Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd},
        {Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub},
        {Qt::Key_Down, QAbstractSlider::SliderSingleStepAdd},
        {Qt::Key_Up, QAbstractSlider::SliderSingleStepSub},
        {Qt::Key_End, QAbstractSlider::SliderToMaximum},
        {Qt::Key_Home, QAbstractSlider::SliderToMinimum}};
    const auto step = steps.constFind(key.key());
    if (step == steps.cend() || (key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    verticalScrollBar()->triggerAction(*step);
    return true;
}

PageColumn* crewPage(QWidget* page, PageColumn::Above above) {
    auto* body = new PageColumn(above, page);
    auto* outer = new QVBoxLayout(page);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(body);
    return body;
}

}  // namespace vantry
