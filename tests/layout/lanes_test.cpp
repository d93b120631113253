// The two lanes through each piece: how long they are as they are laid, and which is the left one.
#include "layout/placement.h"

#include "support/pieces.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

namespace pistaro {
namespace {

PiecePlacement Placed(const std::string& code, const std::string& previous = "") {
    return PlacePiece(Pieces(), code, {}, previous).value();
}

const Lane& LaneOn(LaneSide side, const PiecePlacement& placement) {
    return placement.Lanes[placement.Lanes[0].Side == side ? 0 : 1];
}

std::string Decimal(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.3f", value);
    return text;
}

/// The lengths of both lanes' segments, the left lane first.
std::string LengthsOf(const std::string& code, const std::string& previous = "") {
    const PiecePlacement placement = Placed(code, previous);
    std::string text;
    for (const LaneSide side : {LaneSide::Left, LaneSide::Right}) {
        text += side == LaneSide::Left ? "left" : ", right";
        for (const Segment& segment : LaneOn(side, placement).Path)
            text += " " + Decimal(LengthOf(segment));
    }
    return text;
}

TEST(Lanes, OfAStraightAreAsLongAsIt) {
    EXPECT_EQ(LengthsOf("C160"), "left 35.000, right 35.000");
    EXPECT_EQ(LengthsOf("N10104"), "left 10.000, right 10.000");
}

TEST(Lanes, OfACurveAreArcsOfItsTrueTurn) {
    EXPECT_EQ(LengthsOf("C151L"), "left 20.106, right 26.311");
    EXPECT_EQ(LengthsOf("C151R"), "left 26.311, right 20.106");
    EXPECT_EQ(LengthsOf("C156R"), "left 28.274, right 15.865") << "90 degrees, whatever the statistics count";
    EXPECT_EQ(LengthsOf("C187L"), "left 24.446, right 32.201");
}

TEST(Lanes, OfTheRightHandBankedCurveAreArcsOf56DegreesLessALittle) {
    EXPECT_EQ(LengthsOf("C187R"), "left 31.979, right 24.277")
        << "55.86 degrees; of 56.25 they were as the left hand's";
}

TEST(Lanes, OfAChangeOverCross) {
    EXPECT_EQ(LengthsOf("C8006"), "left 35.880, right 35.880");

    const PiecePlacement placement = Placed("C8006");
    const auto left = std::get<LineSegment>(LaneOn(LaneSide::Left, placement).Path[0]);
    const auto right = std::get<LineSegment>(LaneOn(LaneSide::Right, placement).Path[0]);
    EXPECT_EQ(left.From, (WorldPoint{3.8F, 0}));
    EXPECT_EQ(left.To, (WorldPoint{11.7F, 35}));
    EXPECT_EQ(right.From, (WorldPoint{11.7F, 0}));
    EXPECT_EQ(right.To, (WorldPoint{3.8F, 35}));
}

TEST(Lanes, OfTheSkidChicaneAreThreeSegmentsEach) {
    EXPECT_EQ(LengthsOf("C8005"), "left 11.975 11.667 11.975, right 11.975 11.667 11.975");
}

TEST(Lanes, OfChicaneAndAdapterSlant) {
    EXPECT_EQ(LengthsOf("C8007"), "left 35.104, right 35.104");
    EXPECT_EQ(LengthsOf("N10110"), "left 20.001, right 20.081");
    EXPECT_EQ(LengthsOf("N10110", "N10102"), "left 20.001, right 20.081");
}

/// Where a lane enters and leaves, in the order of travel.
std::array<WorldPoint, 2> EndsOf(const Lane& lane, bool toTheRight) {
    const Segment& first = lane.Path[0];
    const Segment& last = lane.Path[lane.Path.size() - 1];
    if (const auto* const arc = std::get_if<ArcSegment>(&first)) {
        const WorldPoint start = PointAt(*arc, arc->Start);
        const WorldPoint end = PointAt(*arc, arc->End);
        return toTheRight ? std::array{end, start} : std::array{start, end};
    }
    return {std::get<LineSegment>(first).From, std::get<LineSegment>(last).To};
}

double Between(WorldPoint a, WorldPoint b) { return std::hypot(double{a.X} - b.X, double{a.Y} - b.Y); }

TEST(Lanes, EnterOnTheSideThatTheyAreNamedAfter) {
    for (const CatalogueEntry& piece : Pieces()) {
        const PiecePlacement placement = PlacePiece(piece.Kind, BuildCursor{20, -30, 2}, {});
        const bool right = piece.Kind.Shape == PieceShape::RightCurve;
        const WorldPoint leftEntry = EndsOf(LaneOn(LaneSide::Left, placement), right)[0];
        const WorldPoint rightEntry = EndsOf(LaneOn(LaneSide::Right, placement), right)[0];

        EXPECT_NE(placement.Lanes[0].Side, placement.Lanes[1].Side) << piece.Code;
        EXPECT_NEAR(Between(leftEntry, placement.Corners.Entry), piece.Kind.LaneInset, 1e-3) << piece.Code;
        EXPECT_NEAR(Between(rightEntry, placement.Corners.OtherEntry), piece.Kind.LaneInset, 1e-3) << piece.Code;
    }
}

TEST(Lanes, LeaveOnTheirSideUnlessTheyCross) {
    for (const CatalogueEntry& piece : Pieces()) {
        if (piece.Code == "C187R") continue; // its arcs end before its exit does
        const PiecePlacement placement = PlacePiece(piece.Kind, BuildCursor{20, -30, 2}, {});
        const bool right = piece.Kind.Shape == PieceShape::RightCurve;
        const bool crossed = piece.Kind.Marks == PieceMarks::CrossedLanes;
        const WorldPoint exit = EndsOf(LaneOn(LaneSide::Left, placement), right)[1];

        const bool leftIsNearer = Between(exit, placement.Corners.Exit) < Between(exit, placement.Corners.OtherExit);
        EXPECT_NE(leftIsNearer, crossed) << piece.Code;
        EXPECT_LT(std::min(Between(exit, placement.Corners.Exit), Between(exit, placement.Corners.OtherExit)), 6.51)
            << piece.Code;
    }
}

TEST(Lanes, OfACurveComeInnerFirst) {
    EXPECT_EQ(Placed("C151L").Lanes[0].Side, LaneSide::Left);
    EXPECT_EQ(Placed("C151R").Lanes[0].Side, LaneSide::Right);
    for (const char* const code : {"C151L", "C151R"})
        EXPECT_NEAR(std::get<ArcSegment>(Placed(code).Lanes[0].Path[0]).Radius, 25.6, 1e-5) << code;
}

} // namespace
} // namespace pistaro
