// Starting up and starting anew, and the names that a file gives.
#include "model/project.h"

#include "model/working_directory.h"
#include "platform/fault.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

void ExpectDefaultView(const ViewSettings& view) {
    const ViewRectangle shown = ShownRectangle(view);
    EXPECT_EQ(shown.ViewLeft, -160);
    EXPECT_EQ(shown.ViewTop, 160);
    EXPECT_EQ(shown.ViewRight, 160);
    EXPECT_EQ(shown.ViewBottom, -160);
}

TEST(StartUp, ShowsThreeEmptyTracksNothingSelectedAndAnAreaOf320) {
    const Project project = StartUp({});

    for (const Track& track : project.Design.Circuit.Tracks) {
        EXPECT_EQ(track.ElementLastIndex(), -1);
    }
    EXPECT_EQ(project.EditState.CurrentElement, (std::array{-1, -1, -1}));
    EXPECT_EQ(project.EditState.CurrentTrack, 0);
    EXPECT_EQ(project.EditState.System, TrackSystem::Scalextric);
    EXPECT_FALSE(project.EditState.InsertMode);
    EXPECT_FALSE(project.EditState.DataChanged);
    EXPECT_EQ(Caption(project.EditState), "Pistaro - new project");
    ExpectDefaultView(project.Design.View);
    EXPECT_EQ(AreaLabel(project.Design.View.Width, project.Preferences.Units), "Area: 320 x 320 cm");
}

TEST(StartUp, PutsTheThreeStartsSideBySide) {
    const Project project = StartUp({});

    const auto& tracks = project.Design.Circuit.Tracks;
    EXPECT_EQ(tracks[0].TrackStartX, 0);
    EXPECT_EQ(tracks[1].TrackStartX, 15.5F);
    EXPECT_EQ(tracks[2].TrackStartX, -15.5F);
    for (const Track& track : tracks) {
        EXPECT_EQ(track.TrackStartY, 0);
        EXPECT_EQ(track.TrackStartHeading, 0);
    }
}

TEST(StartUp, TakesViewRoomGridUnitsColoursAndStockFromTheSettings) {
    Settings settings;
    settings.Preferences.WorkingDirectory = "/home/me/";
    settings.MidX = 40;
    settings.MidY = -20;
    settings.Zoom = 200;
    settings.Preferences.MWid = 100;
    settings.Preferences.Grid = {1, 25};
    settings.Preferences.Units = {true, "GBP"};
    settings.Room = {{{-10, -10, 0}, {10, -10, 1}}, 0.5F};
    settings.Preferences.Colours.Rail = 77;
    settings.Stock.Of(0) = {4, 2.5F};

    const Project project = StartUp(settings);

    const ViewRectangle shown = ShownRectangle(project.Design.View);
    EXPECT_EQ(shown.ViewLeft, -60);
    EXPECT_EQ(shown.ViewTop, 80);
    EXPECT_EQ(shown.ViewRight, 140);
    EXPECT_EQ(shown.ViewBottom, -120);
    EXPECT_EQ(project.Design.View.HMov.Minimum, -60);
    EXPECT_EQ(project.Design.View.HMov.Maximum, 140);
    EXPECT_EQ(project.Design.View.HMov.Value, 40);
    EXPECT_EQ(project.Design.View.VMov.Minimum, -120);
    EXPECT_EQ(project.Design.View.VMov.Maximum, 80);
    EXPECT_EQ(project.Design.View.VMov.Value, -20);
    EXPECT_EQ(project.Preferences.WorkingDirectory, "/home/me/");
    EXPECT_EQ(project.Preferences.Grid.Step, 25);
    EXPECT_STREQ(project.Preferences.Units.Name(), "in");
    EXPECT_EQ(project.Design.Room.Points.size(), 2U);
    EXPECT_EQ(project.Preferences.Colours.Rail, 77);
    EXPECT_EQ(project.Stock[0].OwnedCount, 4);
    EXPECT_EQ(project.Stock[0].Price, 2.5F);
    EXPECT_EQ(project.Stock[2].OwnedCount, 0);
}

Project UsedProject() {
    Settings settings;
    settings.MidX = 40;
    settings.MidY = 10;
    Project project = StartUp(settings);
    for (Track& track : project.Design.Circuit.Tracks)
        track = {{"C160", "C151L"}, 7, 8, 0.5F};
    project.EditState.CurrentElement = {1, 1, 1};
    project.Design.Circuit.Tracks[1].TrackStartY = 9;
    project.EditState.CurrentTrack = AllTracks;
    project.Design.Room.Points = {{1, 2, 1}};
    project.EditState.System = TrackSystem::Ninco;
    project.EditState.InsertMode = true;
    project.EditState.DataChanged = true;
    project.EditState.File = "/home/me/oval.trk";
    project.Stock.Of(13).OwnedCount = 5;
    project.Design.View.HMov.Value = 100;
    project.Design.View.VMov.Value = -50;
    project.Design.View.Width = 100;
    return project;
}

TEST(NewProject, BringsBackTheStartsAndKeepsTheirY) {
    Project project = UsedProject();

    NewProject(project);

    const auto& tracks = project.Design.Circuit.Tracks;
    EXPECT_EQ(tracks[0].TrackStartX, 0);
    EXPECT_EQ(tracks[1].TrackStartX, 15.5F);
    EXPECT_EQ(tracks[2].TrackStartX, -15.5F);
    EXPECT_EQ(tracks[0].TrackStartY, 8);
    EXPECT_EQ(tracks[1].TrackStartY, 9);
    EXPECT_EQ(tracks[2].TrackStartY, 8);
    for (const Track& track : tracks)
        EXPECT_EQ(track.TrackStartHeading, 0);
}

TEST(NewProject, EmptiesTheTracksAndChoosesTheFirst) {
    Project project = UsedProject();

    NewProject(project);

    for (const Track& track : project.Design.Circuit.Tracks) {
        EXPECT_EQ(track.ElementLastIndex(), -1);
    }
    EXPECT_EQ(project.EditState.CurrentTrack, 0);
    EXPECT_EQ(project.EditState.CurrentElement, (std::array{-1, -1, -1}));
    EXPECT_EQ(ProjectName(project.EditState), "new project");
    EXPECT_FALSE(project.EditState.DataChanged);
}

TEST(NewProject, ShowsTheDefaultAreaWithTheBarsOfAStartInItsMiddle) {
    Project project = UsedProject();
    project.Preferences.MWid = 200;

    NewProject(project);

    ExpectDefaultView(project.Design.View);
    EXPECT_EQ(project.Design.View.MWid, 200);
    for (const ScrollBar& bar : {project.Design.View.HMov, project.Design.View.VMov}) {
        EXPECT_EQ(bar.Minimum, -200);
        EXPECT_EQ(bar.Maximum, 200);
        EXPECT_EQ(bar.Value, 0);
    }
}

TEST(NewProject, KeepsRoomTrackSystemInsertModeAndStock) {
    Project project = UsedProject();

    NewProject(project);

    EXPECT_EQ(project.Design.Room.Points, (std::vector<RoomPoint>{{1, 2, 1}}));
    EXPECT_EQ(project.EditState.System, TrackSystem::Ninco);
    EXPECT_TRUE(project.EditState.InsertMode);
    EXPECT_EQ(project.Stock[13].OwnedCount, 5);
}

TEST(EditState, TellsTheSelectedCodeOfTheCurrentTrack) {
    Circuit circuit = EmptyCircuit();
    circuit.Tracks[1].ElementCodes = {"C160", "C151L"};
    EditState edit;
    edit.CurrentTrack = 1;
    EXPECT_EQ(SelectedCode(circuit, edit), "");

    edit.CurrentElement[1] = 1;
    EXPECT_EQ(SelectedCode(circuit, edit), "C151L");

    edit.CurrentTrack = AllTracks;
    EXPECT_EQ(SelectedCode(circuit, edit), "");
    EXPECT_EQ(EditedTrack(circuit, edit), nullptr);
}

TEST(EditState, NamesTheProjectAfterItsFileWithoutTheLastFourCharacters) {
    EditState edit;
    EXPECT_EQ(ProjectName(edit), "new project");

    for (const auto& [file, name] : {std::pair{"/home/me/oval.trk", "oval"},
                                     {"/home/me/no-ending", "no-en"},
                                     {"/home/me/abc", ""},
                                     {"/home/me/abcd", ""},
                                     {"/home/me/a.trk.old", "a.trk"}}) {
        edit.File = file;
        EXPECT_EQ(ProjectName(edit), name);
    }
}

TEST(Values, AreEqualWhenAllTheyHoldIs) {
    const Project project = UsedProject();
    Project other = project;
    EXPECT_EQ(project, other);

    other.Design.Circuit.Tracks[2].ElementCodes.back() = "C151R";
    EXPECT_NE(project.Design, other.Design);
    EXPECT_EQ(project.EditState, other.EditState);

    other = project;
    other.Stock.Of(13).Price = 1;
    EXPECT_NE(project.Stock, other.Stock);
    EXPECT_EQ(project.Preferences, other.Preferences);

    other.Preferences.Colours.Rail = 3;
    EXPECT_NE(project.Preferences, other.Preferences);
}

TEST(TextColour, IsBlackOrWhiteWhicheverContrastsMoreWithTheBackground) {
    constexpr Colour black = Rgb(0, 0, 0);
    constexpr Colour white = Rgb(255, 255, 255);
    EXPECT_EQ(TextColourOn(white), black);
    EXPECT_EQ(TextColourOn(black), white);
    EXPECT_EQ(TextColourOn(Rgb(255, 255, 0)), black);
    EXPECT_EQ(TextColourOn(Rgb(0, 0, 255)), white);
    EXPECT_EQ(TextColourOn(Rgb(0, 255, 0)), black);
    EXPECT_EQ(TextColourOn(Rgb(255, 0, 0)), black) << "5.25 to 1 against 4.0";
    EXPECT_EQ(TextColourOn(Rgb(118, 118, 118)), black);
    EXPECT_EQ(TextColourOn(Rgb(117, 117, 117)), white);
}

TEST(ColourScheme, HasSixSlotsInTheOrderOfTheSettingsFile) {
    std::string keys;
    for (const ColourSlot& slot : ColourSlots)
        keys += slot.Key;

    EXPECT_EQ(keys, "Background=Inactive=Rail=NonOwned=Owned=Active=");
    EXPECT_EQ(RoomColour, 128) << "dark red";
    EXPECT_EQ(GridColour, 0x404040) << "dark grey";
}

TEST(PathParts, ArePartedAfterTheLastSeparator) {
    EXPECT_EQ(SplitPath("/tracks/old/oval.trk").Folder, "/tracks/old/");
    EXPECT_EQ(SplitPath("/tracks/old/oval.trk").Title, "oval.trk");
    EXPECT_EQ(SplitPath("/tracks/").Title, "");
    EXPECT_EQ(SplitPath("oval.trk").Folder, "");
    EXPECT_EQ(SplitPath("oval.trk").Title, "oval.trk");
}

TEST(ProjectName, IsTheFilesTitleLessFourCharactersWhateverTheyAre) {
    EXPECT_EQ(NameFromTitle("oval.trk"), "oval");
    EXPECT_EQ(NameFromTitle("oval.circuit"), "oval.cir");
    EXPECT_EQ(NameFromTitle("trk"), "");
    EXPECT_EQ(NameFromTitle(".trk"), "");
    EXPECT_EQ(NameFromTitle("N\xC3\xBCrburg.\xC3\xA4\xC3\xB6\xC3\xBC"),
              "N\xC3\xBCrburg"); // four characters, seven bytes
}

} // namespace
} // namespace pistaro
