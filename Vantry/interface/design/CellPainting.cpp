#include "Vantry/interface/design/CellPainting.h"

#include <QFontMetrics>
#include <QPainter>

#include "Vantry/interface/design/ControlText.h"

namespace vantry {

void paintLine(QPainter& painter, const QRect& place, const QFont& font, const QColor& colour,
               const QString& text, Qt::Alignment side) {
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(place, static_cast<int>(side | Qt::AlignVCenter),
                     QFontMetrics(font).elidedText(singleLine(text), Qt::ElideRight, place.width()));
}

int lineWidth(const QFont& font, const QString& text) {
    return QFontMetrics(font).horizontalAdvance(singleLine(text)) + 1;
}

void paintSign(QPainter& painter, const QRect& place, Glyph glyph, int size, const QColor& colour) {
    paintGlyph(painter, glyph, QRectF(place.left(), place.top() + (place.height() - size) / 2.0, size, size),
               colour);
}

}  // namespace vantry
