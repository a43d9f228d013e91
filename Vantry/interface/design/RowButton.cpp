#include "Vantry/interface/design/RowButton.h"

#include <QKeyEvent>
#include <QPainter>

#include "Vantry/interface/design/ControlStates.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/VantryMotion.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {

RowButton::RowButton(QWidget* parent)
    : Pressable(VantryMotion::selection(), parent) {
    setPressedOnce();
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

void RowButton::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    const ControlLook look = VantryRowButtonStyle::look(palette, state());
    const QRectF surface = QRectF(rect()).adjusted(Metrics::gapCaption, Metrics::gapCaption,
                                                   -Metrics::gapCaption, -Metrics::gapCaption);
    QPainter painter(this);
    // A row keeps its size while it is pressed.
    paintAsOne(painter, rect(), look.opacity, 1, [&](QPainter& inside) {
        VantryRowButtonStyle::paint(inside, surface, palette, state());
        paintContent(inside);
    });
    painter.setRenderHint(QPainter::Antialiasing);
    if (showsFocus())
        paintFocus(painter, surface, Metrics::radiusControl);
}

void RowButton::paintContent(QPainter& painter) const {
    const Palette& palette = Palette::of(*this);
    const auto square = [this](qreal left) {
        return QRectF(left, (height() - Metrics::iconLarge) / 2.0, Metrics::iconLarge, Metrics::iconLarge);
    };
    paintGlyph(painter, content.glyph, square(Metrics::paddingCard),
               content.struckOut ? palette.muted : palette.ink);
    const int right = width() - Metrics::paddingCard - Metrics::iconLarge;
    paintGlyph(painter, Glyph::arrowRight, square(right), palette.muted);

    const int left = Metrics::paddingCard + Metrics::iconLarge + Metrics::gapCard;
    const int textWidth = right - Metrics::gapCard - left;
    const int titleHeight = VantryType::lineHeight(VantryType::Role::emphasis);
    const int detailHeight = VantryType::lineHeight(VantryType::Role::caption);
    const int top = (height() - titleHeight - Metrics::gapLines - detailHeight) / 2;
    const auto line = [&](const QString& text, int y, int lineHeight) {
        painter.drawText(QRect(left, y, textWidth, lineHeight), Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(singleLine(text), Qt::ElideRight, textWidth));
    };
    QFont titleFont = VantryType::font(VantryType::Role::emphasis);
    titleFont.setStrikeOut(content.struckOut);
    painter.setFont(titleFont);
    painter.setPen(content.struckOut ? palette.muted : palette.ink);
    line(content.title, top, titleHeight);
    painter.setFont(VantryType::font(VantryType::Role::caption));
    painter.setPen(palette.muted);
    line(content.detail, top + titleHeight + Metrics::gapLines, detailHeight);
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
