// What only Windows has: its folders, its registry, attributes, files that another program keeps to itself, devices.
#include "platform/files.h"
#include "platform/places.h"
#include "platform/processes.h"
#include "platform/viewer_command.h"
#include "support/classes_key_windows.h"
#include "support/fake_viewer.h"
#include "support/fault_of.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <windows.h>

#include <cstdlib>
#include <thread>

#undef ReplaceFile // windows.h would rename ours

namespace pistaro {
namespace {

/// A full path as the system takes it at any length.
std::wstring Long(const std::filesystem::path& path) { return L"\\\\?\\" + path.wstring(); }

/// The program found for web pages, when this is the registry's command for them.
std::string ViewerOf(const std::string& command, bool expands = false) {
    const ClassesKey type(".htm", "PistaroTest.Page");
    const ClassesKey open("PistaroTest.Page\\shell\\open\\command", command, expands);
    return FindHtmlViewer();
}

TEST(Viewer, AQuotedPathThenThePlaceOfThePageBecomesTheBarePath) {
    EXPECT_EQ(ViewerOf("\"C:\\Web Pages\\view.exe\" \"%1\""), "C:\\Web Pages\\view.exe");
}

TEST(Viewer, ADashOptionAfterThePathIsLost) {
    EXPECT_EQ(WithoutSwitches(ViewerOf("\"C:\\Web\\view.exe\" --single-argument %1")), "C:\\Web\\view.exe");
    EXPECT_EQ(WithoutSwitches(ViewerOf("C:\\Web\\view.exe -nohome")), "C:\\Web\\view.exe");
}

TEST(Viewer, AFolderWithADashInItsNameIsCutThereToo) {
    EXPECT_EQ(WithoutSwitches(ViewerOf("\"C:\\My-Web\\view.exe\" \"%1\"")), "C:\\My");
}

TEST(Viewer, APathMayHoldAnyCharacter) {
    EXPECT_EQ(ViewerOf("\"C:\\Überblick\\日本.exe\" \"%1\""), "C:\\Überblick\\日本.exe");
}

TEST(Viewer, AVariableOfTheSystemIsReplacedByItsValue) {
    const std::string folder = std::getenv("SystemRoot");
    EXPECT_EQ(ViewerOf("%SystemRoot%\\view.exe %1", true), folder + "\\view.exe");
}

TEST(Viewer, WithoutARegisteredTypeThereIsNone) {
    const ClassesKey type(".htm", std::nullopt);
    EXPECT_EQ(FindHtmlViewer(), "");
}

TEST(Viewer, OfATypeWithoutACommandThereIsNone) {
    const ClassesKey type(".htm", "PistaroTest.NoSuchType");
    EXPECT_EQ(FindHtmlViewer(), "");
}

TEST(Programs, WhereNoneIsRegisteredThePageItselfIsNotStarted) {
    EXPECT_EQ(FaultOf([] { StartProgram("", "C:\\guide.html"); }),
              "Program not started: none is registered for C:\\guide.html");
}

TEST(Programs, ThatAreMissingAreAFault) {
    EXPECT_THAT(FaultOf([] { StartProgram("C:\\no such\\program.exe", "x"); }),
                testing::StartsWith("Program not started: C:\\no such\\program.exe: error "));
}

TEST(Programs, TakeAnArgumentWithBlanksAsOne) {
    const FakeViewer viewer;
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "club night");
    WriteBytes(folder / "club night" / "guide.html", "");

    StartProgram(FindHtmlViewer(), TextFromPath(folder / "club night" / "guide.html"));

    EXPECT_THAT(viewer.Arguments(), testing::ElementsAre(TextFromPath(folder / "club night" / "guide.html")));
}

TEST(ShortPath, NamesTheSameFileAndLeavesAMissingOneAsItIs) {
    const TemporaryFolder folder;
    const auto file = folder / "a design with a long name.html";
    WriteBytes(file, "same");

    const std::string shortPath = ShortPath(TextFromPath(file));
    EXPECT_EQ(BytesOf(PathFromText(shortPath)), "same");
    EXPECT_EQ(shortPath.find(' '), std::string::npos) << shortPath;
    EXPECT_EQ(ShortPath("C:\\no such folder\\guide.html"), "C:\\no such folder\\guide.html");
}

TEST(Places, TheSettingsStandInTheWindowsDirectory) {
    EXPECT_EQ(TextFromPath(SettingsPath()), std::string(std::getenv("SystemRoot")) + "\\corvel.ini");
}

TEST(Places, AskingWhereTheSettingsStandLeavesNothingThere) {
    const std::filesystem::path folder = std::getenv("SystemRoot");
    const std::size_t before = FilesIn(folder);

    SettingsPath();

    EXPECT_EQ(FilesIn(folder), before);
}

TEST(Places, WhatIsInstalledStandsBesideTheProgram) {
    EXPECT_TRUE(std::filesystem::exists(InstalledFolder() / "platform_test.exe"));
}

TEST(Names, MayHoldBlanksUmlautsAndAnyOtherCharacter) {
    const TemporaryFolder folder;
    for (const char* const name : {"Bahn für Jürgen", "Straße & Co. (2)", "日本 コース", "100 % €"}) {
        const auto inside = folder.Path() / PathFromText(name);
        std::filesystem::create_directory(inside);
        const auto file = inside / PathFromText(std::string(name) + ".trk");

        ReplaceFile(file, "first");
        ReplaceFile(file, "second");

        EXPECT_EQ(ReadFile(file, 100), "second");
        EXPECT_EQ(FilesIn(inside), 1U) << name;
        EXPECT_EQ(PathFromText(TextFromPath(file)), file);
    }
}

TEST(Names, MayBeLongerThanTheUsualLimit) {
    const TemporaryFolder folder;
    const auto inside = folder / std::string(120, 'a') / std::string(120, 'b');
    ::CreateDirectoryW(Long(inside.parent_path()).c_str(), nullptr);
    ::CreateDirectoryW(Long(inside).c_str(), nullptr);
    const auto file = inside / "a.trk";

    ReplaceFile(file, "new");

    EXPECT_EQ(ReadFile(file, 100), "new");
    EXPECT_NE(::DeleteFileW(Long(file).c_str()), 0);
    EXPECT_NE(::RemoveDirectoryW(Long(inside).c_str()), 0) << "more than the file was left there";
}

TEST(Rights, AReadOnlyFileIsNotReplaced) {
    const TemporaryFolder folder;
    const auto file = folder / "a.trk";
    WriteBytes(file, "old");
    ::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);

    EXPECT_EQ(FaultOf([&] { ReplaceFile(file, "new"); }), "Permission denied: " + TextFromPath(file));

    EXPECT_EQ(BytesOf(file), "old");
    EXPECT_EQ(FilesIn(folder.Path()), 1U);
    ::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(Rights, AHiddenFileStaysHidden) {
    const TemporaryFolder folder;
    const auto file = folder / "a.trk";
    WriteBytes(file, "old");
    ::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_HIDDEN);

    ReplaceFile(file, "new");

    EXPECT_EQ(BytesOf(file), "new");
    EXPECT_NE(::GetFileAttributesW(file.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST(Rights, AFileThatAnotherProgramKeepsToItselfIsNeitherReadNorReplaced) {
    const TemporaryFolder folder;
    const auto file = folder / "a.trk";
    WriteBytes(file, "old");
    const HANDLE other = ::CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);

    EXPECT_EQ(FaultOf([&] { ReadFile(file, 100); }), "Permission denied: " + TextFromPath(file));
    EXPECT_EQ(FaultOf([&] { ReplaceFile(file, "new"); }), "Permission denied: " + TextFromPath(file));

    ::CloseHandle(other);
    EXPECT_EQ(BytesOf(file), "old");
    EXPECT_EQ(FilesIn(folder.Path()), 1U);
}

TEST(Rights, AFileThatAnotherProgramHoldsForAMomentIsReplaced) {
    const TemporaryFolder folder;
    const auto file = folder / "a.trk";
    for (const DWORD sharing : {DWORD{0}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        WriteBytes(file, "old");
        const HANDLE other = ::CreateFileW(file.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(other, INVALID_HANDLE_VALUE);
        std::thread scanner([other] {
            ::Sleep(50);
            ::CloseHandle(other);
        });

        EXPECT_NO_THROW(ReplaceFile(file, "new")) << sharing;

        scanner.join();
        EXPECT_EQ(BytesOf(file), "new") << sharing;
    }
}

TEST(Devices, AreNotReplacedByFiles) {
    EXPECT_EQ(FaultOf([] { ReplaceFile("NUL", "new"); }), "Path/File access error: NUL: is not a plain file");
}

TEST(Pipes, AreReadUntilTheirWriterEnds) {
    const wchar_t* const name = L"\\\\.\\pipe\\pistaro-test";
    const HANDLE writer = ::CreateNamedPipeW(name, PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE, 1, 100, 100, 0, nullptr);
    ASSERT_NE(writer, INVALID_HANDLE_VALUE);
    const HANDLE thread = ::CreateThread(
        nullptr, 0,
        [](void* pipe) -> DWORD {
            ::ConnectNamedPipe(pipe, nullptr);
            DWORD written = 0;
            ::WriteFile(pipe, "one two", 7, &written, nullptr);
            ::FlushFileBuffers(pipe);
            ::CloseHandle(pipe);
            return 0;
        },
        writer, 0, nullptr);

    EXPECT_EQ(ReadFile(name, 100), "one two");

    ::WaitForSingleObject(thread, 10000);
    ::CloseHandle(thread);
}

TEST(Kill, LeavesNoHalfWrittenNameInTheWay) {
    const TemporaryFolder folder;
    // What a program of the same number left when it was ended while it wrote.
    WriteBytes(folder / (".pistaro-" + std::to_string(::GetCurrentProcessId()) + "-0.tmp"), "half");

    ReplaceFile(folder / "a.trk", "new");

    EXPECT_EQ(BytesOf(folder / "a.trk"), "new");
}

} // namespace
} // namespace pistaro
