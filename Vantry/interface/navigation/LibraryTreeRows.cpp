// What the rows of the tree hold and say.

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/navigation/LibraryTreeModel.h"
#include "Vantry/interface/navigation/LibraryTreeRow.h"
#include "Vantry/interface/shots/ShotTexts.h"

namespace vantry {
namespace {

QString projectDetail(const Project& project, bool english) {
    QString detail =
        (english ? QStringLiteral("Director: ") : QStringLiteral("导演：")) + toQString(project.director);
    if (project.conflictKey)
        detail += english ? QStringLiteral(" · retained version") : QStringLiteral(" · 保留版本");
    return detail;
}

QString actDetail(const Act& act, bool english) {
    const auto active = act.activeCount();
    const auto complete = act.completedCount();
    return (english ? QStringLiteral("%1 shots · %2 done / %3 remaining")
                    : QStringLiteral("%1 镜 · %2 完成 / %3 未完"))
        .arg(active)
        .arg(complete)
        .arg(active - complete);
}

QString shotDetail(const Shot& shot) {
    const QString detail = QStringLiteral("%1 Take · %2★").arg(shot.takes.size()).arg(shot.maxStars());
    return shot.complete() ? detail + QStringLiteral(" · ✓") : detail;
}

QString takeDetail(const VantryTake& take) {
    const QString result =
        take.result == TakeResult::pending ? QStringLiteral("—") : resultWord(take.result, true);
    return result + QStringLiteral(" · %1★").arg(take.stars);
}

}  // namespace

std::vector<LibraryTreeModel::Entry> LibraryTreeModel::entriesOf(const Library& library) {
    std::vector<Entry> entries;
    entries.reserve(library.projects.size());
    for (const auto& project : library.projects)
        entries.push_back({Kind::project, project->id, project.handle()});
    return entries;
}

std::vector<LibraryTreeModel::Entry> LibraryTreeModel::entriesOf(const Row& row) {
    std::vector<Entry> entries;
    switch (row.entry.kind) {
    case Kind::project:
        for (const auto& act : std::get<std::shared_ptr<const Project>>(row.entry.record)->acts)
            entries.push_back({Kind::act, act->id, act.handle()});
        break;
    case Kind::act:
        for (const auto& shot : std::get<std::shared_ptr<const Act>>(row.entry.record)->shots)
            entries.push_back({Kind::shot, shot->id, shot.handle()});
        break;
    case Kind::shot: {
        const auto& shot = std::get<std::shared_ptr<const Shot>>(row.entry.record);
        for (const auto& take : shot->takes)
            entries.push_back({Kind::take, take->id, take.handle()});
        entries.push_back({Kind::newTake, shot->id, std::monostate(), !shot->cancelled});
        break;
    }
    case Kind::take:
    case Kind::newTake:
        break;
    }
    return entries;
}

int LibraryTreeModel::Row::glyph() const {
    switch (entry.kind) {
    case Kind::project:
        return static_cast<int>(Glyph::folderFilled);
    case Kind::act:
        return static_cast<int>(Glyph::film);
    case Kind::shot: {
        const bool soundOnly =
            std::get<std::shared_ptr<const Shot>>(entry.record)->soundMode == SoundMode::roomTone;
        return static_cast<int>(soundOnly ? Glyph::waveform : Glyph::camera);
    }
    case Kind::take:
        return static_cast<int>(Glyph::document);
    case Kind::newTake:
        break;
    }
    return static_cast<int>(Glyph::plus);
}

QString LibraryTreeModel::titleOf(const Row& row, bool english) {
    switch (row.entry.kind) {
    case Kind::project:
        return toQString(std::get<std::shared_ptr<const Project>>(row.entry.record)->title);
    case Kind::act:
        return toQString(std::get<std::shared_ptr<const Act>>(row.entry.record)->title);
    case Kind::shot:
        return shotName(*std::get<std::shared_ptr<const Shot>>(row.entry.record));
    case Kind::take:
        return QStringLiteral("Take %1").arg(
            std::get<std::shared_ptr<const VantryTake>>(row.entry.record)->number);
    case Kind::newTake:
        break;
    }
    return english ? QStringLiteral("New take") : QStringLiteral("新 Take");
}

QString LibraryTreeModel::detailOf(const Row& row, bool english) {
    switch (row.entry.kind) {
    case Kind::project:
        return projectDetail(*std::get<std::shared_ptr<const Project>>(row.entry.record), english);
    case Kind::act:
        return actDetail(*std::get<std::shared_ptr<const Act>>(row.entry.record), english);
    case Kind::shot:
        return shotDetail(*std::get<std::shared_ptr<const Shot>>(row.entry.record));
    case Kind::take:
        return takeDetail(*std::get<std::shared_ptr<const VantryTake>>(row.entry.record));
    case Kind::newTake:
        break;
    }
    return {};
}

QVariant LibraryTreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const Row& row = rowOf(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return titleOf(row, english);
    case detailRole:
    case Qt::AccessibleDescriptionRole:
        return detailOf(row, english);
    case Qt::ToolTipRole: {
        const QString whole = titleOf(row, english) + QLatin1Char('\n') + detailOf(row, english);
        return QStringLiteral("<span>%1</span>")
            .arg(whole.trimmed().toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")));
    }
    case glyphRole:
        return row.glyph();
    default:
        return {};
    }
}

Qt::ItemFlags LibraryTreeModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Row& row = rowOf(index);
    Qt::ItemFlags flags = Qt::ItemIsSelectable;
    flags.setFlag(Qt::ItemIsEnabled, row.entry.enabled);
    flags.setFlag(Qt::ItemNeverHasChildren, row.entry.kind == Kind::take || row.entry.kind == Kind::newTake);
    return flags;
}

}  // namespace vantry
