// Lane lengths, prices and counts along the tracks.
#include "stats/measure.h"

#include "platform/fault.h"
#include "support/chain.h"
#include "support/stock.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

namespace pistaro {
namespace {

using testing::HasSubstr;
using testing::Throws;

Measurement MeasureOf(const Project& project, int track) {
    return Measure(Pieces(), project.Stock, project.Design.Circuit, track);
}

Measurement MeasureChain(const std::string& codes) { return MeasureOf(ProjectOf(codes), 0); }

/// The products that were counted: "C151:2 C160:1".
std::string CountsOf(const StockTally& tally) {
    std::string text;
    for (const TallyRow& row : tally) {
        if (row.TrackCount == 0) continue;
        text += (text.empty() ? "" : " ") + std::string(row.StockCode) + ":" + std::to_string(row.TrackCount);
    }
    return text;
}

TEST(StockTally, HasOneRowForEachHeadRowInCatalogueOrder) {
    std::string codes;
    for (const TallyRow& row : ResetStockTally(Pieces()))
        codes += std::string(row.StockCode) + " ";

    EXPECT_EQ(codes, "C151 C152 C153 C154 C156 C157 C158 C159 C160 C187 "
                     "N10102 N10103 N10104 N10105 N10106 N10107 N10108 N10110 "
                     "C164 C248 C8005 C8006 C8007 C8009 C277 C367 C8010 C8010 N10111 ");
}

TEST(StockTally, StartsAtZero) { EXPECT_EQ(CountsOf(ResetStockTally(Pieces())), ""); }

TEST(StockTally, BothHandsOfACurveCountAsOneProduct) {
    EXPECT_EQ(CountsOf(MeasureChain("C151L C151R C8010R C8010L N10105R").Tally), "C151:2 N10105:1 C8010:2");
}

TEST(StockTally, TheSecondC8010RowIsNeverReached) {
    const Measurement sum = MeasureChain("C8010R C8010R");

    EXPECT_EQ(sum.Tally[26].TrackCount, 2);
    EXPECT_EQ(sum.Tally[27].TrackCount, 0);
}

TEST(StockTally, TheNincoChangeOverIsNeverCounted) {
    EXPECT_EQ(CountsOf(MeasureChain("N10111 N10102 N10111").Tally), "N10102:1");
}

TEST(StockTally, AnUnknownCodeCountsForTheProductThatItBeginsWith) {
    EXPECT_EQ(CountsOf(MeasureChain("C1515 C160XL C15 X").Tally), "C151:1 C160:1");
}

TEST(StockTally, ACountEndsAt32767) {
    Project project = ProjectOf("");
    project.Design.Circuit.Tracks[0].ElementCodes.assign(32767, "C160");
    EXPECT_EQ(CountsOf(MeasureOf(project, 0).Tally), "C160:32767");

    project.Design.Circuit.Tracks[1].ElementCodes = {"C160"};
    EXPECT_THAT([&] { MeasureOf(project, AllTracks); }, Throws<Fault>(Property(&Fault::what, HasSubstr("Overflow: "))));
}

TEST(MeasureTrack, AnEmptyTrackIsZeroLongAndCostsNothing) {
    const Measurement sum = MeasureChain("");

    EXPECT_EQ(sum.LeftLength, 0);
    EXPECT_EQ(sum.RightLength, 0);
    EXPECT_EQ(sum.TrackPrice, 0);
}

TEST(MeasureTrack, AddsTheLanesOfEachPiece) {
    const Measurement sum = MeasureChain("C151L C160 C153R");

    EXPECT_NEAR(sum.LeftLength, 71.246, 0.001);  // 20.106 + 35 + 16.140
    EXPECT_NEAR(sum.RightLength, 80.553, 0.001); // 26.311 + 35 + 19.242
}

TEST(MeasureTrack, AfterAChangeOverLeftAndRightAreCrossed) {
    const Measurement sum = MeasureChain("C151L C8006 C151R");

    EXPECT_NEAR(sum.LeftLength, 77.212, 0.001);  // 20.106 + 37 + 20.106
    EXPECT_NEAR(sum.RightLength, 89.622, 0.001); // 26.311 + 37 + 26.311
}

TEST(MeasureTrack, AChangeOversOwnLengthsAreAlreadyCrossed) {
    std::vector<CatalogueEntry> rows = PieceTable();
    std::ranges::find(rows, "C8006", &CatalogueEntry::Code)->LaneLength1 = 30;

    const Measurement sum = Measure(Catalogue(rows), {}, ProjectOf("C8006").Design.Circuit, 0);

    EXPECT_EQ(sum.LeftLength, 37);
    EXPECT_EQ(sum.RightLength, 30);
}

TEST(MeasureTrack, ASecondChangeOverUncrossesTheLanes) {
    const Measurement sum = MeasureChain("C8006 N10111 C151L");

    EXPECT_NEAR(sum.LeftLength, 99.606, 0.001);   // 37 + 42.5 + 20.106
    EXPECT_NEAR(sum.RightLength, 105.811, 0.001); // 37 + 42.5 + 26.311
}

TEST(MeasureTrack, EveryTrackStartsUncrossed) {
    const Project project = ProjectOf("C8006", "C151L");

    EXPECT_NEAR(MeasureOf(project, AllTracks).LeftLength, 57.106, 0.001); // 37 + 20.106
}

TEST(MeasureTrack, AnUnknownCodeRepeatsTheLengthsOfTheElementBefore) {
    EXPECT_NEAR(MeasureChain("C151L unknown").LeftLength, 40.213, 0.001);  // 2 x 20.106
    EXPECT_NEAR(MeasureChain("C151L unknown").RightLength, 52.622, 0.001); // 2 x 26.311
    EXPECT_EQ(MeasureChain("unknown C160").LeftLength, 35) << "nothing comes before the first one";
}

TEST(MeasureTrack, AnUnknownCodeInTheNextTrackRepeatsNothing) {
    EXPECT_EQ(MeasureOf(ProjectOf("C160", "unknown"), AllTracks).LeftLength, 35);
}

TEST(MeasureTrack, AnEmptyCodeIsAnUnknownOne) {
    Project project = ProjectOf("");
    project.Design.Circuit.Tracks[0].ElementCodes = {"C160", "", "C159"};

    const Measurement sum = MeasureOf(project, 0);

    EXPECT_EQ(sum.LeftLength, 87.5); // 35 + 35 + 17.5
    EXPECT_EQ(CountsOf(sum.Tally), "C159:1 C160:1");
}

TEST(MeasureTrack, PricesEachPieceByItsProductsHeadRow) {
    Project project = ProjectOf("C151L C151R C160 unknown");
    SetStock(project, "C151L", 0, 2.5F);
    SetStock(project, "C151R", 0, 100);
    SetStock(project, "C160", 0, .25F);

    EXPECT_EQ(MeasureOf(project, 0).TrackPrice, 5.25F);
}

TEST(MeasureTrack, PricesEachHandOfTheCurvedChicaneByItsOwnRow) {
    Project project = ProjectOf("C8010L C8010R C8010R");
    SetStock(project, "C8010L", 0, 7);
    SetStock(project, "C8010R", 0, 1);

    EXPECT_EQ(MeasureOf(project, 0).TrackPrice, 9);
}

TEST(MeasureTrack, TheCircuitsSumRunsThroughTheTracksInSinglePrecision) {
    Project project = ProjectOf("C160", "C159 C159");
    SetStock(project, "C160", 0, 16777216);
    SetStock(project, "C159", 0, 1);

    EXPECT_EQ(MeasureOf(project, 1).TrackPrice, 2);
    EXPECT_EQ(MeasureOf(project, AllTracks).TrackPrice, 16777216) << "each 1 is lost in rounding";
}

TEST(MeasureTrack, APriceBeyondTheSinglesIsAnOverflow) {
    Project project = ProjectOf("C160 C160");
    SetStock(project, "C160", 0, 3e38F);

    EXPECT_THAT([&] { MeasureOf(project, 0); }, Throws<Fault>(Property(&Fault::what, HasSubstr("Overflow: "))));
}

} // namespace
} // namespace pistaro
