#include "Vantry/interface/design/PageHeading.h"

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"

namespace vantry {

PageHeading::PageHeading(QWidget* parent)
    : QWidget(parent)
    , eyebrow(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this))
    , title(new Label(VantryType::Role::title, &Palette::ink, Label::Length::cut, this))
    , subtitle(new Label(VantryType::Role::label, &Palette::muted, Label::Length::cut, this))
    , row(new QHBoxLayout) {
    auto* texts = new QVBoxLayout;
    texts->setSpacing(Metrics::gapLines);
    for (Label* line : {eyebrow, title, subtitle}) {
        line->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        texts->addWidget(line);
    }
    row->setSpacing(Metrics::gapInline);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(Metrics::gapCard);
    line->addLayout(texts, 1);
    line->addLayout(row);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void PageHeading::setTexts(const QString& eyebrowText, const QString& titleText,
                           const QString& subtitleText) {
    eyebrow->setPlain(eyebrowText);
    title->setPlain(titleText);
    subtitle->setPlain(subtitleText);
    subtitle->setVisible(!subtitleText.isEmpty());
}

}  // namespace vantry
