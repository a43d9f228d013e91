#include "Vantry/interface/shots/ShotPlanLayout.h"

#include <algorithm>

namespace vantry {

ShotPlanLayout::ShotPlanLayout(double between, double twoColumnsFrom, QWidget* parent)
    : PartsLayout(parent)
    , gap(between)
    , breakpoint(twoColumnsFrom) {}

int ShotPlanLayout::arrange(int given, const QPoint* origin) const {
    const auto parts = shownParts();
    if (parts.size() != 3)
        return 0;
    const int width = std::max(given, 1);
    const bool wide = width >= breakpoint;
    const int columnWidth = wide ? static_cast<int>((width - gap) / 2) : width;
    const int between = static_cast<int>(gap);
    const auto set = [&](std::size_t part, int left, int top, int height) {
        if (origin != nullptr)
            parts[part]->setGeometry({origin->x() + left, origin->y() + top, columnWidth, height});
    };
    const int frame = heightOf(*parts[0], columnWidth);
    const int brief = heightOf(*parts[1], columnWidth);
    const int sound = heightOf(*parts[2], columnWidth);
    set(0, 0, 0, frame);
    if (!wide) {
        set(1, 0, frame + between, brief);
        set(2, 0, frame + between + brief + between, sound);
        return frame + brief + sound + 2 * between;
    }
    const int height = std::max(frame + between + sound, brief);
    set(1, width - columnWidth, 0, height);
    // What the brief is higher belongs to the sound, so that both columns end on one line.
    set(2, 0, frame + between, height - frame - between);
    return height;
}

int ShotPlanLayout::heightForWidth(int width) const {
    return arrange(width, nullptr);
}

void ShotPlanLayout::setGeometry(const QRect& place) {
    QLayout::setGeometry(place);
    const QPoint origin = place.topLeft();
    arrange(place.width(), &origin);
}

}  // namespace vantry
