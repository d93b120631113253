// What circuits must have, and what that asks of their box.
#include "search/must_haves.h"

#include "support/chain.h"
#include "support/stock.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

std::string WhyRareIn(const char* box, const MustHaves& mustHave) {
    return WhyRare(Pieces(), BoxOf(Pieces(), box), mustHave);
}

TEST(MustHaves, ALapCounterIsRareWhereNothingMakesUpForItsHalfStraight) {
    const std::string why = "The lap counter is half a straight, and the box has no second one to lie opposite: add a "
                            "C159, or do without the counter.";
    EXPECT_EQ(WhyRareIn("C151=8,C160=4,C277=1", {.LapCounter = true}), why);
    EXPECT_EQ(WhyRareIn("C151=8,C160=4,C277=1,C159=1", {.LapCounter = true}), "");
    EXPECT_EQ(WhyRareIn("C151=8,C160=4,C277=2", {.LapCounter = true}), "");
    EXPECT_EQ(WhyRareIn("C151=8,C160=4,C277=1,C158=1", {.LapCounter = true}), "") << "a quarter may lead to others";
}

TEST(MustHaves, AreNotRareWithoutALapCounter) {
    EXPECT_EQ(WhyRareIn("C151=8,C160=4,C277=1", {}), "");
    EXPECT_EQ(WhyRareIn("C151=8,C160=4,C277=1", {.Chicane = true}), "");
}

std::string WhyNotIn(const char* box, const MustHaves& mustHave) {
    return WhyNot(Pieces(), BoxOf(Pieces(), box), mustHave);
}

TEST(MustHaves, AreNotThereWithoutTheirPieces) {
    EXPECT_EQ(WhyNotIn("C151=8", {.LapCounter = true}), "The box holds no lap counter.");
    EXPECT_EQ(WhyNotIn("C151=8", {.BankedCurve = true}), "The box holds no banked curve.");
    EXPECT_EQ(WhyNotIn("C151=8,C8007=1", {.Chicane = true}), "The box holds no two ends of a chicane.");
    EXPECT_EQ(WhyNotIn("C151=8,C8006=1", {.ChangeOvers = true}), "The box holds no pair of change-overs.");
    EXPECT_EQ(WhyNotIn("C151=8,N10105=8,C8006=1,N10111=1", {.ChangeOvers = true}),
              "The box holds no pair of change-overs.")
        << "two of different systems are none";
    EXPECT_FALSE(HoldsAll(Pieces(), BoxOf(Pieces(), "C277=1,C8007=1"), {.LapCounter = true, .Chicane = true}));
    EXPECT_TRUE(HoldsAll(Pieces(), BoxOf(Pieces(), "C277=1,C8007=2"), {.LapCounter = true, .Chicane = true}));
}

TEST(MustHaves, OfNincoAreNotThereWhereCircuitsAreOfScalextric) {
    const MustHaves changeOvers{.ChangeOvers = true};
    const std::string takes = "° in all, and a circuit turns by 360°; one of both systems takes two N10110.";
    const std::string none = "The change-overs are Ninco. The box's Ninco curves turn by 0" + takes;

    EXPECT_EQ(WhyNotIn("C151=8,C160=4,N10111=2", changeOvers), none);
    EXPECT_EQ(WhyNotIn("C151=8,C160=4,N10111=2,N10110=1", changeOvers), none);
    EXPECT_EQ(WhyNotIn("C151=8,C160=4,N10111=2,N10105=7", changeOvers),
              "The change-overs are Ninco. The box's Ninco curves turn by 315" + takes);
    EXPECT_EQ(WhyNotIn("C151=8,C160=4,N10111=2,N10105=8", changeOvers), "");
    EXPECT_EQ(WhyNotIn("C151=8,C160=4,N10111=2,N10110=2", changeOvers), "");
    EXPECT_EQ(WhyNotIn("C151=8,C160=4,N10111=2,C8006=2", changeOvers), "") << "these can stand in a circuit";
}

TEST(MustHaves, OfScalextricAreNotThereWhereCircuitsAreOfNinco) {
    const std::string takes = "° in all, and a circuit turns by 360°; one of both systems takes two N10110.";
    const std::string box = "N10105=8,N10102=8,C277=1,C8007=2,C8006=2";
    const auto why = [&](const char* more, const MustHaves& mustHave) {
        return WhyNotIn((box + more).c_str(), mustHave);
    };

    EXPECT_EQ(why("", {.LapCounter = true}),
              "The lap counter is Scalextric. The box's Scalextric curves turn by 0" + takes);
    EXPECT_EQ(why("", {.Chicane = true}), "The chicane is Scalextric. The box's Scalextric curves turn by 0" + takes);
    EXPECT_EQ(why("", {.ChangeOvers = true}),
              "The change-overs are Scalextric. The box's Scalextric curves turn by 0" + takes);
    EXPECT_EQ(why(",C187=5", {.BankedCurve = true}),
              "The banked curve is Scalextric. The box's Scalextric curves turn by 281" + takes)
        << "each by 56.25 degrees";
    EXPECT_EQ(why(",C187=7", {.LapCounter = true, .BankedCurve = true, .ChangeOvers = true, .Chicane = true}), "");
    EXPECT_EQ(why(",N10110=2", {.LapCounter = true, .ChangeOvers = true, .Chicane = true}), "");
}

TEST(MustHaves, OfTwoSystemsAreNotThereTogetherWhereCircuitsAreOfOne) {
    const std::string box = "C151=8,C160=8,C277=1,C159=1,N10105=8,N10102=8,N10111=2";
    const MustHaves both{.LapCounter = true, .ChangeOvers = true};
    const auto why = [&](const char* more, const MustHaves& mustHave) {
        return WhyNotIn((box + more).c_str(), mustHave);
    };

    EXPECT_EQ(why("", both),
              "The lap counter is Scalextric, the change-overs are Ninco. A circuit of both systems takes "
              "two N10110.");
    EXPECT_EQ(why(",N10110=1", both), why("", both));
    EXPECT_EQ(why(",N10110=2", both), "");
    EXPECT_EQ(why(",C8006=2", both), "") << "these are Scalextric, too";
    EXPECT_EQ(why("", {.LapCounter = true}), "");
    EXPECT_EQ(why("", {.ChangeOvers = true}), "");
}

TEST(MustHaves, OfACircuitAreWhatItHasItself) {
    const auto of = [](const char* codes) { return MustHavesOf(Pieces(), RowsOf(codes)); };

    EXPECT_EQ(of("C160 C151L"), MustHaves());
    EXPECT_EQ(of("C277 C187L C151L"), (MustHaves{.LapCounter = true, .BankedCurve = true}));
    EXPECT_EQ(of("C8006 C160 C8007 C8007"), (MustHaves{.Chicane = true})) << "one change-over is no pair";
    EXPECT_EQ(of("C8006 C160 C8006"), (MustHaves{.ChangeOvers = true}));
}

TEST(MustHaves, AreNotBlamedWhereTheBoxMakesNoCircuitAtAll) {
    EXPECT_EQ(WhyNotIn("C151=4,N10105=4,N10111=2", {.ChangeOvers = true}), "");
}

} // namespace
} // namespace pistaro
