#include "Vantry/interface/design/Card.h"

#include <QPainter>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/SectionLabel.h"
#include "Vantry/interface/design/Surface.h"

namespace vantry {
Card::Card(QWidget* parent)
    : QWidget(parent)
    , column(new QVBoxLayout(this))
    , label(new SectionLabel(this)) {
    label->hide();
    column->setContentsMargins(Metrics::paddingCard, Metrics::paddingCard, Metrics::paddingCard,
                               Metrics::paddingCard);
    column->setSpacing(Metrics::gapCard);
    column->addWidget(label);
}

void Card::setTitle(const QString& title, const QString& trailing) {
    label->setTexts(title, trailing);
    label->setVisible(!title.isEmpty());
}

void Card::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    paintSurface(painter, rect(), {palette.card, palette.rule, Metrics::hairline, Metrics::radiusCard});
}

}  // namespace vantry
