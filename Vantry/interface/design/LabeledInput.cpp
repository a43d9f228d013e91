#include "Vantry/interface/design/LabeledInput.h"

#include <QVBoxLayout>

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"

namespace vantry {

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
