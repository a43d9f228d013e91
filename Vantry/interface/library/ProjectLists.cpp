#include "Vantry/interface/library/ProjectLists.h"

#include <algorithm>

#include <QVBoxLayout>

#include "Vantry/app/QtText.h"
#include "Vantry/documents/CallSheetPDF.h"
#include "Vantry/interface/design/Compose.h"
#include "Vantry/interface/design/FactRow.h"
#include "Vantry/interface/design/RowList.h"
#include "Vantry/interface/design/SectionLabel.h"
#include "Vantry/interface/pages/JoinedFacts.h"
#include "Vantry/interface/pages/RowKey.h"

namespace vantry {
namespace {

ListCard* makeList(int rowHeight, LazyCells::Fill fill) {
    return new ListCard(
        rowHeight,
        [](const QByteArray&, QWidget* holder) { return new FactRow(FactRow::Edge::card, holder); },
        std::move(fill));
}

template <class Records>
void showRecords(ListCard& list, const Records& records) {
    QList<QByteArray> keys;
    for (const auto& record : records)
        keys.append(rowKey(record.id));
    list.setVisible(!keys.isEmpty());
    list.setKeys(std::move(keys));
}

template <class Records>
auto findByKey(const Records& records, const QByteArray& key) {
    const auto id = recordOf(key);
    const auto found =
        std::find_if(records.begin(), records.end(), [&](const auto& record) { return record.id == id; });
    return found == records.end() ? nullptr : &*found;
}

void fillPage(QWidget& page, int gap, std::initializer_list<QWidget*> parts) {
    auto* lines = new QVBoxLayout(&page);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->addWidget(column(gap, parts));
}

}  // namespace

ProjectPeople::ProjectPeople(PageContext given, const Identifier& project, QWidget* parent)
    : StorePage(std::move(given), parent)
    , projectID(project)
    , heading(new WorkspaceSection)
    , crewTitle(new SectionLabel)
    , crew(makeList(Metrics::personRowHeight,
                    [this](QWidget& row, const QByteArray& key) { fillCrew(row, key); }))
    , castTitle(new SectionLabel)
    , cast(makeList(Metrics::personRowHeight,
                    [this](QWidget& row, const QByteArray& key) { fillCast(row, key); })) {
    fillPage(*this, Metrics::gapBlock,
             {heading, column(Metrics::gapField, {crewTitle, crew}),
              column(Metrics::gapField, {castTitle, cast})});
}

void ProjectPeople::refresh() {
    const auto project = store().project(projectID);
    if (!project)
        return;
    heading->setTexts(text(u"剧组与演员", u"Crew & cast"),
                      text(u"编辑后可收起为信息板", u"Finish editing to return to the information board"));
    crewTitle->setTexts(text(u"剧组人员", u"Crew"));
    castTitle->setTexts(text(u"演员", u"Cast"));
    castTitle->setVisible(!project->cast().empty());
    QList<QByteArray> keys{rowKey(project->id)};
    for (const auto& member : project->crew())
        keys.append(rowKey(member.id));
    crew->setKeys(std::move(keys));
    showRecords(*cast, project->cast());
}

void ProjectPeople::fillCrew(QWidget& row, const QByteArray& key) const {
    const auto project = store().project(projectID);
    if (!project)
        return;
    QString role = text(u"导演", u"Director");
    Text name = project->director;
    if (key != rowKey(projectID)) {
        const CrewMember* member = findByKey(project->crew(), key);
        if (member == nullptr)
            return;
        role = toQString(member->title(store().english()));
        name = member->name;
    }
    static_cast<FactRow&>(row).setContent(
        {.above = role,
         .name = name.empty() ? text(u"待填写", u"Not set") : toQString(name),
         .isUnset = name.empty()});
}

void ProjectPeople::fillCast(QWidget& row, const QByteArray& key) const {
    const auto project = store().project(projectID);
    const CastMember* member = project ? findByKey(project->cast(), key) : nullptr;
    if (member == nullptr)
        return;
    static_cast<FactRow&>(row).setContent(
        {.above = member->character.empty() ? text(u"角色待填写", u"Character not set")
                                            : toQString(member->character),
         .name = member->actor.empty() ? text(u"演员待定", u"Not cast yet") : toQString(member->actor),
         .isUnset = member->actor.empty()});
}

ProjectCallSheets::ProjectCallSheets(PageContext given, const Identifier& project, QWidget* parent)
    : StorePage(std::move(given), parent)
    , projectID(project)
    , heading(new WorkspaceSection)
    , sheets(makeList(Metrics::rowHeight,
                      [this](QWidget& row, const QByteArray& key) { fillSheet(row, key); })) {
    fillPage(*this, Metrics::gapBlock, {heading, sheets});
}

void ProjectCallSheets::refresh() {
    const auto project = store().project(projectID);
    if (!project)
        return;
    heading->setTexts(text(u"拍摄日通告", u"Call sheets"),
                      text(u"人员、地点与集合时间", u"People, places and call times"));
    std::vector<CallSheet> byDay = project->callSheets();
    std::stable_sort(byDay.begin(), byDay.end(),
                     [](const CallSheet& a, const CallSheet& b) { return a.date < b.date; });
    showRecords(*sheets, byDay);
}

void ProjectCallSheets::fillSheet(QWidget& row, const QByteArray& key) const {
    const auto project = store().project(projectID);
    const CallSheet* sheet = project ? findByKey(project->callSheets(), key) : nullptr;
    if (sheet == nullptr)
        return;
    const Text& call = (*sheet)["generalCall"];
    const QString time = call.empty() ? text(u"集合时间待填", u"Call time not set") : toQString(call);
    static_cast<FactRow&>(row).setContent(
        {.name = joinedFacts(
             {QString::fromStdString(CallSheetPDF::dateText(*sheet)), toQString((*sheet)["version"])}),
         .below = joinedFacts({time, toQString((*sheet)["location"])})});
}

ProjectReferences::ProjectReferences(PageContext given, const Identifier& project, QWidget* parent)
    : StorePage(std::move(given), parent)
    , projectID(project)
    , heading(new WorkspaceSection)
    , references(makeList(Metrics::referenceRowHeight,
                          [this](QWidget& row, const QByteArray& key) { fillReference(row, key); })) {
    fillPage(*this, Metrics::gapBlock, {heading, references});
}

void ProjectReferences::refresh() {
    const auto project = store().project(projectID);
    if (!project)
        return;
    heading->setTexts(text(u"参考资料", u"Reference library"),
                      text(u"文件、文件夹与链接", u"Files, folders and links"));
    showRecords(*references, project->relatedFiles());
}

void ProjectReferences::fillReference(QWidget& row, const QByteArray& key) const {
    const auto project = store().project(projectID);
    const RelatedFile* file = project ? findByKey(project->relatedFiles(), key) : nullptr;
    if (file == nullptr)
        return;
    Glyph glyph = Glyph::file;
    if (file->kind == RelatedFileKind::folder)
        glyph = Glyph::folder;
    else if (file->kind == RelatedFileKind::link)
        glyph = Glyph::link;
    static_cast<FactRow&>(row).setContent({.glyph = glyph,
                                           .name = toQString(file->name),
                                           .below = toQString(file->location),
                                           .remark = toQString(file->notes)});
}

}  // namespace vantry
