#pragma once

#include <QFocusFrame>

#include "Vantry/interface/design/Transition.h"

namespace vantry {

/// Lets a page appear: from nearly there to there. A sheet of the canvas' colour lies over the page and
/// fades, which looks the same and leaves the page alone: its focus, caret and texts know nothing of it. The
/// sheet takes no clicks, assistive tools do not see it, and afterwards it is gone.
class VantryPageArrival final : public QFocusFrame {
    Q_OBJECT

public:
    /// Begins with the page's next frame. With reduced motion, and for a page that is not on screen, the page
    /// is there at once.
    static void begin(QWidget& page);

    /// How much of the page shows through, at first and at last.
    static constexpr double from = 0.96;
    static constexpr double to = 1;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    explicit VantryPageArrival(QWidget& page);

    Transition opacity;
};

}  // namespace vantry
