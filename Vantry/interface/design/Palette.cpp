#include "Vantry/interface/design/Palette.h"

#include <algorithm>
#include <cmath>

#include <QWidget>

#include "Vantry/interface/design/VantryFieldStyle.h"

namespace vantry {

const Palette& Palette::light() {
    static const Palette palette{
        .ink = QColor(0x29, 0x34, 0x2D),
        .canvas = QColor(0xF6, 0xF4, 0xEE),
        .card = QColor(0xFE, 0xFD, 0xF9),
        .rule = QColor(0xD8, 0xDC, 0xD3),
        .navigation = QColor(0xEE, 0xEF, 0xE9),
        .button = QColor(0xE6, 0xEA, 0xE1),
        .hover = QColor(0xE6, 0xEA, 0xE1),
        .selected = QColor(0xE6, 0xEB, 0xDD),
        .muted = QColor(0x62, 0x6A, 0x63),
        .tint = QColor(0xEE, 0xEF, 0xE9),
        .completed = QColor(0x38, 0x63, 0x4A),
        .link = QColor(0x3F, 0x4A, 0x42),
        .danger = QColor(0xA1, 0x44, 0x3C),
        .warning = QColor(0x80, 0x5D, 0x23),
        .editorInk = QColor(0x29, 0x34, 0x2D),
    };
    return palette;
}

const Palette& Palette::dark() {
    static const Palette palette{
        .ink = QColor(0xEE, 0xF0, 0xE8),
        .canvas = QColor(0x20, 0x23, 0x1F),
        .card = QColor(0x29, 0x2D, 0x28),
        .rule = QColor(0x4B, 0x53, 0x48),
        .navigation = QColor(0x25, 0x29, 0x23),
        .button = QColor(0x37, 0x3F, 0x34),
        .hover = QColor(0x42, 0x4B, 0x3E),
        .selected = QColor(0x3E, 0x4A, 0x39),
        .muted = QColor(0xBD, 0xC5, 0xB7),
        .tint = QColor(0x30, 0x37, 0x2D),
        .completed = QColor(0xAF, 0xD0, 0xB4),
        .link = QColor(0xC0, 0xCF, 0xB6),
        .danger = QColor(0xED, 0xAB, 0xA0),
        .warning = QColor(0xE0, 0xC3, 0x8D),
        .editorInk = QColor(0xEE, 0xF0, 0xE8),
    };
    return palette;
}

bool Palette::isDark(const QPalette& palette) {
    return palette.color(QPalette::Active, QPalette::Window).lightness() < 128;
}

const Palette& Palette::of(const QWidget& widget) {
    return of(widget.palette());
}

const Palette& Palette::of(const QPalette& palette) {
    return isDark(palette) ? dark() : light();
}

QPalette Palette::controls() const {
    QPalette palette;
    const auto set = [&palette](QPalette::ColorRole role, const QColor& colour) {
        palette.setColor(QPalette::All, role, colour);
    };
    set(QPalette::Window, canvas);
    set(QPalette::WindowText, ink);
    set(QPalette::Base, card);
    set(QPalette::AlternateBase, tint);
    set(QPalette::Text, editorInk);
    set(QPalette::PlaceholderText, muted);
    set(QPalette::Button, button);
    set(QPalette::ButtonText, ink);
    set(QPalette::BrightText, danger);
    set(QPalette::Light, card);
    set(QPalette::Midlight, hover);
    set(QPalette::Mid, rule);
    set(QPalette::Dark, muted);
    set(QPalette::Shadow, muted);
    set(QPalette::Highlight, link);
    set(QPalette::HighlightedText, card);
    set(QPalette::Link, link);
    set(QPalette::LinkVisited, link);
    set(QPalette::ToolTipBase, ink);
    set(QPalette::ToolTipText, canvas);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, muted);
    // The text of a field fades with its surface.
    QColor faded = ink;
    faded.setAlphaF(static_cast<float>(VantryFieldStyle::disabledOpacity));
    palette.setColor(QPalette::Disabled, QPalette::Text, faded);
    return palette;
}

double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

}  // namespace vantry
