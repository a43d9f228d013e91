#pragma once

#include <memory>

#include <QObject>
#include <QRectF>

#include "Vantry/interface/design/ButtonStyles.h"
#include "Vantry/interface/design/Transition.h"

class QAbstractButton;

namespace vantry {

class FocusRing;

/// How a button is at this moment, moving: what it is painted from. It watches the button, whatever changed
/// it, and knows whether the person came to it by keyboard.
class ControlStates final : public QObject {
public:
    /// `fill` is the motion of hover and selection; being pressed or disabled always moves as feedback.
    ControlStates(QAbstractButton& button, const VantryMotion& fill);
    ~ControlStates() override;

    [[nodiscard]] ControlState state() const;
    /// Whether it has the focus and should show so.
    [[nodiscard]] bool showsFocus() const;

    /// For a button that cannot be checked.
    void setSelected(bool selected);
    /// From now on the focus is shown by a ring around `shape`, which is relative to the button's place:
    /// its margins are those of the button. `gap` is left free between the two.
    void setRing(const QMarginsF& inset, double radius, double gap);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Ring {
        QMarginsF inset;
        double radius = 0;
        double gap = 0;
    };

    void follow();
    void settle();
    void showRing();

    QAbstractButton& button;
    Transition enabled;
    Transition hovered;
    Transition pressed;
    Transition selected;
    bool chosen = false;
    bool focused = false;
    bool cameByKeyboard = false;
    std::unique_ptr<Ring> ring;
    QPointer<FocusRing> shown;
};

}  // namespace vantry
