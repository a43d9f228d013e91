#include "Vantry/interface/design/LayoutRules.h"

#include <algorithm>

#include "Vantry/interface/design/Metrics.h"

namespace vantry {
namespace {

double usableWidth(std::optional<double> width) {
    return std::max(width.value_or(Metrics::pageWidth), 1.0);
}

}  // namespace

ColumnsPlan planColumns(std::optional<double> proposed, double minimum, double gap,
                        const std::vector<double>& heights) {
    const double width = usableWidth(proposed);
    ColumnsPlan plan;
    plan.columns = width >= 2 * minimum + gap ? 2 : 1;
    plan.columnWidth = (width - (plan.columns - 1) * gap) / plan.columns;
    const auto columns = static_cast<std::size_t>(plan.columns);
    for (std::size_t first = 0; first < heights.size(); first += columns) {
        const auto begin = heights.begin() + static_cast<std::ptrdiff_t>(first);
        const auto end =
            heights.begin() + static_cast<std::ptrdiff_t>(std::min(first + columns, heights.size()));
        plan.height += (first > 0 ? gap : 0) + *std::max_element(begin, end);
    }
    return plan;
}

WorkPlan planWork(std::optional<double> proposed, double sideWidth, double gap,
                  const std::vector<double>& heights) {
    if (heights.size() != 2)
        return {};
    const double width = usableWidth(proposed);
    if (width >= Metrics::columnsFrom)
        return {2, width - sideWidth - gap, sideWidth, std::max(heights[0], heights[1])};
    return {1, width, width, heights[0] + gap + heights[1]};
}

}  // namespace vantry
