#include "Vantry/interface/library/ProjectDetails.h"

#include <QVBoxLayout>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Compose.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/LabeledInput.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/ParagraphEditor.h"
#include "Vantry/interface/design/SectionLabel.h"
#include "Vantry/interface/design/VantryDisclosure.h"
#include "Vantry/interface/shots/ParametersEditor.h"

namespace vantry {

ProjectDetails::ProjectDetails(PageContext given, const Identifier& project, Button& removal, QWidget* parent)
    : StorePage(std::move(given), parent)
    , projectID(project)
    , heading(new WorkspaceSection)
    , title(new LabeledInput)
    , director(new LabeledInput)
    , notes(new ParagraphField(Metrics::notesHeight))
    , defaults(new VantryDisclosure(Glyph::sliders))
    , defaultsNote(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::wrapped))
    , parameters(new ParametersEditor(context, {[this]() -> std::optional<Parameters> {
                                                    const auto held = store().project(projectID);
                                                    return held ? std::optional(held->defaults)
                                                                : std::nullopt;
                                                },
                                                [this](std::string_view key, const Text& value) {
                                                    store().updateProject(projectID, [&](Project& held) {
                                                        held.defaults.set(key, value);
                                                    });
                                                }}))
    , defaultsOpen(*this, "project-defaults") {
    title->field().setBinding(bind(&Project::title));
    director->field().setBinding(bind(&Project::director));
    notes->editor().setBinding(bind(&Project::notes));
    defaults->setBinding(
        {[this] { return defaultsOpen.value(); }, [this](bool open) { defaultsOpen.setValue(open); }});
    defaults->content().addWidget(column(Metrics::gapCard, {defaultsNote, parameters}));

    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(Metrics::gapBlock);
    lines->addWidget(heading);
    lines->addWidget(columns(Metrics::formMinimum, Metrics::gapCard, {title, director}));
    lines->addWidget(notes);
    lines->addWidget(defaults);
    lines->addWidget(leading(&removal));
}

TextBinding ProjectDetails::bind(Text Project::*member) const {
    return binding(
        [this, member]() -> std::optional<Text> {
            const auto project = store().project(projectID);
            return project ? std::optional((*project).*member) : std::nullopt;
        },
        [this, member](const Text& text) {
            store().updateProject(projectID, [&](Project& project) { project.*member = text; });
        });
}

void ProjectDetails::refresh() {
    heading->setTexts(text(u"项目信息", u"Production details"));
    title->setCaption(text(u"项目名称", u"Project name"));
    director->setCaption(text(u"导演", u"Director"));
    notes->setTitle(text(u"项目说明", u"Project notes"));
    defaults->setTexts(text(u"项目默认参数", u"Project defaults"),
                       text(u"点击填写或查看", u"Open to view or edit"), store().english());
    defaultsNote->setPlain(text(u"新记录自动带入，已拍 Take 保持独立",
                                u"Inherited by new records; recorded takes stay independent"));
    title->field().synchronize();
    director->field().synchronize();
    notes->editor().synchronize();
    defaults->synchronize();
    parameters->refresh();
}

}  // namespace vantry
