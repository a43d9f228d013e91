#include "Vantry/interface/navigation/NavigationAccessibility.h"

#include <unordered_map>

#include <QAccessibleWidget>
#include <QPersistentModelIndex>
#include <QPointer>

#include "Vantry/interface/navigation/LibraryTree.h"
#include "Vantry/interface/navigation/NavigationRow.h"

namespace vantry {
namespace {

/// One row that is on show. It stays the same object for as long as its row is.
class RowAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    RowAccessible(LibraryTree& view, const QModelIndex& row)
        : tree(&view)
        , index(row) {}

    [[nodiscard]] const QPersistentModelIndex& place() const { return index; }

    [[nodiscard]] bool isValid() const override { return tree != nullptr && index.isValid(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override {
        return isValid() && tree->window() != nullptr ? tree->window()->windowHandle() : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(tree);
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::TreeItem; }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (!isValid())
            return {};
        if (kind == QAccessible::Name)
            return index.data(Qt::AccessibleTextRole).toString();
        return kind == QAccessible::Description ? index.data(Qt::AccessibleDescriptionRole).toString()
                                                : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}

    [[nodiscard]] QRect rect() const override {
        if (!isValid())
            return {};
        const QRect row = tree->visualRect(index);
        return {tree->viewport()->mapToGlobal(row.topLeft()), row.size()};
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.selectable = true;
        state.focusable = true;
        state.selected = tree->selectionModel()->isSelected(index);
        state.focused = tree->hasFocus() && tree->currentIndex() == index;
        state.disabled = !index.flags().testFlag(Qt::ItemIsEnabled);
        state.offscreen = !tree->viewport()->rect().intersects(tree->visualRect(index));
        state.expandable = tree->model()->hasChildren(index);
        state.expanded = state.expandable && tree->isExpanded(index);
        state.collapsed = state.expandable && !tree->isExpanded(index);
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override {
        if (!isValid() || !index.flags().testFlag(Qt::ItemIsEnabled))
            return {};
        return tree->model()->hasChildren(index) ? QStringList{pressAction(), toggleAction()}
                                                 : QStringList{pressAction()};
    }
    void doAction(const QString& name) override {
        if (!isValid())
            return;
        if (name == pressAction())
            tree->press(index);
        else if (name == toggleAction())
            tree->toggle(index);
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<LibraryTree> tree;
    QPersistentModelIndex index;
};

/// The tree: its children are the rows on show, from top to bottom.
class TreeAccessible final : public QAccessibleWidget {
public:
    explicit TreeAccessible(LibraryTree& view)
        : QAccessibleWidget(&view, QAccessible::Tree)
        , tree(view) {}
    ~TreeAccessible() override {
        for (const auto& [row, id] : made)
            QAccessible::deleteAccessibleInterface(id);
    }

    [[nodiscard]] int childCount() const override { return tree.shownRows(); }
    [[nodiscard]] QAccessibleInterface* child(int wanted) const override {
        return interfaceOf(tree.shownRow(wanted));
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        return tree.placeOf(static_cast<const RowAccessible*>(child)->place());
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        return interfaceOf(tree.indexAt(tree.viewport()->mapFromGlobal(QPoint(x, y))));
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        return tree.hasFocus() ? interfaceOf(tree.currentIndex()) : nullptr;
    }

    /// The one interface of that row, made when first asked for; null for a row that is not there.
    [[nodiscard]] QAccessibleInterface* interfaceOf(const QModelIndex& row) const {
        if (!row.isValid())
            return nullptr;
        const auto entry = made.find(row.internalPointer());
        if (entry != made.end()) {
            auto* known = static_cast<RowAccessible*>(QAccessible::accessibleInterface(entry->second));
            if (known != nullptr && known->place() == row)
                return known;
            // Another row that is gone had this address.
            QAccessible::deleteAccessibleInterface(entry->second);
        }
        auto* fresh = new RowAccessible(tree, row);
        made.insert_or_assign(row.internalPointer(), QAccessible::registerAccessibleInterface(fresh));
        return fresh;
    }

private:
    LibraryTree& tree;
    mutable std::unordered_map<const void*, QAccessible::Id> made;  ///< by the row of the model
};

/// A place of the sidebar: a button that can be the selected one.
class NavigationRowAccessible final : public QAccessibleWidget {
public:
    explicit NavigationRowAccessible(NavigationRow& button)
        : QAccessibleWidget(&button, QAccessible::Button)
        , row(button) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = row.isChosen();
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name == pressAction())
            row.click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    NavigationRow& row;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    if (auto* tree = qobject_cast<LibraryTree*>(object))
        return new TreeAccessible(*tree);
    if (auto* row = qobject_cast<NavigationRow*>(object))
        return new NavigationRowAccessible(*row);
    return nullptr;
}

/// The row, if anybody listens.
QAccessibleInterface* heardRow(LibraryTree& tree, const QModelIndex& index) {
    if (!QAccessible::isActive())
        return nullptr;
    auto* known = static_cast<TreeAccessible*>(QAccessible::queryAccessibleInterface(&tree));
    return known == nullptr ? nullptr : known->interfaceOf(index);
}

}  // namespace

void installNavigationAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    static_cast<void>(installed);
}

void announceRow(LibraryTree& tree, const QModelIndex& index, QAccessible::Event event) {
    if (QAccessibleInterface* row = heardRow(tree, index)) {
        QAccessibleEvent announcement(row, event);
        QAccessible::updateAccessibility(&announcement);
    }
}

void announceOpening(LibraryTree& tree, const QModelIndex& index) {
    if (QAccessibleInterface* row = heardRow(tree, index)) {
        QAccessible::State changed;
        changed.expanded = true;
        QAccessibleStateChangeEvent announcement(row, changed);
        QAccessible::updateAccessibility(&announcement);
    }
}

}  // namespace vantry
