// Unsaved work on the command line of the built program: a work is listed, and copied to a new file.
#include "commands/bitmaps.h"
#include "platform/files.h"
#include "storage/background_file.h"
#include "storage/recovery_file.h"
#include "support/circuit_text.h"
#include "support/run_program.h"

#include <gmock/gmock.h>

#include <regex>
#include <sstream>

namespace pistaro {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class Recover : public testing::Test {
protected:
    void Leave(const std::string& name, int hoursAgo, const std::string& bytes = CircuitText("C160 C160")) const {
        std::filesystem::create_directories(program_.Recovered());
        const auto file = program_.Recovered() / PathFromText(name + ".trk");
        WriteBytes(file, bytes);
        std::filesystem::last_write_time(file,
                                         std::filesystem::file_time_type::clock::now() - std::chrono::hours(hoursAgo));
    }

    std::string PathOf(const std::string& name) const {
        return TextFromPath(program_.Recovered() / PathFromText(name + ".trk"));
    }

    ProgramFolder program_;
    const std::string oval_ = "oval~20261122T073105Z~4711-18f3-1";
    const std::string eight_ = "My%20eight~20261121T180000Z~4700-18f2-2";
};

TEST_F(Recover, WithoutAnyWorkPrintsNothing) {
    const Finished finished = program_.Run({"recover"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(finished.Output, "");
    EXPECT_EQ(finished.Errors, "");
    EXPECT_TRUE(std::filesystem::is_empty(program_.Home()));
}

TEST_F(Recover, ListsEachWorkWithItsTimeItsPiecesAndItsFile) {
    Leave(oval_, 2);
    Leave(eight_ + "~kept", 1, CircuitText("C151L"));
    Leave("odd~20261120T180000Z~4700-18f2-1", 3, "no circuit");

    const Finished finished = program_.Run({"recover"});

    EXPECT_EQ(finished.ExitStatus, 0);
    std::istringstream lines(finished.Output);
    std::vector<std::string> words;
    const std::regex time("20[0-9-]{8}T[0-9:]{8}");
    for (std::string name, written, pieces, path; lines >> name >> written >> pieces && std::getline(lines, path);) {
        EXPECT_TRUE(std::regex_match(written, time)) << written;
        words.insert(words.end(), {name, pieces, path});
    }
    EXPECT_THAT(words, ElementsAre(eight_, "1", "  " + PathOf(eight_ + "~kept"), oval_, "2", "  " + PathOf(oval_),
                                   "odd~20261120T180000Z~4700-18f2-1", "damaged",
                                   "  " + PathOf("odd~20261120T180000Z~4700-18f2-1")));
}

TEST_F(Recover, CopiesAWorkByItsNameOrTheBeginningOfIt) {
    Leave(oval_, 1, CircuitText("C151L"));
    Leave(eight_, 1);

    const Finished whole = program_.Run({"recover", oval_, "--out", "one.trk"});
    const Finished beginning = program_.Run({"recover", "oval", "--out", "two.trk"});

    EXPECT_EQ(whole.Output, "one.trk\n");
    EXPECT_EQ(whole.ExitStatus, 0);
    EXPECT_EQ(BytesOf(program_ / "one.trk"), CircuitText("C151L"));
    EXPECT_EQ(beginning.ExitStatus, 0);
    EXPECT_EQ(BytesOf(program_ / "two.trk"), CircuitText("C151L"));
    EXPECT_EQ(BytesOf(program_.Recovered() / (oval_ + ".trk")), CircuitText("C151L"));
}

TEST_F(Recover, NeverWritesOverAFile) {
    Leave(oval_, 1);
    WriteBytes(program_ / "mine.trk", "mine");

    const Finished finished = program_.Run({"recover", "oval", "--out", "mine.trk"});

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Errors, "pistaro: File already exists: mine.trk\n");
    EXPECT_EQ(BytesOf(program_ / "mine.trk"), "mine");
}

TEST_F(Recover, RefusesAWorkThatIsNotThereOneOfSeveralAndADamagedOne) {
    Leave(oval_, 1);
    Leave("oval~20261122T073105Z~4711-18f3-2", 1, "[Settings]");

    const Finished missing = program_.Run({"recover", "eight", "--out", "x.trk"});
    const Finished several = program_.Run({"recover", "ov", "--out", "x.trk"});
    const Finished damaged = program_.Run({"recover", "oval~20261122T073105Z~4711-18f3-2", "--out", "x.trk"});

    EXPECT_EQ(missing.ExitStatus, 1);
    EXPECT_EQ(missing.Errors, "pistaro: File not found: there is no recovered work \"eight\"\n");
    EXPECT_EQ(several.ExitStatus, 1);
    EXPECT_EQ(several.Errors, "pistaro: Refused: the names of several recovered works begin with \"ov\"\n");
    EXPECT_EQ(damaged.ExitStatus, 1);
    EXPECT_THAT(damaged.Errors, HasSubstr("oval~20261122T073105Z~4711-18f3-2.trk, line 2: the centre X is missing"));
    EXPECT_FALSE(std::filesystem::exists(program_ / "x.trk"));
}

TEST_F(Recover, WantsANameAndAFileTogether) {
    Leave(oval_, 1);
    const Finished noFile = program_.Run({"recover", "oval"});
    const Finished noName = program_.Run({"recover", "--out", "x.trk"});
    const Finished emptyName = program_.Run({"recover", "", "--out", "x.trk"});

    EXPECT_EQ(noFile.ExitStatus, 2);
    EXPECT_THAT(noFile.Errors, StartsWith("pistaro: NAME requires --out"));
    EXPECT_EQ(noName.ExitStatus, 2);
    EXPECT_EQ(emptyName.ExitStatus, 1);
    EXPECT_EQ(noName.Output + noFile.Output + emptyName.Output, "");
}

TEST_F(Recover, RefusesASettingsFileThatIsNamedAndNotThere) {
    const Finished finished = program_.Run({"recover", "--settings", "gone.ini"});

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Errors, "pistaro: File not found: gone.ini\n");
}

TEST_F(Recover, BringsTheBackgroundAlongAndWritesOverNone) {
    Leave(oval_, 1);
    const std::string background = BackgroundBytes(
        {.Picture = std::make_shared<const std::string>(Bitmap(2, 2, Rgb(1, 2, 3))), .X = 5, .CmPerPixel = 2});
    WriteBytes(program_.Recovered() / (oval_ + ".background"), background);
    WriteBytes(program_ / "mine.background", "mine");

    EXPECT_EQ(program_.Run({"recover", "oval", "--out", "x.trk"}).ExitStatus, 0);
    EXPECT_EQ(BytesOf(program_ / "x.background"), background);

    const Finished refused = program_.Run({"recover", "oval", "--out", "mine.trk"});
    EXPECT_EQ(refused.Errors, "pistaro: File already exists: mine.background\n");
    EXPECT_EQ(BytesOf(program_ / "mine.background"), "mine");
    EXPECT_FALSE(std::filesystem::exists(program_ / "mine.trk"));
}

} // namespace
} // namespace pistaro
