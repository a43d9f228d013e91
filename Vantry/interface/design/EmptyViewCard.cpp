#include "Vantry/interface/design/EmptyViewCard.h"

#include <initializer_list>

#include <QPainter>
#include <QVBoxLayout>

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Surface.h"

namespace vantry {

EmptyViewCard::EmptyViewCard(Glyph sign, QWidget* parent)
    : QWidget(parent)
    , glyph(sign)
    , title(new Label(VantryType::Role::heading, &Palette::ink, Label::Length::wrapped, this))
    , subtitle(new Label(VantryType::Role::body, &Palette::muted, Label::Length::wrapped, this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Metrics::paddingEmpty,
                               Metrics::paddingEmpty + Metrics::iconEmpty + Metrics::gapEmpty,
                               Metrics::paddingEmpty, Metrics::paddingEmpty);
    column->setSpacing(Metrics::gapEmpty);
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

void EmptyViewCard::setTexts(const QString& titleText, const QString& subtitleText) {
    title->setPlain(titleText);
    subtitle->setPlain(subtitleText);
}

void EmptyViewCard::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSurface(painter, rect(),
                 {Palette::of(*this).card, Palette::of(*this).rule, Metrics::hairline, Metrics::radiusCard});
    paintGlyph(painter, glyph,
               QRectF((width() - Metrics::iconEmpty) / 2.0, Metrics::paddingEmpty, Metrics::iconEmpty,
                      Metrics::iconEmpty),
               Palette::of(*this).link);
}

}  // namespace vantry
