#pragma once

#include <optional>

#include <QSize>

class QWidget;

namespace vantry {

/// The size of a sheet: what it asks for, but never beyond the window that presents it.
struct VantrySheetFrame {
    /// The smaller, width and height each for itself, of `requested` and what the window leaves, without a
    /// window the screen: 20 points on every side stay free, and at least 1 point remains. With neither, a
    /// sheet is at most 960 by 640.
    [[nodiscard]] static QSize size(QSize requested, std::optional<QSize> window,
                                    std::optional<QSize> screen);
    /// The same for a sheet over `presenter`, or over the sheets on it; null: there is no window.
    [[nodiscard]] static QSize size(QSize requested, const QWidget* presenter);
};

}  // namespace vantry
