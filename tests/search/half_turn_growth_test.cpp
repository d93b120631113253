#include "search/half_turn_growth.h"

#include "search/special_pieces.h"
#include "support/pieces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace pistaro {
namespace {

const RoomPolygon Room{{{-150, -100, 0}, {150, -100, 1}, {150, 100, 1}, {-150, 100, 1}, {-150, -100, 1}}, 0};

ShapeCounts ShapesOfBox(const std::string& pieces) { return ShapesOf(Pieces(), BoxOf(Pieces(), pieces)); }

/// A growth for a box, in a room of 300 x 200 cm.
struct GrowthOfBox {
    explicit GrowthOfBox(const std::string& pieces)
        : Shapes(ShapesOfBox(pieces)), Steps(StepsOf(Pieces(), Shapes)), Growth(Pieces(), Shapes, Walls, 1) {}

    Loop Begun() {
        constexpr int tries = 10'000;
        for (int tried = 0; tried < tries; ++tried) {
            if (auto loop = Growth.Begin(false)) return *loop;
        }
        ADD_FAILURE() << "no loop";
        return {};
    }

    int CountOf(const Loop& loop, const char* code) const {
        const int shape = Pieces().FindHeadRow(code);
        return static_cast<int>(
            std::ranges::count_if(loop.Steps, [&](std::uint8_t step) { return Steps[step].Shape == shape; }));
    }

    LoopRoom Walls{Room};
    ShapeCounts Shapes;
    std::vector<LayingStep> Steps;
    HalfTurnGrowth Growth;
};

TEST(ALoopOfTwoHalves, IsTheSameRunLaidTwice) {
    GrowthOfBox box("C151=12,C160=6,C159=3");
    Loop loop = box.Begun();

    for (int change = 0; change < 2000; ++change) {
        box.Growth.Change(loop, 0);
        const auto middle = loop.Steps.begin() + static_cast<std::ptrdiff_t>(loop.Steps.size() / 2);
        ASSERT_TRUE(std::equal(loop.Steps.begin(), middle, middle, loop.Steps.end()));
    }
}

TEST(ALoopOfTwoHalves, ClosesWithinTheRoomWithoutOverlapsAfterEachChange) {
    GrowthOfBox box("C151=12,C160=6,C159=3");
    Loop loop = box.Begun();
    int changes = 0;

    for (int tried = 0; tried < 2000; ++tried) {
        if (!box.Growth.Change(loop, 0)) continue;
        ++changes;
        const LaidLoop laid = LayLoop(Pieces(), RowsOf(box.Steps, loop.Steps), loop.Cursor());
        ASSERT_TRUE(IsClosed(laid, loop.Tolerance));
        ASSERT_TRUE(box.Walls.Holds(laid));
        ASSERT_FALSE(OverlapsItself(laid, {}));
    }
    EXPECT_GT(changes, 100);
}

TEST(ALoopOfTwoHalves, TakesAnEvenNumberOfEachShapeFromTheBox) {
    GrowthOfBox box("C151=12,C160=6,C159=3");
    Loop loop = box.Begun();
    int mostHalfStraights = 0;

    for (int change = 0; change < 5000; ++change) {
        box.Growth.Change(loop, 0);
        ASSERT_LE(box.CountOf(loop, "C151"), 12);
        ASSERT_LE(box.CountOf(loop, "C160"), 6);
        mostHalfStraights = std::max(mostHalfStraights, box.CountOf(loop, "C159"));
    }
    EXPECT_EQ(mostHalfStraights, 2);
}

TEST(ALoopOfTwoHalves, GrowsToTheWholeOfABoxThatTheRoomHolds) {
    GrowthOfBox box("C151=12,C160=6,C159=2");
    Loop loop = box.Begun();

    for (int change = 0; change < 20'000 && loop.Steps.size() < 20; ++change)
        box.Growth.Change(loop, static_cast<int>(loop.Steps.size()));

    EXPECT_EQ(loop.Steps.size(), 20U);
}

TEST(ALoopOfTwoHalves, KeepsTheFewestPiecesThatItIsAskedFor) {
    GrowthOfBox box("C151=12,C160=6,C159=2");
    Loop loop = box.Begun();
    for (int change = 0; change < 20'000 && loop.Steps.size() < 14; ++change)
        box.Growth.Change(loop, static_cast<int>(loop.Steps.size()));
    ASSERT_GE(loop.Steps.size(), 14U);

    for (int change = 0; change < 2000; ++change) {
        box.Growth.Change(loop, 12);
        ASSERT_GE(loop.Steps.size(), 12U);
    }
    EXPECT_FALSE(box.Growth.Change(loop, 100));
}

TEST(ALoopOfTwoHalves, JoinsItsSystemsByAdapters) {
    GrowthOfBox box("C151=8,C160=8,C159=4,N10110=4,N10102=6,N10105=8");
    std::optional<Loop> loop;
    for (int tried = 0; tried < 10'000 && !loop; ++tried)
        loop = box.Growth.Begin(true);
    ASSERT_TRUE(loop);

    for (int change = 0; change < 2000; ++change) {
        box.Growth.Change(*loop, 0);
        TrackSystem system = box.Steps[loop->Steps.back()].Exit;
        for (const std::uint8_t step : loop->Steps) {
            ASSERT_EQ(box.Steps[step].Entry, system);
            system = box.Steps[step].Exit;
        }
    }
    EXPECT_EQ(box.CountOf(*loop, "N10110"), 4);
}

TEST(ALoopOfTwoHalves, NeedsTwoAdaptersAHalfForBothSystems) {
    const auto most = [](const char* pieces) { return GrowthOfBox(pieces).Growth.MostPieces(); };

    EXPECT_EQ(most("C151=9,C160=4"), 12);
    EXPECT_EQ(most("C151=8,C160=4,N10102=6,N10110=2"), 12);
    EXPECT_EQ(most("C151=8,C160=4,N10102=6,N10110=4"), 22);
}

} // namespace
} // namespace pistaro
