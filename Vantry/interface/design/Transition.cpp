#include "Vantry/interface/design/Transition.h"

#include <QVariantAnimation>
#include <QWidget>

#include "Vantry/interface/design/VantryMotion.h"

namespace vantry {

Transition::Transition(QWidget& shown, const VantryMotion& pace, double start, std::function<void()> after)
    : widget(shown)
    , motion(pace)
    , moved(std::move(after))
    , aim(start) {}

Transition::~Transition() {
    delete animation;
}

bool Transition::mayMove() const {
    return !vantryReduceMotion() && widget.isVisible();
}

bool Transition::isMoving() const {
    return animation != nullptr && animation->state() != QAbstractAnimation::Stopped && mayMove();
}

double Transition::value() const {
    return isMoving() ? animation->currentValue().toDouble() : aim;
}

void Transition::setTarget(double target) {
    if (aim == target)
        return;
    const double from = value();
    if (!mayMove()) {
        settle(target);
        return;
    }
    aim = target;
    start(from);
}

void Transition::settle(double target) {
    const bool changes = value() != target;
    aim = target;
    if (animation != nullptr)
        animation->stop();
    if (changes)
        step();
}

void Transition::start(double from) {
    if (animation == nullptr) {
        animation = new QVariantAnimation(&widget);
        QObject::connect(animation, &QVariantAnimation::valueChanged, &widget, [this] {
            // Motion may have been reduced, or the widget hidden, on the way.
            if (animation->state() != QAbstractAnimation::Stopped && !mayMove())
                animation->stop();
            step();
        });
        QObject::connect(animation, &QVariantAnimation::finished, &widget, [this] { step(); });
        animation->setEasingCurve(motion.curve);
        animation->setDuration(motion.milliseconds);
    }
    animation->stop();
    {
        // Telling it where to go is no step of the way.
        const QSignalBlocker quiet(animation);
        animation->setStartValue(from);
        animation->setEndValue(aim);
    }
    animation->start();
}

void Transition::step() {
    widget.update();
    if (moved)
        moved();
}

}  // namespace vantry
