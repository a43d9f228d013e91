#pragma once

#include <QPointer>
#include <QWidget>

#include "Vantry/interface/design/StatusPill.h"
#include "Vantry/interface/shots/NewTake.h"

namespace vantry {

class Button;
class Label;
class RowMenuButton;
class StoryboardPreview;
class VantryStore;
struct Shot;

/// One shot of an act: its frame, what it is called, how far it is, and what can be done with it. In a row it
/// can be dragged by everything that is no control.
class ShotTile final : public QWidget {
    Q_OBJECT

public:
    /// A row of a list card, or a card of its own in a grid.
    enum class Shape { row, card };
    /// Where a dragged shot would go.
    enum class DropMark { none, above, below };

    struct Content {
        QString name;
        QString takes;
        QString stars;
        QString state;
        StatusKind kind = StatusKind::neutral;
        QString time;  ///< empty without one
        QString text;
        bool isHint = false;  ///< `text` only says what could be there
        bool cancelled = false;

        friend bool operator==(const Content&, const Content&) = default;
    };

    ShotTile(Shape shape, VantryStore& store, QWidget* parent);

    /// What a card of that width needs: the whole frame, and below it texts and buttons.
    [[nodiscard]] static int cardHeight(int width);

    void setContent(const Shot& shot, const Content& content, bool english);
    void setTitles(const QString& edit, const QString& newTake, const QString& menu);
    void setDropMark(DropMark mark);
    /// Shows that it is the one that is dragged.
    void setLifted(bool lifted);

signals:
    void editWanted();
    void takeWanted(vantry::AfterNewTake keyboard);
    void menuWanted(QWidget* opener);
    /// It is being dragged; the pointer is at `position` of the screen.
    void dragged(const QPoint& position);
    /// It was let go, or the drag given up.
    void dropped(bool given);

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();
    void arrangeRow();
    void arrangeCard();
    /// Puts the texts into `place`, at its top or in the middle of its height, and answers what they take.
    void arrangeTexts(const QRect& place, bool centred);
    void endDrag(bool given);

    const Shape shape;
    Content content;
    StoryboardPreview* frame;
    Label* name;
    Label* takes;
    Label* stars;
    StatusPill* state;
    Label* time;
    Label* text;
    Button* edit;
    Button* newTake;
    RowMenuButton* menu;
    QRect calendarPlace;
    QPoint pressedAt;
    bool isPressed = false;
    bool isDragged = false;
    QPointer<QWidget> hadFocus;  ///< before the drag
    bool isLifted = false;
    DropMark mark = DropMark::none;
};

}  // namespace vantry
