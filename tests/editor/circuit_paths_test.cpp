// What the path of a circuit file gives: the project's name, and the working directory in the settings file.
#include "editor/circuit_commands.h"
#include "platform/fault.h"
#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace pistaro {

namespace {

class WorkingDirectory : public testing::Test {
protected:
    std::string FolderText() const { return (folder_.Path() / "").string(); }

    TemporaryFolder folder_;
};

} // namespace

TEST_F(WorkingDirectory, OfTheSettingsFileIsRewrittenByALoadAndBySave) {
    const std::string rest = "[Grid]\r\nType=2\r\nStep=10\r\n";
    WriteBytes(folder_ / "oval.trk", CircuitText("C160"));
    WriteBytes(folder_ / "corvel.ini", "first\r\n[Working Directory]\r\n/old/\r\n" + rest);
    Project project = ProjectOf("");
    project.SettingsPath = folder_ / "corvel.ini";

    LoadCircuit(project, folder_ / "oval.trk");
    EXPECT_EQ(BytesOf(folder_ / "corvel.ini"), "first\r\n[Working Directory]\r\n" + FolderText() + "\r\n" + rest);
    std::filesystem::create_directory(folder_ / "other");
    SaveCircuit(project, folder_ / "other" / "oval.trk");

    EXPECT_EQ(BytesOf(folder_ / "corvel.ini"),
              "first\r\n[Working Directory]\r\n" + (folder_ / "other" / "").string() + "\r\n" + rest);
}

TEST_F(WorkingDirectory, IsNotAddedToASettingsFileWithoutItsSection) {
    const std::string settings = "[Grid]\r\nType=2\r\nStep=10\r\n[working directory]\r\n/old/\r\n";
    WriteBytes(folder_ / "corvel.ini", settings);
    Project project = ProjectOf("");
    project.SettingsPath = folder_ / "corvel.ini";

    SaveCircuit(project, folder_ / "oval.trk");

    EXPECT_EQ(BytesOf(folder_ / "corvel.ini"), settings);
    EXPECT_EQ(project.WorkingDirectory, FolderText());
}

TEST_F(WorkingDirectory, ThatCannotBeRememberedIsToldWhenTheCircuitIsAlreadySaved) {
    Project project = ProjectOf("C160");
    project.DataChanged = true;
    project.SettingsPath = folder_ / "missing.ini";

    EXPECT_THROW(SaveCircuit(project, folder_ / "oval.trk"), Fault);

    EXPECT_EQ(BytesOf(folder_ / "oval.trk"), CircuitText("C160"));
    EXPECT_FALSE(project.DataChanged);
}

TEST(PathParts, ArePartedBehindTheLastSeparator) {
    EXPECT_EQ(PartedPath("/tracks/old/oval.trk")->Folder, "/tracks/old/");
    EXPECT_EQ(PartedPath("/tracks/old/oval.trk")->Title, "oval.trk");
    EXPECT_EQ(PartedPath("/tracks/")->Title, "");
    EXPECT_FALSE(PartedPath("oval.trk").has_value());
}

TEST(ProjectName, IsTheFilesTitleLessFourCharactersWhateverTheyAre) {
    EXPECT_EQ(NameFromTitle("oval.trk"), "oval");
    EXPECT_EQ(NameFromTitle("oval.circuit"), "oval.cir");
    EXPECT_EQ(NameFromTitle("trk"), "");
    EXPECT_EQ(NameFromTitle(".trk"), "");
    EXPECT_EQ(NameFromTitle("N\xC3\xBCrburg.\xC3\xA4\xC3\xB6\xC3\xBC"),
              "N\xC3\xBCrburg"); // four characters, seven bytes
}

} // namespace pistaro
