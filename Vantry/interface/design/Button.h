#pragma once

#include <QPushButton>

#include "Vantry/interface/design/Glyph.h"

namespace vantry {

/// What all own buttons share: a plain text that is also the accessible name, hover, the focus ring for those
/// who came by keyboard, and Return as well as the space bar to press it.
class Pressable : public QPushButton {
    Q_OBJECT

public:
    explicit Pressable(QWidget* parent = nullptr);

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
    [[nodiscard]] bool showsFocus() const { return hasFocus() && cameByKeyboard; }
    /// Draws the ring on the edge of `shape`.
    void paintFocus(QPainter& painter, const QRectF& shape, qreal radius) const;

    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    QString shown;
    bool cameByKeyboard = false;
    bool pressedOnce = false;
    bool opensMenu = false;
};

/// A button with a text and, if wanted, a sign in front of it.
class Button : public Pressable {
    Q_OBJECT

public:
    /// Primary: the one main action of a page. Quiet: what is usual there. Destructive: a quiet one that
    /// takes something away. Inlined: links. Crumb: a small link that is cut where there is no room.
    enum class Kind { primary, quiet, destructive, inlined, crumb };

    explicit Button(Kind kind, Glyph glyph = Glyph::none, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintSurface(QPainter& painter) const;
    void paintContent(QPainter& painter) const;
    void paintRing(QPainter& painter) const;

    const Kind kind;
    const Glyph glyph;
};

}  // namespace vantry
