#include "Vantry/interface/design/ParagraphCaret.h"

#include <algorithm>

#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QPainter>
#include <QStyleHints>
#include <QTextEdit>
#include <QTimerEvent>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"

namespace vantry {
namespace {

/// Whether the caret has no place in what is being composed.
bool conceals(const QInputMethodEvent& event) {
    const auto& attributes = event.attributes();
    return !event.preeditString().isEmpty() &&
           std::any_of(attributes.begin(), attributes.end(), [](const QInputMethodEvent::Attribute& told) {
               return told.type == QInputMethodEvent::Cursor && told.length == 0;
           });
}

}  // namespace

ParagraphCaret::ParagraphCaret(QTextEdit& owner)
    : QObject(&owner)
    , view(owner) {
    view.setCursorWidth(0);
    view.installEventFilter(this);
    view.viewport()->installEventFilter(this);
    connect(&view, &QTextEdit::cursorPositionChanged, this, &ParagraphCaret::rest);
    connect(&view, &QTextEdit::textChanged, this, &ParagraphCaret::rest);
}

QRect ParagraphCaret::place() const {
    const QRect line = view.cursorRect();
    return {line.topLeft(), QSize(Metrics::caret, line.height())};
}

void ParagraphCaret::paint() {
    if (!isLit() || !view.isEnabled())
        return;
    shown = place();
    QPainter(view.viewport()).fillRect(shown, Palette::of(view).editorInk);
}

void ParagraphCaret::setLit(bool now) {
    lit = now;
    view.viewport()->update(shown);
    view.viewport()->update(place());
}

void ParagraphCaret::rest() {
    if (!focused)
        return;
    const int period = QGuiApplication::styleHints()->cursorFlashTime();
    if (period > 1)
        pace.start(period / 2, this);
    setLit(true);
}

void ParagraphCaret::timerEvent(QTimerEvent* event) {
    if (event->timerId() == pace.timerId())
        setLit(!lit);
    else
        QObject::timerEvent(event);
}

bool ParagraphCaret::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
        focused = true;
        rest();
        break;
    case QEvent::FocusOut:
        focused = false;
        concealed = false;
        pace.stop();
        setLit(false);
        break;
    case QEvent::InputMethod:
        concealed = conceals(*static_cast<QInputMethodEvent*>(event));
        break;
    // While something is dragged over it the view shows where that would go.
    case QEvent::DragEnter:
        view.setCursorWidth(Metrics::caret);
        break;
    case QEvent::DragLeave:
    case QEvent::Drop:
        view.setCursorWidth(0);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace vantry
