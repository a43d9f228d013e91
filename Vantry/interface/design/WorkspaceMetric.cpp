#include "Vantry/interface/design/WorkspaceMetric.h"

#include <QHBoxLayout>
#include <QPainter>

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Surface.h"
#include "Vantry/interface/design/WorkspaceColumns.h"

namespace vantry {

WorkspaceMetric::WorkspaceMetric(Glyph sign, QWidget* parent)
    : QWidget(parent)
    , glyph(sign)
    , value(new Label(VantryType::Role::heading, &Palette::ink, Label::Length::cut, this))
    , label(new Label(VantryType::Role::label, &Palette::muted, Label::Length::cut, this)) {
    value->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Metrics::paddingMetric + Metrics::iconLarge + Metrics::gapField, 0,
                            Metrics::paddingMetric, 0);
    row->setSpacing(Metrics::gapField);
    row->addWidget(value);
    row->addWidget(label, 1);
    setFixedHeight(Metrics::metricHeight);
}

void WorkspaceMetric::setTexts(const QString& valueText, const QString& labelText) {
    value->setPlain(valueText);
    label->setPlain(labelText);
}

void WorkspaceMetric::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    paintSurface(painter, rect(), {palette.tint, palette.tint, 0, Metrics::radiusTrack});
    paintGlyph(painter, glyph,
               QRectF(Metrics::paddingMetric, (height() - Metrics::iconLarge) / 2.0, Metrics::iconLarge,
                      Metrics::iconLarge),
               palette.ink);
}

WorkspaceMetrics::WorkspaceMetrics(std::initializer_list<Glyph> glyphs, QWidget* parent)
    : QWidget(parent) {
    auto* columns = new WorkspaceColumns(Metrics::metricMinimum, Metrics::gapField, this);
    for (const Glyph glyph : glyphs) {
        tiles.push_back(new WorkspaceMetric(glyph, this));
        columns->addWidget(tiles.back());
    }
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

}  // namespace vantry
