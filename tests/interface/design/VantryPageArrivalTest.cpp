#include "Vantry/interface/design/VantryPageArrival.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QGraphicsEffect>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QVariantAnimation>

#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryMotionPreference.h"

namespace vantry::test {
namespace {

/// A page of ink, as far from the canvas as can be.
class VantryPageArrivalTest : public testing::Test {
protected:
    void SetUp() override {
        before = QApplication::palette();
        QApplication::setPalette(Palette::light().controls());
        auto* column = new QVBoxLayout(&window);
        page = new QWidget;
        column->addWidget(page);
        QPalette dark = page->palette();
        dark.setColor(QPalette::Window, Palette::light().ink);
        page->setPalette(dark);
        page->setAutoFillBackground(true);
        field = new QLineEdit(QStringLiteral("notes"), page);
        field->setGeometry(10, 10, 80, 30);
        window.resize(300, 200);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void TearDown() override { QApplication::setPalette(before); }
    [[nodiscard]] QList<VantryPageArrival*> sheets() { return window.findChildren<VantryPageArrival*>(); }
    [[nodiscard]] int red() {
        return window.grab().toImage().pixelColor(page->mapTo(&window, QPoint(150, 100))).red();
    }
    /// What is seen of the page's colour at that opacity.
    [[nodiscard]] static double redAt(double opacity) {
        return opacity * Palette::light().ink.red() + (1 - opacity) * Palette::light().canvas.red();
    }

    QPalette before;
    QWidget window;
    QWidget* page = nullptr;
    QLineEdit* field = nullptr;
};

TEST_F(VantryPageArrivalTest, ThePageComesFromNearlyThereToThere) {
    VantryPageArrival::begin(*page);
    EXPECT_NEAR(red(), redAt(0.96), 1);
    ASSERT_EQ(sheets().size(), 1);
    auto* move = sheets().first()->findChild<QVariantAnimation*>();
    ASSERT_NE(move, nullptr);
    EXPECT_EQ(move->duration(), 180);
    move->setCurrentTime(90);
    EXPECT_LT(red(), redAt(0.97));
    move->setCurrentTime(180);
    EXPECT_EQ(red(), Palette::light().ink.red());
    ASSERT_TRUE(QTest::qWaitFor([&] { return sheets().isEmpty(); }));
}

TEST_F(VantryPageArrivalTest, ThePageKnowsNothingOfIt) {
    field->setFocus();
    field->setCursorPosition(2);
    VantryPageArrival::begin(*page);
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(field->cursorPosition(), 2);
    EXPECT_EQ(page->graphicsEffect(), nullptr);
    EXPECT_EQ(window.childAt(field->mapTo(&window, QPoint(5, 5))), field) << "it takes no clicks";
    QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&window);
    EXPECT_EQ(spoken.childCount(), 1) << "assistive tools see the page alone";
}

TEST_F(VantryPageArrivalTest, WithReducedMotionThePageIsThereInTheFirstFrame) {
    VantryMotionPreference preference;
    preference.setChoice(true);
    VantryPageArrival::begin(*page);
    EXPECT_TRUE(sheets().isEmpty());
    EXPECT_EQ(red(), Palette::light().ink.red());
}

TEST_F(VantryPageArrivalTest, APageThatIsNotOnScreenDoesNotArrive) {
    page->hide();
    VantryPageArrival::begin(*page);
    EXPECT_TRUE(sheets().isEmpty());
}

TEST_F(VantryPageArrivalTest, ItEndsWithItsPage) {
    VantryPageArrival::begin(*page);
    ASSERT_EQ(sheets().size(), 1);
    delete page;
    ASSERT_TRUE(QTest::qWaitFor([&] { return sheets().isEmpty(); }));
}

}  // namespace
}  // namespace vantry::test
