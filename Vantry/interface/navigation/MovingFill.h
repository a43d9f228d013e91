#pragma once

#include <QPersistentModelIndex>

#include "Vantry/interface/design/Transition.h"

namespace vantry {

struct VantryMotion;

/// What marks one row of a view at a time, such as the one under the pointer: when it goes to another row it
/// fades in there and out where it was.
class MovingFill final {
public:
    /// The rows are painted on `viewport`, which must outlive this; `motion` too.
    MovingFill(QWidget& viewport, const VantryMotion& motion);

    /// An invalid row is none.
    void moveTo(const QModelIndex& row);
    [[nodiscard]] const QPersistentModelIndex& row() const noexcept { return here; }
    /// How much of it the row shows, from 0 to 1.
    [[nodiscard]] double strength(const QModelIndex& row) const;

private:
    QPersistentModelIndex here;
    QPersistentModelIndex left;
    Transition arriving;
    Transition leaving;
};

}  // namespace vantry
