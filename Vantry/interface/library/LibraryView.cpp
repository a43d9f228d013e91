#include "Vantry/interface/library/LibraryView.h"

#include <algorithm>
#include <chrono>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Compose.h"
#include "Vantry/interface/design/DeskLayout.h"
#include "Vantry/interface/design/EmptyViewCard.h"
#include "Vantry/interface/design/LinkCard.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/RowList.h"
#include "Vantry/interface/design/SectionLabel.h"
#include "Vantry/interface/design/WorkspaceHeading.h"
#include "Vantry/interface/design/WorkspaceMetric.h"
#include "Vantry/interface/library/PlanRows.h"
#include "Vantry/interface/library/ProductionCard.h"
#include "Vantry/interface/pages/JoinedFacts.h"
#include "Vantry/interface/pages/RowKey.h"
#include "Vantry/interface/pages/ShootTime.h"
#include "Vantry/schedule/rules/LibraryOutlook.h"

namespace vantry {

LibraryView::LibraryView(PageContext given, const std::function<void()>& startProject, QWidget* parent)
    : StorePage(std::move(given), parent) {
    heading = new WorkspaceHeading(2);
    newProject = new Button(Button::Kind::primary, Glyph::plus);
    heading->actions().addWidget(newProject);
    metrics = new WorkspaceMetrics({Glyph::folder, Glyph::camera, Glyph::checkCircle});
    search = new LinkCard(Glyph::search);

    auto* desk = new QWidget;
    auto* parts = new DeskLayout(Metrics::sideWidth, Metrics::gapSection, desk);
    parts->addPart(metrics, DeskLayout::Place::side, Metrics::gapSection);
    parts->addPart(makeProductions(), DeskLayout::Place::main, Metrics::gapSection);
    parts->addPart(makeUpcoming(), DeskLayout::Place::side, Metrics::gapSection);
    parts->addPart(search, DeskLayout::Place::side, Metrics::gapSection);

    auto& content = crewPage(this, PageColumn::Above::nothing)->content();
    content.setSpacing(Metrics::gapSection);
    content.addWidget(heading);
    content.addWidget(desk);
    content.addStretch();
    connect(newProject, &Button::clicked, this, performing([startProject](bool) { startProject(); }));
    connect(search, &LinkCard::clicked, this, performing([this](bool) { go(Route::search()); }));
}

LibraryView::~LibraryView() = default;

QWidget* LibraryView::makeProductions() {
    empty = new EmptyViewCard(Glyph::folder);
    productionsTitle = new WorkspaceSection;
    productions = new LazyCells(
        {Metrics::productionHeight, Metrics::gapCard, Metrics::cardsMinimum},
        [this](const QByteArray& key, QWidget* holder) {
            auto* card = new ProductionCard(holder);
            connect(card, &ProductionCard::clicked, this, performing([this, key](bool) {
                        if (const auto id = recordOf(key))
                            go(Route::project(*id));
                    }));
            return card;
        },
        [this](QWidget& card, const QByteArray& key) { fillProduction(card, key); });
    productionsBlock = column(Metrics::gapField, {productionsTitle, productions});
    return column(0, {empty, productionsBlock});
}

QWidget* LibraryView::makeUpcoming() {
    upcomingTitle = new WorkspaceSection;
    noUpcoming = new EmptyViewCard(Glyph::calendar);
    upcoming = new ListCard(
        Metrics::upcomingRowHeight,
        [this](const QByteArray& key, QWidget* holder) {
            auto* row = new UpcomingRow(holder);
            connect(row, &UpcomingRow::clicked, this, performing([this, key](bool) {
                        if (const auto* shot = upcomingShot(key))
                            go(Route::shot(shot->project->id, shot->act->id, shot->shot->id));
                    }));
            return row;
        },
        [this](QWidget& row, const QByteArray& key) { fillUpcoming(row, key); });
    openCalendar = new Button(Button::Kind::quiet);
    openCalendar->setTrailing(Glyph::arrowRight);
    connect(openCalendar, &Button::clicked, this, performing([this](bool) { go(Route::calendar()); }));
    return column(Metrics::gapField, {upcomingTitle, noUpcoming, upcoming, leading(openCalendar)});
}

void LibraryView::refresh() {
    fillTexts();
    const Library& library = store().library();
    LibraryOutlook found = outlook(library, store().now());
    next = std::move(found.upcoming);
    metrics->tile(0).setTexts(QString::number(library.projects.size()), text(u"项目", u"Productions"));
    metrics->tile(1).setTexts(QString::number(found.planned), text(u"计划镜头", u"Planned shots"));
    metrics->tile(2).setTexts(QString::number(found.completed), text(u"已完成镜头", u"Completed shots"));

    QList<QByteArray> keys;
    for (const auto& project : library.projects)
        keys.append(rowKey(project->id));
    empty->setVisible(keys.isEmpty());
    productionsBlock->setVisible(!keys.isEmpty());
    productions->setKeys(std::move(keys));

    QList<QByteArray> shots;
    for (const auto& location : next)
        shots.append(rowKey(location.id()));
    noUpcoming->setVisible(shots.isEmpty());
    upcoming->setVisible(!shots.isEmpty());
    upcoming->setKeys(std::move(shots));
    waitForEnd();
}

void LibraryView::waitForEnd() {
    nextEnd.reset();
    const auto endOf = [](const ShotLocation& location) { return *location.shot->scheduledEnd(); };
    const auto first = std::min_element(next.begin(), next.end(), [&](const auto& one, const auto& other) {
        return endOf(one) < endOf(other);
    });
    if (first == next.end())
        return;
    // The one that ends first goes behind its end. A machine that slept did not count, and a year may turn:
    // so never wait for long.
    constexpr std::chrono::milliseconds longest = std::chrono::hours(1);
    const std::chrono::duration<double> left(endOf(*first).seconds - store().now().seconds);
    const auto wait = left < longest ? std::max(std::chrono::ceil<std::chrono::milliseconds>(left),
                                                std::chrono::milliseconds(0)) +
                                           std::chrono::milliseconds(1)
                                     : longest;
    nextEnd = store().clock().callAfter(wait, [this] { context.refreshSoon(); });
}

void LibraryView::fillTexts() {
    const QString title = text(u"资料库", u"Library");
    setAccessibleName(title);
    heading->setTexts(
        text(u"拍摄工作空间", u"Production workspace"), title,
        text(u"从分镜计划，到现场的每一条记录。", u"From the first shot plan to the last take."));
    newProject->setPlain(text(u"新建项目", u"New project"));
    empty->setTexts(text(u"从一个项目开始", u"Begin with a project"),
                    text(u"添加项目，再按幕编排镜头、排期与现场记录。",
                         u"Add a production to plan shots, schedule days and log takes."));
    productionsTitle->setTexts(text(u"我的项目", u"Productions"));
    upcomingTitle->setTexts(text(u"接下来的拍摄", u"Coming up"));
    noUpcoming->setTexts(text(u"暂无后续排期", u"No upcoming shoots"),
                         text(u"在分镜中设置日期与时间，安排会出现在这里。",
                              u"Set a date and time in a shot plan to see it here."));
    openCalendar->setPlain(text(u"查看日历", u"Open calendar"));
    search->setTexts(
        text(u"搜索资料库", u"Search library"),
        text(u"镜号、现场笔记、相机或 Mixer 素材名", u"Shot codes, on-set notes, camera or mixer filenames"));
}

void LibraryView::fillProduction(QWidget& card, const QByteArray& key) const {
    const auto id = recordOf(key);
    const auto project = id ? store().project(*id) : nullptr;
    if (!project)
        return;
    const ProjectCounts counts = count(*project);
    const QString director =
        project->director.empty() ? text(u"待填写", u"Not set") : toQString(project->director);
    static_cast<ProductionCard&>(card).setContent(
        {toQString(project->title), project->conflictKey ? text(u"保留版本", u"Retained version") : QString(),
         text(u"导演 · ", u"Director · ") + director,
         QString::number(project->acts.size()) + text(u" 幕", u" acts"),
         QString::number(counts.shots) + text(u" 镜", u" shots"),
         QString::number(counts.completed) + text(u" 已完成", u" complete"),
         static_cast<int>(counts.completed), static_cast<int>(counts.planned)});
}

const ShotLocation* LibraryView::upcomingShot(const QByteArray& key) const {
    const auto id = recordOf(key);
    const auto found = std::find_if(next.begin(), next.end(),
                                    [&](const ShotLocation& location) { return location.id() == id; });
    return found == next.end() ? nullptr : &*found;
}

void LibraryView::fillUpcoming(QWidget& row, const QByteArray& key) const {
    const ShotLocation* location = upcomingShot(key);
    if (location == nullptr)
        return;
    const Shot& shot = *location->shot;
    static_cast<UpcomingRow&>(row).setContent(
        {QString::fromStdString(
             shootTime(*shot.scheduledAt, store().now(), Zone::machine(), store().english())),
         joinedFacts({toQString(shot.code), toQString(shot.title)}),
         joinedFacts({toQString(location->project->title), toQString(location->act->title)})});
}

}  // namespace vantry
