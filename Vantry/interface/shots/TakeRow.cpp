#include "Vantry/interface/shots/TakeRow.h"

#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/StatusPill.h"
#include "Vantry/interface/pages/JoinedFacts.h"

namespace vantry {
namespace {

constexpr int edge = Metrics::gapBlock;

}  // namespace

TakeRow::TakeRow(QWidget* parent)
    : PressableSurface(Shape::row, parent)
    , pill(new StatusPill(StatusKind::warning, this)) {
    pill->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void TakeRow::setContent(const Content& wanted) {
    if (content == wanted)
        return;
    content = wanted;
    setPlain(content.name);
    setAccessibleDescription(joinedFacts({content.result, content.stars, content.notes, content.mark}));
    pill->setPlain(content.mark);
    pill->setVisible(!content.mark.isEmpty());
    arrange();
    update();
}

void TakeRow::resizeEvent(QResizeEvent* event) {
    PressableSurface::resizeEvent(event);
    arrange();
}

void TakeRow::arrange() {
    pill->resize(pill->sizeHint());
    pill->move(width() - edge - Metrics::icon - Metrics::gapCard - pill->width(),
               (height() - pill->height()) / 2);
}

void TakeRow::paintContent(QPainter& painter) const {
    using Role = VantryType::Role;
    const Palette& palette = Palette::of(*this);
    const int chevron = width() - edge - Metrics::icon;
    paintSign(painter, {chevron, 0, Metrics::icon, height()}, Glyph::chevronRight, Metrics::icon,
              palette.muted);
    int left = edge;
    const auto line = [&](Role role, QFont::Weight weight, int given, const QColor& colour,
                          const QString& text) {
        const int lineHeight = VantryType::lineHeight(role);
        paintLine(painter, {left, (height() - lineHeight) / 2, given, lineHeight},
                  VantryType::font(role, weight), colour, text);
        left += given + Metrics::gapCard;
    };
    line(Role::emphasis, QFont::DemiBold, Metrics::takeNameWidth, palette.ink, content.name);
    const QColor verdict = palette.*content.colour;
    paintSign(painter, {left, 0, Metrics::iconSmall, height()}, content.sign, Metrics::iconSmall, verdict);
    left += Metrics::iconSmall + Metrics::gapCaption;
    line(Role::label, QFont::DemiBold, Metrics::takeResultWidth - Metrics::iconSmall, verdict,
         content.result);
    line(Role::caption, QFont::Normal, Metrics::takeStarsWidth, palette.muted, content.stars);
    const int end = pill->isHidden() ? chevron : pill->x();
    line(Role::label, QFont::Normal, std::max(end - Metrics::gapCard - left, 0),
         content.isHint ? palette.muted : palette.ink, content.notes);
}

}  // namespace vantry
