#pragma once

#include <functional>

#include <QPointer>

class QVariantAnimation;
class QWidget;

namespace vantry {

struct VantryMotion;

/// A number that a widget is painted with and that moves to its target, repainting the widget on the way. It
/// is at its target at once while motion is reduced and while the widget is not on screen.
class Transition final {
public:
    /// `motion` must outlive this, and the widget too. `moved` is called for each step, the last one
    /// included.
    Transition(QWidget& widget, const VantryMotion& motion, double start = 0,
               std::function<void()> moved = {});
    ~Transition();
    Transition(const Transition&) = delete;
    Transition& operator=(const Transition&) = delete;

    /// Moves to `target` from where it is now.
    void setTarget(double target);
    /// Is at `target` without a move.
    void settle(double target);
    [[nodiscard]] double target() const noexcept { return aim; }
    [[nodiscard]] double value() const;
    [[nodiscard]] bool isMoving() const;

private:
    [[nodiscard]] bool mayMove() const;
    void start(double from);
    void step();

    QWidget& widget;
    const VantryMotion& motion;
    const std::function<void()> moved;
    double aim;
    QPointer<QVariantAnimation> animation;  ///< a child of the widget, from the first move on
};

}  // namespace vantry
