#include "Vantry/interface/library/LibraryView.h"

#include <QVBoxLayout>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Card.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/PageHeading.h"
#include "Vantry/interface/design/RowList.h"
#include "Vantry/interface/pages/RowKey.h"
#include "VantryCore/records/Library.h"

namespace vantry {

LibraryView::LibraryView(PageContext given, const std::function<void()>& startProject, QWidget* parent)
    : StorePage(std::move(given), parent) {
    auto* column = new PageColumn(this);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(column);

    heading = new PageHeading(column->body());
    newProject = new Button(Button::Kind::primary, Glyph::plus, heading);
    heading->actions().addWidget(newProject);
    empty = new EmptyCard(Glyph::folder, column->body());
    productions = new RowList(column->body());
    column->content().addWidget(heading);
    column->content().addWidget(empty);
    column->content().addWidget(productions);
    column->content().addStretch();

    connect(newProject, &Button::clicked, this, performing([startProject](bool) { startProject(); }));
    connect(productions, &RowList::activated, this, performing([this](const QByteArray& key) {
                if (const auto id = recordOf(key))
                    go(Route::project(*id));
            }));
}

void LibraryView::refresh() {
    const QString title = text(u"资料库", u"Library");
    setAccessibleName(title);
    heading->setTexts(
        text(u"拍摄工作空间", u"Production workspace"), title,
        text(u"从分镜计划，到现场的每一条记录。", u"From the first shot plan to the last take."));
    newProject->setPlain(text(u"新建项目", u"New project"));
    empty->setTexts(text(u"从一个项目开始", u"Begin with a project"),
                    text(u"添加项目，再按幕编排镜头、排期与现场记录。",
                         u"Add a production to plan shots, schedule days and log takes."));

    QList<RowList::Row> rows;
    for (const auto& project : store().library().projects) {
        qsizetype shots = 0;
        qsizetype complete = 0;
        for (const auto& act : project->acts) {
            shots += static_cast<qsizetype>(act->shots.size());
            complete += act->completedCount();
        }
        const QString director =
            project->director.empty() ? text(u"待填写", u"Not set") : toQString(project->director);
        QString detail = text(u"导演 · ", u"Director · ") + director;
        detail += text(u" · %1 幕 · %2 镜 · %3 已完成", u" · %1 acts · %2 shots · %3 complete")
                      .arg(project->acts.size())
                      .arg(shots)
                      .arg(complete);
        if (project->conflictKey)
            detail += text(u" · 保留版本", u" · Retained version");
        rows.append({rowKey(project->id), {Glyph::folder, toQString(project->title), detail, false}});
    }
    empty->setVisible(rows.isEmpty());
    productions->setRows(rows);
}

}  // namespace vantry
