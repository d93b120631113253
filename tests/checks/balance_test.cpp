// Balancing lanes: the fewest changes, and what they may not break.
#include "checks/balance.h"
#include "checks/check.h"
#include "layout/built_lanes.h"
#include "layout/track_gap.h"
#include "support/chain.h"
#include "support/clean_circuits.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace pistaro {
namespace {

const std::string HalfTurn = "C151R C151R C151R C151R ";

Balance BalanceOf(const std::string& codes) { return BalanceLanes(Pieces(), ProjectOf(codes).Design, 0); }

std::string Told(const std::string& codes) { return BalanceText(BalanceOf(codes), {}); }

TEST(Balance, OfAnOvalTakesTwoChangeOvers) {
    EXPECT_EQ(Told("C160 C160 " + HalfTurn + "C160 C160 " + HalfTurn),
              "These changes balance the lanes:\n"
              "1. C8006 in place of C160 (0): each lane then leads into the other\n"
              "2. C8006 in place of C160 (6): the lanes then differ by 0.0 cm");
}

TEST(Balance, OfAnOddNumberTakesOneMore) {
    const Balance balance = BalanceOf("C8006 C160 " + HalfTurn + "C160 C160 " + HalfTurn);

    ASSERT_EQ(balance.Steps.size(), 1U);
    EXPECT_EQ(balance.Steps[0].First, 6);
    EXPECT_FALSE(balance.IsBalanced);
}

TEST(Balance, PutsChangeOversAwayFromTheStartAndFromEachOther) {
    const std::string straight = "C160 C160 C160 C160 C160 C160 ";
    const Balance balance = BalanceOf(straight + HalfTurn + straight + HalfTurn);

    ASSERT_EQ(balance.Steps.size(), 2U);
    EXPECT_EQ(balance.Steps[0].First, 3) << "the start lies at 0, and cars gather speed";
    EXPECT_EQ(balance.Steps[1].First, 10);
}

TEST(Balance, PutsNoneBesideOneThatStands) {
    const Balance balance =
        BalanceOf("C159 C159 " + HalfTurn + "C160 C8006 C160 C160 C160 " + HalfTurn + "C159 C159 C160 C160 C160 ");

    ASSERT_EQ(balance.Steps.size(), 1U);
    const int place = balance.Steps[0].First;
    EXPECT_TRUE(std::abs(place - 7) > 2) << place;
}

TEST(Balance, OffersOtherPlacesWhereThereAreAsFewChanges) {
    const std::string straight = "C160 C160 C160 C160 C160 C160 ";
    const Balance balance = BalanceOf(straight + HalfTurn + straight + HalfTurn);

    ASSERT_EQ(balance.Others.size(), 2U);
    std::vector<int> places;
    for (const auto& steps : {balance.Steps, balance.Others[0], balance.Others[1]}) {
        ASSERT_EQ(steps.size(), 2U);
        for (const BalanceStep& step : steps)
            places.push_back(step.First);
        EXPECT_NEAR(steps[1].Lengths[0], steps[1].Lengths[1], 1) << "each of them balances the lanes";
        EXPECT_FALSE(steps[1].Joined);
    }
    std::ranges::sort(places);
    EXPECT_EQ(std::ranges::unique(places).size(), 0U) << "none shares a place";
    EXPECT_TRUE(BalanceOf("C160 " + HalfTurn + "C160 " + HalfTurn).Others.empty()) << "there is no other place";
}

TEST(Balance, NeedsNoChangeWhereLanesAreEven) {
    EXPECT_EQ(Told("C8006 " + HalfTurn + "C8006 " + HalfTurn), "The lanes differ by 0.0 cm: they are balanced.");
    EXPECT_TRUE(BalanceOf("").IsBalanced);
}

TEST(Balance, IsNotFoundWithoutStraightsOfAChangeOversLength) {
    EXPECT_EQ(Told("C159 " + HalfTurn + "C159 " + HalfTurn),
              "The lanes differ by 49.6 cm. Nothing brings them within 1.0 cm: no straight has a change-over of its "
              "length, and turning bends round does not help.");
    EXPECT_EQ(Told("C8006 " + HalfTurn + "C159 C159 " + HalfTurn + "C151R"),
              "Each lane leads into the other. The track is open: close it first.");
}

TEST(Balance, TakesAChangeOverOutOfAFigureOfEight) {
    EXPECT_EQ(Told("C8006 C159 C159 C159 C158 C151L C151L C151L C159 C151L C151L C151L C159 C248 C159 C159 C158 "
                   "C151R C151R C151R C159 C159 C151R C151R C151R"),
              "These changes balance the lanes:\n"
              "1. C160 in place of C8006 (0): the lanes then differ by 0.0 cm");
}

TEST(Balance, TurnsABendRoundThatHoldsAChangeOver) {
    EXPECT_EQ(Told("C151L C8006 C151R C151R C159 C159 C151L C8006 C151L C151L"),
              "These changes balance the lanes:\n"
              "1. the bend C151L (0) to C151L (6) turned round: the lanes then differ by 0.0 cm");
}

TEST(Balance, TurnsTwoBendsRoundOfWhichOneTakesBackWhatTheOtherDoes) {
    EXPECT_EQ(Told("C151L C8006 C151R C8007 C8007 C8006 C151R C159 C159 C151L C151L C151L"),
              "These changes balance the lanes:\n"
              "1. the bend C151L (0) to C151R (2) turned round: the lanes then differ by 0.0 cm\n"
              "2. the bend C151R (6) to C151L (9) turned round: the lanes then differ by 0.0 cm");
}

TEST(Balance, HoldsInRandomCircuitsWhatItPromises) {
    CleanCircuits circuits(3);
    int balanced = 0;
    for (int round = 0; round < 40; ++round) {
        Project project = circuits.NextScalextric();
        Track& track = project.Design.Circuit.Tracks[0];
        std::ranges::replace(track.ElementCodes, std::string("C8006"), std::string("C160"));
        if (circuits.Below(2) == 0) *std::ranges::find(track.ElementCodes, "C160") = "C8006";
        const Balance balance = BalanceLanes(Pieces(), project.Design, 0);
        if (balance.Steps.empty()) continue;
        ++balanced;

        track = Balanced(track, balance.Steps);
        const BuiltLanes lanes = LanesAsBuilt(Pieces(), track);
        ASSERT_FALSE(lanes.Joined) << "round " << round;
        ASSERT_LE(std::fabs(lanes.Lengths[0] - lanes.Lengths[1]), 1) << "round " << round;
        ASSERT_LT(GapOf(Pieces(), track).Distance, 0.05) << "round " << round;
        ASSERT_FALSE(HasErrors(CheckDesign(Pieces(), project.Design, {}, {}))) << "round " << round;
        ASSERT_EQ(balance.Steps.back().Lengths, lanes.Lengths);
    }
    EXPECT_GT(balanced, 20);
}

} // namespace
} // namespace pistaro
