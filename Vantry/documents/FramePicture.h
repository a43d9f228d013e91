#pragma once

#include <string>

#include "Vantry/documents/CairoOwned.h"

class QImage;

namespace vantry {

/// An image made ready for a frame of a document: upright, no sharper than print can show, and in the form
/// that keeps the document small.
///
/// A whole JPEG that is upright, of one or three components and at or below 220 dots per inch goes in as it
/// is. Any other photograph is scaled down to 220 dots per inch and stored as JPEG at quality 85. Pictures of
/// few colours, or with transparency, stay lossless; they keep their own size unless that is beyond reason.
class FramePicture {
public:
    static constexpr double sharpest = 220;  ///< dots per inch
    static constexpr int quality = 85;

    /// An empty one for a frame of that size in points.
    FramePicture(double width, double height)
        : frameWidth(width)
        , frameHeight(height) {}

    /// Takes over the image in the bytes of a file; stays empty when there is none in it. Images of one key
    /// are kept once in a document.
    void load(std::string file, const std::string& key);
    [[nodiscard]] bool isNull() const noexcept { return surface == nullptr; }
    /// Draws it as large as fits, centred in the frame whose top left corner is the origin.
    void draw(cairo_t* context) const;

private:
    void take(const QImage& image);

    const double frameWidth;
    const double frameHeight;
    OwnedSurface surface;
};

}  // namespace vantry
