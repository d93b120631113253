// Which pieces lie inside a room: walls, gaps, pillars, angles.
#include "layout/wall_contact.h"

#include "catalogue/track_geometry.h"
#include "support/pieces.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

namespace pistaro {
namespace {

Ground At(const std::string& code, const BuildCursor& cursor) {
    return GroundOf(PlacePiece(Pieces(), code, cursor, "").value());
}

/// A square from -100 to 100.
const std::vector<RoomPoint> Square{{-100, -100, 0}, {100, -100, 1}, {100, 100, 1}, {-100, 100, 1}, {-100, -100, 1}};

std::vector<RoomPoint> With(std::vector<RoomPoint> room, const std::vector<RoomPoint>& more) {
    room.insert(room.end(), more.begin(), more.end());
    return room;
}

bool Holds(const std::vector<RoomPoint>& room, const std::string& code, const BuildCursor& cursor, float angle = 0) {
    return RoomFit({room, angle}).Holds(At(code, cursor));
}

TEST(Room, WithoutLinesHoldsEverything) {
    EXPECT_TRUE(Holds({}, "C160", {5000, 0, 0}));
    EXPECT_TRUE(Holds({{1, 1, 1}}, "C160", {0, 0, 0}));
    EXPECT_TRUE(Holds({{0, 0, 0}, {100, 0, 0}, {0, 100, 0}}, "C160", {-5, -5, 0}));
}

TEST(Room, HoldsWhatLiesWithinItsWalls) {
    EXPECT_TRUE(Holds(Square, "C160", {0, 0, 0}));
    EXPECT_FALSE(Holds(Square, "C160", {95, 0, 0})) << "through the wall";
    EXPECT_FALSE(Holds(Square, "C160", {105, 0, 0})) << "beyond it";
    EXPECT_FALSE(Holds(Square, "C160", {0, 70, 0}));
    EXPECT_FALSE(Holds(Square, "C151L", {-96, -20, 0}));
}

TEST(Room, LetsPiecesTouchItsWalls) {
    EXPECT_TRUE(Holds(Square, "C160", {84.5F, 0, 0}));
    EXPECT_TRUE(Holds(Square, "C160", {84.508F, 0, 0}));
    EXPECT_FALSE(Holds(Square, "C160", {84.52F, 0, 0}));
}

TEST(Room, HasWallsThatWhoAllowsNoTouchReachesIntoByTheLeast) {
    const Wall right{{100, -100}, {100, 100}};
    EXPECT_FALSE(RunsThrough(right, At("C160", {84.5F, 0, 0}), 0));
    EXPECT_TRUE(RunsThrough(right, At("C160", {84.501F, 0, 0}), 0));
    EXPECT_FALSE(RunsThrough(right, At("C160", {84.501F, 0, 0}), 0.01));
}

TEST(Room, IsLeftByACurveThatBulgesOverItsWall) {
    // Of the outmost curve from a heading 11.25 degrees before the axis: both ends lie within, its middle does not.
    const Ground curve = At("N10108L", {82.34F, -11.51F, -0.19635F});
    double farthest = 0;
    for (const GroundPoint corner : curve.Corners)
        farthest = std::max(farthest, corner.X);
    ASSERT_LT(farthest, 100);
    ASSERT_GT(curve.Box.Right, 100);
    EXPECT_FALSE(RoomFit({Square, 0}).Holds(curve));
}

TEST(Room, HasAPillarThatNothingLiesOnOrIn) {
    const auto room = With(Square, {{0, 0, 0}, {6, 0, 1}, {6, 6, 1}, {0, 6, 1}, {0, 0, 1}});
    EXPECT_TRUE(Holds(room, "C160", {10, 0, 0}));
    EXPECT_FALSE(Holds(room, "C160", {-5, -20, 0})) << "the pillar stands within the piece";
    const auto hall = With(Square, {{-60, -60, 0}, {60, -60, 1}, {60, 60, 1}, {-60, 60, 1}, {-60, -60, 1}});
    EXPECT_FALSE(Holds(hall, "C157", {0, 0, 0})) << "the piece lies within the pillar";
    EXPECT_TRUE(Holds(hall, "C157", {65, 0, 0}));
}

TEST(Room, HasAWallThatStandsAlone) {
    const auto room = With(Square, {{0, -50, 0}, {0, 50, 1}});
    EXPECT_FALSE(Holds(room, "C160", {-5, 0, 0}));
    EXPECT_TRUE(Holds(room, "C160", {0, 0, 0})) << "along it";
    const auto post = With(Square, {{3, 3, 0}, {5, 5, 1}});
    EXPECT_FALSE(Holds(post, "C160", {0, 0, 0})) << "shorter than the piece";
}

TEST(Room, WithAGapIsLeftThroughItsWallsOnly) {
    const std::vector<RoomPoint> door{{-100, -100, 0}, {100, -100, 1}, {100, 100, 1}, {-100, 100, 0}, {-100, -100, 1}};
    EXPECT_FALSE(Holds(door, "C160", {95, 0, 0}));
    EXPECT_TRUE(Holds(door, "C160", {0, 80, 0})) << "through the gap";
    EXPECT_TRUE(Holds(door, "C160", {0, 200, 0})) << "beyond it";
    const auto withPillar = With(door, {{0, 0, 0}, {40, 0, 1}, {40, 40, 1}, {0, 40, 1}, {0, 0, 1}});
    EXPECT_TRUE(Holds(withPillar, "C157", {-50, 0, 0}));
    EXPECT_FALSE(Holds(withPillar, "C157", {10, 10, 0}));
}

TEST(Room, TurnsClockwiseWithItsAngle) {
    const float eighth = static_cast<float>(PiValue / 4);
    EXPECT_FALSE(Holds(Square, "C160", {98, 100, 0}, 0));
    EXPECT_TRUE(Holds(Square, "C158", {-7.75F, 120, 0}, eighth)) << "in the corner that points up";
    EXPECT_FALSE(Holds(Square, "C158", {80, 80, 0}, eighth));
    const RoomFit wall({{{0, 0, 0}, {100, 0, 1}}, static_cast<float>(PiValue / 8)});
    ASSERT_EQ(wall.Walls().size(), 1U);
    EXPECT_NEAR(wall.Walls()[0].To.X, 92.388, 0.001);
    EXPECT_NEAR(wall.Walls()[0].To.Y, -38.268, 0.001);
}

TEST(Room, AgreesWithWalkingAlongItsWalls) {
    std::mt19937 random(7);
    const auto coordinate = [&] { return static_cast<std::int16_t>(static_cast<int>(random() % 161) - 80); };
    int outside = 0;
    for (int round = 0; round < 4000; ++round) {
        const RoomPolygon room{{{coordinate(), coordinate(), 0}, {coordinate(), coordinate(), 1}}, 0};
        const CatalogueEntry& piece = Pieces()[static_cast<int>(random() % static_cast<unsigned>(Pieces().Count()))];
        const float heading = static_cast<float>(random() % 6283) / 1000;
        const Ground ground = GroundOf(PlacePiece(piece.Kind, BuildCursor{0, 0, heading}, {}));
        const RoomPoint a = room.Points[0];
        const RoomPoint b = room.Points[1];
        const int steps = 10 * static_cast<int>(1 + std::hypot(b.X - a.X, b.Y - a.Y));
        int within = 0;
        for (int step = 0; step <= steps; ++step)
            within += Covers(ground, {a.X + double(b.X - a.X) * step / steps, a.Y + double(b.Y - a.Y) * step / steps});
        const bool holds = RoomFit(room).Holds(ground);
        ASSERT_FALSE(within > 8 && holds) << "round " << round;
        ASSERT_FALSE(within == 0 && steps > 10 && !holds) << "round " << round;
        outside += !holds;
    }
    EXPECT_GT(outside, 400);
    EXPECT_LT(outside, 3000);
}

} // namespace
} // namespace pistaro
