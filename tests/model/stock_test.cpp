// What the circuit uses, and which of its elements the owned pieces cover.
#include "model/stock.h"

#include "support/chain.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>

namespace pistaro {
namespace {

std::string Covered(const std::vector<bool>& track) {
    std::string text;
    for (const bool covered : track)
        text += covered ? '+' : '-';
    return text;
}

TEST(StockColours, CountAlongTracksOneTwoAndThree) {
    Project project = ProjectOf("C160 C160", "C160 C160", "C160");
    project.Stock.Of(13).OwnedCount = 3;

    const StockColours colours = AssignStockColours(Pieces(), project.Stock, project.Design.Circuit);

    EXPECT_EQ(Covered(colours[0]), "++");
    EXPECT_EQ(Covered(colours[1]), "+-");
    EXPECT_EQ(Covered(colours[2]), "-");
    EXPECT_EQ(CountUsed(Pieces(), project.Design.Circuit)[13], 5);
}

TEST(StockColours, BothHandsOfACurveAreOneProduct) {
    Project project = ProjectOf("C151R C151L C151R");
    project.Stock.Of(0).OwnedCount = 2;
    project.Stock.Of(1).OwnedCount = 9;

    EXPECT_EQ(Covered(AssignStockColours(Pieces(), project.Stock, project.Design.Circuit)[0]), "++-");
    EXPECT_EQ(CountUsed(Pieces(), project.Design.Circuit)[0], 3);
    EXPECT_EQ(CountUsed(Pieces(), project.Design.Circuit)[1], 0);
}

TEST(StockColours, TheHandsOfTheCurvedChicaneAreTwo) {
    Project project = ProjectOf("C8010L C8010R C8010L");
    project.Stock.Of(36).OwnedCount = 1;
    project.Stock.Of(37).OwnedCount = 1;

    EXPECT_EQ(Covered(AssignStockColours(Pieces(), project.Stock, project.Design.Circuit)[0]), "++-");
    EXPECT_EQ(CountUsed(Pieces(), project.Design.Circuit)[36], 2);
    EXPECT_EQ(CountUsed(Pieces(), project.Design.Circuit)[37], 1);
}

TEST(StockColours, ASpecialPieceIsNotTheStraightWhoseShapeItBorrows) {
    Project project = ProjectOf("C160 C164 N10111 N10102");
    project.Stock.Of(13).OwnedCount = 9;
    project.Stock.Of(16).OwnedCount = 9;

    EXPECT_EQ(Covered(AssignStockColours(Pieces(), project.Stock, project.Design.Circuit)[0]), "+--+");
}

TEST(StockColours, AnUnknownCodeIsCountedNowhere) {
    Project project = ProjectOf("mystery C160");

    EXPECT_EQ(Covered(AssignStockColours(Pieces(), project.Stock, project.Design.Circuit)[0]), "+-");
    const UsedCounts used = CountUsed(Pieces(), project.Design.Circuit);
    EXPECT_EQ(std::accumulate(used.begin(), used.end(), 0), 1);
}

TEST(UsedCounts, CountAFullCircuit) {
    Project project = ProjectOf("", "", "");
    for (Track& track : project.Design.Circuit.Tracks)
        track.ElementCodes.assign(MaxElements, "C160");

    EXPECT_EQ(CountUsed(Pieces(), project.Design.Circuit)[13], 1503);
}

} // namespace
} // namespace pistaro
