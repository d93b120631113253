#include "paper/circuit_drawing.h"
#include "support/chain.h"
#include "support/fault_of.h"
#include "support/recording_surface.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(CircuitDrawing, HoldsThePiecesOfAllTracksInTheirOrderWithoutUnknownCodes) {
    const CircuitDrawing drawing = DrawingOf(Pieces(), ProjectOf("C160 X1 C151L", "C157"), {});

    ASSERT_EQ(drawing.Pieces.size(), 3U);
    EXPECT_EQ(drawing.Pieces[1].Code, "C151L");
    EXPECT_EQ(drawing.Pieces[1].Index, 2);
    EXPECT_EQ(drawing.Pieces[2].Track, 1);
}

TEST(CircuitDrawing, OfOneTrackHoldsThatAlone) {
    const CircuitDrawing drawing = DrawingOf(Pieces(), ProjectOf("C160", "C157 C157"), {.Track = 1});

    ASSERT_EQ(drawing.Pieces.size(), 2U);
    EXPECT_EQ(drawing.Pieces[0].Code, "C157");
}

TEST(CircuitDrawing, ReachesAsFarAsItsPiecesAndTheRoomWhereThatIsDrawn) {
    Project project = ProjectOf("C160"); // 15.5 wide to the right, 35 up
    project.Design.Room.Points = {{-100, -50, 0}, {100, -50, 1}, {100, 50, 1}};

    const Box pieces = DrawingOf(Pieces(), project, {}).Extent;
    const Box room = DrawingOf(Pieces(), project, {.Room = true}).Extent;

    EXPECT_NEAR(pieces.Width(), 15.5, 1e-4);
    EXPECT_NEAR(pieces.Height(), 35, 1e-4);
    EXPECT_NEAR(room.Width(), 200, 1e-4);
    EXPECT_NEAR(room.Height(), 100, 1e-4);
}

TEST(CircuitDrawing, OfAnEmptyCircuitIsAMetreWide) {
    EXPECT_EQ(DrawingOf(Pieces(), ProjectOf(""), {}).Extent, (Box{-50, -50, 50, 50}));
}

TEST(CircuitDrawing, TakesTheStocksColoursOnEveryTrackWhicheverIsBeingEdited) {
    Project project = ProjectOf("C160", "C160");
    project.Stock.Of(Pieces().FindRow("C160")).OwnedCount = 1;
    project.EditState.CurrentTrack = 1;
    project.EditState.Select(0);

    const CircuitDrawing drawing = DrawingOf(Pieces(), project, {});

    EXPECT_EQ(drawing.Pieces[0].Outline, Rgb(0, 0, 255));
    EXPECT_EQ(drawing.Pieces[1].Outline, Rgb(255, 0, 0));
}

TEST(CircuitDrawing, IsDrawnInInkWithoutTheStocksColours) {
    Project project = ProjectOf("C160 C160");
    project.Stock.Of(Pieces().FindRow("C160")).OwnedCount = 1;

    const CircuitDrawing lines = DrawingOf(Pieces(), project, {.StockColours = false});
    const CircuitDrawing surface = DrawingOf(Pieces(), project, {.Surface = true, .StockColours = false});

    EXPECT_EQ(lines.Pieces[0].Outline, Rgb(0, 0, 0));
    EXPECT_EQ(lines.Pieces[1].Outline, Rgb(0, 0, 0));
    EXPECT_EQ(lines.Preferences.Colours.Rail, Rgb(112, 112, 112));
    EXPECT_EQ(surface.Preferences.Colours.Rail, Rgb(0, 0, 0)) << "on asphalt";
}

TEST(CircuitDrawing, OfADarkSchemeTakesColoursThatShowOnWhitePaper) {
    Project project = ProjectOf("C160");
    project.Preferences.Colours = {Rgb(0, 0, 0),     Rgb(9, 9, 9),     Rgb(255, 255, 255),
                                   Rgb(255, 255, 0), Rgb(0, 255, 255), Rgb(1, 1, 1)};

    const CircuitDrawing drawing = DrawingOf(Pieces(), project, {});

    EXPECT_EQ(drawing.Preferences.Colours.Background, Rgb(255, 255, 255));
    EXPECT_EQ(drawing.Preferences.Colours.Rail, Rgb(0, 0, 0));
    EXPECT_EQ(drawing.Pieces[0].Outline, Rgb(255, 0, 0));
}

TEST(CircuitDrawing, InBlackAndWhiteIsBlack) {
    const CircuitDrawing drawing = DrawingOf(Pieces(), ProjectOf("C160"), {.BlackAndWhite = true});

    EXPECT_EQ(drawing.Pieces[0].Outline, Rgb(0, 0, 0));
    EXPECT_EQ(drawing.Preferences.Colours.Rail, Rgb(0, 0, 0));
}

TEST(CircuitDrawing, TooFarOutIsRefused) {
    Project project = ProjectOf("C160");
    project.Design.Circuit.Tracks[0].TrackStartX = 2e6F;

    EXPECT_EQ(FaultOf([&] { DrawingOf(Pieces(), project, {}); }),
              "Overflow: the circuit lies more than 10 km from its origin");
}

std::vector<std::string> Drawn(const Project& project, const DrawnParts& parts, const Box& part) {
    RecordingSurface surface(DistinctColours());
    surface.SetScale(part.Shown());
    surface.Lines.clear();
    DrawPart(DrawingOf(Pieces(), project, parts), part, surface);
    return surface.Lines;
}

TEST(APartOfADrawing, ShowsThePiecesThatMeetItWhole) {
    const Project project = ProjectOf("C160 C160");

    EXPECT_EQ(Drawn(project, {}, {0, 0, 10, 10}).size(), 6U) << "two lanes, four sides";
    EXPECT_EQ(Drawn(project, {}, {0, 30, 10, 40}).size(), 12U);
    EXPECT_EQ(Drawn(project, {}, {20, 0, 30, 10}).size(), 0U);
}

TEST(APartOfADrawing, ShowsGridNumbersAndRoomWhenTheyAreChosen) {
    Project project = ProjectOf("C160");
    project.Design.Room.Points = {{0, 0, 0}, {10, 0, 1}};
    project.Preferences.Grid = {1, 10};
    const Box part{-0.5, -0.5, 40, 40};

    EXPECT_EQ(Drawn(project, {.Numbers = true}, part).size(), 9U) << "and their size, a point and a text";
    EXPECT_EQ(Drawn(project, {.Room = true}, part).size(), 7U);
    EXPECT_EQ(Drawn(project, {.Grid = true}, part).size(), 22U) << "and lines from -20 to 50 both ways";
}

class AreaCounter : public RecordingSurface {
public:
    using RecordingSurface::RecordingSurface;

    int Areas = 0;

    void Fill(const std::vector<WorldPoint>&, Colour) override { ++Areas; }
};

TEST(APartOfADrawing, HasNumbersOnPlatesWhereTheGroundIsDark) {
    const auto fills = [](const DrawnParts& parts) {
        const Box part{-0.5, -0.5, 40, 40};
        AreaCounter surface(DistinctColours());
        surface.SetScale(part.Shown());
        DrawPart(DrawingOf(Pieces(), ProjectOf("C160"), parts), part, surface);
        return surface.Areas;
    };

    EXPECT_EQ(fills({.Numbers = true, .Surface = true}) - fills({.Surface = true}), 1);
    EXPECT_EQ(fills({.Numbers = true}), 0);
}

TEST(ANumber, IsReadByWhoStandsBeforeTheTrackAndIsNeverSmallerThanOtherWords) {
    constexpr double pixelsAtFullSize = 96 / 2.54; // a cm
    EXPECT_DOUBLE_EQ(NumberSize(pixelsAtFullSize), 2.5);
    EXPECT_DOUBLE_EQ(NumberSize(pixelsAtFullSize / 5), 2.5);
    EXPECT_NEAR(NumberSize(pixelsAtFullSize / 20), 20 * 8.25 * 2.54 / 72, 1e-9) << "8.25 points of the paper";
}

TEST(ARunOfADrawnTrack, IsDrawnAloneWithItsOwnNumbers) {
    const CircuitDrawing drawing =
        DrawingOf(Pieces(), ProjectOf("C160 C151L C160 C157"), {.Track = 0, .Run = ElementRun{1, 2}});

    ASSERT_EQ(drawing.Pieces.size(), 2U);
    EXPECT_EQ(drawing.Pieces[0].Index, 1);
    EXPECT_EQ(drawing.Pieces[0].Code, "C151L");
    EXPECT_EQ(drawing.Pieces[1].Index, 2);
}

TEST(ANumbersPlate, IsAsWideAsItsDigits) {
    const std::vector<WorldPoint> plate = NumberPlate({10, 20}, 2, 5);

    ASSERT_EQ(plate.size(), 4U);
    EXPECT_FLOAT_EQ(plate[0].X, 9.5F);
    EXPECT_FLOAT_EQ(plate[0].Y, 20);
    EXPECT_FLOAT_EQ(plate[2].X, 16.9F);
    EXPECT_FLOAT_EQ(plate[2].Y, 14.2F);
}

TEST(TheGridToDraw, IsThatOfTheSettingsOrLinesWhereTheyHaveNone) {
    Preferences preferences;
    preferences.Grid = {2, 25};
    EXPECT_EQ(GridToDraw(preferences), (GridSettings{2, 25}));

    preferences.Grid = {0, 25};
    EXPECT_EQ(GridToDraw(preferences), (GridSettings{1, 10}));
    preferences.Grid = {2, 0};
    EXPECT_EQ(GridToDraw(preferences), (GridSettings{1, 10}));
}

} // namespace
} // namespace pistaro
