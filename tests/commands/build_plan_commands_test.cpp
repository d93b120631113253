// The build plan from the window, with files of the test's own.
#include "commands/build_plan_commands.h"

#include "imaging/circuit_picture.h"
#include "support/chain.h"
#include "support/fake_viewer.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

class BuildPlanFromTheWindow : public testing::Test {
protected:
    std::optional<PlanFormat> Write(const char* name, PlanFormat format = PlanFormat::Html,
                                    const PaperSize& paper = PaperA4) {
        user_.Files = {folder_ / name};
        return WriteBuildPlan(session_, BuildPlanOf(Pieces(), session_.Project, AllTracks), format, paper);
    }

    OffscreenGraphics graphics_;
    TemporaryFolder folder_;
    ScriptedPrompts user_;
    Session session_{Pieces(), user_, ProjectOf("C160 C160 C151L"), {}};
};

TEST_F(BuildPlanFromTheWindow, OpensInTheViewerAndTellsWhereItIs) {
    const FakeViewer viewer;

    Write("x.html");

    EXPECT_EQ(viewer.Arguments(), std::vector<std::string>{(folder_ / "x.html").string()});
    ASSERT_EQ(user_.Told.size(), 1U);
    EXPECT_EQ(user_.Told[0].Icon, Icon::Information);
    EXPECT_EQ(user_.Told[0].Text,
              (folder_ / "x.html").string() +
                  " is written.\n\nYour system's program for such files opens it, if there is one.");
}

TEST_F(BuildPlanFromTheWindow, TellsWhereItIsWhenNoProgramOpensIt) {
    const NoViewer none;

    Write("x.html");

    ASSERT_EQ(user_.Told.size(), 1U);
    EXPECT_EQ(user_.Told[0].Text,
              (folder_ / "x.html").string() + " is written.\n\nNo program was found that opens it.");
    EXPECT_TRUE(BytesOf(folder_ / "x.html").starts_with("<!DOCTYPE html>"));
}

TEST_F(BuildPlanFromTheWindow, IsProposedWhereTheLastFileWentAndWrittenOnItsPaper) {
    const NoViewer none;

    EXPECT_EQ(Write("x.pdf", PlanFormat::Pdf, *FindPaper("Letter")), PlanFormat::Pdf);
    EXPECT_EQ(Write("y.html"), PlanFormat::Html);

    EXPECT_NE(BytesOf(folder_ / "x.pdf").find("/MediaBox [0 0 612.000000 792.000000]"), std::string::npos);
    EXPECT_EQ(user_.Dialogs.at(0).DefaultName, "circuit-plan.pdf");
    EXPECT_EQ(user_.Dialogs.at(1).Folder, folder_.Path().string());
    EXPECT_EQ(user_.Dialogs.at(1).DefaultName, "circuit-plan.html");
}

TEST_F(BuildPlanFromTheWindow, IsOfTheFormatWhoseEndingIsTyped) {
    const NoViewer none;

    EXPECT_EQ(Write("x.PDF"), PlanFormat::Pdf);

    EXPECT_TRUE(BytesOf(folder_ / "x.PDF").starts_with("%PDF"));
}

TEST_F(BuildPlanFromTheWindow, ProposesItsOwnEndingForOneThatItDoesNotKnow) {
    user_.Answers = {Answer::Cancel};
    user_.Files = {folder_ / "c.jpg", std::nullopt};

    EXPECT_EQ(WriteBuildPlan(session_, BuildPlanOf(Pieces(), session_.Project, AllTracks), PlanFormat::Html, PaperA4),
              std::nullopt);

    EXPECT_EQ(user_.Asked.at(0).Text,
              "c.jpg cannot be written: files here end in .html or .pdf. Write c.html instead?");
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(BuildPlanFromTheWindow, TellsWhichElementsItLeavesOut) {
    const NoViewer none;
    session_.Project.Design.Circuit.Tracks[1] = Chain("X1");

    Write("x.html");

    EXPECT_TRUE(user_.Told.at(0).Text.ends_with(
        "opens it.\n1 element is left out, since the catalogue has no such piece: \"X1\"."));
}

} // namespace
} // namespace pistaro
