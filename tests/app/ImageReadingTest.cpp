#include "Vantry/app/ImageReading.h"

#include <string>

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImageWriter>
#include <QtEndian>

#include "tests/support/Files.h"

namespace vantry::test {
namespace {

/// Left half red, right half blue, with a green corner at the top left.
QImage picture(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    for (int y = 0; y < height; ++y)
        for (int x = width / 2; x < width; ++x)
            image.setPixelColor(x, y, Qt::blue);
    for (int y = 0; y < height / 4; ++y)
        for (int x = 0; x < width / 4; ++x)
            image.setPixelColor(x, y, Qt::green);
    return image;
}

std::string written(const QImage& image, const char* format,
                    QImageIOHandler::Transformations turned = QImageIOHandler::TransformationNone) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(95);
    if (turned != QImageIOHandler::TransformationNone)
        writer.setTransformation(turned);
    EXPECT_TRUE(writer.write(image)) << format << ": " << writer.errorString().toStdString();
    return bytes.toStdString();
}

std::string heic() {
    return support::contentOf(std::filesystem::path(TEST_IMAGES) / "gradient.heic");
}

bool isGreenish(const QColor& color) {
    return color.green() > 150 && color.red() < 100 && color.blue() < 100;
}

class ImageFormats : public testing::TestWithParam<const char*> {};

TEST_P(ImageFormats, AreReadFromTheirBytes) {
    const std::string bytes = written(picture(80, 60), GetParam());
    EXPECT_TRUE(isImage(bytes));
    const QImage image = readImage(bytes);
    ASSERT_EQ(image.size(), QSize(80, 60));
    EXPECT_TRUE(isGreenish(image.pixelColor(5, 5)));
    EXPECT_GT(image.pixelColor(70, 50).blue(), 150);
    EXPECT_GT(image.pixelColor(10, 50).red(), 150);
}

TEST_P(ImageFormats, AreScaledIntoABoundAndNeverEnlarged) {
    const std::string bytes = written(picture(400, 300), GetParam());
    EXPECT_EQ(readImage(bytes, QSize(100, 100)).size(), QSize(100, 75));
    EXPECT_EQ(readImage(bytes, QSize(1000, 30)).size(), QSize(40, 30));
    EXPECT_EQ(readImage(bytes, QSize(4000, 4000)).size(), QSize(400, 300));
}

TEST_P(ImageFormats, AreNoneWhenOnlyTheirBeginningIsThere) {
    const std::string bytes = written(picture(80, 60), GetParam());
    for (const std::size_t length : {0U, 1U, 4U, 12U, 24U})
        EXPECT_FALSE(isImage(bytes.substr(0, length))) << length;
}

INSTANTIATE_TEST_SUITE_P(OfQt, ImageFormats, testing::Values("png", "jpeg", "tiff", "bmp", "webp"));

TEST(ImageReading, ReadsHeic) {
    const std::string bytes = heic();
    EXPECT_TRUE(isImage(bytes));
    const QImage image = readImage(bytes);
    ASSERT_EQ(image.size(), QSize(64, 48));
    // Red grows to the right, green downwards, blue to the left.
    EXPECT_GT(image.pixelColor(60, 5).red(), 180);
    EXPECT_LT(image.pixelColor(60, 5).green(), 80);
    EXPECT_GT(image.pixelColor(3, 44).blue(), 180);
    EXPECT_GT(image.pixelColor(3, 44).green(), 150);
    EXPECT_EQ(readImage(bytes, QSize(32, 32)).size(), QSize(32, 24));
}

TEST(ImageReading, TakesNoPartOfAHeicForAnImage) {
    const std::string bytes = heic();
    for (std::size_t length = 0; length < bytes.size() * 9 / 10; length += 7)
        EXPECT_FALSE(isImage(bytes.substr(0, length))) << length;
}

TEST(ImageReading, TurnsAPhotographUpright) {
    // The file says that it is to be turned by a quarter; the green corner then stands at the top right.
    const std::string bytes = written(picture(80, 60), "jpeg", QImageIOHandler::TransformationRotate90);
    const QImage image = readImage(bytes);
    ASSERT_EQ(image.size(), QSize(60, 80));
    EXPECT_TRUE(isGreenish(image.pixelColor(55, 5)));
    const QImage small = readImage(bytes, QSize(30, 30));
    EXPECT_EQ(small.height(), 30);
    EXPECT_NEAR(small.width(), 23, 1);
}

TEST(ImageReading, TakesAPanoramaForAnImage) {
    const std::string bytes = written(picture(20000, 800), "png");
    EXPECT_TRUE(isImage(bytes));
    EXPECT_EQ(readImage(bytes, QSize(1000, 1000)).size(), QSize(1000, 40));
}

/// A PNG whose header speaks of another size than what follows holds.
std::string pretendingPng(quint32 width, quint32 height) {
    std::string bytes = written(picture(8, 8), "png");
    qToBigEndian(width, bytes.data() + 16);
    qToBigEndian(height, bytes.data() + 20);
    const auto crc = [&](std::size_t from, std::size_t count) {
        quint32 value = 0xFFFFFFFFU;
        for (std::size_t i = from; i < from + count; ++i) {
            value ^= static_cast<unsigned char>(bytes[i]);
            for (int bit = 0; bit < 8; ++bit)
                value = (value >> 1) ^ ((value & 1U) != 0 ? 0xEDB88320U : 0U);
        }
        return value ^ 0xFFFFFFFFU;
    };
    qToBigEndian(crc(12, 17), bytes.data() + 29);
    return bytes;
}

TEST(ImageReading, StaysWithinTheBoundWhenAFileHoldsAnotherSizeThanItAnnounces) {
    std::string bytes = support::contentOf(std::filesystem::path(TEST_IMAGES) / "small.gif");
    // The screen that the head of a GIF announces: 8 by 15110.
    bytes[8] = '\x06';
    bytes[9] = '\x3B';
    const QImage image = readImage(bytes, QSize(48, 40));
    EXPECT_FALSE(image.isNull());
    EXPECT_LE(image.width(), 48);
    EXPECT_LE(image.height(), 40);
}

TEST(ImageReading, TakesAPictureOfTooManyPixelsForNone) {
    EXPECT_FALSE(isImage(pretendingPng(20001, 20000)));
    EXPECT_FALSE(isImage(pretendingPng(0x7FFFFFFF, 0x7FFFFFFF)));
    EXPECT_TRUE(readImage(pretendingPng(400'000'001, 1)).isNull());
    EXPECT_TRUE(isImage(pretendingPng(8, 8)));
}

TEST(ImageReading, TakesNoTextAndNoDrawingForAnImage) {
    EXPECT_FALSE(isImage(""));
    EXPECT_FALSE(isImage("not a picture, whatever the name of the file says"));
    EXPECT_FALSE(isImage(R"(<svg xmlns="http://www.w3.org/2000/svg" width="10" height="10"></svg>)"));
    EXPECT_FALSE(isImage("%PDF-1.4\n"));
    EXPECT_FALSE(isImage(std::string(1000, '\0')));
    EXPECT_FALSE(isImage("P6\n2 2\n255\n123456789012"));
}

}  // namespace
}  // namespace vantry::test
