// The polygon around a piece's track bed.
#include "layout/outline.h"

#include "support/pieces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace pistaro {
namespace {

using Polygon = std::vector<WorldPoint>;

Polygon OutlineOf(const std::string& code, double tolerance, const BuildCursor& cursor = {},
                  const std::string& previous = "") {
    return OutlinePolygon(PlacePiece(Pieces(), code, cursor, previous).value(), tolerance);
}

void ExpectNear(const Polygon& polygon, const Polygon& expected) {
    ASSERT_EQ(polygon.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(polygon[i].X, expected[i].X, 1e-4) << i;
        EXPECT_NEAR(polygon[i].Y, expected[i].Y, 1e-4) << i;
    }
}

/// Above 0 where the polygon runs anticlockwise.
double AreaOf(const Polygon& polygon) {
    double twice = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const WorldPoint a = polygon[i];
        const WorldPoint b = polygon[(i + 1) % polygon.size()];
        twice += double{a.X} * b.Y - double{b.X} * a.Y;
    }
    return twice / 2;
}

TEST(Outline, OfAStraightIsItsFourCornersAlongTheReferenceEdgeAndBack) {
    ExpectNear(OutlineOf("C160", 0.1), {{0, 0}, {0, 35}, {15.5F, 35}, {15.5F, 0}});
}

TEST(Outline, OfAnAdapterHasTwoUnequalEnds) {
    ExpectNear(OutlineOf("N10110", 0.1), {{0, 0}, {0, 20}, {17.5F, 20}, {15.5F, 0}});
    ExpectNear(OutlineOf("N10110", 0.1, {}, "N10102"), {{0, 0}, {0, 20}, {15.5F, 20}, {17.5F, 0}});
}

TEST(Outline, LeavesMarksOut) {
    ExpectNear(OutlineOf("C277", 0.1), {{0, 0}, {0, 17.5F}, {15.5F, 17.5F}, {15.5F, 0}});
    ExpectNear(OutlineOf("C248", 0.1), {{0, 0}, {0, 35}, {15.5F, 35}, {15.5F, 0}});
}

TEST(Outline, OfACurveIsItsFourCornersWhereNoMoreIsAskedFor) {
    ExpectNear(OutlineOf("C156L", 1000), {{0, 0}, {-6.3F, 6.3F}, {-6.3F, 21.8F}, {15.5F, 0}});
    ExpectNear(OutlineOf("C156R", 1000), {{0, 0}, {21.8F, 21.8F}, {21.8F, 6.3F}, {15.5F, 0}});
}

TEST(Outline, OfACurveHasAsManyChordsAsItsToleranceAsksFor) {
    // The inner edge strays 1.845 from one chord and .480 from each of two, the outer one 6.385, 1.659, .742 from one,
    // two, three.
    ExpectNear(OutlineOf("C156L", 1), {{0, 0},
                                       {-1.845184F, 4.454815F},
                                       {-6.3F, 6.3F},
                                       {-6.3F, 21.8F},
                                       {4.6F, 18.879354F},
                                       {12.579354F, 10.9F},
                                       {15.5F, 0}});
}

TEST(Outline, OfACurveStaysWithinTheTolerance) {
    for (const double tolerance : {5.0, 0.5, 0.1, 0.013, 0.001}) {
        for (const CatalogueEntry& piece : Pieces()) {
            if (piece.IsStraight()) continue;
            const PiecePlacement placement = PlacePiece(piece.Kind, BuildCursor{10, 20, 3}, {});
            const ArcSegment edge = std::get<ArcSegment>(placement.Outline[0]);
            const Polygon polygon = OutlinePolygon(placement, tolerance);
            for (std::size_t i = 0; i < polygon.size(); ++i) {
                const WorldPoint a = polygon[i];
                const WorldPoint b = polygon[(i + 1) % polygon.size()];
                if (b == placement.Corners.OtherExit || b == placement.Corners.Entry) continue; // a joint, no edge
                const double middle =
                    std::hypot((double{a.X} + b.X) / 2 - edge.Centre.X, (double{a.Y} + b.Y) / 2 - edge.Centre.Y);
                const double strays =
                    std::min(std::fabs(piece.Kind.InnerRadius - middle), std::fabs(piece.Kind.OuterRadius - middle));
                ASSERT_LE(strays, tolerance + 1e-4) << piece.Code << ", chord " << i << " at " << tolerance;
            }
        }
    }
}

TEST(Outline, RunsClockwiseAroundTheTrueAreaOfEveryPiece) {
    for (const CatalogueEntry& piece : Pieces()) {
        const PieceKind& kind = piece.Kind;
        const double ring = (kind.OuterRadius * kind.OuterRadius - kind.InnerRadius * kind.InnerRadius) / 2;
        double area = piece.IsStraight() ? kind.Length * kind.Width : ring * kind.Turn;
        if (piece.Code == "N10110") area = 330; // 20 cm of 15.5 cm that become 17.5
        for (const float heading : {0.0F, 1.0F, 2.5F, 4.0F, 6.2F})
            EXPECT_NEAR(AreaOf(OutlineOf(piece.Code, 0.01, {-40, 70, heading})), -area, area / 1000)
                << piece.Code << " at " << heading;
    }
}

TEST(Outline, OfACurveHasItsAreaInFigures) {
    EXPECT_NEAR(AreaOf(OutlineOf("C151L", 0.01)), -359.732, 0.3);
    EXPECT_NEAR(AreaOf(OutlineOf("C187R", 0.01)), -439.013, 0.4) << "of 56.25 degrees: its arcs are drawn shorter";
}

} // namespace
} // namespace pistaro
