#include "Vantry/interface/shots/ParametersEditor.h"

#include <utility>

#include <QVBoxLayout>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Compose.h"
#include "Vantry/interface/design/LabeledInput.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/SectionLabel.h"
#include "Vantry/interface/design/WorkspaceColumns.h"

namespace vantry {
ParametersEditor::ParametersEditor(PageContext given, ParametersBinding binding, QWidget* parent)
    : StorePage(std::move(given), parent)
    , parameters(std::move(binding)) {
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(Metrics::gapCard);
    for (const ParameterSection& section : parameterSections())
        lines->addWidget(makeSection(section));
}

QWidget* ParametersEditor::makeSection(const ParameterSection& section) {
    auto* title = new SectionLabel;
    sections.push_back({&section, title});
    auto* form = new QWidget;
    auto* layout = new WorkspaceColumns(Metrics::formMinimum, Metrics::gapField, form);
    for (const ParameterField& setting : section.fields) {
        auto* input = new LabeledInput(form);
        input->field().setBinding(binding(
            [this, key = setting.key]() -> std::optional<Text> {
                const auto held = parameters.read();
                return held ? std::optional((*held)[key]) : std::nullopt;
            },
            [this, key = setting.key](const Text& text) { parameters.write(key, text); }));
        connect(&input->field(), &VantryTextField::settled, this, &ParametersEditor::finished);
        layout->addWidget(input);
        fields.push_back({&setting, input});
    }
    return column(Metrics::gapInline, {title, form});
}

void ParametersEditor::refresh() {
    const bool english = store().english();
    for (const Section& section : sections)
        section.title->setTexts(toQString(english ? section.section->en : section.section->zh));
    for (const Field& field : fields) {
        const QString title = toQString(english ? field.setting->en : field.setting->zh);
        field.input->setCaption(title);
        field.input->field().setTitle(title);
        field.input->field().synchronize();
    }
}

}  // namespace vantry
