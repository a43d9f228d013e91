#include "Vantry/interface/design/Pressable.h"

#include <QKeyEvent>
#include <QPainter>

#include "Vantry/interface/design/ControlStates.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/FocusRing.h"
#include "Vantry/interface/design/KeyboardFocus.h"
#include "Vantry/interface/design/VantryMotion.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {

Pressable::Pressable(QWidget* parent)
    : Pressable(VantryMotion::feedback(), parent) {}

Pressable::Pressable(const VantryMotion& fill, QWidget* parent)
    : QPushButton(parent)
    , watched(new ControlStates(*this, fill)) {
    setAutoDefault(false);
    setFocusPolicy(buttonFocus);
    setFont(VantryType::font(VantryType::Role::label));
}

void Pressable::setPlain(const QString& plain) {
    if (shown == plain)
        return;
    shown = plain;
    setText(controlText(plain));
    setAccessibleName(plain);
    updateGeometry();
    update();
}

bool Pressable::showsFocus() const {
    return watched->showsFocus();
}

ControlState Pressable::state() const {
    return watched->state();
}

void Pressable::paintFocus(QPainter& painter, const QRectF& shape, qreal radius) const {
    paintRing(painter, shape, radius, Palette::of(*this).link);
}

void Pressable::paintPressed(const ControlLook& look, const std::function<void(QPainter&)>& content) {
    QPainter painter(this);
    paintAsOne(painter, rect(), look.opacity, VantryPressFeedback::scale(state()), content);
}

void Pressable::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && pressedOnce && event->isAutoRepeat())
        event->accept();
    else if (isReturn && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier)
        click();
    else
        QPushButton::keyPressEvent(event);
}

}  // namespace vantry
