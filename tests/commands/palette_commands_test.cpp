// Special pieces laid from the palette, the system that a loaded circuit is made of, samples, and the tour's begin.
#include "commands/building_commands.h"
#include "commands/circuit_commands.h"
#include "commands/commands.h"

#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/named_windows.h"
#include "support/press.h"
#include "support/scripted_prompts.h"
#include "support/settings_bytes.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

class Palette : public testing::Test {
protected:
    void Run(const std::string& id) { Session.Run(*Session.Commands.Find(id)); }
    void Begin(const pistaro::Project& project) { Session.Project = project; }
    std::string Codes() { return CodesOf(Session.Project.Design.Circuit.Tracks[0]); }
    std::filesystem::path FileOf(const std::string& codes, const char* name = "some-oval.trk") {
        WriteBytes(Folder / name, CircuitText(codes));
        return Folder / name;
    }

    TemporaryFolder Folder;
    ScriptedPrompts Prompts;
    NamedWindows Windows;
    pistaro::Session Session{Pieces(), Prompts, ProjectOf(""), ""};
};

pistaro::Project Selecting(const std::string& codes, int element) {
    pistaro::Project project = ProjectOf(codes);
    project.EditState.CurrentElement[0] = element;
    return project;
}

TEST_F(Palette, ASpecialPieceReplacesASelectedPieceOfItsShapeAndHand) {
    Begin(Selecting("C160 C151R C159", 0));
    Run("special C164");
    EXPECT_EQ(Codes(), "C164 C151R C159");
    EXPECT_EQ(Session.History().Caption(Session.History().Present()), "Replace C160 by C164");

    Begin(Selecting("C160 C151R C159", 1));
    Run("special C8010R");
    EXPECT_EQ(Codes(), "C160 C8010R C159");
    EXPECT_TRUE(Session.Project.EditState.DataChanged);
}

TEST_F(Palette, ASpecialPieceOfAnotherShapeOrHandIsAdded) {
    Begin(Selecting("C160 C151R", 1));
    Run("special C277");
    EXPECT_EQ(Codes(), "C160 C151R C277");

    Begin(Selecting("C160 C151R", 1));
    Run("special C8010L");
    EXPECT_EQ(Codes(), "C160 C151R C8010L");
    EXPECT_EQ(Session.Project.EditState.SelectedElement(), 2);
}

TEST_F(Palette, TheSameSpecialPieceAgainIsAnotherOne) {
    Run("special C8009");
    Run("special C8009");

    EXPECT_EQ(Codes(), "C8009 C8009");
}

TEST_F(Palette, InInsertModeASpecialPieceThatDoesNotFitGoesBeforeTheSelectedOne) {
    Begin(Selecting("C160 C159", 0));
    Session.Project.EditState.InsertMode = true;

    Run("special C277");

    EXPECT_EQ(Codes(), "C277 C160 C159");
    EXPECT_EQ(Session.History().Caption(Session.History().Present()), "Insert C277");
}

TEST_F(Palette, APieceIsInsertedBeforeTheSelectedOneInEitherMode) {
    Begin(Selecting("C160 C159", 1));
    Session.Times = 2;
    Session.Do([&] { InsertBeforeCommand(Session, "C158"); });
    EXPECT_EQ(Codes(), "C160 C158 C158 C159");
    EXPECT_EQ(Session.Project.EditState.SelectedElement(), 3) << "still the same";
    EXPECT_FALSE(Session.Project.EditState.InsertMode);
    EXPECT_EQ(Session.Times, 1);
    EXPECT_EQ(Session.History().Caption(Session.History().Present()), "Insert 2 C158");

    Session.Project.EditState.InsertMode = true;
    Session.Do([&] { InsertBeforeCommand(Session, "C157"); });
    EXPECT_EQ(Codes(), "C160 C158 C158 C157 C159");
    EXPECT_TRUE(Session.Project.EditState.InsertMode);
}

TEST_F(Palette, WhatAFullTrackHasNoRoomForChangesNothing) {
    Begin(ProjectOf("C160"));
    Session.Project.Design.Circuit.Tracks[0].ElementCodes.resize(MaxElements, "C160");
    Session.Project.EditState.CurrentElement[0] = 0;

    Session.Do([&] { InsertBeforeCommand(Session, "C158"); });

    EXPECT_EQ(Prompts.Told.size(), 1U);
    EXPECT_EQ(Session.Project.Design.Circuit.Tracks[0].ElementCodes.front(), "C160");
    EXPECT_FALSE(Session.Project.EditState.InsertMode);
}

TEST_F(Palette, WithAllTracksChosenNoSpecialPieceIsLaid) {
    Session.Project.EditState.CurrentTrack = AllTracks;

    EXPECT_EQ(WhyNot(Session.Project, "special C164"), "Choose a single track first.");
}

TEST_F(Palette, ACircuitOfOneSystemOnlyChoosesItsPalette) {
    Session.Windows = &Windows;
    LoadFileCommand(Session, FileOf("N10102 N10105L N10110"));
    EXPECT_EQ(Session.Project.EditState.System, TrackSystem::Ninco);

    LoadFileCommand(Session, FileOf("C160 N10110 N10102"));
    EXPECT_EQ(Session.Project.EditState.System, TrackSystem::Ninco) << "made of both";
    LoadFileCommand(Session, FileOf("XYZ"));
    EXPECT_EQ(Session.Project.EditState.System, TrackSystem::Ninco) << "made of none";

    LoadFileCommand(Session, FileOf("C160 C151L"));
    EXPECT_EQ(Session.Project.EditState.System, TrackSystem::Scalextric);
}

TEST_F(Palette, ASampleIsOpenedWithoutAFileAndLeavesTheWorkingDirectory) {
    Session.Project.Preferences.WorkingDirectory = "/home/me/";

    EXPECT_TRUE(LoadSampleCommand(Session, FileOf("C160 C151L")));

    EXPECT_EQ(Codes(), "C160 C151L");
    EXPECT_EQ(Session.Project.EditState.File, std::filesystem::path());
    EXPECT_EQ(ProjectName(Session.Project.EditState), "some-oval");
    EXPECT_FALSE(Session.Project.EditState.DataChanged);
    EXPECT_EQ(Session.Project.Preferences.WorkingDirectory, "/home/me/");
    EXPECT_TRUE(Session.Recent.List().empty());
}

TEST_F(Palette, ASampleAsksAboutUnsavedWorkAsLoadDoes) {
    Begin(ProjectOf("C159 C159"));
    Session.Project.EditState.DataChanged = true;
    Prompts.Answers = {Answer::Cancel};

    EXPECT_FALSE(LoadSampleCommand(Session, FileOf("C160")));

    ASSERT_EQ(Prompts.Asked.size(), 1U);
    EXPECT_EQ(Prompts.Asked[0].Text, "All data will be lost if you proceed.");
    EXPECT_EQ(Codes(), "C159 C159");
}

TEST_F(Palette, TheTourBeginsWithAnEmptyTrackInBuildMode) {
    Session.Windows = &Windows;
    Session.Project.EditState.CurrentTrack = AllTracks;
    Session.Project.EditState.InsertMode = true;
    Session.Looks.Columns = false;

    Run("tour");

    EXPECT_EQ(Windows.Opened, "tour ");
    EXPECT_EQ(Session.Project.EditState.CurrentTrack, 0);
    EXPECT_FALSE(Session.Project.EditState.InsertMode);
    EXPECT_TRUE(Session.Looks.Columns);
    EXPECT_TRUE(Prompts.Asked.empty());
}

TEST_F(Palette, TheTourTakesNoUnsavedWorkAwayUnasked) {
    Session.Windows = &Windows;
    Begin(ProjectOf("C159 C159"));
    Session.Project.EditState.DataChanged = true;
    Prompts.Answers = {Answer::Cancel, Answer::Ok};

    Run("tour");
    EXPECT_EQ(Windows.Opened, "");
    EXPECT_EQ(Codes(), "C159 C159");

    Run("tour");
    EXPECT_EQ(Windows.Opened, "tour ");
    EXPECT_EQ(Codes(), "");
}

} // namespace
} // namespace pistaro
