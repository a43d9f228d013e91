#include "Vantry/interface/design/VantrySheetFrame.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace vantry {

QSize VantrySheetFrame::size(QSize requested, std::optional<QSize> window, std::optional<QSize> screen) {
    constexpr QSize free(40, 40);
    constexpr QSize withoutAny(960, 640);
    const std::optional<QSize> around = window ? window : screen;
    return requested.boundedTo(around ? (*around - free).expandedTo(QSize(1, 1)) : withoutAny);
}

QSize VantrySheetFrame::size(QSize requested, const QWidget* presenter) {
    const QWidget* window = presenter;
    while (window != nullptr && window->parentWidget() != nullptr)
        window = window->parentWidget();
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return size(requested, window != nullptr ? std::optional(window->size()) : std::nullopt,
                screen != nullptr ? std::optional(screen->availableSize()) : std::nullopt);
}

}  // namespace vantry
