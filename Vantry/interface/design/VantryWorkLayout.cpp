#include "Vantry/interface/design/VantryWorkLayout.h"

#include <algorithm>

#include "Vantry/interface/design/LayoutRules.h"

namespace vantry {

VantryWorkLayout::VantryWorkLayout(int widthOfSide, int between, QWidget* parent)
    : PartsLayout(parent)
    , sideWidth(widthOfSide)
    , gap(between) {}

int VantryWorkLayout::heightForWidth(int width) const {
    const auto parts = shownParts();
    if (parts.size() != 2)
        return 0;
    const WorkPlan widths = planWork(width, sideWidth, gap, {0, 0});
    const double mainHeight = heightOf(*parts[0], static_cast<int>(widths.mainWidth));
    const double sideHeight = heightOf(*parts[1], static_cast<int>(widths.sideWidth));
    return static_cast<int>(planWork(width, sideWidth, gap, {mainHeight, sideHeight}).height);
}

void VantryWorkLayout::setGeometry(const QRect& place) {
    QLayout::setGeometry(place);
    const auto parts = shownParts();
    if (parts.size() != 2)
        return;
    const WorkPlan plan = planWork(place.width(), sideWidth, gap, {0, 0});
    const int mainWidth = static_cast<int>(plan.mainWidth);
    const int besideWidth = static_cast<int>(plan.sideWidth);
    const int sideHeight = heightOf(*parts[1], besideWidth);
    if (plan.columns == 2) {
        parts[0]->setGeometry({place.left(), place.top(), mainWidth, place.height()});
        parts[1]->setGeometry(
            {place.left() + mainWidth + gap, place.top(), besideWidth, std::min(sideHeight, place.height())});
        return;
    }
    // Height that nobody asked for belongs to the main part.
    const int mainHeight = std::max(heightOf(*parts[0], mainWidth), place.height() - gap - sideHeight);
    parts[0]->setGeometry({place.left(), place.top(), mainWidth, mainHeight});
    parts[1]->setGeometry({place.left(), place.top() + mainHeight + gap, besideWidth, sideHeight});
}

}  // namespace vantry
