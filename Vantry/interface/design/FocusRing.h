#pragma once

#include <QFocusFrame>
#include <QMarginsF>

namespace vantry {

/// The ring around a control that has the keyboard: it lies over the window, follows the control, is cut
/// where a scrolled page is cut, takes no clicks, and assistive tools do not see it. It lives as long as
/// whoever made it wants.
class FocusRing final : public QFocusFrame {
    Q_OBJECT

public:
    /// Around the control without the margins `inset`, whose corners have that radius; `gap` is left free in
    /// between.
    FocusRing(QWidget& control, const QMarginsF& inset, qreal radius, qreal gap);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QMarginsF inset;
    const qreal radius;
    const qreal gap;
};

/// Draws a ring on the edge of `shape`, within it, for controls that stand too close for one around them.
void paintRing(QPainter& painter, const QRectF& shape, qreal radius, const QColor& colour);

}  // namespace vantry
