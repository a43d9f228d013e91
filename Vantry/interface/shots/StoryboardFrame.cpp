#include "Vantry/interface/shots/StoryboardFrame.h"

#include <algorithm>
#include <cmath>

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>

#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryType.h"
#include "Vantry/interface/shots/StrokePainting.h"

namespace vantry {
namespace {

constexpr qreal ratio = 16.0 / 9.0;
/// A picture of more pixels is not kept: of so large a frame only a part is in sight.
constexpr qreal mostPictured = 4'000'000;
/// Whether to paint `parts` of a frame anew costs less than the whole.
bool areWorthIt(const std::vector<QRectF>& parts, const QRectF& place) {
    qreal area = 0;
    for (const QRectF& part : parts) {
        const QRectF tile = inkedBy(part, place);
        area += tile.width() * tile.height();
    }
    return area < place.width() * place.height() / 2;
}

/// Adds the parts of a frame that a stroke lies on: many small ones cost less than the one around them all.
void addTrack(std::span<const Point> points, std::vector<QRectF>& parts) {
    constexpr std::size_t length = 16;
    for (std::size_t first = 0; first < points.size(); first += length) {
        // Up to the first point of the next part, so that the line between them is in one.
        const std::size_t count = std::min(length + 1, points.size() - first);
        parts.push_back(boundsOf(points.subspan(first, count)));
    }
}

}  // namespace

StoryboardFrame::StoryboardFrame(VantryStore& source)
    : store(source) {}

QRectF StoryboardFrame::within(const QRectF& space) {
    const qreal width = std::min(space.width(), space.height() * ratio);
    // On whole points, so that its edges are sharp.
    const QSizeF size(std::round(width), std::round(width / ratio));
    return {QPointF(std::floor(space.left() + (space.width() - size.width()) / 2),
                    std::floor(space.top() + (space.height() - size.height()) / 2)),
            size};
}

QPainterPath StoryboardFrame::shapeOf(const QRectF& place) {
    constexpr qreal half = Metrics::hairline / 2.0;
    QPainterPath shape;
    shape.addRoundedRect(place.adjusted(half, half, -half, -half), Metrics::radiusTrack,
                         Metrics::radiusTrack);
    return shape;
}

int StoryboardFrame::heightFor(int width) {
    return qRound(width / ratio);
}

bool StoryboardFrame::fill(const Shot& shot, const QString& hint) {
    bool differs = shot.imageKey != imageKey;
    if (differs)
        picture = {};
    imageKey = shot.imageKey;
    differs = setStrokes(shot.strokes) || differs;
    differs = (isEmpty() && hint != shownHint) || differs;
    setHint(hint);
    // The file may have come or gone meanwhile.
    return differs ||
           (!picture.isNull() && imageFor(pictured.size, pictured.scale).cacheKey() != pictured.image);
}

void StoryboardFrame::setHint(const QString& hint) {
    if (isEmpty() && hint != shownHint)
        picture = {};
    shownHint = hint;
}

bool StoryboardFrame::setStrokes(const std::vector<Stroke>& next) {
    const auto firstOther = std::mismatch(strokes.begin(), strokes.end(), next.begin(), next.end()).first;
    const auto same = static_cast<std::size_t>(firstOther - strokes.begin());
    if (same == strokes.size() && same == next.size())
        return false;
    if (strokes.empty() != next.empty())
        picture = {};  // the hint comes or goes
    for (std::size_t index = same; index < inPicture; ++index)
        addTrack(strokes[index].points, stale);
    inPicture = std::min(inPicture, same);
    strokes.resize(same);
    bounds.resize(same);
    for (std::size_t index = same; index < next.size(); ++index) {
        strokes.push_back(next[index]);
        bounds.push_back(boundsOf(next[index].points));
    }
    return true;
}

QImage StoryboardFrame::imageFor(const QSizeF& size, qreal scale) const {
    return store.image(imageKey, (size * scale).toSize());
}

void StoryboardFrame::paint(QPainter& painter, const QRectF& place, const QRectF& exposed,
                            const QWidget& widget) {
    const qreal scale = widget.devicePixelRatioF();
    const Palette& palette = Palette::of(widget);
    const QImage image = imageFor(place.size(), scale);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (place.width() * place.height() * scale * scale > mostPictured) {
        picture = {};
        paintContent(painter, place, exposed, palette, image);
    } else {
        bringPictureInLine({place.size(), scale, &palette, image.cacheKey()}, image);
        painter.drawPixmap(place.topLeft(), picture);
    }
    painter.strokePath(shapeOf(place), QPen(palette.rule, Metrics::hairline));
    painter.restore();
}

void StoryboardFrame::bringPictureInLine(const Look& look, const QImage& image) {
    const QRectF place(QPointF(), look.size);
    // A part can be painted anew only where points lie on the edges of pixels.
    const bool isWhole =
        !stale.empty() && (look.scale != std::floor(look.scale) || !areWorthIt(stale, place));
    if (picture.isNull() || look != pictured || isWhole) {
        picture = QPixmap((look.size * look.scale).toSize().expandedTo(QSize(1, 1)));
        picture.setDevicePixelRatio(look.scale);
        picture.fill(Qt::transparent);
        pictured = look;
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        paintContent(painter, place, place, *look.palette, image);
    } else if (!stale.empty()) {
        repaintStale(place, image);
    } else if (inPicture < strokes.size()) {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setClipPath(shapeOf(place));
        paintStrokes(painter, place, place, *look.palette, inPicture);
    }
    inPicture = strokes.size();
    stale.clear();
}

void StoryboardFrame::repaintStale(const QRectF& place, const QImage& image) {
    for (std::size_t index = inPicture; index < strokes.size(); ++index)
        addTrack(strokes[index].points, stale);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QRectF& part : stale) {
        const QRectF tile = inkedBy(part, place).toAlignedRect();
        painter.setClipRect(tile);
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.fillRect(tile, Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        paintContent(painter, place, tile, *pictured.palette, image);
    }
}

void StoryboardFrame::paintContent(QPainter& painter, const QRectF& place, const QRectF& exposed,
                                   const Palette& palette, const QImage& image) const {
    painter.save();
    constexpr int corner = Metrics::radiusTrack;
    if (place.adjusted(corner, corner, -corner, -corner).contains(exposed)) {
        painter.setClipRect(exposed, Qt::IntersectClip);
        painter.fillRect(exposed, palette.tint);
    } else {
        const QPainterPath shape = shapeOf(place);
        painter.fillPath(shape, palette.tint);
        painter.setClipPath(shape, Qt::IntersectClip);
    }
    if (isEmpty() && !shownHint.isEmpty())
        paintHint(painter, place, palette);
    if (!image.isNull()) {
        QRectF whole(QPointF(), QSizeF(image.size()).scaled(place.size(), Qt::KeepAspectRatio).toSize());
        whole.moveTopLeft(place.topLeft() + QPointF(std::floor((place.width() - whole.width()) / 2),
                                                    std::floor((place.height() - whole.height()) / 2)));
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(whole, image);
    }
    paintStrokes(painter, place, exposed, palette, 0);
    painter.restore();
}

void StoryboardFrame::paintStrokes(QPainter& painter, const QRectF& place, const QRectF& exposed,
                                   const Palette& palette, std::size_t first) const {
    for (std::size_t index = first; index < strokes.size(); ++index)
        if (exposed.intersects(inkedBy(bounds[index], place)))
            paintStroke(painter, strokes[index].points, place, exposed, palette.ink);
}

void StoryboardFrame::paintHint(QPainter& painter, const QRectF& place, const Palette& palette) const {
    const QFont font = VantryType::font(VantryType::Role::caption);
    const int lineHeight = VantryType::lineHeight(VantryType::Role::caption);
    // The text keeps clear of the mark that a frame may have at its corner.
    constexpr int corner = Metrics::enlargeMark + 2 * Metrics::enlargeInset;
    const int textWidth = QFontMetrics(font).horizontalAdvance(shownHint);
    const int textHeight = Metrics::iconEmpty + Metrics::gapInline + lineHeight;
    const bool hasText =
        textWidth + 2 * corner <= place.width() && textHeight + 2 * Metrics::gapField <= place.height();
    const int side = hasText ? Metrics::iconEmpty : Metrics::iconSheet;
    QRectF sign(0, 0, side, side);
    sign.moveCenter(place.center());
    if (hasText)
        sign.moveTop(place.center().y() - textHeight / 2.0);
    paintGlyph(painter, Glyph::photo, sign, palette.muted);
    if (!hasText)
        return;
    painter.setFont(font);
    painter.setPen(palette.muted);
    painter.drawText(QRectF(place.left(), sign.bottom() + Metrics::gapInline, place.width(), lineHeight),
                     Qt::AlignCenter, shownHint);
}

}  // namespace vantry
