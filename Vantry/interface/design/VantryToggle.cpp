#include "Vantry/interface/design/VantryToggle.h"

#include <QKeyEvent>
#include <QPainter>

#include "Vantry/interface/design/ControlStates.h"
#include "Vantry/interface/design/FocusRing.h"
#include "Vantry/interface/design/KeyboardFocus.h"
#include "Vantry/interface/design/VantryMotion.h"

namespace vantry {
namespace {

constexpr qreal radius = Metrics::toggleHeight / 2.0;
/// What the target is higher than the switch, above and below.
constexpr qreal inset = (Metrics::controlHeight - Metrics::toggleHeight) / 2.0;

}  // namespace

VantryToggle::VantryToggle(QWidget* parent)
    : QCheckBox(parent)
    , states(new ControlStates(*this, VantryMotion::selection())) {
    setFocusPolicy(buttonFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    states->setRing({0, inset, 0, inset}, radius, Metrics::ringGap);
}

QSize VantryToggle::sizeHint() const {
    return {Metrics::toggleWidth, Metrics::controlHeight};
}

void VantryToggle::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn)
        QCheckBox::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        click();
}

void VantryToggle::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    const ControlState now = states->state();
    const qreal on = now.selected;
    const QRectF track = QRectF(rect()).adjusted(0, inset, 0, -inset);
    const qreal knob = Metrics::toggleKnobOff + (Metrics::toggleKnobOn - Metrics::toggleKnobOff) * on;
    constexpr qreal first = radius;
    const qreal middle = track.left() + first + (track.width() - 2 * first) * on;
    QPainter painter(this);
    paintAsOne(painter, rect(), VantryQuietButtonStyle::look(palette, now).opacity,
               VantryPressFeedback::scale(now), [&](QPainter& inside) {
                   paintShape(inside, track,
                              {.fill = mixed(mixed(palette.card, palette.hover, now.hovered),
                                             palette.completed, on)},
                              radius);
                   if (on < 1)
                       paintRing(inside, track, radius, mixed(palette.muted, palette.completed, on));
                   inside.setPen(Qt::NoPen);
                   inside.setBrush(mixed(palette.muted, palette.canvas, on));
                   inside.drawEllipse(QPointF(middle, track.center().y()), knob / 2, knob / 2);
               });
}

}  // namespace vantry
