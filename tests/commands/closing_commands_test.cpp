// Closings of the current track as its owner chooses among them: what is told of each, when pieces are taken out for
// them, and laying one.
#include "commands/closing_commands.h"

#include "support/chain.h"
#include "support/pieces.h"
#include "support/scripted_prompts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pistaro {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

const char* const WrongAtStart = "C152R C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R";
const char* const Mended = "C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R";

class ClosingCommands : public testing::Test {
protected:
    void Start(const std::string& track1, const std::string& track2 = "") {
        session_.emplace(Pieces(), prompts_, ProjectOf(track1, track2), "");
    }
    Suggestion Best(const ClosingOptions& options = {}) { return FindClosings(*session_, options).Suggestions.at(0); }
    std::string TrackCodes() { return CodesOf(session_->Project.Design.Circuit.Tracks[0]); }

    ScriptedPrompts prompts_;
    std::optional<Session> session_;
};

TEST_F(ClosingCommands, TakePiecesOutWhereNoAdditionIsFreeOfFaults) {
    Start(WrongAtStart);

    const Suggestion best = Best();

    EXPECT_EQ(best.Edit, (TrackEdit{.At = 0, .Remove = 1, .Insert = {"C160"}}));
    EXPECT_EQ(TextOf(*session_, best), "Takes out C152R (0), lays C160. 0.00 € + 1 without a price; to buy: C160.");
    EXPECT_EQ(CaptionOf(*session_, best), "1 piece for 1\nprice unknown\nnot all owned");
}

TEST_F(ClosingCommands, TakeNothingOutByThemselvesWhereAnAdditionIsFree) {
    Start("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R");

    for (const Suggestion& suggestion : FindClosings(*session_, {}).Suggestions)
        EXPECT_FALSE(suggestion.IsMend);
}

TEST_F(ClosingCommands, TellOfAPieceTooManyAndOfOneThatLacksInBetween) {
    Start("C160 C160 C157 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R");
    EXPECT_EQ(TextOf(*session_, Best({.MostRemoved = 1})), "Takes out C157 (2). 0.00 €, all owned.");

    const Suggestion between{.Edit = {.At = 2, .Insert = {"C159", "C160"}}, .IsMend = true};
    EXPECT_THAT(TextOf(*session_, between), HasSubstr("Lays C159, C160 before C157 (2). "));
}

TEST_F(ClosingCommands, SayThatNothingIsMendedEither) {
    Start("C160");

    const Closings closings = FindClosings(*session_, {.MostPieces = 1});

    EXPECT_TRUE(closings.Suggestions.empty());
    EXPECT_THAT(closings.WhyNone,
                HasSubstr("Nothing closes it with one piece, nor with up to 2 of the track's taken out"));
}

TEST_F(ClosingCommands, TellWhichTracksTheirPiecesOverlap) {
    Start("C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R", "C160 C160");
    Circuit& circuit = session_->Project.Design.Circuit;
    const Suggestion last{.Edit = {.At = 11, .Insert = {"C151R"}}, .Overlaps = true};
    // With these the curves are a whole circle, which comes back to where it began.
    const Suggestion back{.Edit = {.At = 6, .Insert = {"C151R", "C151R", "C151R", "C151R"}}, .Overlaps = true};

    const BuildCursor gap = PlaceOf(*session_, last).Start;
    circuit.Tracks[1].TrackStartX = gap.CursorX;
    circuit.Tracks[1].TrackStartY = gap.CursorY;
    circuit.Tracks[1].TrackStartHeading = gap.CursorHeading;

    EXPECT_THAT(TextOf(*session_, last), EndsWith(" Overlaps track 2."));
    EXPECT_THAT(TextOf(*session_, back), EndsWith(" Overlaps this track."));
}

TEST_F(ClosingCommands, TellOfAMendWhatItsWholeTrackOverlaps) {
    // Track 2 lies along the first straight; with a whole circle the curves come back to where they began.
    Start("C160 C160 C151R C151R C151R C151R", "C160");
    const Suggestion mend{
        .Edit = {.At = 5, .Insert = {"C151R", "C151R", "C151R", "C151R"}}, .Overlaps = true, .IsMend = true};

    EXPECT_THAT(TextOf(*session_, mend), EndsWith(" Overlaps this track and track 2."));
}

TEST_F(ClosingCommands, LayAMendAsOneStepWithANameOfItsOwn) {
    Start(WrongAtStart);

    session_->Do([&] { LaySuggestion(*session_, Best()); });

    EXPECT_EQ(TrackCodes(), Mended);
    EXPECT_EQ(session_->Project.EditState.CurrentElement[0], 0);
    const History& history = session_->History();
    EXPECT_EQ(history.Caption(history.Present()), "Mend the Track");
    session_->Run(*session_->Commands.Find("undo"));
    EXPECT_EQ(TrackCodes(), WrongAtStart);
}

} // namespace
} // namespace pistaro
