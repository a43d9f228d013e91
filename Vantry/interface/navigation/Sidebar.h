#pragma once

#include <unordered_set>

#include <QWidget>

#include "Vantry/interface/routes/Route.h"

namespace vantry {

class Button;
class Label;
class LibraryTree;
class LibraryTreeModel;
class NavigationRow;
struct Library;

/// The left column of the window: the brand, the fixed places, the whole library as a tree, and the way to a
/// new production. It decides nothing: it says what the person asked for.
class Sidebar final : public QWidget {
    Q_OBJECT

public:
    explicit Sidebar(QWidget* parent = nullptr);

    void refresh(const Library& library, const Route& route, bool english);
    /// Opens the row of that record, now or as soon as it has something to show.
    void expand(const Identifier& record);

    [[nodiscard]] QSize sizeHint() const override;

signals:
    void routePressed(const vantry::Route& route);
    /// Asks for a new take of the shot that `shot` leads to.
    void newTakePressed(const vantry::Route& shot);
    void newProjectPressed();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Notes all records below `parent` as open.
    void remember(const QModelIndex& parent);
    void expandAll();
    void collapseAll();
    void pressRow(const QModelIndex& index);
    void reopen(const QModelIndex& parent, int first, int last);

    Label* tagline;
    NavigationRow* library;
    Label* contents;
    Button* expandButton;
    Button* collapseButton;
    LibraryTreeModel* model;
    LibraryTree* tree;
    Button* newProject;
    std::unordered_set<Identifier> expanded;  ///< the records whose row is open, gone ones included
    bool changingAll = false;
};

}  // namespace vantry
