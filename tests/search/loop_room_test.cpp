// What loops keep from walls: held against plain distances of outlines from the walls that are written here.
#include "layout/outline.h"
#include "search/laying.h"
#include "search/loop.h"
#include "search/special_pieces.h"
#include "support/chain.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace pistaro {
namespace {

RoomPolygon Rectangle(std::int16_t width, std::int16_t depth) {
    return {{{0, 0, 0}, {width, 0, 1}, {width, depth, 1}, {0, depth, 1}, {0, 0, 1}}, 0};
}

/// A room with a corner cut off and a pillar of 40 × 40 cm.
RoomPolygon OddRoom() {
    return {{{0, 0, 0},
             {300, 0, 1},
             {300, 160, 1},
             {220, 240, 1},
             {0, 240, 1},
             {0, 0, 1},
             {60, 180, 0},
             {100, 180, 1},
             {100, 220, 1},
             {60, 220, 1},
             {60, 180, 1}},
            0};
}

/// Of a point from the stretch between two others.
double Distance(WorldPoint from, WorldPoint to, WorldPoint point) {
    const double alongX = double{to.X} - from.X, alongY = double{to.Y} - from.Y;
    const double x = double{point.X} - from.X, y = double{point.Y} - from.Y;
    const double part = std::clamp((x * alongX + y * alongY) / (alongX * alongX + alongY * alongY), 0.0, 1.0);
    return std::hypot(x - part * alongX, y - part * alongY);
}

/// The least distance of a circuit's outlines from the room's walls, of which none crosses the other, cm.
double LeastDistance(const Track& track, const RoomPolygon& room) {
    double least = std::numeric_limits<double>::max();
    WalkTrack(Pieces(), track, [&](int, const PiecePlacement* placement, const BuildCursor&) {
        constexpr double fine = 0.001;
        const std::vector<WorldPoint> outline = OutlinePolygon(*placement, fine);
        for (std::size_t i = 1; i < room.Points.size(); ++i) {
            if (room.Points[i].Line != 1) continue;
            const WorldPoint from = RoomCorner(room, room.Points[i - 1]), to = RoomCorner(room, room.Points[i]);
            for (std::size_t k = 0; k < outline.size(); ++k) {
                const WorldPoint here = outline[k], next = outline[(k + 1) % outline.size()];
                least =
                    std::min({least, Distance(from, to, here), Distance(here, next, from), Distance(here, next, to)});
            }
        }
    });
    return least;
}

bool Holds(const char* codes, const BuildCursor& at, double margin) {
    return LoopRoom(Rectangle(200, 200), -margin).Holds(LayLoop(Pieces(), RowsOf(codes), at));
}

TEST(LoopRoom, KeepsTheLeastDistanceOfAPieceFromAWall) {
    EXPECT_TRUE(Holds("C160", {6, 50, 0}, 6));
    EXPECT_FALSE(Holds("C160", {6, 50, 0}, 6.1));
    EXPECT_TRUE(Holds("C160", {0, 50, 0}, 0));
}

/// A circle that lies so that the wall at its left is nearest to the middle of a piece, not to its corners.
TEST(LoopRoom, KeepsThatOfACurvesArcToo) {
    const LaidLoop circle = LayLoop(Pieces(), RowsOf("C151L C151L C151L C151L C151L C151L C151L C151L"),
                                    {100, 100, 22.5F * 3.14159265F / 180});
    const double across = circle.Box.Right - circle.Box.Left;
    const double spare = circle.Box.Left;
    EXPECT_NEAR(across, 74.6, 0.1) << "though its corners are 69 cm apart";

    EXPECT_TRUE(LoopRoom(Rectangle(200, 200), 0.1 - spare).Holds(circle));
    EXPECT_FALSE(LoopRoom(Rectangle(200, 200), -0.1 - spare).Holds(circle));
}

TEST(LoopRoom, IsSmallerByWhatIsKeptFromItsWalls) {
    EXPECT_NEAR(LoopRoom(Rectangle(200, 150)).Width(), 200, 0.1);
    EXPECT_NEAR(LoopRoom(Rectangle(200, 150), -10).Width(), 180, 0.2);
    EXPECT_NEAR(LoopRoom(Rectangle(200, 150), -10).Height(), 130, 0.2);
    EXPECT_LE(LoopRoom(Rectangle(200, 150), -10).Width(), 180);
}

TEST(LoopRoom, HoldsNothingOnGroundThatIsTaken) {
    const LaidLoop straight = LayLoop(Pieces(), RowsOf("C160"), {100, 50, 0});
    const auto holdsBeside = [&](float right) {
        Track other = Chain("C160");
        other.TrackStartX = 100 + right;
        other.TrackStartY = 50;
        return LoopRoom(Rectangle(200, 200), 0, GroundsOf(Pieces(), other)).Holds(straight);
    };

    EXPECT_FALSE(holdsBeside(15)) << "a track is 15.5 cm wide";
    EXPECT_TRUE(holdsBeside(16));
}

TEST(LoopOf, TakesPlainPiecesForSpecialOnes) {
    const ShapeCounts shapes = ShapesOf(Pieces(), BoxOf(Pieces(), "C151=8,C160=2,C159=1,C277=1"));
    const std::vector<LayingStep> steps = StepsOf(Pieces(), shapes);
    const char* const circuit = "C160 C277 C151R C151R C151R C151R C160 C159 C151R C151R C151R C151R";

    const auto loop = LoopOf(Pieces(), steps, shapes, RowsOf(circuit), {});

    ASSERT_TRUE(loop.has_value());
    EXPECT_EQ(RowsOf(steps, loop->Steps),
              RowsOf("C160 C159 C151R C151R C151R C151R C160 C159 C151R C151R C151R C151R"));
}

TEST(LoopOf, TakesNothingThatIsOpenOrThatTheBoxHasNot) {
    const ShapeCounts shapes = ShapesOf(Pieces(), BoxOf(Pieces(), "C151=8,C160=4"));
    const std::vector<LayingStep> steps = StepsOf(Pieces(), shapes);
    const auto takes = [&](const char* codes) {
        return LoopOf(Pieces(), steps, shapes, RowsOf(codes), {}).has_value();
    };

    EXPECT_TRUE(takes("C151L C151L C151L C151L C151L C151L C151L C151L"));
    EXPECT_FALSE(takes("C151L C151L C151L C151L C151L C151L C151L")) << "open";
    EXPECT_FALSE(takes("C159 C159 C151L C151L C151L C151L C159 C159 C151L C151L C151L C151L"));
    EXPECT_FALSE(takes("C160 C160 C160 C151L C151L C151L C151L C160 C160 C160 C151L C151L C151L C151L"));
}

class CircuitsFromWalls : public testing::Test {
protected:
    /// The least distance of the circuits that are laid from the walls.
    double LeastOf(const RoomPolygon& room, int fromWalls) {
        task_.Box = BoxOf(Pieces(), "C151=12,C160=6,C159=2");
        task_.Room = room;
        task_.FromWalls = fromWalls;
        laying_ = LayCircuits(Pieces(), task_, {});
        double least = std::numeric_limits<double>::max();
        for (const LaidCircuit& circuit : laying_.Circuits)
            least = std::min(least, LeastDistance(circuit.Track, room));
        return least;
    }

    LayingTask task_;
    Laying laying_;
};

TEST_F(CircuitsFromWalls, KeepAsFarAsIsWishedInARectangle) {
    EXPECT_LT(LeastOf(Rectangle(240, 160), 0), 8);

    EXPECT_GE(LeastOf(Rectangle(240, 160), 10), 10);

    EXPECT_EQ(laying_.Circuits.size(), 10U);
    EXPECT_EQ(laying_.Circuits.front().Used, 1);
}

TEST_F(CircuitsFromWalls, KeepAsFarFromAPillarAndASlantingWall) {
    EXPECT_LT(LeastOf(OddRoom(), 0), 8);

    constexpr double stray = 0.05; // of an arc from its chords
    EXPECT_GE(LeastOf(OddRoom(), 10), 10 - stray);

    EXPECT_EQ(laying_.Circuits.size(), 10U);
    EXPECT_EQ(laying_.Circuits.front().Used, 1);
}

TEST_F(CircuitsFromWalls, KeepItAroundAPartToo) {
    task_.Kept = TrackPart{RowsOf("C160 C160"), {10, 60, 0}};

    EXPECT_GE(LeastOf(Rectangle(240, 200), 10), 10 - LoopRoom::UsersTouch);

    EXPECT_FALSE(laying_.Circuits.empty()) << "the part lies just so far from the wall at its left";
}

} // namespace
} // namespace pistaro
