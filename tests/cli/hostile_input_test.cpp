// What comes from a careless or a hostile hand: too long, with line feeds in its names, onto the program's own files.
#include "platform/files.h"
#include "support/circuit_text.h"
#include "support/run_program.h"
#include "support/settings_bytes.h"
#include "support/settings_text.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace pistaro {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

TEST(HostileScript, FromTheStandardInputHasTheLimitOfAFile) {
    const ProgramFolder program;
    const std::string script = "add C160\nstate\n" + std::string(std::size_t{4} << 20, '#') + "\nsave after.trk\n";

    const Finished finished = program.Run({"script", "-"}, script);

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Errors, "pistaro: File too large: -\n");
    EXPECT_THAT(finished.Output, StartsWith("{\"track\":1,")) << "what earlier lines printed stays";
    EXPECT_FALSE(std::filesystem::exists(program / "after.trk"));
}

TEST(HostileScript, DoesNotSaveOverTheSettingsFileThatIsNamed) {
    const ProgramFolder program;
    WriteBytes(program / "my.ini", WholeSettings());
    std::filesystem::create_directory(program / "folder");

    for (const char* const name : {"my.ini", "./my.ini", "folder/../my.ini"}) {
        const Finished finished =
            program.Run({"script", "-", "--settings", "my.ini"}, std::string("add C160\nsave ") + name + "\n");

        EXPECT_EQ(finished.ExitStatus, 1);
        EXPECT_EQ(finished.Errors,
                  std::string("pistaro: -, line 2: Permission denied: ") + name + ": is the settings file\n");
    }
    EXPECT_EQ(BytesOf(program / "my.ini"), WholeSettings());
}

TEST(Verbs, RefuseAFileWithoutAName) {
    const ProgramFolder program;
    WriteBytes(program / "c.trk", CircuitText("C160"));
    const std::vector<std::vector<std::string>> commands{
        {"layout", ""},
        {"check", "", "--rules"},
        {"script", ""},
        {"script", "c.trk", ""},
        {"generate", "--room", "", "--pieces", "C160=4,C151=8", "--out", "new"},
        {"layout", "c.trk", "--settings", ""},
        {"buy", "c.trk", "--sets", ""},
        {"picture", "c.trk", "--out", "c.png", "--background", ""},
    };

    for (const std::vector<std::string>& command : commands) {
        const Finished finished = program.Run(command);

        EXPECT_EQ(finished.ExitStatus, 1) << testing::PrintToString(command);
        EXPECT_THAT(finished.Errors, AllOf(StartsWith("pistaro: "), HasSubstr(" not found: a file without a name")))
            << testing::PrintToString(command);
        EXPECT_EQ(finished.Output, "") << testing::PrintToString(command);
    }
}

TEST(Verbs, WriteNeitherOverTheCircuitThatTheyReadNorOverTheSettingsThatAreNamed) {
    const ProgramFolder program;
    const auto refusal = [&](const std::vector<std::string>& arguments) {
        const Finished finished = program.Run(arguments);
        EXPECT_EQ(finished.ExitStatus, 1) << arguments[0];
        EXPECT_EQ(finished.Output, "") << arguments[0];
        return finished.Errors;
    };
    for (const char* const name : {"c.png", "c.svg", "c.html", "guide.html", "shoppingList.txt"})
        WriteBytes(program / name, CircuitText("C160"));
    WriteBytes(program / "my.csv", WholeSettings());

    EXPECT_EQ(refusal({"picture", "c.png", "--out", "c.png"}),
              "pistaro: Permission denied: c.png: is the circuit that is read\n");
    EXPECT_EQ(refusal({"export", "c.svg", "--force", "--out", "./c.svg"}),
              "pistaro: Permission denied: ./c.svg: is the circuit that is read\n");
    EXPECT_EQ(refusal({"plan", "c.html", "--force", "--out", "c.html"}),
              "pistaro: Permission denied: c.html: is the circuit that is read\n");
    EXPECT_THAT(refusal({"guide", "guide.html"}), HasSubstr("guide.html: is the circuit that is read\n"));
    EXPECT_EQ(refusal({"shop", "shoppingList.txt"}),
              "pistaro: Permission denied: shoppingList.txt: is the circuit that is read\n");
    EXPECT_EQ(refusal({"export", "c.svg", "--settings", "my.csv", "--force", "--out", "my.csv"}),
              "pistaro: Permission denied: my.csv: is the settings file\n");
    for (const char* const name : {"c.png", "c.svg", "c.html", "guide.html", "shoppingList.txt"})
        EXPECT_EQ(BytesOf(program / name), CircuitText("C160")) << name;
    EXPECT_EQ(BytesOf(program / "my.csv"), WholeSettings());
}

TEST(ShoppingList, IsNotReplacedWhereItsTableCannotBe) {
    const ProgramFolder program;
    WriteBytes(program / "oval.trk", CircuitText("C160"));
    WriteBytes(program / "shoppingList.txt", "an older list");
    std::filesystem::create_directory(program / "shoppingList.csv");

    const Finished finished = program.Run({"shop", "oval.trk", "--csv"});

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Output, "");
    EXPECT_EQ(BytesOf(program / "shoppingList.txt"), "an older list");
}

TEST(HostileScript, DoesNotSaveOverTheUsualSettingsFileThereOrNot) {
    const ProgramFolder program;
    const std::string usual = TextFromPath(program.UsualSettings());
    std::filesystem::create_directories(program.UsualSettings().parent_path());

    EXPECT_EQ(program.Run({"script", "-"}, "save \"" + usual + "\"\n").ExitStatus, 1);
    EXPECT_FALSE(std::filesystem::exists(program.UsualSettings()));

    WriteBytes(program.UsualSettings(), WholeSettings());
    EXPECT_EQ(program.Run({"script", "-"}, "save \"" + usual + "\"\n").ExitStatus, 1);
    EXPECT_EQ(BytesOf(program.UsualSettings()), WholeSettings());
}

TEST(HostileName, WithALineFeedLeavesTheErrorOnOneLine) {
    const ProgramFolder program;

    const Finished finished = program.Run({"layout", "no\nsuch\x1B[31m.trk"});

    EXPECT_EQ(finished.ExitStatus, 1);
    // Windows has no files of such names at all.
    EXPECT_THAT(finished.Errors, testing::AnyOf("pistaro: File not found: no?such?[31m.trk\n",
                                                "pistaro: Path not found: no?such?[31m.trk\n"));
}

TEST(HostileName, InAWrongCommandLineStaysOnTheFirstLineToo) {
    const ProgramFolder program;

    const Finished finished = program.Run({"layout", "a.trk", "b\nc.trk"});

    EXPECT_EQ(finished.ExitStatus, 2);
    EXPECT_THAT(finished.Errors, StartsWith("pistaro: \"b?c.trk\" was not expected\n"));
}

class HostileFolder : public testing::TestWithParam<const char*> {};

TEST_P(HostileFolder, IsRememberedAndWorksInTheSecondStart) {
    const ProgramFolder program;
    const std::filesystem::path folder = program.Path() / PathFromText(GetParam());
    std::filesystem::create_directory(folder);
    WriteBytes(program / "my.ini", WholeSettings());
    const std::string circuit = TextFromPath(folder / "oval.trk");

    const Finished first = program.Run({"script", "-", "--settings", "my.ini"}, "add C160\nsave \"" + circuit + "\"\n");
    const Finished second = program.Run({"settings", "--json", "--settings", "my.ini"});
    const Finished shop = program.Run({"shop", circuit, "--settings", "my.ini"});
    const Finished guide = program.Run({"guide", circuit, "--settings", "my.ini"});

    EXPECT_EQ(first.Errors, "");
    EXPECT_EQ(second.ExitStatus, 0);
    EXPECT_THAT(second.Output, HasSubstr(std::string(GetParam()) + (FolderSeparator() == '/' ? "/" : "\\\\") + "\""));
    EXPECT_EQ(shop.Errors, "");
    EXPECT_EQ(guide.Errors, "");
    EXPECT_TRUE(std::filesystem::exists(folder / "shoppingList.txt"));
    EXPECT_TRUE(std::filesystem::exists(folder / "guide.html"));
}

INSTANTIATE_TEST_SUITE_P(Names, HostileFolder, testing::Values("Łukasz", "日本", "100%25 %41", "ø ✓ $HOME"));

} // namespace
} // namespace pistaro
