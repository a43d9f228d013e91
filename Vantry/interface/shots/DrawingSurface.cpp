#include "Vantry/interface/shots/DrawingSurface.h"

#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QTabletEvent>
#include <QTouchEvent>

#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/shots/StrokePainting.h"

namespace vantry {
namespace {

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* surface = qobject_cast<DrawingSurface*>(object);
    return surface != nullptr ? new QAccessibleWidget(surface, QAccessible::Canvas) : nullptr;
}

/// Makes known to assistive tools that it is drawn on.
void installCanvas() {
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    static_cast<void>(installed);
}

}  // namespace

DrawingSurface::DrawingSurface(VantryStore& store, QWidget* parent)
    : QWidget(parent)
    , frame(store) {
    installCanvas();
    setAttribute(Qt::WA_AcceptTouchEvents);
    setCursor(Qt::CrossCursor);
}

void DrawingSurface::present(const Shot& shot) {
    drawn = Drawing(shot.strokes);
    tool = Tool::none;
    static_cast<void>(frame.fill(shot, hint));
    showStrokes();
}

void DrawingSurface::setHint(const QString& text) {
    hint = text;
    showStrokes();
}

void DrawingSurface::endStroke() {
    end(tool);
}

void DrawingSurface::clear() {
    endStroke();
    drawn.clear();
    showStrokes();
}

void DrawingSurface::undo() {
    endStroke();
    drawn.undo();
    showStrokes();
}

void DrawingSurface::showStrokes() {
    frame.setStrokes(drawn.strokes());
    frame.setHint(drawn.current().points.empty() ? hint : QString());
    update();
}

void DrawingSurface::begin(Tool with, const QPointF& location) {
    if (tool == with)
        end(with);  // its end was never told
    if (tool != Tool::none || !QRectF(rect()).contains(location))
        return;
    tool = with;
    draw(location);
    showStrokes();
}

void DrawingSurface::draw(const QPointF& location) {
    if (!drawn.draw(location.x(), location.y(), width(), height()))
        return;
    const auto& points = drawn.current().points;
    std::vector<Point> added(points.end() - (points.size() > 1 ? 2 : 1), points.end());
    update(inkedBy(boundsOf(added), rect()).toAlignedRect());
}

void DrawingSurface::end(Tool with) {
    if (tool != with || with == Tool::none)
        return;
    tool = Tool::none;
    if (drawn.endStroke())
        showStrokes();
}

bool DrawingSurface::isRepeated(const QMouseEvent& event) const {
    return hasOwnTools && event.source() != Qt::MouseEventNotSynthesized;
}

void DrawingSurface::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && !isRepeated(*event))
        begin(Tool::mouse, event->position());
}

void DrawingSurface::mouseMoveEvent(QMouseEvent* event) {
    if (tool == Tool::mouse && event->buttons().testFlag(Qt::LeftButton) && !isRepeated(*event))
        draw(event->position());
}

void DrawingSurface::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        end(Tool::mouse);
}

void DrawingSurface::tabletEvent(QTabletEvent* event) {
    hasOwnTools = true;
    if (event->type() == QEvent::TabletPress && event->button() == Qt::LeftButton)
        begin(Tool::pen, event->position());
    else if (event->type() == QEvent::TabletMove && tool == Tool::pen)
        draw(event->position());
    else if (event->type() == QEvent::TabletRelease && event->button() == Qt::LeftButton)
        end(Tool::pen);
    // Accepted, so that Qt makes no mouse event of it.
    event->accept();
}

bool DrawingSurface::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        touchEvent(*static_cast<QTouchEvent*>(event));
        event->accept();
        return true;
    default:
        return QWidget::event(event);
    }
}

void DrawingSurface::touchEvent(QTouchEvent& event) {
    hasOwnTools = true;
    if (event.type() == QEvent::TouchCancel) {
        end(Tool::touch);
        return;
    }
    for (const QEventPoint& point : event.points()) {
        if (tool == Tool::none && point.state() == QEventPoint::Pressed) {
            finger = point.id();
            begin(Tool::touch, point.position());
        } else if (tool == Tool::touch && point.id() == finger) {
            if (point.state() == QEventPoint::Updated)
                draw(point.position());
            else if (point.state() == QEventPoint::Released)
                end(Tool::touch);
        }
    }
}

void DrawingSurface::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    endStroke();
}

void DrawingSurface::paintEvent(QPaintEvent* event) {
    const QRectF place = StoryboardFrame::within(rect());
    QPainter painter(this);
    frame.paint(painter, place, event->rect(), *this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(StoryboardFrame::shapeOf(place), Qt::IntersectClip);
    paintStroke(painter, drawn.current().points, rect(), event->rect(), Palette::of(*this).ink);
}

}  // namespace vantry
