// The texts of the four frames.
#include "stats/frames.h"

#include "support/chain.h"
#include "support/stock.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace pistaro {
namespace {

auto FramesOf(const Project& project, const Catalogue& catalogue = Pieces()) {
    return StatisticsFrames(catalogue, project.Stock, project.Design.Circuit, project.Preferences.Units);
}

/// "left right price elements"
std::string TextOf(const StatisticsFrame& frame) {
    return frame.Left + " " + frame.Right + " " + frame.Price + " " + frame.Elements;
}

TEST(StatisticsFrames, AreNamedAfterTheTracks) {
    const auto frames = FramesOf(ProjectOf(""));

    EXPECT_EQ(frames[0].Name, "Track 1");
    EXPECT_EQ(frames[1].Name, "Track 2");
    EXPECT_EQ(frames[2].Name, "Track 3");
    EXPECT_EQ(frames[3].Name, "Complete Circuit");
}

TEST(StatisticsFrames, AnEmptyTrackShowsZeroInAllFourLabels) {
    for (const StatisticsFrame& frame : FramesOf(ProjectOf("")))
        EXPECT_EQ(TextOf(frame), "0 0 0 0") << frame.Name;
}

TEST(StatisticsFrames, ShowEachTrackAloneAndTheCircuitsSum) {
    Project project = ProjectOf("C160 C151L", "", "N10102");
    SetStock(project, "C160", 3, 1.5F);
    SetStock(project, "N10102", 0, 4);

    const auto frames = FramesOf(project);

    EXPECT_EQ(TextOf(frames[0]), "55 61 1.5 2"); // 35 + 20.106, 35 + 26.311
    EXPECT_EQ(TextOf(frames[1]), "0 0 0 0");
    EXPECT_EQ(TextOf(frames[2]), "40 40 4 1");
    EXPECT_EQ(TextOf(frames[3]), "95 101 5.5 3");
}

TEST(StatisticsFrames, TheCircuitsLengthIsCutOnceNotTrackByTrack) {
    const auto frames = FramesOf(ProjectOf("C159", "C159")); // 17.5 each

    EXPECT_EQ(frames[0].Left, "17");
    EXPECT_EQ(frames[3].Left, "35");
}

TEST(StatisticsFrames, InInchesALengthOf254CmShows100) {
    Project project = ProjectOf("C8006 C8006 N10102 N10102 N10102 N10102 N10103"); // 74 + 160 + 20
    project.Preferences.Units.Inches = true;

    EXPECT_EQ(FramesOf(project)[0].Left, "100");
}

TEST(StatisticsFrames, InCentimetresALengthOf99Point9Shows99) {
    std::vector<CatalogueEntry> rows = PieceTable();
    std::ranges::find(rows, "C160", &CatalogueEntry::Code)->LaneLength1 = 99.9F;

    EXPECT_EQ(FramesOf(ProjectOf("C160"), Catalogue(rows))[0].Left, "99");
}

TEST(StatisticsFrames, APriceIsInTheShortestForm) {
    Project project = ProjectOf("C160", "C159", "C158");
    SetStock(project, "C160", 0, 12.5F);
    SetStock(project, "C159", 0, .5F);
    SetStock(project, "C158", 0, 20000000);

    const auto frames = FramesOf(project);

    EXPECT_EQ(frames[0].Price, "12.5");
    EXPECT_EQ(frames[1].Price, ".5");
    EXPECT_EQ(frames[2].Price, "2E+07");
}

TEST(StatisticsFrames, CountUnknownElementsToo) { EXPECT_EQ(FramesOf(ProjectOf("C160 unknown"))[0].Elements, "2"); }

TEST(StatisticsFrames, ShowTheThreeFullestTracksThereCanBe) {
    Project project = ProjectOf("");
    for (Track& track : project.Design.Circuit.Tracks)
        track.ElementCodes.assign(501, "C160");

    const auto frames = FramesOf(project);

    EXPECT_EQ(TextOf(frames[0]), "17535 17535 0 501");
    EXPECT_EQ(TextOf(frames[3]), "52605 52605 0 1503");
}

} // namespace
} // namespace pistaro
