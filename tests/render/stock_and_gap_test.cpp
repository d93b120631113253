// Figures that follow from the tracks: used pieces, covered elements, the gap to the start.
#include "render/stock_colours.h"
#include "render/track_gap.h"
#include "support/chain.h"

#include <gtest/gtest.h>

#include <string>

namespace pistaro {
namespace {

std::string Covered(const std::vector<bool>& track) {
    std::string text;
    for (const bool covered : track)
        text += covered ? '+' : '-';
    return text;
}

TEST(StockColours, CountAlongTracksOneTwoAndThreeWhicheverIsCurrent) {
    Project project = ProjectOf("C160 C160", "C160 C160", "C160");
    project.Pieces[13].OwnedCount = 3;
    for (const int current : {0, 1, 2, AllTracks}) {
        project.Layout.CurrentTrack = current;

        const StockColours colours = AssignStockColours(project);

        EXPECT_EQ(Covered(colours[0]), "++");
        EXPECT_EQ(Covered(colours[1]), "+-");
        EXPECT_EQ(Covered(colours[2]), "-");
        EXPECT_EQ(project.Pieces[13].UsedCount, 5) << "counted anew each time";
    }
}

TEST(StockColours, BothHandsOfACurveAreOneProduct) {
    Project project = ProjectOf("C151R C151L C151R");
    project.Pieces[0].OwnedCount = 2;
    project.Pieces[1].OwnedCount = 9;

    EXPECT_EQ(Covered(AssignStockColours(project)[0]), "++-");
    EXPECT_EQ(project.Pieces[0].UsedCount, 3);
    EXPECT_EQ(project.Pieces[1].UsedCount, 0);
}

TEST(StockColours, TheHandsOfTheCurvedChicaneAreTwo) {
    Project project = ProjectOf("C8010L C8010R C8010L");
    project.Pieces[36].OwnedCount = 1;
    project.Pieces[37].OwnedCount = 1;

    EXPECT_EQ(Covered(AssignStockColours(project)[0]), "++-");
    EXPECT_EQ(project.Pieces[36].UsedCount, 2);
    EXPECT_EQ(project.Pieces[37].UsedCount, 1);
}

TEST(StockColours, ASpecialPieceIsNotTheStraightWhoseShapeItBorrows) {
    Project project = ProjectOf("C160 C164 N10111 N10102");
    project.Pieces[13].OwnedCount = 9;
    project.Pieces[16].OwnedCount = 9;

    EXPECT_EQ(Covered(AssignStockColours(project)[0]), "+--+");
}

TEST(StockColours, AnUnknownCodeIsCountedNowhere) {
    Project project = ProjectOf("mystery C160");

    EXPECT_EQ(Covered(AssignStockColours(project)[0]), "+-");
    int used = 0;
    for (const CatalogueEntry& entry : project.Pieces)
        used += entry.UsedCount;
    EXPECT_EQ(used, 1);
}

TEST(StockColours, CountAFullCircuit) {
    Project project = ProjectOf("", "", "");
    for (Track& track : project.Layout.Tracks)
        track.ElementCodes.assign(MaxElements, "C160");

    AssignStockColours(project);

    EXPECT_EQ(project.Pieces[13].UsedCount, 1503);
}

TEST(Gap, OfACircleIsNone) {
    const TrackGap gap = GapOf(Chain("C151R C151R C151R C151R C151R C151R C151R C151R"));

    EXPECT_NEAR(gap.Distance, 0, 0.001);
    EXPECT_NEAR(gap.Angle, 0, 1e-5);
}

TEST(Gap, IsTheWayFromTheEndToTheStart) {
    EXPECT_EQ(GapOf(Chain("C160")).Distance, 35);
    EXPECT_EQ(GapOf(Chain("C160")).Angle, 0);
    EXPECT_EQ(GapOf(Chain("")).Distance, 0);
}

TEST(Gap, ItsAngleIsTheShortWayRound) {
    EXPECT_NEAR(GapOf(Chain("C151L")).Angle, 0.785398, 1e-5);
    EXPECT_NEAR(GapOf(Chain("C151R")).Angle, -0.785398, 1e-5) << "the heading itself is 5.5 then";

    Track track = Chain("C151L");
    track.TrackStartHeading = 6;
    EXPECT_NEAR(GapOf(track).Angle, 0.785398, 1e-5);
}

TEST(Gap, OfABankedCircuitIsThatOfItsTrueAngle) {
    EXPECT_NEAR(GapOf(Chain("C187L C187L C187L C187L C187L C187L")).Angle, -0.392699, 1e-5)
        << "six banked curves turn by 337.5 degrees, whatever their name says";
}

} // namespace
} // namespace pistaro
