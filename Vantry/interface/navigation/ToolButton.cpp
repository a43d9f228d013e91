#include "Vantry/interface/navigation/ToolButton.h"

#include <algorithm>

#include <QAction>
#include <QPainter>

#include "Vantry/interface/design/ControlStates.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/FocusRing.h"
#include "Vantry/interface/design/KeyboardFocus.h"
#include "Vantry/interface/design/VantryMotion.h"

namespace vantry {

ToolButton::ToolButton(QAction& action, Glyph sign, QWidget* parent)
    : QToolButton(parent)
    , glyph(sign)
    , states(new ControlStates(*this, VantryMotion::feedback())) {
    setDefaultAction(&action);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(buttonFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&action, &QAction::changed, this, &ToolButton::takeName);
    takeName();
}

void ToolButton::takeName() {
    // The action's text is one of ours and has no doubled "&". Qt made a tool tip of it, which tools would
    // read out behind the same name.
    setAccessibleName(defaultAction()->text());
    setHelp(*this, defaultAction()->text());
}

QSize ToolButton::sizeHint() const {
    return {Metrics::toolButtonWidth, Metrics::toolButtonHeight};
}

void ToolButton::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    const ControlState state = states->state();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // A quiet button that shows its surface only while it is used.
    ControlLook look = VantryQuietButtonStyle::look(palette, state);
    look.fill.setAlphaF(static_cast<float>(std::max(state.hovered, state.pressed)));
    painter.setOpacity(look.opacity);
    paintShape(painter, rect(), look, Metrics::radiusControl);
    paintGlyph(painter, glyph,
               QRectF((width() - Metrics::iconLarge) / 2.0, (height() - Metrics::iconLarge) / 2.0,
                      Metrics::iconLarge, Metrics::iconLarge),
               look.text);
    painter.setOpacity(1);
    if (states->showsFocus())
        paintRing(painter, rect(), Metrics::radiusControl, palette.link);
}

}  // namespace vantry
