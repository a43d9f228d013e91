#include "Vantry/interface/design/MenuPainting.h"

#include <algorithm>

#include <QPainter>
#include <QStyle>
#include <QStyleOptionMenuItem>

#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/Surface.h"

namespace vantry {
namespace {

constexpr qreal disabledOpacity = 0.45;
constexpr int textFlags = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextHideMnemonic;
constexpr int markWidth = Metrics::iconSmall + Metrics::gapInline;

/// Where the keyboard or the pointer is.
void paintHighlight(QPainter& painter, const QRectF& place, const Palette& palette) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.hover);
    painter.drawRoundedRect(place, Metrics::radiusControl, Metrics::radiusControl);
}

QRect square(const QRect& row, int left) {
    return {left, row.center().y() - Metrics::iconSmall / 2 + 1, Metrics::iconSmall, Metrics::iconSmall};
}

void paintSeparator(QPainter& painter, const QRect& row, const Palette& palette) {
    painter.fillRect(QRect(row.left() + Metrics::paddingMenuItem, row.center().y(),
                           row.width() - 2 * Metrics::paddingMenuItem, Metrics::hairline),
                     palette.rule);
}

}  // namespace

void paintMenuPanel(QPainter& painter, const QStyleOption& option) {
    const Palette& palette = Palette::of(option.palette);
    paintSurface(painter, option.rect, {palette.card, palette.rule, Metrics::hairline, Metrics::radiusPanel});
}

void paintMenuItem(QPainter& painter, const QStyleOptionMenuItem& option, bool destructive) {
    const Palette& palette = Palette::of(option.palette);
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        paintSeparator(painter, option.rect, palette);
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    if (!enabled)
        painter.setOpacity(disabledOpacity);
    else if (option.state.testFlag(QStyle::State_Selected))
        paintHighlight(painter, option.rect, palette);

    QRect text = option.rect.adjusted(Metrics::paddingMenuItem, 0, -Metrics::paddingMenuItem, 0);
    if (option.menuHasCheckableItems) {
        if (option.checked)
            paintGlyph(painter, Glyph::check, square(text, text.left()), palette.ink);
        text.setLeft(text.left() + markWidth);
    }
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu)
        paintGlyph(painter, Glyph::chevronRight, square(text, text.right() + 1 - Metrics::iconSmall),
                   palette.muted);
    painter.setFont(option.font);
    painter.setPen(destructive ? palette.danger : palette.ink);
    painter.drawText(text, Qt::AlignLeft | textFlags, option.text.section(QLatin1Char('\t'), 0, 0));
    painter.setPen(enabled ? palette.muted : palette.ink);
    painter.drawText(text, Qt::AlignRight | textFlags, option.text.section(QLatin1Char('\t'), 1));
    painter.restore();
}

QSize menuItemSize(const QStyleOptionMenuItem& option, const QSize& text) {
    if (option.menuItemType == QStyleOptionMenuItem::Separator)
        return {Metrics::menuWidth, Metrics::menuSeparatorHeight};
    int width = text.width() + 2 * Metrics::paddingMenuItem;
    if (option.menuHasCheckableItems)
        width += markWidth;
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu)
        width += markWidth;
    // The menu itself adds the width of the widest shortcut.
    if (option.text.contains(QLatin1Char('\t')))
        width += Metrics::gapSection;
    return {std::max(width, Metrics::menuWidth - option.reservedShortcutWidth), Metrics::menuItemHeight};
}

void paintMenuBar(QPainter& painter, const QStyleOption& option) {
    painter.fillRect(option.rect, Palette::of(option.palette).canvas);
}

void paintHelpPanel(QPainter& painter, const QStyleOption& option) {
    const Palette& palette = Palette::of(option.palette);
    paintSurface(painter, option.rect, {palette.ink, palette.ink, Metrics::hairline, Metrics::radiusControl});
}

void paintMenuBarItem(QPainter& painter, const QStyleOptionMenuItem& option) {
    const Palette& palette = Palette::of(option.palette);
    paintMenuBar(painter, option);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (!option.state.testFlag(QStyle::State_Enabled))
        painter.setOpacity(disabledOpacity);
    else if (option.state.testFlag(QStyle::State_Selected) || option.state.testFlag(QStyle::State_Sunken))
        paintHighlight(painter, QRectF(option.rect).adjusted(0, Metrics::gapLines, 0, -Metrics::gapLines),
                       palette);
    painter.setFont(option.font);
    painter.setPen(palette.ink);
    painter.drawText(option.rect, Qt::AlignHCenter | textFlags, option.text);
    painter.restore();
}

}  // namespace vantry
