#include "Vantry/interface/design/Label.h"

#include <algorithm>
#include <cmath>

#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

#include "Vantry/interface/design/ControlText.h"

namespace vantry {
namespace {

/// Places the text in lines of `lineHeight` and answers the height of all.
int breakLines(QTextLayout& layout, int width, int lineHeight) {
    layout.beginLayout();
    int top = 0;
    while (true) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(std::max(width, 1));
        line.setPosition(QPointF(0, top + (lineHeight - line.height()) / 2));
        top += lineHeight;
    }
    layout.endLayout();
    return std::max(top, lineHeight);
}

QString withLineSeparators(const QString& text) {
    QString lines = text;
    return lines.replace(QLatin1Char('\n'), QChar(QChar::LineSeparator));
}

void configure(QTextLayout& layout, Qt::Alignment alignment) {
    QTextOption option(alignment & Qt::AlignHorizontal_Mask);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
}

}  // namespace

Label::Label(VantryType::Role type, Palette::Token token, Length behaviour, QWidget* parent)
    : QLabel(parent)
    , role(type)
    , colour(token)
    , length(behaviour) {
    setTextFormat(Qt::PlainText);
    setFont(VantryType::font(role));
    setAttribute(Qt::WA_TransparentForMouseEvents, length == Length::wrapped);
    // A fixed height would be that of one line: Qt never gives a fixed thing more than its hint.
    QSizePolicy policy(QSizePolicy::Preferred,
                       length == Length::wrapped ? QSizePolicy::Minimum : QSizePolicy::Fixed);
    policy.setHeightForWidth(length == Length::wrapped);
    setSizePolicy(policy);
}

void Label::setPlain(const QString& plain) {
    if (text() == plain)
        return;
    setText(plain);
    setAccessibleName(plain);
    updateGeometry();
}

void Label::setColour(Palette::Token token) {
    if (colour == token)
        return;
    colour = token;
    update();
}

void Label::setStruckOut(bool struck) {
    if (font().strikeOut() == struck)
        return;
    QFont changed = font();
    changed.setStrikeOut(struck);
    setFont(changed);
}

QSize Label::sizeHint() const {
    const int lineHeight = VantryType::lineHeight(role);
    int width = 0;
    int lines = 0;
    for (const QString& line : text().split(QLatin1Char('\n'))) {
        width = std::max(width, fontMetrics().horizontalAdvance(line) + 1);
        ++lines;
    }
    return {width, length == Length::wrapped ? lines * lineHeight : lineHeight};
}

QSize Label::minimumSizeHint() const {
    const int few = fontMetrics().horizontalAdvance(QStringLiteral("MM…"));
    return {std::min(few, sizeHint().width()), VantryType::lineHeight(role)};
}

int Label::heightForWidth(int width) const {
    QTextLayout layout(withLineSeparators(text()), font());
    configure(layout, alignment());
    return breakLines(layout, width, VantryType::lineHeight(role));
}

QString Label::shownLine() const {
    return fontMetrics().elidedText(singleLine(text()), Qt::ElideRight, width());
}

bool Label::event(QEvent* event) {
    // Not by a tool tip of its own, which tools would read out behind the text itself.
    if (event->type() == QEvent::ToolTip && length == Length::cut && shownLine() != singleLine(text())) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), asHelp(text()), this);
        return true;
    }
    return QLabel::event(event);
}

void Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(Palette::of(*this).*colour);
    if (length == Length::wrapped) {
        QTextLayout layout(withLineSeparators(text()), font());
        configure(layout, alignment());
        breakLines(layout, width(), VantryType::lineHeight(role));
        layout.draw(&painter, QPointF(0, 0));
        return;
    }
    painter.drawText(rect(), static_cast<int>(Qt::AlignVCenter | (alignment() & Qt::AlignHorizontal_Mask)),
                     shownLine());
}

}  // namespace vantry
