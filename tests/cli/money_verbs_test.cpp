// The verbs buy and balance, and the shopping list for spreadsheets.
#include "storage/circuit_file.h"
#include "support/chain.h"
#include "support/places.h"
#include "support/run_program.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace pistaro {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// A user who owns one C160 and knows the prices of C160 and C151.
class MoneyVerbs : public testing::Test {
protected:
    MoneyVerbs() {
        WriteBytes(folder_ / "circuit.trk", CircuitBytes(ProjectOf("C160 C160 C160 C151L C151R C164").Design));
        std::string settings = "[Units]\r\nType=0\r\nCurr=EUR\r\n[My Loose Track]\r\nC160=1\r\n";
        for (int line = 0; line < 27; ++line)
            settings += "none=0\r\n";
        settings += "[Best Prices]\r\nC160=3.5\r\nC151=2.99\r\n";
        for (int line = 0; line < 26; ++line)
            settings += "none=0\r\n";
        WriteBytes(folder_ / "settings.ini", settings);
    }

    Finished Run(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"--settings", "settings.ini"});
        return folder_.Run(arguments);
    }

    ProgramFolder folder_;
};

constexpr const char* Sets = "[[set]]\nname = \"Straights\"\nprice = 5.95\npieces = { C160 = 2, C159 = 1 }\n";

TEST_F(MoneyVerbs, BuyListsSinglePiecesWithoutSets) {
    const Finished run = Run({"buy", "circuit.trk", "--json"});

    EXPECT_EQ(run.ExitStatus, 0);
    EXPECT_EQ(run.Output, R"({"currency":"EUR","sets":[],"singles":[{"code":"C151","count":2,"price":2.99,"sum":5.98},)"
                          R"({"code":"C160","count":2,"price":3.5,"sum":7}],"notSold":[{"code":"C164","count":1}],)"
                          R"("surplus":[],"unused":[],"total":12.98,"bound":12.98,"proven":true,"unknown":[]})"
                          "\n");
}

TEST_F(MoneyVerbs, BuyNamesTheCodesThatItDoesNotCount) {
    WriteBytes(folder_ / "strange.trk", CircuitBytes(ProjectOf("C160 C9999 C160 C9999 X1").Design));

    EXPECT_EQ(Run({"buy", "strange.trk"}).Output,
              "    1 x C160 standard straight                          3.50        3.50\n"
              "Total 3.50 €, the cheapest there is.\n"
              "Not in the catalogue, and not counted: 2 C9999, 1 X1\n");
    EXPECT_THAT(Run({"buy", "strange.trk", "--json"}).Output,
                HasSubstr(R"("unknown":[{"code":"C9999","count":2},{"code":"X1","count":1}])"));
}

TEST_F(MoneyVerbs, BuyTakesTheSetsBesideTheSettings) {
    WriteBytes(folder_ / "sets.toml", Sets);

    EXPECT_THAT(Run({"buy", "circuit.trk"}).Output,
                StartsWith("    1 x Straights                                       5.95        5.95\n"
                           "    2 x C151 standard curve 45°                         2.99        5.98\n"
                           "Total 11.93 €, the cheapest there is.\n"
                           "In no set and without a price: 1 C164\n"
                           "Left over from the sets: 1 C159\n"));
}

#ifndef _WIN32
TEST_F(MoneyVerbs, BuyTakesNoSetsFromTheCurrentFolderWithoutAHome) {
    WriteBytes(folder_ / "sets.toml", "no file of sets");

    const std::string command = "cd '" + folder_.Path().string() + "' && env -u HOME -u XDG_CONFIG_HOME '" +
                                std::string(Program()) + "' buy circuit.trk >output 2>errors";
    const int status = std::system(command.c_str());

    EXPECT_EQ(status, 0) << BytesOf(folder_ / "errors");
    EXPECT_THAT(BytesOf(folder_ / "output"), HasSubstr("In no set and without a price"));
}
#endif

TEST_F(MoneyVerbs, BuyTakesAnotherFileOfSets) {
    WriteBytes(folder_ / "mine.toml", Sets);
    EXPECT_THAT(Run({"buy", "circuit.trk", "--sets", "mine.toml", "--json"}).Output,
                HasSubstr(R"("sets":[{"name":"Straights","count":1,"price":5.95,"sum":5.95}])"));

    WriteBytes(folder_ / "mine.toml", "[[set]]\nname = 1\n");
    const Finished wrong = Run({"buy", "circuit.trk", "--sets", "mine.toml"});
    EXPECT_EQ(wrong.ExitStatus, 1);
    EXPECT_EQ(wrong.Errors, "pistaro: Bad file format: mine.toml, line 2: a set wants a name\n");

    const Finished missing = Run({"buy", "circuit.trk", "--sets", "gone.toml"});
    EXPECT_EQ(missing.ExitStatus, 1);
    EXPECT_THAT(missing.Errors, HasSubstr("gone.toml"));
}

TEST_F(MoneyVerbs, ShopWritesATableForSpreadsheetsToo) {
    const Finished run = Run({"shop", (folder_ / "circuit.trk").string(), "--csv"});

    EXPECT_EQ(run.Output,
              (folder_ / "shoppingList.txt").string() + "\n" + (folder_ / "shoppingList.csv").string() + "\n");
    EXPECT_EQ(BytesOf(folder_ / "shoppingList.csv"), "count,code,name,price,sum\r\n"
                                                     "2,C151,\"standard curve 45°\",2.99,5.98\r\n"
                                                     "2,C160,\"standard straight\",3.50,7.00\r\n"
                                                     "1,C164,\"rough terrain\",,\r\n"
                                                     ",,\"Total, EUR\",,12.98\r\n");
}

TEST_F(MoneyVerbs, BalanceProposesChanges) {
    WriteBytes(folder_ / "oval.trk",
               CircuitBytes(ProjectOf("C160 C151R C151R C151R C151R C160 C151R C151R C151R C151R").Design));

    const Finished json = Run({"balance", "oval.trk", "--json"});
    EXPECT_EQ(json.ExitStatus, 0);
    EXPECT_EQ(json.Output, R"-({"tracks":[{"track":1,"before":49.637,"balanced":false,"steps":[)-"
                           R"-({"first":0,"pieces":["C8006"],"text":"C8006 in place of C160 (0)",)-"
                           R"-("left":231.73,"right":281.367,"joined":true},)-"
                           R"-({"first":5,"pieces":["C8006"],"text":"C8006 in place of C160 (5)",)-"
                           R"-("left":257.429,"right":257.429,"joined":false}]}]})-"
                           "\n");
    EXPECT_THAT(Run({"balance", "oval.trk"}).Output, StartsWith("Track 1: These changes balance the lanes:\n1. C8006"));
    EXPECT_EQ(Run({"balance", "oval.trk", "--track", "2"}).Output, "");
}

} // namespace
} // namespace pistaro
