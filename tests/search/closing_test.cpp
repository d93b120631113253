// What closes a track: fewest pieces first, of the fewest the cheapest, none that overlap where others do not.
#include "search/closing.h"

#include "support/chain.h"
#include "support/closed_circuits.h"
#include "support/pieces.h"
#include "support/plain_closing.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace pistaro {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const ClosingTables& Tables() {
    static const ClosingTables tables(Pieces());
    return tables;
}

Closings Close(const Project& project, const ClosingOptions& options = {}) {
    return CloseTrack(Tables(), Pieces(), project.Design, project.Stock, 0, options, {});
}

Suggestion Best(const Project& project, const ClosingOptions& options = {}) {
    const Closings closings = Close(project, options);
    return closings.Suggestions.empty() ? Suggestion() : closings.Suggestions.front();
}

void Own(Project& project, const std::string& code, int count, float price) {
    project.Stock.Of(Pieces().FindRow(code)) = {static_cast<std::int16_t>(count), price};
}

const char* const Oval = "C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R";
/// One of its sides lacks 9.84375 cm: 1.09375 more than a quarter straight has.
const char* const ShortOval = "C159 C157 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R";
const char* const OvalWithout3 = "C160 C160 C151R C151R C151R C151R C160 C160 C151R";

TEST(Closing, LaysTheMissingPieces) {
    const Suggestion best = Best(ProjectOf(OvalWithout3));

    EXPECT_THAT(best.Edit.Insert, ElementsAre("C151R", "C151R", "C151R"));
    EXPECT_EQ(best.Edit.At, 9);
    EXPECT_EQ(best.Edit.Remove, 0);
    EXPECT_LT(best.Gap.Distance, 0.001F);
    EXPECT_TRUE(best.IsShortest);
    EXPECT_TRUE(best.IsFree());
}

TEST(Closing, OfATrackThatIsEmptyOrClosedIsNone) {
    EXPECT_THAT(Close(ProjectOf("")).Suggestions, IsEmpty());
    EXPECT_EQ(Close(ProjectOf("")).WhyNone, "the track is empty");
    EXPECT_THAT(Close(ProjectOf(Oval)).Suggestions, IsEmpty());
    EXPECT_EQ(Close(ProjectOf(Oval)).WhyNone, "the track is closed");
}

TEST(Closing, KeepsToTheMostPiecesAndToTheLimit) {
    EXPECT_THAT(Close(ProjectOf(OvalWithout3), {.MostPieces = 2}).Suggestions, IsEmpty());
    EXPECT_EQ(Close(ProjectOf(OvalWithout3), {.Limit = 4}).Suggestions.size(), 4U);
    EXPECT_EQ(Close(ProjectOf(OvalWithout3), {.Limit = 1}).Suggestions.size(), 1U);
}

TEST(Closing, DoesNotPassWhatATrackHolds) {
    std::string straights;
    for (int i = 0; i < 245; ++i)
        straights += "C160 ";
    const std::string lap = straights + "C151R C151R C151R C151R ";
    const std::string open = lap + straights + "C151R C151R C151R"; // 497
    EXPECT_EQ(Best(ProjectOf(open)).Count(), 1);
    const std::string full = "C151L C151R C151L " + open; // 500 pieces that two more would close
    EXPECT_THAT(Close(ProjectOf(full), {.MostPieces = 2}).Suggestions, IsEmpty());
}

TEST(Closing, TakesTheCheapestOfTheFewest) {
    Project project = ProjectOf("C160 C151R C151R C151R C151R C160 C151R C151R C151R"); // one curve of 45 degrees
    Own(project, "C151L", 0, 9);
    Own(project, "C154L", 0, 1);
    EXPECT_THAT(Best(project).Edit.Insert, ElementsAre("C151R")) << "two that cost 2 together are one more";

    project = ProjectOf("C151R C151R C151R C151R C160 C151R C151R C151R C151R"); // 35 cm
    Own(project, "C160", 0, 9);
    Own(project, "C164", 0, 5);
    const Closings closings = Close(project);
    EXPECT_THAT(closings.Suggestions[0].Edit.Insert, ElementsAre("C248")) << "the first of those that cost nothing";
    EXPECT_EQ(closings.Suggestions[0].Price, 0);
    EXPECT_THAT(closings.Suggestions[1].Edit.Insert, ElementsAre("C160")) << "the plain one is always told";
    EXPECT_EQ(closings.Suggestions[1].Price, 9);
}

TEST(Closing, CountsWhatIsOwnedLessWhatIsUsed) {
    Project project = ProjectOf("C151R C151R C151R C151R C160 C151R C151R C151R C151R");
    for (const char* const special : {"C164", "C248", "C8005"})
        Own(project, special, 0, 9);
    Own(project, "C160", 1, 3);
    EXPECT_FALSE(Best(project).IsOwned) << "the one that is owned lies in the track";
    Own(project, "C160", 2, 3);
    EXPECT_TRUE(Best(project).IsOwned);
}

TEST(Closing, OfOwnedPiecesTakesNoOthers) {
    Project project = ProjectOf("C151R C151R C151R C151R C160 C151R C151R C151R C151R");
    Own(project, "C158", 4, 3);
    const Closings owned = Close(project, {.OwnedOnly = true});
    ASSERT_EQ(owned.Suggestions.size(), 1U);
    EXPECT_THAT(owned.Suggestions[0].Edit.Insert, ElementsAre("C158", "C158", "C158", "C158"));
    EXPECT_TRUE(owned.Suggestions[0].IsShortest) << "of the pieces that are owned";
    Own(project, "C158", 3, 3);
    EXPECT_THAT(Close(project, {.OwnedOnly = true}).Suggestions, IsEmpty());
    Own(project, "C164", 1, 99);
    EXPECT_THAT(Best(project, {.OwnedOnly = true}).Edit.Insert, ElementsAre("C164")) << "a special one of its shape";
}

TEST(Closing, JoinsTheSystemsWithAdapters) {
    const Project project =
        ProjectOf("C151R C151R C151R C151R N10110 N10102 N10110 C151R C151R C151R C151R N10110 N10102");
    EXPECT_THAT(Best(project).Edit.Insert, ElementsAre("N10110"));
    for (const Suggestion& suggestion : Close(project).Suggestions)
        EXPECT_EQ(std::ranges::count(suggestion.Edit.Insert, "N10110") % 2, 1);
}

TEST(Closing, NeverLaysTwoAdaptersInARow) {
    const Project project = ProjectOf("C151R C151R C151R C151R N10110 N10103 N10110 C151R C151R C151R C151R N10110");
    const Closings closings = Close(project);
    ASSERT_FALSE(closings.Suggestions.empty());
    for (const Suggestion& suggestion : closings.Suggestions)
        EXPECT_NE(suggestion.Edit.Insert.front(), "N10110");
}

TEST(Closing, NeverLaysChicanesOrChangeOvers) {
    SeededNumbers numbers(5);
    for (int round = 0; round < 10; ++round) {
        Project open = RandomCut(numbers, 3).Open;
        for (const char* const code : {"C8006", "C8007", "C8009", "C8010L", "C8010R", "N10111"})
            Own(open, code, 9, 0);
        for (const Suggestion& suggestion : Close(open, {.Limit = 100}).Suggestions) {
            for (const std::string& code : suggestion.Edit.Insert)
                EXPECT_THAT(code,
                            testing::Not(testing::AnyOf("C8006", "C8007", "C8009", "C8010L", "C8010R", "N10111")));
        }
    }
}

TEST(Closing, ToldTheRoomPutsWhatLeavesItLast) {
    Project project = ProjectOf(OvalWithout3);
    project.Design.Room.Points = {{-200, -35, 0}, {200, -35, 1}}; // a wall below, through the missing curves
    const Suggestion best = Best(project);
    EXPECT_TRUE(best.IsOutside);
    EXPECT_FALSE(best.Overlaps);
    project.Design.Room.Points = {{-200, -38, 0}, {200, -38, 1}};
    EXPECT_FALSE(Best(project).IsOutside);
}

TEST(Closing, GoesRoundWhatLiesInItsWay) {
    Project project = ProjectOf(OvalWithout3);
    project.Design.Circuit.Tracks[1] = Chain("C157");
    project.Design.Circuit.Tracks[1].TrackStartX = 20; // where the second of the missing curves would lie
    project.Design.Circuit.Tracks[1].TrackStartY = -34;
    const Closings closings = Close(project);
    ASSERT_FALSE(closings.Suggestions.empty());
    for (const Suggestion& suggestion : closings.Suggestions) {
        EXPECT_TRUE(suggestion.Overlaps || suggestion.Edit.Insert != std::vector<std::string>(3, "C151R"));
    }
    EXPECT_NE(closings.Suggestions.front().Count(), 3);
}

TEST(Closing, TellsTheNearestMissWhereNothingCloses) {
    const Project project = ProjectOf(ShortOval);
    const Closings far = Close(project, {.MostPieces = 1});
    ASSERT_TRUE(far.Nearest.has_value());
    EXPECT_THAT(far.Suggestions, IsEmpty());
    EXPECT_EQ(far.WhyNone, "nothing closes it with one piece; the nearest miss is 10.9 mm short, with C158");
}

TEST(Closings, TellAMissThatCannotBeMeasuredAsSmallNotAsNone) {
    // Three straights and a half circle, of which the last curve lacks; no closing is exact to the last bit.
    Project project;
    project.Design.Circuit.Tracks[0] = Chain("C160 C160 C160 C151R C151R C151R C151R C160 C160 C160 C151R C151R C151R");
    project.Design.Circuit.Tracks[0].TrackStartX = 46.5F;

    const Closings none =
        CloseTrack(Tables(), Pieces(), project.Design, project.Stock, 0, {.MostPieces = 1, .Tolerance = 0}, {});

    EXPECT_EQ(none.WhyNone, "nothing closes it with one piece; the nearest miss is less than 0.1 mm short, with C151R");
}

TEST(Closing, AtAWiderToleranceTakesWhatNearlyFits) {
    const Project project = ProjectOf(ShortOval);
    EXPECT_THAT(Close(project, {.MostPieces = 1, .Tolerance = 1.0}).Suggestions, IsEmpty());
    const Suggestion best = Best(project, {.MostPieces = 1, .Tolerance = 1.1});
    EXPECT_THAT(best.Edit.Insert, ElementsAre("C158"));
    EXPECT_NEAR(best.Gap.Distance, 1.09375F, 1e-3F);
}

TEST(Closing, StopsWhenItIsToldTo) {
    std::stop_source stop;
    stop.request_stop();
    const Project project = ProjectOf(OvalWithout3);
    EXPECT_THROW(CloseTrack(Tables(), Pieces(), project.Design, project.Stock, 0, {},
                            {.Progress = {}, .Stop = stop.get_token()}),
                 Stopped);
}

/// What each suggestion says, against the pieces laid and the grounds counted.
void ExpectTrue(const Project& project, const Suggestion& suggestion) {
    Design closed = project.Design;
    Track& track = closed.Circuit.Tracks[0];
    const int size = track.ElementLastIndex() + 1;
    Apply(suggestion.Edit, track);
    const TrackGap gap = GapOf(Pieces(), track);
    EXPECT_EQ(gap.Distance, suggestion.Gap.Distance);
    EXPECT_LE(gap.Distance, 0.05F);
    EXPECT_LE(std::fabs(gap.Angle), 0.001F);
    const PlainFaults faults = FaultsFrom(closed, 0, size);
    EXPECT_TRUE(faults.IsUnsure || faults.Overlaps == suggestion.Overlaps) << CodesOf(track);
    EXPECT_EQ(faults.Outside, suggestion.IsOutside) << CodesOf(track);
    double price = 0;
    for (const std::string& code : suggestion.Edit.Insert)
        price += double{project.Stock[Pieces().Find(code)->StockIndex].Price};
    EXPECT_FLOAT_EQ(static_cast<float>(price), suggestion.Price);
}

TEST(Closing, IsTrueToItsWordAndNeverLongerThanWhatWasCutOut) {
    SeededNumbers numbers(2026);
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        const CutCircuit circuit = RandomCut(numbers, 8);
        const Closings closings = Close(circuit.Open, {.Limit = 5});
        ASSERT_FALSE(closings.Suggestions.empty()) << CodesOf(circuit.Open.Design.Circuit.Tracks[0]);
        EXPECT_TRUE(closings.Suggestions.front().IsFree());
        EXPECT_LE(closings.Suggestions.front().Count(), circuit.Cut);
        std::set<std::multiset<std::string>> contents;
        for (const Suggestion& suggestion : closings.Suggestions) {
            ExpectTrue(circuit.Open, suggestion);
            EXPECT_TRUE(contents.emplace(suggestion.Edit.Insert.begin(), suggestion.Edit.Insert.end()).second);
        }
    }
}

TEST(Closing, AgreesWithTryingEveryChain) {
    SeededNumbers numbers(7);
    int compared = 0;
    for (int round = 0; round < 40; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        const CutCircuit circuit = RandomCut(numbers, 3);
        const PlainAnswer plain = CloseByTrying(circuit.Open, circuit.Cut);
        if (plain.IsUnsure || !plain.Best) continue;
        ++compared;
        const Suggestion best = Best(circuit.Open);
        EXPECT_EQ(best.Count(), plain.Best->Count) << CodesOf(circuit.Open.Design.Circuit.Tracks[0]);
        EXPECT_FLOAT_EQ(best.Price, static_cast<float>(plain.Best->Price));
        EXPECT_EQ(best.IsShortest, plain.FewestAtAll == plain.Best->Count);
    }
    EXPECT_GT(compared, 30);
}

TEST(Closing, IsTheSameEveryTime) {
    SeededNumbers numbers(99);
    const Project open = RandomCut(numbers, 6).Open;
    const ClosingTables fresh(Pieces());
    const auto texts = [&](const ClosingTables& tables) {
        std::vector<std::vector<std::string>> all;
        for (const Suggestion& suggestion :
             CloseTrack(tables, Pieces(), open.Design, open.Stock, 0, {.Limit = 50}, {}).Suggestions)
            all.push_back(suggestion.Edit.Insert);
        return all;
    };
    EXPECT_EQ(texts(fresh), texts(Tables()));
}

TEST(Mending, ReplacesTheWrongPiece) {
    // The straight at 1 should be a standard one.
    const Project project = ProjectOf("C160 C159 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R");

    const Closings closings = Close(project, {.MostRemoved = 1});

    ASSERT_FALSE(closings.Suggestions.empty());
    const Suggestion& best = closings.Suggestions.front();
    EXPECT_TRUE(best.IsFree());
    EXPECT_TRUE(best.IsShortest);
    EXPECT_EQ(best.Count(), 1);
}

TEST(Mending, TakesOutAPieceTooMany) {
    const Project project = ProjectOf("C160 C160 C157 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R");

    const Suggestion best = Best(project, {.MostRemoved = 1});

    EXPECT_EQ(best.Edit, (TrackEdit{.At = 2, .Remove = 1}));
    EXPECT_EQ(best.Price, 0);
    EXPECT_TRUE(best.IsOwned);
}

TEST(Mending, MendsEveryCircuitOfOneWrongPiece) {
    SeededNumbers numbers(100);
    for (int round = 0; round < 25; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        Project project = RandomCut(numbers, 1).Open;
        project.Design.Room = {};
        const Closings whole = Close(project, {.Limit = 1});
        Track& track = project.Design.Circuit.Tracks[0];
        Apply(whole.Suggestions.front().Edit, track);
        const auto at = static_cast<std::size_t>(numbers.Below(track.ElementLastIndex() + 1));
        const std::string right = track.ElementCodes[at];
        if (right == "N10110") continue;
        track.ElementCodes[at] =
            right[0] == 'N' ? (right == "N10105L" ? "N10106R" : "N10105L") : (right == "C158" ? "C159" : "C158");
        if (GapOf(Pieces(), track).Distance <= 0.05F) continue;

        const Closings closings = Close(project, {.MostRemoved = 2});

        ASSERT_FALSE(closings.Suggestions.empty());
        EXPECT_TRUE(closings.Suggestions.front().IsFree());
        std::set<std::multiset<std::string>> contents;
        for (const Suggestion& suggestion : closings.Suggestions) {
            Track mended = track;
            Apply(suggestion.Edit, mended);
            EXPECT_EQ(GapOf(Pieces(), mended).Distance, suggestion.Gap.Distance);
            EXPECT_LE(suggestion.Gap.Distance, 0.05F);
            EXPECT_LE(suggestion.Edit.Remove, 2);
            EXPECT_TRUE(contents.emplace(mended.ElementCodes.begin(), mended.ElementCodes.end()).second);
        }
    }
}

TEST(ReplacingARun, GivesOtherPiecesThatLeadToTheSamePlace) {
    const Project project = ProjectOf("C160 C159 C151L C160");

    const auto suggestions = ReplaceRun(Tables(), Pieces(), project.Design, project.Stock, {0, 1, 2}, {.Limit = 3}, {});

    ASSERT_EQ(suggestions.size(), 3U);
    EXPECT_EQ(suggestions[0].Edit, (TrackEdit{.At = 1, .Remove = 2, .Insert = {"C158", "C158", "C151L"}}));
    for (const Suggestion& suggestion : suggestions) {
        EXPECT_LE(suggestion.Gap.Distance, 0.05F);
        EXPECT_TRUE(suggestion.IsFree());
    }
}

} // namespace
} // namespace pistaro
