// Closings on the command line of the built program, and in its scripts.
#include "support/circuit_text.h"
#include "support/pretty_json.h"
#include "support/run_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

const char* const OpenOval = "C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R";

TEST(CloseVerb, PrintsALineForEachSuggestionBestFirst) {
    const ProgramFolder program;
    WriteBytes(program / "oval.trk", CircuitText(OpenOval));

    const Finished finished = program.Run({"close", "oval.trk", "--limit", "2"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(finished.Errors, "");
    // The gaps are those that the layout verb gives for the tracks with these pieces.
    EXPECT_EQ(
        finished.Output,
        R"({"pieces":["C151R"],"count":1,"price":0,"gap":{"distance":1.287533e-05,"angle":2.1606499e-07},)"
        R"("owned":false,"overlaps":false,"outside":false,"shortest":true})"
        "\n"
        R"({"pieces":["C154R","C154R"],"count":2,"price":0,"gap":{"distance":1.2896191e-05,"angle":2.2724178e-07},)"
        R"("owned":false,"overlaps":false,"outside":false,"shortest":false})"
        "\n");
}

TEST(CloseVerb, OfAClosedOrEmptyTrackPrintsNothing) {
    const ProgramFolder program;
    WriteBytes(program / "oval.trk", CircuitText(std::string(OpenOval) + " C151R"));

    const Finished closed = program.Run({"close", "oval.trk"});
    const Finished empty = program.Run({"close", "oval.trk", "--track", "2"});

    EXPECT_EQ(closed.ExitStatus, 0);
    EXPECT_EQ(closed.Output, "");
    EXPECT_EQ(closed.Errors, "pistaro: track 1: the track is closed\n");
    EXPECT_EQ(empty.ExitStatus, 0);
    EXPECT_EQ(empty.Output, "");
    EXPECT_EQ(empty.Errors, "pistaro: track 2: the track is empty\n");
}

TEST(CloseVerb, TellsTheNearestMissWhereNothingCloses) {
    const ProgramFolder program;
    WriteBytes(program / "short.trk",
               CircuitText("C159 C157 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R"));

    const Finished finished = program.Run({"close", "short.trk", "--max-pieces", "1"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(finished.Output, "");
    EXPECT_EQ(finished.Errors,
              "pistaro: track 1: nothing closes it with one piece; the nearest miss is 10.9 mm short, with C158\n");
}

TEST(CloseVerb, TellsTheWholeTrackWhereItTakesPiecesOut) {
    const ProgramFolder program;
    WriteBytes(program / "wrong.trk",
               CircuitText("C160 C160 C157 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R"));

    const Finished finished = program.Run({"close", "wrong.trk", "--replace", "1", "--limit", "1"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_THAT(finished.Output,
                StartsWith(R"({"pieces":["C160","C160","C151R","C151R","C151R","C151R","C160","C160","C151R","C151R",)"
                           R"("C151R","C151R"],"count":0,"price":0,"gap":)"));
    EXPECT_THAT(finished.Output, EndsWith(R"("shortest":true,"edits":[{"at":2,"remove":1,"insert":[]}]})"
                                          "\n"));
}

TEST(CloseVerb, RefusesWhatItsOptionsDoNotTake) {
    const ProgramFolder program;
    WriteBytes(program / "oval.trk", CircuitText(OpenOval));
    const std::vector<std::vector<std::string>> wrong{
        {"--max-pieces", "0"}, {"--max-pieces", "13"}, {"--limit", "0"},   {"--limit", "101"},
        {"--limit", "010"},    {"--track", "4"},       {"--track", "all"}, {"--tolerance", "-1"},
        {"--tolerance", "x"},  {"--replace", "5"},     {"--json"}};
    for (const auto& options : wrong) {
        std::vector<std::string> arguments{"close", "oval.trk"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        EXPECT_EQ(program.Run(arguments).ExitStatus, 2) << options.front() << " " << options.back();
    }
    EXPECT_EQ(program.Run({"close"}).ExitStatus, 2);
    EXPECT_EQ(program.Run({"close", "none.trk"}).ExitStatus, 1);
}

TEST(CloseInAScript, LaysASuggestion) {
    const ProgramFolder program;
    WriteBytes(program / "oval.trk", CircuitText(OpenOval));

    const Finished finished = program.Run({"script", "-", "oval.trk"}, "close\nstate\nlayout\n");

    EXPECT_EQ(finished.ExitStatus, 0) << finished.Errors;
    EXPECT_THAT(finished.Output, HasSubstr(R"("changed":true,"tracks":[{"start":[0,0,0],"current":11,)"));
    EXPECT_THAT(finished.Output, HasSubstr(R"("C151R","C151R","C151R","C151R"]})"));
}

TEST(CloseInAScript, LaysTheSuggestionOfTheNumberNamed) {
    const ProgramFolder program;
    WriteBytes(program / "oval.trk", CircuitText(OpenOval));

    const Finished finished = program.Run({"script", "-", "oval.trk"}, "close 2\nstate\n");

    EXPECT_THAT(finished.Output, HasSubstr(R"("C151R","C154R","C154R"]})"));
}

TEST(CloseInAScript, IsRefusedWhereThereIsNone) {
    const ProgramFolder program;
    WriteBytes(program / "oval.trk", CircuitText(OpenOval));

    const Finished empty = program.Run({"script", "-"}, "close\n");
    const Finished all = program.Run({"script", "-", "oval.trk"}, "track all\nclose\n");
    const Finished twice = program.Run({"script", "-", "oval.trk"}, "close\nclose\n");

    EXPECT_EQ(empty.ExitStatus, 1);
    EXPECT_EQ(empty.Errors, "pistaro: -, line 1: Refused: the track is empty\n");
    EXPECT_EQ(all.Errors, "pistaro: -, line 2: Refused: all tracks are chosen, and one at a time can be closed\n");
    EXPECT_EQ(twice.Errors, "pistaro: -, line 2: Refused: the track is closed\n");
}

} // namespace
} // namespace pistaro
