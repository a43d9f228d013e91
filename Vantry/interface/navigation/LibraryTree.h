#pragma once

#include <QPersistentModelIndex>
#include <QTreeView>

namespace vantry {

/// The tree of the sidebar. A click, Return, Enter and the space bar press the row, and so can an assistive
/// tool; the row that is selected is the one the program says, not the one last clicked.
class LibraryTree final : public QTreeView {
    Q_OBJECT

public:
    explicit LibraryTree(QWidget* parent = nullptr);

    /// Marks `index` as the place that is on screen; an invalid one marks none. Opens and scrolls nothing.
    void setPlace(const QModelIndex& index);
    /// Presses the row, as a click on it does. A row that is off does nothing.
    void press(const QModelIndex& index);

signals:
    void rowPressed(const QModelIndex& index);

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void drawBranches(QPainter* painter, const QRect& place, const QModelIndex& index) const override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    QPersistentModelIndex hovered;
};

}  // namespace vantry
