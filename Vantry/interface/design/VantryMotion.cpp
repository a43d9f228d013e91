#include "Vantry/interface/design/VantryMotion.h"

#include <QPointF>

#include "Vantry/interface/design/VantryReducedMotionKey.h"

namespace vantry {
namespace {

QEasingCurve timingCurve(const QPointF& first, const QPointF& second) {
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment(first, second, {1, 1});
    return curve;
}

QEasingCurve easeOut() {
    return timingCurve({0, 0}, {0.58, 1});
}

QEasingCurve easeInAndOut() {
    return timingCurve({0.42, 0}, {0.58, 1});
}

}  // namespace

const VantryMotion& VantryMotion::feedback() {
    static const VantryMotion motion{timingCurve({0.4, 0}, {0.2, 1}), 120};
    return motion;
}

const VantryMotion& VantryMotion::selection() {
    static const VantryMotion motion{easeOut(), 160};
    return motion;
}

const VantryMotion& VantryMotion::disclosure() {
    static const VantryMotion motion{easeInAndOut(), 200};
    return motion;
}

const VantryMotion& VantryMotion::arrival() {
    static const VantryMotion motion{easeOut(), 180};
    return motion;
}

bool vantryReduceMotion() noexcept {
    return VantryReducedMotionKey::value();
}

}  // namespace vantry
