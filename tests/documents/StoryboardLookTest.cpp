#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/documents/PictureSamples.h"
#include "tests/documents/PrintedFile.h"

namespace vantry::test {
namespace {

constexpr double left = 45;
constexpr double top = 50;
constexpr double frameWidth = 505.28;
constexpr double frameHeight = 284.22;
constexpr double dots = 4;  // to a point
constexpr QRgb frameGrey = qRgb(245, 245, 245);

/// The first page of a document with one shot, at `dots` to a point.
class Look {
public:
    explicit Look(const std::vector<Stroke>& strokes, const QImage& image = {})
        : page(PrintedFile(
                   [&](PDFWriter& writer) {
                       Shot shot;
                       if (!image.isNull())
                           shot.imageKey = Text("key");
                       shot.strokes = strokes;
                       writer.storyboard(shot);
                   },
                   [&](const Text&) { return fileOf(image, "PNG"); })
                   .look(0, 72 * dots)) {}

    /// The colour at a place in points from the top left corner of the page.
    [[nodiscard]] QRgb at(double x, double y) const {
        return page.pixel(static_cast<int>(x * dots), static_cast<int>(y * dots)) | 0xFF000000U;
    }
    /// The colour at a place in the frame, as fractions of it.
    [[nodiscard]] QRgb in(double x, double y) const {
        return at(left + x * frameWidth, top + y * frameHeight);
    }
    /// How much black lies between two places in points: its area, and where its middle is.
    struct Ink {
        double area = 0, x = 0, y = 0;
    };
    [[nodiscard]] Ink ink(double x1, double y1, double x2, double y2) const {
        Ink found;
        for (int y = static_cast<int>(y1 * dots); y < static_cast<int>(y2 * dots); ++y)
            for (int x = static_cast<int>(x1 * dots); x < static_cast<int>(x2 * dots); ++x) {
                const double part = (245.0 - qGray(page.pixel(x, y))) / 245 / (dots * dots);
                found.area += part;
                found.x += part * (x + 0.5) / dots;
                found.y += part * (y + 0.5) / dots;
            }
        found.x /= found.area;
        found.y /= found.area;
        return found;
    }

private:
    QImage page;
};

TEST(StoryboardLook, IsAGreyFrameOfTheTextWidthAtSixteenToNine) {
    const Look look({Stroke::make({})});
    const double right = left + frameWidth;
    const double bottom = top + frameHeight;
    const struct {
        double x, y;
        bool inside;
    } places[] = {
        {left + 1, top + 1, true},     {right - 1, top + 1, true}, {left + 1, bottom - 1, true},
        {right - 1, bottom - 1, true}, {left - 1, 190, false},     {right + 1, 190, false},
        {300, top - 1, false},         {300, bottom + 1, false},   {left + 0.5, 190, true},
        {300, bottom - 0.5, true},
    };
    for (const auto& [x, y, inside] : places)
        EXPECT_EQ(look.at(x, y), inside ? frameGrey : qRgb(255, 255, 255)) << x << ", " << y;
}

TEST(StoryboardLook, HasNothingInItsFrameForAStrokeWithoutPoints) {
    const Look look({Stroke::make({}), Stroke::make({})});
    for (int x = 1; x < 250; ++x)
        for (int y = 1; y < 250; ++y)
            ASSERT_EQ(look.in(x / 250.0, y / 250.0), frameGrey) << x << ", " << y;
}

TEST(StoryboardLook, HasADotOfOneAndAHalfPointsForAStrokeOfOnePoint) {
    for (const Point& point : {Point{0.25, 0.75}, Point{0.5, 0.5}, Point{0.9, 0.1}}) {
        const Look look({Stroke::make({point})});
        const double x = left + point.x * frameWidth;
        const double y = top + point.y * frameHeight;
        const auto ink = look.ink(x - 5, y - 5, x + 5, y + 5);
        EXPECT_NEAR(ink.area, M_PI * 0.75 * 0.75, 0.12);
        EXPECT_NEAR(ink.x, x, 0.1);
        EXPECT_NEAR(ink.y, y, 0.1) << "fractions grow downwards";
        EXPECT_LT(qGray(look.at(x, y)), 20);
        EXPECT_EQ(look.in(1 - point.x + 0.01, 1 - point.y + 0.02), frameGrey);
    }
}

TEST(StoryboardLook, HasAnOpenLineThroughThePointsOfAStroke) {
    // To the right, then down; the way back to the start is not drawn.
    const Look look({Stroke::make({{0.1, 0.2}, {0.6, 0.2}, {0.6, 0.7}})});
    for (const double x : {0.15, 0.35, 0.55})
        EXPECT_LT(qGray(look.in(x, 0.2)), 20) << x;
    for (const double y : {0.3, 0.5, 0.65})
        EXPECT_LT(qGray(look.in(0.6, y)), 20) << y;
    for (const auto& [x, y] : {std::pair{0.35, 0.45}, {0.1, 0.5}, {0.3, 0.7}, {0.08, 0.2}, {0.6, 0.73}})
        EXPECT_EQ(look.in(x, y), frameGrey) << x << ", " << y;
    // One point of it is as much ink as it is wide.
    const double x = left + 0.35 * frameWidth;
    const double y = top + 0.2 * frameHeight;
    EXPECT_NEAR(look.ink(x, y - 5, x + 10, y + 5).area, 15, 0.8);
}

TEST(StoryboardLook, HasStrokesInOrderEachOnItsOwn) {
    const Look look({Stroke::make({{0.1, 0.1}, {0.2, 0.1}}), Stroke::make({{0.5, 0.5}}), Stroke::make({}),
                     Stroke::make({{0.8, 0.9}, {0.9, 0.9}})});
    for (const auto& [x, y] : {std::pair{0.15, 0.1}, {0.5, 0.5}, {0.85, 0.9}})
        EXPECT_LT(qGray(look.in(x, y)), 20) << x;
    // None is joined to the next one.
    for (const auto& [x, y] : {std::pair{0.35, 0.3}, {0.65, 0.7}, {0.5, 0.1}})
        EXPECT_EQ(look.in(x, y), frameGrey) << x;
}

TEST(StoryboardLook, ReachesTheEdgesOfTheFrame) {
    const Look look({Stroke::make({{0, 0}, {1, 1}})});
    for (const double part : {0.01, 0.5, 0.99})
        EXPECT_LT(qGray(look.in(part, part)), 60) << part;
}

TEST(StoryboardLook, HasTheImageInTheMiddleAsLargeAsFitsWithItsOwnShape) {
    const struct { int width, height; } sizes[] = {{100, 200}, {400, 50}, {160, 90}, {32, 32}, {1000, 1000}};
    for (const auto& [width, height] : sizes) {
        const Look look({}, quarters(width, height));
        const double scale = std::min(frameWidth / width, frameHeight / height);
        const double w = width * scale;
        const double h = height * scale;
        const double x = left + (frameWidth - w) / 2;
        const double y = top + (frameHeight - h) / 2;
        EXPECT_EQ(look.at(x + w * 0.25, y + h * 0.25), qRgb(255, 0, 0)) << width << " by " << height;
        EXPECT_EQ(look.at(x + w * 0.75, y + h * 0.25), qRgb(0, 255, 0)) << "not mirrored";
        EXPECT_EQ(look.at(x + w * 0.25, y + h * 0.75), qRgb(0, 0, 255)) << "not upside down";
        EXPECT_EQ(look.at(x + w * 0.75, y + h * 0.75), qRgb(255, 255, 0));
        // Right inside its edges is the image, right outside is the frame or the paper.
        const double middle = 0.4;
        for (const double edge : {x + 1.5, x + w - 1.5})
            EXPECT_NE(look.at(edge, y + h * middle), frameGrey);
        for (const double edge : {y + 1.5, y + h - 1.5})
            EXPECT_NE(look.at(x + w * middle, edge), frameGrey);
        const bool bars = frameWidth - w > 4;
        for (const double edge : {x - 1.5, x + w + 1.5})
            EXPECT_EQ(look.at(edge, y + h * middle), bars ? frameGrey : qRgb(255, 255, 255));
        const bool strips = frameHeight - h > 4;
        for (const double edge : {y - 1.5, y + h + 1.5})
            EXPECT_EQ(look.at(x + w * middle, edge), strips ? frameGrey : qRgb(255, 255, 255));
    }
}

TEST(StoryboardLook, HasTheDrawingOnTopOfTheImage) {
    const Look look({Stroke::make({{0.1, 0.25}, {0.4, 0.25}})}, quarters(160, 90));
    EXPECT_LT(qGray(look.in(0.25, 0.25)), 20);
    EXPECT_EQ(look.in(0.25, 0.1), qRgb(255, 0, 0));
}

TEST(StoryboardLook, ShowsTheGreyOfTheFrameThroughATransparentImage) {
    QImage image(160, 90, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int x = 0; x < 80; ++x)
        for (int y = 0; y < 90; ++y)
            image.setPixelColor(x, y, Qt::red);
    const Look look({}, image);
    EXPECT_EQ(look.in(0.25, 0.5), qRgb(255, 0, 0));
    EXPECT_EQ(look.in(0.75, 0.5), frameGrey);
}

TEST(StoryboardLook, StandsAtTheCursorAndLeavesTextBehindItBlack) {
    const QImage page = PrintedFile([](PDFWriter& writer) {
                            writer.text("Above", 11);
                            writer.advance(100);
                            Shot shot;
                            shot.strokes = {Stroke::make({{0.5, 0.5}})};
                            writer.storyboard(shot);
                            writer.text("██████", 11);
                        }).look(0, 144);
    const double y = 50 + 20.5 + 100;
    EXPECT_EQ(qGray(page.pixel(600, int((y - 1) * 2))), 255);
    EXPECT_EQ(qGray(page.pixel(600, int((y + 1) * 2))), 245);
    EXPECT_EQ(qGray(page.pixel(600, int((y + frameHeight - 1) * 2))), 245);
    EXPECT_EQ(qGray(page.pixel(600, int((y + frameHeight + 1) * 2))), 255);
    int darkest = 255;
    for (int down = 0; down < 40; ++down)
        darkest = std::min(darkest, qGray(page.pixel(2 * 50, int((y + frameHeight + 12) * 2) + down)));
    EXPECT_LT(darkest, 30);
}

}  // namespace
}  // namespace vantry::test
