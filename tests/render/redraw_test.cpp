// The whole picture: what is drawn, in which colour and in which order.
#include "render/redraw.h"

#include "catalogue/track_geometry.h"
#include "render/plain_project.h"
#include "support/recording_surface.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace pistaro {
namespace {

RecordingSurface Redrawn(const Project& project) {
    RecordingSurface surface(project.Preferences.Colours);
    RedrawCircuit(Pieces(), project, surface);
    return surface;
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

TEST(Numbers, AreDrawnAfterEachPieceFromZero) {
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
    project.Preferences.Units.Inches = true;

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

/// The words with which the lines of a record begin, each once.
std::set<std::string> KindsOf(const RecordingSurface& surface) {
    std::set<std::string> kinds;
    for (const std::string& line : surface.Lines)
        kinds.insert(line.substr(0, line.find(' ')));
    return kinds;
}

/// With something of everything to draw.
Project FullProject() {
    Project project = PlainProject("C160", "C164");
    project.Preferences.Grid = {2, 100};
    project.Design.Room.Points = {{0, 0, 0}, {50, 0, 1}};
    project.EditState.ShowNumbers = true;
    return project;
}

std::string PartOf(const std::function<void(const Project&, Surface&)>& draw) {
    RecordingSurface surface(DistinctColours());
    draw(FullProject(), surface);
    return surface.Text();
}

TEST(Parts, TheAreaLabelIsItsPointAndItsText) {
    EXPECT_EQ(PartOf([](const Project& project, Surface& surface) {
                  DrawAreaLabel(project.Preferences, ShownRectangle(project.Design.View), surface);
              }),
              "point -153.6,-144 text\n"
              "text \"Area: 320 x 320 cm\" text\n");
}

TEST(Parts, TheRoomIsItsSides) {
    EXPECT_EQ(PartOf([](const Project& project, Surface& surface) { DrawRoom(project.Design.Room, surface); }),
              "line 0,0 50,0 room\n");
}

TEST(Parts, TracksWithoutNumbersAreLanesOutlinesAndMarks) {
    RecordingSurface surface(DistinctColours());

    DrawTracks(Pieces(), FullProject(), {.Pieces = true, .Numbers = false}, surface);

    EXPECT_EQ(KindsOf(surface), (std::set<std::string>{"line", "ellipse"}));
    EXPECT_EQ(surface.Lines.size(), 17U) << "two straights of six lines, and five ellipses";
}

TEST(Parts, NumbersWithoutPiecesArePointsAndTexts) {
    EXPECT_EQ(PartOf([](const Project& project, Surface& surface) {
                  DrawTracks(Pieces(), project, {.Pieces = false, .Numbers = true}, surface);
              }),
              "point 18.25,21.5 text\n"
              "text \"0\" text\n"
              "point 2.75,21.5 text\n"
              "text \"0\" text\n")
        << "the current track, the first, comes last";
}

TEST(Parts, NeitherPiecesNorNumbersAreNothing) {
    EXPECT_EQ(PartOf([](const Project& project, Surface& surface) {
                  DrawTracks(Pieces(), project, {.Pieces = false, .Numbers = false}, surface);
              }),
              "");
}

TEST(Parts, TheViewIsScaleAndFont) {
    EXPECT_EQ(PartOf([](const Project& project, Surface& surface) { ShowView(project.Design.View, surface); }),
              "scale -160,160 160,-160\n"
              "font 8.25\n");
}

TEST(Parts, GroundAndCircuitAreTheWholeDrawing) {
    const Project project = FullProject();
    RecordingSurface ground(project.Preferences.Colours);
    RecordingSurface circuit(project.Preferences.Colours);

    DrawGround(project.Preferences, project.Design.View, ground);
    DrawCircuit(Pieces(), project, circuit);

    EXPECT_EQ(KindsOf(ground), (std::set<std::string>{"clear", "scale", "font", "ellipse", "point", "text"}));
    EXPECT_EQ(ground.Text() + circuit.Text(), Redrawn(project).Text());
}

TEST(Texts, AreBlackOnALightBackgroundAndWhiteOnADarkOne) {
    const Colour black = Rgb(0, 0, 0);
    const Colour white = Rgb(255, 255, 255);
    const std::vector<std::pair<Colour, Colour>> backgrounds{
        {white, black}, {Rgb(255, 255, 200), black}, {Rgb(255, 0, 0), black}, {Rgb(0, 160, 0), black},
        {black, white}, {Rgb(0, 0, 255), white},     {Rgb(0, 0, 64), white},  {Rgb(90, 90, 90), white}};
    for (const auto& [background, text] : backgrounds) {
        Project project = FullProject();
        project.Preferences.Colours.Background = background;

        RecordingSurface numbers(project.Preferences.Colours);
        DrawTracks(Pieces(), project, {.Pieces = false, .Numbers = true}, numbers);
        RecordingSurface label(project.Preferences.Colours);
        DrawAreaLabel(project.Preferences, ShownRectangle(project.Design.View), label);

        EXPECT_EQ(numbers.TextColours, std::set{text}) << std::hex << background;
        EXPECT_EQ(label.TextColours, std::set{text}) << std::hex << background;
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
