#include "Vantry/interface/library/PlanRows.h"

#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/CompletionLine.h"
#include "Vantry/interface/design/ControlText.h"

namespace vantry {
namespace {

using Role = VantryType::Role;

}  // namespace

UpcomingRow::UpcomingRow(QWidget* parent)
    : PressableSurface(Shape::row, parent) {}

void UpcomingRow::setContent(const Content& wanted) {
    if (content == wanted)
        return;
    content = wanted;
    setPlain(content.name);
    setHelp(*this, content.name);
    setAccessibleDescription(content.time + QStringLiteral(" · ") + content.place);
    update();
}

void UpcomingRow::paintContent(QPainter& painter) const {
    const Palette& palette = Palette::of(*this);
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
}

ActRow::ActRow(QWidget* parent)
    : PressableSurface(Shape::row, parent)
    , line(new CompletionLine(this)) {}

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
    PressableSurface::resizeEvent(event);
    constexpr int left = Metrics::paddingCard + Metrics::iconLarge + Metrics::gapCard;
    const int right = width() - Metrics::paddingCard - Metrics::iconLarge - Metrics::gapSection;
    line->setGeometry(left, height() - Metrics::gapBlock, right - left, Metrics::completionHeight);
}

void ActRow::paintContent(QPainter& painter) const {
    const Palette& palette = Palette::of(*this);
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
}

}  // namespace vantry
