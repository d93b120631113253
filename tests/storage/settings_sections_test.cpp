// Sections replaced in a settings file: their own lines and no others.
#include "storage/settings_sections.h"

#include "platform/fault.h"
#include "platform/files.h"
#include "storage/all_sections.h"
#include "storage/settings_file.h"
#include "support/fault_of.h"
#include "support/pieces.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace pistaro {
namespace {

std::string Replaced(const std::string& bytes, const std::vector<Section>& sections) {
    return ReplaceSections(bytes, "corvel.ini", sections);
}

std::string FaultIn(const std::string& bytes, const std::vector<Section>& sections) {
    return FaultOf([&] { Replaced(bytes, sections); });
}

std::string Lines(int count, const std::string& line) {
    std::string lines;
    for (int i = 0; i < count; ++i)
        lines += line + "\r\n";
    return lines;
}

std::ptrdiff_t CountOf(const std::string& bytes, const std::string& word) {
    std::ptrdiff_t count = 0;
    for (std::size_t at = bytes.find(word); at != std::string::npos; at = bytes.find(word, at + 1))
        ++count;
    return count;
}

TEST(ReplaceSections, ReplacesTheView) {
    EXPECT_EQ(Replaced("a\r\n[Settings]\r\n1\r\n2\r\n3\r\n4\r\nb\r\n", {ViewOf(-40, 2.5, 200, 55)}),
              "a\r\n[Settings]\r\nMidX=-40\r\nMidY=2.5\r\nZoom=200\r\nMWid=55\r\nb\r\n");
}

TEST(ReplaceSections, ReplacesUnitsAndGridUnderTheSameFirstKey) {
    EXPECT_EQ(Replaced("[Units]\r\nCurr=0\r\nx\r\n[Grid]\r\n1\r\n2\r\n", {UnitsOf({true, "€"}), GridOf({1, 25})}),
              "[Units]\r\nType=1\r\nCurr=\x80\r\n[Grid]\r\nType=1\r\nStep=25\r\n");
}

TEST(ReplaceSections, ReplacesTheSixColoursInTheirOrder) {
    const ColourScheme colours{1, 2, 3, 4, 16777215, 0};

    EXPECT_EQ(
        Replaced("[Colors]\r\n" + Lines(6, "old") + "kept\r\n", {ColoursOf(colours)}),
        "[Colors]\r\nBackground=1\r\nInactive=2\r\nRail=3\r\nNonOwned=4\r\nOwned=16777215\r\nActive=0\r\nkept\r\n");
}

TEST(ReplaceSections, ReplacesTheLineAfterTheWorkingDirectorysHeader) {
    EXPECT_EQ(Replaced("x\r\n[Working Directory]\r\nC:\\old\\\r\ny\r\n", {WorkingDirectoryOf("C:\\Müll\\")}),
              "x\r\n[Working Directory]\r\nC:\\M\xFCll\\\r\ny\r\n");
}

const RoomPolygon Corner{{{-100, 0, 0}, {100, 0, 1}}, 0.5F};
const std::string CornerLines = " 2 \r\n"
                                "      -100         0    0\r\n"
                                "       100         0    1\r\n"
                                ".5\r\n";

TEST(ReplaceSections, LeavesTheRoomsOldAngleAfterTheNewOne) {
    EXPECT_EQ(Replaced("[Room]\r\n 1 \r\n         5         5    1\r\n.25\r\nnext\r\n", {RoomOf(Corner)}),
              "[Room]\r\n" + CornerLines + ".25\r\nnext\r\n");
}

TEST(ReplaceSections, AddsOneStrayAngleLineToTheRoomWithEachSave) {
    const std::string once = Replaced("[Room]\r\n 0 \r\n.25\r\n", {RoomOf(Corner)});
    const std::string twice = Replaced(once, {RoomOf(Corner)});

    EXPECT_EQ(once, "[Room]\r\n" + CornerLines + ".25\r\n");
    EXPECT_EQ(twice, "[Room]\r\n" + CornerLines + ".5\r\n.25\r\n");
    EXPECT_EQ(ParseSettings(Pieces(), twice, "corvel.ini").Room.Points, Corner.Points) << "which the reader ignores";
}

TEST(ReplaceSections, Drops28ProductLinesAndWrites29) {
    std::vector<double> owned(39);
    owned[0] = 4;
    owned[36] = 2;
    owned[37] = 3;
    owned[38] = 1;

    const std::string replaced =
        Replaced("[My Loose Track]\r\n" + Lines(28, "old=1") + "after\r\n", {LooseTrackOf(Pieces(), owned)});

    EXPECT_EQ(CountOf(replaced, "\r\n"), 1 + 29 + 1);
    EXPECT_TRUE(replaced.starts_with("[My Loose Track]\r\nC151=4\r\nC152=0\r\n"));
    EXPECT_TRUE(replaced.ends_with("C367=0\r\nC8010=2\r\nC8010=3\r\nN10111=1\r\nafter\r\n"));
}

TEST(ReplaceSections, LeavesAProductLineOverWhenItWroteTheSectionBefore) {
    std::vector<double> prices(39);
    prices[38] = 0.75;
    const std::string once = Replaced("[Best Prices]\r\n" + Lines(28, "old=1"), {BestPricesOf(Pieces(), prices)});

    const std::string twice = Replaced(once, {BestPricesOf(Pieces(), prices)});

    EXPECT_EQ(CountOf(once, "\r\n"), 30);
    EXPECT_EQ(CountOf(twice, "\r\n"), 31);
    EXPECT_TRUE(twice.ends_with("N10111=.75\r\nN10111=.75\r\n"));
}

TEST(ReplaceSections, DoesNotAddASectionThatTheFileLacks) {
    EXPECT_EQ(Replaced("[Grid]\r\nType=1\r\nStep=2\r\n", {ColoursOf({})}), "[Grid]\r\nType=1\r\nStep=2\r\n");
    EXPECT_EQ(Replaced("", {ColoursOf({}), GridOf({})}), "");
}

TEST(ReplaceSections, ReplacesASectionThatStandsTwiceAtItsFirstPlaceOnly) {
    EXPECT_EQ(Replaced("[Grid]\r\n1\r\n2\r\n[Grid]\r\n3\r\n4\r\n", {GridOf({2, 10})}),
              "[Grid]\r\nType=2\r\nStep=10\r\n[Grid]\r\n3\r\n4\r\n");
}

TEST(ReplaceSections, LeavesAHeaderAloneThatIsReadAsAnotherSectionsValue) {
    const std::string bytes = "[Settings]\r\n[Grid]\r\nMidY=0\r\nZoom=9\r\nMWid=8\r\n";

    EXPECT_EQ(Replaced(bytes, {GridOf({2, 10})}), bytes);
    EXPECT_EQ(Replaced(bytes + "[Grid]\r\nType=1\r\nStep=1\r\n", {GridOf({2, 10})}),
              bytes + "[Grid]\r\nType=2\r\nStep=10\r\n");
}

TEST(ReplaceSections, DropsNoSectionAfterAnIncompleteOne) {
    const std::string prices = "[Best Prices]\r\n" + Lines(28, "C151=2.5");

    const std::string replaced = Replaced("[My Loose Track]\r\n" + Lines(9, "C160=1") + "\r\n" + prices,
                                          {LooseTrackOf(Pieces(), std::vector<double>(39))});

    EXPECT_EQ(CountOf(replaced, "C160=1\r\n"), 0);
    EXPECT_TRUE(replaced.ends_with("C8010=0\r\nC8010=0\r\nN10111=0\r\n" + prices));
    EXPECT_EQ(Replaced("[Grid]\r\n[Units]\r\n1\r\nDM\r\n", {GridOf({2, 10}), UnitsOf({false, "EUR"})}),
              "[Grid]\r\nType=2\r\nStep=10\r\n[Units]\r\nType=0\r\nCurr=EUR\r\n");
    EXPECT_EQ(Replaced("[Room]\r\n[Grid]\r\n1\r\n2\r\n", {RoomOf({})}), "[Room]\r\n 0 \r\n0\r\n[Grid]\r\n1\r\n2\r\n");
    EXPECT_EQ(Replaced("[Room]\r\n 2 \r\n 5 \r\n[Grid]\r\n1\r\n2\r\n", {RoomOf({})}),
              "[Room]\r\n 0 \r\n0\r\n[Grid]\r\n1\r\n2\r\n");
}

TEST(ReplaceSections, CompletesASectionThatAnEmptyLineEndsAtTheEndOfTheFile) {
    EXPECT_EQ(Replaced("[Colors]\r\nBackground=9\r\n\r\n", {ColoursOf({1, 2, 3, 4, 5, 6})}),
              "[Colors]\r\nBackground=1\r\nInactive=2\r\nRail=3\r\nNonOwned=4\r\nOwned=5\r\nActive=6\r\n");
}

TEST(ReplaceSections, CopiesAllOtherLinesByteForByte) {
    const std::string others = "; caf\xE9 \x81\x8D \t \r\n\r\n[grid]\r\n [Grid]\r\n=\r\n";

    EXPECT_EQ(Replaced(others, {GridOf({1, 1})}), others);
}

TEST(ReplaceSections, EndsEveryLineInCrLf) {
    EXPECT_EQ(Replaced("a\n[Grid]\rx\ny\r\nlast", {GridOf({1, 2})}), "a\r\n[Grid]\r\nType=1\r\nStep=2\r\nlast\r\n");
}

TEST(ReplaceSections, RefusesAFileThatEndsInsideASectionOfTheWriter) {
    EXPECT_EQ(FaultIn("[Grid]\r\nType=1\r\n", {GridOf({})}),
              "Input past end of file: corvel.ini, line 3: a line of [Grid] is missing");
    EXPECT_EQ(FaultIn("[Working Directory]", {WorkingDirectoryOf("x")}),
              "Input past end of file: corvel.ini, line 2: a line of [Working Directory] is missing");
    EXPECT_EQ(FaultIn("[Room]\r\n 2 \r\n\r\n", {RoomOf({})}),
              "Input past end of file: corvel.ini, line 4: a line of [Room] is missing");
    EXPECT_EQ(FaultIn("[Room]\r\n 21 \r\n", {RoomOf({})}),
              "Subscript out of range: corvel.ini, line 2: a room has 0 to 20 points, not 21");
    EXPECT_EQ(FaultIn("[Grid]\r\nType=1\r\n", {ColoursOf({})}), "no fault") << "the section is another writer's";
}

TEST(ReplaceSections, EverySectionReadsBackAsWritten) {
    Settings settings = InitialSettings(Pieces());
    settings.Preferences.WorkingDirectory = "/srv/tracks/";
    settings.MidX = 7.25F;
    settings.Zoom = 123.5;
    settings.Preferences.Units = {true, "£"};
    settings.Preferences.Grid = {1, 5};
    settings.Room = Corner;
    settings.Preferences.Colours.Active = 77;
    settings.Stock.Of(13) = {12, 2.5F};

    const Settings read = ParseSettings(
        Pieces(), Replaced(InitialSettingsBytes(Pieces(), "", "/old/"), AllSections(settings)), "corvel.ini");

    EXPECT_EQ(read.Preferences.WorkingDirectory, "/srv/tracks/");
    EXPECT_EQ(read.MidX, 7.25F);
    EXPECT_EQ(read.Zoom, 123.5);
    EXPECT_TRUE(read.Preferences.Units.Inches);
    EXPECT_EQ(read.Preferences.Units.Currency, "£");
    EXPECT_EQ(read.Preferences.Grid.Step, 5);
    EXPECT_EQ(read.Room.Points, Corner.Points);
    EXPECT_EQ(read.Room.Angle, 0.5F);
    EXPECT_EQ(read.Preferences.Colours.Active, 77);
    EXPECT_EQ(read.Stock[13].OwnedCount, 12);
    EXPECT_EQ(read.Stock[13].Price, 2.5F);
}

TEST(RewriteSettings, ReplacesTheFileOnDiskOrLeavesItAsItWas) {
    const TemporaryFolder folder;
    const auto file = folder / "corvel.ini";
    WriteBytes(file, "[Grid]\r\nType=0\r\nStep=0\r\n");

    RewriteSettings(Pieces(), file, {GridOf({2, 10})});
    EXPECT_EQ(BytesOf(file), "[Grid]\r\nType=2\r\nStep=10\r\n");

    WriteBytes(file, "[Units]\r\n0\r\nCurr=EUR\r\n[Grid]\r\nType=0\r\n");
    EXPECT_THROW(RewriteSettings(Pieces(), file, {GridOf({1, 1})}), Fault);
    EXPECT_EQ(BytesOf(file), "[Units]\r\n0\r\nCurr=EUR\r\n[Grid]\r\nType=0\r\n");
    EXPECT_THROW(RewriteSettings(Pieces(), folder / "none.ini", {GridOf({1, 1})}), Fault);
    EXPECT_FALSE(std::filesystem::exists(folder / "none.ini")) << "the file is never created";
}

TEST(RewriteSettings, RefusesToLeaveAFileThatCouldNotBeReadAgain) {
    const TemporaryFolder folder;
    const auto file = folder / "corvel.ini";
    const std::string headerAsAngle = "[Room]\r\n0\r\n[Colors]\r\n"; // a header of nothing after the new angle
    WriteBytes(file, headerAsAngle);
    ASSERT_NO_THROW(ReadSettings(Pieces(), file));

    EXPECT_EQ(FaultOf([&] { RewriteSettings(Pieces(), file, {RoomOf({})}); }),
              "Input past end of file: " + TextFromPath(file) + ", line 5: Background= is missing");

    EXPECT_EQ(BytesOf(file), headerAsAngle);
}

std::string LineOf(const std::string& folder) { return WorkingDirectoryOf(folder).Lines.at(0); }

TEST(WorkingDirectory, ThatTheCodePageLacksIsWrittenByteByByte) {
    EXPECT_EQ(LineOf("/home/me/Müller €/"), "/home/me/M\xFCller \x80/");
    EXPECT_EQ(LineOf("/日本/"), "/%E6%97%A5%E6%9C%AC/");
    EXPECT_EQ(LineOf("/a\nb\tc\x7F/"), "/a%0Ab%09c%7F/");
    EXPECT_EQ(LineOf("/broken \xC3/"), "/broken %C3/");
    EXPECT_EQ(LineOf("/what?/"), "/what?/");
}

TEST(WorkingDirectory, KeepsAPercentSignUnlessTwoHexadecimalDigitsFollowIt) {
    EXPECT_EQ(LineOf("/100%/50%z/"), "/100%/50%z/");
    EXPECT_EQ(LineOf("/a%20b/%fG/"), "/a%2520b/%fG/");
    EXPECT_EQ(LineOf("/%日/"), "/%%E6%97%A5/");
}

TEST(WorkingDirectory, IsReadBackAsItWasWhateverItHolds) {
    for (const std::string folder :
         {"/home/me/Müller €/", "/日本 🏁/", "/a\nb\tc\x7F/", "/broken \xC3 \xE2\x82/", "/100%/", "/a%20b/%25/%%41%/",
          "/\xC2\x81\xC2\x80/", "/%-1%+1% 1%0x/", "C:\\Bahn\\", "%", ""}) {
        const std::string bytes = Replaced("[Working Directory]\r\nold\r\n", {WorkingDirectoryOf(folder)});

        EXPECT_EQ(ParseSettings(Pieces(), bytes, "corvel.ini").Preferences.WorkingDirectory, folder);
    }
}

TEST(WorkingDirectory, MayBeWrittenInLowerCaseDigitsByOthers) {
    EXPECT_EQ(
        ParseSettings(Pieces(), "[Working Directory]\r\n/%e6%97%a5/\r\n", "corvel.ini").Preferences.WorkingDirectory,
        "/日/");
}

} // namespace
} // namespace pistaro
