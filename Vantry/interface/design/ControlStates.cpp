#include "Vantry/interface/design/ControlStates.h"

#include <QAbstractButton>
#include <QEvent>
#include <QFocusEvent>

#include "Vantry/interface/design/FocusRing.h"
#include "Vantry/interface/design/KeyboardFocus.h"
#include "Vantry/interface/design/VantryMotion.h"

namespace vantry {

ControlStates::ControlStates(QAbstractButton& watched, const VantryMotion& fill)
    : QObject(&watched)
    , button(watched)
    , enabled(watched, VantryMotion::feedback(), 1)
    , hovered(watched, fill)
    , pressed(watched, VantryMotion::feedback())
    , selected(watched, fill) {
    button.setAttribute(Qt::WA_Hover);
    button.installEventFilter(this);
}

ControlStates::~ControlStates() {
    delete shown;
}

ControlState ControlStates::state() const {
    return {.enabled = enabled.value(),
            .hovered = hovered.value(),
            .pressed = pressed.value(),
            .selected = selected.value()};
}

bool ControlStates::showsFocus() const {
    return focused && cameByKeyboard;
}

void ControlStates::setSelected(bool now) {
    chosen = now;
    button.update();
}

void ControlStates::setRing(const QMarginsF& inset, double radius, double gap) {
    ring = std::make_unique<Ring>(Ring{inset, radius, gap});
}

void ControlStates::follow() {
    const bool able = button.isEnabled();
    enabled.setTarget(able ? 1 : 0);
    hovered.setTarget(able && button.underMouse() ? 1 : 0);
    pressed.setTarget(able && button.isDown() ? 1 : 0);
    selected.setTarget(chosen || button.isChecked() ? 1 : 0);
}

void ControlStates::settle() {
    follow();
    for (Transition* transition : {&enabled, &hovered, &pressed, &selected})
        transition->settle(transition->target());
}

void ControlStates::showRing() {
    delete shown;
    if (ring != nullptr && focused && cameByKeyboard)
        shown = new FocusRing(button, ring->inset, ring->radius, ring->gap);
}

bool ControlStates::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Show:
        settle();
        break;
    // Whatever changes a button has it painted again.
    case QEvent::Paint:
        follow();
        // Its ring hides where the control was out of sight when the focus came, and does not see it arrive.
        if (shown != nullptr && shown->isHidden())
            QMetaObject::invokeMethod(
                this, [this] { showRing(); }, Qt::QueuedConnection);
        break;
    case QEvent::FocusIn:
        focused = true;
        cameByKeyboard = isKeyboardFocus(static_cast<QFocusEvent*>(event)->reason(), cameByKeyboard);
        showRing();
        break;
    case QEvent::FocusOut:
        focused = false;
        delete shown;
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace vantry
