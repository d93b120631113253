// A new piece is a row of the table and nothing else: pieces that nobody sells are laid, drawn, counted, priced, listed
// and checked like the others.
#include "commands/session.h"

#include "commands/printed.h"
#include "editor/building.h"
#include "editor/owned_track.h"
#include "editor/status_text.h"
#include "imaging/circuit_picture.h"
#include "imaging/piece_picture.h"
#include "layout/piece_extent.h"
#include "layout/placement.h"
#include "render/redraw.h"
#include "report/guide.h"
#include "stats/design_checks.h"
#include "stats/frames.h"
#include "stats/shopping_list.h"
#include "storage/settings_sections.h"
#include "support/chain.h"
#include "support/recording_surface.h"
#include "support/scripted_prompts.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace pistaro {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr double Eighth = PiValue / 8;

/// A special standard straight on which cars change lanes.
CatalogueEntry OilSlick(int row, int shape) {
    return {.System = TrackSystem::Scalextric,
            .Code = "C999",
            .ShortName = "oil slick",
            .LongName = "made-up oil slick",
            .ShapeIndex = shape,
            .StockIndex = row,
            .LaneLength1 = 36,
            .LaneLength2 = 37.5F,
            .LaneChange = true,
            .Kind = {.Length = 35, .Width = 15.5, .LaneInset = 3.8, .Marks = PieceMarks::CrossedLanes},
            .BoxName = "oil slick track",
            .CountName = "oil slick",
            .Specials = "",
            .Place = 9,
            .VariantPlace = 11};
}

/// A hand of a curve wider than all that are sold: the left one stands in `row` or right before it.
CatalogueEntry WideBend(int row, bool left) {
    const int head = left ? row : row - 1;
    return {.System = TrackSystem::Scalextric,
            .Code = left ? "C998L" : "C998R",
            .ShortName = left ? "wide left crv" : "wide rght crv",
            .LongName = "made-up wide bend",
            .ShapeIndex = head,
            .StockIndex = head,
            .LaneLength1 = left ? 22.0F : 25.0F,
            .LaneLength2 = left ? 25.0F : 22.0F,
            .Kind = {.Shape = left ? PieceShape::LeftCurve : PieceShape::RightCurve,
                     .InnerRadius = 52.8,
                     .OuterRadius = 68.3,
                     .Turn = Eighth,
                     .FirstArcAngle = left ? Eighth : 7 * Eighth,
                     .SwapThreshold = PiValue / 2,
                     .Width = 15.5,
                     .LaneInset = 3.8},
            .BoxName = "wide bend 22.5",
            .CountName = "wide bend",
            .Specials = "",
            .Place = 6};
}

std::vector<CatalogueEntry> RowsWithMadeUpOnes() {
    std::vector<CatalogueEntry> rows = PieceTable();
    const auto next = [&] { return static_cast<int>(rows.size()); };
    const int straight = Catalogue(rows).FindRow("C160");
    rows.push_back(OilSlick(next(), straight));
    rows.push_back(WideBend(next(), true));
    rows.push_back(WideBend(next(), false));
    return rows;
}

class AMadeUpPiece : public testing::Test {
protected:
    const Command* Find(const std::string& id) const { return session_.Commands.Find(id); }
    void Run(const std::string& id) { session_.Run(*Find(id)); }

    void Lay(const std::string& track1, const std::string& track2 = "") {
        session_.Project.Design.Circuit.Tracks[0] = Chain(track1);
        session_.Project.Design.Circuit.Tracks[1] = Chain(track2);
    }

    void Own(const char* code, int count, float price = 0) {
        session_.Project.Stock.Of(pieces_.FindRow(code)) = {static_cast<std::int16_t>(count), price};
    }

    const Circuit& TheCircuit() const { return session_.Project.Design.Circuit; }
    const Stock& TheStock() const { return session_.Project.Stock; }
    std::string Laid() const { return CodesOf(TheCircuit().Tracks[0]); }

    int Used(const char* code) const {
        return CountUsed(pieces_, TheCircuit())[static_cast<std::size_t>(pieces_.FindRow(code))];
    }

    std::vector<Message> Checks() const { return DesignChecks(pieces_, TheStock(), TheCircuit()); }

    /// What is drawn of the first track.
    std::vector<std::string> Drawn() {
        session_.Project.Preferences.Colours = DistinctColours();
        RecordingSurface surface(DistinctColours());
        DrawTracks(pieces_, session_.Project, {.Pieces = true, .Numbers = false}, surface);
        return surface.Lines;
    }

    const Catalogue pieces_{RowsWithMadeUpOnes()};
    ScriptedPrompts user_;
    Session session_{pieces_, user_, ProjectOf(""), {}};
};

const Message OddChangeOvers{Icon::Exclamation, "You have used an uneven number of change-over sections for track 1 !"};
const Message Unused{Icon::Information, "You have not used all your standard straight sized special track"};
const Message BadNincoDesign{Icon::Exclamation, "Check your Ninco track design for track 1 !"};

} // namespace

TEST_F(AMadeUpPiece, OfItsOwnShapeHasAButtonForEachHand) {
    const Command* const left = Find("add C998L");
    const Command* const right = Find("add C998R");
    ASSERT_TRUE(left != nullptr && right != nullptr);
    EXPECT_EQ(Find("add C999"), nullptr) << "a special piece comes by a replacement";

    EXPECT_EQ(left->Control, "cmdElement");
    EXPECT_EQ(left->Tag, "C998L");
    EXPECT_EQ(left->Index, 40);
    EXPECT_EQ(right->Index, 41);
    EXPECT_EQ(left->Caption, "C998");
    EXPECT_EQ(left->Tip, "C998L, made-up wide bend");
}

TEST_F(AMadeUpPiece, IsLaidByItsButton) {
    Run("add C998L");
    Run("add C998R");
    EXPECT_EQ(Laid(), "C998L C998R");

    Run("mirror");
    EXPECT_EQ(Laid(), "C998R C998L");

    Run("system");
    EXPECT_EQ(Find("add C998L")->WhyNot(session_), "Switch to Scalextric track first.");
}

TEST_F(AMadeUpPiece, ReplacesOneOfItsShapeAndIsReplacedByIt) {
    Run("add C160");
    ASSERT_NE(Find("replace C999"), nullptr);
    EXPECT_EQ(Find("replace C999")->Control, "mnuC999");
    EXPECT_EQ(Find("replace C999")->Caption, "C999  made-up oil slick");

    Run("replace C999");
    EXPECT_EQ(Laid(), "C999");
    Run("replace C248");
    EXPECT_EQ(Laid(), "C248");

    Run("add C159");
    EXPECT_EQ(Find("replace C999")->WhyNot(session_), "The selected piece has another shape.");
    EXPECT_EQ(Find("replace C998"), nullptr) << "nothing else has its shape";
}

TEST_F(AMadeUpPiece, StandsInTheMenuByItsPlace) {
    std::vector<std::string> entries;
    for (const Command& command : session_.Commands.Rows()) {
        if (command.Id.starts_with("replace ")) entries.push_back(command.Id.substr(8));
    }

    EXPECT_EQ(entries, Codes("C151 C8010 C159 C160 C164 C248 C277 C367 C8005 C8006 C8007 C8009 C999 N10102 N10111"));
}

TEST_F(AMadeUpPiece, LiesByItsSizes) {
    // Around -52.8, 0 by 22.5 degrees: 52.8 and 68.3 times the cosine (0.923880) and the sine (0.382683).
    const PiecePlacement bend = *PlacePiece(pieces_, "C998L", {}, "");
    EXPECT_NEAR(bend.Exit.CursorX, -4.0192, 1e-3);
    EXPECT_NEAR(bend.Exit.CursorY, 20.2057, 1e-3);
    EXPECT_NEAR(bend.Corners.OtherExit.X, 10.3010, 1e-3);
    EXPECT_NEAR(bend.Corners.OtherExit.Y, 26.1373, 1e-3);
    const PieceExtent extent = ExtentOf(bend);
    EXPECT_NEAR(extent.Left, -4.0192, 1e-3);
    EXPECT_NEAR(extent.Top, 26.1373, 1e-3);

    Lay("C998L C998L C998L C998L C998L C998L C998L C998L C998L C998L C998L C998L C998L C998L C998L C998L");
    EXPECT_EQ(StatusText(pieces_, session_.Project), "Track 1 · 16 pieces · closed");
    Lay("C999 C999");
    EXPECT_EQ(StatusText(pieces_, session_.Project), "Track 1 · 2 pieces · gap 70.0 cm");
}

TEST_F(AMadeUpPiece, HasLanesOfItsOwn) {
    const PiecePlacement slick = *PlacePiece(pieces_, "C999", {}, "");
    ASSERT_EQ(slick.Lanes[0].Path.size(), 1U);
    EXPECT_NEAR(LengthOf(slick.Lanes[0].Path[0]), 35.8805, 1e-3); // 35 along and 7.9 across
    EXPECT_NEAR(LengthOf(slick.Lanes[1].Path[0]), 35.8805, 1e-3);

    const PiecePlacement bend = *PlacePiece(pieces_, "C998R", {}, "");
    EXPECT_EQ(bend.Lanes[0].Side, LaneSide::Right);
    EXPECT_NEAR(LengthOf(bend.Lanes[0].Path[0]), 22.2268, 1e-3); // 56.6 times the turn
    EXPECT_NEAR(LengthOf(bend.Lanes[1].Path[0]), 25.3291, 1e-3); // 64.5
}

TEST_F(AMadeUpPiece, IsDrawnWithLanesAndOutline) {
    Lay("C999");
    EXPECT_THAT(Drawn(),
                ElementsAre("line 3.8,0 11.7,35 rail", "line 11.7,0 3.8,35 rail", "line 0,0 0,35 nonOwned",
                            "line 0,35 15.5,35 nonOwned", "line 15.5,35 15.5,0 nonOwned", "line 15.5,0 0,0 nonOwned"));

    Own("C998L", 1);
    Lay("C998L");
    EXPECT_THAT(Drawn(), ElementsAre("arc -52.8,0 56.6 0..0.393 rail", "arc -52.8,0 64.5 0..0.393 rail",
                                     "arc -52.8,0 52.8 0..0.393 owned", "arc -52.8,0 68.3 0..0.393 owned",
                                     "line 15.5,0 0,0 owned", "line -4.019,20.206 10.301,26.137 owned"));
}

TEST_F(AMadeUpPiece, IsCountedAsItsProductAndWithItsShape) {
    Lay("C999 C160 C999", "C998L C998R C998R");
    Own("C160", 4);
    Own("C999", 1);
    Own("C998L", 5);

    EXPECT_EQ(Used("C999"), 2);
    EXPECT_EQ(Used("C160"), 1);
    EXPECT_EQ(Used("C998L"), 3);
    EXPECT_EQ(Used("C998R"), 0) << "both hands are one product";
    EXPECT_EQ(RemainingPieces(pieces_, TheCircuit(), TheStock(), "C160"), 2) << "4 and 1 less 1 and 2";
    EXPECT_EQ(RemainingPieces(pieces_, TheCircuit(), TheStock(), "C998R"), 2);
    const StockColours colours = AssignStockColours(pieces_, TheStock(), TheCircuit());
    EXPECT_THAT(colours[0], ElementsAre(true, true, false)) << "one C999 is owned";
}

TEST_F(AMadeUpPiece, IsMeasuredAndPriced) {
    Own("C999", 0, 9.5F);
    Own("C998L", 0, 4.25F);
    Own("C160", 0, 2);
    Lay("C999 C160 C998L");

    const auto frames = StatisticsFrames(pieces_, TheStock(), TheCircuit(), session_.Project.Preferences.Units);

    // The lanes are crossed from C999 on: 37.5 + 35 + 25, cut, and 36 + 35 + 22.
    EXPECT_EQ(frames[0].Left, "97");
    EXPECT_EQ(frames[0].Right, "93");
    EXPECT_EQ(frames[0].Price, "15.75");
    EXPECT_EQ(frames[0].Elements, "3");
}

TEST_F(AMadeUpPiece, HasACountLabelAndALineOfTheShoppingList) {
    Own("C999", 1, 9.5F);
    Own("C998L", 0, 4.25F);
    Lay("C999 C999 C999", "C998L C998R");

    const Detail detail = ShowDetail(pieces_, TheStock(), TheCircuit(), AllTracks, false);

    const auto label = [&](const char* product) {
        return *std::ranges::find(detail.Labels, product, &CountLabel::Tag);
    };
    EXPECT_EQ(label("C999").Description, "C999 - oil slick");
    EXPECT_EQ(label("C999").Count, 2);
    EXPECT_EQ(label("C998").Description, "C998 - wide bend");
    EXPECT_EQ(label("C998").Count, 2);
    EXPECT_EQ(detail.TotalPrice, 27.5F);
    const std::string list = ShoppingListBytes(pieces_, TheStock(), session_.Project.Preferences.Units, detail);
    EXPECT_THAT(list, HasSubstr("\r\n    2 x C999  (made-up oil slick)    at 9.5\r\n"
                                "    2 x C998  (made-up wide bend)    at 4.25\r\n"));
}

TEST_F(AMadeUpPiece, IsTalliedByItself) {
    Lay("C999 C160 C998R C998R");

    const StockTally tally = Measure(pieces_, TheStock(), TheCircuit(), 0).Tally;

    EXPECT_EQ(FindTallyRow(tally, "C999")->TrackCount, 1);
    EXPECT_EQ(FindTallyRow(tally, "C998")->TrackCount, 2);
    EXPECT_EQ(FindTallyRow(tally, "C160")->TrackCount, 1);
    EXPECT_EQ(RemainingOwned(pieces_, TheStock(), tally, "C998"), -2);
}

TEST_F(AMadeUpPiece, IsMissedWhereItIsOwnedAndNotUsed) {
    Lay("C160");
    EXPECT_THAT(Checks(), IsEmpty());

    Own("C999", 1);
    EXPECT_THAT(Checks(), ElementsAre(Unused));

    Own("C160", 1);
    EXPECT_THAT(Checks(), IsEmpty()) << "no plain one is missing";
}

TEST_F(AMadeUpPiece, IsMissedByTheNameOfThePlainOneWhoseSpecialsHaveNone) {
    std::vector<CatalogueEntry> rows = RowsWithMadeUpOnes();
    const int plain = pieces_.FindRow("C158");
    rows[static_cast<std::size_t>(pieces_.FindRow("C999"))].ShapeIndex = plain;
    const Catalogue pieces(rows);
    Lay("C158");
    Own("C999", 1);

    EXPECT_THAT(
        DesignChecks(pieces, TheStock(), TheCircuit()),
        ElementsAre(Message{Icon::Information, "You have not used all your quarter straight sized special track"}));
}

TEST_F(AMadeUpPiece, IsCheckedAsTheChangeOverThatItIs) {
    Lay("C999 C160");
    EXPECT_THAT(Checks(), ElementsAre(OddChangeOvers));

    Lay("C999 C8006");
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(AMadeUpPiece, OfTwoHandsOnWhichLanesChangeIsOneChangeOver) {
    std::vector<CatalogueEntry> rows = RowsWithMadeUpOnes();
    for (CatalogueEntry& row : rows)
        row.LaneChange = row.Code.starts_with("C998");
    const Catalogue pieces(rows);
    Lay("C998R");
    EXPECT_THAT(DesignChecks(pieces, TheStock(), TheCircuit()), ElementsAre(OddChangeOvers));

    Lay("C998L C160 C998R");
    EXPECT_THAT(DesignChecks(pieces, TheStock(), TheCircuit()), IsEmpty());
}

TEST_F(AMadeUpPiece, JoinsTheOtherSystemThroughAConverterOnly) {
    Lay("C999 N10102 N10110 C999");
    EXPECT_THAT(Checks(), ElementsAre(BadNincoDesign));

    Lay("C998R N10110 N10102 N10110");
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(AMadeUpPiece, HasABoxAmongTheLooseTrack) {
    std::string curves;
    std::string specials;
    for (const StockBox& box : EmptyStockBoxes(pieces_)) {
        if (box.Frame == StockFrame::ScalextricCurves) curves += box.Tag + " ";
        if (box.Frame == StockFrame::ScalextricSpecialists) specials += box.Tag + " (" + box.Name + ") ";
    }

    EXPECT_EQ(curves, "C151 C154 C152 C156 C153 C187 C998 ");
    EXPECT_THAT(specials, testing::EndsWith("C8010 (curved chicane ext.) C999 (oil slick track) "));
}

TEST_F(AMadeUpPiece, HasALineInTheSettings) {
    std::vector<double> byRow(static_cast<std::size_t>(pieces_.Count()));
    byRow[static_cast<std::size_t>(pieces_.FindRow("C999"))] = 2;
    byRow[static_cast<std::size_t>(pieces_.FindRow("C998L"))] = 4.5;

    for (const Section& section : {LooseTrackOf(pieces_, byRow), BestPricesOf(pieces_, byRow)}) {
        ASSERT_EQ(section.Lines.size(), 31U) << "29 and the two";
        EXPECT_EQ(section.Lines[28], "N10111=0");
        EXPECT_EQ(section.Lines[29], "C999=2");
        EXPECT_EQ(section.Lines[30], "C998=4.5");
    }
}

TEST_F(AMadeUpPiece, HasAPictureInTheGuide) {
    const GuidePictures pictures{.Piece = [](const Project&, std::string_view code) { return std::string(code); },
                                 .Circuit = [](const Project&) { return "layout"; }};
    Lay("C999 C998L");

    const std::vector<GuideFile> files = DrawGuide(pieces_, session_.Project, pictures, {});

    ASSERT_EQ(files.size(), 44U);
    EXPECT_EQ(files[39].Name, "C999.gif");
    EXPECT_EQ(files[39].Bytes, "C999");
    EXPECT_EQ(files[40].Name, "C998L.gif");
    EXPECT_EQ(files[41].Name, "C998R.gif");
    EXPECT_THAT(files[43].Bytes, HasSubstr("C999.gif"));
    EXPECT_THAT(files[43].Bytes, HasSubstr("C998L.gif"));
}

TEST_F(AMadeUpPiece, IsPictured) {
    const OffscreenGraphics graphics;
    const auto picture = [&](const char* code) {
        return PiecePicture(pieces_, code, ViewSettings(), DistinctColours(), PictureFormat::Gif);
    };

    for (const char* const code : {"C999", "C998L", "C998R"})
        EXPECT_THAT(picture(code), StartsWith("GIF8")) << code;
    EXPECT_NE(picture("C998L"), picture("C998R"));
    Lay("C998L");
    const std::string bend = CircuitPicture(pieces_, session_.Project, 100, {}, PictureFormat::Bmp);
    Lay("");
    EXPECT_NE(bend, CircuitPicture(pieces_, session_.Project, 100, {}, PictureFormat::Bmp));
}

} // namespace pistaro
