// The dialogs' commands in scripts, as the built program runs them.
#include "support/run_program.h"
#include "support/settings_bytes.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace pistaro {

using testing::HasSubstr;

namespace {

using Json = nlohmann::ordered_json;

const std::string Saved = "{\"icon\":\"information\",\"text\":\"Settings saved.\"}\n";

class ScriptDialogs : public testing::Test {
protected:
    ScriptDialogs() { WriteBytes(program_ / "my.ini", WholeSettings()); }

    Finished Run(const std::string& script) const {
        return program_.Run({"script", "-", "--settings", "my.ini"}, script);
    }

    /// The settings that a script of these lines ends with.
    Json SettingsAfter(const std::string& lines) const {
        const Finished finished = Run(lines + "settings\n");
        EXPECT_EQ(finished.ExitStatus, 0) << finished.Errors;
        return Json::parse(finished.Output.substr(finished.Output.find("{\"path\"")));
    }

    std::string OnDisk() const { return BytesOf(program_ / "my.ini"); }

    /// Runs a line that is refused: nothing is printed and nothing written.
    void ExpectRefused(const std::string& line, const std::string& reason) const {
        const Finished finished = Run(line);
        EXPECT_EQ(finished.ExitStatus, 1) << line;
        EXPECT_EQ(finished.Output, "") << line;
        EXPECT_EQ(finished.Errors, "pistaro: -, line 1: " + reason + "\n");
        EXPECT_EQ(OnDisk(), WholeSettings()) << line;
    }

    ProgramFolder program_;
};

} // namespace

TEST_F(ScriptDialogs, AreRefusedWithoutANamedSettingsFile) {
    for (const char* line : {"colours apply", "stock save", "area apply", "room add 0 0 1", "settings"}) {
        const Finished finished = program_.Run({"script", "-"}, line);
        EXPECT_EQ(finished.ExitStatus, 1);
        EXPECT_EQ(finished.Errors,
                  "pistaro: -, line 1: Refused: the dialogs want a settings file named by --settings\n");
        EXPECT_FALSE(std::filesystem::exists(program_.UsualSettings()));
    }
}

TEST_F(ScriptDialogs, ColoursAppliedStayInTheProgramAndSavedInTheFile) {
    const Finished finished = Run("colours rail=255 nonOwned=-1 apply\ncolours rail=77 save\n");
    EXPECT_EQ(finished.Output, Saved);
    EXPECT_EQ(OnDisk(), Replaced(Replaced(WholeSettings(), "Rail=3", "Rail=77"), "NonOwned=4", "NonOwned=-1"));
    EXPECT_EQ(SettingsAfter("colours rail=255 apply\n")["colours"]["rail"], 255);
}

TEST_F(ScriptDialogs, AreaGoesOnThoughARoomPointWasTypedAndNotTaken) {
    std::string points;
    for (int i = 0; i < 20; ++i)
        points += "room add " + std::to_string(i) + " 0 1\n";

    const Finished finished = Run(points + "room add 5 5 1\narea currency=DM save\n");

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(finished.Output,
              "{\"icon\":\"exclamation\",\"text\":\"Room definition is restricted to 20 points.\"}\n" + Saved);
    EXPECT_THAT(OnDisk(), HasSubstr("Curr=DM\r\n"));
    EXPECT_THAT(OnDisk(), HasSubstr("[Room]\r\n 20 \r\n"));
}

TEST_F(ScriptDialogs, AreaIsRefusedWhereItWouldLeaveAFileThatCannotBeReadAgain) {
    const std::string headerAsAngle = "[Grid]\r\nType=2\r\nStep=10\r\n[Room]\r\n0\r\n[Colors]\r\n";
    WriteBytes(program_ / "my.ini", headerAsAngle);

    const Finished finished = Run("area step=5 save\n");

    EXPECT_EQ(finished.ExitStatus, 1);
    EXPECT_EQ(finished.Output, "");
    EXPECT_EQ(OnDisk(), headerAsAngle);
}

TEST_F(ScriptDialogs, APriceBeyondTheSinglesDigitsIsWrittenAsItIsTyped) {
    EXPECT_EQ(Run("stock C151=1@12345678 C160=2@123456789.25 save\n").Output, Saved);

    EXPECT_THAT(OnDisk(), HasSubstr(SavedProductLines("[Best Prices]", {"C151=12345678", "C160=123456789.25"})));
}

TEST_F(ScriptDialogs, StockSavesCountsAndPricesAndTakesThemAsReadBack) {
    const Json settings = SettingsAfter("stock C151=07@2.50 C8010=3@1 N10111=9 save\n");

    EXPECT_EQ(settings["stock"]["C151L"], Json::parse(R"({"owned":7,"price":2.5})"));
    EXPECT_EQ(settings["stock"]["C8010L"], Json::parse(R"({"owned":3,"price":1})"));
    EXPECT_EQ(settings["stock"]["C8010R"], Json::parse(R"({"owned":0,"price":0})"));
    EXPECT_EQ(settings["stock"]["N10111"], Json::parse(R"({"owned":0,"price":0})"));
    EXPECT_THAT(OnDisk(), HasSubstr(SavedProductLines("[My Loose Track]", {"C151=7", "C8010=3", "N10111=9"})));
    EXPECT_THAT(OnDisk(), HasSubstr(SavedProductLines("[Best Prices]", {"C151=2.5", "C8010=1"})));
}

TEST_F(ScriptDialogs, AreaTakesTheNamedFieldsAndKeepsTheOthers) {
    const Json settings =
        SettingsAfter("area centre-x=-40.7 max-width=-55.9 angle=50 units=in currency=\"US $\" grid=1 apply\n");

    EXPECT_EQ(settings["view"], Json::parse(R"({"midX":-40,"midY":0,"zoom":320,"mWid":55})"));
    EXPECT_EQ(settings["room"]["angle"], 0.78539807);
    EXPECT_EQ(settings["units"], "in");
    EXPECT_EQ(settings["currency"], "US $");
    EXPECT_EQ(settings["grid"], Json::parse(R"({"type":1,"step":10})"));
    EXPECT_EQ(OnDisk(), WholeSettings());
    EXPECT_EQ(SettingsAfter("area units=1 apply\narea units=0 apply\n")["units"], "cm");
}

TEST_F(ScriptDialogs, AnIllegalAreaIsToldAndTheScriptGoesOn) {
    const Finished finished = Run("area window=0 centre-x=5 save\ncolours save\n");
    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(finished.Output, "{\"icon\":\"exclamation\",\"text\":\"Illegal Window Setting!\"}\n" + Saved);
    EXPECT_EQ(OnDisk(), WholeSettings());
}

TEST_F(ScriptDialogs, RoomPointsAreTakenByTheNextArea) {
    const std::string points = "room add 0 0 0\nroom add 300 0 1\nroom add 9 9 1\nroom set 2 310 5 0\nroom delete 3\n";
    EXPECT_EQ(SettingsAfter(points)["room"]["points"], Json::array());
    EXPECT_EQ(SettingsAfter(points + "area apply\n")["room"]["points"], Json::parse("[[0,0,0],[310,5,0]]"));
    EXPECT_EQ(SettingsAfter(points + "area window=0 apply\narea apply\n")["room"]["points"],
              Json::parse("[[0,0,0],[310,5,0]]"));
    EXPECT_EQ(SettingsAfter(points + "area save\n")["room"]["points"], Json::parse("[[0,0,0],[310,5,0]]"));
    EXPECT_THAT(OnDisk(), HasSubstr("[Room]\r\n 2 \r\n         0         0    0\r\n       310         5    0\r\n"
                                    "0\r\n0\r\n[My Loose Track]"));
}

TEST_F(ScriptDialogs, RoomTellsWhatTheDialogTells) {
    std::string lines;
    for (int point = 1; point <= 21; ++point)
        lines += "room add " + std::to_string(point) + " 0 1\n";
    EXPECT_EQ(Run(lines).Output,
              "{\"icon\":\"exclamation\",\"text\":\"Room definition is restricted to 20 points.\"}\n");
    EXPECT_EQ(Run("room add \"\" 5 1\n").Output,
              "{\"icon\":\"exclamation\",\"text\":\"Please specify the coordinates first.\"}\n");
}

TEST_F(ScriptDialogs, AgreeToGoOnWithoutAPointThatWasRefused) {
    const std::string printed = Run("room add 1 2 1\nroom add \"\" 5 1\narea step=20 apply\nsettings\n").Output;

    EXPECT_NE(printed.find("\"step\":20"), std::string::npos) << printed;
    EXPECT_NE(printed.find("\"points\":[[1,2,1]]"), std::string::npos) << printed;
}

TEST_F(ScriptDialogs, RefuseWhatNoDialogOffers) {
    ExpectRefused("colours rail=255", "Refused: \"colours\" ends with \"apply\" or \"save\"");
    ExpectRefused("colours pink=1 save", "Refused: there is no colour \"pink\"");
    ExpectRefused("colours rail save", "Refused: \"rail\" has no \"=\"");
    ExpectRefused("colours rail=2147483648 save",
                  "Refused: \"2147483648\" is no whole number from -2147483648 to 2147483647");
    ExpectRefused("stock C151L=1 save", "Refused: there is no product \"C151L\"");
    ExpectRefused("stock C151=1 apply", "Refused: \"stock\" ends with \"save\"");
    ExpectRefused("stock C151=many save", "Type mismatch: the owned count of C151, \"many\", is no number");
    ExpectRefused("stock C151=1@ save", "Type mismatch: the price of C151, \"\", is no number");
    ExpectRefused("area depth=1 save", "Refused: the draw area has no \"depth\"");
    ExpectRefused("area grid=3 save", "Refused: \"3\" is no whole number from 0 to 2");
    ExpectRefused("area units=km save", "Refused: \"km\" is no number");
    ExpectRefused("area step=32768 save", "Overflow: the grid step, 32768, is larger than 32767");
    ExpectRefused("room add 1 2", "Refused: \"room add\" wants other words after it");
    ExpectRefused("room set 2 1 1 1", "Refused: \"2\" is no whole number from 1 to 1");
    ExpectRefused("room delete 1", "Refused: the room has no point 1");
    ExpectRefused("room delete 21", "Refused: \"21\" is no whole number from 1 to 20");
    ExpectRefused("room turn 1", "Refused: \"room\" knows add, set and delete, not \"turn\"");
    ExpectRefused("room add far 0 1", "Type mismatch: the room point's X, \"far\", is no number");
}

} // namespace pistaro
