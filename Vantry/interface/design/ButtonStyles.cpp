#include "Vantry/interface/design/ButtonStyles.h"

#include <QImage>
#include <QPainter>

#include "Vantry/interface/design/VantryMotion.h"

namespace vantry {
namespace {

constexpr qreal disabledOpacity = 0.45;

/// The opacity of a control: it falls to `hovered` and `pressed`, and a disabled one knows neither.
qreal opacityOf(const ControlState& state, qreal hovered, qreal pressed) {
    const qreal hover = 1 - (1 - hovered) * state.hovered;
    const qreal able = hover + (pressed - hover) * state.pressed;
    return disabledOpacity + (able - disabledOpacity) * state.enabled;
}

QColor faded(const QColor& colour, qreal share) {
    QColor result = colour;
    result.setAlphaF(static_cast<float>(colour.alphaF() * share));
    return result;
}

}  // namespace

QColor mixed(const QColor& from, const QColor& to, qreal share) {
    const qreal fromAlpha = from.alphaF() * (1 - share);
    const qreal toAlpha = to.alphaF() * share;
    const qreal alpha = fromAlpha + toAlpha;
    if (alpha <= 0)
        return Qt::transparent;
    const auto part = [&](float first, float second) {
        return static_cast<float>((first * fromAlpha + second * toAlpha) / alpha);
    };
    return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                            part(from.blueF(), to.blueF()), static_cast<float>(alpha));
}

ControlLook VantryPrimaryButtonStyle::look(const Palette& palette, const ControlState& state) {
    constexpr qreal hovered = 0.9;
    constexpr qreal pressed = 0.75;
    return {.fill = palette.ink, .text = palette.canvas, .opacity = opacityOf(state, hovered, pressed)};
}

ControlLook VantryQuietButtonStyle::look(const Palette& palette, const ControlState& state,
                                         bool destructive) {
    // The fills hardly differ: an outline says it too.
    return {.fill =
                mixed(mixed(palette.button, palette.hover, state.hovered), palette.selected, state.pressed),
            .outline = mixed(faded(palette.rule, state.hovered), palette.link, state.pressed),
            .text = destructive ? palette.danger : palette.ink,
            .opacity = opacityOf(state, 1, 1)};
}

ControlLook VantryInlineButtonStyle::look(const Palette& palette, const ControlState& state,
                                          const QColor& text) {
    constexpr qreal hoverFill = 0.35;
    constexpr qreal pressed = 0.65;
    return {.fill = faded(palette.hover, hoverFill * state.hovered),
            .text = text,
            .opacity = opacityOf(state, 1, pressed)};
}

ControlLook VantryRowButtonStyle::look(const Palette& palette, const ControlState& state) {
    constexpr qreal pressed = 0.65;
    return {.fill = mixed(faded(palette.hover, state.hovered), palette.selected, state.selected),
            .outline = faded(palette.rule, state.selected),
            .text = palette.ink,
            .opacity = opacityOf(state, 1, pressed)};
}

void VantryRowButtonStyle::paint(QPainter& painter, const QRectF& row, const Palette& palette,
                                 const ControlState& state) {
    paintShape(painter, row, look(palette, state), Metrics::radiusControl);
    if (state.selected <= 0)
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(palette.ink, state.selected));
    painter.drawRoundedRect(QRectF(row.left(), row.top() + Metrics::gapField, Metrics::selectionBar,
                                   row.height() - 2 * Metrics::gapField),
                            Metrics::hairline, Metrics::hairline);
}

qreal VantryPressFeedback::scale(const ControlState& state) {
    return vantryReduceMotion() ? 1 : 1 - (1 - pressedScale) * state.pressed * state.enabled;
}

void paintShape(QPainter& painter, const QRectF& shape, const ControlLook& look, qreal radius) {
    const bool outlined = look.outline.alpha() > 0;
    if (!outlined && look.fill.alpha() == 0)
        return;
    constexpr qreal half = Metrics::hairline / 2.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.fill);
    painter.drawRoundedRect(shape, radius, radius);
    if (!outlined)
        return;
    painter.setPen(QPen(look.outline, Metrics::hairline));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(shape.adjusted(half, half, -half, -half), radius - half, radius - half);
}

void paintAsOne(QPainter& painter, const QRectF& place, qreal opacity, qreal scale,
                const std::function<void(QPainter&)>& content) {
    const auto draw = [&](QPainter& on) {
        on.setRenderHint(QPainter::Antialiasing);
        if (scale != 1) {
            on.translate(place.center());
            on.scale(scale, scale);
            on.translate(-place.center());
        }
        content(on);
    };
    painter.save();
    if (opacity >= 1) {
        draw(painter);
        painter.restore();
        return;
    }
    // A picture whose pixels are those of the screen, whatever its scale.
    const QTransform toScreen = painter.combinedTransform();
    const QRect pixels = toScreen.mapRect(place).toAlignedRect();
    const QPointF origin = toScreen.inverted().map(QPointF(pixels.topLeft()));
    QImage layer(pixels.size().expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied);
    layer.setDevicePixelRatio(toScreen.m11());
    layer.fill(Qt::transparent);
    {
        QPainter inside(&layer);
        inside.setFont(painter.font());
        inside.translate(-origin);
        draw(inside);
    }
    painter.setOpacity(opacity);
    painter.drawImage(origin, layer);
    painter.restore();
}

}  // namespace vantry
