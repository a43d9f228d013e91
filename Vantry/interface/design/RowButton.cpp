#include "Vantry/interface/design/RowButton.h"

#include <QKeyEvent>
#include <QPainter>

#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/ControlStates.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {

RowButton::RowButton(QWidget* parent)
    : PressableSurface(Shape::row, parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void RowButton::setContent(const RowContent& wanted) {
    if (content == wanted)
        return;
    content = wanted;
    setPlain(content.title);
    setHelp(*this, content.title);
    setAccessibleDescription(content.detail);
    update();
}

QSize RowButton::sizeHint() const {
    return {Metrics::sideWidth, Metrics::rowHeight};
}

QSize RowButton::minimumSizeHint() const {
    return {Metrics::controlHeight * 2, Metrics::rowHeight};
}

void RowButton::setSelected(bool selected) {
    states().setSelected(selected);
}

void RowButton::paintContent(QPainter& painter) const {
    using Role = VantryType::Role;
    const Palette& palette = Palette::of(*this);
    const QColor& ink = content.struckOut ? palette.muted : palette.ink;
    paintSign(painter, rect().adjusted(Metrics::paddingCard, 0, 0, 0), content.glyph, Metrics::iconLarge,
              ink);
    const int right = width() - Metrics::paddingCard - Metrics::iconLarge;
    paintSign(painter, rect().adjusted(right, 0, 0, 0), Glyph::arrowRight, Metrics::iconLarge, palette.muted);

    const int left = Metrics::paddingCard + Metrics::iconLarge + Metrics::gapCard;
    const int titleHeight = VantryType::lineHeight(Role::emphasis);
    const int detailHeight = VantryType::lineHeight(Role::caption);
    QRect place(left, (height() - titleHeight - Metrics::gapLines - detailHeight) / 2,
                right - Metrics::gapCard - left, titleHeight);
    QFont titleFont = VantryType::font(Role::emphasis);
    titleFont.setStrikeOut(content.struckOut);
    paintLine(painter, place, titleFont, ink, content.title);
    place = {left, place.top() + titleHeight + Metrics::gapLines, place.width(), detailHeight};
    paintLine(painter, place, VantryType::font(Role::caption), palette.muted, content.detail);
}

RowMenuButton::RowMenuButton(QWidget* parent)
    : Pressable(parent) {
    setOpensMenu();
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    states().setRing({}, Metrics::radiusControl, 0);
}

QSize RowMenuButton::sizeHint() const {
    return {Metrics::controlHeight, Metrics::controlHeight};
}

void RowMenuButton::paintEvent(QPaintEvent*) {
    const ControlLook look = VantryRowButtonStyle::look(Palette::of(*this), state());
    paintPressed(look, [&](QPainter& painter) {
        paintShape(painter, rect(), look, Metrics::radiusControl);
        constexpr qreal edge = (Metrics::controlHeight - Metrics::iconLarge) / 2.0;
        paintGlyph(painter, Glyph::more, QRectF(rect()).adjusted(edge, edge, -edge, -edge), look.text);
    });
}

QAction* RowMenu::addDestructive(const QString& title) {
    if (!isEmpty())
        addSeparator();
    auto* action = new DestructiveAction(controlText(title), this);
    addAction(action);
    return action;
}

void RowMenu::keyPressEvent(QKeyEvent* event) {
    const bool chooses =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (!chooses || !event->isAutoRepeat())
        QMenu::keyPressEvent(event);
}

}  // namespace vantry
