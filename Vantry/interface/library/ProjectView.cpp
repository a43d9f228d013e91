#include "Vantry/interface/library/ProjectView.h"

#include "Vantry/app/QtText.h"
#include "Vantry/documents/menu/ExportMenu.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Card.h"
#include "Vantry/interface/design/LabeledInput.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/PageHeading.h"
#include "Vantry/interface/design/ParagraphEditor.h"
#include "Vantry/interface/design/RowList.h"
#include "Vantry/interface/design/VantryWorkLayout.h"
#include "Vantry/interface/pages/RecordRemoval.h"
#include "Vantry/interface/pages/RowKey.h"

namespace vantry {

ProjectView::ProjectView(PageContext given, const Identifier& project, QWidget* parent)
    : RecordPage(std::move(given), parent)
    , projectID(project) {
    QWidget* body = column().body();
    heading = new PageHeading(body);
    documents = new ExportMenu(store(), projectID, heading);
    heading->actions().addWidget(documents);
    auto* desk = new QWidget(body);
    auto* parts = new VantryWorkLayout(Metrics::sideWidth, Metrics::gapSection, desk);
    parts->addWidget(makeOverview(desk));
    parts->addWidget(makeDetails(desk));
    column().content().addWidget(heading);
    removal = makeRemoval(Route::library(), [this] { store().removeProject(projectID); });
    column().content().addWidget(desk);
    column().content().addWidget(&removal->button());
    column().content().addStretch();
}

QWidget* ProjectView::makeOverview(QWidget* parent) {
    auto* overview = new QWidget(parent);
    empty = new EmptyCard(Glyph::film, overview);
    acts = new RowList(overview);
    add = new Button(Button::Kind::quiet, Glyph::plus, overview);
    auto* lines = new QVBoxLayout(overview);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(Metrics::gapCard);
    lines->addWidget(empty);
    lines->addWidget(acts);
    lines->addWidget(add);
    lines->addStretch();
    connect(acts, &RowList::activated, this, performing([this](const QByteArray& key) {
                if (const auto id = recordOf(key))
                    go(Route::act(projectID, *id));
            }));
    connect(add, &Button::clicked, this, performing([this](bool) { addAct(); }));
    return overview;
}

QWidget* ProjectView::makeDetails(QWidget* parent) {
    details = new Card(parent);
    title = new LabeledInput(details);
    director = new LabeledInput(details);
    notes = new ParagraphField(Metrics::notesHeight, details);
    title->field().setBinding(bind(&Project::title));
    director->field().setBinding(bind(&Project::director));
    notes->editor().setBinding(bind(&Project::notes));
    for (QWidget* field : std::initializer_list<QWidget*>{title, director, notes})
        details->content().addWidget(field);
    return details;
}

TextBinding ProjectView::bind(Text Project::*member) const {
    return binding(
        [this, member]() -> std::optional<Text> {
            const auto project = store().project(projectID);
            return project ? std::optional((*project).*member) : std::nullopt;
        },
        [this, member](const Text& text) {
            store().updateProject(projectID, [&](Project& project) { project.*member = text; });
        });
}

void ProjectView::addAct() const {
    if (store().acceptCreation(VantryCreationAction::act(projectID)))
        store().addAct(projectID);
}

bool ProjectView::fill() {
    const auto project = store().project(projectID);
    if (!project)
        return false;
    fillTexts(*project);
    title->field().synchronize();
    director->field().synchronize();
    notes->editor().synchronize();

    QList<RowList::Row> rows;
    for (const auto& act : project->acts) {
        const auto active = act->activeCount();
        const auto complete = act->completedCount();
        const QString detail = text(u"%1 镜 · %2 已完成 · %3 待拍", u"%1 shots · %2 complete · %3 remaining")
                                   .arg(active)
                                   .arg(complete)
                                   .arg(active - complete);
        rows.append({rowKey(act->id), {Glyph::film, toQString(act->title), detail, false}});
    }
    empty->setVisible(rows.isEmpty());
    acts->setRows(rows);
    return true;
}

void ProjectView::fillTexts(const Project& project) {
    const QString name = toQString(project.title);
    setAccessibleName(name);
    documents->refresh();
    heading->setTexts(text(u"项目工作台", u"Production desk"), name,
                      text(u"导演 · ", u"Director · ") + (project.director.empty()
                                                              ? text(u"待填写", u"Not set")
                                                              : toQString(project.director)));
    empty->setTexts(text(u"添加第一幕", u"Add the first act"),
                    text(u"再把每一镜的画面、动作和声音安排进去。",
                         u"Then plan the image, action and sound for each shot."));
    add->setPlain(text(u"新增幕", u"Add act"));
    removal->setTexts(text(u"删除项目…", u"Delete project…"),
                      text(u"删除项目及其全部记录？可用撤销结构修改恢复。",
                           u"Delete this project and all its records? You can undo the structure change."));
    details->setTitle(text(u"项目信息", u"Production details"));
    title->setCaption(text(u"项目名称", u"Project name"));
    director->setCaption(text(u"导演", u"Director"));
    notes->setTitle(text(u"项目说明", u"Project notes"));
}

}  // namespace vantry
