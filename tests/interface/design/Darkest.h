#pragma once

#include <algorithm>

#include <QImage>

namespace vantry::test {

/// How light the darkest point of the picture is: in the light appearance one of its texts.
inline int darkest(const QImage& picture) {
    int least = 255;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            least = std::min(least, picture.pixelColor(x, y).lightness());
    return least;
}

}  // namespace vantry::test
