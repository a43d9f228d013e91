#include "Vantry/app/ImageReading.h"

#include <algorithm>
#include <array>
#include <limits>
#include <memory>

#include <QBuffer>
#include <QImageReader>

#include <libheif/heif.h>

#include "Vantry/app/Owned.h"

namespace vantry {
namespace {

/// In megabytes: the largest image of eight bytes a pixel. The pixels are counted before.
constexpr int allocationLimit = 3300;
/// Enough to make the whole file be looked at.
constexpr int probeSize = 32;

/// The formats by Qt's names. A list, because Qt takes drawings of any size for images, too.
constexpr std::array<const char*, 6> formats{"png", "jpeg", "tiff", "gif", "bmp", "webp"};

bool isTooLarge(qint64 width, qint64 height) {
    return width <= 0 || height <= 0 || width > mostImagePixels / height;
}

/// The size inside `bound`, with the same proportions, never larger than `size`.
QSize fitted(const QSize& size, const QSize& bound) {
    if (bound.isEmpty() || (size.width() <= bound.width() && size.height() <= bound.height()))
        return size;
    return size.scaled(bound, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

QImage scaledInto(const QImage& image, const QSize& bound) {
    const QSize size = fitted(image.size(), bound);
    if (image.isNull() || size == image.size())
        return image;
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage readByQt(std::string_view bytes, const QSize& bound) {
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    if (!buffer.open(QIODevice::ReadOnly))
        return {};
    QImageReader reader(&buffer);
    const QByteArray format = reader.format();
    if (std::find(formats.begin(), formats.end(), format) == formats.end())
        return {};
    const QSize size = reader.size();
    if (isTooLarge(size.width(), size.height()))
        return {};
    QImageReader::setAllocationLimit(allocationLimit);
    reader.setAutoTransform(true);
    // The reader scales before it turns the image upright.
    const bool turned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    const QSize scaled = fitted(size, turned ? bound.transposed() : bound);
    if (scaled != size)
        reader.setScaledSize(scaled);
    // A file may hold another size than its head announces.
    return scaledInto(reader.read(), bound);
}

using HeifContext = Owned<heif_context, heif_context_free>;
using HeifHandle = Owned<heif_image_handle, heif_image_handle_release>;
using HeifImage = Owned<heif_image, heif_image_release>;

bool isHeif(std::string_view bytes) {
    const auto* start = reinterpret_cast<const std::uint8_t*>(bytes.data());
    const auto length = static_cast<int>(std::min<std::size_t>(bytes.size(), 64));
    return length >= 12 && heif_check_filetype(start, length) != heif_filetype_no;
}

bool succeeded(const heif_error& error) {
    return error.code == heif_error_Ok;
}

QImage readByHeif(std::string_view bytes, const QSize& bound) {
    const HeifContext context(heif_context_alloc());
    // Width and height are each held against this; the pixels are counted below.
    heif_context_set_maximum_image_size_limit(context.get(), std::numeric_limits<int>::max());
    heif_image_handle* handlePlace = nullptr;
    if (!succeeded(
            heif_context_read_from_memory_without_copy(context.get(), bytes.data(), bytes.size(), nullptr)) ||
        !succeeded(heif_context_get_primary_image_handle(context.get(), &handlePlace)))
        return {};
    const HeifHandle handle(handlePlace);
    if (isTooLarge(heif_image_handle_get_width(handle.get()), heif_image_handle_get_height(handle.get())))
        return {};
    const bool alpha = heif_image_handle_has_alpha_channel(handle.get()) != 0;
    heif_image* imagePlace = nullptr;
    if (!succeeded(heif_decode_image(handle.get(), &imagePlace, heif_colorspace_RGB,
                                     alpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB,
                                     nullptr)))
        return {};
    const HeifImage image(imagePlace);
    int stride = 0;
    const std::uint8_t* plane = heif_image_get_plane_readonly(image.get(), heif_channel_interleaved, &stride);
    if (plane == nullptr)
        return {};
    const QImage view(plane, heif_image_get_width(image.get(), heif_channel_interleaved),
                      heif_image_get_height(image.get(), heif_channel_interleaved), stride,
                      alpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    // The copy outlives what libheif holds.
    return scaledInto(view, bound).copy();
}

}  // namespace

QImage readImage(std::string_view bytes, const QSize& bound) {
    return isHeif(bytes) ? readByHeif(bytes, bound) : readByQt(bytes, bound);
}

bool isImage(std::string_view bytes) {
    return !readImage(bytes, QSize(probeSize, probeSize)).isNull();
}

}  // namespace vantry
