#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/documents/PictureSamples.h"
#include "tests/documents/PrintedFile.h"
#include "tests/support/Files.h"

namespace vantry::test {
namespace {

// The columns of `pdfimages -list`.
enum Column : std::uint8_t {
    type = 2,
    width = 3,
    height = 4,
    inColour = 5,
    bits = 7,
    encoding = 8,
    object = 10,
    sharpness = 12
};

/// A document with these files as the images of one shot each, and a word behind them.
PrintedFile documentWith(const std::vector<std::string>& files) {
    return PrintedFile(
        [&](PDFWriter& writer) {
            for (std::size_t i = 0; i < files.size(); ++i) {
                Shot shot;
                shot.imageKey = Text(std::to_string(i));
                writer.storyboard(shot);
            }
            writer.text("MARKER", 11);
        },
        [&](const Text& key) { return files.at(std::stoul(key.utf8())); });
}

/// The document's only picture, as `pdfimages -list` tells of it.
QStringList onlyPicture(const PrintedFile& file) {
    const auto list = file.pictureList();
    EXPECT_EQ(list.size(), 1U);
    return list.empty() ? QStringList(14) : list.front();
}

void expectPixels(const QImage& seen, const QImage& expected) {
    ASSERT_EQ(seen.size(), expected.size());
    EXPECT_TRUE(seen.convertToFormat(QImage::Format_RGB32) == expected.convertToFormat(QImage::Format_RGB32));
}

TEST(Picture, OfASmallUprightJpegGoesInByteForByte) {
    const std::string colour = fileOf(photograph(640, 360), "JPEG", 90);
    const std::string grey = fileOf(photograph(640, 360, QImage::Format_Grayscale8), "JPEG", 90);
    for (const auto& [jpeg, name] : {std::pair{colour, "rgb"}, std::pair{grey, "gray"}}) {
        const PrintedFile file = documentWith({jpeg});
        const QStringList picture = onlyPicture(file);
        EXPECT_EQ(picture.at(encoding), "jpeg");
        EXPECT_EQ(picture.at(inColour), name);
        ASSERT_EQ(file.pictures().size(), 1U);
        EXPECT_TRUE(file.pictures().front() == jpeg) << name;
    }
}

TEST(Picture, OfAJpegGoesInAsItIsUpTo220DotsPerInch) {
    // The frame has 1543 by 868 dots at that sharpness.
    const struct {
        int width, height;
        bool asItIs;
    } cases[] = {{1543, 868, true}, {1544, 868, false}, {1543, 869, false},
                 {400, 868, true},  {400, 869, false},  {1543, 200, true}};
    for (const auto& [across, down, asItIs] : cases) {
        const std::string jpeg = fileOf(photograph(across, down), "JPEG", 60);
        const PrintedFile file = documentWith({jpeg});
        EXPECT_EQ(file.pictures().at(0) == jpeg, asItIs) << across << " by " << down;
        EXPECT_LE(onlyPicture(file).at(sharpness).toInt(), 220);
        EXPECT_EQ(onlyPicture(file).at(encoding), "jpeg");
    }
}

TEST(Picture, OfALargeJpegIsScaledTo220DotsPerInch) {
    for (const QSize& size : {QSize(3000, 1688), QSize(3000, 500), QSize(1000, 3000)}) {
        const std::string jpeg = fileOf(photograph(size.width(), size.height()), "JPEG", 60);
        const PrintedFile file = documentWith({jpeg});
        const QStringList picture = onlyPicture(file);
        EXPECT_EQ(picture.at(encoding), "jpeg");
        EXPECT_NEAR(picture.at(sharpness).toInt(), 220, 1);
        EXPECT_NEAR(picture.at(width).toDouble() / picture.at(height).toDouble(),
                    double(size.width()) / size.height(), 0.02 * size.width() / size.height());
        EXPECT_LE(picture.at(width).toInt(), 1543);
        EXPECT_LE(picture.at(height).toInt(), 868);
    }
}

TEST(Picture, OfALargeGreyJpegStaysGrey) {
    const PrintedFile file =
        documentWith({fileOf(photograph(2400, 1350, QImage::Format_Grayscale8), "JPEG", 60)});
    EXPECT_EQ(onlyPicture(file).at(inColour), "gray");
    EXPECT_EQ(onlyPicture(file).at(encoding), "jpeg");
}

TEST(Picture, OfATurnedJpegIsUpright) {
    const QImage stored = quarters(320, 160);
    // Where the colours of the stored image's quarters come to stand, line by line: 0 is the red one.
    const struct {
        char orientation;
        QList<int> places;
    } cases[] = {{1, {0, 1, 2, 3}}, {2, {1, 0, 3, 2}}, {3, {3, 2, 1, 0}}, {4, {2, 3, 0, 1}},
                 {5, {0, 2, 1, 3}}, {6, {2, 0, 3, 1}}, {7, {3, 1, 2, 0}}, {8, {1, 3, 0, 2}}};
    const QRgb colours[] = {qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255), qRgb(255, 255, 0)};
    for (const auto& [orientation, places] : cases) {
        const std::string jpeg = turned(fileOf(stored, "JPEG", 95), orientation);
        const PrintedFile file = documentWith({jpeg});
        EXPECT_EQ(onlyPicture(file).at(encoding), "jpeg");
        EXPECT_EQ(file.pictures().at(0) == jpeg, orientation == 1);
        const QImage seen = QImage::fromData(QByteArray::fromStdString(file.pictures().at(0)), "JPEG");
        ASSERT_EQ(seen.size(), orientation < 5 ? stored.size() : stored.size().transposed()) << +orientation;
        for (int i = 0; i < 4; ++i) {
            const QRgb pixel =
                seen.pixel(seen.width() * (1 + 2 * (i % 2)) / 4, seen.height() * (1 + 2 * (i / 2)) / 4);
            const QRgb expected = colours[places.at(i)];
            EXPECT_NEAR(qRed(pixel), qRed(expected), 12) << +orientation << " quarter " << i;
            EXPECT_NEAR(qGreen(pixel), qGreen(expected), 12) << +orientation << " quarter " << i;
            EXPECT_NEAR(qBlue(pixel), qBlue(expected), 12) << +orientation << " quarter " << i;
        }
    }
}

TEST(Picture, OfFewColoursStaysLossless) {
    for (const QSize& size : {QSize(320, 180), QSize(3000, 1000)}) {
        const QImage drawing = quarters(size.width(), size.height());
        const PrintedFile file = documentWith({fileOf(drawing, "PNG")});
        EXPECT_EQ(onlyPicture(file).at(encoding), "image");
        expectPixels(QImage::fromData(QByteArray::fromStdString(file.pictures().at(0))), drawing);
    }
}

TEST(Picture, WithTransparencyStaysLossless) {
    QImage image = photograph(300, 200, QImage::Format_ARGB32);
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 300; ++x)
            image.setPixelColor(x, y, y < 50 ? QColor(0, 0, 0, 0) : QColor(255, 0, 255, 128));
    const PrintedFile file = documentWith({fileOf(image, "PNG")});
    const auto list = file.pictureList();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list.at(0).at(type), "image");
    EXPECT_EQ(list.at(1).at(type), "smask");
    for (const auto& row : list)
        EXPECT_EQ(row.at(encoding), "image") << "nothing is stored as JPEG";
    const auto files = file.pictures();
    const QImage colours = QImage::fromData(QByteArray::fromStdString(files.at(0)));
    const QImage mask = QImage::fromData(QByteArray::fromStdString(files.at(1)));
    ASSERT_EQ(colours.size(), image.size());
    ASSERT_EQ(mask.size(), image.size());
    for (int y = 0; y < 200; ++y)
        for (int x = 0; x < 300; ++x) {
            const QRgb expected = image.pixel(x, y);
            ASSERT_EQ(qGray(mask.pixel(x, y)), qAlpha(expected)) << x << ", " << y;
            if (qAlpha(expected) != 0) {
                ASSERT_EQ(colours.pixel(x, y) & RGB_MASK, expected & RGB_MASK) << x << ", " << y;
            }
        }
}

TEST(Picture, OfAnOpaquePhotographBecomesAJpeg) {
    const QImage photo = photograph(800, 450);
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
        const std::string png = fileOf(photo.convertToFormat(format), "PNG");
        const PrintedFile file = documentWith({png});
        EXPECT_EQ(onlyPicture(file).at(encoding), "jpeg");
        const QImage seen = QImage::fromData(QByteArray::fromStdString(file.pictures().at(0)));
        ASSERT_EQ(seen.size(), photo.size());
        EXPECT_NEAR(qRed(seen.pixel(600, 200)), qRed(photo.pixel(600, 200)), 16);
        EXPECT_NEAR(qBlue(seen.pixel(600, 200)), qBlue(photo.pixel(600, 200)), 16);
    }
}

TEST(Picture, ComesFromEveryFormatThatTheProgramTakes) {
    const std::string folder = TEST_IMAGES;
    for (const char* name :
         {"gradient.heic", "small.bmp", "small.gif", "small.jpeg", "small.png", "small.tiff", "small.webp"}) {
        const PrintedFile file = documentWith({support::contentOf(folder + "/" + name)});
        EXPECT_FALSE(file.pictureList().empty()) << name;
        EXPECT_TRUE(file.text().contains("MARKER")) << name;
    }
}

TEST(Picture, OfFourInksBecomesOneThatEveryReaderShows) {
    const std::string jpeg = plainJpeg(64, 32, 4);
    ASSERT_FALSE(QImage::fromData(QByteArray::fromStdString(jpeg)).isNull());
    const PrintedFile file = documentWith({jpeg});
    const QStringList picture = onlyPicture(file);
    EXPECT_NE(picture.at(inColour), "cmyk");
    EXPECT_EQ(picture.at(encoding), "jpeg");
    const QRgb expected = QImage::fromData(QByteArray::fromStdString(jpeg)).pixel(32, 16);
    const QRgb seen = file.look(0, 72).pixel(298, 192);
    EXPECT_NEAR(qGray(seen), qGray(expected), 6);
}

TEST(Picture, OfEightBitsMadeByHandGoesInAsItIs) {
    // That the two files above and below are refused is not because of how they were made.
    for (const int components : {1, 3})
        EXPECT_TRUE(documentWith({plainJpeg(64, 32, components)}).pictures().at(0) ==
                    plainJpeg(64, 32, components));
}

TEST(Picture, OfTwelveBitsNeverGoesInAsItIs) {
    const std::string jpeg = plainJpeg(64, 32, 3, 12);
    const PrintedFile file = documentWith({jpeg});
    EXPECT_TRUE(file.text().contains("MARKER"));
    for (const auto& picture : file.pictures())
        EXPECT_FALSE(picture == jpeg);
    for (const auto& row : file.pictureList())
        EXPECT_EQ(row.at(bits), "8");
}

TEST(Picture, ThatIsBrokenBreaksNoDocument) {
    const std::string jpeg = fileOf(photograph(200, 120), "JPEG", 80);
    const std::string png = fileOf(photograph(200, 120), "PNG");
    std::vector<std::string> files{"", "\xFF\xD8", "\xFF\xD8\xFF", "not an image", std::string(100, '\xFF')};
    for (const std::string& whole : {jpeg, png})
        for (int part = 1; part < 8; ++part) {
            files.push_back(whole.substr(0, whole.size() * static_cast<std::size_t>(part) / 8));
            std::string damaged = whole;
            for (std::size_t at = 30 * static_cast<std::size_t>(part); at < damaged.size(); at += 211)
                damaged[at] = static_cast<char>(~damaged[at]);
            files.push_back(damaged);
        }
    for (const auto& broken : files) {
        const PrintedFile file = documentWith({broken, jpeg});
        EXPECT_TRUE(file.text().contains("MARKER"));
        const auto list = file.pictureList();
        ASSERT_FALSE(list.empty());
        EXPECT_EQ(list.back().at(encoding), "jpeg") << "the whole one behind it is there";
        EXPECT_TRUE(file.pictures().back() == jpeg);
        EXPECT_FALSE(file.look(0, 50).isNull());
    }
}

TEST(Picture, ThatIsNotAWholeJpegIsMadeAnew) {
    const std::string jpeg = fileOf(photograph(640, 360), "JPEG", 95);
    const std::string behind = jpeg + std::string(500'000, 'x');
    const std::string filled = jpeg.substr(0, 2) + "\xFF\xFF" + jpeg.substr(2);
    const std::string cut = jpeg.substr(0, jpeg.size() * 3 / 4);
    for (const auto& image : {behind, filled, cut}) {
        const PrintedFile file = documentWith({image});
        const auto list = file.pictureList();
        ASSERT_EQ(list.size(), 1U);
        EXPECT_EQ(list[0].at(encoding), "jpeg");
        const std::string stored = file.pictures().at(0);
        EXPECT_LT(stored.size(), jpeg.size());
        EXPECT_TRUE(stored.ends_with("\xFF\xD9"));
    }
}

TEST(Picture, OfOneKeyIsStoredOnceHoweverManyShotsShowIt) {
    const std::string once = fileOf(photograph(640, 360), "JPEG", 90);
    for (const auto& image : {once, fileOf(quarters(640, 360), "PNG"), fileOf(photograph(640, 360), "PNG")}) {
        const auto write = [&](int shots) {
            return printed(
                [&](PDFWriter& writer) {
                    Shot shot;
                    shot.imageKey = Text("the same");
                    for (int i = 0; i < shots; ++i)
                        writer.storyboard(shot);
                },
                [&](const Text&) { return image; });
        };
        const PrintedFile file(write(5));
        std::set<QString> objects;
        for (const auto& row : file.pictureList())
            objects.insert(row.at(object));
        EXPECT_EQ(file.pictureList().size(), 5U);
        EXPECT_EQ(objects.size(), 1U);
        EXPECT_LT(write(5).size(), write(1).size() + 4000);
    }
}

TEST(Picture, IsAskedForByItsKeyAndOnlyWhenAShotHasOne) {
    std::vector<std::string> asked;
    const PrintedFile file(
        [](PDFWriter& writer) {
            Shot without;
            without.strokes = {Stroke::make({{0.5, 0.5}})};
            writer.storyboard(without);
            Shot with;
            with.imageKey = Text("key");
            writer.storyboard(with);
        },
        [&](const Text& key) {
            asked.push_back(key.utf8());
            return fileOf(quarters(16, 9), "PNG");
        });
    EXPECT_EQ(asked, std::vector<std::string>{"key"});
    EXPECT_EQ(file.pictureList().size(), 1U);
}

}  // namespace
}  // namespace vantry::test
