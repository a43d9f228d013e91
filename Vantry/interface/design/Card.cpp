#include "Vantry/interface/design/Card.h"

#include <QPainter>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Surface.h"

namespace vantry {
namespace {

void paintCard(QPainter& painter, const QWidget& widget) {
    const Palette& palette = Palette::of(widget);
    paintSurface(painter, widget.rect(),
                 {palette.card, palette.rule, Metrics::hairline, Metrics::radiusCard});
}

}  // namespace

Card::Card(QWidget* parent)
    : QWidget(parent)
    , column(new QVBoxLayout(this))
    , label(new Label(VantryType::Role::label, &Palette::ink, Label::Length::cut, this)) {
    label->setFont(VantryType::font(VantryType::Role::label, QFont::DemiBold));
    label->hide();
    column->setContentsMargins(Metrics::paddingCard, Metrics::paddingCard, Metrics::paddingCard,
                               Metrics::paddingCard);
    column->setSpacing(Metrics::gapCard);
    column->addWidget(label);
}

void Card::setTitle(const QString& title) {
    label->setPlain(title);
    label->setVisible(!title.isEmpty());
}

void Card::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintCard(painter, *this);
}

EmptyCard::EmptyCard(Glyph sign, QWidget* parent)
    : QWidget(parent)
    , glyph(sign)
    , title(new Label(VantryType::Role::heading, &Palette::ink, Label::Length::wrapped, this))
    , subtitle(new Label(VantryType::Role::body, &Palette::muted, Label::Length::wrapped, this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Metrics::paddingEmpty,
                               Metrics::paddingEmpty + Metrics::iconEmpty + Metrics::gapCard,
                               Metrics::paddingEmpty, Metrics::paddingEmpty);
    column->setSpacing(Metrics::gapInline);
    for (Label* line : {title, subtitle}) {
        line->setMaximumWidth(Metrics::emptyTextWidth);
        line->setAlignment(Qt::AlignHCenter);
        auto* row = new QHBoxLayout;
        row->addStretch();
        row->addWidget(line, 1);
        row->addStretch();
        column->addLayout(row);
    }
}

void EmptyCard::setTexts(const QString& titleText, const QString& subtitleText) {
    title->setPlain(titleText);
    subtitle->setPlain(subtitleText);
}

void EmptyCard::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintCard(painter, *this);
    paintGlyph(painter, glyph,
               QRectF((width() - Metrics::iconEmpty) / 2.0, Metrics::paddingEmpty, Metrics::iconEmpty,
                      Metrics::iconEmpty),
               Palette::of(*this).link);
}

}  // namespace vantry
