#include "Vantry/interface/design/LinkCard.h"

#include <algorithm>

#include <QPainter>
#include <QTextLayout>

#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {
namespace {

constexpr int textLeft = Metrics::paddingCard + Metrics::iconLarge + Metrics::gapField;

/// The lines of the detail in that width.
QStringList linesOf(const QString& text, const QFont& font, int width) {
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::max(width, 1));
        lines.append(text.mid(line.textStart(), line.textLength()));
    }
    layout.endLayout();
    return lines;
}

}  // namespace

LinkCard::LinkCard(Glyph sign, QWidget* parent)
    : PressableSurface(Shape::card, parent)
    , glyph(sign) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void LinkCard::setTexts(const QString& title, const QString& about) {
    setPlain(title);
    setAccessibleDescription(about);
    if (detail == about)
        return;
    detail = about;
    updateGeometry();
    update();
}

int LinkCard::heightForWidth(int width) const {
    const QStringList lines =
        linesOf(detail, VantryType::font(VantryType::Role::caption), width - textLeft - Metrics::paddingCard);
    return 2 * Metrics::paddingCard - Metrics::gapInline +
           VantryType::lineHeight(VantryType::Role::emphasis) +
           static_cast<int>(lines.size()) * VantryType::lineHeight(VantryType::Role::caption);
}

QSize LinkCard::sizeHint() const {
    return {Metrics::sideWidth, heightForWidth(Metrics::sideWidth)};
}

QSize LinkCard::minimumSizeHint() const {
    return {Metrics::controlHeight * 2, Metrics::controlHeight};
}

void LinkCard::paintContent(QPainter& painter) const {
    const Palette& palette = Palette::of(*this);
    paintSign(painter, rect().adjusted(Metrics::paddingCard, 0, 0, 0), glyph, Metrics::iconLarge,
              palette.ink);
    const int width = this->width() - textLeft - Metrics::paddingCard;
    const int titleHeight = VantryType::lineHeight(VantryType::Role::emphasis);
    int top = Metrics::paddingCard - Metrics::gapTrack;
    paintLine(painter, {textLeft, top, width, titleHeight}, VantryType::font(VantryType::Role::emphasis),
              palette.ink, plain());
    top += titleHeight;
    const QFont font = VantryType::font(VantryType::Role::caption);
    const int lineHeight = VantryType::lineHeight(VantryType::Role::caption);
    for (const QString& line : linesOf(detail, font, width)) {
        paintLine(painter, {textLeft, top, width, lineHeight}, font, palette.muted, line);
        top += lineHeight;
    }
}

}  // namespace vantry
