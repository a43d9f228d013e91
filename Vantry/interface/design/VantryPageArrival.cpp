#include "Vantry/interface/design/VantryPageArrival.h"

#include <QPainter>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryMotion.h"

namespace vantry {

void VantryPageArrival::begin(QWidget& page) {
    if (!vantryReduceMotion() && page.isVisible())
        new VantryPageArrival(page);
}

VantryPageArrival::VantryPageArrival(QWidget& page)
    : opacity(*this, VantryMotion::arrival(), from, [this] {
        update();
        if (!opacity.isMoving())
            deleteLater();
    }) {
    setWidget(&page);
    show();
    opacity.setTarget(to);
}

void VantryPageArrival::paintEvent(QPaintEvent*) {
    // A focus frame reaches out beyond what it follows; the page itself ends here.
    constexpr int reach = Metrics::ringReach;
    QPainter painter(this);
    painter.setOpacity(1 - opacity.value());
    painter.fillRect(rect().adjusted(reach, reach, -reach, -reach), Palette::of(*this).canvas);
}

}  // namespace vantry
