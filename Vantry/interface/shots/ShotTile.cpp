#include "Vantry/interface/shots/ShotTile.h"

#include <algorithm>

#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/RowButton.h"
#include "Vantry/interface/design/Surface.h"
#include "Vantry/interface/pages/JoinedFacts.h"
#include "Vantry/interface/shots/NewTakeButton.h"
#include "Vantry/interface/shots/StoryboardFrame.h"
#include "Vantry/interface/shots/StoryboardPreview.h"

namespace vantry {
namespace {

using Role = VantryType::Role;

constexpr int textLines = 2;
/// From the border of a card to what is in it.
constexpr int cardEdge = Metrics::gapField;

void place(QWidget& part, int left, int middle) {
    const QSize size = part.sizeHint();
    part.setGeometry(left, middle - size.height() / 2, size.width(), size.height());
}

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* tile = qobject_cast<ShotTile*>(object);
    return tile != nullptr ? new QAccessibleWidget(tile, QAccessible::Grouping) : nullptr;
}

/// Makes known to assistive tools that a tile is a group of its own.
void installGroup() {
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    static_cast<void>(installed);
}

}  // namespace

ShotTile::ShotTile(Shape of, VantryStore& store, QWidget* parent)
    : QWidget(parent)
    , shape(of)
    , frame(new StoryboardPreview(store, this))
    , name(new Label(Role::emphasis, &Palette::ink, Label::Length::cut, this))
    , takes(new Label(Role::caption, &Palette::muted, Label::Length::cut, this))
    , stars(new Label(Role::caption, &Palette::muted, Label::Length::cut, this))
    , state(new StatusPill(StatusKind::neutral, this))
    , time(new Label(Role::caption, &Palette::muted, Label::Length::cut, this))
    , text(new Label(Role::label, &Palette::muted, Label::Length::wrapped, this))
    , edit(new Button(Button::Kind::inlined, Glyph::none, this))
    , newTake(new Button(Button::Kind::quiet, Glyph::none, this))
    , menu(new RowMenuButton(this)) {
    installGroup();
    text->setFont(VantryType::font(Role::label, QFont::Normal));
    text->setMostLines(textLines);
    state->setAttribute(Qt::WA_TransparentForMouseEvents);
    newTake->setPressedOnce();
    connect(edit, &Button::clicked, this, &ShotTile::editWanted);
    startTakeBy(*newTake, [this](AfterNewTake keyboard) { emit takeWanted(keyboard); });
    connect(menu, &RowMenuButton::clicked, this, [this] { emit menuWanted(menu); });
}

void ShotTile::setTitles(const QString& editTitle, const QString& takeTitle, const QString& menuTitle) {
    edit->setPlain(editTitle);
    newTake->setPlain(takeTitle);
    menu->setPlain(menuTitle);
}

void ShotTile::setContent(const Shot& shot, const Content& wanted, bool english) {
    frame->fill(shot, english);
    newTake->setEnabled(!wanted.cancelled);
    if (content == wanted)
        return;
    content = wanted;
    setAccessibleName(content.name);
    setAccessibleDescription(joinedFacts({content.takes, content.stars, content.state, content.time}));
    name->setPlain(content.name);
    name->setColour(content.cancelled ? &Palette::muted : &Palette::ink);
    name->setStruckOut(content.cancelled);
    takes->setPlain(content.takes);
    stars->setPlain(content.stars);
    state->setPlain(content.state);
    state->setKind(content.kind);
    time->setPlain(content.time);
    time->setVisible(!content.time.isEmpty());
    text->setPlain(content.text);
    for (Button* button : {edit, newTake})
        button->setAccessibleDescription(content.name);
    menu->setAccessibleDescription(content.name);
    arrange();
    update();
}

void ShotTile::setDropMark(DropMark wanted) {
    if (mark == wanted)
        return;
    mark = wanted;
    update();
}

void ShotTile::setLifted(bool lifted) {
    if (isLifted == lifted)
        return;
    isLifted = lifted;
    update();
}

void ShotTile::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

bool ShotTile::event(QEvent* event) {
    // A button that has another text, or a text in another font.
    if (event->type() == QEvent::LayoutRequest)
        arrange();
    return QWidget::event(event);
}

void ShotTile::arrange() {
    if (shape == Shape::row)
        arrangeRow();
    else
        arrangeCard();
}

void ShotTile::arrangeRow() {
    const bool wide = width() >= Metrics::columnsFrom;
    const int frameWidth = wide ? Metrics::rowFrameWidth : Metrics::smallFrameWidth;
    const int frameHeight = StoryboardFrame::heightFor(frameWidth);
    const int middle = height() / 2;
    const int frameLeft = 2 * Metrics::handleInset + Metrics::iconLarge;
    frame->setGeometry(frameLeft, middle - frameHeight / 2, frameWidth, frameHeight);

    // The sign of the menu, not its button, stands on the card's inner edge.
    int right = width() - Metrics::paddingCard + (Metrics::controlHeight - Metrics::iconLarge) / 2;
    right -= Metrics::controlHeight;
    place(*menu, right, middle);
    if (wide) {
        right -= Metrics::gapTrack + newTake->sizeHint().width();
        place(*newTake, right, middle);
        right -= Metrics::gapInline + edit->sizeHint().width();
        place(*edit, right, middle);
    } else {
        const int buttons =
            std::max({Metrics::rowButtonsWidth, newTake->sizeHint().width(), edit->sizeHint().width()});
        right -= buttons;
        const int both = Metrics::controlHeight + Metrics::gapTrack + Metrics::inlineHeight;
        newTake->setGeometry(right, middle - both / 2, buttons, Metrics::controlHeight);
        edit->setGeometry(right, middle + both / 2 - Metrics::inlineHeight, buttons, Metrics::inlineHeight);
    }
    const int left = frameLeft + frameWidth + Metrics::gapCard;
    arrangeTexts({left, 0, right - Metrics::gapCard - left, height()}, true);
}

int ShotTile::cardHeight(int width) {
    const int below = VantryType::lineHeight(Role::emphasis) + VantryType::lineHeight(Role::caption) +
                      textLines * VantryType::lineHeight(Role::label) + Metrics::controlHeight +
                      Metrics::gapField + 3 * Metrics::gapTrack + Metrics::gapLines;
    return 2 * cardEdge + StoryboardFrame::heightFor(width - 2 * cardEdge) + below;
}

void ShotTile::arrangeCard() {
    constexpr int edge = cardEdge;
    const int inner = width() - 2 * edge;
    const int frameHeight = StoryboardFrame::heightFor(inner);
    frame->setGeometry(edge, edge, inner, frameHeight);
    const int buttonsTop = height() - edge - Metrics::controlHeight;
    const int middle = buttonsTop + Metrics::controlHeight / 2;
    place(*edit, edge + Metrics::gapCaption, middle);
    int right = width() - edge - Metrics::controlHeight;
    place(*menu, right, middle);
    right -= Metrics::gapTrack + newTake->sizeHint().width();
    place(*newTake, right, middle);
    const int top = edge + frameHeight + Metrics::gapField;
    arrangeTexts({edge, top, inner, buttonsTop - top}, false);
}

void ShotTile::arrangeTexts(const QRect& room, bool centred) {
    const int nameHeight = VantryType::lineHeight(Role::emphasis);
    const int factsHeight = VantryType::lineHeight(Role::caption);
    const int textHeight =
        std::min(text->heightForWidth(room.width()), textLines * VantryType::lineHeight(Role::label));
    const int all = nameHeight + factsHeight + textHeight + 2 * Metrics::gapTrack;
    int top = centred ? room.top() + (room.height() - all) / 2 : room.top();
    name->setGeometry(room.left(), top, room.width(), nameHeight);
    top += nameHeight + Metrics::gapTrack;
    int left = room.left();
    const int end = room.right() + 1;
    const auto line = [&](QWidget& fact, int before) {
        left += before;
        const int width = std::clamp(fact.sizeHint().width(), 0, std::max(end - left, 0));
        const int height = fact.sizeHint().height();
        fact.setGeometry(left, top + (factsHeight - height) / 2, width, height);
        left += width;
    };
    line(*takes, 0);
    line(*stars, Metrics::gapField);
    line(*state, Metrics::gapField);
    calendarPlace = content.time.isEmpty()
                        ? QRect()
                        : QRect(left + Metrics::gapField, top, Metrics::iconStatus, factsHeight);
    if (!content.time.isEmpty())
        line(*time, Metrics::gapField + Metrics::iconStatus + Metrics::gapTrack);
    top += factsHeight + Metrics::gapTrack;
    text->setGeometry(room.left(), top, room.width(), textHeight);
}

void ShotTile::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (shape == Shape::card)
        paintSurface(painter, rect(), {palette.card, palette.rule, Metrics::hairline, Metrics::radiusCard});
    else
        paintSign(painter, rect().adjusted(Metrics::handleInset, 0, 0, 0), Glyph::handle, Metrics::iconLarge,
                  isLifted ? palette.ink : palette.muted);
    if (!calendarPlace.isNull())
        paintSign(painter, calendarPlace, Glyph::calendar, Metrics::iconStatus, palette.muted);
    if (isLifted)
        paintSurface(
            painter,
            rect().adjusted(Metrics::gapTrack, Metrics::gapTrack, -Metrics::gapTrack, -Metrics::gapTrack),
            {Qt::transparent, palette.rule, Metrics::hairline, Metrics::radiusTrack});
    if (mark != DropMark::none)
        painter.fillRect(
            QRect(0, mark == DropMark::above ? 0 : height() - Metrics::ring, width(), Metrics::ring),
            palette.link);
}

void ShotTile::mousePressEvent(QMouseEvent* event) {
    if (shape != Shape::row || event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    isPressed = true;
    pressedAt = event->position().toPoint();
}

void ShotTile::mouseMoveEvent(QMouseEvent* event) {
    if (!isPressed)
        return;
    const bool isFar =
        (event->position().toPoint() - pressedAt).manhattanLength() >= QApplication::startDragDistance();
    if (!isDragged && isFar) {
        isDragged = true;
        hadFocus = QApplication::focusWidget();
        // It stays while the list scrolls away from it, and hears Esc.
        setFocusPolicy(Qt::ClickFocus);
        setFocus(Qt::MouseFocusReason);
        setCursor(Qt::ClosedHandCursor);
    }
    if (isDragged)
        emit dragged(event->globalPosition().toPoint());
}

void ShotTile::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        endDrag(true);
}

void ShotTile::keyPressEvent(QKeyEvent* event) {
    if (isDragged && event->key() == Qt::Key_Escape)
        endDrag(false);
    else
        QWidget::keyPressEvent(event);
}

void ShotTile::endDrag(bool given) {
    isPressed = false;
    if (!isDragged)
        return;
    isDragged = false;
    clearFocus();
    if (hadFocus != nullptr)
        hadFocus->setFocus(Qt::OtherFocusReason);
    setFocusPolicy(Qt::NoFocus);
    unsetCursor();
    emit dropped(given);
}

}  // namespace vantry
