// What the designer finds, and puts in place, when it starts.
#include "editor/start_up.h"

#include "platform/places.h"
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
    EXPECT_EQ(start.Project.Preferences.Units.Currency, "EUR");
    EXPECT_EQ(start.Project.Preferences.Grid.Step, 10);
    EXPECT_TRUE(BytesOf(path).starts_with("[Working Directory]\r\n"));
}

TEST_F(DesignerStartTest, SettingsThatStandThereAreReadAndLeftAlone) {
    const std::string bytes = "[Units]\r\nUnit=1\r\nCurr=GBP\r\n";
    WriteBytes(Home / "corvel.ini", bytes);

    const DesignerStart start = StartDesigner(Pieces(), Home / "corvel.ini");

    EXPECT_EQ(start.Project.Preferences.Units.Currency, "GBP");
    EXPECT_EQ(BytesOf(Home / "corvel.ini"), bytes);
}

TEST_F(DesignerStartTest, SettingsThatCannotBeReadAreToldAndTheProgramGoesOnWithoutTouchingThem) {
    const std::string bytes = "[Settings]\r\nX=0\r\n";
    WriteBytes(Home / "corvel.ini", bytes);

    const DesignerStart start = StartDesigner(Pieces(), Home / "corvel.ini");

    ASSERT_EQ(start.Messages.size(), 1U);
    EXPECT_EQ(start.Messages[0].Icon, Icon::Exclamation);
    EXPECT_EQ(start.Messages[0].Text, "Invalid procedure call: " + (Home / "corvel.ini").string() +
                                          ", line 2: the value line is too short\n"
                                          "Pistaro goes on with its initial settings and saves none.");
    EXPECT_TRUE(start.SettingsPath.empty());
    EXPECT_EQ(start.Project.Preferences.Units.Currency, "EUR");
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

TEST_F(DesignerStartTest, WithoutAHomeTheProgramGoesOnAndWritesNothingIntoTheCurrentFolder) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(Home.Path());
    ::unsetenv("HOME");
    ::unsetenv("XDG_CONFIG_HOME");

    const DesignerStart start = StartDesigner(Pieces(), SettingsPath());
    std::filesystem::current_path(before);

    ASSERT_EQ(start.Messages.size(), 1U);
    EXPECT_EQ(start.Messages[0].Text, "Path not found: there is no home folder to keep settings in\n"
                                      "Pistaro goes on with its initial settings and saves none.");
    EXPECT_TRUE(start.SettingsPath.empty());
    EXPECT_EQ(start.Project.Preferences.WorkingDirectory, "");
    EXPECT_EQ(FilesIn(Home.Path()), 0U);
}

TEST_F(DesignerStartTest, WithoutAHomeASettingsFileThatIsNamedIsMadeAndNothingElse) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::create_directory(Home / "here");
    std::filesystem::current_path(Home / "here");
    ::unsetenv("HOME");

    const DesignerStart start = StartDesigner(Pieces(), Home / "my.ini");
    std::filesystem::current_path(before);

    EXPECT_EQ(start.SettingsPath, Home / "my.ini");
    EXPECT_TRUE(BytesOf(Home / "my.ini").starts_with("[Working Directory]\r\n\r\n"));
    EXPECT_EQ(FilesIn(Home / "here"), 0U);
}

TEST_F(DesignerStartTest, WhatKilledProgramsLeftHalfWrittenIsSweptFromTheFoldersThatAreWrittenTo) {
    std::filesystem::create_directory(Home / "tracks");
    WriteBytes(Home / "corvel.ini", "[Working Directory]\r\n" + (Home / "tracks" / "").string() + "\r\n");
    const auto half = {Home / ".pistaro-a1B2c3.tmp", Home / "tracks" / ".pistaro-d4E5f6.tmp"};
    for (const auto& file : half) {
        WriteBytes(file, "half");
        std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::now() - std::chrono::hours(25));
    }

    StartDesigner(Pieces(), Home / "corvel.ini");

    for (const auto& file : half)
        EXPECT_FALSE(std::filesystem::exists(file)) << file;
}

} // namespace pistaro
