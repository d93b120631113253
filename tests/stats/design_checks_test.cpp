// Each warning of the statistics, when it comes and when it does not.
#include "stats/design_checks.h"

#include "platform/fault.h"
#include "support/chain.h"
#include "support/stock.h"

#include <gmock/gmock.h>

namespace pistaro {

void PrintTo(const Message& message, std::ostream* output) { *output << message.Text; }

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Throws;

Message ChangeOvers(const std::string& track) {
    return {Icon::Exclamation, "You have used an uneven number of change-over sections for track " + track + " !"};
}

Message Chicane(const std::string& track) {
    return {Icon::Exclamation, "Check your chicane design for track " + track + " !"};
}

Message Ninco(const std::string& track) {
    return {Icon::Exclamation, "Check your Ninco track design for track " + track + " !"};
}

const Message HalfStraights{Icon::Information, "You have not used all your half straight sized special track"};
const Message StandardStraights{Icon::Information, "You have not used all your standard straight sized special track"};
const Message StandardCurves{Icon::Information, "You have not used all your standard curve sized special track"};

std::vector<Message> ChecksOf(const Project& project) {
    return DesignChecks(Pieces(), project.Stock, project.Design.Circuit);
}

std::vector<Message> ChecksOf(const std::string& track1, const std::string& track2 = "",
                              const std::string& track3 = "") {
    return ChecksOf(ProjectOf(track1, track2, track3));
}

TEST(DesignChecks, AnEmptyCircuitIsSound) { EXPECT_THAT(ChecksOf(""), IsEmpty()); }

TEST(ChangeOverCheck, OneChangeOverGivesTheMessageForItsTrack) {
    EXPECT_THAT(ChecksOf("C8006"), ElementsAre(ChangeOvers("1")));
    EXPECT_THAT(ChecksOf("", "C160 C8006"), ElementsAre(ChangeOvers("2")));
    EXPECT_THAT(ChecksOf("", "", "C8006 C8006 C8006"), ElementsAre(ChangeOvers("3")));
}

TEST(ChangeOverCheck, TwoChangeOversGiveNone) { EXPECT_THAT(ChecksOf("C8006 C160 C8006"), IsEmpty()); }

TEST(ChangeOverCheck, OneInEachOfTwoTracksIsOddInBoth) {
    EXPECT_THAT(ChecksOf("C8006", "C8006"), ElementsAre(ChangeOvers("1"), ChangeOvers("2")));
}

TEST(ChangeOverCheck, TheNincoChangeOverNeverCounts) {
    EXPECT_THAT(ChecksOf("N10111"), IsEmpty());
    EXPECT_THAT(ChecksOf("N10111 N10110 C8006 N10110"), ElementsAre(ChangeOvers("1")));
}

TEST(ChicaneCheck, OnlyExtensionsMayStandBetweenTwoChicanes) {
    EXPECT_THAT(ChecksOf("C8007 C8009 C8010L C8010R C8007"), IsEmpty());
    EXPECT_THAT(ChecksOf("C8007 C160 C8007"), ElementsAre(Chicane("1")));
}

TEST(ChicaneCheck, EveryStrangerGivesAMessage) {
    EXPECT_THAT(ChecksOf("", "C8007 C160 C8009 C159 C151L C8007"),
                ElementsAre(Chicane("2"), Chicane("2"), Chicane("2")));
}

TEST(ChicaneCheck, ChicanesPairUpAlongTheTrack) {
    EXPECT_THAT(ChecksOf("C8007 C8007 C160 C160 C8007 C8007 C160"), IsEmpty()) << "between the pairs all is allowed";
    EXPECT_THAT(ChecksOf("C8007 C8009 C8007 C8007 C160 C8007"), ElementsAre(Chicane("1"))) << "in the second pair";
}

TEST(ChicaneCheck, APairAtTheEndOfATrackIsChecked) {
    EXPECT_THAT(ChecksOf("C160 C160 C8007 C160 C8007"), ElementsAre(Chicane("1")));
}

TEST(ChicaneCheck, AChicaneInTheLastTwoPlacesIsNotChecked) {
    EXPECT_THAT(ChecksOf("C160 C160 C160 C8007 C160"), IsEmpty());
    EXPECT_THAT(ChecksOf("C160 C160 C160 C160 C8007"), IsEmpty());
    EXPECT_THAT(ChecksOf("C160 C160 C8007 C160 C160"), ElementsAre(Chicane("1"), Chicane("1")));
}

TEST(ChicaneCheck, AnUnclosedChicaneIsCheckedUpToTheEnd) {
    EXPECT_THAT(ChecksOf("C8007 C8009 C160 C160"), ElementsAre(Chicane("1"), Chicane("1")));
}

TEST(NincoCheck, EveryChangeBetweenTheSystemsMustPassThroughTheConverter) {
    EXPECT_THAT(ChecksOf("C160 N10110 N10102 N10110"), IsEmpty());
    EXPECT_THAT(ChecksOf("C160 N10102 N10110"), ElementsAre(Ninco("1"))) << "into Ninco";
    EXPECT_THAT(ChecksOf("", "", "N10110 N10102 C160"), ElementsAre(Ninco("3"))) << "out of Ninco";
}

TEST(NincoCheck, ANincoFirstElementAfterAScalextricLastOneIsFoundThroughTheWrapAround) {
    EXPECT_THAT(ChecksOf("", "N10102 N10110 C160"), ElementsAre(Ninco("2")));
}

TEST(NincoCheck, AScalextricFirstElementAfterANincoLastOneIsFoundThroughTheWrapAround) {
    EXPECT_THAT(ChecksOf("C160 N10110 N10102"), ElementsAre(Ninco("1")));
}

TEST(NincoCheck, ManyFaultyJoinsGiveOneMessage) {
    EXPECT_THAT(ChecksOf("C160 N10102 C160 N10102"), ElementsAre(Ninco("1")));
}

TEST(NincoCheck, TracksOfOneSystemHaveNoJoins) {
    EXPECT_THAT(ChecksOf("C160 C151L", "N10102 N10105L", "N10102"), IsEmpty());
}

TEST(NincoCheck, AnElementOfNeitherSystemIsNoNincoTrack) {
    EXPECT_THAT(ChecksOf("C160 unknown C160"), IsEmpty());
    EXPECT_THAT(ChecksOf("N10102 unknown N10102"), ElementsAre(Ninco("1")));

    Project emptyCode = ProjectOf("");
    emptyCode.Design.Circuit.Tracks[0].ElementCodes = {"N10102", ""};
    EXPECT_THAT(ChecksOf(emptyCode), ElementsAre(Ninco("1")));
}

TEST(DesignChecks, ComeTrackByTrackAndTheSpecialPiecesLast) {
    Project project = ProjectOf("C8006 C8007 C160 C8007 N10102", "C8006");
    SetStock(project, "C164", 1);

    EXPECT_THAT(ChecksOf(project),
                ElementsAre(ChangeOvers("1"), Chicane("1"), Ninco("1"), ChangeOvers("2"), StandardStraights));
}

TEST(SpecialPieces, HalfStraightsToBuyAndOwnedOnesOfTheirSizeGiveTheMessage) {
    for (const char* const special : {"C277", "C367"}) {
        Project project = ProjectOf("C159 C159");
        SetStock(project, "C159", 1);
        SetStock(project, special, 1);
        EXPECT_THAT(ChecksOf(project), ElementsAre(HalfStraights)) << special;
    }
}

TEST(SpecialPieces, StandardStraightsToBuyAndOwnedOnesOfTheirSizeGiveTheMessage) {
    for (const char* const special : {"C164", "C248", "C8005", "C8006", "C8007", "C8009"}) {
        Project project = ProjectOf("C160");
        SetStock(project, special, 1);
        EXPECT_THAT(ChecksOf(project), ElementsAre(StandardStraights)) << special;
    }
}

TEST(SpecialPieces, StandardCurvesToBuyAndOwnedOnesOfTheirSizeGiveTheMessage) {
    Project project = ProjectOf("C151L", "C151R");
    SetStock(project, "C151L", 1);
    SetStock(project, "C8010L", 1);

    EXPECT_THAT(ChecksOf(project), ElementsAre(StandardCurves));
}

TEST(SpecialPieces, NincoChangeOversNeverGiveAMessage) {
    Project project = ProjectOf("N10102");
    SetStock(project, "N10111", 5);

    EXPECT_THAT(ChecksOf(project), IsEmpty());
}

TEST(SpecialPieces, GiveNoMessageWhenEnoughPlainPiecesAreOwned) {
    Project project = ProjectOf("C159 C160 C151L");
    for (const char* const code : {"C159", "C160", "C151L", "C277", "C164", "C8010L"})
        SetStock(project, code, 1);

    EXPECT_THAT(ChecksOf(project), IsEmpty());
}

TEST(SpecialPieces, GiveNoMessageWhenAllOfThemAreUsed) {
    Project project = ProjectOf("C159 C277", "C160 C164", "C151L C8010R");
    for (const char* const code : {"C277", "C164", "C8010L"})
        SetStock(project, code, 1);

    EXPECT_THAT(ChecksOf(project), IsEmpty());
}

TEST(SpecialPieces, AreCountedOverAllTracks) {
    Project project = ProjectOf("C159", "C159", "C277");
    SetStock(project, "C159", 1);
    SetStock(project, "C277", 2);

    EXPECT_THAT(ChecksOf(project), ElementsAre(HalfStraights));
}

TEST(RemainingOwned, IsOwnedLessUsed) {
    Project project = ProjectOf("C160 C160 C160", "C8010R");
    SetStock(project, "C160", 2);
    SetStock(project, "C8010L", 4);
    const StockTally circuit = Measure(Pieces(), project.Stock, project.Design.Circuit, AllTracks).Tally;

    EXPECT_EQ(RemainingOwned(Pieces(), project.Stock, circuit, "C160"), -1);
    EXPECT_EQ(RemainingOwned(Pieces(), project.Stock, circuit, "C8010"), 3) << "by the left hand's row";
}

TEST(RemainingOwned, IsZeroForWhatTheTallyDoesNotCount) {
    Project project = ProjectOf("");
    SetStock(project, "N10111", 5);
    const StockTally circuit = ResetStockTally(Pieces());

    EXPECT_EQ(RemainingOwned(Pieces(), project.Stock, circuit, "N10111"), 0);
    EXPECT_EQ(RemainingOwned(Pieces(), project.Stock, circuit, "unknown"), 0);
}

TEST(RemainingOwned, ReachesTheLimitsOf16BitsAndNotBeyond) {
    Project project = ProjectOf("");
    StockTally circuit = ResetStockTally(Pieces());
    SetStock(project, "C151L", 32767);
    EXPECT_EQ(RemainingOwned(Pieces(), project.Stock, circuit, "C151"), 32767);
    SetStock(project, "C151L", -32768);
    EXPECT_EQ(RemainingOwned(Pieces(), project.Stock, circuit, "C151"), -32768);

    circuit[0].TrackCount = 1;

    EXPECT_THAT([&] { RemainingOwned(Pieces(), project.Stock, circuit, "C151"); },
                Throws<Fault>(Property(&Fault::what, HasSubstr("Overflow: "))));
}

} // namespace
} // namespace pistaro
