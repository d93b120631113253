// The whole picture: what is drawn, in which colour and in which order.
#include "render/redraw.h"

#include "catalogue/track_geometry.h"
#include "support/chain.h"
#include "support/recording_surface.h"

#include <gtest/gtest.h>

#include <string>

namespace pistaro {
namespace {

/// Without grid and room, in colours that the record tells apart.
Project PlainProject(const std::string& track1 = "", const std::string& track2 = "", const std::string& track3 = "") {
    Project project = ProjectOf(track1, track2, track3);
    project.Preferences.Colours = DistinctColours();
    project.Preferences.Grid.Type = 0;
    return project;
}

RecordingSurface Redrawn(const Project& project) {
    RecordingSurface surface(project.Preferences.Colours);
    RedrawCircuit(Pieces(), project, surface);
    return surface;
}

void SetView(Project& project, float midX, float midY, float width) {
    project.Design.View.MidX = midX;
    project.Design.View.MidY = midY;
    project.Design.View.Width = width;
}

/// The colours in the order of drawing, each as long as it lasts named once.
std::string ColoursInOrder(const RecordingSurface& surface) {
    std::string order;
    std::string last;
    for (const std::string& line : surface.Lines) {
        const std::string colour = line.substr(line.rfind(' ') + 1);
        if (colour != last && !line.starts_with("scale") && !line.starts_with("font")) order += colour + " ";
        last = colour;
    }
    return order;
}

TEST(Redraw, OfAnEmptyProjectIsTheAreaLabelAlone) {
    Project project = PlainProject();

    EXPECT_EQ(Redrawn(project).Text(), "clear background\n"
                                       "scale -160,160 160,-160\n"
                                       "font 8.25\n"
                                       "point -153.6,-144 text\n"
                                       "text \"Area: 320 x 320 cm\" text\n");
}

TEST(Redraw, StacksGridLabelOtherTracksCurrentTrackAndRoom) {
    Project project = PlainProject("C158", "C158", "C158");
    project.Preferences.Grid = {1, 100};
    project.Design.Room.Points = {{0, 0, 0}, {50, 0, 1}};
    project.EditState.CurrentTrack = 1;
    project.Stock.Of(11).OwnedCount = 9;

    const RecordingSurface surface = Redrawn(project);

    EXPECT_EQ(ColoursInOrder(surface), "background grid text rail inactive rail inactive rail owned room ");
    EXPECT_EQ(surface.LinesOf("line").back(), "line 0,0 50,0 room");
    std::string entries;
    for (const std::string& line : surface.LinesOf("line")) {
        if (line.ends_with("inactive") || line.ends_with("owned")) entries += line + "\n";
    }
    EXPECT_TRUE(entries.starts_with("line 0,0 0,8.75 inactive\n")) << "track 1 first";
    EXPECT_NE(entries.find("inactive\nline 15.5,0 15.5,8.75 owned\n"), std::string::npos)
        << "track 2, the current one, last";
}

TEST(Redraw, DrawsEveryTrackInactiveWhenAllAreChosen) {
    Project project = PlainProject("C158", "C158", "C158");
    project.EditState.CurrentElement[0] = 0;
    project.EditState.CurrentTrack = AllTracks;

    EXPECT_EQ(ColoursInOrder(Redrawn(project)), "background text rail inactive rail inactive rail inactive ");
}

TEST(Redraw, ShowsTheSelectedElementOfTheCurrentTrackAlone) {
    Project project = PlainProject("C158 C158", "C158 C158");
    project.EditState.CurrentElement[0] = 1;
    project.EditState.CurrentElement[1] = 0;

    EXPECT_EQ(ColoursInOrder(Redrawn(project)),
              "background text rail inactive rail inactive rail nonOwned rail active ");
}

TEST(Redraw, ShowsTheFirstPiecesAsOwnedCountedAlongTheTracks) {
    Project project = PlainProject("C158", "C158 C158");
    project.Stock.Of(11).OwnedCount = 2;

    project.EditState.CurrentTrack = 1;
    EXPECT_EQ(ColoursInOrder(Redrawn(project)), "background text rail inactive rail owned rail nonOwned ");

    project.Stock.Of(11).OwnedCount = 1;
    EXPECT_EQ(ColoursInOrder(Redrawn(project)), "background text rail inactive rail nonOwned rail nonOwned ");
}

TEST(Redraw, DrawsNothingOfAnUnknownCodeAndGoesOn) {
    Project project = PlainProject("C160 mystery  C160");

    const RecordingSurface surface = Redrawn(project);

    EXPECT_EQ(surface.LinesOf("line").size(), 12U);
    EXPECT_EQ(surface.LinesOf("line")[8], "line 0,35 0,70 nonOwned");
}

TEST(Redraw, TellsTheChicaneWhatStandsBeforeItInItsOwnTrack) {
    Project project = PlainProject("C8009", "C8007", "C8009 C8007");
    project.Design.Circuit.Tracks[1].TrackStartX = 0;
    project.Design.Circuit.Tracks[2].TrackStartX = 0;

    const RecordingSurface surface = Redrawn(project);

    const auto lines = surface.LinesOf("line");
    EXPECT_EQ(lines[0], "line 3.8,0 6.5,35 rail") << "first of track 2, though track 1 ends in a chicane";
    EXPECT_EQ(lines[12], "line 6.5,35 3.8,70 rail") << "second of track 3";
}

TEST(Numbers, AreDrawnBehindEachPieceFromZero) {
    Project project = PlainProject("C160 C160");
    project.EditState.ShowNumbers = true;

    const RecordingSurface surface = Redrawn(project);

    EXPECT_EQ(surface.Lines[11], "point 2.75,21.5 text");
    EXPECT_EQ(surface.Lines[12], "text \"0\" text");
    EXPECT_EQ(surface.Lines[19], "point 2.75,56.5 text");
    EXPECT_EQ(surface.Lines[20], "text \"1\" text");
}

TEST(Numbers, WithTheBoxUntickedNeitherNumberNorPointIsDrawn) {
    Project project = PlainProject("C160 C151L", "C164");

    const RecordingSurface surface = Redrawn(project);

    EXPECT_EQ(surface.LinesOf("point").size(), 1U) << "that of the area label";
    EXPECT_EQ(surface.LinesOf("text").size(), 1U);
}

TEST(Numbers, LieFiveLeftAndFourAboveWhateverTheZoom) {
    for (const float width : {20.0F, 320.0F, 5000.0F}) {
        Project project = PlainProject("C160");
        project.EditState.ShowNumbers = true;
        SetView(project, 0, 0, width);

        EXPECT_EQ(Redrawn(project).LinesOf("point").back(), "point 2.75,21.5 text") << width;
    }
}

TEST(AreaLabel, IsInDisplayUnitsAtTheBottomLeft) {
    Project project = PlainProject();
    SetView(project, 100, 50, 254);
    project.Preferences.DisplayUnits.Inches = true;

    const RecordingSurface surface = Redrawn(project);

    EXPECT_EQ(surface.LinesOf("text").back(), "text \"Area: 100 x 100 in\" text");
    EXPECT_EQ(surface.LinesOf("point").back(), "point -21.92,-64.3 text");
}

TEST(Texts, AreSmallBeyondAWidthOf400) {
    Project project = PlainProject();
    SetView(project, 0, 0, 400);
    EXPECT_EQ(Redrawn(project).LinesOf("font").front(), "font 8.25");

    SetView(project, 0, 0, 410);
    EXPECT_EQ(Redrawn(project).LinesOf("font").front(), "font 6");
}

std::vector<std::string> GridOf(const Project& project) {
    RecordingSurface surface(project.Preferences.Colours);
    const ViewRectangle shown = ShownRectangle(project.Design.View);
    surface.SetScale(shown);
    surface.Lines.clear();
    DrawGrid(project.Preferences, shown, surface);
    return surface.Lines;
}

TEST(Grid, OfLinesReachesOneStepBeyondTheView) {
    Project project = PlainProject();
    project.Preferences.Grid = {1, 10};
    SetView(project, 0, 0, 20);

    EXPECT_EQ(GridOf(project),
              (std::vector<std::string>{"line -20,20 -20,-20 grid", "line -10,20 -10,-20 grid", "line 0,20 0,-20 grid",
                                        "line 10,20 10,-20 grid", "line 20,20 20,-20 grid", "line -20,20 20,20 grid",
                                        "line -20,10 20,10 grid", "line -20,0 20,0 grid", "line -20,-10 20,-10 grid",
                                        "line -20,-20 20,-20 grid"}));
}

TEST(Grid, LiesOnMultiplesOfItsStepWhereverTheViewLies) {
    Project project = PlainProject();
    project.Preferences.Grid = {1, 8};
    SetView(project, 3, -50, 20); // -7..13 and -60..-40

    const auto lines = GridOf(project);

    ASSERT_EQ(lines.size(), 11U);
    EXPECT_EQ(lines[0], "line -16,-32 -16,-72 grid");
    EXPECT_EQ(lines[4], "line 16,-32 16,-72 grid");
    EXPECT_EQ(lines[5], "line -16,-32 16,-32 grid");
    EXPECT_EQ(lines[10], "line -16,-72 16,-72 grid");
}

TEST(Grid, OfDotsIsATinyCircleAtEveryCrossing) {
    Project project = PlainProject();
    project.Preferences.Grid = {2, 250};
    SetView(project, 0, 0, 500);

    const auto dots = GridOf(project);

    ASSERT_EQ(dots.size(), 25U);
    EXPECT_EQ(dots.front(), "ellipse -500,500 1 1 grid") << "at a width of 500 the radius is 1";
    EXPECT_EQ(dots[1], "ellipse -500,250 1 1 grid");
    EXPECT_EQ(dots.back(), "ellipse 500,-500 1 1 grid");
}

TEST(Grid, DotsKeepTheirSizeOnTheScreen) {
    Project project = PlainProject();
    project.Preferences.Grid = {2, 50};
    SetView(project, 0, 0, 50);

    EXPECT_EQ(GridOf(project).front(), "ellipse -100,50 0.1 1 grid");
}

TEST(Grid, StepsAreInDisplayUnits) {
    Project project = PlainProject();
    project.Preferences.Grid = {1, 10};
    project.Preferences.DisplayUnits.Inches = true;
    SetView(project, 0, 0, 20);

    EXPECT_EQ(GridOf(project).front(), "line -50.8,25.4 -50.8,-50.8 grid");
}

TEST(Grid, OfNoTypeOrNoStepIsNone) {
    Project project = PlainProject();
    for (const GridSettings grid : {GridSettings{0, 10}, {3, 10}, {-1, 10}, {1, 0}, {2, -10}}) {
        project.Preferences.Grid = grid;
        EXPECT_TRUE(GridOf(project).empty()) << grid.Type << " " << grid.Step;
    }
}

std::string RoomText(const RoomPolygon& room) {
    RecordingSurface surface(DistinctColours());
    DrawRoom(room, surface);
    return surface.Text();
}

TEST(Room, WithNoPointsIsNotDrawn) { EXPECT_EQ(RoomText({{}, 1}), ""); }

TEST(Room, IsOpenUnlessItsLastPointIsItsFirst) {
    EXPECT_EQ(RoomText({{{0, 0, 0}, {100, 0, 1}, {100, 50, 1}}, 0}), "line 0,0 100,0 room\n"
                                                                     "line 100,0 100,50 room\n");
}

TEST(Room, HasGapsWhereThePenMovesOnToAPillar) {
    EXPECT_EQ(RoomText({{{0, 0, 0}, {100, 0, 1}, {20, 20, 0}, {30, 20, 1}, {5, 5, -1}, {6, 5, 2}}, 0}),
              "line 0,0 100,0 room\n"
              "line 20,20 30,20 room\n");
}

TEST(Room, IsTurnedByItsAngleClockwise) {
    const auto quarter = static_cast<float>(PiValue / 2);
    EXPECT_EQ(RoomText({{{10, 0, 0}, {20, 0, 1}, {20, 30, 1}}, quarter}), "line 0,-10 0,-20 room\n"
                                                                          "line 0,-20 30,-20 room\n");
}

TEST(Room, ItsFirstPointHasItselfBeforeIt) { EXPECT_EQ(RoomText({{{7, 8, 1}}, 0}), "line 7,8 7,8 room\n"); }

TEST(ExtremeViews, AreDrawnWithoutAnEndlessGrid) {
    for (const std::int16_t type : {std::int16_t{1}, std::int16_t{2}}) {
        for (const float width : {0.0F, -20.0F, 1e-30F, 1e30F, 3.4e38F}) {
            for (const float middle : {0.0F, 1e9F, -1e30F, 3.4e38F}) {
                Project project = PlainProject("C160 C151L", "C187L", "N10110");
                project.Preferences.Grid = {type, 1};
                SetView(project, middle, -middle, width);

                const RecordingSurface surface = Redrawn(project);

                const std::size_t most = type == 1 ? 270 : 14200; // 119 steps of 6 pixels each way, and four pieces
                EXPECT_LE(surface.LinesOf("line").size() + surface.LinesOf("ellipse").size(), most)
                    << width << " at " << middle;
                EXPECT_EQ(surface.LinesOf("text").size(), 1U);
            }
        }
    }
}

TEST(ExtremeViews, AFineGridInAWideViewHasABoundedNumberOfLines) {
    Project project = PlainProject();
    project.Preferences.Grid = {1, 1};
    for (const float width : {100.0F, 499.0F, 501.0F, 20000.0F}) {
        SetView(project, 12345.5F, 1e7F, width);
        EXPECT_LE(GridOf(project).size(), 1010U) << width;
    }
}

TEST(ExtremeCoordinates, ArePlacedWithoutAFault) {
    for (const float far : {1e7F, 1e38F, -3.4e38F}) {
        Project project = PlainProject("C160 C151L C8006 C187R", "N10110 N10105L");
        project.EditState.ShowNumbers = true;
        for (Track& track : project.Design.Circuit.Tracks) {
            track.TrackStartX = far;
            track.TrackStartY = -far;
            track.TrackStartHeading = far;
        }

        EXPECT_EQ(Redrawn(project).LinesOf("text").size(), 7U);
    }
}

TEST(Redraw, ChangesNoValueOfTheView) {
    Project project = PlainProject("C160");
    SetView(project, 3, 4, 123);
    project.Design.View.HMov.Value = 77;

    Redrawn(project);

    EXPECT_EQ(project.Design.View.MidX, 3);
    EXPECT_EQ(project.Design.View.MidY, 4);
    EXPECT_EQ(project.Design.View.Width, 123);
    EXPECT_EQ(project.Design.View.HMov.Value, 77);
    EXPECT_EQ(project.Design.Circuit.Tracks[0].TrackStartY, 0);
}

} // namespace
} // namespace pistaro
