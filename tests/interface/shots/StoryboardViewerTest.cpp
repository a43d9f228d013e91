#include "Vantry/interface/shots/StoryboardViewer.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>

#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/shots/StoryboardImage.h"
#include "tests/interface/shots/StoryboardFixture.h"

namespace vantry::test {
namespace {

class StoryboardViewerTest : public StoryboardTest {
protected:
    void SetUp() override {
        StoryboardTest::SetUp();
        open();
    }
    void open() {
        StoryboardViewer::open(*store, shot, window);
        settle();
        viewer = window.findChild<StoryboardViewer*>();
        ASSERT_NE(viewer, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(viewer));
    }
    void press(const QString& name) {
        QTest::mouseClick(&button(*viewer, name), Qt::LeftButton);
        settle();
    }
    [[nodiscard]] QScrollArea& view() const { return *viewer->findChild<QScrollArea*>(); }
    [[nodiscard]] StoryboardImage& image() const { return *viewer->findChild<StoryboardImage*>(); }
    void turnWheel(int delta, Qt::KeyboardModifiers keys) {
        const QPointF at(50, 50);
        QWheelEvent wheel(at, view().viewport()->mapToGlobal(at), {}, {0, delta}, Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(view().viewport(), &wheel);
        settle();
    }
    /// What lies in the middle of the view, as a fraction of the frame.
    [[nodiscard]] QPointF middle() const {
        const QPoint at = image().mapFrom(view().viewport(), view().viewport()->rect().center());
        return {double(at.x()) / image().width(), double(at.y()) / image().height()};
    }

    StoryboardViewer* viewer = nullptr;
};

TEST_F(StoryboardViewerTest, ZoomsInStepsOfAHalfFromOneToFour) {
    EXPECT_EQ(viewer->zoom(), 1);
    EXPECT_TRUE(shows(*viewer, QStringLiteral("100%")));
    auto& out = button(*viewer, QStringLiteral("Zoom out"));
    auto& in = button(*viewer, QStringLiteral("Zoom in"));
    EXPECT_FALSE(out.isEnabled());
    const int width = image().width();
    for (const double zoom : {1.5, 2.0, 2.5, 3.0, 3.5, 4.0}) {
        EXPECT_TRUE(in.isEnabled());
        press(QStringLiteral("Zoom in"));
        EXPECT_EQ(viewer->zoom(), zoom);
        EXPECT_TRUE(shows(*viewer, QStringLiteral("%1%").arg(qRound(zoom * 100))));
        EXPECT_NEAR(image().width(), width * zoom, zoom + 1);
        EXPECT_TRUE(out.isEnabled());
    }
    EXPECT_FALSE(in.isEnabled());
    press(QStringLiteral("Zoom in"));
    EXPECT_EQ(viewer->zoom(), 4);
    press(QStringLiteral("Zoom out"));
    EXPECT_EQ(viewer->zoom(), 3.5);
    press(QStringLiteral("Fit to window"));
    EXPECT_EQ(viewer->zoom(), 1);
    EXPECT_EQ(image().width(), width);
    EXPECT_FALSE(out.isEnabled());
}

TEST_F(StoryboardViewerTest, FitsTheFrameWith32LeftFree) {
    for (const QSize& size : {QSize(1380, 900), QSize(1000, 680), QSize(700, 900)}) {
        window.resize(size);
        settle();
        const QSize free = view().maximumViewportSize() - QSize(32, 32);
        EXPECT_EQ(image().width(), std::min(free.width(), free.height() * 16 / 9));
        EXPECT_NEAR(image().height(), image().width() * 9.0 / 16, 0.5);
        EXPECT_EQ(view().horizontalScrollBar()->maximum(), 0);
        EXPECT_EQ(view().verticalScrollBar()->maximum(), 0);
        EXPECT_LE((image().geometry().center() - view().viewport()->rect().center()).manhattanLength(), 2);
    }
}

TEST_F(StoryboardViewerTest, ScrollsOnBothAxesAndKeepsTheMiddle) {
    press(QStringLiteral("Zoom in"));
    press(QStringLiteral("Zoom in"));
    EXPECT_TRUE(view().horizontalScrollBar()->isVisible());
    EXPECT_TRUE(view().verticalScrollBar()->isVisible());
    EXPECT_NEAR(middle().x(), 0.5, 0.01);
    EXPECT_NEAR(middle().y(), 0.5, 0.01);
    const QPoint before(view().horizontalScrollBar()->value(), view().verticalScrollBar()->value());
    QTest::keyClick(viewer, Qt::Key_Right);
    QTest::keyClick(viewer, Qt::Key_Down);
    QTest::keyClick(viewer, Qt::Key_Down);
    EXPECT_GT(view().horizontalScrollBar()->value(), before.x());
    EXPECT_GT(view().verticalScrollBar()->value(), before.y());
    const QPointF place = middle();
    for (const char* name : {"Zoom in", "Zoom in", "Zoom out"}) {
        press(QString::fromLatin1(name));
        EXPECT_NEAR(middle().x(), place.x(), 0.005) << name;
        EXPECT_NEAR(middle().y(), place.y(), 0.005) << name;
    }
    turnWheel(-120, Qt::NoModifier);
    EXPECT_GT(middle().y(), place.y() + 0.01);
    EXPECT_EQ(viewer->zoom(), 2.5);
}

TEST_F(StoryboardViewerTest, NothingStandsWhereItsIndicatorsMeet) {
    press(QStringLiteral("Zoom in"));
    press(QStringLiteral("Zoom in"));
    const QImage seen = view().grab().toImage();
    const QSize corner(view().verticalScrollBar()->width(), view().horizontalScrollBar()->height());
    const QColor canvas = Palette::of(*viewer).canvas;
    for (int x = 1; x <= corner.width(); ++x)
        for (int y = 1; y <= corner.height(); ++y)
            ASSERT_EQ(seen.pixelColor(seen.width() - x, seen.height() - y), canvas) << x << ' ' << y;
}

TEST_F(StoryboardViewerTest, TheKeyboardAndTheWheelZoomToo) {
    QTest::keyClick(viewer, Qt::Key_Plus, Qt::ControlModifier);
    QTest::keyClick(viewer, Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(viewer->zoom(), 2);
    QTest::keyClick(viewer, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(viewer->zoom(), 1.5);
    QTest::keyClick(viewer, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(viewer->zoom(), 1);
    turnWheel(240, Qt::ControlModifier);
    EXPECT_EQ(viewer->zoom(), 2);
    for (int part = 0; part < 4; ++part)
        turnWheel(-30, Qt::ControlModifier);
    EXPECT_EQ(viewer->zoom(), 1.5) << "a fine wheel adds its turns up";
    turnWheel(-1200, Qt::ControlModifier);
    EXPECT_EQ(viewer->zoom(), 1);
}

TEST_F(StoryboardViewerTest, TheFocusStaysOnTheZoomAtItsEnds) {
    auto& in = button(*viewer, QStringLiteral("Zoom in"));
    in.setFocus(Qt::TabFocusReason);
    for (int times = 0; times < 6; ++times)
        QTest::keyClick(&in, Qt::Key_Space);
    EXPECT_EQ(viewer->zoom(), 4);
    EXPECT_EQ(QApplication::focusWidget(), &button(*viewer, QStringLiteral("Zoom out")));
}

TEST_F(StoryboardViewerTest, CloseAndEscapeCloseItAndTheNextOneStartsAtOne) {
    press(QStringLiteral("Zoom in"));
    press(QStringLiteral("Close"));
    EXPECT_EQ(window.findChild<StoryboardViewer*>(), nullptr);
    open();
    EXPECT_EQ(viewer->zoom(), 1);
    QTest::keyClick(viewer, Qt::Key_Escape);
    settle();
    EXPECT_EQ(window.findChild<StoryboardViewer*>(), nullptr);
}

TEST_F(StoryboardViewerTest, FollowsLanguageShotAndAppearance) {
    EXPECT_TRUE(shows(*viewer, QStringLiteral("Scroll to explore when zoomed in. Press Esc to close.")));
    const auto* spoken = QAccessible::queryAccessibleInterface(viewer);
    EXPECT_EQ(spoken->role(), QAccessible::Dialog);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("20B Tom & Jerry <b>x</b>"));
    store->setLanguage("zh");
    change([](Shot& held) { held.title = "回头"; });
    settle();
    EXPECT_TRUE(shows(*viewer, QStringLiteral("放大后可用触控板或滚动条移动查看；按 Esc 关闭。")));
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("20B 回头"));
    for (const char16_t* name : {u"缩小", u"放大", u"适合窗口", u"关闭"})
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&button(*viewer, QString::fromUtf16(name)))->role(),
                  QAccessible::Button);
    const QColor light = viewer->grab().toImage().pixelColor(300, 10);
    QApplication::setPalette(Palette::dark().controls());
    settle();
    EXPECT_NE(viewer->grab().toImage().pixelColor(300, 10), light);
    store->setLanguage("en");
    settle();
    EXPECT_TRUE(shows(*viewer, QStringLiteral("Scroll to explore when zoomed in. Press Esc to close.")));
}

TEST_F(StoryboardViewerTest, ShowsADrawingThatComesMeanwhile) {
    const QImage empty = image().grab().toImage();
    setStrokes({Stroke::make({{0.1, 0.1}, {0.9, 0.9}})});
    settle();
    EXPECT_NE(image().grab().toImage(), empty);
}

TEST_F(StoryboardViewerTest, GoesWithItsShotAndTakesNothingAlong) {
    store->markCheckpoint();
    removeShot();
    EXPECT_EQ(window.findChild<StoryboardViewer*>(), nullptr);
    store->undo();
    EXPECT_TRUE(store->shot(project, act, shot));
    StoryboardViewer::open(*store, Identifier::random(), window);
    settle();
    EXPECT_EQ(window.findChild<StoryboardViewer*>(), nullptr) << "there is nothing to show";
}

}  // namespace
}  // namespace vantry::test
