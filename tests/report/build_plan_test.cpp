#include "report/build_plan.h"
#include "support/chain.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace pistaro {
namespace {

std::string Straights(int count) {
    std::string codes;
    for (int i = 0; i < count; ++i)
        codes += "C160 ";
    return codes;
}

std::size_t CountOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

TEST(BuildPlan, HasStepsOfAtMostTenPiecesOfOneTrack) {
    const BuildPlan plan = BuildPlanOf(Pieces(), ProjectOf(Straights(21), "C157 C157"), AllTracks);

    ASSERT_EQ(plan.Steps.size(), 4U);
    EXPECT_EQ(plan.TitleOf(plan.Steps[0]), "Track 1, pieces 0 to 9");
    EXPECT_EQ(plan.TitleOf(plan.Steps[1]), "Track 1, pieces 10 to 19");
    EXPECT_EQ(plan.TitleOf(plan.Steps[2]), "Track 1, piece 20");
    EXPECT_EQ(plan.TitleOf(plan.Steps[3]), "Track 2, pieces 0 to 1");
}

TEST(BuildPlan, OfOneTrackHasItsStepsAlone) {
    const BuildPlan plan = BuildPlanOf(Pieces(), ProjectOf("C160", "C157"), 1);

    ASSERT_EQ(plan.Steps.size(), 1U);
    EXPECT_EQ(plan.LinesOf(Pieces(), plan.Steps[0]), (std::vector<StepLine>{{"0", "C157", "short straight"}}));
}

TEST(BuildPlan, CountsProductsWithBothHandsTogether) {
    const BuildPlan plan = BuildPlanOf(Pieces(), ProjectOf("C151R C160 C151L C160 X1"), AllTracks);

    ASSERT_EQ(plan.Needed.size(), 2U);
    EXPECT_EQ(plan.Needed[0].Code, "C151");
    EXPECT_EQ(plan.Needed[0].Count, 2);
    EXPECT_EQ(plan.Needed[1].Code, "C160");
    EXPECT_EQ(plan.Needed[1].Name, "standard straight");
    EXPECT_EQ(plan.Needed[1].Count, 2);
}

TEST(BuildPlan, TellsHowManyPiecesOnHowMuchFloorInTheUsersUnits) {
    Project project = ProjectOf(Straights(11));
    project.Design.Room.Points = {{0, 0, 0}, {400, 0, 1}, {400, 250, 1}, {0, 250, 1}};
    project.Design.Room.Angle = 1;

    EXPECT_EQ(BuildPlanOf(Pieces(), project, AllTracks).Facts(),
              (std::vector<std::string>{"11 pieces, laid in 2 steps on 15.5 × 385 cm of floor",
                                        "The room measures 400 × 250 cm"}));
    project.Preferences.Units.Inches = true;
    EXPECT_EQ(BuildPlanOf(Pieces(), project, AllTracks).Facts()[0],
              "11 pieces, laid in 2 steps on 6.1 × 151.5 in of floor");
}

TEST(BuildPlan, TellsWhatItsUserLacksOnceHeToldWhatHeOwns) {
    Project project = ProjectOf("C160 C160 C160 C151L C151R", "C157");
    project.Stock = {};
    EXPECT_EQ(BuildPlanOf(Pieces(), project, AllTracks).LackText(), "") << "he told nothing";

    project.Stock.Of(Pieces().FindHeadRow("C160")).OwnedCount = 1;
    project.Stock.Of(Pieces().FindHeadRow("C157")).OwnedCount = 4;
    EXPECT_EQ(BuildPlanOf(Pieces(), project, AllTracks).LackText(), "You lack 4 of these pieces: 2 × C151, 2 × C160");
    EXPECT_EQ(BuildPlanOf(Pieces(), project, AllTracks).Facts().back(),
              BuildPlanOf(Pieces(), project, AllTracks).LackText());
    EXPECT_EQ(BuildPlanOf(Pieces(), project, 1).LackText(), "You own all of these pieces");
}

TEST(BuildPlan, TellsWhichElementsItLeavesOut) {
    EXPECT_EQ(BuildPlanOf(Pieces(), ProjectOf("C160 X1", "C157"), 1).LeftOut, "") << "of another track";
    EXPECT_EQ(BuildPlanOf(Pieces(), ProjectOf("C160 X1", "C157"), AllTracks).LeftOut,
              "1 element is left out, since the catalogue has no such piece: \"X1\".");
    EXPECT_EQ(BuildPlanOf(Pieces(), ProjectOf("Y C160 X1 Y"), AllTracks).LeftOut,
              "3 elements are left out, since the catalogue has no such piece: \"X1\", \"Y\" x2.");
    EXPECT_TRUE(BuildPlanOf(Pieces(), ProjectOf("A B C D E F G H I J K L"), AllTracks)
                    .LeftOut.ends_with("\"I\", \"J\" and others."));
}

TEST(BuildPlanPage, TellsWhatIsLeftOutAsText) {
    const std::string page = BuildPlanPage(Pieces(), BuildPlanOf(Pieces(), ProjectOf("C160 <b>"), AllTracks));

    EXPECT_NE(page.find("no such piece: &quot;&lt;b&gt;&quot;.</p>"), std::string::npos);
}

TEST(BuildPlanPage, HasTheRoomInItsColourAndTellsHowPiecesAreNumbered) {
    const std::string page = BuildPlanPage(Pieces(), BuildPlanOf(Pieces(), ProjectOf("C160"), AllTracks));

    EXPECT_NE(page.find(".room { stroke: #800000; }"), std::string::npos) << "dark red, as elsewhere";
    EXPECT_NE(page.find("<p>Pieces bear the numbers that the drawing shows: each track begins with 0.</p>"),
              std::string::npos);
}

TEST(BuildPlanPage, ShowsBesideEachPictureWhereOnTheCircuitItIs) {
    const std::string page = BuildPlanPage(Pieces(), BuildPlanOf(Pieces(), ProjectOf(Straights(21)), AllTracks));

    EXPECT_EQ(CountOf(page, "<use href=\"#way\"/>"), 3U);
    EXPECT_EQ(CountOf(page, "<rect class=\"shown\""), 3U);
    EXPECT_EQ(CountOf(page, "<use href=\"#bed2\"/>"), 1U);
}

TEST(BuildPlanPage, HasAPictureAStepInWhichEarlierStepsAreGreyAndItsOwnColoured) {
    const std::string page = BuildPlanPage(Pieces(), BuildPlanOf(Pieces(), ProjectOf(Straights(21)), AllTracks));

    EXPECT_EQ(CountOf(page, "<path id="), 3U);
    EXPECT_EQ(CountOf(page, "<svg viewBox="), 3U);
    const std::size_t third = page.find("Step 3: Track 1, piece 20");
    ASSERT_NE(third, std::string::npos);
    const std::string last = page.substr(third);
    const std::size_t fresh = last.find("class=\"new\"");
    EXPECT_EQ(CountOf(last.substr(0, fresh), "<use "), 2U);
    EXPECT_EQ(CountOf(last.substr(fresh), "<use href=\"#pieces3\"/>"), 1U);
    EXPECT_NE(last.find(">20</text>"), std::string::npos);
    EXPECT_EQ(last.find(">19</text>"), std::string::npos);
}

TEST(BuildPlanPage, BeginsWithWhatOneNeeds) {
    const std::string page = BuildPlanPage(Pieces(), BuildPlanOf(Pieces(), ProjectOf("C160 C151L C160"), AllTracks));

    const std::size_t needed = page.find("<h2>What you need: 3 pieces</h2>");
    ASSERT_NE(needed, std::string::npos);
    EXPECT_LT(needed, page.find("Step 1"));
    EXPECT_NE(page.find("<tr><td>2 ×</td><td>C160</td><td>standard straight</td></tr>"), std::string::npos);
}

TEST(BuildPlanPage, WritesTheNameAsText) {
    Project project = ProjectOf("C160");
    project.EditState.File = "<b>&.trk";

    const std::string page = BuildPlanPage(Pieces(), BuildPlanOf(Pieces(), project, AllTracks));

    EXPECT_NE(page.find("<h1>&lt;b&gt;&amp;</h1>"), std::string::npos);
}

TEST(BuildPlanPage, OfAnEmptyCircuitHasNoStep) {
    EXPECT_EQ(BuildPlanPage(Pieces(), BuildPlanOf(Pieces(), ProjectOf(""), AllTracks)).find("Step"), std::string::npos);
}

} // namespace
} // namespace pistaro
