// Reading files whole, and putting them on disk in one step.
#include "platform/files.h"

#include "platform/fault.h"
#include "platform/viewer_command.h"
#include "support/fault_of.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

namespace pistaro {
namespace {

TEST(ReadFile, GivesTheBytesAsTheyAre) {
    const TemporaryFolder folder;
    const std::string bytes("\r\n\n\r\0\x1A\xFF end", 11);
    WriteBytes(folder / "a.trk", bytes);

    EXPECT_EQ(ReadFile(folder / "a.trk", 100), bytes);
}

TEST(ReadFile, TakesAFileOfExactlyTheLargestSizeAndRefusesOneMore) {
    const TemporaryFolder folder;
    const auto file = folder / "a.trk";
    WriteBytes(file, std::string(70000, 'x'));

    EXPECT_EQ(ReadFile(file, 70000).size(), 70000U);
    EXPECT_EQ(FaultOf([&] { ReadFile(file, 69999); }), "File too large: " + TextFromPath(file));
}

TEST(ReadFile, NamesAMissingFileAndAMissingFolder) {
    const TemporaryFolder folder;
    WriteBytes(folder / "file", "");

    EXPECT_EQ(FaultOf([&] { ReadFile(folder / "a.trk", 9); }), "File not found: " + TextFromPath(folder / "a.trk"));
    EXPECT_EQ(FaultOf([&] { ReadFile(folder / "no" / "a.trk", 9); }),
              "Path not found: " + TextFromPath(folder / "no" / "a.trk"));
    EXPECT_EQ(FaultOf([&] { ReadFile(folder / "file" / "a.trk", 9); }),
              "Path not found: " + TextFromPath(folder / "file" / "a.trk"));
}

TEST(ReadFile, CallsAMissingNameOne) {
    EXPECT_THAT(FaultOf([] { ReadFile("", 9); }), testing::EndsWith(" not found: a file without a name"));
}

TEST(ReadFile, RefusesAFolder) {
    const TemporaryFolder folder;

    EXPECT_EQ(FaultOf([&] { ReadFile(folder.Path(), 9); }),
              "Path/File access error: " + TextFromPath(folder.Path()) + ": is a folder");
}

TEST(ReplaceFile, MakesAFileAndLeavesNothingElse) {
    const TemporaryFolder folder;

    ReplaceFile(folder / "a.trk", std::string_view("a\r\n\0", 4));

    EXPECT_EQ(BytesOf(folder / "a.trk"), std::string("a\r\n\0", 4));
    EXPECT_EQ(FilesIn(folder.Path()), 1U);
}

TEST(ReplaceFile, ReplacesALongFileByAShortOne) {
    const TemporaryFolder folder;
    WriteBytes(folder / "a.trk", std::string(100000, 'x'));

    ReplaceFile(folder / "a.trk", "new");
    EXPECT_EQ(BytesOf(folder / "a.trk"), "new");

    ReplaceFile(folder / "a.trk", "");
    EXPECT_EQ(BytesOf(folder / "a.trk"), "");
    EXPECT_EQ(FilesIn(folder.Path()), 1U);
}

TEST(ReplaceFile, TakesANameAsLongAsTheSystemDoes) {
    const TemporaryFolder folder;
    const std::string name = std::string(251, 'n') + ".trk";

    ReplaceFile(folder / name, "new");

    EXPECT_EQ(BytesOf(folder / name), "new");
}

TEST(ReplaceFile, RefusesAFolderAndAMissingOne) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "sub");

    EXPECT_EQ(FaultOf([&] { ReplaceFile(folder / "sub", "new"); }),
              "Path/File access error: " + TextFromPath(folder / "sub") + ": is a folder");
    EXPECT_EQ(FaultOf([&] { ReplaceFile(folder / "no" / "a.trk", "new"); }),
              "Path not found: " + TextFromPath(folder / "no" / "a.trk"));
    EXPECT_EQ(FilesIn(folder.Path()), 1U);
}

TEST(ReplaceFile, LeavesAFileThatStandsWhereAFolderShould) {
    const TemporaryFolder folder;
    WriteBytes(folder / "file", "old");

    EXPECT_EQ(FaultOf([&] { ReplaceFile(folder / "file" / "a.trk", "new"); }),
              "Path not found: " + TextFromPath(folder / "file" / "a.trk"));
    EXPECT_EQ(BytesOf(folder / "file"), "old");
}

TEST(WrittenFile, LeavesTheOldOneUntilItTakesItsPlace) {
    const TemporaryFolder folder;
    WriteBytes(folder / "a.trk", "old");

    WrittenFile file(folder / "a.trk", "new");
    EXPECT_EQ(BytesOf(folder / "a.trk"), "old");
    EXPECT_EQ(FilesIn(folder.Path()), 2U);
    file.TakePlace();

    EXPECT_EQ(BytesOf(folder / "a.trk"), "new");
    EXPECT_EQ(FilesIn(folder.Path()), 1U);
}

TEST(WrittenFile, GoesWhereItNeverTakesAPlace) {
    const TemporaryFolder folder;
    {
        const WrittenFile file(folder / "a.trk", "new");
        EXPECT_EQ(FilesIn(folder.Path()), 1U);
    }

    EXPECT_EQ(FilesIn(folder.Path()), 0U);
}

TEST(WrittenFile, ThatCannotTakeItsPlaceIsAFaultAndGoes) {
    const TemporaryFolder folder;
    {
        WrittenFile file(folder / "a.trk", "new");
        std::filesystem::create_directory(folder / "a.trk");
        EXPECT_THROW(file.TakePlace(), Fault);
    }

    EXPECT_EQ(FilesIn(folder.Path()), 1U) << "the folder";
}

TEST(ViewerCommand, IsReducedToItsProgram) {
    EXPECT_EQ(ProgramOfCommand("\"C:\\Web\\view.exe\" \"%1\""), "C:\\Web\\view.exe");
    EXPECT_EQ(ProgramOfCommand("view.exe -nohome"), "view.exe -nohome");
    EXPECT_EQ(ProgramOfCommand("view.exe %1 %2"), "view.exe %1");
    EXPECT_EQ(ProgramOfCommand("  "), "");
    EXPECT_EQ(ProgramOfCommand(""), "");
}

} // namespace
} // namespace pistaro
