// The working directory in the settings file: what Load and Save keep for the next start.
#include "commands/circuit_commands.h"

#include "platform/fault.h"
#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/press.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace pistaro {

namespace {

class Folders : public testing::Test {
protected:
    std::string FolderText() const { return (folder_.Path() / "").string(); }

    TemporaryFolder folder_;
    std::filesystem::path settings_ = folder_ / "corvel.ini";
    ScriptedPrompts prompts_;
};

const std::string OneStraight = CircuitText("C160");

} // namespace

TEST_F(Folders, OfLoadedAndSavedFilesAreRememberedInTheSettingsFile) {
    const std::string rest = "[Grid]\r\nType=2\r\nStep=10\r\n";
    WriteBytes(folder_ / "oval.trk", OneStraight);
    WriteBytes(settings_, "first\r\n[Working Directory]\r\n/old/\r\n" + rest);
    std::filesystem::create_directory(folder_ / "other");
    Project project = ProjectOf("");
    prompts_.Files = {folder_ / "oval.trk", folder_ / "other" / "oval.trk"};

    Press(project, "load", prompts_, settings_);
    EXPECT_EQ(BytesOf(settings_), "first\r\n[Working Directory]\r\n" + FolderText() + "\r\n" + rest);
    Press(project, "save", prompts_, settings_);

    EXPECT_EQ(BytesOf(settings_),
              "first\r\n[Working Directory]\r\n" + (folder_ / "other" / "").string() + "\r\n" + rest);
}

TEST_F(Folders, OfDroppedFilesAreRememberedToo) {
    WriteBytes(folder_ / "oval.trk", OneStraight);
    WriteBytes(settings_, "[Working Directory]\r\n/old/\r\n");
    Session session(Pieces(), prompts_, ProjectOf(""), settings_);

    LoadFileCommand(session, folder_ / "oval.trk");

    EXPECT_EQ(BytesOf(settings_), "[Working Directory]\r\n" + FolderText() + "\r\n");
}

TEST_F(Folders, AreNotAddedToASettingsFileWithoutTheirSection) {
    const std::string settings = "[Grid]\r\nType=2\r\nStep=10\r\n[working directory]\r\n/old/\r\n";
    WriteBytes(settings_, settings);
    Project project = ProjectOf("");
    prompts_.Files = {folder_ / "oval.trk"};

    Press(project, "save", prompts_, settings_);

    EXPECT_EQ(BytesOf(settings_), settings);
    EXPECT_EQ(project.Preferences.WorkingDirectory, FolderText());
}

TEST_F(Folders, ThatCannotBeRememberedAreToldWhenTheCircuitIsAlreadySaved) {
    Project project = ProjectOf("C160");
    project.EditState.DataChanged = true;
    prompts_.Files = {folder_ / "oval.trk"};

    EXPECT_THROW(Press(project, "save", prompts_, folder_ / "missing.ini"), Fault);

    EXPECT_EQ(BytesOf(folder_ / "oval.trk"), OneStraight);
    EXPECT_FALSE(project.EditState.DataChanged);
    EXPECT_EQ(project.Preferences.WorkingDirectory, FolderText());
}

TEST_F(Folders, ThatCannotBeRememberedAreToldWhenTheCircuitIsAlreadyLoaded) {
    WriteBytes(folder_ / "oval.trk", OneStraight);
    Project project = ProjectOf("");
    prompts_.Files = {folder_ / "oval.trk"};

    EXPECT_THROW(Press(project, "load", prompts_, folder_ / "missing.ini"), Fault);

    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[0]), "C160");
    EXPECT_EQ(Caption(project.EditState), "Pistaro - oval");
}

TEST_F(Folders, AreNotWrittenByACancelledDialog) {
    WriteBytes(settings_, "[Working Directory]\n/old/\n");
    Project project = ProjectOf("");
    prompts_.Files = {std::nullopt, std::nullopt};

    Press(project, "load", prompts_, settings_);
    Press(project, "save", prompts_, settings_);

    EXPECT_EQ(BytesOf(settings_), "[Working Directory]\n/old/\n");
}

} // namespace pistaro
