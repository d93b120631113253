// What the designer finds, and puts in place, when it starts.
#include "editor/start_up.h"

#include "storage/settings_file.h"
#include "support/pieces.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace pistaro {

/// A home of its own for the documents folder, as only Linux and its kin let the environment name it.
class DesignerStartTest : public ::testing::Test {
protected:
    DesignerStartTest() {
        ::setenv("HOME", Home.Path().c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", (Home / "config").c_str(), 1);
    }

    TemporaryFolder Home;
};

TEST_F(DesignerStartTest, AFirstRunPutsTheInitialSettingsAndTheWorkingDirectoryInPlace) {
    const std::filesystem::path path = Home / "config" / "pistaro" / "corvel.ini";

    const DesignerStart start = StartDesigner(Pieces(), path);

    EXPECT_TRUE(start.Messages.empty());
    EXPECT_EQ(start.SettingsPath, path);
    EXPECT_EQ(start.Project.Preferences.WorkingDirectory, (Home / "Documents" / "Pistaro").string() + "/");
    EXPECT_TRUE(std::filesystem::is_directory(Home / "Documents" / "Pistaro"));
    EXPECT_EQ(start.Project.Design.View.Width, 320);
    EXPECT_EQ(start.Project.Preferences.DisplayUnits.Currency, "EUR");
    EXPECT_EQ(start.Project.Preferences.Grid.Step, 10);
    EXPECT_TRUE(BytesOf(path).starts_with("[Working Directory]\r\n"));
}

TEST_F(DesignerStartTest, SettingsThatStandThereAreReadAndLeftAlone) {
    const std::string bytes = "[Units]\r\nUnit=1\r\nCurr=GBP\r\n";
    WriteBytes(Home / "corvel.ini", bytes);

    const DesignerStart start = StartDesigner(Pieces(), Home / "corvel.ini");

    EXPECT_EQ(start.Project.Preferences.DisplayUnits.Currency, "GBP");
    EXPECT_EQ(BytesOf(Home / "corvel.ini"), bytes);
}

TEST_F(DesignerStartTest, SettingsThatCannotBeReadAreToldAndTheProgramGoesOnWithoutTouchingThem) {
    const std::string bytes = "[Settings]\r\nX=0\r\n";
    WriteBytes(Home / "corvel.ini", bytes);

    const DesignerStart start = StartDesigner(Pieces(), Home / "corvel.ini");

    ASSERT_EQ(start.Messages.size(), 1U);
    EXPECT_EQ(start.Messages[0].MessageIcon, Icon::Exclamation);
    EXPECT_EQ(start.Messages[0].Text, "Invalid procedure call: " + (Home / "corvel.ini").string() +
                                          ", line 2: the value line is too short\n"
                                          "Pistaro goes on with its initial settings and saves none.");
    EXPECT_TRUE(start.SettingsPath.empty());
    EXPECT_EQ(start.Project.Preferences.DisplayUnits.Currency, "EUR");
    EXPECT_EQ(BytesOf(Home / "corvel.ini"), bytes);
}

TEST_F(DesignerStartTest, AnIncompleteSectionIsToldAndTheFileIsUsed) {
    WriteBytes(Home / "corvel.ini", "[My Loose Track]\r\nC151=4\r\n\r\n");

    const DesignerStart start = StartDesigner(Pieces(), Home / "corvel.ini");

    ASSERT_EQ(start.Messages.size(), 1U);
    EXPECT_EQ(start.Messages[0].Text, "CORVEL.INI incomplete, missing values defaulted to zero!");
    EXPECT_EQ(start.SettingsPath, Home / "corvel.ini");
    EXPECT_EQ(start.Project.Stock[0].OwnedCount, 4);
}

TEST_F(DesignerStartTest, AFolderThatCannotBeMadeIsToldAndTheProgramGoesOn) {
    WriteBytes(Home / "config", "a file where the folder would be");

    const DesignerStart start = StartDesigner(Pieces(), Home / "config" / "pistaro" / "corvel.ini");

    ASSERT_EQ(start.Messages.size(), 1U);
    EXPECT_TRUE(start.SettingsPath.empty());
}

} // namespace pistaro
