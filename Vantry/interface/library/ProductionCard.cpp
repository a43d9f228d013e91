#include "Vantry/interface/library/ProductionCard.h"

#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/CompletionLine.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/StatusPill.h"

namespace vantry {
namespace {

using Role = VantryType::Role;

constexpr int edge = Metrics::paddingCard + Metrics::hairline;

}  // namespace

ProductionCard::ProductionCard(QWidget* parent)
    : PressableSurface(Shape::card, parent)
    , pill(new StatusPill(StatusKind::neutral, this))
    , line(new CompletionLine(this)) {
    pill->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ProductionCard::setContent(const Content& wanted) {
    if (content == wanted)
        return;
    content = wanted;
    setPlain(content.title);
    setHelp(*this, content.title);
    QStringList facts{content.director, content.acts, content.shots, content.complete};
    if (!content.mark.isEmpty())
        facts.prepend(content.mark);
    setAccessibleDescription(facts.join(QStringLiteral(" · ")));
    pill->setPlain(content.mark);
    pill->setVisible(!content.mark.isEmpty());
    line->setDone(content.done, content.total);
    arrange();
    update();
}

void ProductionCard::resizeEvent(QResizeEvent* event) {
    PressableSurface::resizeEvent(event);
    arrange();
}

void ProductionCard::arrange() {
    line->setGeometry(edge, height() - edge - Metrics::completionHeight, width() - 2 * edge,
                      Metrics::completionHeight);
    pill->resize(pill->sizeHint());
    pill->move(width() - edge - Metrics::icon - Metrics::gapField - pill->width(),
               edge + (VantryType::lineHeight(Role::emphasis) - pill->height()) / 2);
}

void ProductionCard::paintContent(QPainter& painter) const {
    const Palette& palette = Palette::of(*this);
    const int right = width() - edge;
    QRect place(edge, edge, width() - 2 * edge, VantryType::lineHeight(Role::emphasis));
    paintSign(painter, place, Glyph::folder, Metrics::iconLarge, palette.ink);
    paintSign(painter, {right - Metrics::icon, place.top(), Metrics::icon, place.height()},
              Glyph::arrowUpRight, Metrics::icon, palette.muted);
    const int textEnd =
        pill->isHidden() ? right - Metrics::icon - Metrics::gapField : pill->x() - Metrics::gapField;
    const int titleLeft = edge + Metrics::iconLarge + Metrics::gapField;
    paintLine(painter, {titleLeft, place.top(), textEnd - titleLeft, place.height()},
              VantryType::font(Role::emphasis), palette.ink, content.title);

    place.translate(0, place.height() + Metrics::gapField);
    place.setHeight(VantryType::lineHeight(Role::label));
    paintLine(painter, place, VantryType::font(Role::label), palette.muted, content.director);

    place.translate(0, place.height() + Metrics::gapField);
    place.setHeight(VantryType::lineHeight(Role::caption));
    const QFont caption = VantryType::font(Role::caption);
    paintLine(painter, place, caption, palette.muted, content.acts);
    QRect shots = place;
    shots.setLeft(edge + lineWidth(caption, content.acts) + Metrics::gapCard);
    paintSign(painter, shots, Glyph::film, Metrics::iconSmall, palette.ink);
    shots.setLeft(shots.left() + Metrics::iconSmall + Metrics::gapTrack);
    paintLine(painter, shots, caption, palette.muted, content.shots);
    paintLine(painter, place, caption, content.done > 0 ? palette.completed : palette.muted, content.complete,
              Qt::AlignRight);
}

}  // namespace vantry
