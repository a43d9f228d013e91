#pragma once

#include <optional>

#include "Vantry/interface/design/Pressable.h"

namespace vantry {

/// A row of a list or a card that is pressed as a whole. Its surface, its states and its ring are painted
/// here, what it shows by those who derive from it. It keeps its size while it is pressed, and a held key
/// presses it once.
class PressableSurface : public Pressable {
    Q_OBJECT

public:
    /// A row lies within its list's card, a dense one with less room around what marks it; a card has a
    /// surface of its own.
    enum class Shape { row, denseRow, card };

    /// Whether it is the chosen one of its list; nothing where there is no choice.
    [[nodiscard]] virtual std::optional<bool> isChosen() const { return std::nullopt; }

protected:
    PressableSurface(Shape shape, QWidget* parent);

    void paintEvent(QPaintEvent* event) final;
    /// Paints what is on the surface, for the control that is enabled: what is disabled fades as a whole.
    virtual void paintContent(QPainter& painter) const = 0;

private:
    void paintSurfaceOf(QPainter& painter) const;

    const Shape shape;
};

}  // namespace vantry
