#include "Vantry/interface/design/Sheet.h"

#include <QEvent>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"

namespace vantry {

Sheet::Sheet(QWidget* parent)
    : QDialog(parent)
    , heading(new Label(VantryType::Role::heading, &Palette::ink, Label::Length::wrapped, this))
    , column(new QVBoxLayout)
    , row(new QHBoxLayout) {
    setWindowModality(Qt::WindowModal);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(Metrics::paddingDialog, Metrics::paddingDialog, Metrics::paddingDialog,
                              Metrics::paddingDialog);
    outer->setSpacing(Metrics::gapBlock);
    column->setSpacing(Metrics::gapField);
    row->setSpacing(Metrics::gapInline);
    row->addStretch();
    outer->addWidget(heading);
    outer->addLayout(column);
    outer->addLayout(row);
    outer->setSizeConstraint(QLayout::SetNoConstraint);
}

bool Sheet::event(QEvent* event) {
    const bool handled = QDialog::event(event);
    // As wide as all sheets are, and as high as its wrapped texts need at that width.
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show)
        setFixedSize(Metrics::dialogWidth, layout()->totalHeightForWidth(Metrics::dialogWidth));
    return handled;
}

void Sheet::setTitle(const QString& title) {
    heading->setPlain(title);
    setWindowTitle(title);
    setAccessibleName(title);
}

AlertSheet::AlertSheet(QWidget* parent)
    : Sheet(parent)
    , text(new Label(VantryType::Role::body, &Palette::ink, Label::Length::wrapped, this))
    , confirm(new Button(Button::Kind::primary, Glyph::none, this)) {
    content().addWidget(text);
    confirm->setMinimumWidth(Metrics::dialogButtonWidth);
    confirm->setDefault(true);
    buttons().addWidget(confirm);
    connect(confirm, &Button::clicked, this, &AlertSheet::accept);
}

void AlertSheet::setTexts(const QString& title, const QString& message, const QString& button) {
    setTitle(title);
    text->setPlain(message);
    setAccessibleDescription(message);
    confirm->setPlain(button);
}

QuestionSheet::QuestionSheet(QWidget* parent)
    : Sheet(parent)
    , cancel(new Button(Button::Kind::quiet, Glyph::none, this))
    , confirm(new Button(Button::Kind::destructive, Glyph::none, this)) {
    for (Button* button : {cancel, confirm}) {
        button->setMinimumWidth(Metrics::dialogButtonWidth);
        button->setPressedOnce();
        buttons().addWidget(button);
    }
    cancel->setDefault(true);
    connect(cancel, &Button::clicked, this, &QuestionSheet::reject);
    connect(confirm, &Button::clicked, this, &QuestionSheet::accept);
}

void QuestionSheet::setTexts(const QString& question, const QString& no, const QString& yes) {
    setTitle(question);
    cancel->setPlain(no);
    confirm->setPlain(yes);
}

void QuestionSheet::ask() {
    cancel->setFocus();
    open();
}

}  // namespace vantry
