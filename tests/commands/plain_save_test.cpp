// Plain Save, and what happens when another program changes the circuit's file.
#include "commands/circuit_commands.h"

#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/fault_of.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace pistaro {

namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class PlainSave : public testing::Test {
protected:
    void Run(const char* id) { session_.Run(*session_.Commands.Find(id)); }
    void Load() {
        WriteBytes(file_, CircuitText("C160"));
        prompts_.Files = {file_};
        Run("load");
        prompts_.Dialogs.clear();
    }
    /// What the window does when it comes back to the front.
    void ComeBack() {
        EXPECT_TRUE(session_.Do([&] { OfferChangedFile(session_); }));
    }
    std::string Codes() { return CodesOf(session_.Project.Design.Circuit.Tracks[0]); }
    bool IsUnsaved() const { return session_.Project.EditState.DataChanged; }

    TemporaryFolder folder_;
    const std::filesystem::path file_ = folder_ / "oval.trk";
    ScriptedPrompts prompts_;
    Session session_{Pieces(), prompts_, ProjectOf(""), {}};
};

} // namespace

TEST_F(PlainSave, WritesTheFileThatTheCircuitCameFromAndAsksNothing) {
    Load();
    Run("add C159");

    Run("plain save");

    EXPECT_THAT(BytesOf(file_), HasSubstr("[Track 0]\r\n0\r\n0\r\n0\r\nC160\r\nC159\r\n[Track 1]"));
    EXPECT_FALSE(IsUnsaved());
    EXPECT_THAT(prompts_.Asked, IsEmpty());
    EXPECT_THAT(prompts_.Dialogs, IsEmpty());
    EXPECT_EQ(FilesIn(folder_.Path()), 1U);
}

TEST_F(PlainSave, WritesTheFileThatWasSavedLast) {
    Run("add C160");
    prompts_.Files = {folder_ / "first.trk", folder_ / "second.trk"};
    Run("save");
    Run("save");
    const std::string first = BytesOf(folder_ / "first.trk");
    Run("add C159");

    Run("plain save");

    EXPECT_EQ(BytesOf(folder_ / "first.trk"), first);
    EXPECT_THAT(BytesOf(folder_ / "second.trk"), HasSubstr("C160\r\nC159"));
}

TEST_F(PlainSave, OfANewCircuitProposesANameThatNoFileBears) {
    session_.Project.Preferences.WorkingDirectory = (folder_ / "").string();
    Run("add C160");
    prompts_.Files = {folder_ / "Circuit.trk", folder_ / "Circuit 2.trk"};

    Run("plain save");
    EXPECT_EQ(prompts_.Dialogs.at(0).DefaultName, "Circuit");
    Run("new");
    Run("add C160");
    Run("plain save");

    EXPECT_EQ(prompts_.Dialogs.at(1).DefaultName, "Circuit 2");
    EXPECT_THAT(prompts_.Asked, IsEmpty());
}

TEST_F(PlainSave, OfANewCircuitIsSaveAs) {
    Run("add C160");
    prompts_.Files = {folder_ / "new.trk"};

    Run("plain save");

    ASSERT_EQ(prompts_.Dialogs.size(), 1U);
    EXPECT_EQ(prompts_.Dialogs[0].Title, "Save Circuit");
    EXPECT_TRUE(std::filesystem::exists(folder_ / "new.trk"));
    Run("add C159");
    Run("plain save");
    EXPECT_EQ(prompts_.Dialogs.size(), 1U);
    EXPECT_FALSE(IsUnsaved());
}

TEST_F(PlainSave, WritesTheFileAnewThatWasTakenAway) {
    Load();
    std::filesystem::remove(file_);

    Run("plain save");

    EXPECT_THAT(BytesOf(file_), HasSubstr("C160"));
    EXPECT_THAT(prompts_.Asked, IsEmpty());
}

TEST_F(PlainSave, AsksBeforeItOverwritesWhatAnotherProgramWrote) {
    Load();
    Run("add C159");
    WriteBytes(file_, CircuitText("C164"));
    prompts_.Answers = {Answer::No};

    Run("plain save");

    ASSERT_EQ(prompts_.Asked.size(), 1U);
    EXPECT_EQ(prompts_.Asked[0].Text, "oval.trk was changed by another program. Overwrite it?");
    EXPECT_EQ(prompts_.Asked[0].Choices, Buttons::YesNo);
    EXPECT_EQ(BytesOf(file_), CircuitText("C164")) << "No is harmless";
    EXPECT_TRUE(IsUnsaved());
    EXPECT_EQ(Codes(), "C160 C159");

    prompts_.Answers = {Answer::Yes};
    Run("plain save");
    EXPECT_THAT(BytesOf(file_), HasSubstr("C160\r\nC159"));
    EXPECT_FALSE(IsUnsaved());
    Run("plain save");
    EXPECT_EQ(prompts_.Asked.size(), 2U) << "it is this program's own again";
}

TEST_F(PlainSave, AsksBeforeItOverwritesWhatIsTooLargeToBeRead) {
    Load();
    Run("add C159");
    const std::string foreign(5'000'000, 'x');
    WriteBytes(file_, foreign);
    prompts_.Answers = {Answer::No, Answer::Yes};

    Run("plain save");

    ASSERT_EQ(prompts_.Asked.size(), 1U);
    EXPECT_EQ(prompts_.Asked[0].Text, "oval.trk was changed by another program. Overwrite it?");
    EXPECT_EQ(BytesOf(file_), foreign);
    EXPECT_TRUE(IsUnsaved());

    Run("plain save");
    EXPECT_THAT(BytesOf(file_), HasSubstr("C160\r\nC159"));
}

TEST_F(PlainSave, OffersWhatIsTooLargeOnceAndTellsSoWhenItIsLoaded) {
    Load();
    WriteBytes(file_, std::string(5'000'000, 'x'));
    prompts_.Answers = {Answer::Yes};

    EXPECT_FALSE(session_.Do([&] { OfferChangedFile(session_); }));
    ComeBack();

    EXPECT_EQ(prompts_.Asked.size(), 1U);
    ASSERT_EQ(prompts_.Told.size(), 1U);
    EXPECT_THAT(prompts_.Told[0].Text, HasSubstr("oval.trk"));
    EXPECT_EQ(Codes(), "C160");
}

TEST_F(PlainSave, ThatFailsKeepsFileAndMark) {
    Load();
    Run("add C159");
    std::filesystem::remove(file_);
    std::filesystem::create_directory(file_);

    EXPECT_THAT(FaultOf([&] { Run("plain save"); }), HasSubstr("oval.trk"));

    EXPECT_TRUE(IsUnsaved());
    EXPECT_TRUE(std::filesystem::is_directory(file_));
    EXPECT_EQ(FilesIn(folder_.Path()), 1U) << "no temporary file";
}

TEST_F(PlainSave, AcrossAnUndoneLoadWritesTheFileOfTheCircuitThatIsBack) {
    Load();
    Run("new");
    Run("add C187L");
    Run("undo");
    Run("undo");
    Run("add C159");

    Run("plain save");

    EXPECT_THAT(BytesOf(file_), HasSubstr("C160\r\nC159"));
}

TEST_F(PlainSave, LeavesTheSettingsAloneWhoseFolderIsTheSame) {
    const std::filesystem::path settings = folder_ / "my.ini";
    WriteBytes(settings, "[Working Directory]\r\n/\r\n");
    Session session(Pieces(), prompts_, ProjectOf("C160"), settings);
    prompts_.Files = {file_};
    session.Run(*session.Commands.Find("save"));
    std::filesystem::remove(settings);

    session.Run(*session.Commands.Find("plain save")); // the settings could not be written

    EXPECT_FALSE(session.Project.EditState.DataChanged);
}

TEST_F(PlainSave, OffersTheNewerFileOnceWhenTheWindowComesBack) {
    Load();
    ComeBack();
    EXPECT_THAT(prompts_.Asked, IsEmpty()) << "nothing has changed";

    WriteBytes(file_, CircuitText("C164"));
    prompts_.Answers = {Answer::No, Answer::Yes};
    ComeBack();
    ComeBack();
    ASSERT_EQ(prompts_.Asked.size(), 1U);
    EXPECT_EQ(prompts_.Asked[0].Text, "oval.trk was changed by another program. Load it?");
    EXPECT_EQ(Codes(), "C160");

    WriteBytes(file_, CircuitText("C187L"));
    ComeBack();
    EXPECT_EQ(Codes(), "C187L");
    Run("undo");
    EXPECT_EQ(Codes(), "C160");
    EXPECT_TRUE(IsUnsaved()) << "its file holds something else";
}

TEST_F(PlainSave, TellsOfUnsavedChangesWhenItOffersTheNewerFile) {
    Load();
    Run("add C159");
    WriteBytes(file_, CircuitText("C164"));
    prompts_.Answers = {Answer::Yes};

    ComeBack();

    EXPECT_EQ(prompts_.Asked[0].Text,
              "oval.trk was changed by another program. Load it? Your unsaved changes make way; "
              "Undo brings them back.");
    EXPECT_EQ(Codes(), "C164");
    Run("undo");
    EXPECT_EQ(Codes(), "C160 C159");
}

TEST_F(PlainSave, KeepsEverythingWhenTheNewerFileCannotBeRead) {
    Load();
    Run("add C159");
    WriteBytes(file_, "no circuit");
    prompts_.Answers = {Answer::Yes};

    EXPECT_FALSE(session_.Do([&] { OfferChangedFile(session_); }));

    ASSERT_EQ(prompts_.Told.size(), 1U);
    EXPECT_EQ(Codes(), "C160 C159");
    EXPECT_TRUE(IsUnsaved());
}

} // namespace pistaro
