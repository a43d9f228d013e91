#include "Vantry/interface/shots/StoryboardFrame.h"

#include <QPainter>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/shots/StoryboardImage.h"
#include "tests/interface/shots/StoryboardFixture.h"

namespace vantry::test {
namespace {

const QString hint = QStringLiteral("Import or draw a storyboard");

class StoryboardFrameTest : public StoryboardTest {
protected:
    void SetUp() override {
        StoryboardTest::SetUp();
        image = new StoryboardImage(*store, &window);
        image->setGeometry(0, 0, 320, 180);
        image->show();
        refresh();
    }
    void refresh() { image->fill(record(), QStringLiteral("20B"), hint); }
    [[nodiscard]] QImage picture() const { return image->grab().toImage(); }
    /// The same, by a widget that has painted nothing before.
    [[nodiscard]] QImage freshPicture() {
        StoryboardImage fresh(*store, &window);
        fresh.setGeometry(image->geometry());
        fresh.fill(record(), QStringLiteral("20B"), hint);
        return fresh.grab().toImage();
    }

    StoryboardImage* image = nullptr;
};

TEST_F(StoryboardFrameTest, IsTheLargestOf16To9InTheMiddle) {
    EXPECT_EQ(StoryboardFrame::within(QRectF(0, 0, 320, 400)), QRectF(0, 110, 320, 180));
    EXPECT_EQ(StoryboardFrame::within(QRectF(0, 0, 900, 180)), QRectF(290, 0, 320, 180));
    const QRectF odd = StoryboardFrame::within(QRectF(0, 0, 479, 1000));
    EXPECT_EQ(odd, QRectF(0, 365, 479, 269)) << "on whole points, so that its edges are sharp";
    EXPECT_EQ(StoryboardFrame::within(QRectF(0, 0, 324, 182)), QRectF(0, 0, 324, 182));
    EXPECT_EQ(image->heightForWidth(479), 269);
}

TEST_F(StoryboardFrameTest, ShowsAnImageWholeAndCentredOnThePlainFrame) {
    importImage(Qt::blue, 40, 40);
    refresh();
    const QImage shown = picture();
    EXPECT_EQ(inkIn(shown, Qt::blue), QRect(70, 0, 180, 180).adjusted(0, 1, 0, -1));
    EXPECT_TRUE(nearly(shown.pixelColor(30, 90), Palette::light().tint));
    change([](Shot& held) { held.imageKey.reset(); });
    importImage(Qt::red, 160, 30);
    refresh();
    EXPECT_EQ(inkIn(picture(), Qt::red), QRect(0, 60, 320, 60).adjusted(1, 0, -1, 0));
}

TEST_F(StoryboardFrameTest, DrawsStrokesRelativeToTheFrameAndNotToTheImage) {
    importImage(Qt::white, 40, 40);
    setStrokes({Stroke::make({{0.1, 0.5}, {0.9, 0.5}})});
    refresh();
    const QRect ink = inkIn(picture(), Palette::light().ink);
    EXPECT_EQ(ink.height(), Metrics::stroke);
    EXPECT_NEAR(ink.center().y(), 90, 1);
    EXPECT_NEAR(ink.left(), 32, 1);
    EXPECT_NEAR(ink.right(), 288, 1);
}

TEST_F(StoryboardFrameTest, OnePointIsADotOfTwoAndNoPointIsNothing) {
    setStrokes({Stroke::make({{0.25, 0.5}}), Stroke::make({})});
    refresh();
    const QImage shown = picture();
    QRect ink;
    for (int y = 5; y < 175; ++y)
        for (int x = 5; x < 315; ++x)
            if (!nearly(shown.pixelColor(x, y), Palette::light().tint))
                ink |= QRect(x, y, 1, 1);
    EXPECT_EQ(ink, QRect(79, 89, 2, 2)) << "no placeholder, as there are strokes";
}

TEST_F(StoryboardFrameTest, ShowsThePlaceholderOnlyWithoutImageAndStrokes) {
    const auto inked = [this] { return inkIn(picture(), Palette::light().muted); };
    EXPECT_FALSE(inked().isNull());
    setStrokes({Stroke::make({{0, 0}})});
    refresh();
    EXPECT_TRUE(inked().isNull());
    setStrokes({});
    refresh();
    EXPECT_FALSE(inked().isNull());
    change([](Shot& held) { held.imageKey = Text(std::string(64, 'a')); });
    refresh();
    EXPECT_TRUE(inked().isNull()) << "an image whose file has gone is no reason to ask for one";
    setStrokes({Stroke::make({{0.1, 0.5}, {0.9, 0.5}})});
    refresh();
    EXPECT_FALSE(inkIn(picture(), Palette::light().ink).isNull());
}

TEST_F(StoryboardFrameTest, LeavesTheTextOutWhereThereIsNoRoomForIt) {
    const auto inked = [&](int width, int height) {
        image->resize(width, height);
        return inkIn(picture(), Palette::light().muted);
    };
    EXPECT_GT(inked(324, 182).width(), 100);
    EXPECT_GT(inked(236, 133).width(), 100);
    for (const QSize& small : {QSize(156, 88), QSize(128, 72)}) {
        const QRect sign = inked(small.width(), small.height());
        EXPECT_LE(sign.width(), Metrics::iconSheet);
        EXPECT_NEAR(sign.center().x(), small.width() / 2.0, 1.5);
        EXPECT_NEAR(sign.center().y(), small.height() / 2.0, 1.5);
    }
}

TEST_F(StoryboardFrameTest, HasRoundCornersAndAnOutline) {
    importImage(Qt::blue, 16, 9);
    refresh();
    const QImage shown = picture();
    EXPECT_FALSE(nearly(shown.pixelColor(1, 1), Qt::blue));
    EXPECT_TRUE(nearly(shown.pixelColor(0, 90), Palette::light().rule));
    EXPECT_TRUE(nearly(shown.pixelColor(160, 179), Palette::light().rule));
    EXPECT_TRUE(nearly(shown.pixelColor(5, 5), Qt::blue));
}

TEST_F(StoryboardFrameTest, LooksTheSameHoweverItCameAboutStrokeByStroke) {
    std::vector<Stroke> strokes;
    for (int line = 1; line < 9; ++line)
        strokes.push_back(Stroke::make({{0.1, line / 10.0}, {0.5, 0.2}, {0.9, line / 10.0}}));
    strokes.push_back(Stroke::make({{0.5, 0.5}}));
    const auto compare = [&](const char* what) {
        refresh();
        EXPECT_EQ(picture(), freshPicture()) << what;
    };
    for (std::size_t count = 1; count <= strokes.size(); ++count) {
        setStrokes({strokes.begin(), strokes.begin() + static_cast<std::ptrdiff_t>(count)});
        compare("one more");
    }
    importImage(Qt::yellow, 30, 20);
    compare("an image");
    std::vector<Stroke> fewer = strokes;
    fewer.pop_back();
    setStrokes(fewer);
    compare("the last taken back");
    fewer.erase(fewer.begin() + 2);
    setStrokes(fewer);
    compare("one from the middle");
    fewer.back() = Stroke::make({{0.2, 0.9}, {0.8, 0.1}});
    setStrokes(fewer);
    compare("one replaced");
    setStrokes({});
    compare("cleared");
    setStrokes(strokes);
    compare("all back");
    QApplication::setPalette(Palette::dark().controls());
    settle();
    compare("in dark");
    image->resize(500, 400);
    compare("larger");
}

TEST_F(StoryboardFrameTest, KeepsTheProportionsOfADrawingAtEverySize) {
    setStrokes({Stroke::make({{0.25, 0.25}, {0.75, 0.75}})});
    refresh();
    for (const int width : {160, 640, 1072}) {
        image->resize(width, width * 9 / 16);
        const QRect ink = inkIn(picture(), Palette::light().ink);
        EXPECT_NEAR(ink.left(), width * 0.25, 2);
        EXPECT_NEAR(ink.right(), width * 0.75, 2);
        EXPECT_NEAR(ink.top(), width * 9.0 / 16 * 0.25, 2);
        EXPECT_NEAR(ink.bottom(), width * 9.0 / 16 * 0.75, 2);
    }
}

TEST_F(StoryboardFrameTest, APartOfALargeFrameLooksLikeThatPartOfTheWhole) {
    importImage(Qt::yellow, 300, 200);
    std::vector<Stroke> strokes{Stroke::make({{0.2, 0.2}})};
    for (int line = 1; line < 9; ++line)
        strokes.push_back(Stroke::make({{0.1, line / 10.0}, {0.5, 0.2}, {0.9, line / 10.0}}));
    setStrokes(strokes);
    refresh();
    image->resize(3200, 1800);
    const QImage whole = picture();
    const QRect part(400, 200, 900, 500);
    EXPECT_EQ(image->grab(part).toImage(), whole.copy(part));
}

TEST_F(StoryboardFrameTest, NoticesThatItsFileCameOrWent) {
    importImage(Qt::blue, 16, 9);
    refresh();
    EXPECT_FALSE(inkIn(picture(), Qt::blue).isNull());
    const std::string bytes = support::contentOf(imageFile());
    std::filesystem::remove(imageFile());
    refresh();
    EXPECT_TRUE(inkIn(picture(), Qt::blue).isNull());
    support::putContent(imageFile(), bytes);
    refresh();
    EXPECT_FALSE(inkIn(picture(), Qt::blue).isNull());
}

TEST_F(StoryboardFrameTest, IsAPictureWithTheHintWhileItIsEmpty) {
    const auto* spoken = QAccessible::queryAccessibleInterface(image);
    EXPECT_EQ(spoken->role(), QAccessible::Graphic);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("20B"));
    EXPECT_EQ(spoken->text(QAccessible::Description), hint);
    setStrokes({Stroke::make({{0, 0}})});
    refresh();
    EXPECT_EQ(spoken->text(QAccessible::Description), QString());
}

}  // namespace
}  // namespace vantry::test
