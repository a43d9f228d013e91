#include "Vantry/interface/design/VantryBrandMark.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QPainter>
#include <QSvgRenderer>
#include <QTest>

#include "Vantry/interface/design/Accessibility.h"
#include "Vantry/interface/design/Palette.h"

namespace vantry::test {
namespace {

QImage grabbed(QWidget& mark, const QSize& size, double scale) {
    mark.resize(size);
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(scale);
    mark.render(&image, {}, {}, QWidget::DrawChildren);
    image.setDevicePixelRatio(1);
    return image;
}

TEST(VantryBrandMarkTest, ThePicturesInTheBundleHaveTheSizesOfTheirScreens) {
    EXPECT_EQ(QImage(QStringLiteral(":/OstrelMark.png")).size(), QSize(30, 36));
    EXPECT_EQ(QImage(QStringLiteral(":/OstrelMark@2x.png")).size(), QSize(60, 72));
    EXPECT_EQ(QImage(QStringLiteral(":/OstrelMark@3x.png")).size(), QSize(90, 108));
}

TEST(VantryBrandMarkTest, HasTheShapeOfTheDrawingAndTheInkOfTheAppearance) {
    for (const Palette* palette : {&Palette::light(), &Palette::dark()})
        for (const int scale : {1, 2, 3}) {
            VantryBrandMark mark;
            mark.setPalette(palette->controls());
            const QImage image = grabbed(mark, mark.sizeHint(), scale);
            QImage drawn(image.size(), QImage::Format_ARGB32_Premultiplied);
            drawn.fill(Qt::transparent);
            QPainter painter(&drawn);
            QSvgRenderer(QStringLiteral(BRAND_MARK_DRAWING)).render(&painter, drawn.rect());
            painter.end();
            int unlike = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x) {
                    const QRgb pixel = image.pixel(x, y);
                    unlike += std::abs(qAlpha(pixel) - qAlpha(drawn.pixel(x, y))) > 40 ? 1 : 0;
                    if (qAlpha(pixel) == 255) {
                        ASSERT_EQ(pixel, palette->ink.rgb());
                    }
                }
            EXPECT_LE(unlike, image.width() * image.height() / 100) << scale;
        }
}

TEST(VantryBrandMarkTest, KeepsItsProportionsInTheMiddleOfAnyPlace) {
    VantryBrandMark mark;
    const QImage wide = grabbed(mark, {200, 72}, 1);
    EXPECT_EQ(qAlpha(wide.pixel(100 - 32, 36)), 0);
    EXPECT_EQ(qAlpha(wide.pixel(100 - 28, 36)), 255);
    EXPECT_EQ(qAlpha(wide.pixel(100 + 28, 36)), 255);
    EXPECT_EQ(qAlpha(wide.pixel(100 + 32, 36)), 0);
    const QImage high = grabbed(mark, {30, 100}, 1);
    EXPECT_EQ(qAlpha(high.pixel(15, 50 - 20)), 0);
    EXPECT_EQ(qAlpha(high.pixel(15, 50 - 15)), 255);
}

TEST(VantryBrandMarkTest, AssistiveToolsPassOverIt) {
    installAccessibility();
    QWidget window;
    VantryBrandMark mark(&window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    ASSERT_TRUE(mark.isVisible());
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&mark);
    ASSERT_NE(interface, nullptr);
    EXPECT_TRUE(interface->state().invisible);
    EXPECT_EQ(interface->text(QAccessible::Name), QString());
    EXPECT_EQ(mark.focusPolicy(), Qt::NoFocus);
}

}  // namespace
}  // namespace vantry::test
