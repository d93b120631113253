#include "paper/clear_places.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(ABox, IsClearOfStrokesBetweenThemAndNotWhereOneRunsThrough) {
    // A straight of 15.5 x 35 cm, its lanes at 3.875 and 11.625.
    const CircuitDrawing drawing = DrawingOf(Pieces(), ProjectOf("C160"), {});

    EXPECT_TRUE(IsClearOfStrokes(drawing, {5, 10, 11, 20}));
    EXPECT_TRUE(IsClearOfStrokes(drawing, {16, 0, 30, 35}));
    EXPECT_FALSE(IsClearOfStrokes(drawing, {3, 10, 5, 20})) << "a lane";
    EXPECT_FALSE(IsClearOfStrokes(drawing, {5, 34, 11, 36})) << "the end";
    EXPECT_FALSE(IsClearOfStrokes(drawing, {-50, -50, 50, 50}));
}

TEST(ABox, IsNotClearOnABendOrAWall) {
    Project project = ProjectOf("C151R C151R"); // to the right
    const CircuitDrawing drawing = DrawingOf(Pieces(), project, {});
    const DrawnPiece& bend = drawing.Pieces[0];
    const WorldPoint exit = bend.Placement.Corners.Exit;
    EXPECT_FALSE(IsClearOfStrokes(drawing, BoxAround(exit.X, exit.Y, 1, 1)));

    project.Design.Room.Points = {{500, 500, 0}, {700, 500, 1}};
    const CircuitDrawing withRoom = DrawingOf(Pieces(), project, {.Room = true});
    EXPECT_TRUE(IsClearOfStrokes(drawing, {590, 490, 610, 510}));
    EXPECT_FALSE(IsClearOfStrokes(withRoom, {590, 490, 610, 510}));
}

TEST(TheClearestBox, IsTheFirstOneWithNothingInItOrElseTheFirst) {
    const CircuitDrawing drawing = DrawingOf(Pieces(), ProjectOf("C160"), {});
    const Box onLane{3, 10, 5, 20}, taken{20, 0, 25, 5}, clear{30, 0, 35, 5}, alsoClear{40, 0, 45, 5};

    EXPECT_EQ(ClearestOf({onLane, taken, clear, alsoClear}, drawing, {{24, 4, 26, 6}}), clear);
    EXPECT_EQ(ClearestOf({onLane, taken}, drawing, {{24, 4, 26, 6}}), onLane);
}

} // namespace
} // namespace pistaro
