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

} // namespace
} // namespace pistaro
