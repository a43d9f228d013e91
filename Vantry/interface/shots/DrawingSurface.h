#pragma once

#include <QWidget>

#include "Vantry/interface/shots/Drawing.h"
#include "Vantry/interface/shots/StoryboardFrame.h"

class QTouchEvent;

namespace vantry {

/// The frame that is drawn on, by mouse, finger or pen: the image of the shot, and over it a drawing of its
/// own in place of the shot's. Each event of a drag gives one point, the press included, the release not; the
/// drag goes on outside, where its points lie on the edge.
///
/// One thing draws at a time: a second finger, or the mouse events that the system makes of fingers and pens,
/// draw nothing. A drag that is broken off by the system ends where it was.
class DrawingSurface final : public QWidget {
    Q_OBJECT

public:
    explicit DrawingSurface(VantryStore& store, QWidget* parent = nullptr);

    /// Starts with the image and the drawing of that shot, and nothing to undo.
    void present(const Shot& shot);
    /// What stands on it until something is drawn, where there is no image.
    void setHint(const QString& hint);
    [[nodiscard]] const Drawing& drawing() const noexcept { return drawn; }
    /// Ends the stroke under way as if the pen had been lifted.
    void endStroke();
    void clear();
    void undo();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void tabletEvent(QTabletEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    enum class Tool { none, mouse, touch, pen };

    void touchEvent(QTouchEvent& event);
    /// Whether a mouse event repeats what a finger or a pen has told already.
    [[nodiscard]] bool isRepeated(const QMouseEvent& event) const;
    /// A stroke begins, if it does so on the frame and no other is under way.
    void begin(Tool with, const QPointF& location);
    void draw(const QPointF& location);
    void end(Tool with);
    /// The strokes are others now, or one begins.
    void showStrokes();

    StoryboardFrame frame;
    Drawing drawn;
    QString hint;
    Tool tool = Tool::none;
    int finger = 0;            ///< the one that draws
    bool hasOwnTools = false;  ///< fingers or pens tell of themselves here
};

}  // namespace vantry
