// Lanes as built: followed through change-overs, and equal to a separate integration of what is drawn.
#include "layout/built_lanes.h"

#include "layout/placement.h"
#include "support/chain.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace pistaro {
namespace {

BuiltLanes Built(const std::string& codes) { return LanesAsBuilt(Pieces(), Chain(codes)); }

TEST(BuiltLanes, OfAnOvalDifferByAFullTurnOfTheirDistance) {
    const BuiltLanes lanes = Built("C160 C151R C151R C151R C151R C160 C151R C151R C151R C151R");

    EXPECT_NEAR(lanes.Lengths[0], 2 * 35 + 210.487, 0.001);
    EXPECT_NEAR(lanes.Lengths[1], 2 * 35 + 160.850, 0.001);
    EXPECT_FALSE(lanes.Joined);
    EXPECT_EQ(lanes.Laps(), 1);
}

TEST(BuiltLanes, AreFollowedThroughAChangeOver) {
    const BuiltLanes lanes = Built("C151R C8006 C151R");

    EXPECT_NEAR(lanes.Pieces[0].Lengths[0], 26.311, 0.001);
    EXPECT_NEAR(lanes.Pieces[1].Lengths[0], 35.880, 0.001);
    EXPECT_NEAR(lanes.Pieces[2].Lengths[0], 20.106, 0.001) << "the lane that began on the left is the right one now";
    EXPECT_FALSE(lanes.Pieces[1].Swapped);
    EXPECT_TRUE(lanes.Pieces[2].Swapped);
    EXPECT_NEAR(lanes.Lengths[0], 82.297, 0.001);
    EXPECT_NEAR(lanes.Lengths[1], 82.297, 0.001);
}

TEST(BuiltLanes, AreJoinedToTwoLapsByAnOddNumberOfChangeOvers) {
    EXPECT_EQ(Built("N10111").Laps(), 2);
    EXPECT_EQ(Built("C8006 N10110 N10111").Laps(), 1);
}

TEST(BuiltLanes, AreAsLongAsDrawnWhereTheCatalogueSaysOtherwise) {
    EXPECT_NEAR(Built("C156L").Lengths[0], 15.865, 0.001);
    EXPECT_NEAR(Built("N10107L").Lengths[0], 17.868, 0.001);
    EXPECT_NEAR(Built("N10108R").Lengths[0], 28.471, 0.001);
    EXPECT_NEAR(Built("C187R").Lengths[0], 31.979, 0.001);
}

TEST(BuiltLanes, HaveThePathsOfTheSameTwoLanes) {
    const auto paths = LanePaths(Pieces(), Chain("C160 C8006 C160"));

    ASSERT_EQ(paths[0].size(), 3U);
    EXPECT_EQ(std::get<LineSegment>(paths[0][0]).From, (WorldPoint{3.8F, 0}));
    EXPECT_EQ(std::get<LineSegment>(paths[0][2]).To, (WorldPoint{11.7F, 105}));
    EXPECT_EQ(std::get<LineSegment>(paths[1][2]).To, (WorldPoint{3.8F, 105}));
}

TEST(BuiltLanes, PassOverUnknownCodes) {
    const BuiltLanes lanes = Built("C160 C999 C160");

    ASSERT_EQ(lanes.Pieces.size(), 3U);
    EXPECT_EQ(lanes.Pieces[1].Lengths[0], 0);
    EXPECT_DOUBLE_EQ(lanes.Lengths[0], 70);
}

/// How long a drawn segment is by the chords of a thousand of its points.
double Integrated(const Segment& segment) {
    if (const auto* const line = std::get_if<LineSegment>(&segment))
        return std::hypot(double{line->To.X} - line->From.X, double{line->To.Y} - line->From.Y);
    const auto& arc = std::get<ArcSegment>(segment);
    double end = arc.End;
    if (end < arc.Start) end += 2 * std::acos(-1.0);
    constexpr int chords = 1000;
    double length = 0;
    const auto at = [&](int chord) { return double{arc.Start} + (end - arc.Start) * chord / chords; };
    for (int chord = 0; chord < chords; ++chord)
        length += arc.Radius * std::hypot(std::cos(at(chord + 1)) - std::cos(at(chord)),
                                          std::sin(at(chord + 1)) - std::sin(at(chord)));
    return length;
}

TEST(BuiltLanes, EqualAnIntegrationOfTheDrawnStrokesToATenthOfAMillimetreOn500RandomCircuits) {
    std::mt19937 random(20);
    for (int circuit = 0; circuit < 500; ++circuit) {
        Track track{{}, 3, -7, static_cast<float>(random() % 6)};
        const std::size_t size = 1 + random() % 60;
        while (track.ElementCodes.size() < size)
            track.ElementCodes.push_back(Pieces()[static_cast<int>(random() % 39)].Code);

        double left = 0; // the lane that began on the left, by the place at which it leaves each piece
        double right = 0;
        bool swapped = false;
        WalkTrack(Pieces(), track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
            for (const Lane& lane : placement->Lanes) {
                double& sum = (lane.Side == LaneSide::Left) != swapped ? left : right;
                for (const Segment& segment : lane.Path)
                    sum += Integrated(segment);
            }
            const std::string& code = track.ElementCodes[static_cast<std::size_t>(element)];
            if (code == "C8006" || code == "N10111") swapped = !swapped;
        });
        const BuiltLanes lanes = LanesAsBuilt(Pieces(), track);

        ASSERT_NEAR(lanes.Lengths[0], left, 0.01) << "circuit " << circuit;
        ASSERT_NEAR(lanes.Lengths[1], right, 0.01) << "circuit " << circuit;
        ASSERT_EQ(lanes.Joined, swapped);
    }
}

} // namespace
} // namespace pistaro
