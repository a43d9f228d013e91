#include "Vantry/interface/navigation/MovingFill.h"

namespace vantry {

MovingFill::MovingFill(QWidget& viewport, const VantryMotion& motion)
    : arriving(viewport, motion)
    , leaving(viewport, motion) {}

void MovingFill::moveTo(const QModelIndex& row) {
    if (row == here)
        return;
    left = here;
    leaving.settle(arriving.value());
    leaving.setTarget(0);
    here = row;
    arriving.settle(0);
    arriving.setTarget(1);
}

double MovingFill::strength(const QModelIndex& row) const {
    if (row == here)
        return arriving.value();
    return row == left ? leaving.value() : 0;
}

}  // namespace vantry
