// Delete, move, rotate, mirror, invert, choosing tracks and selecting in the list.
#include "editor/track_editing.h"
#include "platform/fault.h"
#include "support/chain.h"
#include "support/press.h"

#include <gtest/gtest.h>

namespace pistaro {

namespace {

constexpr float TwiceTheConstant = 6.28318470717958F; // 2 x 3.14159235358979

Track& FirstTrack(Project& project) { return project.Design.Circuit.Tracks[0]; }

void Select(Project& project, int element) { SelectElement(project.Design.Circuit, project.EditState, element); }

} // namespace

TEST(Delete, TakesTheSelectedElementOutAndStaysOnThePlace) {
    Project project = ProjectOf("C151L C160 C152R");
    Select(project, 1);

    Press(project, "delete");

    EXPECT_EQ(CodesOf(FirstTrack(project)), "C151L C152R");
    EXPECT_EQ(project.EditState.CurrentElement[0], 1);
    EXPECT_TRUE(project.EditState.DataChanged);
}

TEST(Delete, OfTheLastElementSelectsTheOneBeforeIt) {
    Project project = ProjectOf("C151L C160");
    Select(project, 1);

    Press(project, "delete");

    EXPECT_EQ(project.EditState.CurrentElement[0], 0);
}

TEST(Delete, OfTheOnlyElementLeavesNothingSelected) {
    Project project = ProjectOf("C160");
    Select(project, 0);

    Press(project, "delete");

    EXPECT_EQ(FirstTrack(project).ElementLastIndex(), -1);
    EXPECT_EQ(project.EditState.CurrentElement[0], -1);
}

TEST(Delete, DoesNothingOnAnEmptyTrackOrWithNothingSelected) {
    Project empty = ProjectOf("");
    DeleteElement(empty.Design, empty.EditState);
    Project unselected = ProjectOf("C160");
    DeleteElement(unselected.Design, unselected.EditState);

    EXPECT_EQ(FirstTrack(empty).ElementLastIndex(), -1);
    EXPECT_EQ(empty.EditState.CurrentElement[0], -1);
    EXPECT_FALSE(empty.EditState.DataChanged);
    EXPECT_EQ(CodesOf(FirstTrack(unselected)), "C160");
    EXPECT_FALSE(unselected.EditState.DataChanged);
}

struct MoveCase {
    const char* Id;
    float X, Y;
};

class Move : public testing::TestWithParam<MoveCase> {};

TEST_P(Move, ShiftsTheStartOfTheCurrentTrackByOneTrackWidth) {
    Project project = ProjectOf("C160");
    Press(project, "track 2");

    Press(project, GetParam().Id);

    EXPECT_EQ(project.Design.Circuit.Tracks[1].TrackStartX, 15.5F + GetParam().X);
    EXPECT_EQ(project.Design.Circuit.Tracks[1].TrackStartY, GetParam().Y);
    EXPECT_EQ(project.Design.Circuit.Tracks[0].TrackStartX, 0);
    EXPECT_EQ(project.Design.Circuit.Tracks[0].TrackStartY, 0);
    EXPECT_EQ(project.Design.Circuit.Tracks[2].TrackStartX, -15.5F);
    EXPECT_TRUE(project.EditState.DataChanged);
}

INSTANTIATE_TEST_SUITE_P(InEachDirection, Move,
                         testing::Values(MoveCase{"move up", 0, 15.5F}, MoveCase{"move down", 0, -15.5F},
                                         MoveCase{"move left", -15.5F, 0}, MoveCase{"move right", 15.5F, 0},
                                         MoveCase{"move up-left", -15.5F, 15.5F},
                                         MoveCase{"move up-right", 15.5F, 15.5F},
                                         MoveCase{"move down-left", -15.5F, -15.5F},
                                         MoveCase{"move down-right", 15.5F, -15.5F}));

TEST(Moves, WithAllTracksChosenEightToTheRightAdd124CmToEachStart) {
    Project project = ProjectOf("C160", "", "C151L");
    Press(project, "track all");

    Press(project, "move right", 8);

    EXPECT_EQ(project.Design.Circuit.Tracks[0].TrackStartX, 124);
    EXPECT_EQ(project.Design.Circuit.Tracks[1].TrackStartX, 139.5F);
    EXPECT_EQ(project.Design.Circuit.Tracks[2].TrackStartX, 108.5F);
}

TEST(Moves, OfAnEmptyTrackMoveItsStart) {
    Project project = ProjectOf("");

    Press(project, "move down-left");

    EXPECT_EQ(FirstTrack(project).TrackStartX, -15.5F);
    EXPECT_EQ(FirstTrack(project).TrackStartY, -15.5F);
    EXPECT_TRUE(project.EditState.DataChanged);
}

TEST(Rotations, LeftAddASixteenthOfTheConstantToTheTracksHeading) {
    Project project = ProjectOf("C160", "C160");

    Press(project, "rotate left");

    EXPECT_EQ(FirstTrack(project).TrackStartHeading, 0.196349522F); // 3.14159235358979 / 16
    EXPECT_EQ(project.Design.Circuit.Tracks[1].TrackStartHeading, 0);
    EXPECT_TRUE(project.EditState.DataChanged);
}

TEST(Rotations, RightFromZeroGiveTwiceTheConstantLessASixteenth) {
    Project project = ProjectOf("C160");

    Press(project, "rotate right");

    EXPECT_FLOAT_EQ(FirstTrack(project).TrackStartHeading, 6.08683518F); // 6.28318470717958 - 0.19634952209936
}

TEST(Rotations, LeftFromJustBelowTwiceTheConstantWrapRound) {
    Project project = ProjectOf("C160");
    FirstTrack(project).TrackStartHeading = 6.28F;

    Press(project, "rotate left");

    EXPECT_NEAR(FirstTrack(project).TrackStartHeading, 0.19316481492, 1e-6); // 6.28 + 0.19634952 - 6.28318471
}

TEST(Rotations, LeftLeaveAHeadingThatAFilePutBelowZeroBelowZero) {
    Project project = ProjectOf("C160");
    FirstTrack(project).TrackStartHeading = -1;

    Press(project, "rotate left");

    EXPECT_FLOAT_EQ(FirstTrack(project).TrackStartHeading, -0.80365048F); // -1 + 0.19634952
}

TEST(Rotations, RightLeaveAHeadingThatAFilePutAboveAFullTurnAbove) {
    Project project = ProjectOf("C160");
    FirstTrack(project).TrackStartHeading = 7;
    project.Design.Room.Angle = 7;

    Press(project, "rotate right");
    Press(project, "track all");
    Press(project, "rotate right");

    EXPECT_FLOAT_EQ(FirstTrack(project).TrackStartHeading, 6.80365048F); // 7 - 0.19634952
    EXPECT_FLOAT_EQ(project.Design.Room.Angle, 6.90182524F);             // 7 - 0.09817476
}

TEST(Rotations, OfATrackLeaveItsStartPointAndTheRoom) {
    Project project = ProjectOf("C160");
    project.Design.Room.Angle = 1;

    Press(project, "rotate left", 5);

    EXPECT_EQ(FirstTrack(project).TrackStartX, 0);
    EXPECT_EQ(FirstTrack(project).TrackStartY, 0);
    EXPECT_EQ(project.Design.Room.Angle, 1);
}

TEST(Rotations, WithAllTracksChosenTurnTheRoomByAThirtySecond) {
    Project project = ProjectOf("C160");
    Press(project, "track all");

    Press(project, "rotate left");
    EXPECT_EQ(project.Design.Room.Angle, 0.098174761F); // 3.14159235358979 / 32
    Press(project, "rotate right", 2);

    EXPECT_FLOAT_EQ(project.Design.Room.Angle, 6.18500995F); // 6.28318470717958 - 0.09817476104968
    EXPECT_EQ(FirstTrack(project).TrackStartHeading, 0);
    EXPECT_TRUE(project.EditState.DataChanged);
}

TEST(Rotations, AThousandInARowStayWithinOneTurn) {
    Project project = ProjectOf("C160");

    for (int i = 0; i < 1000; ++i) {
        Press(project, "rotate left");
        ASSERT_GE(FirstTrack(project).TrackStartHeading, 0);
        ASSERT_LE(FirstTrack(project).TrackStartHeading, TwiceTheConstant);
    }
}

TEST(Mirror, SwapsAFinalLAndRAndLeavesTheStartAlone) {
    Project project = ProjectOf("C151L C160 C152R C8010L N10110");
    FirstTrack(project).TrackStartHeading = 1;

    Press(project, "mirror");

    EXPECT_EQ(CodesOf(FirstTrack(project)), "C151R C160 C152L C8010R N10110");
    EXPECT_EQ(FirstTrack(project).TrackStartX, 0);
    EXPECT_EQ(FirstTrack(project).TrackStartHeading, 1);
    EXPECT_TRUE(project.EditState.DataChanged);
}

TEST(Mirror, TwiceRestoresEveryCode) {
    const std::string codes = "C151L C151R C160 C187L N10105R N10102 C8010R";
    Project project = ProjectOf(codes, "C151L");

    Press(project, "mirror", 2);

    EXPECT_EQ(CodesOf(FirstTrack(project)), codes);
    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[1]), "C151L");
}

TEST(Invert, ReversesTheOrderAndSwapsTheHands) {
    Project project = ProjectOf("C151L C160 C152R");
    FirstTrack(project).TrackStartHeading = 1;

    Press(project, "invert");

    EXPECT_EQ(CodesOf(FirstTrack(project)), "C152L C160 C151R");
    EXPECT_EQ(FirstTrack(project).TrackStartHeading, 1);
    EXPECT_TRUE(project.EditState.DataChanged);
}

TEST(AllTracks, LeaveDeleteMirrorAndInvertWithoutEffect) {
    Project project = ProjectOf("C151L", "C151R", "C160");
    Select(project, 0);
    Press(project, "track all");
    const std::string before = Snapshot(project);

    DeleteElement(project.Design, project.EditState);
    MirrorTrack(project.Design, project.EditState);
    InvertTrack(project.Design, project.EditState);

    EXPECT_EQ(Snapshot(project), before);
}

TEST(ChoosingATrack, LeavesInsertMode) {
    Project project = ProjectOf("C160");
    Press(project, "insert");
    EXPECT_TRUE(project.EditState.InsertMode);

    Press(project, "track 2");

    EXPECT_FALSE(project.EditState.InsertMode);
    EXPECT_EQ(project.EditState.CurrentTrack, 1);
    EXPECT_FALSE(project.EditState.DataChanged);
}

TEST(ChoosingATrack, KeepsEachTracksSelection) {
    Project project = ProjectOf("C160 C159", "C151L");
    Select(project, 1);

    Press(project, "track 2");
    EXPECT_EQ(SelectedCode(project.Design.Circuit, project.EditState), "");
    Press(project, "track all");
    EXPECT_EQ(SelectedCode(project.Design.Circuit, project.EditState), "");
    Press(project, "track 1");

    EXPECT_EQ(SelectedCode(project.Design.Circuit, project.EditState), "C159");
}

TEST(SelectingInTheList, SetsTheCursorAndChangesNoData) {
    Project project = ProjectOf("C160 C159 C158");

    Select(project, 2);

    EXPECT_EQ(project.EditState.CurrentElement[0], 2);
    EXPECT_FALSE(project.EditState.DataChanged);
}

TEST(SelectingInTheList, RefusesALineThatIsNotThere) {
    Project project = ProjectOf("C160 C159");
    Select(project, 1);

    EXPECT_THROW(Select(project, 2), Fault);
    EXPECT_THROW(Select(project, -1), Fault);

    EXPECT_EQ(project.EditState.CurrentElement[0], 1);
}

TEST(SelectRest, LetsDeleteTakeAllFromTheSelectedElementOn) {
    Project project = ProjectOf("C160 C159 C158 C157");
    project.EditState.Select(1);

    Press(project, "select rest");
    Press(project, "delete");

    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[0]), "C160");
    EXPECT_EQ(project.EditState.SelectedElement(), 0);
    EXPECT_FALSE(project.EditState.AndAllAfter) << "the next one takes one";
}

TEST(SelectRest, IsUndoneByTheNextSelection) {
    Project project = ProjectOf("C160 C159 C158");
    project.EditState.Select(0);
    Press(project, "select rest");

    SelectElement(project.Design.Circuit, project.EditState, 1);
    Press(project, "delete");

    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[0]), "C160 C158");
}

TEST(MirrorRest, SwapsHandsFromTheSelectedElementOn) {
    Project project = ProjectOf("C151L C151L C160 C152R");
    project.EditState.Select(1);

    Press(project, "mirror rest");

    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[0]), "C151L C151R C160 C152L");
    EXPECT_TRUE(project.EditState.DataChanged);
}

TEST(StartHere, RenumbersAClosedTrackThatStaysWhereItLies) {
    Project project = ProjectOf("C160 C151L C151L C151L C151L C159 C159 C151L C151L C151L C151L");
    project.EditState.Select(5);

    Press(project, "start here");

    const Track& track = project.Design.Circuit.Tracks[0];
    EXPECT_EQ(CodesOf(track), "C159 C159 C151L C151L C151L C151L C160 C151L C151L C151L C151L");
    EXPECT_EQ(project.EditState.SelectedElement(), 0);
    EXPECT_NEAR(track.TrackStartX, -43.6, 0.001); // two radii of 21.8 to the left
    EXPECT_NEAR(track.TrackStartY, 35, 0.001);
    EXPECT_NEAR(track.TrackStartHeading, 3.1415924, 1e-5);
}

TEST(StartHere, IsNotOfferedOnAnOpenTrack) {
    Project project = ProjectOf("C160 C151L");
    project.EditState.Select(1);

    EXPECT_EQ(WhyNot(project, "start here"), "The track is not closed.");
}

TEST(Starts, MoveByMillimetres) {
    const BuildCursor moved = Moved({1, 2, 0.5F}, 0.26, -10.04);

    EXPECT_EQ(moved, (BuildCursor{1.3F, -8, 0.5F}));
}

TEST(Starts, TurnAboutAPointByTheStepsOfTheButtons) {
    const BuildCursor turned = TurnedAbout({10, 0, 0}, {0, 0}, 8); // of 11.25 degrees

    EXPECT_NEAR(turned.CursorX, 0, 1e-4);
    EXPECT_NEAR(turned.CursorY, 10, 1e-4);
    EXPECT_NEAR(turned.CursorHeading, 1.5707962, 1e-6);
    EXPECT_NEAR(TurnedAbout({10, 0, 0}, {0, 0}, -1).CursorHeading, 6.0868352, 1e-6);
}

TEST(Starts, TellHowFarTheyAreMovedInTheUsersUnit) {
    EXPECT_EQ(MoveText({10, 20, 0}, {22.5F, 16.9F, 0}, Units()), "12.5, −3.1 cm");
    EXPECT_EQ(MoveText({0, 0, 0}, {25.4F, 50.8F, 0}, {.Inches = true, .Currency = ""}), "10, 20 in");
}

TEST(Starts, TellByHowManyDegreesTheyAreTurnedAndToWhichHand) {
    EXPECT_EQ(TurnText(0), "0°");
    EXPECT_EQ(TurnText(2), "22.5° left");
    EXPECT_EQ(TurnText(-3), "33.75° right");
}

} // namespace pistaro
