// The catalogue's rows, and what is found in them.
#include "catalogue/catalogue.h"

#include "catalogue/track_geometry.h"

#include <gtest/gtest.h>

#include <string>

namespace pistaro {
namespace {

const CatalogueEntry& EntryOf(const Catalogue& catalogue, std::string_view code) {
    return catalogue[catalogue.FindRow(code)];
}

struct ExpectedRow {
    const char* Code;
    TrackSystem System;
    const char *ShortName, *LongName;
    int Shape, Stock;
    double Lane1, Lane2;
    bool LaneChange;
};

constexpr auto Scx = TrackSystem::Scalextric;
constexpr auto Nin = TrackSystem::Ninco;

// clang-format off
const ExpectedRow ExpectedRows[]{
    {"C151L",   Scx, "std left crv",         "standard curve 45°",     0,  0,   20.106,   26.311, false},
    {"C151R",   Scx, "std rght crv",         "standard curve 45°",     0,  0,   26.311,   20.106, false},
    {"C152L",   Scx, "1/2 inner left crv",   "inner curve 45°",        2,  2,    7.933,   14.137, false},
    {"C152R",   Scx, "1/2 inner rght crv",   "inner curve 45°",        2,  2,   14.137,    7.933, false},
    {"C153L",   Scx, "outer left crv",       "outer curve 22.5°",      4,  4,   19.242,   16.140, false},
    {"C153R",   Scx, "outer rght crv",       "outer curve 22.5°",      4,  4,   16.140,   19.242, false},
    {"C154L",   Scx, "1/2 std left crv",     "standard curve 22.5°",   6,  6,   13.155,   10.053, false},
    {"C154R",   Scx, "1/2 std rght crv",     "standard curve 22.5°",   6,  6,   10.053,   13.155, false},
    {"C156L",   Scx, "inner left crv",       "inner curve 90°",        8,  8,   14.137,    7.933, false},
    {"C156R",   Scx, "inner rght crv",       "inner curve 90°",        8,  8,    7.933,   14.137, false},
    {"C157",    Scx, "short strght",         "short straight",        10, 10,  7.65625,  7.65625, false},
    {"C158",    Scx, "1/4 strght",           "quarter straight",      11, 11,     8.75,     8.75, false},
    {"C159",    Scx, "1/2 strght",           "half straight",         12, 12,     17.5,     17.5, false},
    {"C160",    Scx, "std strght",           "standard straight",     13, 13,       35,       35, false},
    {"C187L",   Scx, "banked left crv",      "banked curve 60°",      14, 14,   34.348,   26.075, false},
    {"C187R",   Scx, "banked rght crv",      "banked curve 60°",      14, 14,   26.075,   34.348, false},
    {"N10102",  Nin, "std strght",           "Ninco std straight",    16, 16,       40,       40, false},
    {"N10103",  Nin, "1/2 strght",           "Ninco half straight",   17, 17,       20,       20, false},
    {"N10104",  Nin, "1/4 strght",           "Ninco quarter strt",    18, 18,       10,       10, false},
    {"N10105L", Nin, "std left crv",         "Ninco std curve",       19, 19,   21.991,   29.452, false},
    {"N10105R", Nin, "std rght crv",         "Ninco std curve",       19, 19,   29.452,   21.991, false},
    {"N10106L", Nin, "inner left crv",       "Ninco inner curve",     21, 21,    8.247,   15.708, false},
    {"N10106R", Nin, "inner rght crv",       "Ninco inner curve",     21, 21,   15.708,    8.247, false},
    {"N10107L", Nin, "outer left crv",       "Ninco outer curve",     23, 23,   35.736,   43.197, false},
    {"N10107R", Nin, "outer rght crv",       "Ninco outer curve",     23, 23,   43.197,   35.736, false},
    {"N10108L", Nin, "outmost left crv",     "Ninco outmost curve",   25, 25,   49.480,   56.941, false},
    {"N10108R", Nin, "outmost rght crv",     "Ninco outmost curve",   25, 25,   56.941,   49.480, false},
    {"N10110",  Nin, "conversion",           "Corvel/Ninco convert",  27, 27,       20,       20, false},
    {"C164",    Scx, "rough terrain",        "rough terrain",         13, 28,       35,       35, false},
    {"C248",    Scx, "hump back bridge",     "hump back bridge",      13, 29,       35,       35, false},
    {"C8005",   Scx, "skid chicane",         "skid chicane",          13, 30,       36,       36, false},
    {"C8006",   Scx, "change over section",  "change over track",     13, 31,       37,       37, true},
    {"C8007",   Scx, "std chicane",          "standard chicane",      13, 32,     35.5,     35.5, false},
    {"C8009",   Scx, "std chicane ext",      "chicane extension",     13, 33,       35,       35, false},
    {"C277",    Scx, "lap counter",          "lap counter",           12, 34,     17.5,     17.5, false},
    {"C367",    Scx, "rev start section",    "rev start section",     12, 35,     17.5,     17.5, false},
    {"C8010L",  Scx, "chicane ext left crv", "curved chicane ext.",    0, 36,   22.227,   24.190, false},
    {"C8010R",  Scx, "chicane ext rght crv", "curved chicane ext.",    0, 37,   24.190,   22.227, false},
    {"N10111",  Nin, "change over section",  "Ninco change-over",     16, 38,     42.5,     42.5, true},
};
// clang-format on

TEST(Catalogue, HoldsTheseRowsInThisOrder) {
    const Catalogue catalogue = InitCatalogue();

    ASSERT_EQ(catalogue.Count(), 39);
    ASSERT_EQ(std::size(ExpectedRows), 39U);
    int row = 0;
    for (const ExpectedRow& expected : ExpectedRows) {
        const CatalogueEntry& entry = catalogue[row];
        SCOPED_TRACE("row " + std::to_string(row++));
        EXPECT_EQ(entry.Code, expected.Code);
        EXPECT_EQ(entry.System, expected.System);
        EXPECT_EQ(entry.ShortName, expected.ShortName);
        EXPECT_EQ(entry.LongName, expected.LongName);
        EXPECT_EQ(entry.ShapeIndex, expected.Shape);
        EXPECT_EQ(entry.StockIndex, expected.Stock);
        EXPECT_NEAR(entry.LaneLength1, expected.Lane1, 0.0006);
        EXPECT_NEAR(entry.LaneLength2, expected.Lane2, 0.0006);
        EXPECT_EQ(entry.LaneChange, expected.LaneChange);
    }
}

TEST(Catalogue, NoRowHasAnEmptyCode) {
    EXPECT_EQ(InitCatalogue().FindRow(""), -1);
    EXPECT_EQ(InitCatalogue().Find(""), nullptr);
}

TEST(Catalogue, TheQuarterTurnHasTheLaneLengthsOfTheEighthTurn) {
    const Catalogue catalogue = InitCatalogue();

    EXPECT_EQ(EntryOf(catalogue, "C156L").LaneLength1, EntryOf(catalogue, "C152R").LaneLength1);
    EXPECT_EQ(EntryOf(catalogue, "C156L").LaneLength2, EntryOf(catalogue, "C152R").LaneLength2);
    EXPECT_EQ(EntryOf(catalogue, "C156R").LaneLength1, EntryOf(catalogue, "C152L").LaneLength1);
    EXPECT_EQ(EntryOf(catalogue, "C156R").LaneLength2, EntryOf(catalogue, "C152L").LaneLength2);
}

TEST(Catalogue, TheCurvedChicaneHasAProductForEachHandAndTheStandardCurvesShape) {
    const Catalogue catalogue = InitCatalogue();

    EXPECT_EQ(EntryOf(catalogue, "C8010L").StockIndex, 36);
    EXPECT_EQ(EntryOf(catalogue, "C8010R").StockIndex, 37);
    EXPECT_EQ(EntryOf(catalogue, "C8010L").ShapeIndex, 0);
    EXPECT_EQ(EntryOf(catalogue, "C8010R").ShapeIndex, 0);
}

TEST(Catalogue, TheRightHandOfASymmetricCurveIsCountedUnderItsLeftHand) {
    const Catalogue catalogue = InitCatalogue();

    for (const char* const code :
         {"C151R", "C152R", "C153R", "C154R", "C156R", "C187R", "N10105R", "N10106R", "N10107R", "N10108R"}) {
        const int row = catalogue.FindRow(code);
        EXPECT_EQ(catalogue[row].StockIndex, row - 1) << code;
    }
}

TEST(Catalogue, OnePieceOfEachSystemChangesLanes) {
    std::string changers;

    for (const CatalogueEntry& entry : InitCatalogue()) {
        if (entry.LaneChange) changers += std::string(entry.Code) + " ";
    }

    EXPECT_EQ(changers, "C8006 N10111 ");
    EXPECT_EQ(EntryOf(InitCatalogue(), "N10111").ShapeIndex, 16);
    EXPECT_EQ(EntryOf(InitCatalogue(), "N10111").System, TrackSystem::Ninco);
}

TEST(Catalogue, TheInnerCurvesRadiusAndTheCircleConstantAreTheirOwn) {
    EXPECT_NE(TrackGeometry::InnerCurveInner, 6.3F);
    EXPECT_EQ(PiValue, 3.14159235358979);
    EXPECT_EQ(TrackGeometry::ShortStraight, 7.65625F);
}

TEST(Catalogue, AProductCodeIsTheCodeWithoutItsHand) {
    EXPECT_EQ(ProductCode("C151L"), "C151");
    EXPECT_EQ(ProductCode("C8010R"), "C8010");
    EXPECT_EQ(ProductCode("C160"), "C160");
    EXPECT_EQ(ProductCode(""), "");
}

} // namespace
} // namespace pistaro
