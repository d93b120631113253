// The detail's counts and its total.
#include "stats/detail.h"

#include "platform/fault.h"
#include "support/chain.h"
#include "support/stock.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::HasSubstr;
using testing::Throws;

constexpr bool LeavingOutOwned = false;
constexpr bool IncludingOwned = true;

/// The labels that do not show 0: "C151:2 C160:1".
std::string CountsOf(const Detail& detail) {
    std::string text;
    for (const CountLabel& label : detail.Labels) {
        if (label.Count == 0) continue;
        text += (text.empty() ? "" : " ") + label.Tag + ":" + std::to_string(label.Count);
    }
    return text;
}

Detail DetailOf(const Project& project, int track, bool includeOwned) {
    return ShowDetail(Pieces(), project.Stock, project.Design.Circuit, track, includeOwned);
}

std::vector<CountLabel> LabelsOfAnEmptyCircuit() { return DetailOf(ProjectOf(""), AllTracks, LeavingOutOwned).Labels; }

TEST(CountLabels, StandForOneProductEachInTallyOrder) {
    std::string tags;
    for (const CountLabel& label : LabelsOfAnEmptyCircuit())
        tags += label.Tag + " ";

    EXPECT_EQ(tags, "C151 C152 C153 C154 C156 C157 C158 C159 C160 C187 "
                    "N10102 N10103 N10104 N10105 N10106 N10107 N10108 N10110 "
                    "C164 C248 C8005 C8006 C8007 C8009 C277 C367 C8010 N10111 ");
}

TEST(CountLabels, HaveADescriptionThatBeginsWithTheProductCode) {
    const std::vector<CountLabel> labels = LabelsOfAnEmptyCircuit();

    ASSERT_EQ(labels.size(), 28U);
    for (const CountLabel& label : labels)
        EXPECT_TRUE(label.Description.starts_with(label.Tag + " - ")) << label.Description;
    EXPECT_EQ(labels[0].Description, "C151 - standard curve 45");
    EXPECT_EQ(labels[14].Description, "N10106 - inner curver");
    EXPECT_EQ(labels[17].Description, "N10110 - converter");
    EXPECT_EQ(labels[26].Description, "C8010 - curved chicane ext");
    EXPECT_EQ(labels[27].Description, "N10111 - change-over");
}

TEST(CountLabels, TheNincoChangeOversIsThe29th) { EXPECT_EQ(LabelsOfAnEmptyCircuit().back().Index, 28); }

TEST(ShowDetail, CountsOneTrackOrAllOfThem) {
    const Project project = ProjectOf("C160 C151L", "C160", "N10102");

    EXPECT_EQ(CountsOf(DetailOf(project, 0, IncludingOwned)), "C151:1 C160:1");
    EXPECT_EQ(CountsOf(DetailOf(project, 1, IncludingOwned)), "C160:1");
    EXPECT_EQ(CountsOf(DetailOf(project, 2, IncludingOwned)), "N10102:1");
    EXPECT_EQ(CountsOf(DetailOf(project, AllTracks, IncludingOwned)), "C151:1 C160:2 N10102:1");
}

TEST(ShowDetail, LeavesOutWhatIsOwnedAndNeverGoesBelowZero) {
    Project project = ProjectOf("C151L C151R C151R C160 C8010R");
    SetStock(project, "C151L", 1);
    SetStock(project, "C160", 5);
    SetStock(project, "C8010L", 1);

    EXPECT_EQ(CountsOf(DetailOf(project, 0, LeavingOutOwned)), "C151:2");
    EXPECT_EQ(CountsOf(DetailOf(project, 0, IncludingOwned)), "C151:3 C160:1 C8010:1");
}

TEST(ShowDetail, OwnedPiecesCoverEachTrackAloneInFull) {
    Project project = ProjectOf("C160", "C160");
    SetStock(project, "C160", 1);

    EXPECT_EQ(CountsOf(DetailOf(project, 1, LeavingOutOwned)), "");
    EXPECT_EQ(CountsOf(DetailOf(project, AllTracks, LeavingOutOwned)), "C160:1");
}

TEST(ShowDetail, TheNincoChangeOverStaysAtZero) {
    Project project = ProjectOf("N10111 N10111");
    SetStock(project, "N10111", 0, 9);

    const Detail detail = DetailOf(project, 0, IncludingOwned);

    EXPECT_EQ(CountsOf(detail), "");
    EXPECT_EQ(detail.TotalPrice, 0);
}

TEST(ShowDetail, TheTotalPricesThePiecesShown) {
    Project project = ProjectOf("C151L C151R C160 C160");
    SetStock(project, "C151L", 0, 2.5F);
    SetStock(project, "C160", 1, 1.25F);

    EXPECT_EQ(DetailOf(project, 0, LeavingOutOwned).TotalPrice, 6.25F);
    EXPECT_EQ(DetailOf(project, 0, IncludingOwned).TotalPrice, 7.5F);
}

TEST(ShowDetail, TheTotalPricesTheCurvedChicaneAtEachHandsPrice) {
    Project project = ProjectOf("C8010L C8010R");
    SetStock(project, "C8010L", 0, 10);
    SetStock(project, "C8010R", 0, 1);

    EXPECT_EQ(DetailOf(project, 0, IncludingOwned).TotalPrice, 22);
}

TEST(ShowDetail, CountsReachTheLimitsOf16BitsAndNotBeyond) {
    Project project = ProjectOf("");
    SetStock(project, "C160", -32767);
    EXPECT_EQ(CountsOf(DetailOf(project, 0, LeavingOutOwned)), "C160:32767");

    SetStock(project, "C160", -32768);
    EXPECT_THAT([&] { DetailOf(project, 0, LeavingOutOwned); },
                Throws<Fault>(Property(&Fault::what, HasSubstr("Overflow: "))));
    EXPECT_EQ(CountsOf(DetailOf(project, 0, IncludingOwned)), "");
}

TEST(ShowDetail, ATotalBeyondTheSinglesIsAnOverflow) {
    Project project = ProjectOf("C160 C160");
    SetStock(project, "C160", 0, 3e38F);

    EXPECT_THAT([&] { DetailOf(project, 0, IncludingOwned); },
                Throws<Fault>(Property(&Fault::what, HasSubstr("Overflow: "))));
}

} // namespace
} // namespace pistaro
