#include "Vantry/interface/design/Button.h"

#include <algorithm>

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/ControlStates.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {
namespace {

bool isInline(Button::Kind kind) {
    return kind == Button::Kind::inlined || kind == Button::Kind::crumb;
}

constexpr int signWidth(Glyph glyph) {
    return glyph == Glyph::none ? 0 : Metrics::iconSmall + Metrics::gapInline;
}

}  // namespace

Button::Button(Kind style, Glyph sign, QWidget* parent)
    : Pressable(parent)
    , kind(style)
    , glyph(sign) {
    const bool shrinks = kind == Kind::crumb;
    setSizePolicy(shrinks ? QSizePolicy::Maximum : QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (shrinks)
        setFont(VantryType::font(VantryType::Role::caption));
    states().setRing({}, Metrics::radiusControl, isInline(kind) ? 0 : Metrics::ringGap);
}

void Button::setTrailing(Glyph sign) {
    if (trailing == sign)
        return;
    trailing = sign;
    updateGeometry();
    update();
}

void Button::setCompact(bool signAlone) {
    if (compact == signAlone)
        return;
    compact = signAlone;
    updateGeometry();
    update();
}

bool Button::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !compact)
        return Pressable::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), asHelp(plain()), this);
    return true;
}

int Button::padding() const {
    if (isInline(kind))
        return VantryInlineButtonStyle::padding;
    return kind == Kind::primary ? VantryPrimaryButtonStyle::padding : VantryQuietButtonStyle::padding;
}

QSize Button::sizeHint() const {
    if (compact)
        return {Metrics::controlHeight, VantryQuietButtonStyle::height};
    const int text = lineWidth(font(), singleLine(plain()));
    return {text + signWidth(glyph) + signWidth(trailing) + 2 * padding(),
            isInline(kind) ? VantryInlineButtonStyle::height : VantryQuietButtonStyle::height};
}

QSize Button::minimumSizeHint() const {
    const QSize wanted = sizeHint();
    return {kind == Kind::crumb ? std::min(wanted.width(), Metrics::controlHeight) : wanted.width(),
            wanted.height()};
}

ControlLook Button::look() const {
    const Palette& palette = Palette::of(*this);
    switch (kind) {
    case Kind::primary:
        return VantryPrimaryButtonStyle::look(palette, state());
    case Kind::quiet:
    case Kind::destructive:
        return VantryQuietButtonStyle::look(palette, state(), kind == Kind::destructive);
    case Kind::inlined:
        return VantryInlineButtonStyle::look(palette, state(), palette.link);
    case Kind::crumb:
        break;
    }
    return VantryInlineButtonStyle::look(palette, state(), palette.ink);
}

void Button::paintEvent(QPaintEvent*) {
    const ControlLook now = look();
    paintPressed(now, [&](QPainter& painter) {
        paintShape(painter, rect(), now, Metrics::radiusControl);
        paintContent(painter, now.text);
    });
}

void Button::paintContent(QPainter& painter, const QColor& colour) const {
    if (compact) {
        paintSign(painter, rect().adjusted((width() - Metrics::iconSmall) / 2, 0, 0, 0),
                  glyph == Glyph::none ? trailing : glyph, Metrics::iconSmall, colour);
        return;
    }
    const int signs = signWidth(glyph) + signWidth(trailing);
    // A button that was cut to less keeps a hint of room at its ends.
    const int room = width() - signs - 2 * std::min(padding(), Metrics::paddingInline);
    const QString line = lineWithin(font(), plain(), room);
    const int textWidth = lineWidth(font(), line) - 1;
    qreal left = (width() - textWidth - signs) / 2.0;
    const auto place = [this](qreal x) {
        return QRectF(x, (height() - Metrics::iconSmall) / 2.0, Metrics::iconSmall, Metrics::iconSmall);
    };
    paintGlyph(painter, glyph, place(left), colour);
    left += signWidth(glyph);
    painter.setFont(font());
    painter.setPen(colour);
    painter.drawText(QRectF(left, 0, textWidth + 1, height()), Qt::AlignLeft | Qt::AlignVCenter, line);
    paintGlyph(painter, trailing, place(left + textWidth + Metrics::gapInline), colour);
}

}  // namespace vantry
