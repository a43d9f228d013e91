#include "Vantry/interface/shots/StoryboardImage.h"

#include <algorithm>

#include <QAccessibleWidget>
#include <QPainter>
#include <QPainterPath>

#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {
namespace {

constexpr qreal ratio = 16.0 / 9.0;

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* picture = qobject_cast<StoryboardImage*>(object);
    return picture != nullptr ? new QAccessibleWidget(picture, QAccessible::Graphic) : nullptr;
}

/// Makes known to assistive tools that the frame is a picture.
void installPicture() {
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    static_cast<void>(installed);
}

}  // namespace

StoryboardImage::StoryboardImage(VantryStore& source, QWidget* parent)
    : QWidget(parent)
    , store(source) {
    installPicture();
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void StoryboardImage::fill(const Shot& shot, const QString& name, const QString& hint) {
    setAccessibleName(name);
    if (shot.imageKey != imageKey || shot.strokes != strokes || hint != shownHint) {
        imageKey = shot.imageKey;
        strokes = shot.strokes;
        shownHint = hint;
        update();
    }
    setAccessibleDescription(isEmpty() ? hint : QString());
}

QSize StoryboardImage::sizeHint() const {
    return {Metrics::sideWidth, heightForWidth(Metrics::sideWidth)};
}

int StoryboardImage::heightForWidth(int width) const {
    return qRound(width / ratio);
}

QRectF StoryboardImage::frame() const {
    const qreal frameWidth = std::min<qreal>(width(), height() * ratio);
    QRectF place(0, 0, frameWidth, frameWidth / ratio);
    place.moveCenter(QRectF(rect()).center());
    return place;
}

void StoryboardImage::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    const QRectF place = frame();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr qreal half = Metrics::hairline / 2.0;
    QPainterPath outline;
    outline.addRoundedRect(place.adjusted(half, half, -half, -half), Metrics::radiusTrack,
                           Metrics::radiusTrack);
    painter.fillPath(outline, palette.tint);
    painter.save();
    painter.setClipPath(outline);
    if (isEmpty())
        paintHint(painter, place);
    paintImage(painter, place);
    paintStrokes(painter, place);
    painter.restore();
    painter.strokePath(outline, QPen(palette.rule, Metrics::hairline));
}

void StoryboardImage::paintHint(QPainter& painter, const QRectF& place) const {
    const QColor muted = Palette::of(*this).muted;
    const int lineHeight = VantryType::lineHeight(VantryType::Role::caption);
    QRectF sign(0, 0, Metrics::iconEmpty, Metrics::iconEmpty);
    sign.moveCenter(place.center() - QPointF(0, (Metrics::gapInline + lineHeight) / 2.0));
    paintGlyph(painter, Glyph::photo, sign, muted);
    painter.setFont(VantryType::font(VantryType::Role::caption));
    painter.setPen(muted);
    painter.drawText(QRectF(place.left(), sign.bottom() + Metrics::gapInline, place.width(), lineHeight),
                     Qt::AlignCenter, shownHint);
}

void StoryboardImage::paintImage(QPainter& painter, const QRectF& place) const {
    const QImage image = store.image(imageKey, (place.size() * devicePixelRatioF()).toSize());
    if (image.isNull())
        return;
    QRectF whole(QPointF(), QSizeF(image.size()).scaled(place.size(), Qt::KeepAspectRatio));
    whole.moveCenter(place.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(whole, image);
}

void StoryboardImage::paintStrokes(QPainter& painter, const QRectF& place) const {
    const QColor ink = Palette::of(*this).ink;
    for (const Stroke& stroke : strokes) {
        QPolygonF line;
        for (const Point& point : stroke.points)
            line << place.topLeft() + QPointF(point.x * place.width(), point.y * place.height());
        const bool dot = line.size() == 1;
        painter.setPen(dot ? QPen(Qt::NoPen) : QPen(ink, Metrics::stroke));
        painter.setBrush(dot ? QBrush(ink) : QBrush(Qt::NoBrush));
        if (dot)
            painter.drawEllipse(line.front(), Metrics::stroke / 2.0, Metrics::stroke / 2.0);
        else
            painter.drawPolyline(line);
    }
}

}  // namespace vantry
