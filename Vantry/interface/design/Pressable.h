#pragma once

#include <functional>

#include <QPushButton>

#include "Vantry/interface/design/ButtonStyles.h"

namespace vantry {

class ControlStates;
struct VantryMotion;

/// What all own buttons share: a plain text that is also the accessible name, states that move, the focus
/// ring for those who came by keyboard, and Return as well as the space bar to press it.
class Pressable : public QPushButton {
    Q_OBJECT

public:
    explicit Pressable(QWidget* parent = nullptr);
    /// `fill` is the motion of its hover and selection.
    Pressable(const VantryMotion& fill, QWidget* parent);

    /// Shows `plain` and names the button so.
    void setPlain(const QString& plain);
    [[nodiscard]] const QString& plain() const noexcept { return shown; }

    /// Once: a held Return presses the button a single time. For buttons that ask, open or turn something
    /// round; not for those whose repetitions the store refuses itself.
    void setPressedOnce() { pressedOnce = true; }
    /// It opens a menu, which is its child: assistive tools know it as such and find the menu there, where Qt
    /// alone would hide it from them.
    void setOpensMenu() {
        opensMenu = true;
        setPressedOnce();
    }
    [[nodiscard]] bool isMenuOpener() const noexcept { return opensMenu; }

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] bool isHovered() const { return isEnabled() && underMouse(); }
    [[nodiscard]] bool showsFocus() const;
    [[nodiscard]] ControlState state() const;
    [[nodiscard]] ControlStates& states() noexcept { return *watched; }
    /// Draws the ring on the edge of `shape`, for what stands too close to others for one around it.
    void paintFocus(QPainter& painter, const QRectF& shape, qreal radius) const;
    /// Paints what `content` draws with the opacity of `look`, and smaller while it is pressed.
    void paintPressed(const ControlLook& look, const std::function<void(QPainter&)>& content);

    void keyPressEvent(QKeyEvent* event) override;

private:
    QString shown;
    ControlStates* watched;
    bool pressedOnce = false;
    bool opensMenu = false;
};

}  // namespace vantry
