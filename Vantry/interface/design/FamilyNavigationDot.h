#pragma once

#include <QPointF>

#include "Vantry/interface/design/Transition.h"

class QPainter;

namespace vantry {

/// The dot beneath the tab that is chosen: it comes and goes as a selection does. It is painted by its tab,
/// so that assistive tools know nothing of it.
class FamilyNavigationDot final {
public:
    /// `tab` must outlive it.
    explicit FamilyNavigationDot(QWidget& tab);

    void setSelected(bool selected) { transition.setTarget(selected ? 1 : 0); }
    [[nodiscard]] double opacity() const { return transition.value(); }
    /// Paints it with its middle there.
    void paint(QPainter& painter, const QPointF& middle) const;

private:
    const QWidget& tab;
    Transition transition;
};

}  // namespace vantry
