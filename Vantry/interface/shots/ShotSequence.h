#pragma once

#include <functional>

#include <QBasicTimer>
#include <QHash>
#include <QWidget>

#include "Vantry/interface/shots/NewTake.h"

namespace vantry {

class LazyCells;
class ShotTile;
class VantryStore;

/// The shots of an act in their order, as a list or as a grid. In the list a row that is dragged onto another
/// is wanted in front of it, and onto the lower half of the last one behind it; the page scrolls along.
class ShotSequence final : public QWidget {
    Q_OBJECT

public:
    enum class Mode { list, grid };
    /// Brings a tile in line with what is true now.
    using Fill = std::function<void(ShotTile& tile, const QByteArray& key)>;

    ShotSequence(VantryStore& store, Fill fill, QWidget* parent = nullptr);

    /// Shows those shots in that way. Without shots it is not to be seen.
    void setShots(const QList<QByteArray>& keys, Mode mode);

signals:
    void editWanted(const QByteArray& key);
    void takeWanted(const QByteArray& key, vantry::AfterNewTake keyboard);
    void menuWanted(const QByteArray& key, QWidget* opener);
    /// That shot is wanted in front of `before`, or at the end when that is empty.
    void moveWanted(const QByteArray& key, const QByteArray& before);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    [[nodiscard]] QWidget* makeTile(const QByteArray& key, QWidget* holder, bool inList);
    [[nodiscard]] LazyCells& shown() const;
    void drag(const QByteArray& key, const QPoint& position);
    void drop(const QByteArray& key, bool given);
    void mark();
    /// The place in front of which the pointer is: the number of the shots when it is behind the last.
    [[nodiscard]] qsizetype targetAt(const QPoint& position) const;

    VantryStore& store;
    const Fill fill;
    LazyCells* list;
    LazyCells* grid;
    QList<QByteArray> keys;
    QByteArray dragging;
    QPoint pointer;
    QBasicTimer scrolling;
};

}  // namespace vantry
