// The script verb of the built program beyond its commands: where scripts come from, and what they write.
#include "platform/files.h"
#include "support/circuit_text.h"
#include "support/run_program.h"
#include "support/settings_text.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace pistaro {

using testing::HasSubstr;
using testing::StartsWith;

namespace {

using Json = nlohmann::json;

constexpr const char* FreshState =
    R"({"track":1,"insert":false,"system":"Scalextric","changed":false,"tracks":[)"
    R"({"start":[0,0,0],"current":-1,"codes":[]},{"start":[15.5,0,0],"current":-1,"codes":[]},)"
    R"({"start":[-15.5,0,0],"current":-1,"codes":[]}],"roomAngle":0,"view":[-160,160,160,-160],)"
    R"("used":{},"variants":[],"colours":[[],[],[]]})"
    "\n";

class Script : public testing::Test {
protected:
    ProgramFolder program_;
};

} // namespace

TEST_F(Script, IsReadFromTheStandardInput) {
    const Finished finished = program_.Run({"script", "-"}, "state\nfly\n");

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Output, FreshState);
    EXPECT_EQ(finished.Errors, "pistaro: -, line 2: Refused: there is no command \"fly\"\n");
}

TEST_F(Script, MayBeEmpty) {
    const Finished finished = program_.Run({"script", "-"}, "");

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(finished.Output, "");
    EXPECT_EQ(finished.Errors, "");
}

TEST_F(Script, EndsItsLinesInAnyWayAndMayBeginWithAByteOrderMark) {
    const std::string twice = std::string(FreshState) + FreshState;

    EXPECT_EQ(program_.Run({"script", "-"}, "state\nstate\n").Output, twice);
    EXPECT_EQ(program_.Run({"script", "-"}, "state\r\nstate").Output, twice);
    EXPECT_EQ(program_.Run({"script", "-"}, "state\rstate\r").Output, twice);
    EXPECT_EQ(program_.Run({"script", "-"}, "\xEF\xBB\xBFstate\nstate\n").Output, twice);
    EXPECT_THAT(program_.Run({"script", "-"}, "\r\n\rfly\n").Errors, StartsWith("pistaro: -, line 3: "));
}

TEST_F(Script, StartsOnTheCircuitThatIsNamed) {
    WriteBytes(program_ / "x.trk", CircuitText("C160 C159"));
    WriteBytes(program_ / "s.txt", "select 1\nstate\n");

    const Json state = Json::parse(program_.Run({"script", "s.txt", "x.trk"}).Output);

    EXPECT_EQ(state["changed"], false);
    EXPECT_EQ(state["tracks"][0]["current"], 1);
    EXPECT_EQ(state["variants"], Json({"C159", "C277", "C367"}));
}

TEST_F(Script, ThatIsMissingIsRefusedBeforeAnythingIsDone) {
    WriteBytes(program_ / "x.trk", CircuitText("C160"));
    const std::string settings = SettingsText("/tracks/", "C151=4");
    WriteBytes(program_ / "my.ini", settings);

    const Finished finished = program_.Run({"script", "none.txt", "x.trk", "--settings", "my.ini"});

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Errors, "pistaro: File not found: none.txt\n");
    EXPECT_EQ(BytesOf(program_ / "my.ini"), settings);
}

TEST_F(Script, OfBinaryDataIsRefusedInOneLine) {
    const std::string refused = "line 1: Bad file format: this is not a text file\n";
    WriteBytes(program_ / "binary", std::string("\x7F"
                                                "ELF\x02\x01\0\0\n\"",
                                                10));

    EXPECT_EQ(program_.Run({"script", "binary"}).Errors, "pistaro: binary, " + refused);
    EXPECT_EQ(program_.Run({"script", "-"}, std::string("\0\0\n", 3)).Errors, "pistaro: -, " + refused);
    EXPECT_EQ(program_.Run({"script", "-"}, std::string("\0\0\n", 3)).ExitStatus, 1);
}

TEST_F(Script, SavesLoadsAndComesBackToTheSameFile) {
    EXPECT_EQ(program_
                  .Run({"script", "-"}, "add C151L C160 C187R\ntrack 2\nadd C156L\nmove up 7\nrotate right 3\n"
                                        "track all\nrotate left 5\nzoom out 3\nscroll 10 -20\nsave \"a b.trk\"\n"
                                        "new\nload \"a b.trk\"\nsave c.trk\n")
                  .ExitStatus,
              0);

    EXPECT_EQ(BytesOf(program_ / "a b.trk"), BytesOf(program_ / "c.trk"));
    EXPECT_THAT(BytesOf(program_ / "c.trk"), StartsWith("[Settings]\r\n0\r\n0\r\n10\r\n-20\r\n380\r\n160\r\n[Room]\r\n"
                                                        " 0 \r\n.4908738\r\n[Track 0]\r\n0\r\n0\r\n0\r\nC151L\r\n"));
    EXPECT_THAT(BytesOf(program_ / "c.trk"), HasSubstr("[Track 1]\r\n15.5\r\n108.5\r\n5.694136\r\nC156L\r\n[Track 2]"));
}

TEST_F(Script, AsksNothingBeforeItDiscardsOrOverwrites) {
    WriteBytes(program_ / "x.trk", "old");

    const Finished finished = program_.Run({"script", "-"}, "add C160 C160\nsave x.trk\nadd C160\nload x.trk\nstate\n");

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(Json::parse(finished.Output)["tracks"][0]["codes"], Json({"C160", "C160"}));
}

TEST_F(Script, ARefusedLoadLeavesNothingHalfDone) {
    WriteBytes(program_ / "short.trk", CircuitText("C160").substr(0, 80));

    const Finished finished = program_.Run({"script", "-"}, "add C160\nstate\nload short.trk\nstate\n");

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(std::ranges::count(finished.Output, '\n'), 1);
    EXPECT_THAT(finished.Errors, StartsWith("pistaro: -, line 3: Input past end of file: short.trk, line "));
}

TEST_F(Script, RefusesAnEmptyFileName) {
    for (const std::string command : {"load", "save"}) {
        const Finished finished = program_.Run({"script", "-"}, command + " \"\"\n");

        EXPECT_EQ(finished.ExitStatus, 1);
        EXPECT_EQ(finished.Errors, "pistaro: -, line 1: Refused: \"" + command + "\" wants the name of a file\n");
    }
}

TEST_F(Script, ARefusedSaveLeavesNoFile) {
    const Finished finished = program_.Run({"script", "-"}, "save none/x.trk\n");

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Errors, "pistaro: -, line 1: Path not found: none/x.trk\n");
    EXPECT_TRUE(std::filesystem::is_empty(program_.Path()));
}

TEST_F(Script, NewPutsTheScrollBarsWhereTheSettingsHaveThemAndIsReadBackAsTheSameView) {
    WriteBytes(program_ / "my.ini", SettingsText("/old/", "C151=4")); // bars 200 around 10, -20.5
    const std::string before = "zoom out 3\nscroll 100 50\nnew\n";

    const Finished finished = program_.Run({"script", "-", "--settings", "my.ini"},
                                           before + "save a.trk\nstate\nload a.trk\nstate\nsave b.trk\n");

    EXPECT_EQ(finished.ExitStatus, 0);
    const std::size_t half = finished.Output.size() / 2;
    EXPECT_EQ(finished.Output.substr(0, half), finished.Output.substr(half));
    EXPECT_THAT(finished.Output, HasSubstr(R"("view":[-160,160,160,-160])"));
    EXPECT_THAT(BytesOf(program_ / "a.trk"), StartsWith("[Settings]\r\n0\r\n0\r\n0\r\n0\r\n320\r\n200\r\n[Room]\r\n"));
    EXPECT_EQ(BytesOf(program_ / "a.trk"), BytesOf(program_ / "b.trk"));
    EXPECT_EQ(program_.Run({"script", "-", "--settings", "my.ini"}, before + "scroll 200 -200\nscroll 0 201\n").Errors,
              "pistaro: -, line 5: Refused: \"201\" is no whole number from -200 to 200\n");
}

TEST_F(Script, IsUtf8) {
    const auto night = PathFromText("n\u00fcrburg \u591c.trk"); // one letter that Windows-1252 has, one that it lacks

    EXPECT_EQ(program_.Run({"script", "-"}, "add C160\nsave \"n\u00fcrburg \u591c.trk\"\n").ExitStatus, 0);

    EXPECT_EQ(BytesOf(program_.Path() / night), CircuitText("C160"));
    EXPECT_EQ(program_.Run({"layout", TextFromPath(night)}).ExitStatus, 0);
}

TEST_F(Script, KeepsAWorkingDirectoryThatTheSettingsFilesCodePageLacks) {
    const auto folder = program_.Path() / PathFromText("\u65e5\u672c");
    std::filesystem::create_directory(folder);
    WriteBytes(folder / "b.trk", CircuitText("C160"));
    const auto parent = std::filesystem::canonical(program_.Path());
    for (const std::string line : {"save \u65e5\u672c/a.trk\n", "load \u65e5\u672c/b.trk\n"}) {
        WriteBytes(program_ / "my.ini", SettingsText("/old/", "C151=4"));

        EXPECT_EQ(program_.Run({"script", "-", "--settings", "my.ini"}, line).ExitStatus, 0) << line;

        EXPECT_EQ(BytesOf(program_ / "my.ini"), SettingsText((parent / "%E6%97%A5%E6%9C%AC" / "").string(), "C151=4"))
            << line;
        const Json settings = Json::parse(program_.Run({"settings", "--json", "--settings", "my.ini"}).Output);
        EXPECT_EQ(settings["workingDirectory"], TextFromPath(parent / PathFromText("\u65e5\u672c") / "")) << line;
    }
}

TEST_F(Script, RewritesTheWorkingDirectoryInTheSettingsFileThatIsNamed) {
    WriteBytes(program_ / "my.ini", SettingsText("/old/", "C151=4"));
    std::filesystem::create_directory(program_ / "tracks");

    EXPECT_EQ(program_.Run({"script", "-", "--settings", "my.ini"}, "save tracks/x.trk\n").ExitStatus, 0);

    EXPECT_EQ(BytesOf(program_ / "my.ini"),
              SettingsText((std::filesystem::canonical(program_.Path()) / "tracks" / "").string(), "C151=4"));
}

TEST_F(Script, CountsWhatTheSettingsSayIsOwned) {
    WriteBytes(program_ / "my.ini", SettingsText("/old/", "C151=2"));

    const Json state = Json::parse(
        program_
            .Run({"script", "-", "--settings", "my.ini"}, "track 2\nadd C151R C151L\ntrack 1\nadd C151L C160\nstate\n")
            .Output);

    EXPECT_EQ(state["colours"], Json::parse(R"([["owned","nonowned"],["owned","nonowned"],[]])"));
    EXPECT_EQ(state["used"], Json::parse(R"({"C151L":3,"C160":1})"));
}

TEST_F(Script, RunsAThousandTimesOnFullTracksQuickly) {
    std::string script;
    for (const char* const track : {"track 1\nadd", "track 2\nadd", "track 3\nadd"}) {
        script += track;
        for (int i = 0; i < 501; ++i)
            script += " C160";
        script += "\n";
    }
    script += "track all\n";
    for (int i = 0; i < 5; ++i)
        script += "move up 1000\nmove down 1000\nrotate left 1000\nzoom out 1000\n";

    const Finished finished = program_.Run({"script", "-"}, script + "state\n");

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(Json::parse(finished.Output)["used"]["C160"], 1503);
}

} // namespace pistaro
