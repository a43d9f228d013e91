#include "Vantry/interface/design/Button.h"

#include <algorithm>

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/KeyboardFocus.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {
namespace {

constexpr qreal disabledOpacity = 0.45;
constexpr qreal pressedOpacity = 0.75;
constexpr qreal hoverOpacity = 0.9;

}  // namespace

Pressable::Pressable(QWidget* parent)
    : QPushButton(parent) {
    setAttribute(Qt::WA_Hover);
    setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
    setFont(VantryType::font(VantryType::Role::label));
}

void Pressable::setPlain(const QString& plain) {
    if (shown == plain)
        return;
    shown = plain;
    setText(controlText(plain));
    setAccessibleName(plain);
    updateGeometry();
    update();
}

void Pressable::paintFocus(QPainter& painter, const QRectF& shape, qreal radius) const {
    constexpr qreal half = Metrics::ring / 2.0;
    painter.setPen(QPen(Palette::of(*this).link, Metrics::ring));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(shape.adjusted(half, half, -half, -half), radius, radius);
}

void Pressable::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && pressedOnce && event->isAutoRepeat())
        event->accept();
    else if (isReturn && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier)
        click();
    else
        QPushButton::keyPressEvent(event);
}

void Pressable::focusInEvent(QFocusEvent* event) {
    cameByKeyboard = isKeyboardFocus(event->reason(), cameByKeyboard);
    QPushButton::focusInEvent(event);
}

Button::Button(Kind style, Glyph sign, QWidget* parent)
    : Pressable(parent)
    , kind(style)
    , glyph(sign) {
    const bool shrinks = kind == Kind::crumb;
    setSizePolicy(shrinks ? QSizePolicy::Maximum : QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (shrinks)
        setFont(VantryType::font(VantryType::Role::caption));
}

QSize Button::sizeHint() const {
    int width = fontMetrics().horizontalAdvance(singleLine(plain())) + 1;
    if (glyph != Glyph::none)
        width += Metrics::iconSmall + Metrics::gapInline;
    switch (kind) {
    case Kind::primary:
        return {width + 2 * Metrics::paddingPrimary, Metrics::controlHeight};
    case Kind::quiet:
    case Kind::destructive:
        return {width + 2 * Metrics::paddingQuiet, Metrics::controlHeight};
    case Kind::inlined:
    case Kind::crumb:
        break;
    }
    return {width + 2 * Metrics::paddingInline, Metrics::inlineHeight};
}

QSize Button::minimumSizeHint() const {
    const QSize wanted = sizeHint();
    return {kind == Kind::crumb ? std::min(wanted.width(), Metrics::controlHeight) : wanted.width(),
            wanted.height()};
}

void Button::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool primary = kind == Kind::primary;
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    else if (primary && isDown())
        painter.setOpacity(pressedOpacity);
    else if (primary && isHovered())
        painter.setOpacity(hoverOpacity);
    paintSurface(painter);
    paintContent(painter);
    if (showsFocus())
        paintRing(painter);
}

void Button::paintSurface(QPainter& painter) const {
    const Palette& palette = Palette::of(*this);
    const bool quiet = kind == Kind::quiet || kind == Kind::destructive;
    const bool filled = kind == Kind::primary || quiet;
    if (!filled && !isHovered())
        return;
    QColor fill = palette.button;
    if (kind == Kind::primary)
        fill = palette.ink;
    else if (isDown())
        fill = palette.selected;
    else if (isHovered())
        fill = palette.hover;
    const bool outlined = quiet && (isDown() || isHovered());
    const qreal inset = outlined ? Metrics::hairline / 2.0 : 0;
    painter.setPen(outlined ? QPen(isDown() ? palette.link : palette.rule, Metrics::hairline)
                            : QPen(Qt::NoPen));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), Metrics::radiusControl,
                            Metrics::radiusControl);
}

void Button::paintContent(QPainter& painter) const {
    const Palette& palette = Palette::of(*this);
    QColor colour = palette.ink;
    if (kind == Kind::primary)
        colour = palette.canvas;
    else if (kind == Kind::destructive)
        colour = palette.danger;
    const int signWidth = glyph == Glyph::none ? 0 : Metrics::iconSmall + Metrics::gapInline;
    const QString line = fontMetrics().elidedText(singleLine(plain()), Qt::ElideRight, width() - signWidth);
    const int textWidth = fontMetrics().horizontalAdvance(line);
    const qreal left = (width() - textWidth - signWidth) / 2.0;
    const qreal top = (height() - Metrics::iconSmall) / 2.0;
    paintGlyph(painter, glyph, QRectF(left, top, Metrics::iconSmall, Metrics::iconSmall), colour);
    painter.setPen(colour);
    painter.drawText(QRectF(left + signWidth, 0, textWidth + 1, height()), Qt::AlignLeft | Qt::AlignVCenter,
                     line);
}

void Button::paintRing(QPainter& painter) const {
    painter.setOpacity(1);
    if (kind != Kind::primary) {
        paintFocus(painter, rect(), Metrics::radiusControl);
        return;
    }
    // On ink a ring of nearly the same colour would be lost: a light line inside tells it apart.
    constexpr qreal inset = Metrics::ring * 1.5;
    constexpr qreal radius = Metrics::radiusControl - Metrics::ring;
    painter.setPen(QPen(Palette::of(*this).canvas, Metrics::ring));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
}

}  // namespace vantry
