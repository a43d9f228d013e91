#include "Vantry/interface/navigation/NewProjectSheet.h"

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/LabeledInput.h"
#include "Vantry/interface/design/Metrics.h"
#include "VantryCore/records/Text.h"

namespace vantry {

NewProjectSheet::NewProjectSheet(QWidget* parent)
    : Sheet(parent)
    , nameField(new LabeledInput(this))
    , directorField(new LabeledInput(this))
    , cancel(new Button(Button::Kind::quiet, Glyph::none, this))
    , create(new Button(Button::Kind::primary, Glyph::none, this)) {
    content().addWidget(nameField);
    content().addWidget(directorField);
    for (Button* button : {cancel, create}) {
        button->setMinimumWidth(Metrics::dialogButtonWidth);
        buttons().addWidget(button);
    }
    create->setDefault(true);
    create->setEnabled(false);
    connect(&nameField->field(), &QLineEdit::textChanged, this,
            [this](const QString& text) { create->setEnabled(!isBlank(text.toStdString())); });
    connect(cancel, &Button::clicked, this, &NewProjectSheet::reject);
    connect(create, &Button::clicked, this, &NewProjectSheet::createPressed);
}

void NewProjectSheet::refresh(bool english) {
    setTitle(english ? QStringLiteral("New project") : QStringLiteral("新建项目"));
    nameField->setCaption(english ? QStringLiteral("Project name") : QStringLiteral("项目名称"));
    directorField->setCaption(english ? QStringLiteral("Director") : QStringLiteral("导演"));
    cancel->setPlain(english ? QStringLiteral("Cancel") : QStringLiteral("取消"));
    create->setPlain(english ? QStringLiteral("Create") : QStringLiteral("创建"));
}

void NewProjectSheet::start() {
    nameField->field().clear();
    directorField->field().clear();
    nameField->field().setFocus();
    open();
}

QString NewProjectSheet::name() const {
    return nameField->field().text();
}

QString NewProjectSheet::director() const {
    return directorField->field().text();
}

}  // namespace vantry
