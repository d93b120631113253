// The status line.
#include "editor/status_text.h"

#include "editor/track_editing.h"

#include "catalogue/track_geometry.h"
#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {

namespace {

CatalogueEntry Piece(const PieceKind& kind) {
    CatalogueEntry piece;
    piece.Code = "piece";
    piece.Kind = kind;
    return piece;
}

/// A straight of that length, so that a track of it ends so far from its start.
CatalogueEntry Straight(double cm) { return Piece({.Length = cm, .Width = 15.5, .LaneInset = 3.8}); }

/// A curve about its own reference edge, so that a track of it ends where it started, but turned: to the right below 0.
CatalogueEntry Turn(double degrees) {
    const bool left = degrees > 0;
    return Piece({.Shape = left ? PieceShape::LeftCurve : PieceShape::RightCurve,
                  .InnerRadius = left ? 0 : -15.5,
                  .OuterRadius = left ? 15.5 : 0,
                  .Turn = (left ? degrees : -degrees) * PiValue / 180,
                  .Width = 15.5,
                  .LaneInset = 3.8});
}

/// What the line says after the count of a track of these pieces.
std::string GapOfPieces(std::vector<CatalogueEntry> pieces, bool inches = false) {
    Project project;
    project.Preferences.Units.Inches = inches;
    for (std::size_t row = 0; row < pieces.size(); ++row) {
        pieces[row].Code += std::to_string(row);
        project.Design.Circuit.Tracks[0].ElementCodes.push_back(pieces[row].Code);
    }
    const std::string text = StatusText(Catalogue(std::move(pieces)), project);
    return text.substr(text.rfind(" · ") + std::string(" · ").size());
}

std::string GapOfPiece(const CatalogueEntry& piece, bool inches = false) { return GapOfPieces({piece}, inches); }

} // namespace

TEST(StatusText, TellsTrackPiecesAndGap) {
    Project project = ProjectOf("C160 C159", "C160");
    EXPECT_EQ(StatusText(Pieces(), project), "Track 1 · 2 pieces · gap 52.5 cm");

    project.EditState.CurrentTrack = 1;
    EXPECT_EQ(StatusText(Pieces(), project), "Track 2 · 1 piece · gap 35.0 cm");

    project.EditState.CurrentTrack = 2;
    EXPECT_EQ(StatusText(Pieces(), project), "Track 3 · empty");
}

TEST(StatusText, TellsThatATrackIsClosed) {
    Project project = ProjectOf("C151L C151L C151L C151L C151L C151L C151L C151L");
    EXPECT_EQ(StatusText(Pieces(), project), "Track 1 · 8 pieces · closed");
}

TEST(StatusText, TellsTheGapInDisplayUnits) {
    Project project = ProjectOf("C160");
    project.Preferences.Units.Inches = true;
    EXPECT_EQ(StatusText(Pieces(), project), "Track 1 · 1 piece · gap 13.78 in");
}

TEST(StatusText, RoundsTheGapToATenthOfACentimetre) {
    EXPECT_EQ(GapOfPiece(Straight(17.5)), "gap 17.5 cm");
    EXPECT_EQ(GapOfPiece(Straight(17.54)), "gap 17.5 cm");
    EXPECT_EQ(GapOfPiece(Straight(17.56)), "gap 17.6 cm");
    EXPECT_EQ(GapOfPiece(Straight(0.09)), "gap 0.1 cm");
    EXPECT_EQ(GapOfPiece(Straight(1234.96)), "gap 1235.0 cm");
}

TEST(StatusText, RoundsTheGapToAHundredthOfAnInch) {
    EXPECT_EQ(GapOfPiece(Straight(2.54), true), "gap 1.00 in");
    EXPECT_EQ(GapOfPiece(Straight(17.5), true), "gap 6.89 in");
    EXPECT_EQ(GapOfPiece(Straight(0.09), true), "gap 0.04 in"); // 0.0354
}

TEST(StatusText, TellsTheAngleBetweenTheEndsWithoutItsSign) {
    // The chord of an eighth of a circle: twice the reference radius, 21.8 to the left and 37.3 to the right, times the
    // sine of 22.5 degrees.
    Project project = ProjectOf("C151L", "C151R");
    EXPECT_EQ(StatusText(Pieces(), project), "Track 1 · 1 piece · gap 16.7 cm, 45.0°");

    project.EditState.CurrentTrack = 1;
    EXPECT_EQ(StatusText(Pieces(), project), "Track 2 · 1 piece · gap 28.5 cm, 45.0°");
}

TEST(StatusText, TellsAnAngleAlone) {
    EXPECT_EQ(GapOfPiece(Turn(11.28)), "gap 0.0 cm, 11.3°");
    EXPECT_EQ(GapOfPiece(Turn(-30)), "gap 0.0 cm, 30.0°");
    EXPECT_EQ(GapOfPiece(Turn(90), true), "gap 0.00 in, 90.0°");
}

TEST(StatusText, LeavesOutAnAngleThatRoundsToNought) {
    EXPECT_EQ(GapOfPieces({Straight(17.5), Turn(0.04)}), "gap 17.5 cm");
    EXPECT_EQ(GapOfPieces({Straight(17.5), Turn(0.06)}), "gap 17.5 cm, 0.1°");
    EXPECT_EQ(GapOfPieces({Straight(17.5), Turn(-0.06)}), "gap 17.5 cm, 0.1°");
}

TEST(StatusText, TakesATrackForClosedWithinHalfAMillimetreAndATenthOfADegree) {
    EXPECT_EQ(GapOfPiece(Straight(0.049)), "closed");
    EXPECT_EQ(GapOfPiece(Straight(0.051)), "gap 0.1 cm");
    EXPECT_EQ(GapOfPiece(Straight(0.049), true), "closed");
    EXPECT_EQ(GapOfPiece(Straight(0.051), true), "gap 0.02 in");

    EXPECT_EQ(GapOfPiece(Turn(0.09)), "closed");
    EXPECT_EQ(GapOfPiece(Turn(0.11)), "gap 0.0 cm, 0.1°");
    EXPECT_EQ(GapOfPiece(Turn(-0.09)), "closed");
    EXPECT_EQ(GapOfPiece(Turn(-0.11)), "gap 0.0 cm, 0.1°");

    EXPECT_EQ(GapOfPieces({Straight(0.049), Turn(0.09)}), "closed");
    EXPECT_EQ(GapOfPieces({Straight(0.049), Turn(0.11)}), "gap 0.0 cm, 0.1°");
    EXPECT_EQ(GapOfPieces({Straight(0.051), Turn(0.09)}), "gap 0.1 cm, 0.1°");
}

TEST(StatusText, TellsInsertModeOfASingleTrack) {
    Project project = ProjectOf("C160");
    project.EditState.InsertMode = true;
    EXPECT_EQ(StatusText(Pieces(), project), "Track 1 · 1 piece · gap 35.0 cm · Insert mode");

    project.EditState.DataChanged = true;
    EXPECT_EQ(StatusText(Pieces(), project), "Track 1 · 1 piece · gap 35.0 cm · Insert mode · unsaved");

    project.EditState.CurrentTrack = AllTracks;
    EXPECT_EQ(StatusText(Pieces(), project), "All tracks · 1 piece · unsaved");
}

TEST(StatusText, CountsAllTracksTogetherWhenAllAreChosen) {
    Project project = ProjectOf("C160 C159", "C160", "C160");
    project.EditState.CurrentTrack = AllTracks;
    project.EditState.DataChanged = true;
    EXPECT_EQ(StatusText(Pieces(), project), "All tracks · 4 pieces · unsaved");
}

TEST(Figures, TellLanesAsBuiltPriceAndWhatIsToBuy) {
    Project project = ProjectOf("C160 C159");
    project.Preferences.Units.Currency = "EUR";
    const std::string lanes = "lanes 52.50 and 52.50 cm as built · ";
    EXPECT_EQ(FiguresText(Pieces(), project), lanes + "2 to buy, without a price");

    ProductStock& straight = project.Stock.Of(Pieces().FindRow("C160"));
    straight = {.OwnedCount = 0, .Price = 2.5F};
    EXPECT_EQ(FiguresText(Pieces(), project),
              lanes + "price 2.50 €, 1 without a price · 2 to buy: 2.50 €, 1 without a price");
    straight.OwnedCount = 1;
    EXPECT_EQ(FiguresText(Pieces(), project), lanes + "price 2.50 €, 1 without a price · 1 to buy, without a price");
    project.Stock.Of(Pieces().FindRow("C159")) = {.OwnedCount = 0, .Price = 1.99F};
    EXPECT_EQ(FiguresText(Pieces(), project), lanes + "price 4.49 € · 1 to buy: 1.99 €");
    EXPECT_EQ(FiguresText(Pieces(), project, {",", "."}), lanes + "price 4,49 € · 1 to buy: 1,99 €");
    project.Stock.Of(Pieces().FindRow("C159")).OwnedCount = 1;
    EXPECT_EQ(FiguresText(Pieces(), project), lanes + "price 4.49 € · all owned");
}

TEST(Figures, OfAllTracksAreThoseOfAllPieces) {
    Project project = ProjectOf("C160", "C160 C160");
    ChooseAllTracks(project.EditState);

    EXPECT_EQ(FiguresText(Pieces(), project), "3 to buy, without a price");
    EXPECT_EQ(FiguresText(Pieces(), ProjectOf("")), "");
}

TEST(Places, AreToldInDisplayUnitsWithTheViewsWidth) {
    Project project = ProjectOf("");
    EXPECT_EQ(PlaceText(project, {12.34F, -4.5F}), "12.3, −4.5 cm · view 320 cm");

    project.Preferences.Units.Inches = true;
    EXPECT_EQ(PlaceText(project, {25.4F, 0}), "10, 0 in · view 125.9 in");
}

} // namespace pistaro
