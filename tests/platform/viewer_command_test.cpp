// What is left of a registered viewer's command.
#include "platform/viewer_command.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(ViewerCommand, AQuotedPathThenThePlaceOfThePageBecomesTheBarePath) {
    EXPECT_EQ(ProgramOfCommand("\"C:\\Web\\view.exe\" \"%1\""), "C:\\Web\\view.exe");
}

TEST(ViewerCommand, OnlyTheLastPercentSignAndWhatFollowsItGo) {
    EXPECT_EQ(ProgramOfCommand("%SystemRoot%\\view.exe %1"), "%SystemRoot%\\view.exe");
    EXPECT_EQ(ProgramOfCommand("view.exe /to %1 /quiet"), "view.exe /to");
}

TEST(ViewerCommand, WithoutQuotesOrPlaceOfThePageItStaysAsItIs) {
    EXPECT_EQ(ProgramOfCommand("C:\\Web\\view.exe"), "C:\\Web\\view.exe");
    EXPECT_EQ(ProgramOfCommand(""), "");
}

TEST(ViewerCommand, ADashOptionAfterThePathIsLostAtTheDash) {
    EXPECT_EQ(CutAtDash(ProgramOfCommand("\"C:\\Web\\view.exe\" -nohome \"%1\"")), "C:\\Web\\view.exe");
}

TEST(ViewerCommand, AFolderWithADashInItsNameIsCutThereToo) { EXPECT_EQ(CutAtDash("C:\\My-Web\\view.exe"), "C:\\My"); }

TEST(ViewerCommand, OfAProgramWithBlanksInItsPathIsQuotedAndItsWordsStayApart) {
    const auto isView = [](const std::string& path) { return path == "C:\\Web Pages\\view.exe"; };
    EXPECT_EQ(QuotedProgram("C:\\Web Pages\\view.exe", isView), "\"C:\\Web Pages\\view.exe\"");
    EXPECT_EQ(QuotedProgram("C:\\Web Pages\\view.exe /to", isView), "\"C:\\Web Pages\\view.exe\" /to");
}

TEST(ViewerCommand, CutAtTheDashOfAFolderIsQuotedSoThatNothingElseIsRun) {
    const auto none = [](const std::string&) { return false; };
    const std::string cut = CutAtDash(ProgramOfCommand("\"C:\\Program Files\\My-Web\\view.exe\" \"%1\""));
    EXPECT_EQ(cut, "C:\\Program Files\\My");
    EXPECT_EQ(QuotedProgram(cut, none), "\"C:\\Program Files\\My\"");
}

TEST(ViewerCommand, WithoutBlanksOrWithoutAPathStaysAsItIs) {
    const auto none = [](const std::string&) { return false; };
    EXPECT_EQ(QuotedProgram("C:\\Web\\view.exe", none), "C:\\Web\\view.exe");
    EXPECT_EQ(QuotedProgram("rundll32 url.dll,Open C:\\x", none), "rundll32 url.dll,Open C:\\x");
    EXPECT_EQ(QuotedProgram("", none), "");
}

} // namespace
} // namespace pistaro
