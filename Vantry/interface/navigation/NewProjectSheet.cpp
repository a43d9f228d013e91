#include "Vantry/interface/navigation/NewProjectSheet.h"

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/VantryTextField.h"
#include "VantryCore/records/Text.h"

namespace vantry {

NewProjectSheet::NewProjectSheet(QWidget* parent)
    : Sheet(parent)
    , nameField(new VantryTextField(this))
    , directorField(new VantryTextField(this))
    , cancel(new Button(Button::Kind::quiet, Glyph::none, this))
    , create(new Button(Button::Kind::primary, Glyph::none, this)) {
    content().setSpacing(Metrics::gapBlock);
    content().addWidget(nameField);
    content().addWidget(directorField);
    for (Button* button : {cancel, create}) {
        button->setMinimumWidth(Metrics::dialogButtonWidth);
        buttons().addWidget(button);
    }
    create->setDefault(true);
    fillCreate();
    connect(nameField, &QLineEdit::textChanged, this, &NewProjectSheet::fillCreate);
    connect(cancel, &Button::clicked, this, &NewProjectSheet::reject);
    connect(create, &Button::clicked, this, &NewProjectSheet::createPressed);
}

void NewProjectSheet::fillCreate() {
    create->setEnabled(canWrite && !isBlank(name().toStdString()));
}

void NewProjectSheet::refresh(bool english, bool loadFailed) {
    canWrite = !loadFailed;
    fillCreate();
    setTitle(english ? QStringLiteral("New project") : QStringLiteral("新建项目"));
    nameField->setTitle(english ? QStringLiteral("Project name") : QStringLiteral("项目名称"));
    directorField->setTitle(english ? QStringLiteral("Director") : QStringLiteral("导演"));
    cancel->setPlain(english ? QStringLiteral("Cancel") : QStringLiteral("取消"));
    create->setPlain(english ? QStringLiteral("Create") : QStringLiteral("创建"));
}

void NewProjectSheet::start() {
    nameField->clear();
    directorField->clear();
    nameField->setFocus();
    open();
}

QString NewProjectSheet::name() const {
    return nameField->text();
}

QString NewProjectSheet::director() const {
    return directorField->text();
}

}  // namespace vantry
