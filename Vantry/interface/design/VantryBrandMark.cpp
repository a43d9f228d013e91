#include "Vantry/interface/design/VantryBrandMark.h"

#include <algorithm>
#include <array>

#include <QImage>
#include <QPainter>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"

namespace vantry {
namespace {

constexpr QSize frame(Metrics::brandWidth, Metrics::brandHeight);

/// The picture for one, two and three pixels a point; only its shape counts.
using Pictures = std::array<QImage, 3>;

Pictures readPictures() {
    constexpr std::array names{":/OstrelMark.png", ":/OstrelMark@2x.png", ":/OstrelMark@3x.png"};
    Pictures pictures;
    for (std::size_t i = 0; i < names.size(); ++i) {
        QImage picture(QString::fromLatin1(names[i]));
        if (picture.isNull())
            qFatal("the brand mark %s is missing from the bundle Vantry_Vantry or cannot be read", names[i]);
        picture.setDevicePixelRatio(1);
        pictures[i] = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }
    return pictures;
}

/// The smallest picture that has at least `pixels`, else the largest.
const QImage& pictureFor(const QSize& pixels) {
    static const Pictures pictures = readPictures();
    const auto* fitting = std::find_if(pictures.begin(), pictures.end(), [&](const QImage& picture) {
        return picture.height() >= pixels.height();
    });
    return fitting == pictures.end() ? pictures.back() : *fitting;
}

QPixmap inColour(const QImage& picture, const QColor& colour) {
    QImage shape = picture;
    QPainter painter(&shape);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(shape.rect(), colour);
    painter.end();
    return QPixmap::fromImage(shape);
}

}  // namespace

VantryBrandMark::VantryBrandMark(QWidget* parent)
    : QWidget(parent) {
    pictureFor(frame);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

QSize VantryBrandMark::sizeHint() const {
    return frame;
}

void VantryBrandMark::paintEvent(QPaintEvent*) {
    QRectF place(QPointF(), QSizeF(frame).scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(QRectF(rect()).center());
    QPainter painter(this);
    const double scale = painter.deviceTransform().m11();
    const QSize pixels = (place.size() * scale).toSize();
    const QColor ink = Palette::of(*this).ink;
    if (tinted.size() != pixels || tint != ink.rgb()) {
        const QImage& picture = pictureFor(pixels);
        tinted = inColour(picture.size() == pixels
                              ? picture
                              : picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation),
                          ink);
        tint = ink.rgb();
    }
    painter.drawPixmap(place, tinted, tinted.rect());
}

}  // namespace vantry
