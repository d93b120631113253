// Scripts that are refused before they print anything, and in what words.
#include "support/run_program.h"

#include <gtest/gtest.h>

#include <ostream>

namespace pistaro {
namespace {

struct Refusal {
    const char* Name;
    const char* Script;
    const char* Words; ///< after the script's name
};

std::ostream& operator<<(std::ostream& stream, const Refusal& refusal) { return stream << refusal.Script; }

const Refusal Refusals[]{
    {"AQuoteThatIsNotClosed", "save \"x.trk", "line 1: Bad file format: a double quote is not closed"},
    {"AClickAtNoNumber", "add C160\nclick 1 1e99", "line 2: Refused: \"1e99\" is too large"},
    {"ACodeWithoutItsHand", "add C151", "line 1: Refused: there is no command \"add C151\""},
    {"ACommandInCapitals", "State", "line 1: Refused: there is no command \"State\""},
    {"AFourthTrack", "track 4", "line 1: Refused: there is no command \"track 4\""},
    {"ASpecialPieceHasNoButton", "add C8010L", "line 1: Refused: there is no command \"add C8010L\""},
    {"AVariantOfAnotherShape", "add C160\nreplace C159",
     "line 2: Refused: \"replace C159\" is not offered now: The selected piece has another shape."},
    {"AVariantWithAHand", "add C151L\nreplace C8010L", "line 2: Refused: there is no command \"replace C8010L\""},
    {"AddWithoutAPiece", "add", "line 1: Refused: \"add\" wants more words after it"},
    {"AddingWithAllTracks", "track all\nadd C160",
     "line 2: Refused: \"add C160\" is not offered now: Choose a single track first."},
    {"AnUnknownCommand", "fly", "line 1: Refused: there is no command \"fly\""},
    {"DeleteOnAnEmptyTrack", "\n\ndelete", "line 3: Refused: \"delete\" is not offered now: The track is empty."},
    {"HalfAScrollStep", "scroll 0 .5", "line 1: Refused: \".5\" is no whole number from -160 to 160"},
    {"MoreThanAThousandTimes", "rotate left 1000\nrotate left 1001",
     "line 2: Refused: \"1001\" is no whole number from 1 to 1000"},
    {"NoTimes", "move up 0", "line 1: Refused: \"0\" is no whole number from 1 to 1000"},
    {"ScrollingBeyondTheBar", "scroll 160 -160\nscroll 161 0",
     "line 2: Refused: \"161\" is no whole number from -160 to 160"},
    {"SelectingALineThatIsNotThere", "add C160\nselect 0\nselect 1",
     "line 3: Refused: \"1\" is no whole number from 0 to 0"},
    {"SelectingInAnEmptyList", "select 0", "line 1: Refused: the element list is empty"},
    {"TimesForACommandWithout", "mirror 3", "line 1: Refused: there is no command \"mirror 3\""},
    {"TimesThatAreNoNumber", "zoom out many", "line 1: Refused: \"many\" is no number"},
    {"TwoWordsInOnePairOfQuotes", "\"move up\"", "line 1: Refused: there is no command \"move up\""},
    {"WordsAfterState", "state 1", "line 1: Refused: there are too many words after \"state\""},
};

class RefusedScript : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedScript, IsToldInItsWordsAndLeavesNothing) {
    const ProgramFolder program;
    WriteBytes(program / "script.txt", std::string(GetParam().Script) + '\n');

    const Finished finished = program.Run({"script", "script.txt"});

    EXPECT_EQ(finished.Errors, "pistaro: script.txt, " + std::string(GetParam().Words) + '\n');
    EXPECT_EQ(finished.Output, "");
    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_TRUE(std::filesystem::is_empty(program.Home()));
}

INSTANTIATE_TEST_SUITE_P(Refusals, RefusedScript, testing::ValuesIn(Refusals),
                         [](const auto& test) { return std::string(test.param.Name); });

} // namespace
} // namespace pistaro
