#include "Vantry/interface/design/FactRow.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"

namespace vantry {
namespace {

VantryType::Role factsOf(FactRow::Edge edge) {
    return edge == FactRow::Edge::card ? VantryType::Role::caption : VantryType::Role::label;
}

}  // namespace

FactRow::FactRow(Edge edge, QWidget* parent)
    : QWidget(parent)
    , inset(edge == Edge::card ? Metrics::paddingCard : 0)
    , above(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this))
    , name(new Label(VantryType::Role::emphasis, &Palette::ink, Label::Length::cut, this))
    , below(new Label(factsOf(edge), &Palette::muted, Label::Length::cut, this))
    , further(new Label(factsOf(edge), &Palette::muted, Label::Length::cut, this))
    , remark(new Label(VantryType::Role::label, &Palette::muted, Label::Length::cut, this)) {
    auto* lines = new QVBoxLayout;
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addStretch();
    for (Label* line : {above, name, below, further}) {
        line->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        lines->addWidget(line);
    }
    lines->addStretch();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(inset, 0, inset, 0);
    row->setSpacing(Metrics::gapCard);
    row->addLayout(lines, 1);
    row->addWidget(remark);
    remark->setMaximumWidth(Metrics::remarkWidth);
}

void FactRow::setContent(const Content& content) {
    const auto show = [](Label& label, const QString& text) {
        label.setPlain(text);
        label.setVisible(!text.isEmpty());
    };
    show(*above, content.above);
    show(*name, content.name);
    show(*below, content.below);
    show(*further, content.further);
    show(*remark, content.remark);
    below->setColour(content.belowLeads ? &Palette::ink : &Palette::muted);
    name->setColour(content.isUnset ? &Palette::muted : &Palette::ink);
    if (glyph == content.glyph)
        return;
    glyph = content.glyph;
    const int sign = glyph == Glyph::none ? 0 : Metrics::iconLarge + Metrics::gapField;
    layout()->setContentsMargins(inset + sign, 0, inset, 0);
    update();
}

QRect FactRow::placeOfSign() const {
    QRect lines = rect();
    if (!further->isHidden()) {
        // Beside three lines it belongs to the first two.
        lines.setTop((above->isHidden() ? name : above)->y());
        lines.setBottom((above->isHidden() ? below : name)->geometry().bottom());
    }
    return lines.adjusted(inset, 0, 0, 0);
}

void FactRow::paintEvent(QPaintEvent*) {
    if (glyph == Glyph::none)
        return;
    QPainter painter(this);
    paintSign(painter, placeOfSign(), glyph, Metrics::iconLarge, Palette::of(*this).ink);
}

}  // namespace vantry
