#include "Vantry/interface/shots/Drawing.h"

#include <cmath>
#include <limits>
#include <set>

#include <gtest/gtest.h>

namespace vantry::test {
namespace {

void drawDot(Drawing& drawing, double x) {
    EXPECT_TRUE(drawing.draw(x, 1, 100, 100));
    EXPECT_TRUE(drawing.endStroke());
}

TEST(Drawing, TakesALocationAsFractionsAndBringsItToTheEdge) {
    EXPECT_EQ(captured(320, 90, 640, 360), (Point{0.5, 0.25}));
    EXPECT_EQ(captured(-1, 500, 640, 360), (Point{0, 1}));
    EXPECT_EQ(captured(std::numeric_limits<double>::infinity(), 0, 640, 360), (Point{1, 0}));
    EXPECT_FALSE(std::signbit(captured(-0.0, -3, 640, 360)->x));
}

TEST(Drawing, KnowsNoPointWhereNumbersOrTheSurfaceHaveNone) {
    const double none = std::nan("");
    for (const auto& [x, y, width, height] : std::vector<std::array<double, 4>>{{1, 1, 0, 360},
                                                                                {1, 1, 640, 0},
                                                                                {1, 1, -640, 360},
                                                                                {1, 1, none, 360},
                                                                                {none, 1, 640, 360},
                                                                                {1, none, 640, 360}}) {
        Drawing drawing;
        EXPECT_FALSE(drawing.draw(x, y, width, height));
        EXPECT_FALSE(drawing.endStroke());
        EXPECT_TRUE(drawing.strokes().empty());
    }
}

TEST(Drawing, KeepsEveryPointInOrder) {
    Drawing drawing;
    const std::vector<double> places{10, 10, 10, 90, 10, 50};
    for (const double x : places)
        drawing.draw(x, 20, 100, 100);
    EXPECT_EQ(drawing.current().points.size(), places.size());
    EXPECT_TRUE(drawing.strokes().empty());
    drawing.endStroke();
    ASSERT_EQ(drawing.strokes().size(), 1U);
    for (std::size_t index = 0; index < places.size(); ++index)
        EXPECT_EQ(drawing.strokes()[0].points[index], (Point{places[index] / 100, 0.2}));
    EXPECT_TRUE(drawing.current().points.empty());
}

TEST(Drawing, GivesEachStrokeAnIdentityOfItsOwn) {
    Drawing drawing;
    for (int count = 0; count < 20; ++count)
        drawDot(drawing, count);
    std::set<std::string> ids{drawing.current().id.text()};
    for (const Stroke& stroke : drawing.strokes())
        ids.insert(stroke.id.text());
    EXPECT_EQ(ids.size(), 21U);
}

TEST(Drawing, UndoAfterAClearBringsAllStrokesBackAndThenTakesTheLast) {
    const std::vector<Stroke> before{Stroke::make({{0, 0}}), Stroke::make({{1, 1}})};
    Drawing drawing(before);
    drawDot(drawing, 1);
    const std::vector<Stroke> three = drawing.strokes();
    drawing.clear();
    EXPECT_TRUE(drawing.strokes().empty());
    drawing.undo();
    EXPECT_EQ(drawing.strokes(), three);
    drawing.undo();
    EXPECT_EQ(drawing.strokes(), before);
    drawing.undo();
    EXPECT_EQ(drawing.strokes(), before) << "what it began with is no step";
}

TEST(Drawing, AClearOfNothingIsAStepToo) {
    Drawing drawing;
    drawDot(drawing, 1);
    const std::vector<Stroke> one = drawing.strokes();
    drawing.clear();
    drawing.clear();
    drawing.undo();
    EXPECT_TRUE(drawing.strokes().empty());
    drawing.undo();
    EXPECT_EQ(drawing.strokes(), one);
}

TEST(Drawing, GoesBackThroughAnyRowOfSteps) {
    Drawing drawing;
    std::vector<std::vector<Stroke>> states;
    for (int step = 0; step < 3000; ++step) {
        states.push_back(drawing.strokes());
        if (step % 97 == 96)
            drawing.clear();
        else
            drawDot(drawing, step % 100);
    }
    while (!states.empty()) {
        drawing.undo();
        ASSERT_EQ(drawing.strokes(), states.back());
        states.pop_back();
    }
}

}  // namespace
}  // namespace vantry::test
