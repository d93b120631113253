#include "paper/box.h"

#include <gtest/gtest.h>

#include <numbers>

namespace pistaro {
namespace {

constexpr float Quarter = static_cast<float>(std::numbers::pi / 2);

void ExpectNear(const Box& box, const Box& expected) {
    EXPECT_NEAR(box.Left, expected.Left, 1e-4);
    EXPECT_NEAR(box.Bottom, expected.Bottom, 1e-4);
    EXPECT_NEAR(box.Right, expected.Right, 1e-4);
    EXPECT_NEAR(box.Top, expected.Top, 1e-4);
}

TEST(Box, OfALineReachesFromEndToEnd) { ExpectNear(BoxOf(LineSegment{{3, 8}, {-1, 2}}), {-1, 2, 3, 8}); }

TEST(Box, OfAnArcHoldsTheQuarterTurnsThatItPasses) {
    ExpectNear(BoxOf(ArcSegment{{0, 0}, 10, Quarter / 2, Quarter * 1.5F}), {-7.07107, 7.07107, 7.07107, 10});
    ExpectNear(BoxOf(ArcSegment{{5, 5}, 10, Quarter * 3.5F, Quarter / 2}), {12.07107, -2.07107, 15, 12.07107});
}

TEST(Box, OfAnEllipseIsFlatterByItsAspect) { ExpectNear(BoxOf(Ellipse{{1, 1}, 4, 0.5}), {-3, -1, 5, 3}); }

TEST(Box, AroundNothingIsEmptyUntilSomethingIsIncluded) {
    Box box;
    EXPECT_TRUE(box.IsEmpty());

    box.Include(BoxOf(WorldPoint{2, 3}));
    EXPECT_FALSE(box.IsEmpty());
    EXPECT_EQ(box.Width(), 0);
}

TEST(Boxes, MeetWhereTheyTouch) {
    const Box box{0, 0, 10, 10};
    EXPECT_TRUE(box.Meets({10, 10, 20, 20}));
    EXPECT_FALSE(box.Meets({10.1, 0, 20, 10}));
    EXPECT_FALSE(box.Meets({0, -5, 10, -0.1}));
}

} // namespace
} // namespace pistaro
