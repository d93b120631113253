// The areas of a piece's bed, by their measures.
#include "render/track_bed.h"

#include "support/chain.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace pistaro {
namespace {

constexpr Colour Asphalt = Rgb(0x58, 0x5E, 0x67);
constexpr Colour LeftRail = Rgb(0xFF, 0xD5, 0x4A);
constexpr Colour RightRail = Rgb(0x7F, 0xD6, 0xFF);
constexpr Colour Slot = Rgb(0x20, 0x23, 0x27);
constexpr Colour KerbRed = Rgb(0xC8, 0x3C, 0x36);

/// By the trapezoids below its edges.
double SizeOf(const FilledArea& area) {
    double sum = 0;
    for (std::size_t at = 0; at < area.Polygon.size(); ++at) {
        const WorldPoint from = area.Polygon[at];
        const WorldPoint to = area.Polygon[(at + 1) % area.Polygon.size()];
        sum += double{from.X} * to.Y - double{to.X} * from.Y;
    }
    return std::fabs(sum) / 2;
}

double SizeOfAll(const std::vector<FilledArea>& areas, Colour fill) {
    double sum = 0;
    for (const FilledArea& area : areas)
        sum += area.Fill == fill ? SizeOf(area) : 0;
    return sum;
}

PiecePlacement Placed(const char* code) { return *PlacePiece(Pieces(), code, BuildCursor{}, ""); }

TEST(TheBedOfAStraight, IsAsLargeAsThePieceAndHasTwoLanesOfRailsAndSlots) {
    const auto bed = BedOf(Placed("C160"), false);

    EXPECT_NEAR(SizeOfAll(bed, Asphalt), 35 * 15.5, 0.01);
    EXPECT_NEAR(SizeOfAll(bed, LeftRail), 35 * 1.3, 0.01);
    EXPECT_NEAR(SizeOfAll(bed, RightRail), 35 * 1.3, 0.01);
    EXPECT_NEAR(SizeOfAll(bed, Slot), 2 * 35 * 0.5, 0.01);
    EXPECT_EQ(SizeOfAll(bed, KerbRed), 0);
}

TEST(TheBedOfACurve, HasAKerbOfRedAndWhiteAlongItsOuterEdge) {
    const auto bed = BedOf(Placed("C151L"), false);

    const double whole = 3.14159265 / 4 * (37.3 - 0.6) * 1.2;
    EXPECT_NEAR(SizeOfAll(bed, Rgb(0xF2, 0xF2, 0xF0)), whole, 0.02 * whole);
    EXPECT_NEAR(SizeOfAll(bed, KerbRed), whole / 2, 0.02 * whole) << "every other block";
}

TEST(TheBedOfATracksFirstPiece, HasTheChequeredLineAndAnArrow) {
    const auto bed = BedOf(Placed("C160"), true);

    EXPECT_EQ(std::ranges::count(bed, Rgb(0, 0, 0), &FilledArea::Fill), 10) << "black squares";
    EXPECT_NEAR(SizeOfAll(bed, Rgb(0, 0, 0)), 15.5 * 1.55, 0.01) << "half the line";
    EXPECT_EQ(BedOf(Placed("C160"), false).size() + 12, bed.size());
}

} // namespace
} // namespace pistaro
