#include "Vantry/interface/design/StatusPill.h"

#include <QPainter>

#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {
namespace {

Palette::Token colourOf(StatusKind kind) {
    switch (kind) {
    case StatusKind::good:
        return &Palette::completed;
    case StatusKind::warning:
        return &Palette::warning;
    case StatusKind::neutral:
        break;
    }
    return &Palette::muted;
}

}  // namespace

StatusPill::StatusPill(StatusKind shown, QWidget* parent)
    : QLabel(parent)
    , kind(shown) {
    setTextFormat(Qt::PlainText);
    QFont font = VantryType::font(VantryType::Role::label, QFont::Medium);
    font.setPixelSize(Metrics::pillText);
    setFont(font);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void StatusPill::setPlain(const QString& title) {
    if (text() == title)
        return;
    setText(title);
    setAccessibleName(title);
    updateGeometry();
}

void StatusPill::setKind(StatusKind shown) {
    if (kind == shown)
        return;
    kind = shown;
    updateGeometry();
    update();
}

int StatusPill::signWidth() const {
    return kind == StatusKind::good ? Metrics::pillSign + Metrics::gapTrack : 0;
}

QSize StatusPill::sizeHint() const {
    return {signWidth() + vantry::lineWidth(font(), text()),
            VantryType::lineHeight(VantryType::Role::caption)};
}

void StatusPill::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor colour = Palette::of(*this).*colourOf(kind);
    if (kind == StatusKind::good)
        paintGlyph(painter, Glyph::check,
                   QRectF(0, (height() - Metrics::pillSign) / 2.0, Metrics::pillSign, Metrics::pillSign),
                   colour);
    painter.setPen(colour);
    painter.drawText(rect().adjusted(signWidth(), 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, text());
}

}  // namespace vantry
