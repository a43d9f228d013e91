#include "Vantry/interface/design/VantryStyle.h"

#include <algorithm>

#include <QApplication>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>
#include <QToolTip>

#include "Vantry/interface/design/MenuPainting.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/PickerPainting.h"
#include "Vantry/interface/design/RowButton.h"
#include "Vantry/interface/design/Surface.h"
#include "Vantry/interface/design/VantryFieldStyle.h"
#include "Vantry/interface/design/VantryTextField.h"
#include "Vantry/interface/design/VantryToggle.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {
namespace {

void paintField(const QStyleOption& option, QPainter& painter, const QLineEdit& line) {
    const auto* field = qobject_cast<const VantryTextField*>(&line);
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    VantryFieldStyle::paint(painter, option.rect, Palette::of(option.palette),
                            {.focused = field != nullptr ? field->focusShare()
                                        : focused        ? 1.0
                                                         : 0.0,
                             .enabled = option.state.testFlag(QStyle::State_Enabled),
                             .plain = field != nullptr && field->isPlain()});
}

/// Whether the entry that the menu has there is a destructive one.
bool isDestructive(const QStyleOptionMenuItem& entry, const QWidget* widget) {
    const auto* menu = qobject_cast<const QMenu*>(widget);
    return menu != nullptr &&
           qobject_cast<DestructiveAction*>(menu->actionAt(entry.rect.center())) != nullptr;
}

/// The window of a picker's choices; Qt keeps its class to itself.
bool isPickerList(const QWidget* widget) {
    return widget != nullptr && widget->inherits("QComboBoxPrivateContainer");
}

/// The label that shows hover help; Qt keeps its class to itself.
QLabel* helpLabel(QWidget* widget) {
    return widget->inherits("QTipLabel") ? qobject_cast<QLabel*>(widget) : nullptr;
}

}  // namespace

VantryStyle::VantryStyle()
    : QProxyStyle(QStringLiteral("Fusion")) {}

void VantryStyle::install() {
    static bool installed = false;
    if (installed)
        return;
    installed = true;
    QApplication::setStyle(new VantryStyle);
    QApplication::setFont(VantryType::font(VantryType::Role::label));
    QToolTip::setFont(VantryType::font(VantryType::Role::caption));
}

void VantryStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    // The bars paint their handle alone; what lies behind shows through.
    if (qobject_cast<QScrollBar*>(widget) != nullptr)
        widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
    // Nor do the corners of a menu.
    if (qobject_cast<QMenu*>(widget) != nullptr)
        widget->setAttribute(Qt::WA_TranslucentBackground);
    // The list of a picker lies on a surface like a menu's.
    if (isPickerList(widget)) {
        widget->setAttribute(Qt::WA_TranslucentBackground);
        // Above and below Qt keeps room of its own.
        constexpr int side = Metrics::hairline + Metrics::paddingMenu;
        widget->setContentsMargins(side, Metrics::hairline, side, Metrics::hairline);
    }
    if (QLabel* help = helpLabel(widget)) {
        help->setAttribute(Qt::WA_TranslucentBackground);
        // Beside what PM_ToolTipLabelFrameWidth gives on all sides.
        constexpr int more = Metrics::paddingHelp - Metrics::paddingHelpLine;
        help->setContentsMargins(more, 0, more, 0);
    }
}

void VantryStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
    const auto* line = qobject_cast<const QLineEdit*>(widget);
    // A line within another field lies on the surface of that.
    if (element == PE_PanelLineEdit && line != nullptr && !line->hasFrame())
        return;
    if (element == PE_PanelLineEdit && line != nullptr)
        paintField(*option, *painter, *line);
    else if (element == PE_PanelMenu)
        paintMenuPanel(*painter, *option);
    else if (element == PE_PanelTipLabel)
        paintHelpPanel(*painter, *option);
    // The month of a calendar opens a list without a sign of its own.
    else if (element == PE_IndicatorArrowDown && widget != nullptr &&
             widget->objectName() == QLatin1String("qt_calendar_monthbutton"))
        return;
    // The views paint their rows themselves, and the panel of a menu has its frame.
    // Where two scroll bars meet is a piece of the page, too.
    else if (element != PE_PanelItemViewRow && element != PE_FrameMenu && element != PE_PanelScrollAreaCorner)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void VantryStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    // A menu has its panel; the list of a picker has one behind a view that is filled.
    const bool inMenu = qobject_cast<const QMenu*>(widget) != nullptr;
    if ((element == CE_MenuItem || element == CE_MenuEmptyArea) && !inMenu)
        painter->fillRect(option->rect, Palette::of(option->palette).card);
    const auto* picker = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (element == CE_ComboBoxLabel && picker != nullptr)
        paintPickerText(*painter, *picker);
    else if (element == CE_ShapedFrame && isPickerList(widget))
        paintPickerList(*painter, *option, widget->rect());
    else if (element == CE_Splitter)
        painter->fillRect(option->rect, Palette::of(option->palette).rule);
    else if (element == CE_MenuItem && entry != nullptr)
        paintMenuItem(*painter, *entry, isDestructive(*entry, widget));
    else if (element == CE_MenuBarItem && entry != nullptr)
        paintMenuBarItem(*painter, *entry);
    else if (element == CE_MenuBarEmptyArea)
        paintMenuBar(*painter, *option);
    else if (element != CE_MenuEmptyArea)  // the panel is painted as a whole
        QProxyStyle::drawControl(element, option, painter, widget);
}

void VantryStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const {
    if (control == CC_ComboBox) {
        const bool opensCalendar = qobject_cast<const QDateTimeEdit*>(widget) != nullptr;
        paintPicker(*painter, *option, opensCalendar ? Glyph::calendar : Glyph::chevronsUpDown);
        return;
    }
    if (control != CC_ScrollBar) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    const QRect handle = subControlRect(control, option, SC_ScrollBarSlider, widget);
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (bar == nullptr || bar->maximum <= bar->minimum)
        return;
    const Palette& palette = Palette::of(option->palette);
    const bool grasped =
        option->activeSubControls.testFlag(SC_ScrollBarSlider) && option->state.testFlag(State_Sunken);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(grasped ? palette.muted : palette.rule);
    constexpr qreal margin = Metrics::scrollMargin;
    constexpr qreal radius = Metrics::scrollHandle / 2.0;
    painter->drawRoundedRect(QRectF(handle).adjusted(margin, margin, -margin, -margin), radius, radius);
    painter->restore();
}

int VantryStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_ScrollBarExtent:
        return Metrics::scrollStrip;
    case PM_ScrollView_ScrollBarSpacing:
    case PM_LineEditIconMargin:
        return 0;
    case PM_MenuPanelWidth:
        return Metrics::hairline;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return Metrics::paddingMenu;
    case PM_TextCursorWidth:
        return Metrics::caret;
    case PM_ToolTipLabelFrameWidth:
        return Metrics::paddingHelpLine - 1;  // Qt adds one point
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
        return Metrics::ringReach;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int VantryStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* returned) const {
    switch (hint) {
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_EtchDisabledText:
    case SH_ScrollBar_Transient:
    case SH_FocusFrame_Mask:
        return 0;
    case SH_FocusFrame_AboveWidget:
        return 1;
    case SH_Menu_Mask:
    case SH_ToolTip_Mask:
        if (auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(returned))
            mask->region = roundedRegion(option->rect.size(), hint == SH_Menu_Mask ? Metrics::radiusPanel
                                                                                   : Metrics::radiusControl);
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

QSize VantryStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                    const QWidget* widget) const {
    const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type == CT_MenuItem && entry != nullptr)
        return menuItemSize(*entry, contents);
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_ComboBox)
        return {pickerWidth(contents.width()), Metrics::controlHeight};
    // The same height in every script.
    return type == CT_MenuBarItem ? QSize(size.width(), Metrics::menuBarItemHeight) : size;
}

QRect VantryStyle::subElementRect(SubElement element, const QStyleOption* option,
                                  const QWidget* widget) const {
    // A switch is pressed as a whole, and tools are told so.
    if (element == SE_CheckBoxClickRect && qobject_cast<const VantryToggle*>(widget) != nullptr)
        return option->rect;
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect VantryStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                  const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ComboBox && part == SC_ComboBoxEditField)
        return pickerTextPlace(option->rect);
    if (control == CC_ComboBox && part == SC_ComboBoxArrow)
        return pickerSignPlace(option->rect);
    if (control != CC_ScrollBar || bar == nullptr)
        return QProxyStyle::subControlRect(control, option, part, widget);
    // A bar without buttons: the handle has the whole length.
    const bool upright = bar->orientation == Qt::Vertical;
    const int length = upright ? option->rect.height() : option->rect.width();
    const int range = bar->maximum - bar->minimum;
    constexpr int shortest = Metrics::controlHeight;
    const int span = range + bar->pageStep;
    const int handle = span <= 0 ? length
                                 : std::clamp(static_cast<int>(qint64(length) * bar->pageStep / span),
                                              std::min(shortest, length), length);
    const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                              length - handle, bar->upsideDown);
    const auto stretch = [&](int from, int size) {
        const QRect place = upright ? QRect(0, from, option->rect.width(), size)
                                    : QRect(from, 0, size, option->rect.height());
        return visualRect(option->direction, option->rect, place.translated(option->rect.topLeft()));
    };
    switch (part) {
    case SC_ScrollBarSlider:
        return stretch(start, handle);
    case SC_ScrollBarSubPage:
        return stretch(0, start);
    case SC_ScrollBarAddPage:
        return stretch(start + handle, length - start - handle);
    case SC_ScrollBarGroove:
        return stretch(0, length);
    default:
        return {};
    }
}

}  // namespace vantry
