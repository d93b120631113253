// Boxes printed at pieces and the walls around them.
#include "layout/printed_box.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

/// Walls on all four sides of a room from x = 0 to 100 and y = 0 to 60.
RoomFit Walls() { return RoomFit({{{0, 0, 0}, {100, 0, 1}, {100, 60, 1}, {0, 60, 1}, {0, 0, 1}}, 0}); }

Track At(const char* codes, float x, float y, float heading = 0) {
    Track track = Chain(codes);
    track.TrackStartX = x;
    track.TrackStartY = y;
    track.TrackStartHeading = heading;
    return track;
}

std::vector<int> Outside(const Track& track) { return BoxesOutside(Pieces(), track, Walls()); }

/// The lap counter's box reaches 0.8 of the track's width of 15.5 cm, 12.4 cm, beyond the edge that the build follows,
/// which lies at the left.
TEST(PrintedBoxes, OfALapCounterReachBeyondItsTrack) {
    EXPECT_EQ(Outside(At("C277", 12, 20)), std::vector<int>{0});
    EXPECT_EQ(Outside(At("C277", 13, 20)), std::vector<int>{});
}

TEST(PrintedBoxes, AreCountedByTheirElements) { EXPECT_EQ(Outside(At("C160 C277", 5, 1)), std::vector<int>{1}); }

TEST(PrintedBoxes, AreNotAtPlainPieces) {
    EXPECT_EQ(Outside(At("C160", -3, 20)), std::vector<int>{}) << "that is another matter";
}

TEST(PrintedBoxes, StandOnTheOtherSideOfATrackThatRunsBack) {
    EXPECT_EQ(Outside(At("C277", 90, 40, 3.14159265F)), std::vector<int>{0});
    EXPECT_EQ(Outside(At("C277", 87, 40, 3.14159265F)), std::vector<int>{});
}

} // namespace
} // namespace pistaro
