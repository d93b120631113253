// How far pieces reach.
#include "layout/piece_extent.h"
#include "support/pieces.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

void ExpectExtent(const char* code, float left, float right, float bottom, float top) {
    const PieceExtent extent = ExtentOf(PlacePiece(Pieces(), code, {}, "").value());
    EXPECT_NEAR(extent.Left, left, 1e-3) << code;
    EXPECT_NEAR(extent.Right, right, 1e-3) << code;
    EXPECT_NEAR(extent.Bottom, bottom, 1e-3) << code;
    EXPECT_NEAR(extent.Top, top, 1e-3) << code;
}

TEST(PieceExtent, IsAStraightsWidthAndLength) { ExpectExtent("C160", 0, 15.5F, 0, 35); }

TEST(PieceExtent, ReachesFromACurvesEntryToItsFarthestCorners) {
    ExpectExtent("C151L", -6.3851F, 15.5F, 0, 26.3751F);
    ExpectExtent("C156R", 0, 21.8F, 0, 21.8F);
}

TEST(PieceExtent, HoldsTheBoxOfTheLapCounter) { ExpectExtent("C277", -12.4F, 15.5F, 0, 17.5F); }

TEST(PieceExtent, HasItsMiddleBetweenItsSides) {
    const WorldPoint middle = ExtentOf(PlacePiece(Pieces(), "C277", {}, "").value()).Middle();
    EXPECT_FLOAT_EQ(middle.X, 1.55F);
    EXPECT_FLOAT_EQ(middle.Y, 8.75F);
}

} // namespace
} // namespace pistaro
