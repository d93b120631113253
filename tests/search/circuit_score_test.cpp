// The parts of a circuit's score that count only for who asks for them.
#include "search/circuit_score.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

/// The score needs no circuit that is closed; its lap is given.
ScoreParts PartsOf(const char* codes, const char* box, double lap) {
    const Rows rows = RowsOf(codes);
    const LoopRoom room({{{-500, -500, 0}, {500, -500, 1}, {500, 500, 1}, {-500, 500, 1}, {-500, -500, 1}}, 0});
    return ScorePartsOf(Pieces(), rows, LayLoop(Pieces(), rows, {}), room, BoxOf(Pieces(), box), lap, 0);
}

TEST(Score, TellsHowMuchOfTheBoxsTrackIsDriven) {
    EXPECT_DOUBLE_EQ(PartsOf("C160 C160 C160", "C160=3", 105).Length, 1);
    EXPECT_DOUBLE_EQ(PartsOf("C160 C160 C160", "C160=6", 105).Length, 0.5);
    // Two half straights of 17.5 cm are as long as a straight of 35 cm.
    EXPECT_DOUBLE_EQ(PartsOf("C160", "C160=1,C159=2", 35).Length, 0.5);
}

TEST(Score, TellsHowGreatAPartOfTheLapIsOneStraight) {
    EXPECT_DOUBLE_EQ(PartsOf("C160 C160 C151L C160 C151L", "C160=3,C151=2", 350).Speed, 0.5);
    EXPECT_DOUBLE_EQ(PartsOf("C160 C160 C151L C160 C151L", "C160=3,C151=2", 100).Speed, 1);
}

TEST(Score, TellsHowMuchItTurnsToAndFro) {
    const auto winding = [](const char* codes) { return PartsOf(codes, "C151=20", 190).Winding; };
    EXPECT_DOUBLE_EQ(winding("C151L C151L C151R C151R"), 4 / 16.0) << "two bends, and each to the other side";
    EXPECT_DOUBLE_EQ(winding("C151L C151L C160 C151R C151R"), 4 / 16.0);
    EXPECT_DOUBLE_EQ(winding("C151L C160 C151L C160"), 2 / 14.0);
    EXPECT_DOUBLE_EQ(winding("C151L C151R C151L C151R C151L C151R"), 12 / 24.0);
    EXPECT_DOUBLE_EQ(winding("C160"), 0);
}

TEST(Score, CountsThemOnlyWhereTheyWeighSomething) {
    ScoreParts parts;
    parts.Used = 0.5;
    EXPECT_DOUBLE_EQ(Score(parts, {1, 0, 0, 0, 0, 0, 0}), 0.5);
    parts.Length = parts.Speed = parts.Winding = 1;
    EXPECT_DOUBLE_EQ(Score(parts, {1, 0, 0, 0, 0, 0, 0}), 0.5);

    EXPECT_DOUBLE_EQ(Score(parts, {1, 0, 0, 0, 0, 0, 0, 1, 0, 0}), 0.75);
    EXPECT_DOUBLE_EQ(Score(parts, {1, 0, 0, 0, 0, 0, 0, 0, 1, 0}), 0.75);
    EXPECT_DOUBLE_EQ(Score(parts, {1, 0, 0, 0, 0, 0, 0, 0, 0, 1}), 0.75);
}

} // namespace
} // namespace pistaro
