#include "Vantry/interface/design/WorkLayout.h"

#include <algorithm>

#include <QWidget>

#include "Vantry/interface/design/Metrics.h"

namespace vantry {
namespace {

int heightOf(const QLayoutItem& item, int width) {
    const int wanted = item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
    return std::max(wanted, item.minimumSize().height());
}

}  // namespace

WorkLayout::WorkLayout(int widthOfSide, int between, QWidget* parent)
    : QLayout(parent)
    , sideWidth(widthOfSide)
    , gap(between) {
    setContentsMargins(0, 0, 0, 0);
}

WorkLayout::~WorkLayout() = default;

void WorkLayout::addItem(QLayoutItem* item) {
    for (auto& place : items) {
        if (place)
            continue;
        place.reset(item);
        return;
    }
    delete item;
}

int WorkLayout::count() const {
    return static_cast<int>(
        std::count_if(items.begin(), items.end(), [](const auto& item) { return item != nullptr; }));
}

QLayoutItem* WorkLayout::itemAt(int index) const {
    return index >= 0 && index < static_cast<int>(items.size()) ? items[static_cast<std::size_t>(index)].get()
                                                                : nullptr;
}

QLayoutItem* WorkLayout::takeAt(int index) {
    if (itemAt(index) == nullptr)
        return nullptr;
    QLayoutItem* taken = items[static_cast<std::size_t>(index)].release();
    if (index == 0)
        items[0] = std::move(items[1]);
    return taken;
}

bool WorkLayout::isWide(int width) const {
    return width >= Metrics::columnsFrom && count() == 2;
}

int WorkLayout::heightForWidth(int width) const {
    if (isWide(width))
        return std::max(heightOf(*items[0], width - sideWidth - gap), heightOf(*items[1], sideWidth));
    int height = 0;
    for (int index = 0; index < count(); ++index)
        height += heightOf(*itemAt(index), width) + (index > 0 ? gap : 0);
    return height;
}

QSize WorkLayout::sizeHint() const {
    return {Metrics::pageWidth, heightForWidth(Metrics::pageWidth)};
}

QSize WorkLayout::minimumSize() const {
    QSize least(0, 0);
    for (int index = 0; index < count(); ++index)
        least = least.expandedTo(itemAt(index)->minimumSize());
    return least;
}

void WorkLayout::setGeometry(const QRect& rectangle) {
    QLayout::setGeometry(rectangle);
    if (count() == 0)
        return;
    if (count() == 1) {
        items[0]->setGeometry(rectangle);
        return;
    }
    const int width = rectangle.width();
    if (isWide(width)) {
        const int mainWidth = width - sideWidth - gap;
        const int sideHeight = std::min(heightOf(*items[1], sideWidth), rectangle.height());
        items[0]->setGeometry({rectangle.left(), rectangle.top(), mainWidth, rectangle.height()});
        items[1]->setGeometry({rectangle.left() + mainWidth + gap, rectangle.top(), sideWidth, sideHeight});
        return;
    }
    const int sideHeight = heightOf(*items[1], width);
    const int mainHeight = std::max(heightOf(*items[0], width), rectangle.height() - gap - sideHeight);
    items[0]->setGeometry({rectangle.left(), rectangle.top(), width, mainHeight});
    items[1]->setGeometry({rectangle.left(), rectangle.top() + mainHeight + gap, width, sideHeight});
}

}  // namespace vantry
