#pragma once

#include <QPixmap>
#include <QWidget>

#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/Transition.h"

namespace vantry {

/// Shows how rows of a view open and close. The view is at its end at once, with all that it answers; this
/// lies over it for the time of the motion and paints two pictures of what can be seen, so it costs the same
/// however many rows there are. Clicks go through to the view. Without a motion it does nothing.
class DisclosureLayer final : public QWidget {
    Q_OBJECT

public:
    /// Over `viewport`, which lets the ground behind it show through: it is filled with that colour.
    explicit DisclosureLayer(QWidget& viewport, Palette::Token ground);

    /// Takes the picture of how it is, before rows open or close. A motion under way ends.
    void begin();
    /// Nothing came of it.
    void cancel() { finish(); }
    /// What was there turns into what is there now.
    void fade();
    /// `height` points of rows have come below `top`: what was there makes room. A negative height: as many
    /// have gone.
    void slide(int top, int height);
    /// Is at the end; a picture that was only begun stays.
    void interrupt();
    /// How far it is: from 0 to 1, which it is while nothing moves.
    [[nodiscard]] double progress() const { return motion.value(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void run(const QRect& place);
    void finish();

    const Palette::Token ground;
    QPixmap before;
    QPixmap after;
    int height = 0;  ///< of the rows that come or go; 0 while all fades
    Transition motion;
};

}  // namespace vantry
