#pragma once

#include <functional>

#include <QColor>
#include <QRectF>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"

class QPainter;

namespace vantry {

/// How far a control is in each of its states, from 0 to 1: in between while it moves.
struct ControlState {
    qreal enabled = 1;
    qreal hovered = 0;
    qreal pressed = 0;
    qreal selected = 0;
};

/// What a control looks like in a state. Colours that are not there are transparent.
struct ControlLook {
    QColor fill = Qt::transparent;
    QColor outline = Qt::transparent;  ///< a hairline on the edge
    QColor text = Qt::transparent;
    qreal opacity = 1;  ///< of the control as a whole
};

/// The one main action of a page.
struct VantryPrimaryButtonStyle {
    static constexpr int height = Metrics::controlHeight;
    static constexpr int padding = Metrics::paddingPrimary;
    [[nodiscard]] static ControlLook look(const Palette& palette, const ControlState& state);
};

/// What is usual on a page, or, with the text of a destructive act, takes something away.
struct VantryQuietButtonStyle {
    static constexpr int height = Metrics::controlHeight;
    static constexpr int padding = Metrics::paddingQuiet;
    [[nodiscard]] static ControlLook look(const Palette& palette, const ControlState& state,
                                          bool destructive = false);
};

/// Links and second actions: a text of the colour around it, without a surface.
struct VantryInlineButtonStyle {
    static constexpr int height = Metrics::inlineHeight;
    static constexpr int padding = Metrics::paddingInline;
    [[nodiscard]] static ControlLook look(const Palette& palette, const ControlState& state,
                                          const QColor& text);
};

/// A whole row that is pressed. Its fill moves as a selection does.
struct VantryRowButtonStyle {
    static constexpr int height = Metrics::controlHeight;
    [[nodiscard]] static ControlLook look(const Palette& palette, const ControlState& state);
    /// The surface of a row, with the bar at the left of the selected one.
    static void paint(QPainter& painter, const QRectF& row, const Palette& palette,
                      const ControlState& state);
};

/// What is pressed gives way a little.
struct VantryPressFeedback {
    static constexpr qreal pressedScale = 0.985;
    /// 1 while motion is reduced or the control is disabled.
    [[nodiscard]] static qreal scale(const ControlState& state);
};

/// From `from` (at 0) to `to` (at 1), opacity included.
[[nodiscard]] QColor mixed(const QColor& from, const QColor& to, qreal share);

/// Paints fill and outline of a look, not its opacity.
void paintShape(QPainter& painter, const QRectF& shape, const ControlLook& look, qreal radius);

/// Paints what `content` draws in `place` as one picture of that opacity and, from its middle, of that scale.
void paintAsOne(QPainter& painter, const QRectF& place, qreal opacity, qreal scale,
                const std::function<void(QPainter&)>& content);

}  // namespace vantry
