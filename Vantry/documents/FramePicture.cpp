#include "Vantry/documents/FramePicture.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <unordered_set>
#include <utility>

#include <QBuffer>
#include <QImage>
#include <QImageReader>

#include "Vantry/app/ImageReading.h"
#include "Vantry/documents/JpegHead.h"

namespace vantry {
namespace {

constexpr std::size_t fewColours = 256;
/// Lossless pictures up to so many pixels keep their size.
constexpr qint64 reasonablePixels = 16'000'000;

/// The size of the image in a file as it is stored, and whether it is stored upright.
struct Stored {
    QSize size;
    bool isUpright = true;

    explicit Stored(const std::string& file) {
        QByteArray bytes = QByteArray::fromRawData(file.data(), static_cast<qsizetype>(file.size()));
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        QImageReader reader(&buffer);
        reader.setDecideFormatFromContent(true);
        size = reader.size();
        isUpright = reader.transformation() == QImageIOHandler::TransformationNone;
    }
    [[nodiscard]] bool isReasonable() const {
        return size.isValid() && qint64{size.width()} * size.height() <= reasonablePixels;
    }
};

/// Whether a JPEG file ends with its end marker: neither cut off nor with something else behind.
bool isWhole(const std::string& file) {
    return file.ends_with("\xFF\xD9");
}

/// Both for pixels of 32 bits.
bool isOpaque(const QImage& image) {
    if (!image.hasAlphaChannel())
        return true;
    for (int line = 0; line < image.height(); ++line) {
        const auto* pixels = reinterpret_cast<const QRgb*>(image.constScanLine(line));
        if (!std::all_of(pixels, pixels + image.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; }))
            return false;
    }
    return true;
}

bool hasFewColours(const QImage& image) {
    std::unordered_set<QRgb> colours;
    for (int line = 0; line < image.height(); ++line) {
        const auto* pixels = reinterpret_cast<const QRgb*>(image.constScanLine(line));
        for (int i = 0; i < image.width(); ++i)
            if ((i == 0 || pixels[i] != pixels[i - 1]) && colours.insert(pixels[i]).second &&
                colours.size() > fewColours)
                return false;
    }
    return true;
}

QImage inPixels(const QImage& image) {
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                         : QImage::Format_RGB32);
}

QImage within(const QImage& image, const QSize& bound) {
    if (image.width() <= bound.width() && image.height() <= bound.height())
        return image;
    const QSize size = image.size().scaled(bound, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

std::string asJpeg(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    // A grey image of 32 bits would be stored in three components.
    const QImage stored = image.isGrayscale() ? image.convertToFormat(QImage::Format_Grayscale8) : image;
    return stored.save(&buffer, "JPEG", FramePicture::quality) ? bytes.toStdString() : std::string();
}

}  // namespace

void FramePicture::load(std::string file, const std::string& key) {
    surface.reset();
    // The frame at the greatest sharpness; an image that fits into it is sharp enough as it is.
    const QSize bound(static_cast<int>(std::floor(frameWidth * sharpest / 72)),
                      static_cast<int>(std::floor(frameHeight * sharpest / 72)));
    const auto head = JpegHead::read(file);
    const Stored stored(file);
    QImage image = inPixels(readImage(file, head || !stored.isReasonable() ? bound : QSize()));
    if (image.isNull())
        return;
    const bool asItIs = head && (head->components == 1 || head->components == 3) && stored.isUpright &&
                        head->width == image.width() && head->height == image.height() && isWhole(file);
    const bool lossless = !asItIs && (!isOpaque(image) || (!head && hasFewColours(image)));
    if (lossless) {
        take(hasFewColours(image) ? image : within(image, bound));
    } else {
        image = within(image.convertToFormat(QImage::Format_RGB32), bound);
        take(image);
        attachBytes(surface.get(), CAIRO_MIME_TYPE_JPEG, asItIs ? std::move(file) : asJpeg(image));
    }
    attachBytes(surface.get(), CAIRO_MIME_TYPE_UNIQUE_ID, key);
}

/// Makes the surface of the image's pixels.
void FramePicture::take(const QImage& image) {
    const bool alpha = image.hasAlphaChannel();
    OwnedSurface made(cairo_image_surface_create(alpha ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24,
                                                 image.width(), image.height()));
    if (cairo_surface_status(made.get()) != CAIRO_STATUS_SUCCESS)
        return;
    unsigned char* const data = cairo_image_surface_get_data(made.get());
    const auto stride = static_cast<std::ptrdiff_t>(cairo_image_surface_get_stride(made.get()));
    for (int line = 0; line < image.height(); ++line)
        std::memcpy(data + line * stride, image.constScanLine(line),
                    static_cast<std::size_t>(image.width()) * sizeof(QRgb));
    cairo_surface_mark_dirty(made.get());
    surface = std::move(made);
}

void FramePicture::draw(cairo_t* context) const {
    if (surface == nullptr)
        return;
    const double width = cairo_image_surface_get_width(surface.get());
    const double height = cairo_image_surface_get_height(surface.get());
    const double scale = std::min(frameWidth / width, frameHeight / height);
    cairo_save(context);
    cairo_translate(context, (frameWidth - width * scale) / 2, (frameHeight - height * scale) / 2);
    cairo_scale(context, scale, scale);
    cairo_set_source_surface(context, surface.get(), 0, 0);
    cairo_rectangle(context, 0, 0, width, height);
    cairo_fill(context);
    cairo_restore(context);
}

}  // namespace vantry
