// The program's command line from outside: verbs, help, exit status and what goes to which stream.
#include "support/circuit_text.h"
#include "support/places.h"
#include "support/run_program.h"
#include "support/settings_text.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <regex>

namespace pistaro {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

/// Refused input: status 1, nothing printed, and one line of reason.
void ExpectRefused(const Finished& finished, const std::string& line) {
    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Output, "");
    EXPECT_EQ(finished.Errors, line + "\n");
}

void ExpectUsage(const Finished& finished, const std::string& reason) {
    EXPECT_EQ(finished.ExitStatus, 2);
    EXPECT_EQ(finished.Output, "");
    EXPECT_THAT(finished.Errors, StartsWith("pistaro: " + reason));
    EXPECT_THAT(finished.Errors, HasSubstr("Usage: pistaro"));
}

class CommandLine : public testing::Test {
protected:
    CommandLine() { WriteBytes(program_ / "oval.trk", CircuitText("C160")); }

    ProgramFolder program_;
};

} // namespace

TEST_F(CommandLine, HelpListsTheVerbs) {
    const Finished finished = program_.Run({"--help"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(finished.Errors, "");
    for (const char* const verb : {"layout", "picture", "script", "catalogue", "settings", "--settings", "--version"})
        EXPECT_THAT(finished.Output, HasSubstr(verb));
}

TEST_F(CommandLine, EachVerbHasItsOwnHelp) {
    for (const char* const verb : {"layout", "picture", "script", "catalogue", "settings"}) {
        const Finished finished = program_.Run({verb, "--help"});

        EXPECT_EQ(finished.ExitStatus, 0);
        EXPECT_EQ(finished.Errors, "");
        EXPECT_THAT(finished.Output, HasSubstr(std::string("Usage: pistaro ") + verb));
        EXPECT_THAT(finished.Output, HasSubstr("--settings FILE"));
    }
}

TEST_F(CommandLine, VersionPrintsNameAndNumber) {
    const Finished finished = program_.Run({"--version"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_TRUE(std::regex_match(finished.Output, std::regex("pistaro [0-9]+\\.[0-9]+\\.[0-9]+\n"))) << finished.Output;
}

TEST_F(CommandLine, WrongUsagePrintsTheUsageOnTheErrorStream) {
    ExpectUsage(program_.Run({"fly"}), "there is no verb \"fly\"");
    ExpectUsage(program_.Run({"--fly"}), "");
    ExpectUsage(program_.Run({"layout"}), "CIRCUIT is required");
    ExpectUsage(program_.Run({"layout", "oval.trk", "more.trk"}), "\"more.trk\" was not expected");
    ExpectUsage(program_.Run({"oval.trk", "layout", "oval.trk"}), "\"oval.trk\" was not expected");
    ExpectUsage(program_.Run({"catalogue", "oval.trk"}), "\"oval.trk\" was not expected");
    ExpectUsage(program_.Run({"settings", "oval.trk"}), "\"oval.trk\" was not expected");
    ExpectUsage(program_.Run({"script"}), "FILE is required");
    ExpectUsage(program_.Run({"script", "-", "oval.trk", "more"}), "\"more\" was not expected");
    ExpectUsage(program_.Run({"layout", "oval.trk", "--json"}), "");
    ExpectUsage(program_.Run({"layout", "oval.trk", "--settings"}), "");
    ExpectUsage(program_.Run({"picture", "oval.trk"}), "--out is required");
    ExpectUsage(program_.Run({"picture", "oval.trk", "--out", "a.png", "--size", "0"}), "--size");
    ExpectUsage(program_.Run({"picture", "oval.trk", "--out", "a.png", "--size", "large"}), "");
    for (const char* const size : {"010", "0x10", " 5", "5.0", "-5", "10001", "99999999999", ""})
        ExpectUsage(program_.Run({"picture", "oval.trk", "--out", "a.png", "--size", size}),
                    "--size: \"" + std::string(size) + "\" is no whole number from 1 to 10000");
    ExpectUsage(program_.Run({"picture", "oval.trk", "--out", "a.tif"}), "--out: Unknown picture format: a.tif");
    ExpectUsage(program_.Run({"picture", "oval.trk", "--out", "png"}), "--out: Unknown picture format: png");
}

TEST_F(CommandLine, AnOptionWithoutItsValueDoesNotTakeTheNextArgument) {
    ExpectUsage(program_.Run({"--settings=", "layout", "oval.trk"}), "--settings= has no value\n");
    ExpectUsage(program_.Run({"shop", "--out=", "oval.trk"}), "--out= has no value\n");

    WriteBytes(program_ / "--x=", CircuitText("C160"));
    EXPECT_EQ(program_.Run({"layout", "--", "--x="}).Output, program_.Run({"layout", "oval.trk"}).Output);
}

TEST_F(CommandLine, AnOptionsValueMayEndInAnEqualsSign) {
    std::filesystem::create_directory(program_ / "club=");

    EXPECT_EQ(program_.Run({"shop", "oval.trk", "--out=club="}).ExitStatus, 0);

    EXPECT_TRUE(std::filesystem::exists(program_ / "club=" / "shoppingList.txt"));
}

TEST_F(CommandLine, ACircuitNamedLikeAVerbIsACircuit) {
    WriteBytes(program_ / "settings", CircuitText("C160"));

    EXPECT_EQ(program_.Run({"layout", "settings"}).Output, program_.Run({"layout", "oval.trk"}).Output);
}

TEST_F(CommandLine, ARefusedCircuitIsOneLineThatNamesFileAndLine) {
    WriteBytes(program_ / "empty.trk", "");
    WriteBytes(program_ / "short.trk", "[Settings]\r\n0\r\n0\r\n0\r\n");
    WriteBytes(program_ / "binary.trk", std::string("[Settings]\n0\n\0\0", 14));
    WriteBytes(program_ / "room.trk", "[Settings]\n0\n0\n0\n0\n320\n160\n[Room]\n 21 \n");
    std::string full;
    for (int i = 0; i < 502; ++i)
        full += "C160 ";
    WriteBytes(program_ / "full.trk", CircuitText(full));
    std::filesystem::create_directory(program_ / "folder.trk");

    const auto layout = [&](const char* file) { return program_.Run({"layout", file}); };
    ExpectRefused(layout("none.trk"), "pistaro: File not found: none.trk");
    ExpectRefused(layout("none/oval.trk"), "pistaro: Path not found: none/oval.trk");
    ExpectRefused(layout("empty.trk"), "pistaro: Input past end of file: empty.trk, line 1: [Settings] is missing");
    ExpectRefused(layout("short.trk"), "pistaro: Input past end of file: short.trk, line 5: the current Y is missing");
    ExpectRefused(layout("binary.trk"), "pistaro: Bad file format: binary.trk, line 3: this is not a text file");
    ExpectRefused(layout("room.trk"),
                  "pistaro: Subscript out of range: room.trk, line 9: a room has 0 to 20 points, not 21");
    // Lines 1 to 14 come before the first element.
    ExpectRefused(layout("full.trk"),
                  "pistaro: Subscript out of range: full.trk, line 516: a track holds at most 501 elements");
    EXPECT_EQ(layout("folder.trk").ExitStatus, 1);
}

TEST_F(CommandLine, AControlByteButTabAndLineEndsMakesNoTextFile) {
    for (char byte = 0; byte < 0x20; ++byte) {
        const bool inTexts = byte == '\t' || byte == '\n' || byte == '\f' || byte == '\r';
        WriteBytes(program_ / "x.trk", CircuitText(std::string("C1") + byte + "60"));
        WriteBytes(program_ / "x.ini", SettingsText(std::string("/tracks") + byte + "/", "C151=4"));
        const Finished circuit = program_.Run({"layout", "x.trk"});
        const Finished settings = program_.Run({"settings", "--settings", "x.ini"});

        SCOPED_TRACE(int{byte});
        const std::string isNone = ": this is not a text file\n";
        EXPECT_EQ(circuit.ExitStatus, inTexts ? 0 : 1);
        EXPECT_EQ(circuit.Errors, inTexts ? "" : "pistaro: Bad file format: x.trk, line 15" + isNone);
        EXPECT_EQ(settings.ExitStatus, inTexts ? 0 : 1);
        EXPECT_EQ(settings.Errors, inTexts ? "" : "pistaro: Bad file format: x.ini, line 2" + isNone);
    }
}

TEST_F(CommandLine, ACircuitLargerThanAnyIsRefused) {
    WriteBytes(program_ / "huge.trk", std::string(5 << 20, '1'));

    ExpectRefused(program_.Run({"layout", "huge.trk"}), "pistaro: File too large: huge.trk");
}

TEST_F(CommandLine, SettingsThatAreNamedMustBeThere) {
    for (const char* const verb : {"settings", "catalogue"})
        ExpectRefused(program_.Run({verb, "--settings", "none.ini"}), "pistaro: File not found: none.ini");
    ExpectRefused(program_.Run({"layout", "oval.trk", "--settings", "none.ini"}), "pistaro: File not found: none.ini");
    ExpectRefused(program_.Run({"--settings", "none.ini", "script", "-"}, "state\n"),
                  "pistaro: File not found: none.ini");
}

TEST_F(CommandLine, SettingsThatCannotBeReadAreRefused) {
    WriteBytes(program_ / "bad.ini", "[Grid]\r\nType=2\r\n");
    std::filesystem::create_directories(program_.UsualSettings().parent_path());
    WriteBytes(program_.UsualSettings(), "[Grid]\r\nx\r\n");

    ExpectRefused(program_.Run({"settings", "--settings", "bad.ini"}),
                  "pistaro: Input past end of file: bad.ini, line 3: Step= is missing");
    ExpectRefused(program_.Run({"layout", "oval.trk"}),
                  "pistaro: Invalid procedure call: " + program_.UsualSettings().string() +
                      ", line 2: the value line is too short");
}

TEST_F(CommandLine, WarningsGoToTheErrorStreamAndTheStatusStaysZero) {
    WriteBytes(program_ / "thin.ini", SettingsText("/tracks/", ""));

    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"layout", "oval.trk"}, {"script", "-"}, {"catalogue"}}) {
        std::vector<std::string> all = arguments;
        all.insert(all.end(), {"--settings", "thin.ini"});
        const Finished finished = program_.Run(all);

        EXPECT_EQ(finished.ExitStatus, 0);
        EXPECT_EQ(finished.Errors, "pistaro: CORVEL.INI incomplete, missing values defaulted to zero!\n");
    }
}

TEST_F(CommandLine, NoVerbWritesASettingsFileThatIsNotNamed) {
    std::filesystem::create_directories(program_.UsualSettings().parent_path());
    const std::string settings = SettingsText("/tracks/", "C151=4");
    WriteBytes(program_.UsualSettings(), settings);

    program_.Run({"layout", "oval.trk"});
    program_.Run({"settings"});
    program_.Run({"picture", "oval.trk", "--out", "a.png"});
    EXPECT_EQ(program_.Run({"script", "-"}, "load oval.trk\nsave copy.trk\n").ExitStatus, 0);

    EXPECT_EQ(BytesOf(program_.UsualSettings()), settings);
}

TEST_F(CommandLine, NoVerbMakesASettingsFileWhereThereIsNone) {
    program_.Run({"layout", "oval.trk"});
    program_.Run({"settings", "--json"});
    program_.Run({"picture", "oval.trk", "--out", "a.png"});
    EXPECT_EQ(program_.Run({"script", "-"}, "load oval.trk\nsave copy.trk\n").ExitStatus, 0);

    EXPECT_TRUE(std::filesystem::is_empty(program_.Home()));
}

TEST_F(CommandLine, LookingAtACircuitLeavesTheNamedSettingsFileAlone) {
    const std::string settings = SettingsText("/tracks/", "C151=4");
    WriteBytes(program_ / "my.ini", settings);

    program_.Run({"layout", "oval.trk", "--settings", "my.ini"});
    program_.Run({"picture", "oval.trk", "--out", "a.png", "--settings", "my.ini"});

    EXPECT_EQ(BytesOf(program_ / "my.ini"), settings);
}

TEST_F(CommandLine, AFullDiskBehindTheOutputIsAnError) {
    for (const std::string arguments : {" catalogue", " --help", " layout --help", " --version"}) {
        const std::string command = Program() + arguments + " >/dev/full 2>" + (program_ / "errors").string();

        EXPECT_NE(std::system(command.c_str()), 0) << arguments;

        EXPECT_EQ(BytesOf(program_ / "errors"), "pistaro: Disk full: the standard output\n") << arguments;
    }
}

} // namespace pistaro
