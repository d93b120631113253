// The settings file read, section by section, and refused.
#include "storage/settings_file.h"

#include "platform/fault.h"
#include "storage/all_sections.h"
#include "storage/mutation.h"
#include "support/fault_of.h"
#include "support/pieces.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>

namespace pistaro {
namespace {

const std::string Incomplete = "CORVEL.INI incomplete, missing values defaulted to zero!";

/// `count` product lines of one text.
std::string Lines(int count, const std::string& line) {
    std::string lines;
    for (int i = 0; i < count; ++i)
        lines += line + "\r\n";
    return lines;
}

Settings Parsed(const std::string& bytes) { return ParseSettings(Pieces(), bytes, "corvel.ini"); }

std::string FaultIn(const std::string& bytes) {
    return FaultOf([&] { Parsed(bytes); });
}

ProductStock StockOf(const Settings& settings, int row) { return settings.Stock[row]; }

TEST(Settings, OfTheViewAreReadByPlace) {
    const Settings settings = Parsed("[Settings]\r\nMidX=12.5\r\nMidY=-3\r\nZoom=200.25\r\nMWid=80\r\n");

    EXPECT_EQ(settings.MidX, 12.5F);
    EXPECT_EQ(settings.MidY, -3);
    EXPECT_EQ(settings.Zoom, 200.25);
    EXPECT_EQ(settings.Preferences.MWid, 80);
}

TEST(Settings, OfTheWorkingDirectoryAreTheWholeLine) {
    EXPECT_EQ(Parsed("[Working Directory]\r\nC:\\M\xFC"
                     "ll \r\n")
                  .Preferences.WorkingDirectory,
              "C:\\Müll ");
    EXPECT_EQ(Parsed("[Working Directory]\r\n\r\n").Preferences.WorkingDirectory, "");
}

TEST(Settings, OfTheUnitsNeedNotHaveTheirKey) {
    EXPECT_TRUE(Parsed("[Units]\r\nCurr=1\r\nCurr=EUR\r\n").Preferences.Units.Inches);
    EXPECT_TRUE(Parsed("[Units]\r\nType=1\r\nCurr=EUR\r\n").Preferences.Units.Inches);
    EXPECT_FALSE(Parsed("[Units]\r\nType=0\r\nCurr=EUR\r\n").Preferences.Units.Inches);
}

TEST(Settings, AnyUnitIndexButZeroIsInches) {
    EXPECT_TRUE(Parsed("[Units]\r\nType=2\r\nCurr=\r\n").Preferences.Units.Inches);
    EXPECT_TRUE(Parsed("[Units]\r\nType=-1\r\nCurr=\r\n").Preferences.Units.Inches);
    EXPECT_FALSE(Parsed("[Units]\r\nType=.5\r\nCurr=\r\n").Preferences.Units.Inches) << "rounds to even";
}

TEST(Settings, TheCurrencyIsTheRestOfItsLine) {
    EXPECT_EQ(Parsed("[Units]\r\nType=0\r\nCurr=\x80 or \xA3\r\n").Preferences.Units.Currency, "€ or £");
    EXPECT_EQ(Parsed("[Units]\r\nType=0\r\nCurr=\r\n").Preferences.Units.Currency, "");
}

TEST(Settings, OfTheGridAreWholeNumbers) {
    const Settings settings = Parsed("[Grid]\r\nxxxxx2\r\nxxxxx 2.5 \r\n");

    EXPECT_EQ(settings.Preferences.Grid.Type, 2);
    EXPECT_EQ(settings.Preferences.Grid.Step, 2);
}

TEST(Settings, OfTheRoomAreThoseOfACircuitFile) {
    const Settings settings = Parsed("[Room]\r\n 3 \r\n"
                                     "      -100      -100    0\r\n"
                                     "       100      -100    1\r\n"
                                     "       100\r\n"
                                     ".3926991\r\n");

    EXPECT_EQ(settings.Room.Points, (std::vector<RoomPoint>{{-100, -100, 0}, {100, -100, 1}, {100, 0, 0}}));
    EXPECT_FLOAT_EQ(settings.Room.Angle, 0.3926991F);
}

TEST(Settings, OfTheColoursAreReadInTheirOrderWhateverTheKeys) {
    const Settings settings = Parsed("[Colors]\r\nxxxxxxxxxxx1\r\nNonOwned=2\r\nRail=3\r\nInactive=4\r\n"
                                     "Owned=5\r\nActive=6\r\n");

    EXPECT_EQ(settings.Preferences.Colours.Background, 1);
    EXPECT_EQ(settings.Preferences.Colours.Inactive, 2);
    EXPECT_EQ(settings.Preferences.Colours.Rail, 3);
    EXPECT_EQ(settings.Preferences.Colours.NonOwned, 4);
    EXPECT_EQ(settings.Preferences.Colours.Owned, 5);
    EXPECT_EQ(settings.Preferences.Colours.Active, 6);
}

TEST(Settings, OfAColourWithoutAValueAreBlack) {
    const Settings settings =
        Parsed("[Colors]\r\nBackground=1\r\nInactive=2\r\nRail=\r\nNonOwned=4\r\nOwned=5\r\nActive=6\r\n");

    EXPECT_EQ(settings.Preferences.Colours.Rail, 0);
    EXPECT_EQ(settings.Preferences.Colours.NonOwned, 4);
}

TEST(Settings, ColoursThatEndInAnEmptyLineAreBlackAndWarnedOfOnce) {
    const Settings settings = Parsed("[Colors]\r\nBackground=1\r\n\r\n[Grid]\r\nType=1\r\nStep=5\r\n");

    EXPECT_EQ(settings.Preferences.Colours.Background, 1);
    EXPECT_EQ(settings.Preferences.Colours.Inactive, 0);
    EXPECT_EQ(settings.Messages, (std::vector<Message>{{Icon::Exclamation, Incomplete}}));
    EXPECT_EQ(settings.Preferences.Grid.Step, 5) << "reading goes on with the next line";
}

TEST(LooseTrack, SetsTheOwnedCountOfTheProductsHeadRow) {
    const Settings settings = Parsed("[My Loose Track]\r\nC151=7\r\nC160=2.5\r\n" + Lines(26, "C164=1"));

    EXPECT_EQ(StockOf(settings, 0).OwnedCount, 7);
    EXPECT_EQ(StockOf(settings, 1).OwnedCount, 0) << "C151R is no head row";
    EXPECT_EQ(StockOf(settings, 13).OwnedCount, 2) << "halves to even";
    EXPECT_EQ(StockOf(settings, 28).OwnedCount, 1);
}

TEST(LooseTrack, AKeyMatchesTheFirstProductThatBeginsWithIt) {
    const Settings settings =
        Parsed("[My Loose Track]\r\nC8010=4\r\nC15=5\r\nC160      =6\r\nc164=7\r\nC151LX=8\r\nnothing=9\r\n" +
               Lines(22, "nothing=0"));

    EXPECT_EQ(StockOf(settings, 36).OwnedCount, 4) << "C8010L, not C8010R";
    EXPECT_EQ(StockOf(settings, 37).OwnedCount, 0);
    EXPECT_EQ(StockOf(settings, 0).OwnedCount, 5);
    EXPECT_EQ(StockOf(settings, 13).OwnedCount, 6) << "codes are padded with blanks";
    EXPECT_EQ(StockOf(settings, 28).OwnedCount, 0);
}

TEST(LooseTrack, AnEmptyKeyIsTheFirstProduct) {
    EXPECT_EQ(StockOf(Parsed("[My Loose Track]\r\n=3\r\n" + Lines(27, "x=0")), 0).OwnedCount, 3);
}

TEST(LooseTrack, AKeyLongerThanAPaddedCodeIsNone) {
    EXPECT_EQ(StockOf(Parsed("[My Loose Track]\r\n" + Lines(28, "C160                 =3")), 13).OwnedCount, 0);
    EXPECT_EQ(StockOf(Parsed("[My Loose Track]\r\n" + Lines(28, "C160                =3")), 13).OwnedCount, 3);
}

TEST(LooseTrack, SkipsThe29thLineThatItsWriterMakes) {
    const Settings settings = Parsed("[My Loose Track]\r\n" + Lines(28, "C160=1") +
                                     "N10111=5\r\n[Grid]\r\n"
                                     "Type=1\r\nStep=9\r\n");

    EXPECT_EQ(StockOf(settings, 38).OwnedCount, 0);
    EXPECT_EQ(settings.Preferences.Grid.Step, 9);
    EXPECT_TRUE(settings.Messages.empty());
}

TEST(LooseTrack, EndsAtAnEmptyLineWithOneWarning) {
    const Settings settings = Parsed("[My Loose Track]\r\nC160=4\r\n\r\nC151=3\r\n\r\n[Grid]\r\nType=1\r\nStep=9\r\n");

    EXPECT_EQ(StockOf(settings, 13).OwnedCount, 4);
    EXPECT_EQ(StockOf(settings, 0).OwnedCount, 0);
    EXPECT_EQ(settings.Preferences.Grid.Step, 9);
    EXPECT_EQ(settings.Messages, (std::vector<Message>{{Icon::Exclamation, Incomplete}}));
}

TEST(BestPrices, AreSinglesWarnedOfForThemselves) {
    const Settings settings = Parsed("[Best Prices]\r\nC160=2.75\r\nC8010=.5\r\n\r\n[My Loose Track]\r\n\r\n");

    EXPECT_EQ(StockOf(settings, 13).Price, 2.75F);
    EXPECT_EQ(StockOf(settings, 36).Price, 0.5F);
    EXPECT_EQ(settings.Messages.size(), 2U) << "once a section";
}

TEST(Settings, OfAnEmptyFileAreZeroWithTheDefaultView) {
    const Settings settings = Parsed("");

    EXPECT_EQ(settings.MidX, 0);
    EXPECT_EQ(settings.Zoom, 320);
    EXPECT_EQ(settings.Preferences.MWid, 160);
    EXPECT_FALSE(settings.Preferences.Units.Inches);
    EXPECT_EQ(settings.Preferences.Units.Currency, "");
    EXPECT_EQ(settings.Preferences.Grid.Type, 0);
    EXPECT_EQ(settings.Preferences.Grid.Step, 0);
    EXPECT_TRUE(settings.Room.Points.empty());
    EXPECT_EQ(settings.Preferences.Colours.Background, 0);
    EXPECT_EQ(settings.Preferences.WorkingDirectory, "");
    EXPECT_TRUE(settings.Messages.empty());
}

TEST(Settings, SectionsStandInAnyOrderAmongAnyOtherLines) {
    const Settings settings = Parsed("; mine\r\n[Grid]\r\nType=1\r\nStep=5\r\n\r\n[Other]\r\nMidX=9\r\n"
                                     "[Units]\r\nType=1\r\nCurr=GBP\r\n[Settings]\r\nMidX=1\r\nMidY=2\r\nZoom=3\r\n"
                                     "MWid=4");

    EXPECT_EQ(settings.Preferences.Grid.Step, 5);
    EXPECT_EQ(settings.Preferences.Units.Currency, "GBP");
    EXPECT_EQ(settings.MidX, 1);
    EXPECT_EQ(settings.Preferences.MWid, 4) << "the last line without an end";
}

TEST(Settings, OfASectionThatStandsTwiceAreThoseOfItsFirstPlace) {
    const Settings settings = Parsed("[Grid]\r\nType=1\r\nStep=5\r\n[Grid]\r\nType=2\r\nStep=x\r\n[Grid]\r\n");

    EXPECT_EQ(settings.Preferences.Grid.Type, 1);
    EXPECT_EQ(settings.Preferences.Grid.Step, 5);
}

TEST(Settings, HeadersAreComparedWholeAndByCase) {
    const Settings settings = Parsed("[grid]\r\nType=1\r\nStep=5\r\n[Grid] \r\nType=1\r\nStep=5\r\n [Grid]\r\n");

    EXPECT_EQ(settings.Preferences.Grid.Step, 0);
}

TEST(Settings, LinesMayEndInLfOrCr) {
    EXPECT_EQ(Parsed("[Grid]\nType=1\nStep=5\n").Preferences.Grid.Step, 5);
    EXPECT_EQ(Parsed("[Grid]\rType=1\rStep=5").Preferences.Grid.Step, 5);
}

TEST(BadSettings, ThatEndInsideASectionNameTheMissingLine) {
    EXPECT_EQ(FaultIn("[Settings]\r\nMidX=1\r\n"), "Input past end of file: corvel.ini, line 3: MidY= is missing");
    EXPECT_EQ(FaultIn("\r\n[Working Directory]\r\n"),
              "Input past end of file: corvel.ini, line 3: the working directory is missing");
    EXPECT_EQ(FaultIn("[Units]\r\nType=1"), "Input past end of file: corvel.ini, line 3: Curr= is missing");
    EXPECT_EQ(FaultIn("[Grid]"), "Input past end of file: corvel.ini, line 2: Type= is missing");
    EXPECT_EQ(FaultIn("[Room]\r\n 2 \r\n\r\n"), "Input past end of file: corvel.ini, line 4: room point 2 is missing");
    EXPECT_EQ(FaultIn("[Room]\r\n 0 \r\n"), "Input past end of file: corvel.ini, line 3: the room angle is missing");
    EXPECT_EQ(FaultIn("[My Loose Track]\r\n" + Lines(27, "C160=1")),
              "Input past end of file: corvel.ini, line 29: a product is missing");
    EXPECT_EQ(FaultIn("[Best Prices]\r\n"), "Input past end of file: corvel.ini, line 2: a product is missing");
    EXPECT_EQ(FaultIn("[Colors]\r\nBackground=1\r\n"),
              "Input past end of file: corvel.ini, line 3: Inactive= is missing");
}

TEST(BadSettings, WithAShortValueLineAreRefused) {
    EXPECT_EQ(FaultIn("[Settings]\r\nMidX\r\n"),
              "Invalid procedure call: corvel.ini, line 2: the value line is too short");
    EXPECT_EQ(FaultIn("[Units]\r\nType=0\r\n\r\n"),
              "Invalid procedure call: corvel.ini, line 3: the value line is too short");
    EXPECT_EQ(FaultIn("[Grid]\r\n1\r\n"), "Invalid procedure call: corvel.ini, line 2: the value line is too short");
    EXPECT_EQ(FaultIn("[Colors]\r\nBlack\r\n"),
              "Invalid procedure call: corvel.ini, line 2: the value line is too short");
}

TEST(BadSettings, WithAProductLineThatHasNoEqualsSignAreRefused) {
    EXPECT_EQ(FaultIn("[My Loose Track]\r\nC160 4\r\n"),
              "Invalid procedure call: corvel.ini, line 2: there is no \"=\"");
    EXPECT_EQ(FaultIn("[Best Prices]\r\nC160=1\r\n \r\n"),
              "Invalid procedure call: corvel.ini, line 3: there is no \"=\"");
}

TEST(BadSettings, WithANumberOutOfItsRangeAreRefused) {
    EXPECT_EQ(FaultIn("[Grid]\r\nType=1\r\nStep=40000\r\n"), "Overflow: corvel.ini, line 3: 40000 is outside 16 bits");
    EXPECT_EQ(FaultIn("[Room]\r\n 21 \r\n"),
              "Subscript out of range: corvel.ini, line 2: a room has 0 to 20 points, not 21");
    EXPECT_EQ(FaultIn("[My Loose Track]\r\nC160=32768\r\n"), "Overflow: corvel.ini, line 2: 32768 is outside 16 bits");
    EXPECT_EQ(FaultIn("[Best Prices]\r\nC160=1E39\r\n"), "Overflow: corvel.ini, line 2: the number is too large");
    EXPECT_EQ(FaultIn("[Colors]\r\nBackground=4294967296\r\n"),
              "Overflow: corvel.ini, line 2: 4294967296 is outside 32 bits");
    EXPECT_EQ(FaultIn("[Settings]\r\nMidX=1E20\r\n"),
              "Overflow: corvel.ini, line 2: a scroll bar cannot stand at 1E+20");
    EXPECT_EQ(FaultIn("[Settings]\r\nMidX=0\r\nMidY=0\r\nZoom=1E300\r\nMWid=1\r\n"),
              "Overflow: corvel.ini, line 4: the number is too large");
}

TEST(BadSettings, ThatAreBinaryAreToldSo) {
    EXPECT_EQ(FaultIn(std::string("[Grid]\r\n\0", 9)), "Bad file format: corvel.ini, line 2: this is not a text file");
    for (const char control : std::string("\x01\x08\x0B\x0E\x1A\x1B\x1F")) {
        EXPECT_EQ(FaultIn(std::string("x\r\n") + control),
                  "Bad file format: corvel.ini, line 2: this is not a text file")
            << int{control};
    }
    EXPECT_EQ(FaultIn("\t\f\r\n \x7F"), "no fault");
}

TEST(BadSettings, OnDiskAreNamedByTheirPath) {
    const TemporaryFolder folder;

    EXPECT_EQ(FaultOf([&] { ReadSettings(Pieces(), folder / "corvel.ini"); }),
              "File not found: " + (folder / "corvel.ini").string());
}

const std::string InitialFile =
    "[Working Directory]\r\n/home/me/Pistaro/\r\n"
    "[Settings]\r\nMidX=0\r\nMidY=0\r\nZoom=320\r\nMWid=160\r\n"
    "[Units]\r\nType=0\r\nCurr=EUR\r\n"
    "[Grid]\r\nType=2\r\nStep=10\r\n"
    "[Room]\r\n 0 \r\n0\r\n"
    "[My Loose Track]\r\nC151=0\r\nC152=0\r\nC153=0\r\nC154=0\r\nC156=0\r\nC157=0\r\n"
    "C158=0\r\nC159=0\r\nC160=0\r\nC187=0\r\nN10102=0\r\nN10103=0\r\nN10104=0\r\n"
    "N10105=0\r\nN10106=0\r\nN10107=0\r\nN10108=0\r\nN10110=0\r\nC164=0\r\nC248=0\r\n"
    "C8005=0\r\nC8006=0\r\nC8007=0\r\nC8009=0\r\nC277=0\r\nC367=0\r\nC8010=0\r\nN10111=0\r\n"
    "[Best Prices]\r\nC151=0\r\nC152=0\r\nC153=0\r\nC154=0\r\nC156=0\r\nC157=0\r\n"
    "C158=0\r\nC159=0\r\nC160=0\r\nC187=0\r\nN10102=0\r\nN10103=0\r\nN10104=0\r\n"
    "N10105=0\r\nN10106=0\r\nN10107=0\r\nN10108=0\r\nN10110=0\r\nC164=0\r\nC248=0\r\n"
    "C8005=0\r\nC8006=0\r\nC8007=0\r\nC8009=0\r\nC277=0\r\nC367=0\r\nC8010=0\r\nN10111=0\r\n"
    "[Colors]\r\nBackground=16777215\r\nInactive=8421504\r\nRail=0\r\nNonOwned=255\r\n"
    "Owned=16711680\r\nActive=32768\r\n";

TEST(InitialSettings, HoldEverySectionAndTheFirstWorkingDirectory) {
    EXPECT_EQ(InitialSettingsBytes(Pieces(), "", "/home/me/Pistaro/"), InitialFile);
}

TEST(InitialSettings, AreThoseOfAFirstRun) {
    const Settings settings = InitialSettings(Pieces());

    EXPECT_EQ(settings.Preferences.WorkingDirectory, "");
    EXPECT_EQ(settings.MidX, 0);
    EXPECT_EQ(settings.MidY, 0);
    EXPECT_EQ(settings.Zoom, 320);
    EXPECT_EQ(settings.Preferences.MWid, 160);
    EXPECT_STREQ(settings.Preferences.Units.Name(), "cm");
    EXPECT_EQ(settings.Preferences.Units.Currency, "EUR");
    EXPECT_EQ(settings.Preferences.Grid.Type, 2);
    EXPECT_EQ(settings.Preferences.Grid.Step, 10);
    EXPECT_TRUE(settings.Room.Points.empty());
    EXPECT_EQ(settings.Preferences.Colours.Background, 0xFFFFFF) << "white";
    EXPECT_EQ(settings.Preferences.Colours.Inactive, 0x808080) << "grey";
    EXPECT_EQ(settings.Preferences.Colours.Rail, 0) << "black";
    EXPECT_EQ(settings.Preferences.Colours.NonOwned, 0x0000FF) << "red, which stands in the lowest byte";
    EXPECT_EQ(settings.Preferences.Colours.Owned, 0xFF0000) << "blue";
    EXPECT_EQ(settings.Preferences.Colours.Active, 0x008000) << "green";
    EXPECT_TRUE(settings.Messages.empty());
    for (const ProductStock& stock : settings.Stock.Products) {
        EXPECT_EQ(stock.OwnedCount, 0);
        EXPECT_EQ(stock.Price, 0);
    }
}

TEST(InitialSettings, AreThoseOfTheFileThatTheInstallationBrings) {
    const TemporaryFolder folder;
    WriteBytes(folder / "corvel.ini", "[Working Directory]\r\n\r\n[Units]\r\nType=1\r\nCurr=GBP\r\n");

    EXPECT_EQ(InitialSettingsBytes(Pieces(), folder / "corvel.ini", "/home/me/Pistaro/"),
              "[Working Directory]\r\n/home/me/Pistaro/\r\n[Units]\r\nType=1\r\nCurr=GBP\r\n");
}

TEST(InitialSettings, OfADamagedFileThatTheInstallationBringsAreRefused) {
    const TemporaryFolder folder;
    WriteBytes(folder / "corvel.ini", "[Units]\r\nType=1\r\n");

    EXPECT_THROW(InitialSettingsBytes(Pieces(), folder / "corvel.ini", "/home/me/Pistaro/"), Fault);
}

TEST(Settings, DamagedAtRandomAreReadOrRefusedAndSoIsTheirRewriting) {
    const auto seed = std::random_device{}();
    std::mt19937 random(seed);
    Settings others = InitialSettings(Pieces());
    others.Room.Points = {{1, 2, 1}};
    int readable = 0;
    int refused = 0;
    for (int i = 0; i < 1500; ++i) {
        const std::string bytes = Damaged(InitialFile, random);
        SCOPED_TRACE("seed " + std::to_string(seed) + ", file " + std::to_string(i));
        try {
            ASSERT_LE(Parsed(bytes).Room.Points.size(), 20U);
            ++readable;
        } catch (const Fault& fault) {
            ++refused;
            ASSERT_NE(std::string(fault.what()).find(": corvel.ini, line "), std::string::npos) << fault.what();
        }
        try {
            ReplaceSections(bytes, "corvel.ini", AllSections(others));
        } catch (const Fault& fault) {
            ASSERT_NE(std::string(fault.what()).find(": corvel.ini, line "), std::string::npos) << fault.what();
        }
    }
    EXPECT_GT(readable, 100);
    EXPECT_GT(refused, 100);
}

} // namespace
} // namespace pistaro
