// Clicks on the drawing. Labels by hand: a C160 at 0, 0 with heading 0 spans 15.5 x 35, so its label lies at
// 7.75 - 5, 17.5 + 4; the next one's 35 higher.
#include "editor/mouse_selection.h"

#include "platform/fault.h"
#include "support/chain.h"
#include "support/press.h"

#include <gtest/gtest.h>

namespace pistaro {

namespace {

void Click(Project& project, WorldPoint point) {
    SelectNearestElement(Pieces(), project.Design.Circuit, project.EditState, point);
}

int SelectedAfterClick(Project& project, WorldPoint point) {
    Click(project, point);
    return project.EditState.SelectedElement();
}

/// The system offered after a click on the last label of a straight track, `labelY` cm up.
TrackSystem SystemAfterClick(const char* codes, TrackSystem offered, float labelY) {
    Project project = ProjectOf(codes);
    project.EditState.System = offered;
    Click(project, {2.75F, labelY});
    EXPECT_EQ(project.EditState.CurrentElement[0], project.Design.Circuit.Tracks[0].ElementLastIndex());
    return project.EditState.System;
}

constexpr auto Scalextric = TrackSystem::Scalextric;
constexpr auto Ninco = TrackSystem::Ninco;

} // namespace

TEST(MouseSelection, TakesTheElementWhoseLabelIsNearest) {
    Project project = ProjectOf("C160 C160 C160");

    EXPECT_EQ(SelectedAfterClick(project, {2.75F, 57}), 1);
    EXPECT_EQ(SelectedAfterClick(project, {300, 74.1F}), 2);
    EXPECT_EQ(SelectedAfterClick(project, {300, 73.9F}), 1);
    EXPECT_EQ(SelectedAfterClick(project, {-1000, -1000}), 0);
}

TEST(MouseSelection, OfTwoElementsAtTheSameDistanceTakesTheLowerIndex) {
    Project project = ProjectOf("C160 C160");

    EXPECT_EQ(SelectedAfterClick(project, {2.75F, 39}), 0);
    EXPECT_EQ(SelectedAfterClick(project, {2.75F, 39.01F}), 1);
}

TEST(MouseSelection, SelectsOnTheChosenTrackOnly) {
    Project project = ProjectOf("C160", "C160 C160");
    Press(project, "track 2");

    Click(project, {2.75F, 56});

    EXPECT_EQ(project.EditState.CurrentElement[0], -1);
    EXPECT_EQ(project.EditState.CurrentElement[1], 1);
}

TEST(MouseSelection, WithAllTracksChosenChangesNothing) {
    Project project = ProjectOf("C160", "C160", "N10102 C160");
    Press(project, "track all");
    const std::string before = Snapshot(project);

    Click(project, {0, 0});

    EXPECT_EQ(Snapshot(project), before);
}

TEST(MouseSelection, OnAnEmptyTrackChangesNothing) {
    Project project = ProjectOf("", "C160");
    const std::string before = Snapshot(project);

    Click(project, {0, 0});

    EXPECT_EQ(Snapshot(project), before);
}

TEST(MouseSelection, OnAOneElementTrackSelectsItAndKeepsTheSystem) {
    Project project = ProjectOf("N10102");

    EXPECT_EQ(SelectedAfterClick(project, {500, -500}), 0);

    EXPECT_EQ(project.EditState.System, Scalextric);
}

TEST(MouseSelection, ChangesNoData) {
    Project project = ProjectOf("C160 C160");

    Click(project, {0, 0});

    EXPECT_FALSE(project.EditState.DataChanged);
}

TEST(MouseSelection, OffersTheSystemOfTheElementBefore) {
    EXPECT_EQ(SystemAfterClick("N10102 C160", Scalextric, 61.5F), Ninco);
    EXPECT_EQ(SystemAfterClick("N10102 C160", Ninco, 61.5F), Ninco);
    EXPECT_EQ(SystemAfterClick("C160 N10102", Ninco, 59), Scalextric);
    EXPECT_EQ(SystemAfterClick("C160 N10102", Scalextric, 59), Scalextric);
    EXPECT_EQ(SystemAfterClick("unknown C160", Ninco, 21.5F), Ninco);
}

TEST(MouseSelection, AfterAnAdapterOffersTheSystemItLeadsTo) {
    EXPECT_EQ(SystemAfterClick("N10102 N10110 C160", Ninco, 81.5F), Scalextric);
    EXPECT_EQ(SystemAfterClick("C160 N10110 N10102", Scalextric, 79), Ninco);
    EXPECT_EQ(SystemAfterClick("N10110 N10102", Scalextric, 44), Ninco);
}

TEST(MouseSelection, AnUnknownPieceHasTheLabelOfTheOneBeforeIt) {
    Project project = ProjectOf("C160 unknown C160");

    EXPECT_EQ(SelectedAfterClick(project, {2.75F, 21.5F}), 0);
    EXPECT_EQ(SelectedAfterClick(project, {2.75F, 56.5F}), 2);
}

TEST(MouseSelection, ATrackOf201ElementsCanBeClickedAndALongerOneIsAnErrorThatChangesNothing) {
    Project project = ProjectOf("");
    for (int i = 0; i < 201; ++i)
        Add(project, "C160");

    EXPECT_EQ(SelectedAfterClick(project, {2.75F, 200 * 35 + 21.5F}), 200);
    EXPECT_EQ(SelectedAfterClick(project, {0, 0}), 0);
    Add(project, "C160");
    const std::string before = Snapshot(project);

    EXPECT_THROW(Click(project, {0, 0}), Fault);
    EXPECT_EQ(Snapshot(project), before);
}

} // namespace pistaro
