#include "Vantry/interface/design/VantryTextField.h"

#include <algorithm>
#include <limits>

#include <QInputMethodEvent>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/StoredText.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {

VantryTextField::VantryTextField(QWidget* parent)
    : QLineEdit(parent) {
    setFont(VantryType::font(VantryType::Role::body));
    setMaxLength(std::numeric_limits<int>::max());
    setMinimumHeight(Metrics::controlHeight);
    // Qt keeps two points of its own on either side.
    constexpr int margin = Metrics::paddingField - 2;
    setTextMargins(margin, 0, margin, 0);
    // Not textEdited alone: dictation and other assistive tools set the text without any key.
    connect(this, &QLineEdit::textChanged, this, &VantryTextField::publish);
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

LabeledInput::LabeledInput(QWidget* parent)
    : QWidget(parent)
    , label(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this))
    , line(new VantryTextField(this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::gapCaption);
    column->addWidget(label);
    column->addWidget(line);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void LabeledInput::setCaption(const QString& caption) {
    label->setPlain(caption);
    line->setAccessibleName(caption);
}

}  // namespace vantry
