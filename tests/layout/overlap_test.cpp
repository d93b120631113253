// Where two pieces cover the same ground, against counting points in both outlines.
#include "layout/overlap.h"

#include "support/pieces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

namespace pistaro {
namespace {

Ground GroundAt(const std::string& code, const BuildCursor& cursor, const std::string& previous = "") {
    return GroundOf(PlacePiece(Pieces(), code, cursor, previous).value());
}

constexpr float East = 3.14159274F * 1.5F; ///< the heading of a track that runs to the right

TEST(Overlap, OfTwoStraightsIsTheirCommonRectangle) {
    EXPECT_NEAR(OverlapArea(GroundAt("C160", {0, 0, 0}), GroundAt("C160", {10, 20, 0})), 5.5 * 15, 1e-4);
    EXPECT_NEAR(OverlapArea(GroundAt("C160", {0, 0, 0}), GroundAt("C158", {2, 5, 0})), 13.5 * 8.75, 1e-4);
    EXPECT_NEAR(OverlapArea(GroundAt("C160", {0, 0, 0}), GroundAt("N10102", {-12, 25, East})), 15.5 * 17.5, 1e-3);
}

TEST(Overlap, OfAPieceWithItselfIsItsArea) {
    EXPECT_NEAR(OverlapArea(GroundAt("C151L", {5, 6, 1}), GroundAt("C151L", {5, 6, 1})), 359.732, 0.02);
    EXPECT_NEAR(OverlapArea(GroundAt("C187R", {5, 6, 1}), GroundAt("C187R", {5, 6, 1})), 449.652 * 56.25 / 57.6, 12);
    EXPECT_NEAR(OverlapArea(GroundAt("N10110", {5, 6, 1}), GroundAt("N10110", {5, 6, 1})), 330, 1e-3);
}

TEST(Overlap, IsNoneBetweenPiecesThatTouch) {
    EXPECT_FALSE(Overlaps(GroundAt("C160", {0, 0, 0}), GroundAt("C160", {15.5F, 10, 0})));
    EXPECT_FALSE(Overlaps(GroundAt("C160", {0, 0, 0}), GroundAt("C151L", {0, 35, 0})));
    EXPECT_FALSE(Overlaps(GroundAt("C151L", {0, 0, 0}), GroundAt("C153L", {15.5F, 0, 0})))
        << "one curve within another";
    EXPECT_FALSE(Overlaps(GroundAt("C156R", {0, 0, 0}), GroundAt("C156L", {-15.5F, 0, 0})));
}

TEST(Overlap, IsToldFromOneSquareCentimetreOn) {
    EXPECT_FALSE(Overlaps(GroundAt("C160", {0, 0, 0}), GroundAt("C160", {15.5F - 0.028F, 0, 0}))) << "0.98 square cm";
    EXPECT_TRUE(Overlaps(GroundAt("C160", {0, 0, 0}), GroundAt("C160", {15.5F - 0.029F, 0, 0}))) << "1.015 square cm";
}

TEST(Overlap, OfAPieceThatLiesWithinAnother) {
    EXPECT_TRUE(Overlaps(GroundAt("C160", {0, 0, 0}), GroundAt("C157", {0, 10, 0})));
    EXPECT_TRUE(Overlaps(GroundAt("C157", {0, 10, 0}), GroundAt("C160", {0, 0, 0})));
}

TEST(Overlap, IsNoneInTheHollowOfACurve) {
    const Ground curve = GroundAt("N10108L", {76.5F, 0, 0}); // around 17.5, 0: a quarter of a ring from 59 to 76.5
    EXPECT_TRUE(curve.Box.Meets(GroundAt("C157", {57, 0, 0}).Box));
    EXPECT_FALSE(Overlaps(curve, GroundAt("C157", {57, 0, 0})));
}

/// The area that both cover by counting the points of a lattice.
double CountedArea(const Ground& a, const Ground& b, double spacing) {
    int points = 0;
    const double right = std::min(a.Box.Right, b.Box.Right);
    const double top = std::min(a.Box.Top, b.Box.Top);
    for (double x = std::max(a.Box.Left, b.Box.Left) + spacing / 2; x <= right; x += spacing) {
        for (double y = std::max(a.Box.Bottom, b.Box.Bottom) + spacing / 2; y <= top; y += spacing)
            points += Covers(a, {x, y}) && Covers(b, {x, y});
    }
    return points * spacing * spacing;
}

TEST(Overlap, AgreesWithCountingPointsOn10000Pairs) {
    std::mt19937 random(15);
    const auto between = [&](double least, double most) {
        return static_cast<float>(least + (most - least) * static_cast<double>(random()) / 4294967295.0);
    };
    int told = 0;
    for (int pair = 0; pair < 10000; ++pair) {
        const auto pick = [&](float reach) {
            const CatalogueEntry& piece =
                Pieces()[static_cast<int>(random() % static_cast<unsigned>(Pieces().Count()))];
            return GroundOf(PlacePiece(piece.Kind,
                                       BuildCursor{between(-reach, reach), between(-reach, reach), between(0, 6.28)},
                                       {.IsNinco = random() % 2 == 0}));
        };
        const Ground a = pick(0);
        const Ground b = pick(45);
        double counted = CountedArea(a, b, 0.5);
        if (counted < 20) counted = CountedArea(a, b, 0.1); // nearer to where it decides what is told
        const double area = OverlapArea(a, b);
        ASSERT_NEAR(area, counted, 0.25 + counted * 0.08) << "pair " << pair;
        ASSERT_NEAR(area, OverlapArea(b, a), 0.05) << "pair " << pair;
        ASSERT_EQ(Overlaps(a, b), area > 1) << "pair " << pair;
        if (std::fabs(counted - 1) > 0.3) {
            ASSERT_EQ(Overlaps(a, b), counted > 1) << "pair " << pair;
        }
        told += area > 1;
    }
    EXPECT_GT(told, 1500);
    EXPECT_LT(told, 8000);
}

TEST(Bridge, LetsAStraightPassThatCrossesItFromSideToSide) {
    const CatalogueEntry& bridge = *Pieces().Find("C248");
    const CatalogueEntry& straight = *Pieces().Find("C160");
    const CatalogueEntry& curve = *Pieces().Find("C151L");
    const Ground over = GroundAt("C248", {0, 0, 0});
    const Ground across = GroundAt("C160", {-10, 25, East});
    EXPECT_TRUE(PassesUnder(bridge, over, straight, across));
    EXPECT_TRUE(PassesUnder(straight, across, bridge, over));
    EXPECT_FALSE(PassesUnder(straight, over, straight, across)) << "no bridge";
    EXPECT_FALSE(PassesUnder(bridge, over, straight, GroundAt("C160", {2, 5, 0}))) << "along it";
    EXPECT_FALSE(PassesUnder(bridge, over, curve, GroundAt("C151L", {-10, 25, East})));
}

} // namespace
} // namespace pistaro
