#include "Vantry/interface/design/Sheet.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QTest>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"

namespace vantry::test {
namespace {

const QString shortText = QStringLiteral("library.json");
const QString longText =
    QStringLiteral("“library.json” could not be written: no space left on device. ").repeated(9);

class SheetTest : public testing::Test {
protected:
    void SetUp() override {
        before = QApplication::palette();
        window.resize(700, 600);
        window.move(20, 30);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    void TearDown() override { QApplication::setPalette(before); }

    static void wear(const Palette& palette) {
        QApplication::setPalette(palette.controls());
        QCoreApplication::sendPostedEvents();
    }
    void open(const QString& message = shortText) {
        sheet.setTexts(QStringLiteral("Operation could not complete"), message, QStringLiteral("OK"));
        sheet.open();
        QCoreApplication::sendPostedEvents();
    }
    /// The distance between the middle of the sheet and that of its window.
    [[nodiscard]] QPoint offCentre() const { return sheet.geometry().center() - window.geometry().center(); }
    [[nodiscard]] static QColor pixel(QWidget& widget, QPoint at) {
        return widget.grab().toImage().pixelColor(at);
    }

    QPalette before;
    QWidget window;
    AlertSheet sheet{&window};
};

/// `over` at that opacity on `ground`.
QColor mixed(const QColor& over, const QColor& ground, double opacity) {
    const auto mix = [&](int top, int bottom) { return qRound(top * opacity + bottom * (1 - opacity)); };
    return {mix(over.red(), ground.red()), mix(over.green(), ground.green()),
            mix(over.blue(), ground.blue())};
}

bool nearly(const QColor& one, const QColor& other) {
    return std::abs(one.red() - other.red()) <= 2 && std::abs(one.green() - other.green()) <= 2 &&
           std::abs(one.blue() - other.blue()) <= 2;
}

TEST_F(SheetTest, HasAnEdgeAndRoundCorners) {
    for (const Palette* palette : {&Palette::light(), &Palette::dark()}) {
        wear(*palette);
        open();
        const int middle = sheet.height() / 2;
        EXPECT_EQ(pixel(sheet, {0, middle}), palette->rule);
        EXPECT_EQ(pixel(sheet, {sheet.width() - 1, middle}), palette->rule);
        EXPECT_EQ(pixel(sheet, {sheet.width() / 2, 0}), palette->rule);
        EXPECT_EQ(pixel(sheet, {sheet.width() / 2, sheet.height() - 1}), palette->rule);
        EXPECT_EQ(pixel(sheet, {1, middle}), palette->canvas);
        EXPECT_EQ(pixel(sheet, {0, 0}).alpha(), 0);
        EXPECT_FALSE(sheet.mask().contains(QPoint(0, 0)));
        EXPECT_TRUE(sheet.mask().contains(QPoint(0, Metrics::radiusPanel + 1)));
        sheet.hide();
    }
}

TEST_F(SheetTest, ALayerLiesOverTheWindowWhileItIsOpen) {
    const QPoint corner(3, 3);
    wear(Palette::light());
    EXPECT_EQ(pixel(window, corner), Palette::light().canvas);
    open();
    EXPECT_TRUE(nearly(pixel(window, corner), mixed(Palette::light().ink, Palette::light().canvas, 0.42)));
    window.resize(750, 640);
    const QPoint farCorner(window.width() - 3, window.height() - 3);
    EXPECT_TRUE(nearly(pixel(window, farCorner), mixed(Palette::light().ink, Palette::light().canvas, 0.42)));
    sheet.hide();
    EXPECT_EQ(pixel(window, corner), Palette::light().canvas);

    auto* passing = new AlertSheet(&window);
    passing->open();
    EXPECT_NE(pixel(window, corner), Palette::light().canvas);
    delete passing;
    EXPECT_EQ(pixel(window, corner), Palette::light().canvas) << "a sheet that goes takes its layer along";
}

TEST_F(SheetTest, InDarkTheLayerHidesTheTextsBehind) {
    wear(Palette::dark());
    QWidget text(&window);
    text.setAutoFillBackground(true);
    QPalette ink;
    ink.setColor(QPalette::Window, Palette::dark().ink);
    text.setPalette(ink);
    text.setGeometry(0, 0, 20, 20);
    text.show();
    open();
    EXPECT_TRUE(nearly(pixel(window, {3, 3}), mixed(Palette::dark().canvas, Palette::dark().ink, 0.74)));
}

TEST_F(SheetTest, StaysInTheMiddleOfItsWindow) {
    open();
    EXPECT_LE(offCentre().manhattanLength(), 2);
    window.move(60, 80);
    window.resize(760, 500);
    QCoreApplication::sendPostedEvents();
    EXPECT_LE(offCentre().manhattanLength(), 2);
    const int height = sheet.height();
    open(longText);
    EXPECT_GT(sheet.height(), height);
    EXPECT_EQ(sheet.width(), Metrics::dialogWidth);
    EXPECT_LE(offCentre().manhattanLength(), 2);
}

TEST_F(SheetTest, WithAMessageItIsAnAlert) {
    open();
    auto* alert = QAccessible::queryAccessibleInterface(&sheet);
    EXPECT_EQ(alert->role(), QAccessible::AlertMessage);
    EXPECT_EQ(alert->text(QAccessible::Name), QStringLiteral("Operation could not complete"));
    EXPECT_EQ(alert->text(QAccessible::Description), shortText);
    EXPECT_TRUE(alert->state().modal);
    QuestionSheet question(&window);
    question.setTexts(QStringLiteral("Delete?"), QStringLiteral("No"), QStringLiteral("Yes"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&question)->role(), QAccessible::Dialog);
}

}  // namespace
}  // namespace vantry::test
