#include "Vantry/interface/design/SectionLabel.h"

#include <QHBoxLayout>

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"

namespace vantry {
namespace {

/// The title at the left, the other text as wide as it is at the right; both on one base line.
void placeTexts(QWidget& holder, Label& title, Label& fact) {
    auto* row = new QHBoxLayout(&holder);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metrics::gapCard);
    title.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    fact.setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    row->addWidget(&title, 1);
    row->addWidget(&fact, 0, Qt::AlignBottom);
    holder.setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void showText(Label& label, const QString& text) {
    label.setPlain(text);
    label.setVisible(!text.isEmpty());
}

}  // namespace

SectionLabel::SectionLabel(QWidget* parent)
    : QWidget(parent)
    , title(new Label(VantryType::Role::label, &Palette::ink, Label::Length::cut, this))
    , trailing(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this)) {
    title->setFont(VantryType::font(VantryType::Role::label, QFont::DemiBold));
    placeTexts(*this, *title, *trailing);
}

void SectionLabel::setTexts(const QString& titleText, const QString& trailingText) {
    title->setPlain(titleText);
    showText(*trailing, trailingText);
}

WorkspaceSection::WorkspaceSection(QWidget* parent)
    : QWidget(parent)
    , title(new Label(VantryType::Role::heading, &Palette::ink, Label::Length::cut, this))
    , detail(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this)) {
    placeTexts(*this, *title, *detail);
}

void WorkspaceSection::setTexts(const QString& titleText, const QString& detailText) {
    title->setPlain(titleText);
    showText(*detail, detailText);
}

}  // namespace vantry
