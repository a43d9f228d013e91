#include "Vantry/interface/design/Glyph.h"

#include <algorithm>
#include <cstdlib>
#include <set>

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include "Vantry/app/QtText.h"

namespace vantry::test {
namespace {

constexpr int middling = 20;

QImage blank(int side, double scale) {
    const int pixels = static_cast<int>(side * scale);
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(scale);
    return image;
}

QImage painted(Glyph glyph, const QColor& colour = Qt::black, bool filled = false, double size = middling,
               double scale = 1, QPointF corner = {4, 4}) {
    QImage image = blank(40, scale);
    QPainter painter(&image);
    paintGlyph(painter, glyph, QRectF(corner, QSizeF(size, size)), colour, filled);
    return image;
}

/// The area that is inked, in whole pixels.
double ink(const QImage& image) {
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            sum += qAlpha(image.pixel(x, y)) / 255.0;
    return sum;
}

TEST(GlyphTest, EverySignIsInTheBundleAndShowsSomething) {
    for (const GlyphSource& source : glyphSources()) {
        const QString file = QStringLiteral(":/icons/%1.svg").arg(toQString(source.drawing));
        if (!source.drawing.empty()) {
            EXPECT_TRUE(QSvgRenderer(file).isValid()) << source.drawing;
        }
        EXPECT_GT(ink(painted(source.glyph)), 5) << static_cast<int>(source.glyph);
    }
}

TEST(GlyphTest, NamesOfSignsAreUnique) {
    std::set<std::string_view> names;
    for (const GlyphSource& source : glyphSources())
        if (!source.symbol.empty()) {
            EXPECT_TRUE(names.insert(source.symbol).second) << source.symbol;
        }
    EXPECT_EQ(names.size(), 47U);
}

TEST(GlyphTest, NoSignPaintsNothing) {
    EXPECT_EQ(ink(painted(Glyph::none)), 0);
}

TEST(GlyphTest, ASignStaysInItsPlace) {
    for (const GlyphSource& source : glyphSources())
        for (const double scale : {1.0, 1.25, 2.0}) {
            const QImage image = painted(source.glyph, Qt::black, true, 18, scale);
            const QRect place(QPoint(static_cast<int>(4 * scale), static_cast<int>(4 * scale)),
                              QSize(static_cast<int>(18 * scale) + 1, static_cast<int>(18 * scale) + 1));
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    ASSERT_TRUE(place.contains(x, y) || qAlpha(image.pixel(x, y)) == 0)
                        << source.drawing << " at " << x << ", " << y << ", scale " << scale;
        }
}

TEST(GlyphTest, LinesHaveTheColourAskedForAndItsTransparency) {
    const QColor colour(0xA1, 0x44, 0x3C);
    const QImage solid = painted(Glyph::check, colour);
    const QImage faint = painted(Glyph::check, QColor(0xA1, 0x44, 0x3C, 128));
    bool solidSeen = false;
    for (int y = 0; y < solid.height(); ++y)
        for (int x = 0; x < solid.width(); ++x)
            if (qAlpha(solid.pixel(x, y)) == 255) {
                solidSeen = true;
                EXPECT_EQ(solid.pixel(x, y), colour.rgb());
                EXPECT_NEAR(qAlpha(faint.pixel(x, y)), 128, 1);
            }
    EXPECT_TRUE(solidSeen);
}

TEST(GlyphTest, FilledIsTheSameOutlineWithItsInside) {
    const QImage hollow = painted(Glyph::folder);
    const QImage filled = painted(Glyph::folder, Qt::black, true);
    EXPECT_GT(ink(filled), ink(hollow) * 1.5);
    for (int y = 0; y < hollow.height(); ++y)
        for (int x = 0; x < hollow.width(); ++x)
            EXPECT_GE(qAlpha(filled.pixel(x, y)), qAlpha(hollow.pixel(x, y)));
    EXPECT_EQ(painted(Glyph::folderFilled), filled);
}

/// The width of the one upright line of a sign, in the grid of 24.
double strokeOf(int size) {
    constexpr double scale = 16;
    const QImage image = painted(Glyph::plus, Qt::black, false, size, scale);
    // Off the crossing, where only the upright is.
    const int row = static_cast<int>((4 + size * 0.3) * scale);
    double width = 0;
    for (int x = 0; x < image.width(); ++x)
        width += qAlpha(image.pixel(x, row)) / 255.0;
    return width / scale / size * 24;
}

TEST(GlyphTest, SmallSignsHaveStrongerLines) {
    const std::pair<int, double> widths[] = {{13, 2.4},  {14, 2.4},  {16, 2},   {18, 2},
                                             {20, 1.75}, {24, 1.75}, {27, 1.6}, {30, 1.6}};
    for (const auto& [size, width] : widths)
        EXPECT_NEAR(strokeOf(size), width, 0.05) << size;
}

TEST(GlyphTest, APictureIsAsSharpAsADrawingOnEveryScale) {
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        const QImage image = painted(Glyph::calendar, Qt::black, false, 20, scale, {4.3, 4.6});
        const int pixels = static_cast<int>(20 * scale);
        // The drawing itself, by the renderer alone, on whole pixels.
        QFile file(QStringLiteral(":/icons/calendar.svg"));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QByteArray drawing = file.readAll();
        drawing.replace("currentColor", "#000000").replace("stroke-width=\"2\"", "stroke-width=\"1.75\"");
        QImage drawn(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        QSvgRenderer(drawing).render(&painter, drawn.rect());
        painter.end();
        bool found = false;
        const int nearby = static_cast<int>(4 * scale);
        for (int y = nearby; y <= nearby + 3 && !found; ++y)
            for (int x = nearby; x <= nearby + 3 && !found; ++x) {
                QImage part = image.copy(x, y, pixels, pixels);
                part.setDevicePixelRatio(1);
                found = part == drawn;
            }
        EXPECT_TRUE(found) << scale;
    }
}

TEST(GlyphTest, ATurnedSignIsDrawnTurned) {
    QImage image = blank(40, 1);
    QPainter painter(&image);
    painter.translate(20, 20);
    painter.rotate(180);
    paintGlyph(painter, Glyph::chevronDown, QRectF(-10, -10, 20, 20), Qt::black);
    painter.end();
    double top = 0;
    for (int x = 0; x < 40; ++x)
        top += qAlpha(image.pixel(x, 17));
    double foot = 0;
    for (int x = 19; x < 22; ++x)
        foot += qAlpha(image.pixel(x, 22));
    EXPECT_GT(top, 0);   // the point of the chevron is above the middle now
    EXPECT_EQ(foot, 0);  // and below it there is nothing between its arms
}

TEST(GlyphTest, DiscAndSquareHaveOneSizeInEveryPlace) {
    for (const Glyph glyph : {Glyph::disc, Glyph::square}) {
        EXPECT_EQ(painted(glyph, Qt::black, false, 8, 1, {10, 10}),
                  painted(glyph, Qt::black, false, 16, 1, {6, 6}));
    }
    EXPECT_GT(ink(painted(Glyph::square)), ink(painted(Glyph::disc)));
}

}  // namespace
}  // namespace vantry::test
