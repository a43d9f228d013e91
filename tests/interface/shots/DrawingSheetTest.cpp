#include "Vantry/interface/shots/DrawingSheet.h"

#include <QPointingDevice>
#include <QTabletEvent>
#include <QTouchEvent>

#include "Vantry/interface/shots/DrawingSurface.h"
#include "tests/interface/shots/StoryboardFixture.h"

namespace vantry::test {
namespace {

class DrawingSheetTest : public StoryboardTest {
protected:
    void SetUp() override {
        StoryboardTest::SetUp();
        sheet = new DrawingSheet(*store, &window);
        present();
    }
    void present() {
        sheet->present(record(), [this](const std::vector<Stroke>& strokes) {
            ++saves;
            setStrokes(strokes);
        });
        settle();
        ASSERT_TRUE(QTest::qWaitForWindowActive(sheet));
    }
    [[nodiscard]] DrawingSurface& surface() const { return sheet->surface(); }
    [[nodiscard]] const std::vector<Stroke>& strokes() const { return surface().drawing().strokes(); }
    void press(const QString& name) {
        QTest::mouseClick(&button(*sheet, name), Qt::LeftButton);
        settle();
    }
    void drag(const QList<QPoint>& places) {
        QTest::mousePress(&surface(), Qt::LeftButton, Qt::NoModifier, places.front());
        for (const QPoint& place : places.mid(1))
            send(QEvent::MouseMove, place, Qt::NoButton, Qt::LeftButton);
        QTest::mouseRelease(&surface(), Qt::LeftButton, Qt::NoModifier, places.back());
    }
    void send(QEvent::Type type, const QPointF& place, Qt::MouseButton button, Qt::MouseButtons buttons,
              Qt::MouseEventSource source = Qt::MouseEventNotSynthesized) {
        QMouseEvent event(type, place, surface().mapToGlobal(place), surface().mapToGlobal(place), button,
                          buttons, Qt::NoModifier, source);
        QApplication::sendEvent(&surface(), &event);
    }
    /// Answers whether it was accepted.
    bool pen(QEvent::Type type, const QPointF& place, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QTabletEvent event(type, QPointingDevice::primaryPointingDevice(), place,
                           surface().mapToGlobal(place), 0.5, 0, 0, 0, 0, 0, Qt::NoModifier, button, buttons);
        event.ignore();
        QApplication::sendEvent(&surface(), &event);
        return event.isAccepted();
    }
    void dot(double share) {
        QTest::mouseClick(&surface(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(qRound(surface().width() * share), surface().height() / 2));
    }
    [[nodiscard]] Point at(double x, double y) const {
        return *captured(x, y, surface().width(), surface().height());
    }

    DrawingSheet* sheet = nullptr;
    int saves = 0;
};

TEST_F(DrawingSheetTest, HasASurfaceOf16To9ThatIsNamedInBothLanguages) {
    for (const QSize& size : {QSize(1380, 900), QSize(1000, 680), QSize(640, 900)}) {
        window.resize(size);
        settle();
        EXPECT_EQ(surface().width() * 9, surface().height() * 16);
        EXPECT_TRUE(sheet->rect().contains(QRect(surface().mapTo(sheet, QPoint()), surface().size())));
    }
    EXPECT_EQ(nameOf(*sheet), QStringLiteral("Draw storyboard"));
    EXPECT_EQ(nameOf(surface()), QStringLiteral("Draw storyboard"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&surface())->role(), QAccessible::Canvas);
    for (const char* name : {"Undo stroke", "Clear drawing", "Cancel", "Save storyboard"})
        EXPECT_TRUE(button(*sheet, QString::fromLatin1(name)).isEnabled());
    dot(0.5);
    store->setLanguage("zh");
    settle();
    EXPECT_EQ(nameOf(*sheet), QStringLiteral("绘制分镜"));
    for (const char16_t* name : {u"撤销笔画", u"清空绘图", u"取消", u"保存分镜"})
        EXPECT_TRUE(button(*sheet, QString::fromUtf16(name)).isEnabled());
    EXPECT_EQ(strokes().size(), 1U) << "the language changes no drawing";
}

TEST_F(DrawingSheetTest, AClickIsAStrokeOfOnePointThatShowsAsADot) {
    const QImage empty = surface().grab().toImage();
    QTest::mouseClick(&surface(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 100));
    ASSERT_EQ(strokes().size(), 1U);
    ASSERT_EQ(strokes()[0].points.size(), 1U);
    EXPECT_EQ(strokes()[0].points[0], at(200, 100));
    EXPECT_NE(surface().grab().toImage(), empty);
}

TEST_F(DrawingSheetTest, EachEventOfADragIsAPoint) {
    drag({{100, 100}, {101, 100}, {101, 100}, {300, 220}, {100, 100}});
    ASSERT_EQ(strokes().size(), 1U);
    const std::vector<Point> expected{at(100, 100), at(101, 100), at(101, 100), at(300, 220), at(100, 100)};
    EXPECT_EQ(strokes()[0].points, expected);
    send(QEvent::MouseMove, {50, 50}, Qt::NoButton, Qt::NoButton);
    EXPECT_TRUE(surface().drawing().current().points.empty()) << "nobody is drawing";
}

TEST_F(DrawingSheetTest, ADragThatLeavesTheSurfaceStaysAtItsEdge) {
    drag({{100, 100}, {-50, 120}, {99999, -7}, {40, 99999}});
    const auto& points = strokes().at(0).points;
    ASSERT_EQ(points.size(), 4U);
    EXPECT_EQ(points[1], (Point{0, at(0, 120).y}));
    EXPECT_EQ(points[2], (Point{1, 0}));
    EXPECT_EQ(points[3], (Point{at(40, 0).x, 1}));
}

TEST_F(DrawingSheetTest, OnlyTheMainButtonDraws) {
    QTest::mouseClick(&surface(), Qt::RightButton, Qt::NoModifier, QPoint(100, 100));
    QTest::mouseClick(&surface(), Qt::MiddleButton, Qt::NoModifier, QPoint(100, 100));
    EXPECT_TRUE(strokes().empty());
    QTest::mouseClick(&surface(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    send(QEvent::MouseButtonDblClick, {100, 100}, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, {100, 100}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(strokes().size(), 2U) << "two quick dots are two";
}

TEST_F(DrawingSheetTest, APenDrawsByItsOwnEventsAlone) {
    pen(QEvent::TabletMove, {10, 10}, Qt::NoButton, Qt::NoButton);  // hovering draws nothing
    EXPECT_TRUE(pen(QEvent::TabletPress, {100.25, 50.5}, Qt::LeftButton, Qt::LeftButton));
    send(QEvent::MouseButtonPress, {100, 50}, Qt::LeftButton, Qt::LeftButton,
         Qt::MouseEventSynthesizedBySystem);
    EXPECT_TRUE(pen(QEvent::TabletMove, {110.75, 60.125}, Qt::NoButton, Qt::LeftButton));
    send(QEvent::MouseMove, {110, 60}, Qt::NoButton, Qt::LeftButton, Qt::MouseEventSynthesizedBySystem);
    EXPECT_TRUE(pen(QEvent::TabletRelease, {110.75, 60.125}, Qt::LeftButton, Qt::NoButton));
    send(QEvent::MouseButtonRelease, {110, 60}, Qt::LeftButton, Qt::NoButton,
         Qt::MouseEventSynthesizedBySystem);
    send(QEvent::MouseButtonPress, {110, 60}, Qt::LeftButton, Qt::LeftButton,
         Qt::MouseEventSynthesizedBySystem);
    send(QEvent::MouseButtonRelease, {110, 60}, Qt::LeftButton, Qt::NoButton,
         Qt::MouseEventSynthesizedBySystem);
    ASSERT_EQ(strokes().size(), 1U);
    const std::vector<Point> expected{at(100.25, 50.5), at(110.75, 60.125)};
    EXPECT_EQ(strokes()[0].points, expected) << "places between two pixels are kept";
    dot(0.5);
    EXPECT_EQ(strokes().size(), 2U) << "a real mouse still draws";
}

TEST_F(DrawingSheetTest, AMouseThatTheSystemMakesOfAPenDrawsWhereThePenIsNotToldOf) {
    send(QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton, Qt::LeftButton,
         Qt::MouseEventSynthesizedBySystem);
    send(QEvent::MouseButtonRelease, {10, 10}, Qt::LeftButton, Qt::NoButton,
         Qt::MouseEventSynthesizedBySystem);
    EXPECT_EQ(strokes().size(), 1U);
}

TEST_F(DrawingSheetTest, AFingerDrawsAndASecondOneDoesNot) {
    std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    QTest::touchEvent(&surface(), screen.get()).press(7, {100, 100});
    QTest::touchEvent(&surface(), screen.get()).move(7, {120, 100});
    QTest::touchEvent(&surface(), screen.get()).stationary(7).press(8, {300, 200});
    QTest::touchEvent(&surface(), screen.get()).move(7, {140, 100}).move(8, {310, 200});
    QTest::touchEvent(&surface(), screen.get()).move(7, {2000, 100}).release(8, {310, 200});
    QTest::touchEvent(&surface(), screen.get()).release(7, {2000, 100});
    settle();
    ASSERT_EQ(strokes().size(), 1U);
    const std::vector<Point> expected{at(100, 100), at(120, 100), at(140, 100), at(2000, 100)};
    EXPECT_EQ(strokes()[0].points, expected);
}

TEST_F(DrawingSheetTest, ATouchThatTheSystemTakesAwayKeepsWhatWasDrawn) {
    std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    QTest::touchEvent(&surface(), screen.get()).press(1, {100, 100});
    QTest::touchEvent(&surface(), screen.get()).move(1, {120, 100});
    QTouchEvent cancel(QEvent::TouchCancel, screen.get());
    QApplication::sendEvent(&surface(), &cancel);
    ASSERT_EQ(strokes().size(), 1U);
    EXPECT_EQ(strokes()[0].points.size(), 2U);
}

TEST_F(DrawingSheetTest, AMouseWhoseReleaseWasLostBeginsAnew) {
    QTest::mousePress(&surface(), Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QTest::mousePress(&surface(), Qt::LeftButton, Qt::NoModifier, QPoint(50, 50));
    QTest::mouseRelease(&surface(), Qt::LeftButton, Qt::NoModifier, QPoint(50, 50));
    EXPECT_EQ(strokes().size(), 2U);
}

TEST_F(DrawingSheetTest, UndoAfterAClearBringsAllBackAndThenTakesTheLast) {
    dot(0.2);
    dot(0.4);
    const std::vector<Stroke> two = strokes();
    press(QStringLiteral("Clear drawing"));
    EXPECT_TRUE(strokes().empty());
    press(QStringLiteral("Undo stroke"));
    EXPECT_EQ(strokes(), two);
    press(QStringLiteral("Undo stroke"));
    EXPECT_EQ(strokes(), std::vector<Stroke>(two.begin(), two.begin() + 1));
    for (int more = 0; more < 3; ++more)
        press(QStringLiteral("Undo stroke"));
    EXPECT_TRUE(strokes().empty());
}

TEST_F(DrawingSheetTest, CtrlZTakesAStrokeBackAndNothingOfTheStore) {
    store->markCheckpoint();
    change([](Shot& held) { held.cancelled = true; });
    dot(0.2);
    dot(0.4);
    QTest::keyClick(sheet, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(strokes().size(), 1U);
    QTest::keyClick(sheet, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(sheet, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(strokes().empty());
    EXPECT_TRUE(record().cancelled);
}

TEST_F(DrawingSheetTest, CancelAndEscapeLeaveTheShotAsItWas) {
    setStrokes({Stroke::make({{0.1, 0.1}})});
    const std::vector<Stroke> before = record().strokes;
    sheet->reject();
    for (const bool byKey : {true, false}) {
        present();
        EXPECT_EQ(strokes(), before) << "it starts with what the shot has";
        dot(0.2);
        if (byKey)
            QTest::keyClick(sheet, Qt::Key_Escape);
        else
            press(QStringLiteral("Cancel"));
        EXPECT_FALSE(sheet->isVisible());
        EXPECT_EQ(record().strokes, before);
    }
    EXPECT_EQ(saves, 0);
}

TEST_F(DrawingSheetTest, SaveHandsTheStrokesOverOnceAndCloses) {
    setStrokes({Stroke::make({{0.1, 0.1}})});
    sheet->reject();
    present();
    dot(0.2);
    const std::vector<Stroke> drawn = strokes();
    press(QStringLiteral("Save storyboard"));
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(saves, 1);
    EXPECT_EQ(record().strokes, drawn);
    EXPECT_EQ(drawn.size(), 2U);
    present();
    press(QStringLiteral("Undo stroke"));
    EXPECT_EQ(strokes(), drawn) << "the way back lives as long as the sheet";
}

TEST_F(DrawingSheetTest, SavingWhileAStrokeIsUnderWayKeepsIt) {
    QTest::mousePress(&surface(), Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QTest::keyClick(&button(*sheet, QStringLiteral("Save storyboard")), Qt::Key_Return);
    EXPECT_EQ(record().strokes.size(), 1U);
}

TEST_F(DrawingSheetTest, TheReturnThatOpenedItDoesNotSaveWhileItIsHeld) {
    QTest::simulateEvent(QApplication::focusWidget(), true, Qt::Key_Return, Qt::NoModifier, {}, true);
    EXPECT_TRUE(sheet->isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(saves, 1);
}

TEST_F(DrawingSheetTest, StoresWhatItHoldsWhateverHappenedToTheShotMeanwhile) {
    dot(0.2);
    setStrokes({Stroke::make({{0.9, 0.9}}), Stroke::make({{0.8, 0.8}})});
    settle();
    ASSERT_EQ(strokes().size(), 1U);
    const std::vector<Stroke> drawn = strokes();
    press(QStringLiteral("Save storyboard"));
    EXPECT_EQ(record().strokes, drawn);
}

TEST_F(DrawingSheetTest, SavingForAShotThatHasGoneChangesNothing) {
    dot(0.2);
    removeShot();
    EXPECT_TRUE(sheet->isVisible());
    const Library before = store->library();
    press(QStringLiteral("Save storyboard"));
    EXPECT_EQ(saves, 1);
    EXPECT_TRUE(store->library() == before);
    EXPECT_FALSE(store->error());
}

TEST_F(DrawingSheetTest, ADrawingOfANarrowSheetKeepsItsProportionsOnAWideOne) {
    window.resize(640, 700);
    settle();
    const QSize narrow = surface().size();
    drag({{narrow.width() / 4, narrow.height() / 4}, {narrow.width() / 2, narrow.height() / 2}});
    window.resize(1380, 900);
    settle();
    const QSize wide = surface().size();
    EXPECT_GT(wide.width(), narrow.width());
    const QRect ink = inkIn(surface().grab().toImage(), Palette::light().ink);
    EXPECT_NEAR(ink.left(), wide.width() / 4.0, 3);
    EXPECT_NEAR(ink.top(), wide.height() / 4.0, 3);
    EXPECT_NEAR(ink.right(), wide.width() / 2.0, 3);
    EXPECT_NEAR(ink.bottom(), wide.height() / 2.0, 3);
}

TEST_F(DrawingSheetTest, ShowsTheStrokeWhileItIsDrawn) {
    const auto muted = [&] { return inkIn(surface().grab().toImage(), Palette::light().muted); };
    EXPECT_FALSE(muted().isNull()) << "the placeholder";
    QTest::mousePress(&surface(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    send(QEvent::MouseMove, {300, 200}, Qt::NoButton, Qt::LeftButton);
    EXPECT_NEAR(inkIn(surface().grab().toImage(), Palette::light().ink).right(), 300, 2);
    EXPECT_TRUE(muted().isNull());
    QTest::mouseRelease(&surface(), Qt::LeftButton, Qt::NoModifier, QPoint(300, 200));
    EXPECT_NEAR(inkIn(surface().grab().toImage(), Palette::light().ink).right(), 300, 2);
    press(QStringLiteral("Undo stroke"));
    EXPECT_TRUE(inkIn(surface().grab().toImage(), Palette::light().ink).isNull());
    EXPECT_FALSE(muted().isNull());
}

TEST_F(DrawingSheetTest, TheApplicationJoinsNoEvents) {
    EXPECT_FALSE(QCoreApplication::testAttribute(Qt::AA_CompressHighFrequencyEvents));
    EXPECT_FALSE(QCoreApplication::testAttribute(Qt::AA_CompressTabletEvents));
}

}  // namespace
}  // namespace vantry::test
