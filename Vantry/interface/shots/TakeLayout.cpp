#include "Vantry/interface/shots/TakeLayout.h"

#include <algorithm>

#include "Vantry/interface/design/Metrics.h"

namespace vantry {
namespace {

enum Part { reference, result, notes, media, parameters, foot, partCount };

}  // namespace

TakeLayout::TakeLayout(QWidget* parent)
    : PartsLayout(parent) {}

int TakeLayout::arrange(int width, const QPoint* origin) const {
    const auto parts = shownParts();
    if (parts.size() != partCount)
        return 0;
    const bool wide = width >= Metrics::columnsFrom;
    const auto set = [&](Part part, int left, int top, int partWidth) {
        const int height = heightOf(*parts[part], partWidth);
        if (origin != nullptr)
            parts[part]->setGeometry({origin->x() + left, origin->y() + top, partWidth, height});
        return top + height;
    };
    const int sideWidth = wide ? Metrics::sideWidth : Metrics::takeFrameWidth;
    int mainWidth = width;
    int bottom = 0;
    int sideBottom = 0;
    if (wide) {
        mainWidth = width - sideWidth - Metrics::gapSection;
        sideBottom = set(reference, width - sideWidth, 0, sideWidth);
        sideBottom = set(media, width - sideWidth, sideBottom + Metrics::gapBlock, sideWidth);
        bottom = set(result, 0, 0, mainWidth);
    } else {
        const int beside = sideWidth + Metrics::gapCard;
        bottom = std::max(set(reference, 0, 0, sideWidth), set(result, beside, 0, width - beside));
    }
    bottom = set(notes, 0, bottom + Metrics::gapBlock, mainWidth);
    if (!wide)
        bottom = set(media, 0, bottom + Metrics::gapBlock, mainWidth);
    bottom = set(parameters, 0, bottom + Metrics::gapBlock, mainWidth);
    bottom = set(foot, 0, bottom + Metrics::gapBlock, mainWidth);
    return std::max(bottom, sideBottom);
}

int TakeLayout::heightForWidth(int width) const {
    return arrange(width, nullptr);
}

void TakeLayout::setGeometry(const QRect& place) {
    QLayout::setGeometry(place);
    const QPoint origin = place.topLeft();
    arrange(place.width(), &origin);
}

}  // namespace vantry
