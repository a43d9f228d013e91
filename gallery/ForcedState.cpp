#include "gallery/ForcedState.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QFocusEvent>

namespace vantry::gallery {

Phrase nameOf(State state) {
    switch (state) {
    case State::hover:
        return {"悬停", "hover"};
    case State::pressed:
        return {"按下", "pressed"};
    case State::focused:
        return {"焦点", "focused"};
    case State::disabled:
        return {"停用", "disabled"};
    case State::normal:
        break;
    }
    return {"常态", "normal"};
}

void force(QWidget& control, State state) {
    control.setAttribute(Qt::WA_TransparentForMouseEvents);
    control.setFocusPolicy(Qt::NoFocus);
    if (state == State::hover || state == State::pressed)
        control.setAttribute(Qt::WA_UnderMouse);
    if (auto* button = qobject_cast<QAbstractButton*>(&control))
        button->setDown(state == State::pressed);
    if (state == State::focused) {
        // Only one control has the focus, but each believes what it is told. A field that is come to by Tab
        // would have its text selected.
        const bool isButton = qobject_cast<QAbstractButton*>(&control) != nullptr;
        QFocusEvent event(QEvent::FocusIn, isButton ? Qt::TabFocusReason : Qt::OtherFocusReason);
        QCoreApplication::sendEvent(&control, &event);
    }
    control.setEnabled(state != State::disabled);
    control.update();
}

}  // namespace vantry::gallery
