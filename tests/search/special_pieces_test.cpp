#include "search/special_pieces.h"

#include "layout/built_lanes.h"
#include "support/chain.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace pistaro {
namespace {

/// The circuit's codes with special pieces; "none" where there is no such circuit.
std::string WithSpecials(const std::string& box, const std::string& codes) {
    const auto rows = WithSpecialPieces(Pieces(), BoxOf(Pieces(), box), RowsOf(codes));
    if (!rows) return "none";
    std::string placed;
    for (const int row : *rows)
        placed += (placed.empty() ? "" : " ") + Pieces()[row].Code;
    return placed;
}

int CountOfShape(const std::string& box, const std::string& code) {
    return ShapesOf(Pieces(), BoxOf(Pieces(), box)).at(static_cast<std::size_t>(Pieces().FindRow(code)));
}

TEST(SpecialPieces, CountAsTheirShape) {
    EXPECT_EQ(CountOfShape("C160=3,C164=2,C248=1,C8005=1", "C160"), 7);
    EXPECT_EQ(CountOfShape("C159=1,C277=1,C367=1", "C159"), 3);
}

TEST(SpecialPieces, ThatComeInPairsCountByPairs) {
    EXPECT_EQ(CountOfShape("C8006=3", "C160"), 2);
    EXPECT_EQ(CountOfShape("C8007=1", "C160"), 0);
    EXPECT_EQ(CountOfShape("N10111=5", "N10102"), 4);
}

TEST(SpecialPieces, OfWhichOneIsEnoughCountOnce) { EXPECT_EQ(CountOfShape("C277=4,C367=2", "C159"), 2); }

TEST(SpecialPieces, TakeThePlacesOfPlainOnes) {
    EXPECT_EQ(WithSpecials("C160=1,C164=1,C159=1,C277=1,C151=2", "C160 C151L C159 C160 C151L C159"),
              "C164 C151L C277 C160 C151L C159");
}

TEST(SpecialPieces, LeaveNoPlainOneThatTheBoxHasNot) {
    EXPECT_EQ(WithSpecials("C160=1,C164=1,C151=1", "C160 C160 C160 C151L"), "none");
}

TEST(SpecialPieces, OfAChicaneStandTogetherWithItsExtensionBetween) {
    EXPECT_EQ(WithSpecials("C160=4,C8007=2,C8009=1,C151=2", "C160 C151L C160 C160 C160 C151L"),
              "C160 C151L C8007 C8009 C8007 C151L");
}

TEST(SpecialPieces, OfAChicaneGoRoundACurve) {
    EXPECT_EQ(WithSpecials("C160=2,C8007=2,C8010R=1,C151=2", "C151L C160 C151R C160"), "C151L C8007 C8010R C8007");
}

TEST(SpecialPieces, OfAChicaneStayAwayWhereItIsNotComplete) {
    EXPECT_EQ(WithSpecials("C160=2,C8007=2,C151=2", "C160 C151L C160 C151L"), "C160 C151L C160 C151L");
    EXPECT_EQ(WithSpecials("C160=2,C8007=1,C8009=2,C151=2", "C160 C160 C151L C151L"), "C160 C160 C151L C151L");
}

TEST(ChangeOvers, StandWhereTheLanesComeOutEven) {
    const std::string oval = "C160 C151L C151L C151L C151L C160 C151L C151L C151L C151L";

    const auto rows = WithSpecialPieces(Pieces(), BoxOf(Pieces(), "C160=2,C8006=2,C151=8"), RowsOf(oval));

    ASSERT_TRUE(rows);
    Track track;
    for (const int row : *rows)
        track.ElementCodes.push_back(Pieces()[row].Code);
    EXPECT_EQ(std::ranges::count(track.ElementCodes, "C8006"), 2);
    const BuiltLanes lanes = LanesAsBuilt(Pieces(), track);
    EXPECT_NEAR(lanes.Lengths[0], lanes.Lengths[1], 1e-3);
}

TEST(ChangeOvers, OfWhichOneIsLeftStayInTheBox) {
    EXPECT_EQ(WithSpecials("C160=2,C8006=1,C151=2", "C160 C151L C160 C151L"), "C160 C151L C160 C151L");
}

TEST(ChangeOvers, GiveAPartnerToOneThatIsKept) {
    const std::string oval = "C8006 C151L C151L C151L C151L C160 C151L C151L C151L C151L";

    const auto rows = WithSpecialPieces(Pieces(), BoxOf(Pieces(), "C8006=2,C151=8"), RowsOf(oval), 2);

    EXPECT_EQ(rows, RowsOf("C8006 C151L C151L C151L C151L C8006 C151L C151L C151L C151L"));
}

} // namespace
} // namespace pistaro
