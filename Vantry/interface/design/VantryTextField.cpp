#include "Vantry/interface/design/VantryTextField.h"

#include <algorithm>
#include <limits>

#include <QEvent>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QToolTip>

#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/StoredText.h"
#include "Vantry/interface/design/VantryFieldStyle.h"
#include "Vantry/interface/design/VantryMotion.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {
namespace {

/// What Qt keeps free on either side of the text of a field.
constexpr int ownMargin = 2;

}  // namespace

VantryTextField::VantryTextField(Look style, QWidget* parent)
    : QLineEdit(parent)
    , look(style)
    , focus(*this, VantryMotion::feedback()) {
    setFont(VantryType::font(VantryType::Role::body));
    setMaxLength(std::numeric_limits<int>::max());
    setMinimumHeight(VantryFieldStyle::minimumHeight);
    const int margin = isPlain() ? -ownMargin : VantryFieldStyle::horizontalPadding - ownMargin;
    setTextMargins(margin, 0, margin, 0);
    // Not textEdited alone: dictation and other assistive tools set the text without any key.
    connect(this, &QLineEdit::textChanged, this, &VantryTextField::publish);
    connect(this, &QLineEdit::editingFinished, this, [this] {
        // Return ends the editing too, but leaves the keyboard where it is.
        if (!hasFocus())
            emit settled();
    });
}

void VantryTextField::setTitle(const QString& title) {
    if (prompt == title)
        return;
    if (accessibleName() == prompt)
        setAccessibleName(title);
    prompt = title;
    update();
}

bool VantryTextField::showsTitle() const {
    return !prompt.isEmpty() && text().isEmpty() && !composing;
}

QRect VantryTextField::textPlace() const {
    const int side = isPlain() ? 0 : VantryFieldStyle::horizontalPadding;
    return rect().adjusted(side, 0, -side, 0);
}

bool VantryTextField::event(QEvent* event) {
    // A title that is cut is told in full. Not by a tool tip of its own, which tools would read out as well.
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && showsTitle()) {
        const QFontMetrics metrics(
            VantryType::font(isPlain() ? VantryType::Role::emphasis : VantryType::Role::body));
        if (metrics.horizontalAdvance(singleLine(prompt)) > textPlace().width()) {
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), asHelp(prompt), this);
            return true;
        }
    }
    return QLineEdit::event(event);
}

void VantryTextField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    focus.setTarget(1);
}

void VantryTextField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    focus.setTarget(0);
}

void VantryTextField::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (!showsTitle())
        return;
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : VantryFieldStyle::disabledOpacity);
    painter.setFont(VantryType::font(isPlain() ? VantryType::Role::emphasis : VantryType::Role::body));
    painter.setPen(Palette::of(*this).muted);
    painter.drawText(
        textPlace(), Qt::AlignLeft | Qt::AlignVCenter,
        painter.fontMetrics().elidedText(singleLine(prompt), Qt::ElideRight, textPlace().width()));
}

void VantryTextField::setBinding(TextBinding target) {
    binding = std::move(target);
    synchronize();
}

void VantryTextField::synchronize() {
    if (!binding.read || (composing && hasFocus()))
        return;
    const auto stored = binding.read();
    if (!stored)
        return;
    base = *stored;
    if (text() == base)
        return;
    const int caret = cursorPosition();
    const int selection = selectionStart();
    const int selected = static_cast<int>(selectedText().size());
    {
        const QScopedValueRollback guard(synchronizing, true);
        setText(base);
    }
    const int end = static_cast<int>(base.size());
    if (selection >= 0)
        setSelection(std::min(selection, end), std::min(selected, end - std::min(selection, end)));
    else
        setCursorPosition(hasFocus() ? std::min(caret, end) : 0);
}

void VantryTextField::inputMethodEvent(QInputMethodEvent* event) {
    composing = !event->preeditString().isEmpty();
    QLineEdit::inputMethodEvent(event);
    update();
}

void VantryTextField::publish() {
    if (synchronizing)
        return;
    const auto stored = binding.read ? binding.read() : std::nullopt;
    if (!stored || !binding.write || text() == base)
        return;
    const QString next = mergedEdit(base, text(), *stored);
    base = text();
    if (next != *stored)
        binding.write(next);
    emit published();
}

}  // namespace vantry
