#pragma once

#include <optional>
#include <vector>

namespace vantry {

/// How `WorkspaceColumns` places its parts.
struct ColumnsPlan {
    int columns = 0;
    double columnWidth = 0;
    double height = 0;
};

/// Two columns where two of the least width and the gap between them fit, else one. The parts go row by row,
/// each row as high as its tallest. Without a width it is that of a page; one below 1 counts as 1. All in
/// points.
[[nodiscard]] ColumnsPlan planColumns(std::optional<double> width, double minimum, double gap,
                                      const std::vector<double>& heights);

/// How `VantryWorkLayout` places its parts.
struct WorkPlan {
    int columns = 0;
    double mainWidth = 0;
    double sideWidth = 0;
    double height = 0;
};

/// The main part and the side part beside each other where there is room, else the side below the main part.
/// All is 0 unless there are two parts.
[[nodiscard]] WorkPlan planWork(std::optional<double> width, double sideWidth, double gap,
                                const std::vector<double>& heights);

}  // namespace vantry
