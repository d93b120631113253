// The program on Windows: its streams, and names beyond plain letters on its command line.
#include "platform/files.h"
#include "support/places.h"
#include "support/run_program.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

std::string Oval() { return BytesOf(SourceFolder() / "samples" / "oval.trk"); }

TEST(WindowsProgram, EndsLinesWithALineFeedAlone) {
    const ProgramFolder program;
    const Finished finished = program.Run({"catalogue", "--json"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_TRUE(finished.Output.ends_with("}\n"));
    EXPECT_EQ(finished.Output.find('\r'), std::string::npos);
}

TEST(WindowsProgram, TakesNamesWithBlanksUmlautsAndOtherLetters) {
    const ProgramFolder program;
    for (const char* const name : {"Bahn für Jürgen", "日本 コース"}) {
        const auto folder = program.Path() / PathFromText(name);
        std::filesystem::create_directory(folder);
        const auto circuit = folder / PathFromText(std::string(name) + ".trk");
        WriteBytes(circuit, Oval());

        EXPECT_EQ(program.Run({"layout", TextFromPath(circuit)}).ExitStatus, 0) << name;
        EXPECT_EQ(program.Run({"shop", TextFromPath(circuit), "--out", TextFromPath(folder)}).ExitStatus, 0) << name;
        EXPECT_EQ(program.Run({"guide", TextFromPath(circuit), "--out", TextFromPath(folder)}).ExitStatus, 0) << name;
        for (const char* const made : {"shoppingList.txt", "guide.html", "track.gif", "C151L.gif"})
            EXPECT_TRUE(std::filesystem::exists(folder / made)) << name << ": " << made;
    }
}

TEST(WindowsProgram, TakesWhatBeginsWithASlashAsAPath) {
    const ProgramFolder program;
    const Finished finished = program.Run({"layout", "/missing.trk"});

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Errors, "pistaro: File not found: /missing.trk\n");
}

TEST(WindowsProgram, NamesAMissingFileInItsOwnLetters) {
    const ProgramFolder program;
    const Finished finished = program.Run({"layout", "Fähre 日本.trk"});

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Errors, "pistaro: File not found: Fähre 日本.trk\n");
}

} // namespace
} // namespace pistaro
