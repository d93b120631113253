// Where the tour stands, by what lies there.
#include "editor/tour.h"

#include "support/chain.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::HasSubstr;

TourStop At(const std::string& codes, int times = 1) { return TourStopOf(ProjectOf(codes), times); }

/// "3 cmdElement C151L"
std::string Place(const TourStop& stop) { return std::to_string(stop.Step) + " " + stop.Control + " " + stop.Tag; }

TEST(Tour, GoesOnWithEachPieceAndDigitOfTheOval) {
    EXPECT_EQ(Place(At("")), "1 cmdElement C160");
    EXPECT_EQ(Place(At("C160")), "2 lblStatus ");
    EXPECT_EQ(Place(At("C160", 4)), "3 cmdElement C151L");
    EXPECT_EQ(Place(At("C160 C151L C151L C151L C151L")), "4 cmdElement C160");
    EXPECT_EQ(Place(At("C160 C151L C151L C151L C151L C160")), "5 lblStatus ");
    EXPECT_EQ(Place(At("C160 C151L C151L C151L C151L C160", 4)), "6 cmdElement C151L");
    EXPECT_EQ(Place(At("C160 C151L C151L C151L C151L C160 C151L C151L C151L C151L")), "7 lblStatus ");
}

TEST(Tour, HasNoRemarkForWhoDoesWhatItAsks) {
    EXPECT_EQ(At("").Remark, "");
    EXPECT_EQ(At("C160", 4).Remark, "");
    EXPECT_EQ(At("C160 C151L C151L C151L C151L").Remark, "");
}

TEST(Tour, TellsOfAnotherPieceAndHowToTakeItBack) {
    const TourStop stop = At("C160 C159");

    EXPECT_EQ(Place(stop), "2 lblStatus ");
    EXPECT_TRUE(stop.IsAstray);
    EXPECT_FALSE(At("C160").IsAstray);
    EXPECT_EQ(stop.Text, "The tour goes on as soon as the oval is right again.");
    EXPECT_THAT(stop.Remark, HasSubstr("C159"));
    EXPECT_THAT(stop.Remark, HasSubstr("Undo"));
}

TEST(Tour, TellsOfAnotherCircuit) { EXPECT_THAT(At("N10102 N10102").Remark, HasSubstr("Circuit ▸ New")); }

TEST(Tour, TellsOfAPieceTooManyAfterTheOval) {
    const TourStop stop = At("C160 C151L C151L C151L C151L C160 C151L C151L C151L C151L C159");

    EXPECT_EQ(stop.Step, 6);
    EXPECT_THAT(stop.Remark, HasSubstr("Now C159 lies"));
}

TEST(Tour, TellsOfAnotherDigit) {
    EXPECT_THAT(At("C160", 3).Remark, HasSubstr("That was 3."));
    EXPECT_EQ(At("C160", 3).Step, 2);
    EXPECT_THAT(At("", 4).Remark, HasSubstr("Esc"));
}

TEST(Tour, LetsCurvesBeLaidOneByOne) {
    const TourStop stop = At("C160 C151L");

    EXPECT_EQ(Place(stop), "3 cmdElement C151L");
    EXPECT_EQ(stop.Remark, "One by one works as well: 3 to go.");
}

TEST(Tour, TellsWhatKeepsThePiecesFromBeingLaid) {
    Project project = ProjectOf("C160");
    project.EditState.System = TrackSystem::Ninco;
    EXPECT_THAT(TourStopOf(project, 1).Remark, HasSubstr("Use Scalextric Track"));
    project.EditState.InsertMode = true;
    EXPECT_EQ(TourStopOf(project, 1).Control, "cmdInsert");
    project.EditState.CurrentTrack = AllTracks;
    EXPECT_EQ(Place(TourStopOf(project, 1)), "1 optTrack 1");

    BeginTour(project.EditState);
    EXPECT_EQ(TourStopOf(project, 1).Remark, "");
}

} // namespace
} // namespace pistaro
