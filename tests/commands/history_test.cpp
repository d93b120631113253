// Undo and redo through the session: what is a step, what comes back with it, and what stays.
#include "commands/history.h"

#include "commands/session.h"
#include "editor/draw_area.h"
#include "editor/track_editing.h"
#include "editor/view_commands.h"
#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/fault_of.h"
#include "support/press.h"
#include "support/scripted_prompts.h"
#include "support/stock.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <set>

namespace pistaro {

namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

class TheHistory : public testing::Test {
protected:
    TheHistory() {
        session_.Now = [this] { return now_; };
        observation_ = session_.Observe([this](const Changes& changes) { heard_ = changes; });
        leaving_ = session_.ObserveLeaving([this] { left_.push_back(CodesOf(FirstTrack())); });
        project_.Preferences.WorkingDirectory = (folder_ / "").string();
    }

    void Run(const std::string& id) {
        now_ += std::chrono::minutes(1);
        RunAtOnce(id);
    }
    void RunAtOnce(const std::string& id) { session_.Run(*session_.Commands.Find(id)); }

    void Select(int element) {
        session_.Do([&] { SelectElement(project_.Design.Circuit, project_.EditState, element); });
    }
    void Load(const char* name) {
        prompts_.Files.push_back(folder_ / name);
        Run("load");
    }
    void Save(const char* name) {
        prompts_.Files.push_back(folder_ / name);
        Run("save");
    }
    /// The draw area's Apply with another width of the window and another grid step.
    void ApplyDrawArea(const char* width, const char* step = "10") {
        session_.Do([&] {
            session_.NameStep("Draw Area");
            DrawAreaFields fields = OpenDrawArea(project_.Design, project_.Preferences);
            fields.ZoomVal = width;
            fields.Step = step;
            EXPECT_TRUE(pistaro::ApplyDrawArea(project_, fields, prompts_));
        });
    }

    Track& FirstTrack() { return project_.Design.Circuit.Tracks[0]; }
    std::string Codes() { return CodesOf(FirstTrack()); }

    std::vector<std::string> Captions() const {
        std::vector<std::string> captions;
        for (std::size_t state = 1; state < session_.History().Count(); ++state)
            captions.push_back(session_.History().Caption(state));
        return captions;
    }
    std::string Shows(const char* id) const { return session_.Commands.Find(id)->Shows(session_); }
    std::string WhyNot(const char* id) const { return session_.Commands.Find(id)->WhyNot(session_); }

    TemporaryFolder folder_;
    ScriptedPrompts prompts_;
    std::chrono::steady_clock::time_point now_{};
    Session session_{Pieces(), prompts_, ProjectOf(""), {}};
    Project& project_ = session_.Project;
    Changes heard_;
    Observation observation_;
    LeavingObservation leaving_;
    std::vector<std::string> left_; ///< track 1 of each circuit that gave way
};

/// A project in which the row can be run.
Project SuitedTo(const Command& command) {
    Project project = ProjectOf("C8010L C248 C277 N10111 C151R", "C160", "C187L");
    project.EditState.CurrentElement = {0, 0, -1};
    if (command.Id == "start here") {
        project.Design.Circuit.Tracks[0] = Chain("C151L C151L C151L C151L C151L C151L C151L C151L");
        project.EditState.CurrentElement[0] = 2;
    }
    project.EditState.InsertMode = command.Id == "build";
    if (command.Id.starts_with("add N")) project.EditState.System = TrackSystem::Ninco;
    while (command.Id.starts_with("replace") && !WhyNot(project, command.Id).empty())
        ++project.EditState.CurrentElement[0];
    return project;
}

} // namespace

TEST_F(TheHistory, GivesBackWhatStoodBeforeEveryRowThatChangesTheDesign) {
    WriteBytes(folder_ / "oval.trk", CircuitText("C160 C160", "300"));
    std::set<std::string> steps;
    for (const Command& command : session_.Commands.Rows()) {
        if (command.From == Availability::WindowOnly || command.Id == "undo" || command.Id == "redo") continue;
        SCOPED_TRACE(command.Id);
        ScriptedPrompts prompts;
        prompts.Files = {folder_ / "oval.trk"};
        if (command.Id == "save") prompts.Files = {folder_ / "saved.trk"};
        Session session(Pieces(), prompts, SuitedTo(command), {});
        session.Project.Preferences.WorkingDirectory = (folder_ / "").string();
        const std::string before = Snapshot(session.Project);
        session.Run(command);
        const std::string after = Snapshot(session.Project);
        if (!session.History().CanUndo()) continue;
        steps.insert(command.Id);
        ASSERT_NE(before, after);

        session.Run(*session.Commands.Find("undo"));
        EXPECT_EQ(Snapshot(session.Project), before);
        session.Run(*session.Commands.Find("redo"));
        EXPECT_EQ(Snapshot(session.Project), after);
    }

    std::set<std::string> expected{"new",         "load",         "delete",      "mirror",    "invert",
                                   "rotate left", "rotate right", "mirror rest", "start here"};
    for (const char* const where : {"up", "down", "left", "right", "up-left", "up-right", "down-left", "down-right"})
        expected.insert(std::string("move ") + where);
    for (const std::string& code :
         pistaro::Codes("C151L C151R C152L C152R C153L C153R C154L C154R C156L C156R C157 C158 "
                        "C159 C160 C187L C187R N10102 N10103 N10104 N10105L N10105R N10106L "
                        "N10106R N10107L N10107R N10108L N10108R N10110"))
        expected.insert("add " + code);
    for (const std::string& product : pistaro::Codes("C151 C159 C160 C164 C367 C8005 C8006 C8007 C8009 N10102"))
        expected.insert("replace " + product);
    for (const std::string& code : pistaro::Codes("C164 C248 C277 C367 C8005 C8006 C8007 C8009 C8010L C8010R N10111"))
        expected.insert("special " + code);
    EXPECT_EQ(steps, expected);
}

TEST_F(TheHistory, HasNothingToUndoBeforeTheFirstChange) {
    EXPECT_EQ(WhyNot("undo"), "There is nothing to undo.");
    EXPECT_EQ(WhyNot("redo"), "There is nothing to redo.");
    EXPECT_EQ(Shows("undo"), "&Undo");

    for (const char* const id : {"zoom in", "system", "track 2", "insert"})
        Run(id);

    EXPECT_EQ(FaultOf([&] { Run("undo"); }), "Refused: \"undo\" is not offered now: There is nothing to undo.");
    EXPECT_EQ(session_.History().Count(), 0U);
}

TEST_F(TheHistory, NamesEachStepAsItsCommandReads) {
    WriteBytes(folder_ / "R&D.trk", CircuitText("C160 C151L"));
    prompts_.Answers = {Answer::Ok};

    for (const char* const id :
         {"add C151L", "add C160", "insert", "add C187R", "build", "replace C8006", "delete", "mirror", "invert",
          "move up-left", "rotate left", "system", "add N10105R", "track all", "rotate right", "new"})
        Run(id);
    Load("R&D.trk");
    ApplyDrawArea("280");

    EXPECT_THAT(Captions(), ElementsAre("Add C151", "Add C160", "Insert C187", "Replace C160 by C8006", "Delete C8006",
                                        "Mirror", "Invert", "Move Up-Left", "Rotate Left", "Add N10105",
                                        "Rotate Right (Room)", "New", "Load R&D", "Draw Area"));
    EXPECT_EQ(Shows("undo"), "&Undo Draw Area");
    EXPECT_EQ(Shows("redo"), "&Redo");
    Run("undo");
    EXPECT_EQ(Shows("undo"), "&Undo Load R&&D") << "as a menu shows it";
    EXPECT_EQ(Shows("redo"), "&Redo Draw Area");
}

TEST_F(TheHistory, BringsTheSelectionBackWithTheDesign) {
    for (const char* const id : {"add C160", "add C159", "add C158"})
        Run(id);
    Select(1);
    Run("delete");
    Run("track 2");
    Run("add C151L");
    ASSERT_EQ(project_.EditState.CurrentElement, (std::array{1, 0, -1}));

    Run("undo");
    EXPECT_EQ(project_.EditState.CurrentTrack, 1) << "it was chosen when the piece was laid";
    EXPECT_EQ(project_.EditState.CurrentElement, (std::array{1, -1, -1}));
    Run("undo");
    EXPECT_EQ(project_.EditState.CurrentTrack, 0);
    EXPECT_EQ(Codes(), "C160 C159 C158");
    EXPECT_EQ(project_.EditState.SelectedElement(), 1);
    Run("undo");
    EXPECT_EQ(project_.EditState.SelectedElement(), 1) << "the piece that was laid there";

    Run("redo");
    EXPECT_EQ(project_.EditState.SelectedElement(), 1) << "as it was left";
}

TEST_F(TheHistory, DropsWhatWasUndoneWhenSomethingElseIsDone) {
    Run("add C160");
    Run("add C159");
    Run("undo");

    Run("mirror");
    EXPECT_EQ(WhyNot("redo"), "") << "mirroring a straight changes nothing";
    Run("add C158");

    EXPECT_EQ(WhyNot("redo"), "There is nothing to redo.");
    EXPECT_THAT(Captions(), ElementsAre("Add C160", "Add C158"));
    EXPECT_EQ(Codes(), "C160 C158");
}

TEST_F(TheHistory, LeavesZoomAndScrollAsTheyAre) {
    Run("add C160");
    Run("zoom out");
    session_.Do([&] { ScrollHorizontally(project_.Design.View, 30); });
    Run("add C159");
    const ViewSettings view = project_.Design.View;

    Run("undo");
    Run("undo");

    EXPECT_EQ(Codes(), "");
    EXPECT_EQ(project_.Design.View, view);
    EXPECT_EQ(view.Width, 340);
    EXPECT_EQ(view.HMov.Value, 30);
}

TEST_F(TheHistory, GivesTheViewBackThatTheDrawAreaReplacedAndKeepsThePreferences) {
    Run("zoom out");
    ApplyDrawArea("500", "25");
    Run("add C160");
    Run("zoom in");

    Run("undo");
    EXPECT_EQ(project_.Design.View.Width, 480);
    Run("undo");
    EXPECT_EQ(project_.Design.View.Width, 340);
    EXPECT_EQ(project_.Preferences.Grid.Step, 25);
    EXPECT_FALSE(project_.EditState.DataChanged);
    Run("redo");
    EXPECT_EQ(project_.Design.View.Width, 480) << "as it was left";
    EXPECT_TRUE(project_.EditState.DataChanged);
}

TEST_F(TheHistory, MakesOneStepOfARunOfTheSameMoveWithinASecond) {
    Run("add C160");
    Run("move up");
    for (int i = 0; i < 5; ++i) {
        now_ += milliseconds(1000);
        RunAtOnce("move up");
    }
    RunAtOnce("rotate left");
    RunAtOnce("rotate left");
    now_ += milliseconds(1001);
    RunAtOnce("rotate left");

    EXPECT_THAT(Captions(), ElementsAre("Add C160", "Move Up", "Rotate Left", "Rotate Left"));
    Run("undo");
    Run("undo");
    EXPECT_EQ(FirstTrack().TrackStartHeading, 0);
    EXPECT_EQ(FirstTrack().TrackStartY, 93) << "six track widths";
    Run("undo");
    EXPECT_EQ(FirstTrack().TrackStartY, 0);
}

TEST_F(TheHistory, EndsARunAtAnotherTrackASaveAndAnUndo) {
    RunAtOnce("move up");
    RunAtOnce("track 2");
    RunAtOnce("move up");
    prompts_.Files = {folder_ / "x.trk"};
    RunAtOnce("save");
    RunAtOnce("move up");
    RunAtOnce("move up");
    RunAtOnce("undo");
    RunAtOnce("move up");
    EXPECT_THAT(Captions(), ElementsAre("Move Up", "Move Up", "Move Up"));

    RunAtOnce("undo");
    EXPECT_FALSE(project_.EditState.DataChanged) << "it stands in the file";
    EXPECT_EQ(project_.Design.Circuit.Tracks[1].TrackStartY, 15.5F);
}

TEST_F(TheHistory, MakesAStepOfEveryPieceHoweverFast) {
    for (int i = 0; i < 3; ++i)
        RunAtOnce("add C160");

    EXPECT_THAT(Captions(), ElementsAre("Add C160", "Add C160", "Add C160"));
}

TEST_F(TheHistory, KnowsWhichStateIsTheSavedOne) {
    Run("add C160");
    Run("add C159");
    Save("x.trk");
    EXPECT_FALSE(project_.EditState.DataChanged);

    Run("undo");
    EXPECT_TRUE(project_.EditState.DataChanged);
    Run("undo");
    EXPECT_TRUE(project_.EditState.DataChanged) << "the file holds something else now";
    EXPECT_EQ(project_.EditState.File, folder_ / "x.trk");
    Run("redo");
    Run("redo");
    EXPECT_FALSE(project_.EditState.DataChanged);
    Run("add C158");
    EXPECT_TRUE(project_.EditState.DataChanged);
    Run("undo");
    EXPECT_FALSE(project_.EditState.DataChanged);
}

TEST_F(TheHistory, GoesBackAcrossALoadToTheUnsavedWorkBeforeIt) {
    WriteBytes(folder_ / "oval.trk", CircuitText("C187L", "300"));
    Run("add C160");
    Run("add C159");
    Run("zoom out");
    prompts_.Answers = {Answer::Ok};
    Load("oval.trk");
    EXPECT_TRUE(heard_.OtherCircuit);
    EXPECT_EQ(left_, std::vector<std::string>{"C160 C159"});
    Run("add C158");

    Run("undo");
    EXPECT_FALSE(heard_.OtherCircuit);
    EXPECT_FALSE(project_.EditState.DataChanged);
    EXPECT_EQ(project_.EditState.File, folder_ / "oval.trk");
    Run("undo");

    EXPECT_TRUE(heard_.OtherCircuit);
    EXPECT_EQ(left_, (std::vector<std::string>{"C160 C159", "C187L"}));
    EXPECT_EQ(Codes(), "C160 C159");
    EXPECT_EQ(project_.Design.View.Width, 340);
    EXPECT_EQ(project_.EditState.SelectedElement(), 1);
    EXPECT_TRUE(project_.EditState.File.empty());
    EXPECT_TRUE(project_.EditState.DataChanged);
    Run("redo");
    EXPECT_EQ(Codes(), "C187L");
    EXPECT_EQ(project_.Design.View.Width, 300);
}

TEST_F(TheHistory, GoesBackAcrossNew) {
    Run("add C160");
    Save("x.trk");
    Run("new");
    Run("add C159");

    Run("undo");
    Run("undo");
    EXPECT_EQ(Codes(), "C160");
    EXPECT_EQ(project_.EditState.File, folder_ / "x.trk");
    EXPECT_FALSE(project_.EditState.DataChanged);
    Run("redo");
    EXPECT_EQ(Codes(), "");
    EXPECT_TRUE(project_.EditState.File.empty());
}

TEST_F(TheHistory, MarksOtherCircuitsOfTheFileThatASaveReplaces) {
    Run("add C160");
    Save("x.trk");
    Run("new");
    Run("add C159");
    prompts_.Answers = {Answer::Yes};
    Save("x.trk");
    EXPECT_TRUE(heard_.Saved);

    Run("undo");
    EXPECT_FALSE(heard_.Saved);
    Run("undo");

    EXPECT_EQ(Codes(), "C160");
    EXPECT_TRUE(project_.EditState.DataChanged) << "its file holds the other circuit";
}

TEST_F(TheHistory, StepsToAnyState) {
    for (const char* const id : {"add C160", "add C159", "add C158", "mirror"})
        Run(id);

    session_.GoTo(1);
    EXPECT_EQ(Codes(), "C160");
    EXPECT_EQ(session_.History().Present(), 1U);
    session_.GoTo(3);
    EXPECT_EQ(Codes(), "C160 C159 C158");
    session_.GoTo(0);
    EXPECT_EQ(Codes(), "");
}

TEST_F(TheHistory, KeepsWhatAFaultedCommandChanged) {
    Session session(Pieces(), prompts_, ProjectOf("C160"), folder_ / "missing.ini");
    WriteBytes(folder_ / "oval.trk", CircuitText("C187L"));
    prompts_.Files = {folder_ / "oval.trk"};
    EXPECT_THROW(session.Run(*session.Commands.Find("load")), Fault) << "the settings cannot take the folder";
    ASSERT_EQ(CodesOf(session.Project.Design.Circuit.Tracks[0]), "C187L");

    session.Run(*session.Commands.Find("undo"));

    EXPECT_EQ(CodesOf(session.Project.Design.Circuit.Tracks[0]), "C160");
}

TEST_F(TheHistory, LeavesStockAndPreferencesAlone) {
    Run("add C160");
    session_.Do([&] { SetStock(project_, "C160", 7); });
    session_.Do([&] { project_.Preferences.Colours.Rail = 9; });

    Run("undo");

    EXPECT_EQ(project_.Stock[Pieces().FindRow("C160")].OwnedCount, 7);
    EXPECT_EQ(project_.Preferences.Colours.Rail, 9);
}

} // namespace pistaro
