#include "Vantry/interface/design/CellPainting.h"

#include <utility>

#include <QFontMetrics>
#include <QHash>
#include <QPainter>

#include "Vantry/interface/design/ControlText.h"

namespace vantry {

void paintLine(QPainter& painter, const QRect& place, const QFont& font, const QColor& colour,
               const QString& text, Qt::Alignment side) {
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(place, static_cast<int>(side | Qt::AlignVCenter), lineWithin(font, text, place.width()));
}

int lineWidth(const QFont& font, const QString& text) {
    constexpr qsizetype longest = 200;
    constexpr qsizetype most = 4096;
    const auto measured = [&] { return QFontMetrics(font).horizontalAdvance(singleLine(text)) + 1; };
    if (text.size() > longest)
        return measured();
    static QHash<std::pair<QFont, QString>, int> known;
    const auto found = known.constFind({font, text});
    if (found != known.cend())
        return *found;
    if (known.size() >= most)
        known.clear();
    return *known.insert({font, text}, measured());
}

QString lineWithin(const QFont& font, const QString& text, int width) {
    const QString line = singleLine(text);
    return lineWidth(font, line) <= width ? line : QFontMetrics(font).elidedText(line, Qt::ElideRight, width);
}

void paintSign(QPainter& painter, const QRect& place, Glyph glyph, int size, const QColor& colour) {
    paintGlyph(painter, glyph, QRectF(place.left(), place.top() + (place.height() - size) / 2.0, size, size),
               colour);
}

}  // namespace vantry
