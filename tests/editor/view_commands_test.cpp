// Zooming and scrolling.
#include "editor/view_commands.h"
#include "support/chain.h"
#include "support/press.h"

#include <gtest/gtest.h>

namespace pistaro {

namespace {

std::vector<float> Shown(const Project& project) {
    const ViewRectangle shown = ShownRectangle(project.Design.View);
    return {shown.ViewLeft, shown.ViewTop, shown.ViewRight, shown.ViewBottom};
}

} // namespace

TEST(Zoom, TakesTenCmOffEverySideOrAddsThem) {
    Project project = ProjectOf("");

    Press(project, "zoom in");
    EXPECT_EQ(Shown(project), (std::vector<float>{-150, 150, 150, -150}));
    Press(project, "zoom out", 3);

    EXPECT_EQ(Shown(project), (std::vector<float>{-180, 180, 180, -180}));
    EXPECT_FALSE(project.EditState.DataChanged);
}

TEST(Zoom, FromFortyCmGoesToTwentyAndNoFurtherUntilItIsZoomedOut) {
    Project project = ProjectOf("");
    project.Design.View.Width = 40;

    Press(project, "zoom in");
    EXPECT_EQ(project.Design.View.Width, 20);
    EXPECT_EQ(WhyNot(project, "zoom in"), "The view is as close as it gets.");
    Press(project, "zoom out");

    EXPECT_EQ(WhyNot(project, "zoom in"), "");
}

TEST(Zoom, FromJustAboveTwentyCmGoesBelowIt) {
    Project project = ProjectOf("");
    project.Design.View.Width = 25;

    Press(project, "zoom in");

    EXPECT_EQ(project.Design.View.Width, 5);
    EXPECT_FALSE(CanZoomIn(project.Design.View));
}

TEST(Zoom, OutHasNoLimit) {
    Project project = ProjectOf("");

    Press(project, "zoom out", 1000);

    EXPECT_EQ(project.Design.View.Width, 20320);
    EXPECT_EQ(WhyNot(project, "zoom out"), "");
}

TEST(Zoom, SetsTheBarsStepsByTheWidth) {
    Project project = ProjectOf("");

    EXPECT_EQ(SmallScrollStep(project.Design.View), 16);
    EXPECT_EQ(LargeScrollStep(project.Design.View), 320);
    project.Design.View.Width = 50;

    EXPECT_EQ(SmallScrollStep(project.Design.View), 2); // 2.5 to the even neighbour
    EXPECT_EQ(LargeScrollStep(project.Design.View), 50);
}

TEST(Scrolling, MovesTheCentreAndKeepsTheWidth) {
    Project project = ProjectOf("");

    ScrollHorizontally(project.Design.View, 40);

    EXPECT_EQ(Shown(project), (std::vector<float>{-120, 160, 200, -160}));
    EXPECT_FALSE(project.EditState.DataChanged);
}

TEST(Scrolling, DownwardsTakesTheBarsValueNegated) {
    Project project = ProjectOf("");

    ScrollVertically(project.Design.View, 40);

    EXPECT_EQ(Shown(project), (std::vector<float>{-160, 120, 160, -200}));
}

TEST(Scrolling, ToWhereTheBarStandsChangesNothing) {
    Project project = ProjectOf("");
    project.Design.View.VMov.Value = 30;
    project.Design.View.MidY = 30; // as after a load

    ScrollVertically(project.Design.View, 30);

    EXPECT_EQ(project.Design.View.MidY, 30);
}

} // namespace pistaro
