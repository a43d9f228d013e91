#include "Vantry/interface/shots/ShotSequence.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QTimerEvent>
#include <QVBoxLayout>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/RowList.h"
#include "Vantry/interface/shots/ShotTile.h"

namespace vantry {
namespace {

constexpr int scrollInterval = 16;  // milliseconds

int gridColumns(int width) {
    if (width >= Metrics::threeShotsFrom)
        return Metrics::shotColumns;
    return width >= Metrics::twoShotsFrom ? 2 : 1;
}

QScrollArea* areaAround(const QWidget& part) {
    for (QWidget* outer = part.parentWidget(); outer != nullptr; outer = outer->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(outer))
            return area;
    return nullptr;
}

}  // namespace

ShotSequence::ShotSequence(VantryStore& source, Fill fillTile, QWidget* parent)
    : QWidget(parent)
    , store(source)
    , fill(std::move(fillTile)) {
    const auto bring = [this](QWidget& tile, const QByteArray& key) {
        fill(static_cast<ShotTile&>(tile), key);
    };
    list = new ListCard(
        Metrics::shotRowHeight,
        [this](const QByteArray& key, QWidget* holder) { return makeTile(key, holder, true); }, bring, this);
    grid = new LazyCells(
        {0, Metrics::gapCard, 0, gridColumns, &ShotTile::cardHeight},
        [this](const QByteArray& key, QWidget* holder) { return makeTile(key, holder, false); }, bring, this);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addWidget(list);
    lines->addWidget(grid);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

LazyCells& ShotSequence::shown() const {
    return list->isHidden() ? *grid : *list;
}

void ShotSequence::setShots(const QList<QByteArray>& wanted, Mode mode) {
    keys = wanted;
    if (!dragging.isEmpty() && !keys.contains(dragging))
        drop(dragging, false);
    setVisible(!keys.isEmpty());
    const bool inList = mode == Mode::list;
    list->setVisible(inList);
    grid->setVisible(!inList);
    // What is not shown holds nothing.
    (inList ? grid : list)->setKeys({});
    shown().setKeys(keys);
}

QWidget* ShotSequence::makeTile(const QByteArray& key, QWidget* holder, bool inList) {
    auto* tile = new ShotTile(inList ? ShotTile::Shape::row : ShotTile::Shape::card, store, holder);
    connect(tile, &ShotTile::editWanted, this, [this, key] { emit editWanted(key); });
    connect(tile, &ShotTile::takeWanted, this,
            [this, key](AfterNewTake keyboard) { emit takeWanted(key, keyboard); });
    connect(tile, &ShotTile::menuWanted, this,
            [this, key](QWidget* opener) { emit menuWanted(key, opener); });
    connect(tile, &ShotTile::dragged, this, [this, key](const QPoint& position) { drag(key, position); });
    connect(tile, &ShotTile::dropped, this, [this, key](bool given) { drop(key, given); });
    return tile;
}

qsizetype ShotSequence::targetAt(const QPoint& position) const {
    const QPoint inside = list->mapFromGlobal(position);
    const qsizetype last = keys.size() - 1;
    if (inside.y() >= list->place(last).center().y())
        return keys.size();
    const int step = Metrics::shotRowHeight + Metrics::hairline;
    return std::clamp<qsizetype>(inside.y() / step, 0, last);
}

void ShotSequence::drag(const QByteArray& key, const QPoint& position) {
    dragging = key;
    pointer = position;
    if (!scrolling.isActive())
        scrolling.start(scrollInterval, this);
    mark();
}

void ShotSequence::mark() {
    const qsizetype target = targetAt(pointer);
    const bool isBehind = target == keys.size();
    for (qsizetype index = 0; index < keys.size(); ++index)
        if (auto* tile = static_cast<ShotTile*>(list->cell(keys[index]))) {
            tile->setLifted(keys[index] == dragging);
            if (isBehind && index == keys.size() - 1)
                tile->setDropMark(ShotTile::DropMark::below);
            else
                tile->setDropMark(index == target ? ShotTile::DropMark::above : ShotTile::DropMark::none);
        }
}

/// Scrolls while a shot is held near an edge of the page.
void ShotSequence::timerEvent(QTimerEvent* event) {
    if (event->timerId() != scrolling.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    QScrollArea* const area = areaAround(*this);
    if (area == nullptr)
        return;
    const int y = area->viewport()->mapFromGlobal(pointer).y();
    const int edge = Metrics::controlHeight;
    const int beyond = y < edge ? y - edge : std::max(y - (area->viewport()->height() - edge), 0);
    if (beyond == 0)
        return;
    QScrollBar& bar = *area->verticalScrollBar();
    bar.setValue(bar.value() + beyond / 2);
    mark();
}

void ShotSequence::drop(const QByteArray& key, bool given) {
    scrolling.stop();
    for (const QByteArray& other : std::as_const(keys))
        if (auto* tile = static_cast<ShotTile*>(list->cell(other))) {
            tile->setLifted(false);
            tile->setDropMark(ShotTile::DropMark::none);
        }
    dragging.clear();
    const qsizetype target = targetAt(pointer);
    const qsizetype from = keys.indexOf(key);
    // In front of itself or of the next it is where it was.
    if (given && from >= 0 && target != from && target != from + 1)
        emit moveWanted(key, target < keys.size() ? keys[target] : QByteArray());
}

}  // namespace vantry
