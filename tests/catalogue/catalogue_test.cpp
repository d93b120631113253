// The catalogue's rows and lane lengths.
#include "catalogue/catalogue.h"

#include "catalogue/track_geometry.h"

#include <gtest/gtest.h>

#include <string>

namespace pistaro {
namespace {

const CatalogueEntry& EntryOf(const Catalogue& catalogue, std::string_view code) {
    return Entry(catalogue, FindRow(catalogue, code));
}

struct ExpectedLanes {
    const char* Code;
    double Lane1, Lane2;
};

TEST(Catalogue, LaneLengthsAreThoseOfThePieces) {
    const ExpectedLanes expected[] = {
        {"C151L", 20.106, 26.311},
        {"C151R", 26.311, 20.106},
        {"C152L", 7.933, 14.137},
        {"C152R", 14.137, 7.933},
        {"C153L", 19.242, 16.140},
        {"C153R", 16.140, 19.242},
        {"C154L", 13.155, 10.053},
        {"C154R", 10.053, 13.155},
        {"C156L", 14.137, 7.933},
        {"C156R", 7.933, 14.137},
        {"C157", 7.65625, 7.65625},
        {"C158", 8.75, 8.75},
        {"C159", 17.5, 17.5},
        {"C160", 35, 35},
        {"C187L", 34.348, 26.075},
        {"C187R", 26.075, 34.348},
        {"N10102", 40, 40},
        {"N10103", 20, 20},
        {"N10104", 10, 10},
        {"N10105L", 21.991, 29.452},
        {"N10105R", 29.452, 21.991},
        {"N10106L", 8.247, 15.708},
        {"N10106R", 15.708, 8.247},
        {"N10107L", 35.736, 43.197},
        {"N10107R", 43.197, 35.736},
        {"N10108L", 49.480, 56.941},
        {"N10108R", 56.941, 49.480},
        {"N10110", 20, 20},
        {"C164", 35, 35},
        {"C248", 35, 35},
        {"C8005", 36, 36},
        {"C8006", 37, 37},
        {"C8007", 35.5, 35.5},
        {"C8009", 35, 35},
        {"C277", 17.5, 17.5},
        {"C367", 17.5, 17.5},
        {"C8010L", 22.227, 24.190},
        {"C8010R", 24.190, 22.227},
        {"N10111", 42.5, 42.5},
    };
    static_assert(std::size(expected) == CatalogueCount);

    const Catalogue catalogue = InitCatalogue();

    for (std::size_t row = 0; row < CatalogueCount; ++row) {
        EXPECT_EQ(catalogue[row].Code, expected[row].Code) << "row " << row;
        EXPECT_NEAR(catalogue[row].LaneLength1, expected[row].Lane1, 0.0006) << expected[row].Code;
        EXPECT_NEAR(catalogue[row].LaneLength2, expected[row].Lane2, 0.0006) << expected[row].Code;
    }
}

TEST(Catalogue, RowsBehindTheLastPieceAreEmpty) {
    const Catalogue catalogue = InitCatalogue();

    ASSERT_EQ(catalogue.size(), 51U);
    for (std::size_t row = CatalogueCount; row < catalogue.size(); ++row)
        EXPECT_EQ(catalogue[row].Code, "") << row;
    EXPECT_EQ(FindRow(catalogue, ""), -1) << "no search may run past the last piece";
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
        const int row = FindRow(catalogue, code);
        EXPECT_EQ(Entry(catalogue, row).StockIndex, row - 1) << code;
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

TEST(Catalogue, NamesAreThoseOfTheProducts) {
    const Catalogue catalogue = InitCatalogue();

    EXPECT_EQ(EntryOf(catalogue, "C151L").ShortName, "std left crv");
    EXPECT_EQ(EntryOf(catalogue, "C151L").LongName, "standard curve 45°");
    EXPECT_EQ(EntryOf(catalogue, "N10110").LongName, "Corvel/Ninco convert");
    EXPECT_EQ(EntryOf(catalogue, "C8010R").ShortName, "chicane ext rght crv");
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
