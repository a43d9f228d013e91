#include "Vantry/interface/design/PickerPainting.h"

#include <QPainter>
#include <QStyleOptionComboBox>

#include "Vantry/interface/design/ButtonStyles.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/MenuPainting.h"
#include "Vantry/interface/design/VantryFieldStyle.h"

namespace vantry {
namespace {

constexpr int padding = VantryFieldStyle::horizontalPadding;
constexpr int sign = Metrics::iconSmall;

bool isEnabled(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_Enabled);
}

/// Colours fade one by one: nothing of a picker lies on another part of it but its surface.
qreal opacity(const QStyleOption& option) {
    return isEnabled(option) ? 1 : VantryFieldStyle::disabledOpacity;
}

}  // namespace

void paintPicker(QPainter& painter, const QStyleOptionComplex& option, Glyph glyph) {
    const Palette& palette = Palette::of(option.palette);
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    VantryFieldStyle::paint(painter, option.rect, palette,
                            {.focused = focused ? 1.0 : 0.0, .enabled = isEnabled(option)});
    painter.save();
    painter.setOpacity(opacity(option));
    const QRectF place(option.rect.right() + 1 - padding - sign,
                       option.rect.top() + (option.rect.height() - sign) / 2.0, sign, sign);
    paintGlyph(painter, glyph, place, palette.ink);
    painter.restore();
}

QRect pickerTextPlace(const QRect& picker) {
    return picker.adjusted(padding, Metrics::ring, -padding - sign - Metrics::gapInline, -Metrics::ring);
}

QRect pickerSignPlace(const QRect& picker) {
    return picker.adjusted(picker.width() - padding - sign - Metrics::gapInline, 0, 0, 0);
}

void paintPickerText(QPainter& painter, const QStyleOptionComboBox& option) {
    const QRect place = pickerTextPlace(option.rect);
    painter.save();
    painter.setOpacity(opacity(option));
    painter.setPen(Palette::of(option.palette).ink);
    painter.drawText(
        place, Qt::AlignLeft | Qt::AlignVCenter,
        painter.fontMetrics().elidedText(singleLine(option.currentText), Qt::ElideRight, place.width()));
    painter.restore();
}

void paintPickerList(QPainter& painter, const QStyleOption& option, const QRect& window) {
    QStyleOption whole = option;
    whole.rect = window;
    paintMenuPanel(painter, whole);
}

int pickerWidth(int text) {
    return text + 1 + 2 * padding + sign + Metrics::gapInline;
}

}  // namespace vantry
