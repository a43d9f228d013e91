#include "Vantry/interface/navigation/ToolButton.h"

#include <QAction>
#include <QPainter>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"

namespace vantry {

ToolButton::ToolButton(QAction& action, Glyph sign, QWidget* parent)
    : QToolButton(parent)
    , glyph(sign) {
    setDefaultAction(&action);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&action, &QAction::changed, this, &ToolButton::takeName);
    takeName();
}

void ToolButton::takeName() {
    // The action's text is one of ours and has no doubled "&". Qt shows it as hover help by itself.
    setAccessibleName(defaultAction()->text());
}

QSize ToolButton::sizeHint() const {
    return {Metrics::toolButtonWidth, Metrics::toolButtonHeight};
}

void ToolButton::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr qreal disabledOpacity = 0.45;
    if (isEnabled() && (underMouse() || isDown())) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isDown() ? palette.selected : palette.hover);
        painter.drawRoundedRect(rect(), Metrics::radiusControl, Metrics::radiusControl);
    }
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    paintGlyph(painter, glyph,
               QRectF((width() - Metrics::iconLarge) / 2.0, (height() - Metrics::iconLarge) / 2.0,
                      Metrics::iconLarge, Metrics::iconLarge),
               palette.ink);
    if (hasFocus()) {
        constexpr qreal half = Metrics::ring / 2.0;
        painter.setPen(QPen(palette.link, Metrics::ring));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), Metrics::radiusControl,
                                Metrics::radiusControl);
    }
}

}  // namespace vantry
