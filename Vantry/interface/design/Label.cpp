#include "Vantry/interface/design/Label.h"

#include <algorithm>
#include <cmath>

#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/ControlText.h"

namespace vantry {
namespace {

/// Places the text in at most `most` lines of `lineHeight`, 0 for as many as it takes, and answers how many.
int breakLines(QTextLayout& layout, int width, int lineHeight, int most) {
    layout.beginLayout();
    int lines = 0;
    while (most == 0 || lines < most) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(std::max(width, 1));
        line.setPosition(QPointF(0, lines * lineHeight + (lineHeight - line.height()) / 2));
        ++lines;
    }
    layout.endLayout();
    return std::max(lines, 1);
}

/// Whether some of the text stands in no line.
bool leavesText(const QTextLayout& layout) {
    const int lines = layout.lineCount();
    if (lines == 0)
        return false;
    const QTextLine last = layout.lineAt(lines - 1);
    return last.textStart() + last.textLength() < layout.text().size();
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
    forgetSizes();
    updateGeometry();
}

void Label::setMostLines(int lines) {
    if (mostLines == lines)
        return;
    mostLines = lines;
    // What is cut helps those who point at it.
    setAttribute(Qt::WA_TransparentForMouseEvents, length == Length::wrapped && mostLines == 0);
    forgetSizes();
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

void Label::forgetSizes() {
    hint.reset();
    heightAtWidth.reset();
}

void Label::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange)
        forgetSizes();
    QLabel::changeEvent(event);
}

QSize Label::sizeHint() const {
    if (hint)
        return *hint;
    const int lineHeight = VantryType::lineHeight(role);
    int width = 0;
    int lines = 0;
    for (const QString& line : text().split(QLatin1Char('\n'))) {
        width = std::max(width, vantry::lineWidth(font(), line));
        ++lines;
    }
    if (mostLines > 0)
        lines = std::min(lines, mostLines);
    hint = QSize(width, length == Length::wrapped ? lines * lineHeight : lineHeight);
    return *hint;
}

QSize Label::minimumSizeHint() const {
    // Room for two letters and the sign of a cut.
    const int few = 2 * VantryType::lineHeight(role);
    return {std::min(few, sizeHint().width()), VantryType::lineHeight(role)};
}

int Label::heightForWidth(int width) const {
    if (heightAtWidth && heightAtWidth->first == width)
        return heightAtWidth->second;
    // A text that fits in one line needs no breaking.
    const int lineHeight = VantryType::lineHeight(role);
    if (sizeHint().width() <= width) {
        heightAtWidth = {width, sizeHint().height()};
        return heightAtWidth->second;
    }
    QTextLayout layout(withLineSeparators(text()), font());
    configure(layout, alignment());
    heightAtWidth = {width, breakLines(layout, width, lineHeight, mostLines) * lineHeight};
    return heightAtWidth->second;
}

QString Label::shownLine() const {
    return lineWithin(font(), text(), width());
}

bool Label::isCut() const {
    if (length == Length::cut)
        return shownLine() != singleLine(text());
    if (mostLines == 0)
        return false;
    QTextLayout layout(withLineSeparators(text()), font());
    configure(layout, alignment());
    breakLines(layout, width(), VantryType::lineHeight(role), mostLines);
    return leavesText(layout);
}

bool Label::event(QEvent* event) {
    // Not by a tool tip of its own, which tools would read out behind the text itself.
    if (event->type() == QEvent::ToolTip && isCut()) {
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
        const int lineHeight = VantryType::lineHeight(role);
        const int lines = breakLines(layout, width(), lineHeight, mostLines);
        if (!leavesText(layout)) {
            layout.draw(&painter, QPointF(0, 0));
            return;
        }
        for (int line = 0; line + 1 < lines; ++line)
            layout.lineAt(line).draw(&painter, QPointF(0, 0));
        const QString rest = singleLine(text().mid(layout.lineAt(lines - 1).textStart()));
        painter.drawText(QRect(0, (lines - 1) * lineHeight, width(), lineHeight),
                         static_cast<int>(Qt::AlignVCenter | (alignment() & Qt::AlignHorizontal_Mask)),
                         lineWithin(font(), rest, width()));
        return;
    }
    painter.drawText(rect(), static_cast<int>(Qt::AlignVCenter | (alignment() & Qt::AlignHorizontal_Mask)),
                     shownLine());
}

}  // namespace vantry
