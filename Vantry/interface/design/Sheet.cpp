#include "Vantry/interface/design/Sheet.h"

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"

namespace vantry {

Sheet::Sheet(QWidget* parent)
    : QDialog(parent), heading(new Label(VantryType::Role::heading, &Palette::ink, Label::Length::wrapped, this)),
      column(new QVBoxLayout), row(new QHBoxLayout) {
    setWindowModality(Qt::WindowModal);
    setFixedWidth(Metrics::dialogWidth);
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
    outer->setSizeConstraint(QLayout::SetMinimumSize);
}

void Sheet::setTitle(const QString& title) {
    heading->setPlain(title);
    setWindowTitle(title);
    setAccessibleName(title);
}

AlertSheet::AlertSheet(QWidget* parent)
    : Sheet(parent), text(new Label(VantryType::Role::body, &Palette::ink, Label::Length::wrapped, this)),
      confirm(new Button(Button::Kind::primary, Glyph::none, this)) {
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

} // namespace vantry
