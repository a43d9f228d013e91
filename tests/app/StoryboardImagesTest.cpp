#include "Vantry/app/StoryboardImages.h"

#include <gtest/gtest.h>

#include <QColor>

#include "tests/app/ImageFiles.h"
#include "tests/support/Files.h"

namespace vantry::test {
namespace {

class StoryboardImagesTest : public testing::Test {
protected:
    /// Keeps a picture of one colour.
    void keep(int width, int height) {
        key = images.import(pngOf(Qt::red, width, height), FileOperations::system());
    }
    [[nodiscard]] std::filesystem::path file() const { return folder.path() / "Media" / key; }
    /// Whoever decodes the file from now on finds no image in it.
    void spoil() { support::putContent(file(), std::string(support::contentOf(file()).size(), 'x')); }
    [[nodiscard]] QImage image(int width, int height) { return images.image(key, QSize(width, height)); }

    support::TemporaryFolder folder;
    StoryboardImages images{folder.path()};
    std::string key;
};

TEST_F(StoryboardImagesTest, DecodesAFileOnceForAllSizesOfPages) {
    keep(1600, 900);
    EXPECT_EQ(image(156, 88).size(), QSize(156, 88));
    spoil();
    for (const QSize& size :
         {QSize(128, 72), QSize(479, 269), QSize(324, 182), QSize(960, 540), QSize(156, 88)}) {
        const QImage shown = image(size.width(), size.height());
        EXPECT_EQ(shown.size(), size);
        EXPECT_EQ(shown.pixelColor(5, 5), QColor(Qt::red));
    }
}

TEST_F(StoryboardImagesTest, DecodesAFileOnceForAllStepsOfTheZoom) {
    keep(2400, 1500);
    EXPECT_EQ(image(2200, 1300).size(), QSize(2080, 1300));
    spoil();
    for (const double zoom : {1.0, 1.5, 2.0, 1.0})
        EXPECT_EQ(image(qRound(1100 * zoom), qRound(650 * zoom)).height(), qRound(650 * zoom));
    EXPECT_EQ(image(479, 269).height(), 269) << "and the pages need it no more";
}

TEST_F(StoryboardImagesTest, ASmallImageIsDecodedWholeAtOnce) {
    keep(300, 200);
    EXPECT_EQ(image(100, 100).size(), QSize(100, 67));
    spoil();
    EXPECT_EQ(image(4000, 4000).size(), QSize(300, 200)) << "it is not enlarged";
    EXPECT_EQ(images.image(key, {}).size(), QSize(300, 200));
}

TEST_F(StoryboardImagesTest, AnswersTheSameImageEachTime) {
    keep(1600, 900);
    const qint64 small = image(479, 269).cacheKey();
    const qint64 large = image(1500, 1500).cacheKey();
    EXPECT_EQ(image(479, 269).cacheKey(), small);
    EXPECT_EQ(image(1500, 1500).cacheKey(), large);
    EXPECT_EQ(image(479, 269).format(), QImage::Format_RGB32) << "painted as it is";
}

TEST_F(StoryboardImagesTest, TriesAFileThatIsNoImageOnce) {
    keep(30, 20);
    const std::string bytes = support::contentOf(file());
    spoil();
    EXPECT_TRUE(image(10, 10).isNull());
    support::putContent(file(), bytes);
    EXPECT_TRUE(image(10, 10).isNull()) << "the same file, not looked at again";
    EXPECT_TRUE(image(20, 20).isNull());
    std::filesystem::remove(file());
    EXPECT_TRUE(image(10, 10).isNull());
    support::putContent(file(), bytes + " ");
    EXPECT_EQ(image(10, 10).size(), QSize(10, 7)) << "another file";
}

TEST_F(StoryboardImagesTest, HasABoundOfItsOwn) {
    keep(6000, 60);
    EXPECT_EQ(image(9000, 9000).width(), StoryboardImages::largestSide);
    spoil();
    EXPECT_EQ(image(8000, 9000).width(), StoryboardImages::largestSide);
}

}  // namespace
}  // namespace vantry::test
