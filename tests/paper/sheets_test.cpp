#include "paper/paper_size.h"
#include "paper/sheets.h"
#include "support/chain.h"
#include "support/fault_of.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

CircuitDrawing Drawing(const std::string& codes, const DrawnParts& parts = {}) {
    return DrawingOf(Pieces(), ProjectOf(codes), parts);
}

/// So many standard straights in a row, upwards.
std::string Row(int count) {
    std::string codes;
    for (int i = 0; i < count; ++i)
        codes += "C160 ";
    return codes;
}

std::string NamesOf(const SheetPlan& plan) {
    std::string names;
    for (const Sheet& sheet : plan.Sheets)
        names += (names.empty() ? "" : " ") + sheet.Name;
    return names;
}

TEST(Paper, IsFoundByItsNameInAnyCase) {
    EXPECT_EQ(FindPaper("a4")->Height, 29.7);
    EXPECT_EQ(FindPaper("LETTER")->Width, 21.59);
    EXPECT_FALSE(FindPaper("A9"));
    EXPECT_EQ(PaperNames(), "A5, A4, A3, A2, A1, A0, Letter, Legal");
}

TEST(ASingleSheet, LiesAsTheDrawingIsLargerOnIt) {
    const SheetPlan high = PlanSheets(Drawing(Row(4)), {.Paper = PaperA4}); // 15.5 x 140
    Project project = ProjectOf(Row(4));
    project.Design.Circuit.Tracks[0].TrackStartHeading = 1.5707963F;
    const SheetPlan wide = PlanSheets(DrawingOf(Pieces(), project, {}), {.Paper = PaperA4});

    EXPECT_EQ(high.Width, 21);
    EXPECT_EQ(high.Height, 29.7);
    EXPECT_EQ(high.ScaleText(), "1:5.4") << "140 cm on 26.1 cm, rounded up";
    EXPECT_EQ(wide.Width, 29.7);
    EXPECT_EQ(wide.ScaleText(), "1:5.1") << "140 cm on 27.7 cm";
}

TEST(ASingleSheet, IsNeverLargerThanLife) {
    EXPECT_EQ(PlanSheets(Drawing("C160"), {.Paper = FindPaper("A0")}).Scale, 1);
}

TEST(ASingleSheet, ShowsTheDrawingInItsMiddleAtTheScaleThatIsAskedFor) {
    const SheetPlan plan = PlanSheets(Drawing(Row(4)), {.Scale = 10, .Paper = PaperA4, .Header = false});

    ASSERT_EQ(plan.Sheets.size(), 1U);
    const Box& part = plan.Sheets[0].Part;
    EXPECT_NEAR(part.Width(), 190, 1e-9);
    EXPECT_NEAR(part.Height(), 277, 1e-9);
    EXPECT_NEAR(part.MiddleX(), 7.75, 1e-4);
    EXPECT_NEAR(part.MiddleY(), 70, 1e-4);
}

TEST(ASingleSheet, ThatIsTooSmallIsRefusedWithWhatWouldDo) {
    EXPECT_EQ(FaultOf([] { PlanSheets(Drawing(Row(4)), {.Scale = 2, .Paper = PaperA4}); }),
              "Paper too small: at 1:2 the drawing does not fit on A4; on one sheet it takes 1:5.4, else tiles");
}

TEST(ASheetWithoutPaper, IsAsLargeAsTheDrawingWithItsMargins) {
    const SheetPlan plan = PlanSheets(Drawing(Row(4)), {.Scale = 10, .Header = false});

    EXPECT_NEAR(plan.Width, 3.55, 1e-5);
    EXPECT_NEAR(plan.Height, 16, 1e-5);
}

TEST(Tiles, AreNamedByColumnAndRowFromTheTopLeft) {
    // A4 leaves 18 x 25.1 cm of a tile: 15.5 x 70 cm take three rows of one column.
    const SheetPlan plan = PlanSheets(Drawing(Row(2)), {.Scale = 1, .Tiles = true});

    EXPECT_EQ(NamesOf(plan), "A1 A2 A3");
    EXPECT_NEAR(plan.Sheets[0].Cell.Height(), 25.1, 1e-9);
    EXPECT_NEAR(plan.Sheets[0].Cell.Bottom, plan.Sheets[1].Cell.Top, 1e-9);
    EXPECT_NEAR(plan.Sheets[0].Part.Bottom, plan.Sheets[1].Part.Top - 1, 1e-9) << "an overlap of one cm";
    EXPECT_NEAR(plan.Sheets[0].Cell.Top - plan.Sheets[2].Cell.Bottom, 75.3, 1e-9);
}

TEST(Tiles, KnowWhichOneLiesBesideThem) {
    const SheetPlan plan = PlanSheets(Drawing(Row(3) + "C151L C151L " + Row(3)), {.Scale = 1, .Tiles = true});
    const auto beside = [&](std::size_t sheet, int right, int below) {
        const Sheet* const found = plan.Beside(plan.Sheets[sheet], right, below);
        return found == nullptr ? "none" : found->Name;
    };

    EXPECT_EQ(beside(0, 1, 0), "B1");
    EXPECT_EQ(beside(0, -1, 0), "none");
    EXPECT_EQ(beside(0, 0, 1), "none") << "A2 holds nothing";
    EXPECT_EQ(beside(8, 0, -1), "G1") << "of G2";
    EXPECT_EQ(beside(8, 1, 0), "H2");
    EXPECT_EQ(beside(13, 0, 1), "none") << "below the last";
}

TEST(Sheets, GuideWhereThatIsAskedForOrSeveralTilesLieSideBySide) {
    EXPECT_FALSE(PlanSheets(Drawing("C160"), {.Paper = PaperA4}).Guides);
    EXPECT_TRUE(PlanSheets(Drawing("C160"), {.Paper = PaperA4, .Guides = true}).Guides);
    EXPECT_TRUE(PlanSheets(Drawing("C160"), {.Scale = 1, .Tiles = true}).Guides);
    EXPECT_FALSE(PlanSheets(Drawing("C160"), {.Scale = 5, .Tiles = true}).Guides) << "one tile";
}

TEST(Tiles, ThatHoldNothingAreLeftOut) {
    // An L of straights: up, then to the left.
    const SheetPlan plan = PlanSheets(Drawing(Row(3) + "C151L C151L " + Row(3)), {.Scale = 1, .Tiles = true});

    const std::string names = " " + NamesOf(plan) + " ";
    EXPECT_NE(names.find(" A1 "), std::string::npos);
    EXPECT_EQ(names.find(" A5 "), std::string::npos) << names;
    EXPECT_EQ(names, " A1 B1 C1 D1 E1 F1 G1 H1 G2 H2 H3 H4 H5 H6 ");
}

TEST(Tiles, HoldNumbersWhereTheyAreDrawn) {
    const std::size_t bare = PlanSheets(Drawing("C160"), {.Scale = .1, .Tiles = true}).Sheets.size();
    const std::size_t numbered =
        PlanSheets(Drawing("C160", {.Numbers = true}), {.Scale = .1, .Tiles = true}).Sheets.size();

    EXPECT_EQ(numbered, bare + 1);
}

TEST(Tiles, WithWallsAloneAreLeftOutAndCountedWhereTheyAreNotWished) {
    Project project = ProjectOf("C160"); // 15.5 x 35 cm: two tiles of 18 x 25.1
    project.Design.Room.Points = {{0, 0, 0}, {72, 0, 1}};
    const CircuitDrawing drawing = DrawingOf(Pieces(), project, {.Room = true});
    const auto plan = [&](bool wallTiles) {
        return PlanSheets(drawing,
                          {.Scale = 1, .Orientation = Orientation::Portrait, .Tiles = true, .WallTiles = wallTiles});
    };

    EXPECT_EQ(NamesOf(plan(true)), "A1 A2 B2 C2 D2");
    EXPECT_EQ(plan(true).LeftOut, 0U);
    EXPECT_EQ(NamesOf(plan(false)), "A1 A2") << "named as if all were there";
    EXPECT_EQ(plan(false).LeftOut, 3U);
}

TEST(Tiles, OfARoomAloneShowItsWalls) {
    Project project = ProjectOf("");
    project.Design.Room.Points = {{0, 0, 0}, {72, 0, 1}};

    const SheetPlan plan =
        PlanSheets(DrawingOf(Pieces(), project, {.Room = true}),
                   {.Scale = 1, .Orientation = Orientation::Portrait, .Tiles = true, .WallTiles = false});

    EXPECT_EQ(plan.Sheets.size(), 4U);
}

TEST(Tiles, MoreThanTenThousandAreRefused) {
    EXPECT_EQ(FaultOf([] { PlanSheets(Drawing("C160 C160"), {.Scale = .001, .Tiles = true}); }),
              "Too many tiles: at 1:0.001 the drawing would take more than 10000 sheets");
}

TEST(Tiles, OfACircuitAsWideAsARowOfThemTakeNoColumnMore) {
    // Four tiles of A4 upright at 1:1 are 72 cm wide; columns of rounding errors must not appear.
    Project project = ProjectOf("");
    project.Design.Room.Points = {{0, 0, 0}, {72, 0, 1}};
    const CircuitDrawing drawing = DrawingOf(Pieces(), project, {.Room = true});

    const SheetPlan plan = PlanSheets(drawing, {.Scale = 1, .Orientation = Orientation::Portrait, .Tiles = true});

    EXPECT_EQ(NamesOf(plan), "A1 B1 C1 D1");
}

TEST(RoundedScale, IsTheNextThatARulerIsReadAtEasily) {
    EXPECT_EQ(RoundedScale(0.3), 1);
    EXPECT_EQ(RoundedScale(1), 1);
    EXPECT_EQ(RoundedScale(1.1), 1.5);
    EXPECT_EQ(RoundedScale(2.7), 3);
    EXPECT_EQ(RoundedScale(8.1), 10);
    EXPECT_EQ(RoundedScale(10), 10);
    EXPECT_EQ(RoundedScale(10.0001), 15) << "nothing between";
    EXPECT_EQ(RoundedScale(24.9), 25);
    EXPECT_EQ(RoundedScale(23.7), 25);
    EXPECT_EQ(RoundedScale(81), 100);
    EXPECT_EQ(RoundedScale(101), 150);
}

} // namespace
} // namespace pistaro
