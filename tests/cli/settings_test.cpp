// The settings document of the built program.
#include "support/run_program.h"
#include "support/settings_bytes.h"
#include "support/settings_text.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace pistaro {

using testing::HasSubstr;
using testing::StartsWith;

namespace {

using Json = nlohmann::ordered_json;

const std::vector<std::string> HeadRows{
    "C151L",  "C152L",  "C153L",  "C154L",   "C156L",   "C157",    "C158",    "C159",   "C160",  "C187L",
    "N10102", "N10103", "N10104", "N10105L", "N10106L", "N10107L", "N10108L", "N10110", "C164",  "C248",
    "C8005",  "C8006",  "C8007",  "C8009",   "C277",    "C367",    "C8010L",  "C8010R", "N10111"};

class SettingsVerb : public testing::Test {
protected:
    ProgramFolder program_;
};

} // namespace

TEST_F(SettingsVerb, PrintsAllKeysInTheirOrder) {
    WriteBytes(program_ / "my.ini", SettingsText("/tracks/", "C151=4"));
    std::string stock;
    for (const std::string& code : HeadRows) {
        stock += (stock.empty() ? "" : ",") + ("\"" + code + "\":") +
                 (code == "C151L" ? R"({"owned":4,"price":2.5})" : R"({"owned":0,"price":0})");
    }

    const Finished finished = program_.Run({"settings", "--json", "--settings", "my.ini"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(finished.Errors, "");
    EXPECT_EQ(finished.Output,
              R"({"path":"my.ini","workingDirectory":"/tracks/",)"
              R"("view":{"midX":10,"midY":-20.5,"zoom":400,"mWid":200},"units":"in","currency":"GBP",)"
              R"("grid":{"type":1,"step":5},"room":{"points":[[0,0,0],[300,-100,1]],"angle":0.5},"stock":{)" +
                  stock +
                  R"(},"colours":{"background":1,"inactive":2,"rail":3,"nonOwned":4,"owned":5,"active":6},)"
                  R"("messages":[]})"
                  "\n");
}

TEST_F(SettingsVerb, TellsTheWarningsAmongItsMessagesOnly) {
    WriteBytes(program_ / "my.ini", SettingsText("/tracks/", ""));

    const Finished finished = program_.Run({"settings", "--json", "--settings", "my.ini"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(finished.Errors, "");
    EXPECT_THAT(finished.Output, HasSubstr(R"("messages":[{"icon":"exclamation","text":)"
                                           R"("CORVEL.INI incomplete, missing values defaulted to zero!"}]})"));
}

TEST_F(SettingsVerb, OfASectionThatStandsTwiceTheFirstCountsAndIsRewritten) {
    const std::string twice =
        SettingsText("/tracks/", "C151=4") +
        "[Colors]\r\nBackground=10\r\nInactive=20\r\nRail=30\r\nNonOwned=40\r\nOwned=50\r\nActive=60\r\n";
    WriteBytes(program_ / "my.ini", twice);
    EXPECT_EQ(Json::parse(program_.Run({"settings", "--json", "--settings", "my.ini"}).Output)["colours"].dump(),
              R"({"background":1,"inactive":2,"rail":3,"nonOwned":4,"owned":5,"active":6})");

    EXPECT_EQ(program_.Run({"script", "-", "--settings", "my.ini"}, "colours rail=9 save\n").ExitStatus, 0);

    EXPECT_EQ(BytesOf(program_ / "my.ini"), Replaced(twice, "\r\nRail=3\r\n", "\r\nRail=9\r\n"));
}

TEST_F(SettingsVerb, WithoutAFileTellsThoseOfAFirstRun) {
    const Json settings = Json::parse(program_.Run({"settings", "--json"}).Output);

    EXPECT_EQ(settings["path"], program_.UsualSettings().string());
    EXPECT_EQ(settings["workingDirectory"], (program_.Documents() / "Pistaro" / "").string());
    EXPECT_EQ(settings["view"].dump(), R"({"midX":0,"midY":0,"zoom":320,"mWid":160})");
    EXPECT_EQ(settings["units"], "cm");
    EXPECT_EQ(settings["currency"], "EUR");
    EXPECT_EQ(settings["grid"].dump(), R"({"type":2,"step":10})");
    EXPECT_EQ(settings["room"].dump(), R"({"points":[],"angle":0})");
    EXPECT_EQ(settings["stock"].size(), 29U);
    EXPECT_FALSE(std::filesystem::exists(program_.Documents() / "Pistaro"));
}

TEST_F(SettingsVerb, ReadsTheUsualFileWhereItStands) {
    std::filesystem::create_directories(program_.UsualSettings().parent_path());
    WriteBytes(program_.UsualSettings(), "[Units]\r\nType=0\r\nCurr=\x80\r\n");

    const Json settings = Json::parse(program_.Run({"settings", "--json"}).Output);

    EXPECT_EQ(settings["currency"], "\xE2\x82\xAC"); // the euro sign
    EXPECT_EQ(settings["view"]["zoom"], 320);
}

TEST_F(SettingsVerb, PrintsATableForAPerson) {
    WriteBytes(program_ / "my.ini", SettingsText("/tracks/", "C151=4"));

    const Finished finished = program_.Run({"settings", "--settings", "my.ini"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_THAT(finished.Output, StartsWith("path                     my.ini\n"
                                            "workingDirectory         /tracks/\n"
                                            "view.midX                10\n"));
    EXPECT_THAT(finished.Output, HasSubstr("stock.C151L.owned        4\n"));
}

} // namespace pistaro
