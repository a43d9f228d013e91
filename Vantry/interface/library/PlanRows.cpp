#include "Vantry/interface/library/PlanRows.h"

#include <QPainter>

#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/CompletionLine.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/VantryMotion.h"

namespace vantry {
namespace {

using Role = VantryType::Role;

/// The surface of a row within its card.
QRectF surfaceOf(const QWidget& row) {
    return QRectF(row.rect())
        .adjusted(Metrics::gapCaption, Metrics::gapCaption, -Metrics::gapCaption, -Metrics::gapCaption);
}

}  // namespace

UpcomingRow::UpcomingRow(QWidget* parent)
    : Pressable(VantryMotion::selection(), parent) {
    setPressedOnce();
}

void UpcomingRow::setContent(const Content& wanted) {
    if (content == wanted)
        return;
    content = wanted;
    setPlain(content.name);
    setHelp(*this, content.name);
    setAccessibleDescription(content.time + QStringLiteral(" · ") + content.place);
    update();
}

void UpcomingRow::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    VantryRowButtonStyle::paint(painter, surfaceOf(*this), palette, state());
    painter.setOpacity(VantryRowButtonStyle::look(palette, state()).opacity);
    const int left = Metrics::paddingCard;
    const int chevron = width() - Metrics::paddingCard - Metrics::icon;
    paintSign(painter, {chevron, 0, Metrics::icon, height()}, Glyph::chevronRight, Metrics::icon,
              palette.muted);
    QRect place(left, Metrics::gapInline, chevron - Metrics::gapCard - left,
                VantryType::lineHeight(Role::label));
    paintLine(painter, place, VantryType::font(Role::label), palette.link, content.time);
    place.translate(0, place.height());
    place.setHeight(VantryType::lineHeight(Role::emphasis));
    paintLine(painter, place, VantryType::font(Role::emphasis), palette.ink, content.name);
    place.translate(0, place.height());
    place.setHeight(VantryType::lineHeight(Role::caption));
    paintLine(painter, place, VantryType::font(Role::caption), palette.muted, content.place);
    if (showsFocus())
        paintFocus(painter, surfaceOf(*this), Metrics::radiusControl);
}

ActRow::ActRow(QWidget* parent)
    : Pressable(VantryMotion::selection(), parent)
    , line(new CompletionLine(this)) {
    setPressedOnce();
}

void ActRow::setContent(const Content& wanted) {
    if (content == wanted)
        return;
    content = wanted;
    setPlain(content.title);
    setHelp(*this, content.title);
    setAccessibleDescription(content.counts);
    line->setDone(content.done, content.total);
    update();
}

void ActRow::resizeEvent(QResizeEvent* event) {
    Pressable::resizeEvent(event);
    constexpr int left = Metrics::paddingCard + Metrics::iconLarge + Metrics::gapCard;
    const int right = width() - Metrics::paddingCard - Metrics::iconLarge - Metrics::gapSection;
    line->setGeometry(left, height() - Metrics::gapBlock, right - left, Metrics::completionHeight);
}

void ActRow::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    VantryRowButtonStyle::paint(painter, surfaceOf(*this), palette, state());
    painter.setOpacity(VantryRowButtonStyle::look(palette, state()).opacity);
    paintSign(painter, rect().adjusted(Metrics::paddingCard, 0, 0, 0), Glyph::film, Metrics::iconLarge,
              palette.ink);
    const int arrow = width() - Metrics::paddingCard - Metrics::iconLarge;
    paintSign(painter, {arrow, 0, Metrics::iconLarge, height()}, Glyph::arrowRight, Metrics::iconLarge,
              palette.muted);
    constexpr int left = Metrics::paddingCard + Metrics::iconLarge + Metrics::gapCard;
    QRect place(left, Metrics::gapCard, arrow - Metrics::gapSection - left,
                VantryType::lineHeight(Role::emphasis));
    paintLine(painter, place, VantryType::font(Role::emphasis), palette.ink, content.title);
    place.translate(0, place.height() + Metrics::gapLines);
    place.setHeight(VantryType::lineHeight(Role::caption));
    paintLine(painter, place, VantryType::font(Role::caption), palette.muted, content.counts);
    if (showsFocus())
        paintFocus(painter, surfaceOf(*this), Metrics::radiusControl);
}

}  // namespace vantry
