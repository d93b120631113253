// Exits alone, which must be those of whole placements to the bit.
#include "layout/exit.h"

#include "layout/placement.h"
#include "support/pieces.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <random>

namespace pistaro {
namespace {

/// Whether all bits are alike, so that a minus zero or a last digit shows.
bool AreTheSame(const Pose& a, const Pose& b) {
    const auto same = [](float x, float y) {
        return std::bit_cast<std::uint32_t>(x) == std::bit_cast<std::uint32_t>(y);
    };
    const auto sameDouble = [](double x, double y) {
        return std::bit_cast<std::uint64_t>(x) == std::bit_cast<std::uint64_t>(y);
    };
    return same(a.CursorX, b.CursorX) && same(a.CursorY, b.CursorY) && same(a.CursorHeading, b.CursorHeading) &&
           sameDouble(a.Across.X, b.Across.X) && sameDouble(a.Across.Y, b.Across.Y);
}

TEST(Exit, OfEveryPieceFromAnywhereIsThatOfItsPlacementToTheBit) {
    const auto seed = std::random_device{}();
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> places(-2000, 2000);
    std::uniform_real_distribution<float> headings(-1, 7.5F);
    for (int i = 0; i < 10000; ++i) {
        const Pose entry = BuildCursor{places(random), places(random), headings(random)};
        for (const CatalogueEntry& piece : Pieces()) {
            const Predecessor before{.IsNinco = random() % 2 == 0, .LanesTogether = random() % 2 == 0};

            ASSERT_TRUE(AreTheSame(ExitOf(piece.Kind, entry), PlacePiece(piece.Kind, entry, before).Exit))
                << "seed " << seed << ", cursor " << i << ", " << piece.Code;
        }
    }
}

TEST(Exit, ChainsOfExitsEndWhereWalkedTracksDo) {
    const auto seed = std::random_device{}();
    std::mt19937 random(seed);
    for (int chain = 0; chain < 100; ++chain) {
        Track track;
        Pose pose = track.Start();
        for (int i = 0; i < MaxElements; ++i) {
            const CatalogueEntry& piece = Pieces()[static_cast<int>(random() % 39)];
            track.ElementCodes.push_back(piece.Code);
            pose = ExitOf(piece.Kind, pose);
        }

        const BuildCursor end = WalkTrack(Pieces(), track, [](int, const PiecePlacement*, const BuildCursor&) {});

        ASSERT_TRUE(AreTheSame(pose, end)) << "seed " << seed << ", chain " << chain;
    }
}

TEST(Exit, OfAStraightLiesItsLengthOnAndOfAQuarterCurveBesideIt) {
    const Pose straight = ExitOf(Pieces().Find("C160")->Kind, BuildCursor{1, 2, 0});
    EXPECT_EQ(straight.CursorX, 1);
    EXPECT_EQ(straight.CursorY, 37);
    EXPECT_EQ(straight.CursorHeading, 0);

    const Pose left = ExitOf(Pieces().Find("C156L")->Kind, BuildCursor{});
    EXPECT_NEAR(left.CursorX, -6.3, 1e-5);
    EXPECT_NEAR(left.CursorY, 6.3, 1e-5);
    EXPECT_NEAR(left.CursorHeading, 1.5707963, 1e-6);

    const Pose right = ExitOf(Pieces().Find("C156R")->Kind, BuildCursor{});
    EXPECT_NEAR(right.CursorX, 21.8, 1e-5);
    EXPECT_NEAR(right.CursorY, 21.8, 1e-5);
    EXPECT_NEAR(right.CursorHeading, 4.712389, 1e-6);
}

TEST(Pose, PointsAcrossTheTrackAsItsHeadingSays) {
    EXPECT_EQ(Pose().Across.X, 1);
    EXPECT_EQ(Pose().Across.Y, 0);

    const Pose eighth = BuildCursor{0, 0, 0.785398163F};
    EXPECT_NEAR(eighth.Across.X, 0.70710678, 1e-7);
    EXPECT_NEAR(eighth.Across.Y, 0.70710678, 1e-7);
}

} // namespace
} // namespace pistaro
