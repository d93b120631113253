// The generate verb when it is stopped, or when nobody takes what it prints: circuits are whole and told, or not there.
#include "support/run_program.h"
#include "support/running_program_posix.h"

#include <gmock/gmock.h>

#include <chrono>
#include <thread>

namespace pistaro {
namespace {

using testing::HasSubstr;

/// A box that is looked at for seconds.
const std::vector<std::string> Large{
    "generate", "--area", "400x300", "--pieces", "C151=24,C160=24,C152=8,C153=8,C154=8,C159=8",
    "--count",  "100",    "--out",   "found"};

std::size_t LinesIn(const std::string& text) { return static_cast<std::size_t>(std::ranges::count(text, '\n')); }

TEST(GenerateInterrupted, KeepsAndTellsWhatItHasFoundByThen) {
    const TemporaryFolder folder;
    RunningProgram program(folder.Path(), RunningProgram::Errors::OnTerminal, Large);
    program.ReadTerminal("generate, circuits found: 3 of 100");

    program.PressCtrlC();

    const std::string& told = program.ReadTerminal();
    const int status = program.Wait();
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 130);
    EXPECT_THAT(told, HasSubstr("of 100 circuits: it was interrupted"));
    const std::size_t lines = LinesIn(BytesOf(folder / "stdout"));
    EXPECT_GE(lines, 3U);
    EXPECT_LT(lines, 100U);
    EXPECT_EQ(FilesIn(folder / "found"), lines);
    for (const auto& file : std::filesystem::directory_iterator(folder / "found"))
        EXPECT_THAT(BytesOf(file.path()), HasSubstr("[Track 2]"));
}

TEST(GenerateInterrupted, LeavesNothingWhereItsLinesCannotBePrinted) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("/dev/full", folder / "stdout");

    RunningProgram program(folder.Path(), RunningProgram::Errors::OnTerminal,
                           {"generate", "--area", "240x240", "--pieces", "C151=8,C160=4", "--out", "found"});

    EXPECT_THAT(program.ReadTerminal(), HasSubstr("pistaro: Disk full: the standard output"));
    EXPECT_EQ(WEXITSTATUS(program.Wait()), 1);
    EXPECT_FALSE(std::filesystem::exists(folder / "found"));
}

} // namespace
} // namespace pistaro
