#pragma once

#include <string_view>

#include <QImage>
#include <QSize>

namespace vantry {

/// An image of more pixels is taken for none: a small file can pretend to hold any number.
inline constexpr qint64 mostImagePixels = 400'000'000;

/// The image in the bytes of a PNG, JPEG, TIFF, HEIC, GIF, BMP or WebP file, upright, no larger than `bound`
/// and not enlarged; in its own size when `bound` is empty. A null image when the bytes are none of these,
/// are cut off or damaged so that nothing can be shown, or hold more than `mostImagePixels`. The name of the
/// file plays no part. `bytes` are not kept.
[[nodiscard]] QImage readImage(std::string_view bytes, const QSize& bound = {});

/// Whether `readImage` makes an image of the bytes. Looks at all of them.
[[nodiscard]] bool isImage(std::string_view bytes);

}  // namespace vantry
