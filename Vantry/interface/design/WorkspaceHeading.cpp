#include "Vantry/interface/design/WorkspaceHeading.h"

#include <utility>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/PageHeading.h"

namespace vantry {

WorkspaceHeading::WorkspaceHeading(int mostLines, QWidget* parent)
    : QWidget(parent)
    , subtitleLines(mostLines)
    , texts(new PageHeading({1, subtitleLines}, this))
    , row(new QHBoxLayout) {
    row->setContentsMargins(0, Metrics::headingActionsDrop, 0, 0);
    row->setSpacing(Metrics::gapCard);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(Metrics::gapCard);
    line->addWidget(texts, 1, Qt::AlignTop);
    line->addLayout(row);
    line->setAlignment(row, Qt::AlignTop);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void WorkspaceHeading::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const bool narrow = width() < Metrics::columnsFrom;
    texts->setSubtitleLines(narrow ? subtitleLines : 1);
    if (std::exchange(isNarrow, narrow) != narrow)
        emit narrowChanged(narrow);
}

void WorkspaceHeading::setTexts(const QString& section, const QString& title, const QString& subtitle) {
    texts->setTexts(section, title, subtitle);
}

}  // namespace vantry
