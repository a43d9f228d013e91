#include "Vantry/interface/design/PageHeading.h"

#include <initializer_list>

#include <QVBoxLayout>

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/VantryDesign.h"

namespace vantry {

PageHeading::PageHeading(Limits limits, QWidget* parent)
    : QWidget(parent)
    , eyebrow(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this))
    , title(new Label(VantryDesign::title, &Palette::ink, Label::Length::wrapped, this))
    , subtitle(new Label(VantryType::Role::label, &Palette::muted, Label::Length::wrapped, this)) {
    title->setMostLines(limits.titleLines);
    subtitle->setMostLines(limits.subtitleLines);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(Metrics::gapLines);
    for (Label* line : {eyebrow, title, subtitle})
        lines->addWidget(line);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void PageHeading::setSubtitleLines(int most) {
    subtitle->setMostLines(most);
}

void PageHeading::setTexts(const QString& eyebrowText, const QString& titleText,
                           const QString& subtitleText) {
    eyebrow->setPlain(eyebrowText);
    title->setPlain(titleText);
    subtitle->setPlain(subtitleText);
    subtitle->setVisible(!subtitleText.isEmpty());
}

}  // namespace vantry
