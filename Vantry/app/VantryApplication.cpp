#include "Vantry/app/VantryApplication.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include "Vantry/app/FieldSettling.h"

namespace vantry {

VantryApplication::VantryApplication(int& argc, char** argv)
    : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("Vantry"));
    setApplicationDisplayName(QStringLiteral("Vantry"));
    setApplicationVersion(QStringLiteral("0.7.7"));
    setDesktopFileName(QStringLiteral("vantry"));
    watchCompositions(*this);
    // Each place where mouse, finger or pen has been is a point of a drawing. Only now: the platform has set
    // its own wish by the time the application is there.
    setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    setAttribute(Qt::AA_CompressTabletEvents, false);
}

VantryApplication& VantryApplication::instance() {
    return *static_cast<VantryApplication*>(QCoreApplication::instance());
}

bool VantryApplication::deliver(QObject* receiver, QEvent* event, bool isRepetition) {
    const QScopedValueRollback guard(repeating, isRepetition);
    return QApplication::notify(receiver, event);
}

bool VantryApplication::isRepetition(const QKeyEvent& event) const {
    // No finger lets a key go and presses it again within this time.
    constexpr quint64 sameMoment = 3;
    const bool pressedAtOnce = releasedAt != 0 && event.key() == releasedKey &&
                               event.timestamp() >= releasedAt &&
                               event.timestamp() - releasedAt <= sameMoment;
    return event.isAutoRepeat() || pressedAtOnce;
}

bool VantryApplication::isComposing() const {
    return composing != nullptr && composing == focusObject();
}

bool VantryApplication::notify(QObject* receiver, QEvent* event) {
    switch (event->type()) {
    case QEvent::InputMethod:
        composing = static_cast<QInputMethodEvent*>(event)->preeditString().isEmpty() ? nullptr : receiver;
        return QApplication::notify(receiver, event);
    case QEvent::FocusOut:
        if (receiver == composing)
            composing = nullptr;
        return QApplication::notify(receiver, event);
    case QEvent::ShortcutOverride:
        if (isComposing()) {
            // Taken, so that Qt looks for no shortcut and goes on with a plain key.
            event->accept();
            return true;
        }
        offeredRepeat = isRepetition(*static_cast<QKeyEvent*>(event));
        return QApplication::notify(receiver, event);
    case QEvent::Shortcut:
        return deliver(receiver, event, offeredRepeat);
    case QEvent::KeyPress:
        return deliver(receiver, event, isRepetition(*static_cast<QKeyEvent*>(event)));
    case QEvent::KeyRelease:
        releasedKey = static_cast<QKeyEvent*>(event)->key();
        releasedAt = static_cast<QKeyEvent*>(event)->timestamp();
        return deliver(receiver, event, false);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return deliver(receiver, event, false);
    default:
        return QApplication::notify(receiver, event);
    }
}

}  // namespace vantry
