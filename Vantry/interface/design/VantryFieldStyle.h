#pragma once

#include <QRectF>

#include "Vantry/interface/design/Metrics.h"

class QPainter;

namespace vantry {

struct Palette;

/// How a field for text looks, in the body type.
struct VantryFieldStyle {
    static constexpr int horizontalPadding = Metrics::paddingField;
    static constexpr int verticalPadding = Metrics::paddingEditor;
    static constexpr int minimumHeight = Metrics::controlHeight;
    static constexpr qreal disabledOpacity = 0.5;

    struct State {
        qreal focused = 0;  ///< from 0 to 1: in between while the border changes
        bool enabled = true;
        bool plain = false;  ///< without a surface: a line beneath the text
    };

    static void paint(QPainter& painter, const QRectF& field, const Palette& palette, const State& state);
};

}  // namespace vantry
