#include "Vantry/interface/design/TabularLabel.h"

#include <algorithm>
#include <cmath>

#include <QFontMetricsF>
#include <QPainter>

namespace vantry {

TabularLabel::TabularLabel(VantryType::Role type, Palette::Token token, QWidget* parent)
    : QLabel(parent)
    , role(type)
    , colour(token) {
    setTextFormat(Qt::PlainText);
    setFont(VantryType::font(role));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void TabularLabel::setPlain(const QString& plain) {
    if (text() == plain)
        return;
    setText(plain);
    setAccessibleName(plain);
    updateGeometry();
}

qreal TabularLabel::advance(QChar letter) const {
    const QFontMetricsF metrics(font());
    if (!letter.isDigit())
        return metrics.horizontalAdvance(letter);
    qreal widest = metrics.horizontalAdvance(letter);
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    return widest;
}

QSize TabularLabel::sizeHint() const {
    qreal width = 0;
    for (const QChar letter : text())
        width += advance(letter);
    return {static_cast<int>(std::ceil(width)), VantryType::lineHeight(role)};
}

void TabularLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(Palette::of(*this).*colour);
    qreal left = 0;
    for (const QChar letter : text()) {
        const qreal room = advance(letter);
        painter.drawText(QRectF(left, 0, room, height()),
                         static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextDontClip), letter);
        left += room;
    }
}

}  // namespace vantry
