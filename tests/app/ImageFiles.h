#pragma once

#include <string>

#include <QBuffer>
#include <QImage>

namespace vantry::test {

/// The bytes of a small PNG in one colour; another colour gives other bytes.
inline std::string pngOf(const QColor& color, int width = 12, int height = 8) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes.toStdString();
}

}  // namespace vantry::test
