#include "editor/free_floor.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

/// Two straights, 15.5 x 70 cm, from 0, 0 upwards.
Design TwoStraights() { return ProjectOf("C160 C160").Design; }

TEST(FreeFloor, IsWhereATrackStandsWhenItLiesOverNoOther) {
    Design design = TwoStraights();
    design.Circuit.Tracks[1] = Chain("C160");
    design.Circuit.Tracks[1].TrackStartX = 15.5F;

    EXPECT_EQ(FreeStart(Pieces(), design, 1), (BuildCursor{15.5F, 0, 0})) << "side by side they only touch";
}

TEST(FreeFloor, IsToTheRightOfAllOthers) {
    Design design = TwoStraights();
    design.Circuit.Tracks[1] = Chain("C160");
    design.Circuit.Tracks[1].TrackStartX = 5;

    // 15.5 wide from 5 to 20.5: to 26, 10 beyond 15.5, by whole cm; its middle, 17.5, to about that of the others, 35.
    EXPECT_EQ(FreeStart(Pieces(), design, 1), (BuildCursor{26, 18, 0}));
}

TEST(FreeFloor, IsWithinTheRoomWhereItHasThePlace) {
    Design design = TwoStraights();
    design.Circuit.Tracks[1] = Chain("C160");
    design.Room.Points = {{-60, -10, 0}, {30, -10, 1}, {30, 90, 1}, {-60, 90, 1}, {-60, -10, 1}};

    EXPECT_EQ(FreeStart(Pieces(), design, 1), (BuildCursor{-26, 18, 0})) << "to the left";
}

TEST(FreeFloor, IsToTheRightWhereTheRoomHasNone) {
    Design design = TwoStraights();
    design.Circuit.Tracks[1] = Chain("C160");
    design.Room.Points = {{-5, -5, 0}, {20, -5, 1}, {20, 75, 1}, {-5, 75, 1}, {-5, -5, 1}};

    EXPECT_EQ(FreeStart(Pieces(), design, 1), (BuildCursor{26, 18, 0}));
}

TEST(FreeFloor, IsWhereAnEmptyTrackStands) {
    EXPECT_EQ(FreeStart(Pieces(), TwoStraights(), 2), (BuildCursor{-15.5F, 0, 0}));
}

} // namespace
} // namespace pistaro
