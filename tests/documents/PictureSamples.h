#pragma once

#include <string>

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

namespace vantry::test {

/// A picture of that size with far more than 256 colours, none of which is grey: dark at the top left, red
/// growing to the right and blue downwards.
inline QImage photograph(int width, int height, QImage::Format format = QImage::Format_RGB32) {
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(40 + 200 * x / width, (x * 7 + y * 3) % 64, 40 + 200 * y / height));
    return image.convertToFormat(format);
}

/// A picture in four colours, one for each quarter: red, green, blue and yellow, line by line.
inline QImage quarters(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y,
                           y < height / 2 ? (x < width / 2 ? qRgb(255, 0, 0) : qRgb(0, 255, 0))
                                          : (x < width / 2 ? qRgb(0, 0, 255) : qRgb(255, 255, 0)));
    return image;
}

/// The file of an image.
inline std::string fileOf(const QImage& image, const char* format, int quality = -1) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    return writer.write(image) ? bytes.toStdString() : std::string();
}

/// The JPEG with a note of Exif that says how it is turned: 1 is upright, 2 to 8 are the others.
inline std::string turned(const std::string& jpeg, char orientation) {
    using namespace std::string_literals;
    const std::string note =
        "Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0"s + orientation + "\0\0\0\0\0\0\0"s;
    const std::string length{'\0', static_cast<char>(note.size() + 2)};
    return jpeg.substr(0, 2) + "\xFF\xE1" + length + note + jpeg.substr(2);
}

/// A baseline JPEG, made by hand, of that many components of that many bits, all in the middle of their
/// range. Four components are marked as CMYK.
inline std::string plainJpeg(int width, int height, int components, int bits = 8) {
    const auto word = [](int value) {
        return std::string{static_cast<char>(value >> 8), static_cast<char>(value)};
    };
    const auto segment = [&](char marker, const std::string& content) {
        return std::string{'\xFF', marker} + word(static_cast<int>(content.size()) + 2) + content;
    };
    using namespace std::string_literals;
    std::string file = "\xFF\xD8";
    if (components == 4)
        file += segment('\xEE', "Adobe\0\x64\0\0\0\0\0"s);
    file += segment('\xDB', "\0"s + std::string(64, '\1'));
    std::string frame = char(bits) + word(height) + word(width) + char(components);
    std::string scan(1, static_cast<char>(components));
    for (int i = 1; i <= components; ++i) {
        frame += std::string{static_cast<char>(i), '\x11', '\0'};
        scan += std::string{static_cast<char>(i), '\0'};
    }
    file += segment(bits == 8 ? '\xC0' : '\xC1', frame);
    // One code of one bit, 0, in both tables: no difference, end of block.
    for (const char table : {'\0', '\x10'})
        file += segment('\xC4', std::string(1, table) + "\1"s + std::string(15, '\0') + "\0"s);
    file += segment('\xDA', scan + "\0\x3F\0"s);
    const int blocks = ((width + 7) / 8) * ((height + 7) / 8);
    return file + std::string(static_cast<std::size_t>((blocks * components * 2 + 7) / 8), '\0') + "\xFF\xD9";
}

}  // namespace vantry::test
