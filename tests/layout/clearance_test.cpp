// How near pieces stand to walls and, outside of curves, to other track.
#include "layout/clearance.h"

#include "support/pieces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace pistaro {
namespace {

Ground Laid(const std::string& code, const BuildCursor& cursor = {}) {
    return GroundOf(PlacePiece(Pieces(), code, cursor, "").value());
}

std::optional<double> SlideFrom(const Ground& curve, const Ground& other, double reach) {
    return SlideClearance(curve, other.Box, EdgesOf(other), reach);
}

TEST(Clearance, OfAStraightToTheWallBesideIt) {
    EXPECT_NEAR(WallClearance(Laid("C160"), {{20, -50}, {20, 50}}, 5).value(), 4.5, 1e-6);
    EXPECT_NEAR(WallClearance(Laid("C160"), {{-3, 38}, {-4, 60}}, 5).value(), std::hypot(3, 3), 1e-6);
    EXPECT_FALSE(WallClearance(Laid("C160"), {{20.6, -50}, {20.6, 50}}, 5));
}

TEST(Clearance, OfACurveToAWallIsTakenFromItsArc) {
    // The outer edge of 37.3 cm around -21.8, 0; the wall is a tangent 2 cm beyond it at 22.5 degrees.
    const double angle = 3.14159265 / 8;
    const GroundPoint foot{-21.8 + 39.3 * std::cos(angle), 39.3 * std::sin(angle)};
    const Wall wall{{foot.X + 30 * std::sin(angle), foot.Y - 30 * std::cos(angle)},
                    {foot.X - 30 * std::sin(angle), foot.Y + 30 * std::cos(angle)}};

    EXPECT_NEAR(WallClearance(Laid("C151L"), wall, 5).value(), 2, 0.04);
}

TEST(Clearance, OfASlideIsTheWayFromTheOuterEdge) {
    EXPECT_NEAR(SlideFrom(Laid("C151L"), Laid("C160", {19.5F, 0, 0}), 10).value(), 4, 0.04);
    EXPECT_NEAR(SlideFrom(Laid("C151L"), Laid("C153L", {15.5F, 0, 0}), 10).value(), 0, 0.04) << "laid against it";
    EXPECT_FALSE(SlideFrom(Laid("C151L"), Laid("C160", {25.6F, 0, 0}), 10));
}

TEST(Clearance, OfASlideCountsInTheCurvesOwnSectorAlone) {
    EXPECT_FALSE(SlideFrom(Laid("C151L"), Laid("C160", {19.5F, -36, 0}), 10)) << "before the curve";
    EXPECT_FALSE(SlideFrom(Laid("C151L"), Laid("C160", {-20, 0, 0}), 10)) << "on its inside";
    EXPECT_FALSE(SlideFrom(Laid("C160"), Laid("C160", {19.5F, 0, 0}), 10)) << "beside a straight";
    EXPECT_FALSE(SlideFrom(Laid("C151L"), Laid("C160", {10, 0, 0}), 10)) << "they overlap";
}

TEST(Clearance, OfASlideAgreesWithWalkingAlongTheOuterEdge) {
    std::mt19937 random(3);
    const auto between = [&](double least, double most) {
        return static_cast<float>(least + (most - least) * static_cast<double>(random()) / 4294967295.0);
    };
    int met = 0;
    int near = 0;
    for (int round = 0; round < 600; ++round) {
        const Ground curve = Laid(random() % 2 == 0 ? "C153L" : "C187R");
        const Ground other =
            Laid(random() % 2 == 0 ? "C160" : "C152R", {between(-60, 60), between(-60, 60), between(0, 6)});
        double nearest = 10;
        const double start = std::atan2(curve.From.Y, curve.From.X);
        for (int step = 1; step < 200; ++step) {
            const double angle = start + curve.Turn * step / 200;
            const auto at = [&](double radius) {
                return GroundPoint{curve.Centre.X + radius * std::cos(angle),
                                   curve.Centre.Y + radius * std::sin(angle)};
            };
            for (double depth = 0.4; depth < curve.OuterRadius - curve.InnerRadius; depth += 0.2)
                if (Covers(other, at(curve.OuterRadius - depth))) nearest = -1;
            for (double way = 0; way < nearest; way += 0.05)
                if (Covers(other, at(curve.OuterRadius + way))) nearest = way;
        }
        const std::optional<double> clearance = SlideFrom(curve, other, 10);
        if (nearest < 0) continue; // they overlap, or nearly
        if (nearest < 9.9) {
            ++met;
            ASSERT_TRUE(clearance) << "round " << round << ": " << nearest;
            // A corner may stand between two of the places from which is walked.
            ASSERT_LT(*clearance, nearest + 0.05) << "round " << round;
            ASSERT_GT(*clearance, nearest - 2) << "round " << round;
            near += std::fabs(*clearance - nearest) < 0.2;
        } else if (clearance) {
            ASSERT_GT(*clearance, 9.3) << "round " << round;
        }
    }
    EXPECT_GT(met, 15);
    EXPECT_GE(near, met * 9 / 10);
}

} // namespace
} // namespace pistaro
