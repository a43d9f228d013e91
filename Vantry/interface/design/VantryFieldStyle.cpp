#include "Vantry/interface/design/VantryFieldStyle.h"

#include <QPainter>

#include "Vantry/interface/design/ButtonStyles.h"
#include "Vantry/interface/design/FocusRing.h"

namespace vantry {

void VantryFieldStyle::paint(QPainter& painter, const QRectF& field, const Palette& palette,
                             const State& state) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (!state.enabled)
        painter.setOpacity(disabledOpacity);
    if (state.plain) {
        const auto line = [&](qreal width, const QColor& colour) {
            painter.fillRect(QRectF(field.left(), field.bottom() - width, field.width(), width), colour);
        };
        line(Metrics::hairline, palette.rule);
        line(Metrics::ring, mixed(Qt::transparent, palette.link, state.focused));
    } else {
        paintShape(painter, field, {.fill = palette.card, .outline = palette.rule}, Metrics::radiusControl);
        if (state.focused > 0)
            paintRing(painter, field, Metrics::radiusControl,
                      mixed(Qt::transparent, palette.link, state.focused));
    }
    painter.restore();
}

}  // namespace vantry
