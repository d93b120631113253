// The gap from a track's end to its start.
#include "layout/track_gap.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(Gap, OfACircleIsNone) {
    const TrackGap gap = GapOf(Pieces(), Chain("C151R C151R C151R C151R C151R C151R C151R C151R"));

    EXPECT_NEAR(gap.Distance, 0, 0.001);
    EXPECT_NEAR(gap.Angle, 0, 1e-5);
}

TEST(Gap, IsTheWayFromTheEndToTheStart) {
    EXPECT_EQ(GapOf(Pieces(), Chain("C160")).Distance, 35);
    EXPECT_EQ(GapOf(Pieces(), Chain("C160")).Angle, 0);
    EXPECT_EQ(GapOf(Pieces(), Chain("")).Distance, 0);
}

TEST(Gap, ItsAngleIsTheShortWayRound) {
    EXPECT_NEAR(GapOf(Pieces(), Chain("C151L")).Angle, 0.785398, 1e-5);
    EXPECT_NEAR(GapOf(Pieces(), Chain("C151R")).Angle, -0.785398, 1e-5) << "the heading itself is 5.5 then";

    Track track = Chain("C151L");
    track.TrackStartHeading = 6;
    EXPECT_NEAR(GapOf(Pieces(), track).Angle, 0.785398, 1e-5);
}

TEST(Gap, OfABankedCircuitIsThatOfItsTrueAngle) {
    EXPECT_NEAR(GapOf(Pieces(), Chain("C187L C187L C187L C187L C187L C187L")).Angle, -0.392699, 1e-5)
        << "six banked curves turn by 337.5 degrees, whatever their name says";
}

} // namespace
} // namespace pistaro
