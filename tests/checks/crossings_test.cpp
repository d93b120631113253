// Overlaps of two runs, told as one crossing.
#include "checks/crossings.h"

#include "checks/check.h"
#include "support/chain.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::ElementsAre;

Finding Overlap(int first, PieceAddress second, double area) {
    Finding finding{"overlap", Severity::Error, 0, {first}, "one"};
    if (second.Track == 0)
        finding.Pieces.push_back(second.Element);
    else
        finding.Others = {second};
    finding.SharedArea = area;
    return finding;
}

std::vector<std::string> Texts(const Circuit& circuit, const std::vector<Finding>& findings, const Units& units = {}) {
    std::vector<std::string> texts;
    for (const Finding& finding : CrossingsTogether(circuit, findings, units))
        texts.push_back(finding.Text);
    return texts;
}

TEST(Crossings, AreToldOnceWithAllPiecesAndTheWholeArea) {
    const Circuit circuit = ProjectOf("C160 C160 C157 C151L C160 C160 C160 C160").Design.Circuit;
    const std::vector<Finding> findings{Overlap(1, {0, 5}, 40), Overlap(2, {0, 5}, 30.4), Overlap(2, {0, 6}, 20)};

    const std::vector<Finding> together = CrossingsTogether(circuit, findings, {});

    ASSERT_EQ(together.size(), 1U);
    EXPECT_EQ(together[0].Text, "C160 (1) to C157 (2) and C160 (5) to C160 (6) overlap by 90 cm².");
    EXPECT_THAT(together[0].Pieces, ElementsAre(1, 2, 5, 6));
    EXPECT_EQ(together[0].SharedArea, 90.4);
}

TEST(Crossings, OfAnotherTrackNameIt) {
    const Circuit circuit = ProjectOf("C160 C160 C160", "C157 C160 C160").Design.Circuit;

    const std::vector<Finding> together =
        CrossingsTogether(circuit, {Overlap(1, {1, 0}, 8), Overlap(1, {1, 1}, 2)}, {});

    ASSERT_EQ(together.size(), 1U);
    EXPECT_EQ(together[0].Text, "C160 (1) and C157 (0) to C160 (1) of track 2 overlap by 10 cm².");
    EXPECT_THAT(together[0].Pieces, ElementsAre(1));
    EXPECT_THAT(together[0].Others, ElementsAre(PieceAddress{1, 0}, PieceAddress{1, 1}));
}

TEST(Crossings, ApartStayApartAndOtherFindingsStayAsTheyAre) {
    const Circuit circuit = ProjectOf("C160 C160 C160 C160 C160", "C160 C160 C160 C160 C160").Design.Circuit;
    const Finding open{"open-track", Severity::Error, 0, {0, 4}, "open"};

    EXPECT_THAT(Texts(circuit, {Overlap(0, {1, 0}, 8), open, Overlap(0, {1, 2}, 8), Overlap(2, {1, 2}, 8)}),
                ElementsAre("one", "open", "one", "one"));
    EXPECT_EQ(CrossingsTogether(circuit, {open}, {}), std::vector<Finding>{open});
}

TEST(Crossings, OverATracksStartAreOne) {
    const Circuit circuit = ProjectOf("C160 C160 C160 C160 C160", "C160").Design.Circuit;

    EXPECT_THAT(Texts(circuit, {Overlap(0, {1, 0}, 8), Overlap(4, {1, 0}, 8)}),
                ElementsAre("C160 (0), C160 (4) and C160 (0) of track 2 overlap by 16 cm²."));
}

TEST(Crossings, KeepWhatWasLeftOut) {
    const Circuit circuit = ProjectOf("C160 C160", "C160").Design.Circuit;
    Finding last = Overlap(1, {1, 0}, 8);
    last.Text += MoreOverlaps;

    EXPECT_THAT(Texts(circuit, {Overlap(0, {1, 0}, 8), last}),
                ElementsAre("C160 (0) to C160 (1) and C160 (0) of track 2 overlap by 16 cm². There may be more; they "
                            "are left out."));
}

TEST(Crossings, OfALaidCircuitAreThoseOfTheCheck) {
    Project project = ProjectOf("C160 C160", "C160 C160");
    Track& across = project.Design.Circuit.Tracks[1];
    across.TrackStartX = 40;
    across.TrackStartY = 30;
    across.TrackStartHeading = 1.570796F; // to the left, over the first track's joint
    const std::vector<Finding> findings =
        CheckDesign(Pieces(), project.Design, project.Stock, project.Preferences.Units);
    const auto isOverlap = [](const Finding& finding) { return finding.Rule == "overlap"; };
    EXPECT_GT(std::ranges::count_if(findings, isOverlap), 1);

    const std::vector<Finding> together = CrossingsTogether(project.Design.Circuit, findings, {});

    ASSERT_EQ(std::ranges::count_if(together, isOverlap), 1);
    const auto crossing = std::ranges::find_if(together, isOverlap);
    EXPECT_NEAR(crossing->SharedArea, 15.5 * 15.5, 1);
    EXPECT_THAT(crossing->Pieces, ElementsAre(0, 1));
}

} // namespace
} // namespace pistaro
