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

namespace {

/// What is shown of the world at a pixel of a square of 640.
WorldPoint At(const ViewSettings& view, double x, double y) {
    const ViewRectangle shown = ShownRectangle(view);
    return {static_cast<float>(shown.ViewLeft + x * view.Width / 640),
            static_cast<float>(shown.ViewTop - y * view.Width / 640)};
}

} // namespace

TEST(Zoom, AtAPointKeepsItWhereItIsShown) {
    ViewSettings view; // 320 cm around 0, 0
    const WorldPoint fixed{80, -40};

    ZoomAt(view, fixed, 160);

    EXPECT_EQ(view.Width, 160);
    EXPECT_EQ(view.MidX, 40);
    EXPECT_EQ(view.MidY, -20);
    EXPECT_EQ(At(view, 480, 400), fixed) << "where it was in the square of 320 cm";
}

TEST(Zoom, AtAPointLeavesACentreOfWholeCmThatASavedFileBringsBack) {
    ViewSettings view;
    ZoomAt(view, {33, 77}, 290);

    EXPECT_EQ(view.MidX, 3); // 33 - 33 x 290 / 320 = 3.09
    EXPECT_EQ(view.MidY, 7);
    EXPECT_EQ(view.HMov.Value, 3);
    EXPECT_EQ(view.VMov.Value, 7);
    EXPECT_EQ(view.HMov.Minimum, -160);
    EXPECT_EQ(view.HMov.Maximum, 160);
}

TEST(Centring, BeyondTheBarsBringsTheirRangesAlong) {
    ViewSettings view; // bars of -160 .. 160

    CentreView(view, 170.4, -100);

    EXPECT_EQ(view.HMov, (ScrollBar{-150, 170, 170}));
    EXPECT_EQ(view.VMov, (ScrollBar{-160, 160, -100}));
    EXPECT_EQ(view.MidX, 170);
}

TEST(Zoom, ByNotchesTakesAsManyStepsOfTheButtonsAsAnEighthOfTheWidthHasOrATenthOfThem) {
    ViewSettings view;
    ZoomByNotches(view, {0, 0}, 2, false);
    EXPECT_EQ(view.Width, 240); // 320 - 40 - 40
    ZoomByNotches(view, {0, 0}, -3, true);
    EXPECT_EQ(view.Width, 252); // 240 + 4 + 4 + 4
    view.Width = 3200;
    ZoomByNotches(view, {0, 0}, -1, false);
    EXPECT_EQ(view.Width, 3600) << "a notch is felt at every scale";
    ZoomByNotches(view, {0, 0}, 100, false);
    EXPECT_EQ(view.Width, 20) << "no narrower than zooming in is offered";
    ZoomByNotches(view, {0, 0}, 1, true);
    EXPECT_EQ(view.Width, 20);
}

TEST(Fit, ShowsAllTracksWithAMargin) {
    Project project = ProjectOf("C160 C160", "C160"); // 70 cm upwards from 0, 0, and 35 from 15.5, 0

    Press(project, "fit");

    EXPECT_EQ(project.Design.View.Width, 76); // 70 x 1.08, rounded up
    EXPECT_EQ(project.Design.View.MidX, 16);  // (0 + 31) / 2, rounded to even
    EXPECT_EQ(project.Design.View.MidY, 35);
    EXPECT_FALSE(project.EditState.DataChanged);
}

TEST(Fit, ShowsTheRoomToo) {
    Project project = ProjectOf("C160");
    project.Design.Room.Points = {{-300, -200, 0}, {100, -200, 1}, {100, 200, 1}};

    Press(project, "fit");

    EXPECT_EQ(project.Design.View.Width, 432); // 400 x 1.08
    EXPECT_EQ(project.Design.View.MidX, -100);
    EXPECT_EQ(project.Design.View.MidY, 0);
}

TEST(Fit, OfNothingIsTheDefaultView) {
    Project project = ProjectOf("");
    project.Design.View.Width = 40;
    CentreView(project.Design.View, 70, 80);

    Press(project, "fit");

    EXPECT_EQ(Shown(project), (std::vector<float>{-160, 160, 160, -160}));
}

TEST(Follow, MovesTheViewNoFurtherThanItMust) {
    ViewSettings view;
    const ViewRectangle covered{-300, 160, 300, -160}; // of a wide window

    FollowTo(view, {-290, -270, 0, 15}, covered);
    EXPECT_EQ(view.MidX, 0) << "it is shown already";

    FollowTo(view, {290, 312, 150, 170.5}, covered);
    EXPECT_EQ(view.MidX, 12);
    EXPECT_EQ(view.MidY, 11);
}

TEST(Follow, LeavesAloneWhatIsShownWholeOrIsTooLargeForThat) {
    const ViewRectangle covered{.ViewLeft = -50, .ViewTop = 40, .ViewRight = 50, .ViewBottom = -40};

    EXPECT_TRUE(IsShown({-50, 50, -40, 40}, covered));
    EXPECT_FALSE(IsShown({30, 51, 0, 10}, covered)) << "its end is out of sight";
    EXPECT_TRUE(IsShown({-60, 61, 0, 10}, covered)) << "its middle is in view";
    EXPECT_FALSE(IsShown({-60, 162, 0, 10}, covered));
}

TEST(Follow, CentresWhatIsLargerThanWhatIsShown) {
    ViewSettings view;
    view.Width = 20;

    FollowTo(view, {100, 140, -5, 5}, ShownRectangle(view));

    EXPECT_EQ(view.MidX, 120);
    EXPECT_EQ(view.MidY, 0);
}

namespace {

constexpr ViewRectangle Upwards{.ViewLeft = -50, .ViewTop = 60, .ViewRight = 50, .ViewBottom = -60};

/// What a track covers into which something was put, as left, right, bottom and top; empty where nothing is told.
std::vector<double> After(const std::string& before, const std::string& after) {
    const auto box = ExtentAfterInsertion(Pieces(), Chain(before), Chain(after), Upwards);
    if (!box) return {};
    return {box->Left, box->Right, box->Bottom, box->Top};
}

} // namespace

TEST(Insertion, IntoATrackInViewExtendsOverAllOfIt) {
    EXPECT_EQ(After("C160 C159", "C160 C158 C158 C159"), (std::vector<double>{0, 15.5, 0, 70}));
    EXPECT_EQ(After("C159", "C160 C159"), (std::vector<double>{0, 15.5, 0, 52.5}));
}

TEST(Insertion, IntoATrackThatIsOutOfSightInPartTellsNothing) {
    EXPECT_TRUE(After("C160 C159 C160", "C160 C158 C159 C160").empty());
}

TEST(Insertion, IsNoneWhereATrackGrewAtItsEndShrankOrChanged) {
    EXPECT_TRUE(After("C160", "C160 C159").empty());
    EXPECT_TRUE(After("C160 C158", "C160").empty());
    EXPECT_TRUE(After("C160 C158", "C160 C159 C157").empty());
    EXPECT_TRUE(After("C160 C159", "C160 C158").empty());
    EXPECT_TRUE(After("", "C160").empty());
}

} // namespace pistaro
