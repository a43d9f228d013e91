#include "Vantry/interface/design/DeskLayout.h"

#include <algorithm>

#include <QWidget>

#include "Vantry/interface/design/LayoutRules.h"

namespace vantry {

DeskLayout::DeskLayout(int widthOfSide, int between, QWidget* parent)
    : PartsLayout(parent)
    , sideWidth(widthOfSide)
    , gap(between) {}

void DeskLayout::addPart(QWidget* part, Place place, int above) {
    addWidget(part);
    roles.back() = {itemAt(count() - 1), place, above};
}

void DeskLayout::addItem(QLayoutItem* item) {
    PartsLayout::addItem(item);
    roles.push_back({item, Place::main, gap});
}

QLayoutItem* DeskLayout::takeAt(int index) {
    QLayoutItem* const taken = PartsLayout::takeAt(index);
    std::erase_if(roles, [taken](const Role& role) { return role.part == taken; });
    return taken;
}

const DeskLayout::Role& DeskLayout::roleOf(const QLayoutItem& part) const {
    return *std::find_if(roles.begin(), roles.end(), [&](const Role& role) { return role.part == &part; });
}

int DeskLayout::arrange(int width, const QPoint* origin) const {
    const WorkPlan plan = planWork(width, sideWidth, gap, {0, 0});
    const bool isWide = plan.columns == 2;
    int mainBottom = 0;
    int sideBottom = 0;
    for (QLayoutItem* part : shownParts()) {
        const Role& role = roleOf(*part);
        const bool aside = isWide && role.place == Place::side;
        int& bottom = aside ? sideBottom : mainBottom;
        const int partWidth = static_cast<int>(aside ? plan.sideWidth : plan.mainWidth);
        const int top = bottom + (bottom > 0 ? role.above : 0);
        const int height = heightOf(*part, partWidth);
        if (origin != nullptr)
            part->setGeometry(
                {origin->x() + (aside ? width - partWidth : 0), origin->y() + top, partWidth, height});
        bottom = top + height;
    }
    return std::max(mainBottom, sideBottom);
}

int DeskLayout::heightForWidth(int width) const {
    return arrange(width, nullptr);
}

void DeskLayout::setGeometry(const QRect& place) {
    QLayout::setGeometry(place);
    const QPoint origin = place.topLeft();
    arrange(place.width(), &origin);
}

}  // namespace vantry
