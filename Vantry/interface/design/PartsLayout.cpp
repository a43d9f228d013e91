#include "Vantry/interface/design/PartsLayout.h"

#include <algorithm>

#include "Vantry/interface/design/Metrics.h"

namespace vantry {

PartsLayout::PartsLayout(QWidget* parent)
    : QLayout(parent) {
    setContentsMargins(0, 0, 0, 0);
}

PartsLayout::~PartsLayout() = default;

void PartsLayout::addItem(QLayoutItem* item) {
    items.emplace_back(item);
}

QLayoutItem* PartsLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* PartsLayout::takeAt(int index) {
    if (itemAt(index) == nullptr)
        return nullptr;
    QLayoutItem* const taken = items[static_cast<std::size_t>(index)].release();
    items.erase(items.begin() + index);
    return taken;
}

std::vector<QLayoutItem*> PartsLayout::shownParts() const {
    std::vector<QLayoutItem*> parts;
    for (const auto& item : items)
        if (!item->isEmpty())
            parts.push_back(item.get());
    return parts;
}

int PartsLayout::heightOf(const QLayoutItem& part, int width) {
    // What follows its width has no other least height: that of its hint belongs to another width.
    if (part.hasHeightForWidth())
        return part.heightForWidth(width);
    return std::max(part.sizeHint().height(), part.minimumSize().height());
}

QSize PartsLayout::sizeHint() const {
    return {Metrics::pageWidth, heightForWidth(Metrics::pageWidth)};
}

QSize PartsLayout::minimumSize() const {
    int width = 0;
    for (const QLayoutItem* part : shownParts())
        width = std::max(width, part->minimumSize().width());
    return {width, 0};
}

}  // namespace vantry
