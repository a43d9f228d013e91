#include "Vantry/interface/library/ProjectView.h"

#include <QAbstractButton>

#include "Vantry/app/QtText.h"
#include "Vantry/documents/menu/ExportMenu.h"
#include "Vantry/interface/design/Compose.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/WorkspaceHeading.h"
#include "Vantry/interface/design/WorkspaceTabs.h"
#include "Vantry/interface/library/ProjectDetails.h"
#include "Vantry/interface/library/ProjectLists.h"
#include "Vantry/interface/library/ProjectOverview.h"
#include "Vantry/interface/library/ProjectTab.h"
#include "Vantry/interface/pages/RecordRemoval.h"

namespace vantry {

ProjectView::ProjectView(PageContext given, const Identifier& project, QWidget* parent)
    : RecordPage(std::move(given), parent)
    , projectID(project)
    , section(*this, "project-section") {
    heading = new WorkspaceHeading(2);
    documents = new ExportMenu(store(), projectID);
    heading->actions().addWidget(documents);
    tabs = new WorkspaceTabs(static_cast<int>(pages.size()));
    removal = makeRemoval(Route::library(), [this] { store().removeProject(projectID); });
    pages = {new ProjectOverview(context, projectID, [this](int tab) { choose(tab); }),
             new ProjectPeople(context, projectID), new ProjectCallSheets(context, projectID),
             new ProjectDetails(context, projectID, removal->button()),
             new ProjectReferences(context, projectID)};
    auto& content = column().content();
    content.addWidget(heading);
    content.addWidget(leading(tabs));
    for (StorePage* page : pages) {
        page->hide();
        content.addWidget(page);
    }
    content.addStretch();
    connect(tabs, &WorkspaceTabs::chosen, this, performing([this](int tab) { choose(tab); }));
}

void ProjectView::choose(int tab) {
    section.setValue(tab);
    context.refreshSoon();
}

bool ProjectView::fill() {
    const auto project = store().project(projectID);
    if (!project)
        return false;
    const QString name = toQString(project->title);
    setAccessibleName(name);
    documents->refresh();
    heading->setTexts(text(u"项目工作台", u"Production desk"), name,
                      text(u"导演 · ", u"Director · ") + (project->director.empty()
                                                              ? text(u"待填写", u"Not set")
                                                              : toQString(project->director)));
    const QStringList titles{text(u"拍摄总览", u"Overview"), text(u"剧组与演员", u"People"),
                             QStringLiteral("Call Sheet"), text(u"项目信息", u"Details"),
                             text(u"相关资料", u"Related files")};
    tabs->setTitles(titles, store().english());
    for (std::size_t tab = 0; tab < pages.size(); ++tab)
        pages.at(tab)->setAccessibleName(titles.at(static_cast<qsizetype>(tab)));
    removal->setTexts(text(u"删除项目…", u"Delete project…"),
                      text(u"删除项目及其全部记录？可用撤销结构修改恢复。",
                           u"Delete this project and all its records? You can undo the structure change."));
    showTab(section.value());
    return true;
}

void ProjectView::showTab(int chosen) {
    const int tab = qBound(0, chosen, static_cast<int>(pages.size()) - 1);
    StorePage* const page = pages.at(static_cast<std::size_t>(tab));
    tabs->setChosen(tab);
    page->refresh();
    if (tab == shownTab)
        return;
    // First, so that no move of the keyboard is noted down as one of the person's on the tab that goes.
    column().setMemoryKey("project-" + std::to_string(tab));
    if (shownTab >= 0)
        keepKeyboard(*pages.at(static_cast<std::size_t>(shownTab)));
    shownTab = tab;
    for (StorePage* other : pages)
        other->setVisible(other == page);
}

void ProjectView::keepKeyboard(const QWidget& leaving) {
    const QWidget* focused = window()->focusWidget();
    if (focused == nullptr || !leaving.isAncestorOf(focused))
        return;
    // A button has it only from those who came by keyboard: they go on seeing where they are.
    const bool byKeyboard = qobject_cast<const QAbstractButton*>(focused) != nullptr;
    tabs->focusChosen(byKeyboard ? Qt::TabFocusReason : Qt::OtherFocusReason);
}

}  // namespace vantry
