#include "Vantry/app/VantryApplication.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

namespace vantry {

VantryApplication::VantryApplication(int& argc, char** argv)
    : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("Vantry"));
    setApplicationDisplayName(QStringLiteral("Vantry"));
    setApplicationVersion(QStringLiteral("0.7.7"));
    setDesktopFileName(QStringLiteral("vantry"));
}

VantryApplication& VantryApplication::instance() {
    return *static_cast<VantryApplication*>(QCoreApplication::instance());
}

bool VantryApplication::deliver(QObject* receiver, QEvent* event, bool isRepetition) {
    const QScopedValueRollback guard(repeating, isRepetition);
    return QApplication::notify(receiver, event);
}

bool VantryApplication::notify(QObject* receiver, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        offeredRepeat = static_cast<QKeyEvent*>(event)->isAutoRepeat();
        return QApplication::notify(receiver, event);
    case QEvent::Shortcut:
        return deliver(receiver, event, offeredRepeat);
    case QEvent::KeyPress:
        return deliver(receiver, event, static_cast<QKeyEvent*>(event)->isAutoRepeat());
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return deliver(receiver, event, false);
    default:
        return QApplication::notify(receiver, event);
    }
}

}  // namespace vantry
