#include "Vantry/interface/library/ProjectOverview.h"

#include <algorithm>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Card.h"
#include "Vantry/interface/design/Compose.h"
#include "Vantry/interface/design/DeskLayout.h"
#include "Vantry/interface/design/EmptyViewCard.h"
#include "Vantry/interface/design/FactRow.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/RowList.h"
#include "Vantry/interface/design/WorkspaceMetric.h"
#include "Vantry/interface/library/PlanRows.h"
#include "Vantry/interface/library/ProjectTab.h"
#include "Vantry/interface/pages/JoinedFacts.h"
#include "Vantry/interface/pages/RowKey.h"
#include "Vantry/interface/pages/ShootTime.h"
#include "Vantry/schedule/rules/LibraryOutlook.h"

namespace vantry {
namespace {

bool isOver(const CallSheet& sheet, Moment now) {
    const auto day = sheet.calendar().day(sheet.date);
    return day ? day->end <= now : sheet.date < now;
}

/// The first sheet whose day is not over, else the last one there is; null without sheets.
const CallSheet* nextCallSheet(const Project& project, Moment now) {
    const CallSheet* next = nullptr;
    const CallSheet* latest = nullptr;
    for (const CallSheet& sheet : project.callSheets()) {
        if (latest == nullptr || sheet.date >= latest->date)
            latest = &sheet;
        if (!isOver(sheet, now) && (next == nullptr || sheet.date < next->date))
            next = &sheet;
    }
    return next != nullptr ? next : latest;
}

}  // namespace

ProjectOverview::ProjectOverview(PageContext given, const Identifier& project, std::function<void(int)> open,
                                 QWidget* parent)
    : StorePage(std::move(given), parent)
    , projectID(project)
    , openTab(std::move(open)) {
    metrics = new WorkspaceMetrics({Glyph::camera, Glyph::checkCircle, Glyph::document});
    note = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::wrapped);
    add = new Button(Button::Kind::quiet, Glyph::plus);
    auto* parts = new DeskLayout(Metrics::sideWidth, Metrics::gapSection, this);
    parts->addPart(metrics, DeskLayout::Place::side, Metrics::gapBlock);
    parts->addPart(makeActs(), DeskLayout::Place::main, Metrics::gapBlock);
    parts->addPart(leading(add), DeskLayout::Place::main, Metrics::gapCard);
    parts->addPart(note, DeskLayout::Place::side, Metrics::gapField);
    parts->addPart(makeSummary(people, openPeople, ProjectTab::people), DeskLayout::Place::side,
                   Metrics::gapCard);
    parts->addPart(makeSummary(callSheet, openCallSheets, ProjectTab::callSheets), DeskLayout::Place::side,
                   Metrics::gapCard);
    connect(add, &Button::clicked, this, performing([this](bool) { addAct(); }));
}

QWidget* ProjectOverview::makeActs() {
    empty = new EmptyViewCard(Glyph::film);
    acts = new ListCard(
        Metrics::actRowHeight,
        [this](const QByteArray& key, QWidget* holder) {
            auto* row = new ActRow(holder);
            connect(row, &ActRow::clicked, this, performing([this, key](bool) {
                        if (const auto id = recordOf(key))
                            go(Route::act(projectID, *id));
                    }));
            return row;
        },
        [this](QWidget& row, const QByteArray& key) { fillAct(row, key); });
    return column(0, {empty, acts});
}

QWidget* ProjectOverview::makeSummary(FactRow*& facts, Button*& button, int tab) {
    auto* card = new Card;
    facts = new FactRow(FactRow::Edge::text);
    button = new Button(Button::Kind::quiet);
    button->setPressedOnce();
    card->content().addWidget(facts);
    card->content().addWidget(leading(button));
    connect(button, &Button::clicked, this, performing([this, tab](bool) { openTab(tab); }));
    return card;
}

void ProjectOverview::addAct() const {
    if (store().acceptCreation(VantryCreationAction::act(projectID)))
        store().addAct(projectID);
}

void ProjectOverview::refresh() {
    const auto project = store().project(projectID);
    if (!project)
        return;
    const ProjectCounts counts = count(*project);
    metrics->tile(0).setTexts(QString::number(counts.planned), text(u"计划镜头", u"Planned shots"));
    metrics->tile(1).setTexts(QStringLiteral("%1 / %2").arg(counts.completed).arg(counts.planned),
                              text(u"拍摄完成", u"Complete"));
    metrics->tile(2).setTexts(QString::number(counts.takes), text(u"现场 Take", u"Recorded takes"));
    empty->setTexts(text(u"添加第一幕", u"Add the first act"),
                    text(u"再把每一镜的画面、动作和声音安排进去。",
                         u"Then plan the image, action and sound for each shot."));
    add->setPlain(text(u"新增幕", u"Add act"));
    note->setPlain(text(u"每镜至少有一条 Good，即计为完成。",
                        u"A shot is complete when it has at least one Good take."));

    QList<QByteArray> keys;
    for (const auto& act : project->acts)
        keys.append(rowKey(act->id));
    empty->setVisible(keys.isEmpty());
    acts->setVisible(!keys.isEmpty());
    acts->setKeys(std::move(keys));
    fillSummaries(*project);
}

void ProjectOverview::fillAct(QWidget& row, const QByteArray& key) const {
    const auto id = recordOf(key);
    const auto act = id ? store().act(projectID, *id) : nullptr;
    if (!act)
        return;
    const auto active = act->activeCount();
    const auto complete = act->completedCount();
    static_cast<ActRow&>(row).setContent(
        {toQString(act->title),
         text(u"%1 镜 · %2 已完成 · %3 待拍", u"%1 shots · %2 complete · %3 remaining")
             .arg(active)
             .arg(complete)
             .arg(active - complete),
         static_cast<int>(complete), static_cast<int>(active)});
}

void ProjectOverview::fillSummaries(const Project& project) {
    people->setContent({Glyph::people, QString(), text(u"剧组与演员", u"Crew & cast"),
                        text(u"%1 位组员 · %2 位演员", u"%1 crew · %2 cast")
                            .arg(project.crew().size())
                            .arg(project.cast().size())});
    openPeople->setPlain(text(u"打开人员信息板", u"Open people board"));
    FactRow::Content sheet{Glyph::document, QString(), QStringLiteral("Call Sheet")};
    if (const CallSheet* next = nextCallSheet(project, store().now())) {
        sheet.below = QString::fromStdString(longDay(next->date, next->calendar().zone(), store().english()));
        sheet.belowLeads = !isOver(*next, store().now());
        sheet.further = joinedFacts({toQString((*next)["generalCall"]), toQString((*next)["location"])});
    } else {
        sheet.below = text(u"还没有通告单", u"No call sheets yet");
    }
    callSheet->setContent(sheet);
    openCallSheets->setPlain(text(u"管理通告单", u"Manage call sheets"));
}

}  // namespace vantry
