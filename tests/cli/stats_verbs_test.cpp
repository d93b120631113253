// The verbs stats and shop, from the shell to the last byte.
#include "storage/circuit_file.h"
#include "support/chain.h"
#include "support/run_program.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

std::string Section(const std::string& header, const std::string& lines, int fillers) {
    std::string section = header + "\r\n" + lines;
    for (int filler = 0; filler < fillers; ++filler)
        section += "none=0\r\n";
    return section;
}

/// A circuit file and a settings file in a folder of their own.
class StatsVerbs : public testing::Test {
protected:
    StatsVerbs() {
        Save("C151L C160 C151R", "C160 C8006", "");
        Settings("Type=0\r\nCurr=EUR\r\n");
    }

    void Save(const std::string& track1, const std::string& track2, const std::string& track3) const {
        WriteBytes(Circuit(), CircuitBytes(ProjectOf(track1, track2, track3).Design));
    }

    /// The user owns one C160, and pays 2.5 for a C151 and .75 for a C160.
    void Settings(const std::string& units) const {
        WriteBytes(folder_ / "settings.ini", Section("[Units]", units, 0) +
                                                 Section("[My Loose Track]", "C160=1\r\n", 27) +
                                                 Section("[Best Prices]", "C151=2.5\r\nC160=.75\r\n", 26));
    }

    std::string Circuit() const { return (folder_ / "circuit.trk").string(); }

    Finished Run(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"--settings", "settings.ini"});
        return folder_.Run(arguments);
    }

    ProgramFolder folder_;
};

TEST_F(StatsVerbs, StatsPrintsTheFramesTheChecksAndTheDetailAsOneLine) {
    const Finished run = Run({"stats", Circuit(), "--json"});

    EXPECT_EQ(run.ExitStatus, 0);
    EXPECT_THAT(run.Errors, IsEmpty());
    EXPECT_EQ(
        run.Output,
        R"({"units":"cm","currency":"EUR","frames":[)"
        R"({"name":"Track 1","left":"81","right":"81","price":"5.75","elements":"3",)"
        R"("asBuilt":{"left":81.417,"right":81.417,"laps":1,"pieces":[[20.106,26.311],[35,35],[26.311,20.106]]}},)"
        R"({"name":"Track 2","left":"72","right":"72","price":".75","elements":"2",)"
        R"("asBuilt":{"left":70.88,"right":70.88,"laps":2,"twoLaps":141.761,"pieces":[[35,35],[35.88,35.88]]}},)"
        R"({"name":"Track 3","left":"0","right":"0","price":"0","elements":"0",)"
        R"("asBuilt":{"left":0,"right":0,"laps":1,"pieces":[]}},)"
        R"({"name":"Complete Circuit","left":"153","right":"153","price":"6.5","elements":"5",)"
        R"("asBuilt":{"left":152.298,"right":152.298}}],)"
        R"("messages":[{"icon":"exclamation",)"
        R"("text":"You have used an uneven number of change-over sections for track 2 !"}],)"
        R"("detail":{"track":"all","includeOwned":false,"counts":{)"
        R"("C151":2,"C152":0,"C153":0,"C154":0,"C156":0,"C157":0,"C158":0,"C159":0,"C160":1,"C187":0,)"
        R"("N10102":0,"N10103":0,"N10104":0,"N10105":0,"N10106":0,"N10107":0,"N10108":0,"N10110":0,)"
        R"("C164":0,"C248":0,"C8005":0,"C8006":1,"C8007":0,"C8009":0,"C277":0,"C367":0,"C8010":0,)"
        R"("N10111":0},"price":"5.75"}})"
        "\n");
}

TEST_F(StatsVerbs, StatsShowsTheDetailOfOneTrackWithOwnedPieces) {
    const Finished run = Run({"stats", "--track", "2", "--include-owned", "--json", Circuit()});

    EXPECT_THAT(run.Output, HasSubstr(R"("detail":{"track":2,"includeOwned":true,"counts":{"C151":0,)"));
    EXPECT_THAT(run.Output, HasSubstr(R"("C160":1,)"));
    EXPECT_THAT(run.Output, HasSubstr(R"("price":".75"}})"));
}

TEST_F(StatsVerbs, StatsPrintsATableForAPerson) {
    Settings("Type=1\r\nCurr=\x80\r\n");

    const Finished run = Run({"stats", Circuit()});

    EXPECT_EQ(run.ExitStatus, 0);
    EXPECT_THAT(run.Output, StartsWith("                                         Track 1           Track 2"
                                       "           Track 3  Complete Circuit\n"
                                       "Left Track Length, in                         32                28"
                                       "                 0                60\n"
                                       "Right Track Length, in                        32                28"
                                       "                 0                60\n"
                                       "Track Price, \u20AC                              5.75               .75"
                                       "                 0               6.5\n"
                                       "Number of Elements                             3                 2"
                                       "                 0                 5\n"
                                       "\n"
                                       "Complete Circuit: pieces to buy\n"
                                       "C151 - standard curve 45                       2\n"));
    EXPECT_THAT(run.Output, HasSubstr("\nN10111 - change-over                           0\n"
                                      "Price, \u20AC                                    5.75\n"
                                      "\n"
                                      "You have used an uneven number of change-over sections for track 2 !\n"
                                      "\n"
                                      "Track 1 as built: lanes 32.054 / 32.054 in\n"
                                      "Track 2 as built: lanes joined, 55.812 in in two laps\n"));
}

TEST_F(StatsVerbs, ShopWritesBesideTheCircuitAndPrintsThePath) {
    const Finished run = Run({"shop", Circuit()});

    EXPECT_EQ(run.ExitStatus, 0);
    EXPECT_EQ(run.Output, (folder_ / "shoppingList.txt").string() + "\n");
    EXPECT_EQ(BytesOf(folder_ / "shoppingList.txt"), "SHOPPING LIST\r\n"
                                                     "-------------\r\n"
                                                     "\r\n"
                                                     "    2 x C151  (standard curve 45\xB0)   at 2.5\r\n"
                                                     "    1 x C160  (standard straight)    at .75\r\n"
                                                     "    1 x C8006 (change over track)    at 0\r\n"
                                                     "                                       -----\r\n"
                                                     "Total                                  5.75EUR\r\n");
}

TEST_F(StatsVerbs, ShopWritesOneTracksListIntoAnotherFolder) {
    const TemporaryFolder other;

    const Finished run = Run({"shop", Circuit(), "--track", "1", "--include-owned", "--out", other.Path().string()});

    EXPECT_EQ(run.Output, (other / "shoppingList.txt").string() + "\n");
    EXPECT_THAT(BytesOf(other / "shoppingList.txt"), HasSubstr("    1 x C160  (standard straight)    at .75\r\n"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "shoppingList.txt"));
}

TEST_F(StatsVerbs, ShopRefusesAFolderThatIsNotThere) {
    const Finished run = Run({"shop", Circuit(), "--out", (folder_ / "missing").string()});

    EXPECT_EQ(run.ExitStatus, 1);
    EXPECT_THAT(run.Errors, StartsWith("pistaro: Path not found: "));
    EXPECT_THAT(run.Output, IsEmpty());
}

TEST_F(StatsVerbs, ACircuitThatIsNotThereIsRefused) {
    for (const char* const verb : {"stats", "shop"}) {
        const Finished run = Run({verb, (folder_ / "missing.trk").string()});

        EXPECT_EQ(run.ExitStatus, 1) << verb;
        EXPECT_THAT(run.Errors, HasSubstr("missing.trk")) << verb;
    }
}

TEST_F(StatsVerbs, ATrackOtherThan1To3OrAllIsAWrongCommandLine) {
    for (const char* const track : {"0", "4", "All", "", "12"}) {
        const Finished run = Run({"stats", Circuit(), "--track", track});

        EXPECT_EQ(run.ExitStatus, 2) << track;
        EXPECT_THAT(run.Errors, HasSubstr("--track")) << track;
    }
}

TEST_F(StatsVerbs, ACountOrASumThatOverflowsIsRefusedWithTheCircuitsName) {
    const std::string tooFew = Section("[My Loose Track]", "C160=-32768\r\n", 27);
    const std::string tooDear = Section("[Best Prices]", "C151=3E38\r\n", 27);
    for (const std::string& settings : {tooFew, tooDear}) {
        WriteBytes(folder_ / "settings.ini", settings);
        for (const char* const verb : {"stats", "shop"}) {
            const Finished run = Run({verb, Circuit()});

            EXPECT_EQ(run.ExitStatus, 1) << verb;
            EXPECT_THAT(run.Errors, StartsWith("pistaro: " + Circuit() + ": Overflow: ")) << verb;
            EXPECT_THAT(run.Output, IsEmpty()) << verb;
        }
    }
}

} // namespace
} // namespace pistaro
