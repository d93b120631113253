// Lengths and points of lines and arcs.
#include "layout/shapes.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(Length, OfALineIsTheWayFromEndToEnd) {
    EXPECT_DOUBLE_EQ(LengthOf(LineSegment{{1, 2}, {4, 6}}), 5);
    EXPECT_DOUBLE_EQ(LengthOf(LineSegment{{4, 6}, {4, 6}}), 0);
}

TEST(Length, OfAnArcIsThatOfItsSpan) {
    EXPECT_NEAR(LengthOf(ArcSegment{{50, -3}, 10, 1, 3}), 20, 1e-6);
    EXPECT_NEAR(LengthOf(ArcSegment{{50, -3}, 10, 6, 0.5F}), 7.8318531, 1e-6) << "through angle 0";
}

TEST(Span, OfAnArcWhoseStartIsTheGreaterGoesThroughZero) {
    EXPECT_NEAR(SpanOf({{0, 0}, 1, 6, 0.25F}), 0.5331853, 1e-6);
    EXPECT_EQ(SpanOf({{0, 0}, 1, 2, 2}), 0);
}

TEST(PointAt, IsAPointOfTheArcsCircle) {
    const ArcSegment arc{{10, 20}, 5, 0, 1};

    EXPECT_EQ(PointAt(arc, 0), (WorldPoint{15, 20}));
    EXPECT_NEAR(PointAt(arc, 1.5707963267948966).X, 10, 1e-6);
    EXPECT_NEAR(PointAt(arc, 1.5707963267948966).Y, 25, 1e-6);
}

} // namespace
} // namespace pistaro
