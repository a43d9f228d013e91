#pragma once

#include <unordered_set>
#include <vector>

#include <QWidget>

#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/routes/Route.h"

class QKeySequence;
class QLayout;
class QModelIndex;

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

    /// Rows that stay keep their place on screen, whether they are open, and the one that is selected.
    void refresh(const Library& library, const Route& route, bool english);
    /// Opens the row of that production, now or as soon as it has something to show.
    void expand(const Identifier& project);

    [[nodiscard]] QSize sizeHint() const override;

signals:
    void routePressed(const vantry::Route& route);
    /// Asks for a new take of the shot that `shot` leads to.
    void newTakePressed(const vantry::Route& shot);
    void newProjectPressed();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// A fixed place, with its title in both languages.
    struct Destination {
        NavigationRow* row;
        QString chinese;
        QString english;
        Route route;
    };

    [[nodiscard]] QLayout* makeBrand();
    [[nodiscard]] QLayout* makePlaces();
    [[nodiscard]] QLayout* makeHeader();
    [[nodiscard]] QLayout* makeTree();
    [[nodiscard]] QLayout* makeFoot();
    [[nodiscard]] NavigationRow* navRow(const QString& chinese, const QString& english, Glyph icon,
                                        const Route& route, const QKeySequence& shortcut);
    /// Keeps in mind whether the person has the row of that record open.
    void expandBinding(const QModelIndex& index, bool open);
    void expandAll();
    void collapseAll();
    /// Adds the row and those in it that can be opened, or only those that `expanded` says, from the top.
    void collect(const QModelIndex& row, std::vector<QModelIndex>& rows, bool onlyExpanded) const;
    void reopen(const QModelIndex& parent, int first, int last);
    void pressRow(const QModelIndex& index);

    LibraryTreeModel* model;
    Label* tagline = nullptr;
    std::vector<Destination> destinations;
    Label* contents = nullptr;
    Button* expandButton = nullptr;
    Button* collapseButton = nullptr;
    LibraryTree* tree = nullptr;
    Button* newProject = nullptr;
    std::unordered_set<Identifier> expanded;  ///< the records whose row is open, gone ones included
    bool changingMany = false;                ///< what opens and closes now is in `expanded` already
};

}  // namespace vantry
