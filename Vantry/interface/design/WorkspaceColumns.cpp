#include "Vantry/interface/design/WorkspaceColumns.h"

#include <algorithm>
#include <cmath>

#include "Vantry/interface/design/LayoutRules.h"

namespace vantry {

WorkspaceColumns::WorkspaceColumns(int least, int between, QWidget* parent)
    : PartsLayout(parent)
    , minimum(least)
    , gap(between) {}

int WorkspaceColumns::heightForWidth(int width) const {
    const int columnWidth = static_cast<int>(planColumns(width, minimum, gap, {}).columnWidth);
    std::vector<double> heights;
    for (const QLayoutItem* part : shownParts())
        heights.push_back(heightOf(*part, columnWidth));
    return static_cast<int>(std::lround(planColumns(width, minimum, gap, heights).height));
}

void WorkspaceColumns::setGeometry(const QRect& place) {
    QLayout::setGeometry(place);
    const ColumnsPlan plan = planColumns(place.width(), minimum, gap, {});
    const int width = static_cast<int>(plan.columnWidth);
    const auto parts = shownParts();
    int top = place.top();
    for (std::size_t first = 0; first < parts.size(); first += static_cast<std::size_t>(plan.columns)) {
        const std::size_t end = std::min(first + static_cast<std::size_t>(plan.columns), parts.size());
        int height = 0;
        for (std::size_t index = first; index < end; ++index)
            height = std::max(height, heightOf(*parts[index], width));
        for (std::size_t index = first; index < end; ++index) {
            // The second column ends on the right edge, whatever the halves round to.
            const int left = index == first ? place.left() : place.left() + place.width() - width;
            // What cannot be as high as its row begins where the row begins: Qt would centre it.
            parts[index]->setGeometry(
                {left, top, width, std::min(height, parts[index]->maximumSize().height())});
        }
        top += height + gap;
    }
}

}  // namespace vantry
