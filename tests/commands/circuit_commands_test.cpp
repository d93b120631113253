// Load, Save, New and Quit: questions, dialogs and kept habits.
#include "commands/circuit_commands.h"

#include "editor/circuit_files.h"
#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/fault_of.h"
#include "support/press.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace pistaro {

namespace {

const std::string OneStraight = CircuitText("C160");

Project Unsaved(const std::string& codes) {
    Project project = ProjectOf(codes);
    project.EditState.DataChanged = true;
    return project;
}

std::string Question(const ScriptedPrompts& prompts) {
    return prompts.Asked.size() == 1 ? prompts.Asked[0].Text : std::to_string(prompts.Asked.size()) + " questions";
}

class CircuitCommands : public testing::Test {
protected:
    std::string FolderText() const { return (folder_.Path() / "").string(); }

    TemporaryFolder folder_;
    ScriptedPrompts prompts_;
};

using New = CircuitCommands;
using Load = CircuitCommands;
using Save = CircuitCommands;
using Quit = CircuitCommands;

} // namespace

TEST_F(New, OverUnsavedWorkAsksWithOkAndCancel) {
    Project project = Unsaved("C160 C160");
    prompts_.Answers = {Answer::Cancel};
    const std::string before = Snapshot(project);

    Press(project, "new", prompts_);

    ASSERT_EQ(Question(prompts_), "Send data on its way to binary oblivion?");
    EXPECT_EQ(prompts_.Asked[0].Choices, Buttons::OkCancel);
    EXPECT_EQ(Snapshot(project), before);
}

TEST_F(New, AfterOkEmptiesTheCircuit) {
    Project project = Unsaved("C160 C160");
    prompts_.Answers = {Answer::Ok};

    Press(project, "new", prompts_);

    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[0]), "");
    EXPECT_FALSE(project.EditState.DataChanged);
    EXPECT_EQ(Caption(project.EditState), "Pistaro - new project");
}

TEST_F(New, AsksNothingAboutASingleElementOrSavedWork) {
    Project single = Unsaved("C160");
    Press(single, "new", prompts_);
    Project saved = ProjectOf("C160 C160");
    Press(saved, "new", prompts_);

    EXPECT_TRUE(prompts_.Asked.empty());
    EXPECT_EQ(CodesOf(single.Design.Circuit.Tracks[0]), "");
    EXPECT_EQ(CodesOf(saved.Design.Circuit.Tracks[0]), "");
}

TEST_F(New, AsksAboutTwoElementsOnAnyTrack) {
    Project project = ProjectOf("", "", "C160 C160");
    project.EditState.DataChanged = true;
    prompts_.Answers = {Answer::Ok};

    Press(project, "new", prompts_);

    EXPECT_EQ(prompts_.Asked.size(), 1U);
}

TEST_F(New, KeepsStartYRoomSystemAndInsertMode) {
    Project project = ProjectOf("C160");
    Press(project, "track 2");
    Press(project, "move up-right");
    Press(project, "rotate left");
    Press(project, "system");
    Press(project, "insert");
    project.Design.Room.Points = {{1, 2, 1}};

    Press(project, "new", prompts_);

    EXPECT_EQ(project.EditState.CurrentTrack, 0);
    EXPECT_EQ(project.Design.Circuit.Tracks[0].TrackStartX, 0);
    EXPECT_EQ(project.Design.Circuit.Tracks[1].TrackStartX, 15.5F);
    EXPECT_EQ(project.Design.Circuit.Tracks[2].TrackStartX, -15.5F);
    EXPECT_EQ(project.Design.Circuit.Tracks[1].TrackStartY, 15.5F);
    EXPECT_EQ(project.Design.Circuit.Tracks[1].TrackStartHeading, 0);
    EXPECT_EQ(project.Design.Room.Points.size(), 1U);
    EXPECT_EQ(project.EditState.System, TrackSystem::Ninco);
    EXPECT_TRUE(project.EditState.InsertMode);
}

TEST_F(New, BringsBackTheViewAndTheScrollBarsOfAStart) {
    Project project = ProjectOf("C160");
    project.Preferences.MWid = 100;
    project.Design.View = {
        .MidX = 40, .MidY = -30, .Width = 150, .MWid = 55, .HMov = {-15, 95, 50}, .VMov = {-85, 25, 7}};

    Press(project, "new", prompts_);

    EXPECT_EQ(project.Design.View,
              (ViewSettings{
                  .MidX = 0, .MidY = 0, .Width = 320, .MWid = 100, .HMov = {-100, 100, 0}, .VMov = {-100, 100, 0}}));
}

TEST_F(Load, OverUnsavedWorkAsksWithOkAndCancel) {
    Project project = Unsaved("C160 C160");
    prompts_.Answers = {Answer::Cancel};
    const std::string before = Snapshot(project);

    Press(project, "load", prompts_);

    ASSERT_EQ(Question(prompts_), "All data will be lost if you proceed.");
    EXPECT_EQ(prompts_.Asked[0].Choices, Buttons::OkCancel);
    EXPECT_TRUE(prompts_.Dialogs.empty());
    EXPECT_EQ(Snapshot(project), before);
}

TEST_F(Load, ShowsTheTrackFilesOfTheWorkingDirectory) {
    Project project = ProjectOf("");
    project.EditState.File = "/tracks/monza.trk";
    project.Preferences.WorkingDirectory = "/tracks/";
    prompts_.Files = {std::nullopt};

    Press(project, "load", prompts_);

    ASSERT_EQ(prompts_.Dialogs.size(), 1U);
    EXPECT_FALSE(prompts_.Dialogs[0].Saving);
    EXPECT_EQ(prompts_.Dialogs[0].Title, "Load Circuit");
    EXPECT_EQ(prompts_.Dialogs[0].Filter, "Track files (*.trk)|*.trk");
    EXPECT_EQ(prompts_.Dialogs[0].DefaultName, "");
    EXPECT_EQ(prompts_.Dialogs[0].Folder, "/tracks/");
}

TEST_F(Load, ReplacesTheCircuitAndSelectsNothing) {
    WriteBytes(folder_ / "oval.trk", OneStraight);
    Project project = ProjectOf("C151L C151L", "C160");
    project.EditState.CurrentElement[1] = 0;
    Press(project, "track 2");
    prompts_.Files = {folder_ / "oval.trk"};

    Press(project, "load", prompts_);

    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[0]), "C160");
    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[1]), "");
    EXPECT_EQ(project.EditState.CurrentTrack, 0);
    EXPECT_EQ(project.EditState.CurrentElement, (std::array{-1, -1, -1}));
    EXPECT_FALSE(project.EditState.DataChanged);
    EXPECT_EQ(Caption(project.EditState), "Pistaro - oval");
    EXPECT_EQ(project.Preferences.WorkingDirectory, FolderText());
}

TEST_F(Load, KeepsTheTrackSystemAndInsertMode) {
    WriteBytes(folder_ / "oval.trk", OneStraight);
    Project project = ProjectOf("");
    Press(project, "system");
    Press(project, "insert");
    prompts_.Files = {folder_ / "oval.trk"};

    Press(project, "load", prompts_);

    EXPECT_EQ(project.EditState.System, TrackSystem::Ninco);
    EXPECT_TRUE(project.EditState.InsertMode);
}

TEST_F(Load, CancelledAfterOkLeavesTheNewProject) {
    Project project = Unsaved("C160 C160");
    prompts_.Answers = {Answer::Ok};
    prompts_.Files = {std::nullopt};

    Press(project, "load", prompts_);

    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[0]), "");
    EXPECT_EQ(Caption(project.EditState), "Pistaro - new project");
    EXPECT_FALSE(project.EditState.DataChanged);
}

TEST_F(Load, CancelledWithoutAQuestionKeepsTheCircuitAndClearsTheFlag) {
    Project project = Unsaved("C160");
    prompts_.Files = {std::nullopt};

    Press(project, "load", prompts_);

    EXPECT_TRUE(prompts_.Asked.empty());
    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[0]), "C160");
    EXPECT_FALSE(project.EditState.DataChanged);
}

TEST_F(Load, OfAFileThatCannotBeReadLeavesTheProjectAsItWas) {
    WriteBytes(folder_ / "short.trk", "[Settings]\r\n0\r\n0\r\n");
    WriteBytes(folder_ / "binary.trk", std::string("[Settings]\r\n0\0", 14));
    WriteBytes(folder_ / "empty.trk", "");
    for (const char* const name : {"missing.trk", "short.trk", "binary.trk", "empty.trk", "nofolder/x.trk"}) {
        Project project = Unsaved("C160 C160");
        const std::string before = Snapshot(project);
        prompts_.Answers = {Answer::Ok};
        prompts_.Files = {folder_ / name};

        const std::string fault = FaultOf([&] { Press(project, "load", prompts_); });
        EXPECT_NE(fault.find(name), std::string::npos) << fault;

        EXPECT_EQ(Snapshot(project), before) << name;
    }
}

TEST_F(Load, OfADroppedFileAsksTheSameQuestion) {
    WriteBytes(folder_ / "oval.trk", OneStraight);
    Session session(Pieces(), prompts_, Unsaved("C151L C151L"), {});
    prompts_.Answers = {Answer::Cancel, Answer::Ok};

    LoadFileCommand(session, folder_ / "oval.trk");
    EXPECT_EQ(CodesOf(session.Project.Design.Circuit.Tracks[0]), "C151L C151L");
    LoadFileCommand(session, folder_ / "oval.trk");

    EXPECT_EQ(CodesOf(session.Project.Design.Circuit.Tracks[0]), "C160");
    EXPECT_EQ(prompts_.Asked[0].Text, "All data will be lost if you proceed.");
    EXPECT_TRUE(prompts_.Dialogs.empty());
}

TEST_F(Save, OffersTheProjectsNameUnlessItIsNew) {
    Project project = ProjectOf("");
    project.Preferences.WorkingDirectory = "/tracks/";
    prompts_.Files = {std::nullopt, std::nullopt};

    Press(project, "save", prompts_);
    project.EditState.File = "/tracks/monza.trk";
    Press(project, "save", prompts_);

    EXPECT_TRUE(prompts_.Dialogs[0].Saving);
    EXPECT_EQ(prompts_.Dialogs[0].Title, "Save Circuit");
    EXPECT_EQ(prompts_.Dialogs[0].Filter, "Track files (*.trk)|*.trk");
    EXPECT_EQ(prompts_.Dialogs[0].DefaultName, "");
    EXPECT_EQ(prompts_.Dialogs[0].Folder, "/tracks/");
    EXPECT_EQ(prompts_.Dialogs[1].DefaultName, "monza");
}

TEST_F(Save, WritesThreeEmptyTracksAs22Lines) {
    Project project = ProjectOf("");
    prompts_.Files = {folder_ / "empty.trk"};

    Press(project, "save", prompts_);

    EXPECT_EQ(BytesOf(folder_ / "empty.trk"), CircuitText(""));
    EXPECT_TRUE(prompts_.Asked.empty());
    EXPECT_TRUE(prompts_.Told.empty());
}

TEST_F(Save, ClearsTheFlagAndTakesNameAndFolderFromTheFile) {
    Project project = Unsaved("C160");
    prompts_.Files = {folder_ / "my track.trk"};

    Press(project, "save", prompts_);

    EXPECT_FALSE(project.EditState.DataChanged);
    EXPECT_EQ(Caption(project.EditState), "Pistaro - my track");
    EXPECT_EQ(project.Preferences.WorkingDirectory, FolderText());
}

TEST_F(Save, CancelledWritesNothingButClearsTheFlagSoThatQuitDoesNotAsk) {
    Project project = Unsaved("C160");
    prompts_.Files = {std::nullopt};

    Press(project, "save", prompts_);
    EXPECT_FALSE(project.EditState.DataChanged);
    EXPECT_EQ(Caption(project.EditState), "Pistaro - new project");
    Press(project, "quit", prompts_);

    EXPECT_TRUE(prompts_.Asked.empty());
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(Save, OntoAFileOverwritesItAfterYesAndAfterNo) {
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        WriteBytes(folder_ / "old.trk", "old");
        Project project = ProjectOf("C160");
        ScriptedPrompts prompts;
        prompts.Answers = {answer};
        prompts.Files = {folder_ / "old.trk"};

        Press(project, "save", prompts);

        ASSERT_EQ(Question(prompts), "A file with that name already exists. Overwrite?");
        EXPECT_EQ(prompts.Asked[0].Choices, Buttons::YesNo);
        EXPECT_EQ(BytesOf(folder_ / "old.trk"), OneStraight);
        EXPECT_TRUE(prompts.Told.empty());
    }
}

TEST_F(Save, ThatFailsLeavesTheProjectAndTheFolderAsTheyWere) {
    Project project = Unsaved("C160");
    const std::string before = Snapshot(project);
    for (const std::string& name : {std::string("nofolder/x.trk"), std::string(300, 'x')}) { // the second is too long
        prompts_.Files = {folder_ / name};

        EXPECT_THROW(Press(project, "save", prompts_), Fault);

        EXPECT_EQ(Snapshot(project), before);
        EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
    }
}

TEST_F(Save, AndLoadBringBackTheCircuit) {
    Project project = ProjectOf("C151L C160", "N10105R", "C8010R");
    Press(project, "move up-left", 3);
    Press(project, "rotate right", 2);
    project.Design.Room = {{{32767, -32768, -1}, {0, 10, 1}}, 0.5F};
    SaveCircuit(project, folder_ / "x.trk");

    Project loaded = ProjectOf("");
    LoadCircuit(loaded, folder_ / "x.trk");
    SaveCircuit(loaded, folder_ / "y.trk");

    EXPECT_EQ(CodesOf(loaded.Design.Circuit.Tracks[1]), "N10105R");
    EXPECT_EQ(loaded.Design.Circuit.Tracks[0].TrackStartX, -46.5F);
    EXPECT_EQ(loaded.Design.Room.Points, project.Design.Room.Points);
    EXPECT_EQ(BytesOf(folder_ / "y.trk"), BytesOf(folder_ / "x.trk"));
}

TEST_F(Quit, AsksAboutASingleUnsavedElementWithYesAndNo) {
    Project project = Unsaved("C160");
    prompts_.Answers = {Answer::Yes};

    Press(project, "quit", prompts_);

    ASSERT_EQ(Question(prompts_), "Discard unsaved data?");
    EXPECT_EQ(prompts_.Asked[0].Choices, Buttons::YesNo);
    EXPECT_TRUE(prompts_.Dialogs.empty());
}

TEST_F(Quit, AfterNoSavesFirst) {
    Project project = Unsaved("C160");
    prompts_.Answers = {Answer::No};
    prompts_.Files = {folder_ / "kept.trk"};

    Press(project, "quit", prompts_);

    EXPECT_EQ(prompts_.Dialogs[0].Title, "Save Circuit");
    EXPECT_EQ(BytesOf(folder_ / "kept.trk"), OneStraight);
}

TEST_F(Quit, AsksNothingAboutEmptyTracksOrSavedWork) {
    Project empty = Unsaved("");
    Press(empty, "quit", prompts_);
    Project saved = ProjectOf("C160 C160");
    Press(saved, "quit", prompts_);

    EXPECT_TRUE(prompts_.Asked.empty());
}

} // namespace pistaro
