// Which part of the world a plan's pictures show, and where numbers and marks stand on it.
#include "report/plan_picture.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

std::string Times(int count, const std::string& code) {
    std::string codes;
    for (int i = 0; i < count; ++i)
        codes += code + " ";
    return codes;
}

BuildPlan PlanOf(const std::string& codes) { return BuildPlanOf(Pieces(), ProjectOf(codes), AllTracks); }

/// The paper that a number takes, in cm of the world.
Box GroundOf(const PlanPicture& picture, const NumberBadge& badge) {
    return BoxAround(badge.Place.X, badge.Place.Y, badge.Width * picture.Scale, 0.42 * picture.Scale);
}

void ExpectAllReadable(const PlanPicture& picture) {
    for (std::size_t one = 0; one < picture.Badges.size(); ++one) {
        const Box ground = GroundOf(picture, picture.Badges[one]);
        for (std::size_t other = 0; other < one; ++other)
            EXPECT_FALSE(ground.Meets(GroundOf(picture, picture.Badges[other])))
                << picture.Badges[one].Text << " and " << picture.Badges[other].Text;
        EXPECT_GE(ground.Left, picture.Part.Left) << picture.Badges[one].Text;
        EXPECT_LE(ground.Right, picture.Part.Right) << picture.Badges[one].Text;
        EXPECT_GE(ground.Bottom, picture.Part.Bottom) << picture.Badges[one].Text;
        EXPECT_LE(ground.Top, picture.Part.Top) << picture.Badges[one].Text;
    }
}

TEST(PlanPicture, OfAStepShowsItsPiecesAsLargeAsTheyFit) {
    const BuildPlan plan = PlanOf(Times(20, "C160")); // 350 cm a step, upwards

    const PlanPicture picture = PictureOf(plan, plan.Steps[1], {12, 7.8});

    EXPECT_NEAR(picture.Scale, 350 / 6.3, 0.01) << "0.75 cm of paper above and below";
    EXPECT_NEAR(picture.Part.MiddleY(), 525, 0.01);
    EXPECT_NEAR(picture.Part.Height(), 433.33, 0.01);
}

TEST(PlanPicture, OfALonePieceShowsItAmongItsNeighbours) {
    const BuildPlan plan = PlanOf(Times(11, "C160"));

    EXPECT_DOUBLE_EQ(PictureOf(plan, plan.Steps[1], {12, 7.5}).Scale, 7.5) << "90 cm across";
}

TEST(PlanPicture, HasTheScaleOfAllSteps) {
    const BuildPlan plan = PlanOf(Times(10, "C160") + Times(6, "C160"));
    const PictureArea area{12, 7.8};

    const std::vector<double> scales = StepScales(plan, area);

    ASSERT_EQ(scales.size(), 2U);
    EXPECT_NEAR(scales[0], 350 / 6.3, 0.01);
    EXPECT_EQ(scales[1], scales[0]) << "210 cm would fit at 33";
    EXPECT_EQ(PictureOf(plan, plan.Steps[1], area, scales[1]).Scale, scales[0]);
}

TEST(PlanPicture, IsLargerWhereItWouldBeLessThanAThirdAsLargeAsItFits) {
    const std::vector<double> scales = StepScales(PlanOf(Times(20, "C160") + Times(3, "C160")), {12, 7.8});

    ASSERT_EQ(scales.size(), 3U);
    EXPECT_NEAR(scales[0], 350 / 6.3, 0.01);
    EXPECT_EQ(scales[1], scales[0]);
    EXPECT_NEAR(scales[2], 105 / 6.3, 0.01);
    EXPECT_EQ(StepScales(PlanOf(Times(20, "C160") + Times(4, "C160")), {12, 7.8})[2], scales[0])
        << "140 cm do not jump";
}

TEST(PlanPicture, HasABarOfARoundLengthThatNoNumberCovers) {
    BuildPlan plan = PlanOf(Times(10, "C160"));
    const PlanPicture picture = PictureOf(plan, plan.Steps[0], {12, 7.8});
    EXPECT_EQ(picture.Bar.Text, "1 m") << "200 cm would take 3.4 cm of paper";
    EXPECT_NEAR(picture.Bar.Length, 100 / (350 / 6.3), 0.001);
    const Box bar{picture.Part.Left, picture.Part.Bottom, picture.Part.Left + 1.9 * picture.Scale,
                  picture.Part.Bottom + 0.4 * picture.Scale};
    for (const NumberBadge& badge : picture.Badges)
        EXPECT_FALSE(GroundOf(picture, badge).Meets(bar)) << badge.Text;

    plan.Drawing.Preferences.Units.Inches = true;
    EXPECT_EQ(PictureOf(plan, plan.Steps[0], {12, 7.8}).Bar.Text, "50 in");
    EXPECT_EQ(Overview(plan, plan.Steps[0], {5, 3.7}).Bar.Length, 0) << "it is too small for one";
}

TEST(PlanPicture, HasTheNumbersOfTheNewPiecesAlone) {
    const BuildPlan plan = PlanOf(Times(12, "C160"));

    const PlanPicture picture = PictureOf(plan, plan.Steps[1], {12, 7.5});

    ASSERT_EQ(picture.Badges.size(), 2U);
    EXPECT_EQ(picture.Badges[0].Text, "10");
    EXPECT_EQ(picture.Badges[1].Text, "11");
    EXPECT_FALSE(picture.Badges[0].StandsAside()) << "a standard straight has room for it";
}

TEST(PlanPicture, HasNumbersBesidePiecesThatAreTooShortForThem) {
    const BuildPlan plan = PlanOf(Times(9, "C160") + "C158");

    const PlanPicture picture = PictureOf(plan, plan.Steps[0], {12, 7.5});

    EXPECT_FALSE(picture.Badges[0].StandsAside());
    EXPECT_TRUE(picture.Badges[9].StandsAside());
}

TEST(PlanPicture, HasNoNumberOverAnotherOne) {
    for (const std::string& codes :
         {Times(10, "C158"), Times(8, "C160") + Times(2, "C158"), Times(10, "C152L"), Times(10, "C154R"),
          std::string("C160 C160 C160 C160 C157 C151L C157 C158 C151R C158")}) {
        SCOPED_TRACE(codes);
        const BuildPlan plan = PlanOf(codes);
        ExpectAllReadable(PictureOf(plan, plan.Steps[0], {12, 7.5}));
    }
}

TEST(PlanPicture, MarksTheStartAndWhereTheStepBegins) {
    const BuildPlan plan = PlanOf(Times(11, "C160"));

    const PlanPicture picture = PictureOf(plan, plan.Steps[1], {12, 7.5});

    ASSERT_EQ(picture.Marks.size(), 13U) << "a white line, ten squares, an arrow; and the step's";
    EXPECT_NEAR(picture.Marks[12].Polygon[0].X, 7.75, 1e-4) << "its tip";
    EXPECT_NEAR(picture.Marks[12].Polygon[0].Y, 350, 1e-3);
    EXPECT_LT(picture.Marks[12].Polygon[3].Y, 350) << "it comes from what is laid";
}

TEST(PlanPicture, OfTheWholeTellsWhichStepLiesWhere) {
    const BuildPlan plan = PlanOf(Times(25, "C160"));

    const PlanPicture picture = WholePicture(plan, {18, 9});

    ASSERT_EQ(picture.Badges.size(), 3U);
    EXPECT_EQ(picture.Badges[2].Text, "3");
    EXPECT_FLOAT_EQ(picture.Badges[2].Foot.Y, 787.5F) << "the middle of piece 22";
    EXPECT_TRUE(WholePicture(PlanOf("C160"), {18, 9}).Badges.empty());
}

TEST(PlanPicture, OfTheWholePartsTheStepsOfATrackByALineAcross) {
    const BuildPlan plan = PlanOf(Times(25, "C160"));

    const PlanPicture picture = WholePicture(plan, {18, 9});

    ASSERT_EQ(picture.Marks.size(), 14U) << "the start line's twelve, and two";
    const FilledArea& parting = picture.Marks[12];
    ASSERT_EQ(parting.Polygon.size(), 4U);
    for (const WorldPoint& corner : parting.Polygon)
        EXPECT_NEAR(corner.Y, 350, 0.051 * picture.Scale) << "where piece 10 begins";
    EXPECT_LT(std::min(parting.Polygon[0].X, parting.Polygon[1].X), 0) << "it stands out on both sides";
    EXPECT_GT(std::max(parting.Polygon[0].X, parting.Polygon[1].X), 15.5);
    EXPECT_EQ(WholePicture(BuildPlanOf(Pieces(), ProjectOf("C160", "C157"), AllTracks), {18, 9}).Marks.size(), 24U)
        << "of two tracks nothing goes on";
}

TEST(PlanPicture, HasItsBarInACornerWithoutTrack) {
    BuildPlan plan = PlanOf("C160");
    const PlanPicture upright = PictureOf(plan, plan.Steps[0], {12, 7.5});
    EXPECT_EQ(upright.Bar.Left, 0.25);
    EXPECT_EQ(upright.Bar.Up, 0.25);

    plan.Drawing.Pieces.push_back(plan.Drawing.Pieces[0]);
    plan.Drawing.Pieces[0].Extent = {-400, -400, 0, -320}; // laid before
    plan.Drawing.Pieces[1].Extent = {-300, -300, 300, 300};
    const PlanPicture crossed = PictureOf(plan, {1, 1}, {7.5, 7.5});
    EXPECT_GT(crossed.Bar.Left, 3) << "the lower right corner";
    EXPECT_EQ(crossed.Bar.Up, 0.25);

    plan.Drawing.Pieces[0].Extent = {-400, -400, 400, -320}; // below, from side to side
    const PlanPicture above = PictureOf(plan, {1, 1}, {7.5, 7.5});
    EXPECT_EQ(above.Bar.Left, 0.25);
    EXPECT_NEAR(above.Bar.Ground().Top, 7.37, 1e-9) << "as far from the upper edge as else from the lower one";
}

TEST(PlanPicture, HasItsBarInACornerWithoutWalls) {
    BuildPlan plan = PlanOf("C160"); // its picture shows 90 x 56 cm: from -37, -11 to 53, 46
    plan.Drawing.Room.Points = {{-30, -8}, {300, -8, 1}, {300, 300, 1}, {-30, 300, 1}, {-30, -8, 1}};
    const PlanPicture cornered = PictureOf(plan, plan.Steps[0], {12, 7.5});
    EXPECT_GT(cornered.Bar.Left, 3) << "the upper right corner";
    EXPECT_NEAR(cornered.Bar.Ground().Top, 7.37, 1e-9);

    plan.Drawing.Room.Points = {{-30, -8}, {45, -8, 1}, {45, 43, 1}, {-30, 43, 1}, {-30, -8, 1}};
    EXPECT_EQ(PictureOf(plan, plan.Steps[0], {12, 7.5}).Bar.Up, 0.25) << "a wall crosses each corner";
}

TEST(PlanPicture, BesideAStepShowsAllAndAnArrowAtTheStart) {
    const BuildPlan plan = PlanOf(Times(20, "C160"));

    const PlanPicture overview = Overview(plan, plan.Steps[0], {5, 3.7});

    EXPECT_NEAR(overview.Scale, 700 / 3.0, 0.01);
    ASSERT_EQ(overview.Marks.size(), 1U);
    EXPECT_GT(overview.Marks[0].Polygon[0].Y, 0) << "it points onwards";
    const Box shown = PartIn(overview, {-1e6, 10, 1e6, 20});
    EXPECT_EQ(shown.Bottom, 10);
    EXPECT_GT(shown.Left, overview.Part.Left);
    EXPECT_LT(shown.Right, overview.Part.Right);
}

TEST(PlanPicture, HasAMiddleLineOfEntriesMiddlesAndExits) {
    const BuildPlan plan = PlanOf("C160 C160");

    const std::vector<WorldPoint> line = MiddleLine(plan, {0, 1});

    ASSERT_EQ(line.size(), 5U);
    EXPECT_FLOAT_EQ(line[0].Y, 0);
    EXPECT_FLOAT_EQ(line[1].Y, 17.5F);
    EXPECT_FLOAT_EQ(line[4].Y, 70);
    EXPECT_FLOAT_EQ(line[4].X, 7.75F);
}

} // namespace
} // namespace pistaro
