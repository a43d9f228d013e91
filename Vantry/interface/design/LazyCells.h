#pragma once

#include <functional>

#include <QHash>
#include <QList>
#include <QMetaObject>
#include <QPointer>
#include <QWidget>

class QAbstractScrollArea;

namespace vantry {

/// A long list inside a scrolling page: cells of one height, in columns, of which only those near
/// the visible part of the page exist. Cells are known by a key: as long as a key stays in sight its widget
/// stays, with its focus; a cell that has the focus stays wherever it is. The keyboard and assistive tools
/// walk through the cells in their order.
class LazyCells : public QWidget {
    Q_OBJECT

public:
    struct Shape {
        int height = 0;                       ///< of a cell
        int gap = 0;                          ///< between cells
        int minimum = 0;                      ///< the least width of two columns; 0: always one
        int (*columns)(int width) = nullptr;  ///< or how many there are at that width, in place of `minimum`
        int (*heightFor)(int width) = nullptr;  ///< of a cell of that width, in place of `height`
    };
    /// Makes the widget of a cell, which never changes its key.
    using Make = std::function<QWidget*(const QByteArray& key, QWidget* holder)>;
    /// Brings a cell in line with what is true now; called for those that exist.
    using Fill = std::function<void(QWidget& cell, const QByteArray& key)>;

    LazyCells(Shape shape, Make make, Fill fill, QWidget* parent = nullptr);

    /// The cells from now on, in their order; each key once. All that exist are filled anew.
    void setKeys(QList<QByteArray> keys);
    [[nodiscard]] qsizetype count() const noexcept { return keys.size(); }
    /// The cell's widget, or null while there is none.
    [[nodiscard]] QWidget* cell(const QByteArray& key) const { return cells.value(key); }
    [[nodiscard]] qsizetype existing() const noexcept { return cells.size(); }
    /// Where the cell of that place is or would be.
    [[nodiscard]] QRect place(qsizetype index) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] qsizetype columnsAt(int width) const;
    [[nodiscard]] QSize cellAt(int width) const;
    [[nodiscard]] QRect nearby() const;
    void follow();
    void bringIn();
    void fillCells();
    void drop(const QByteArray& key);
    void chain();

    const Shape shape;
    const Make make;
    const Fill fill;
    QList<QByteArray> keys;
    QHash<QByteArray, QWidget*> cells;
    QPointer<QAbstractScrollArea> area;
    QMetaObject::Connection scrolled;
};

}  // namespace vantry
