// Starting up and starting anew.
#include "model/project.h"

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

    for (const Track& track : project.Layout.Tracks) {
        EXPECT_EQ(track.ElementLastIndex(), -1);
        EXPECT_EQ(track.CurrentElement, -1);
    }
    EXPECT_EQ(project.Layout.CurrentTrack, 0);
    EXPECT_EQ(project.System, TrackSystem::Scalextric);
    EXPECT_FALSE(project.InsertMode);
    EXPECT_FALSE(project.DataChanged);
    EXPECT_EQ(Caption(project), "Pistaro - new project");
    ExpectDefaultView(project.View);
    EXPECT_EQ(AreaLabel(project.View.Width, project.DisplayUnits), "Area: 320 x 320 cm");
}

TEST(StartUp, PutsTheThreeStartsSideBySide) {
    const Project project = StartUp({});

    const auto& tracks = project.Layout.Tracks;
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
    settings.WorkingDirectory = "/home/me/";
    settings.MidX = 40;
    settings.MidY = -20;
    settings.Zoom = 200;
    settings.MWid = 100;
    settings.Grid = {1, 25};
    settings.DisplayUnits = {true, "GBP"};
    settings.Room = {{{-10, -10, 0}, {10, -10, 1}}, 0.5F};
    settings.Colours.Rail = 77;
    settings.Stocks[0] = {4, 2.5F};

    const Project project = StartUp(settings);

    const ViewRectangle shown = ShownRectangle(project.View);
    EXPECT_EQ(shown.ViewLeft, -60);
    EXPECT_EQ(shown.ViewTop, 80);
    EXPECT_EQ(shown.ViewRight, 140);
    EXPECT_EQ(shown.ViewBottom, -120);
    EXPECT_EQ(project.View.HMov.Minimum, -60);
    EXPECT_EQ(project.View.HMov.Maximum, 140);
    EXPECT_EQ(project.View.HMov.Value, 40);
    EXPECT_EQ(project.View.VMov.Minimum, -120);
    EXPECT_EQ(project.View.VMov.Maximum, 80);
    EXPECT_EQ(project.View.VMov.Value, -20);
    EXPECT_EQ(project.WorkingDirectory, "/home/me/");
    EXPECT_EQ(project.Grid.Step, 25);
    EXPECT_STREQ(project.DisplayUnits.Name(), "in");
    EXPECT_EQ(project.Room.Points.size(), 2U);
    EXPECT_EQ(project.Colours.Rail, 77);
    EXPECT_EQ(project.Pieces[0].OwnedCount, 4);
    EXPECT_EQ(project.Pieces[0].Price, 2.5F);
    EXPECT_EQ(project.Pieces[2].OwnedCount, 0);
}

Project UsedProject() {
    Settings settings;
    settings.MidX = 40;
    settings.MidY = 10;
    Project project = StartUp(settings);
    for (Track& track : project.Layout.Tracks)
        track = {{"C160", "C151L"}, 1, 7, 8, 0.5F};
    project.Layout.Tracks[1].TrackStartY = 9;
    project.Layout.CurrentTrack = AllTracks;
    project.Room.Points = {{1, 2, 1}};
    project.System = TrackSystem::Ninco;
    project.InsertMode = true;
    project.DataChanged = true;
    project.Name = "oval";
    project.Pieces[13].UsedCount = 3;
    project.Pieces[13].OwnedCount = 5;
    project.View.HMov.Value = 100;
    project.View.VMov.Value = -50;
    project.View.Width = 100;
    return project;
}

TEST(NewProject, BringsBackTheStartsAndKeepsTheirY) {
    Project project = UsedProject();

    NewProject(project);

    const auto& tracks = project.Layout.Tracks;
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

    for (const Track& track : project.Layout.Tracks) {
        EXPECT_EQ(track.ElementLastIndex(), -1);
        EXPECT_EQ(track.CurrentElement, -1);
    }
    EXPECT_EQ(project.Layout.CurrentTrack, 0);
    EXPECT_EQ(project.Pieces[13].UsedCount, 0);
    EXPECT_EQ(project.Name, "new project");
    EXPECT_FALSE(project.DataChanged);
}

TEST(NewProject, ShowsTheDefaultAreaWithTheBarsInTheirMiddle) {
    Project project = UsedProject();

    NewProject(project);

    ExpectDefaultView(project.View);
    EXPECT_EQ(project.View.HMov.Minimum, -120);
    EXPECT_EQ(project.View.HMov.Maximum, 200);
    EXPECT_EQ(project.View.HMov.Value, 40);
    EXPECT_EQ(project.View.VMov.Value, 10);
}

TEST(NewProject, KeepsRoomTrackSystemInsertModeAndStock) {
    Project project = UsedProject();

    NewProject(project);

    EXPECT_EQ(project.Room.Points, (std::vector<RoomPoint>{{1, 2, 1}}));
    EXPECT_EQ(project.System, TrackSystem::Ninco);
    EXPECT_TRUE(project.InsertMode);
    EXPECT_EQ(project.Pieces[13].OwnedCount, 5);
}

TEST(Circuit, TellsTheSelectedCodeOfTheCurrentTrack) {
    Circuit circuit = EmptyCircuit();
    circuit.Tracks[1].ElementCodes = {"C160", "C151L"};
    circuit.CurrentTrack = 1;
    EXPECT_EQ(SelectedCode(circuit), "");

    circuit.Tracks[1].CurrentElement = 1;
    EXPECT_EQ(SelectedCode(circuit), "C151L");

    circuit.CurrentTrack = AllTracks;
    EXPECT_EQ(SelectedCode(circuit), "");
    EXPECT_EQ(circuit.Current(), nullptr);
}

TEST(ColourScheme, HasSixSlotsInTheOrderOfTheSettingsFile) {
    std::string keys;
    for (const ColourSlot& slot : ColourSlots)
        keys += slot.Key;

    EXPECT_EQ(keys, "Background=Inactive=Rail=NonOwned=Owned=Active=");
    EXPECT_EQ(RoomColour, 128) << "dark red";
    EXPECT_EQ(GridColour, 0x404040) << "dark grey";
}

} // namespace
} // namespace pistaro
