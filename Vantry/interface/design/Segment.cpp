#include "Vantry/interface/design/Segment.h"

#include <algorithm>

#include <QPainter>

#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/ControlStates.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/FocusRing.h"
#include "Vantry/interface/design/KeyboardFocus.h"
#include "Vantry/interface/design/VantryMotion.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {
namespace {

QSize least(Segment::Kind kind) {
    switch (kind) {
    case Segment::Kind::regular:
        return {0, Metrics::controlHeight - 2 * Metrics::gapTrack};
    case Segment::Kind::large:
        return {Metrics::resultWidth, Metrics::resultHeight - 2 * Metrics::gapTrack};
    case Segment::Kind::tab:
        break;
    }
    return {0, Metrics::controlHeight};
}

/// What stands out from the track in either appearance.
const QColor& lightest(const Palette& palette) {
    return palette.card.lightness() >= palette.button.lightness() ? palette.card : palette.button;
}

}  // namespace

Segment::Segment(const Look& appearance, Kind strip, QWidget* parent)
    : QRadioButton(parent)
    , look(appearance)
    , kind(strip)
    , states(new ControlStates(*this, VantryMotion::selection()))
    , dot(*this) {
    setFocusPolicy(buttonFocus);
    setSizePolicy(kind == Kind::tab ? QSizePolicy::Fixed : QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
}

void Segment::setPlain(const QString& plain) {
    if (shown == plain)
        return;
    shown = plain;
    setText(controlText(plain));
    setAccessibleName(plain);
    updateGeometry();
    update();
}

QFont Segment::textFont() const {
    const bool large = kind == Kind::large;
    const QFont::Weight weight = isChecked() || large ? QFont::DemiBold : QFont::Medium;
    return VantryType::font(large ? VantryType::Role::emphasis : VantryType::Role::label, weight);
}

int Segment::iconSize() const {
    return kind == Kind::large ? Metrics::iconLarge : Metrics::icon;
}

QSize Segment::sizeHint() const {
    // Measured in the weight of the chosen one, so that nothing moves when the choice does.
    QFont widest = textFont();
    widest.setWeight(QFont::DemiBold);
    int width = lineWidth(widest, shown) + 2 * Metrics::paddingField;
    if (look.glyph != Glyph::none)
        width += iconSize() + Metrics::gapInline;
    return {std::max(width, least(kind).width()), least(kind).height()};
}

void Segment::checkStateSet() {
    QRadioButton::checkStateSet();
    followChoice();
}

void Segment::nextCheckState() {
    QRadioButton::nextCheckState();
    followChoice();
}

void Segment::followChoice() {
    dot.setSelected(isChecked());
}

void Segment::paintSurface(QPainter& painter, qreal hovered, qreal selected) const {
    const Palette& palette = Palette::of(*this);
    const bool solid = look.fill != nullptr;
    const bool hollow = look.outline != nullptr;
    const QColor chosen = solid ? palette.*look.fill : lightest(palette);
    const QColor edge = hollow ? palette.*look.outline : palette.rule;
    const ControlLook surface{.fill = mixed(mixed(Qt::transparent, palette.hover, hovered), chosen, selected),
                              .outline =
                                  solid || hollow ? Qt::transparent : mixed(Qt::transparent, edge, selected)};
    paintShape(painter, rect(), surface, Metrics::radiusControl);
    if (hollow && selected > 0)
        paintRing(painter, rect(), Metrics::radiusControl, mixed(Qt::transparent, edge, selected));
}

void Segment::paintContent(QPainter& painter, const QColor& colour) const {
    painter.setFont(textFont());
    const int textWidth = lineWidth(textFont(), shown) - 1;
    const int signWidth = look.glyph == Glyph::none ? 0 : iconSize() + Metrics::gapInline;
    const qreal left = (width() - textWidth - signWidth) / 2.0;
    paintGlyph(painter, look.glyph, QRectF(left, (height() - iconSize()) / 2.0, iconSize(), iconSize()),
               colour);
    painter.setPen(colour);
    painter.drawText(QRectF(left + signWidth, 0, textWidth + 1, height()), Qt::AlignLeft | Qt::AlignVCenter,
                     shown);
}

void Segment::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    const ControlState now = states->state();
    const bool solid = look.fill != nullptr;
    const QColor chosen = solid                     ? palette.canvas
                          : look.outline != nullptr ? palette.*look.outline
                                                    : palette.ink;
    const QColor colour = mixed(mixed(palette.muted, palette.ink, now.hovered), chosen, now.selected);
    const qreal opacity = VantryRowButtonStyle::look(palette, now).opacity;
    QPainter painter(this);
    paintAsOne(painter, rect(), opacity, 1, [&](QPainter& inside) {
        paintSurface(inside, now.hovered, now.selected);
        paintContent(inside, colour);
        if (kind == Kind::tab)
            dot.paint(inside,
                      {width() / 2.0, height() - Metrics::navigationDotFoot - Metrics::navigationDot / 2.0});
    });
    if (!states->showsFocus())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    // On a solid colour a ring on the edge would be lost: a light line inside tells it apart.
    const bool onSolid = solid && isChecked();
    constexpr qreal inset = Metrics::ring;
    paintRing(painter, onSolid ? QRectF(rect()).adjusted(inset, inset, -inset, -inset) : QRectF(rect()),
              onSolid ? Metrics::radiusControl - inset : Metrics::radiusControl,
              onSolid ? palette.canvas : palette.link);
}

}  // namespace vantry
