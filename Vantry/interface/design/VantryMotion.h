#pragma once

#include <QEasingCurve>

namespace vantry {

/// How things of the interface move: a curve and its length. Texts, numbers, lists, the caret, banners and
/// sheets do not move at all.
struct VantryMotion {
    QEasingCurve curve;
    int milliseconds = 0;

    /// Fills, borders and the scale of what is pressed.
    [[nodiscard]] static const VantryMotion& feedback();
    /// What is chosen: segments, the dot of a tab, rows, stars, bars.
    [[nodiscard]] static const VantryMotion& selection();
    /// What opens and closes.
    [[nodiscard]] static const VantryMotion& disclosure();
    /// A page, once each time that it is opened.
    [[nodiscard]] static const VantryMotion& arrival();
};

/// Whether things are at their end in the first frame, in the whole process. Set by VantryMotionPreference
/// alone; false without one.
[[nodiscard]] bool vantryReduceMotion() noexcept;

}  // namespace vantry
