// The status line.
#include "editor/status_text.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {

TEST(StatusText, TellsTrackPiecesAndGap) {
    Project project = ProjectOf("C160 C159", "C160");
    EXPECT_EQ(StatusText(project), "Track 1 · 2 pieces · gap 52.5 cm");

    project.Layout.CurrentTrack = 1;
    EXPECT_EQ(StatusText(project), "Track 2 · 1 piece · gap 35 cm");

    project.Layout.CurrentTrack = 2;
    EXPECT_EQ(StatusText(project), "Track 3 · empty");
}

TEST(StatusText, WritesASmallGapWithItsZero) {
    Project project = ProjectOf("C9999");
    project.Layout.Tracks[0].ElementCodes = {"C151L", "C151L", "C151L", "C151L", "C151L", "C151L", "C151L", "C151L"};
    EXPECT_EQ(StatusText(project), "Track 1 · 8 pieces · gap 0 cm");
}

TEST(StatusText, TellsTheGapInDisplayUnits) {
    Project project = ProjectOf("C160");
    project.DisplayUnits.Inches = true;
    EXPECT_EQ(StatusText(project), "Track 1 · 1 piece · gap 13.7 in");
}

TEST(StatusText, TellsInsertModeOfASingleTrack) {
    Project project = ProjectOf("C160");
    project.InsertMode = true;
    EXPECT_EQ(StatusText(project), "Track 1 · 1 piece · gap 35 cm · Insert mode");

    project.DataChanged = true;
    EXPECT_EQ(StatusText(project), "Track 1 · 1 piece · gap 35 cm · Insert mode · unsaved");

    project.Layout.CurrentTrack = AllTracks;
    EXPECT_EQ(StatusText(project), "All tracks · 1 piece · unsaved");
}

TEST(StatusText, CountsAllTracksTogetherWhenAllAreChosen) {
    Project project = ProjectOf("C160 C159", "C160", "C160");
    project.Layout.CurrentTrack = AllTracks;
    project.DataChanged = true;
    EXPECT_EQ(StatusText(project), "All tracks · 4 pieces · unsaved");
}

} // namespace pistaro
