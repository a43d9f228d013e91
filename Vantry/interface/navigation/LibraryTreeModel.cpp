#include "Vantry/interface/navigation/LibraryTreeModel.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "Vantry/interface/navigation/LibraryTreeRow.h"

namespace vantry {

LibraryTreeModel::LibraryTreeModel(QObject* parent)
    : QAbstractItemModel(parent)
    , root(std::make_unique<Row>()) {
    root->loaded = true;
}

LibraryTreeModel::~LibraryTreeModel() = default;

LibraryTreeModel::Row& LibraryTreeModel::rowOf(const QModelIndex& index) {
    return *static_cast<Row*>(index.internalPointer());
}

LibraryTreeModel::Kind LibraryTreeModel::kindOf(const QModelIndex& index) {
    return rowOf(index).entry.kind;
}

Identifier LibraryTreeModel::recordOf(const QModelIndex& index) {
    return rowOf(index).entry.id;
}

Route LibraryTreeModel::routeOf(const QModelIndex& index) {
    const Row& row = rowOf(index);
    switch (row.entry.kind) {
    case Kind::project:
        return Route::project(row.entry.id);
    case Kind::act:
        return Route::act(row.parent->entry.id, row.entry.id);
    case Kind::shot:
    case Kind::newTake: {
        const Row& shot = row.entry.kind == Kind::shot ? row : *row.parent;
        return Route::shot(shot.parent->parent->entry.id, shot.parent->entry.id, shot.entry.id);
    }
    case Kind::take:
        break;
    }
    const Row& shot = *row.parent;
    return Route::take(shot.parent->parent->entry.id, shot.parent->entry.id, shot.entry.id, row.entry.id);
}

QModelIndex LibraryTreeModel::indexOf(const Row& row) const {
    return row.parent == nullptr ? QModelIndex() : createIndex(static_cast<int>(row.place), 0, &row);
}

LibraryTreeModel::Row* LibraryTreeModel::find(const Row& parent, const Identifier& id) {
    const auto stands = [&](const auto& child) {
        return child->entry.kind != Kind::newTake && child->entry.id == id;
    };
    const auto found = std::find_if(parent.children.begin(), parent.children.end(), stands);
    return found == parent.children.end() ? nullptr : found->get();
}

QModelIndex LibraryTreeModel::indexOf(const Route& route) const {
    Row* row = root.get();
    for (const auto& id : {route.projectID(), route.actID(), route.shotID(), route.takeID()}) {
        if (!id)
            break;
        load(*row);
        row = find(*row, *id);
        if (row == nullptr)
            return {};
    }
    return indexOf(*row);
}

QModelIndex LibraryTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || column != 0 || row >= rowCount(parent))
        return {};
    const Row& holder = parent.isValid() ? rowOf(parent) : *root;
    return createIndex(row, column, holder.children[static_cast<std::size_t>(row)].get());
}

QModelIndex LibraryTreeModel::parent(const QModelIndex& child) const {
    return child.isValid() ? indexOf(*rowOf(child).parent) : QModelIndex();
}

int LibraryTreeModel::rowCount(const QModelIndex& parent) const {
    if (parent.column() > 0)
        return 0;
    Row& row = parent.isValid() ? rowOf(parent) : *root;
    load(row);
    return static_cast<int>(row.children.size());
}

int LibraryTreeModel::columnCount(const QModelIndex&) const {
    return 1;
}

void LibraryTreeModel::load(Row& row) const {
    if (row.loaded)
        return;
    row.loaded = true;
    for (Entry& entry : entriesOf(row))
        row.children.push_back(std::make_unique<Row>(std::move(entry)));
    adopt(row, 0);
}

void LibraryTreeModel::adopt(Row& parent, std::size_t from) {
    for (std::size_t index = from; index < parent.children.size(); ++index) {
        parent.children[index]->parent = &parent;
        parent.children[index]->place = index;
    }
}

void LibraryTreeModel::refresh(const Library& library, bool nowEnglish) {
    const bool languageChanged = nowEnglish != english;
    english = nowEnglish;
    updateChildren(*root, entriesOf(library), languageChanged);
}

void LibraryTreeModel::update(Row& row, const Entry& entry, bool languageChanged) {
    if (row.entry.record == entry.record && row.entry.enabled == entry.enabled && !languageChanged)
        return;
    const bool wasEnglish = languageChanged ? !english : english;
    const QString title = titleOf(row, wasEnglish);
    const QString detail = detailOf(row, wasEnglish);
    const int glyph = row.glyph();
    const bool enabled = row.entry.enabled;
    row.entry = entry;
    if (title != titleOf(row, english) || detail != detailOf(row, english) || glyph != row.glyph() ||
        enabled != entry.enabled)
        emit dataChanged(indexOf(row), indexOf(row));
    if (row.loaded)
        updateChildren(row, entriesOf(row), languageChanged);
}

void LibraryTreeModel::updateChildren(Row& row, const std::vector<Entry>& wanted, bool languageChanged) {
    removeOthers(row, wanted);
    place(row, wanted);
    for (std::size_t index = 0; index < wanted.size(); ++index)
        update(*row.children[index], wanted[index], languageChanged);
}

void LibraryTreeModel::removeOthers(Row& row, const std::vector<Entry>& wanted) {
    std::unordered_set<Identifier> staying;
    for (const Entry& entry : wanted)
        staying.insert(entry.key());
    std::size_t end = row.children.size();
    while (end > 0) {
        if (staying.contains(row.children[end - 1]->entry.key())) {
            --end;
            continue;
        }
        std::size_t begin = end - 1;
        while (begin > 0 && !staying.contains(row.children[begin - 1]->entry.key()))
            --begin;
        beginRemoveRows(indexOf(row), static_cast<int>(begin), static_cast<int>(end) - 1);
        const auto first = row.children.begin();
        row.children.erase(first + static_cast<std::ptrdiff_t>(begin),
                           first + static_cast<std::ptrdiff_t>(end));
        adopt(row, begin);
        endRemoveRows();
        end = begin;
    }
}

void LibraryTreeModel::place(Row& row, const std::vector<Entry>& wanted) {
    std::unordered_map<Identifier, const Row*> present;
    for (const auto& child : row.children)
        present.emplace(child->entry.key(), child.get());
    std::unordered_map<Identifier, std::size_t> goal;
    for (std::size_t index = 0; index < wanted.size(); ++index)
        goal.emplace(wanted[index].key(), index);

    std::size_t at = 0;
    while (at < wanted.size()) {
        const auto found = present.find(wanted[at].key());
        if (found == present.end()) {
            std::size_t count = 1;
            while (at + count < wanted.size() && !present.contains(wanted[at + count].key()))
                ++count;
            insert(row, at, wanted, count);
            at += count;
            continue;
        }
        const std::size_t from = found->second->place;
        if (from == at + 1) {
            // The row that stands here went down: one move instead of one for each row that it passed.
            const std::size_t last = row.children.size() - 1;
            const std::size_t to = std::min(goal.at(row.children[at]->entry.key()), last);
            move(row, at, std::max(to, at + 1));
            continue;
        }
        if (from != at)
            move(row, from, at);
        ++at;
    }
}

void LibraryTreeModel::move(Row& row, std::size_t from, std::size_t to) {
    const QModelIndex parent = indexOf(row);
    // Qt counts the places as they are before the move.
    const std::size_t destination = to > from ? to + 1 : to;
    if (!beginMoveRows(parent, static_cast<int>(from), static_cast<int>(from), parent,
                       static_cast<int>(destination)))
        return;
    const auto first = row.children.begin();
    const auto begin = static_cast<std::ptrdiff_t>(std::min(from, to));
    const auto end = static_cast<std::ptrdiff_t>(std::max(from, to)) + 1;
    if (to > from)
        std::rotate(first + begin, first + begin + 1, first + end);
    else
        std::rotate(first + begin, first + end - 1, first + end);
    adopt(row, static_cast<std::size_t>(begin));
    endMoveRows();
}

void LibraryTreeModel::insert(Row& row, std::size_t at, const std::vector<Entry>& wanted, std::size_t count) {
    beginInsertRows(indexOf(row), static_cast<int>(at), static_cast<int>(at + count) - 1);
    std::vector<std::unique_ptr<Row>> fresh;
    fresh.reserve(count);
    for (std::size_t index = at; index < at + count; ++index)
        fresh.push_back(std::make_unique<Row>(wanted[index]));
    row.children.insert(row.children.begin() + static_cast<std::ptrdiff_t>(at),
                        std::make_move_iterator(fresh.begin()), std::make_move_iterator(fresh.end()));
    adopt(row, at);
    endInsertRows();
}

}  // namespace vantry
