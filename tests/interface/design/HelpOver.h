#pragma once

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

namespace vantry::test {

/// What hovering over the widget shows; empty when it shows nothing.
inline QString helpOver(QWidget& widget) {
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, QPoint(2, 2), widget.mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted() ? QToolTip::text() : QString();
}

}  // namespace vantry::test
