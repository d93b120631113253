// What circuits keep from the walls.
#include "search/wall_margin.h"

#include "search/laying.h"
#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

RoomPolygon Rectangle(std::int16_t width, std::int16_t depth) {
    return {{{0, 0, 0}, {width, 0, 1}, {width, depth, 1}, {0, depth, 1}, {0, 0, 1}}, 0};
}

bool Keeps(const char* codes, const BuildCursor& at, double margin) {
    return KeepsFromWalls(LayLoop(Pieces(), RowsOf(codes), at), RoomFit(Rectangle(200, 200)), margin);
}

TEST(WallMargin, IsTheLeastDistanceOfAPiece) {
    EXPECT_TRUE(Keeps("C160", {6, 50, 0}, 6));
    EXPECT_FALSE(Keeps("C160", {6, 50, 0}, 6.1));
    EXPECT_TRUE(Keeps("C160", {0, 50, 0}, 0));
}

/// A circle that lies so that the wall at its left is nearest to the middle of a piece, not to its corners.
TEST(WallMargin, IsThatOfACurvesArcToo) {
    const LaidLoop circle = LayLoop(Pieces(), RowsOf("C151L C151L C151L C151L C151L C151L C151L C151L"),
                                    {100, 100, 22.5F * 3.14159265F / 180});
    const double across = circle.Box.Right - circle.Box.Left;
    const double spare = circle.Box.Left;
    EXPECT_NEAR(across, 74.6, 0.1) << "though its corners are 69 cm apart";

    EXPECT_TRUE(KeepsFromWalls(circle, RoomFit(Rectangle(200, 200)), spare - 0.1));
    EXPECT_FALSE(KeepsFromWalls(circle, RoomFit(Rectangle(200, 200)), spare + 0.1));
}

TEST(WallMargin, IsKeptByAllCircuitsThatAreLaid) {
    LayingTask task;
    task.Box = BoxOf(Pieces(), "C151=12,C160=6,C159=2");
    task.Room = Rectangle(240, 160);
    task.FromWalls = 10;

    const Laying laying = LayCircuits(Pieces(), task, {});

    ASSERT_EQ(laying.Circuits.size(), 10U);
    for (const LaidCircuit& circuit : laying.Circuits) {
        std::string codes;
        for (const std::string& code : circuit.Track.ElementCodes)
            codes += code + " ";
        const GroundBox box = LayLoop(Pieces(), RowsOf(codes), circuit.Track.Start()).Box;
        EXPECT_GE(box.Left, 10);
        EXPECT_LE(box.Right, 230);
        EXPECT_GE(box.Bottom, 10);
        EXPECT_LE(box.Top, 150);
    }
}

} // namespace
} // namespace pistaro
