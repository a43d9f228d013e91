#pragma once

#include <functional>
#include <vector>

#include <QPersistentModelIndex>
#include <QTreeView>

#include "Vantry/interface/navigation/MovingFill.h"

namespace vantry {

class DisclosureLayer;

/// The tree of the sidebar. A click, Return, Enter and the space bar press the row, and so can an assistive
/// tool; a click in front of its sign, the right and the left key open and close it. The row that is selected
/// is the one the program says, not the one last clicked.
///
/// All rows are equally high, so that questions about a row cost the same however many there are. What is
/// seen stays at its place when rows come and go above it.
class LibraryTree final : public QTreeView {
    Q_OBJECT

public:
    explicit LibraryTree(QWidget* parent = nullptr);

    /// Marks `index` as the place that is on screen; an invalid one marks none. Opens and scrolls nothing.
    void setPlace(const QModelIndex& index);
    /// Presses the row, as a click on it does. A row that is off does nothing.
    void press(const QModelIndex& index);
    /// Opens or closes the row, as a person does it.
    void toggle(const QModelIndex& index);
    /// Opens these rows, whatever is open besides, at the cost of one layout, and shows how they open.
    void openAll(const std::vector<QModelIndex>& rows);
    void closeAll();
    /// The same without any show, for rows that were open before they went.
    void reopen(const std::vector<QModelIndex>& rows);
    /// Runs `change`, which changes the model, and keeps the row at the upper edge where it is.
    void keepingPlace(const std::function<void()>& change);

    /// How many rows there are to scroll through.
    [[nodiscard]] int shownRows() const;
    /// The row at that place among them, from the top, or an invalid index.
    [[nodiscard]] QModelIndex shownRow(int place) const;
    /// Where the row stands among them; -1 for one in a row that is closed.
    [[nodiscard]] int placeOf(const QModelIndex& row) const;

signals:
    void rowPressed(const QModelIndex& index);

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void drawBranches(QPainter* painter, const QRect& place, const QModelIndex& index) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void rowsInserted(const QModelIndex& parent, int first, int last) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    /// Shows from now on where the keyboard is.
    void showKeyboard();
    /// Whether a click there is on what opens the row.
    [[nodiscard]] bool isOnChevron(const QPoint& place) const;
    [[nodiscard]] bool takesPress(QMouseEvent& event);
    /// Shows the row that the button went down on as pressed, for as long as the pointer is over it.
    void showPressed(const QPoint& place);
    void showReleased();
    /// Runs `change`, which opens or closes `index`, and shows how it does.
    void disclose(const QModelIndex& index, const std::function<void()>& change);
    /// The same for many rows at once.
    void discloseMany(const std::function<void()>& change);

    MovingFill hovered;
    MovingFill chosen;
    MovingFill pressed;
    DisclosureLayer* layer;
    QPersistentModelIndex disclosed;  ///< the row that opens or closes
    QPersistentModelIndex held;       ///< the row that the button went down on
    bool cameByKeyboard = false;
    bool pressTaken = false;
};

}  // namespace vantry
