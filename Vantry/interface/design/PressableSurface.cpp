#include "Vantry/interface/design/PressableSurface.h"

#include <QPainter>
#include <QPainterPath>

#include "Vantry/interface/design/Surface.h"
#include "Vantry/interface/design/VantryMotion.h"

namespace vantry {
namespace {

QRectF surfaceOf(const QWidget& control, PressableSurface::Shape shape) {
    using Shape = PressableSurface::Shape;
    const qreal inset = shape == Shape::row        ? Metrics::gapCaption
                        : shape == Shape::denseRow ? Metrics::gapLines
                                                   : 0;
    return QRectF(control.rect()).adjusted(inset, inset, -inset, -inset);
}

}  // namespace

PressableSurface::PressableSurface(Shape of, QWidget* parent)
    : Pressable(VantryMotion::selection(), parent)
    , shape(of) {
    setPressedOnce();
}

void PressableSurface::paintSurfaceOf(QPainter& painter) const {
    const Palette& palette = Palette::of(*this);
    const QRectF surface = surfaceOf(*this, shape);
    if (shape == Shape::denseRow && parentWidget() != nullptr) {
        // What marks the first and the last of a list lies within the round corners of its card.
        QPainterPath list;
        list.addRoundedRect(QRectF(parentWidget()->rect()).translated(-pos()), Metrics::radiusCard,
                            Metrics::radiusCard);
        painter.setClipPath(list, Qt::IntersectClip);
    }
    if (shape != Shape::card) {
        VantryRowButtonStyle::paint(painter, surface, palette, state());
        return;
    }
    paintSurface(painter, surface, {palette.card, palette.rule, Metrics::hairline, Metrics::radiusCard});
    ControlLook look = VantryRowButtonStyle::look(palette, state());
    look.outline = palette.rule;
    if (look.fill.alpha() > 0)
        paintShape(painter, surface, look, Metrics::radiusCard);
}

void PressableSurface::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintAsOne(painter, rect(), VantryRowButtonStyle::look(Palette::of(*this), state()).opacity, 1,
               [&](QPainter& inside) {
                   paintSurfaceOf(inside);
                   paintContent(inside);
               });
    painter.setRenderHint(QPainter::Antialiasing);
    if (showsFocus())
        paintFocus(painter, surfaceOf(*this, shape),
                   shape == Shape::card ? Metrics::radiusCard : Metrics::radiusControl);
}

}  // namespace vantry
