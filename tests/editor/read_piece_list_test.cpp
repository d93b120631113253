// Lists of pieces as people write them, read for what they mean.
#include "editor/read_piece_list.h"

#include "editor/piece_list.h"
#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

/// "C160 x3, C151L | "XYZ" (line 2)": what is understood, and behind the bar what is not.
std::string Read(std::string_view text) {
    const PieceListReading list = ReadPieceList(Pieces(), text);
    return PieceListText(list.Codes) + (list.NotUnderstood.empty() ? "" : " | " + list.StrangeText());
}

TEST(ReadPieceList, TakesCountsOnEitherSideGluedOrNot) {
    for (const char* const text : {"C160x3",  "C160 x3", "C160 x 3", "C160x 3",  "C160 × 3",  "C160×3", "C160 * 3",
                                   "C160*3",  "3xC160",  "3x C160",  "3 x C160", "3×C160",    "3 C160", "C160 3",
                                   "C160: 3", "C160:3",  "C160 = 3", "C160 (3)", "C160 (x3)", "c160X3"})
        EXPECT_EQ(Read(text), "C160 x3") << text;
    EXPECT_EQ(Read("4xC151L"), "C151L x4");
    EXPECT_EQ(Read("c151l"), "C151L");
}

TEST(ReadPieceList, TakesPiecesPartedByCommasSemicolonsBlanksAndLines) {
    EXPECT_EQ(Read("C160 x3, C151L x2"), "C160 x3, C151L x2");
    EXPECT_EQ(Read("C160 3, C151L 4"), "C160 x3, C151L x4");
    EXPECT_EQ(Read("C160x3; 2 C151L;C151R"), "C160 x3, C151L x2, C151R");
    EXPECT_EQ(Read("C160 x3 C151L x 2 C151R"), "C160 x3, C151L x2, C151R");
    EXPECT_EQ(Read("2 x C160 3 x C151L"), "C160 x2, C151L x3");
    EXPECT_EQ(Read("2 C160 3 C151L"), "C160 x2, C151L x3");
    EXPECT_EQ(Read("C160 2 C151L 3"), "C160 x2, C151L x3");
    EXPECT_EQ(Read("C160\r\nC151L 2\r\n\r\nC151R"), "C160, C151L x2, C151R");
    EXPECT_EQ(Read("C160\rC151L"), "C160, C151L");
    EXPECT_EQ(Read("C160\xC2\xA0x3"), "C160 x3") << "a blank that does not break";
}

TEST(ReadPieceList, PassesBulletsAndEnumerationsOver) {
    EXPECT_EQ(Read("- C160 x3\n* C151L\n• 2x C151R\n– C160"), "C160 x3, C151L, C151R x2, C160");
    EXPECT_EQ(Read("1. C160 x3\n2. C151L\n3) C151R"), "C160 x3, C151L, C151R");
    EXPECT_EQ(Read("[ ] C160\n[x] C151L x2"), "C160, C151L x2");
}

TEST(ReadPieceList, TakesTheNumberBesideThePieceFromARowOfATable) {
    EXPECT_EQ(Read("| Code | Count |\n|---|---|\n| C160 | 3 |\n| C151L | 4 |"), "C160 x3, C151L x4");
    EXPECT_EQ(Read("3\tC160\tstandard straight\t2,50\t7,50"), "C160 x3");
    EXPECT_EQ(Read("C160\tstandard straight\t3"), "C160 x3");
    EXPECT_EQ(Read("C160;3;2,50 €"), "C160 x3");
    EXPECT_EQ(Read("3,C160,\"standard straight\",2.50,7.50"), "C160 x3");
    EXPECT_EQ(Read("C160,3,12,36"), "C160 x3") << "whole prices stand behind it";
}

TEST(ReadPieceList, PassesDescriptionsAndPricesBehindALinesOnlyPieceOver) {
    EXPECT_EQ(Read("C160 x3 standard straight 35 cm"), "C160 x3");
    EXPECT_EQ(Read("3 C160 standard straight 2.50 €"), "C160 x3");
    EXPECT_EQ(Read("C151L standard curve 45°"), "C151L");
    EXPECT_EQ(Read("C160 2,50 €"), "C160") << "no two of it";
}

TEST(ReadPieceList, TakesNoPriceForACount) {
    for (const char* const text : {"C160 3 €", "C160 €5", "C160 5€", "C160 € 5", "C160 3 EUR", "C160 $3", "5 € C160",
                                   "€5 C160", "| C160 | 4 € |", "C160;4 €", "C160 2,50€", "C160, 4 €"})
        EXPECT_EQ(Read(text), "C160") << text;
    EXPECT_EQ(Read("3 C160 4 €"), "C160 x3");
    EXPECT_EQ(Read("C160 x3 4 €"), "C160 x3");
    EXPECT_EQ(Read("C160 3 - 2 €"), "C160 x3");
    EXPECT_EQ(Read("| 3 | C160 | 4 € |"), "C160 x3");
    EXPECT_EQ(Read("C160 3 €, C151L 4 €"), "C160, C151L");
    EXPECT_EQ(Read("C160 3 € 5"), " | \"C160 3 € 5\"") << "either number may be the price";
}

TEST(ReadPieceList, UnderstandsNoRangeOfCounts) {
    for (const char* const text : {"2–3 C160", "2-3 C160", "C160 2…3", "C160 2..3", "C160 2 – 3", "2 - 3 C160"})
        EXPECT_EQ(Read(text), " | \"" + std::string(text) + "\"");
    EXPECT_EQ(Read("C160 – 3"), "C160 x3") << "a dash alone parts them";
}

TEST(ReadPieceList, TakesNoLengthForACount) {
    for (const char* const text :
         {"C160 straight 35x16", "C160 35x16cm", "C160 35×16", "C160 35 cm", "C160 35cm", "C160 35 x 16 cm"})
        EXPECT_EQ(Read(text), "C160") << text;
    EXPECT_EQ(Read("C160 35 x 16"), " | \"C160 35 x 16\"");
    EXPECT_EQ(Read("3 C160 straight 35 x 16 cm"), "C160 x3");
    EXPECT_EQ(Read("C160 x 3 35 cm"), "C160 x3");
}

TEST(ReadPieceList, UnderstandsNothingThatMayBeMeantInSeveralWays) {
    EXPECT_EQ(Read("C160 straight 3"), " | \"C160 straight 3\"");
    EXPECT_EQ(Read("1,7,C160,0,0"), " | \"1,7,C160,0,0\"") << "of which the first may be its place";
    EXPECT_EQ(Read("2 C160 3"), " | \"2 C160 3\"");
    EXPECT_EQ(Read("C160 x0, C151L"), "C151L | \"C160 x0\"");
    EXPECT_EQ(Read("C160 x502, C151L"), "C151L | \"C160 x502\"");
    EXPECT_EQ(Read("C160 x99999999999, C151L"), "C151L | \"C160 x99999999999\"");
}

TEST(ReadPieceList, TellsWhatItDoesNotUnderstandAsItWasWrittenAndWhere) {
    EXPECT_EQ(Read("C160 x3\nC151L\n\nxyz\nc999x2, C151R"),
              "C160 x3, C151L, C151R | \"xyz\" (line 4) and \"c999x2\" (line 5)");
    EXPECT_EQ(Read("Hello, world"), " | \"Hello, world\"");
    EXPECT_EQ(Read("hello c160"), "C160 | \"hello\"");
    EXPECT_EQ(Read("C160, hello"), "C160 | \"hello\"");
    EXPECT_EQ(Read("C160 C999 x2 C151L"), "C160, C151L | \"C999 x2\"");
    EXPECT_EQ(Read("C999 2,50"), " | \"C999 2,50\"");
    EXPECT_EQ(
        Read("A1\nA2\nA3\nA4\nA5\nA6\nA7\nA8\nA9\nA10"),
        " | \"A1\" (line 1), \"A2\" (line 2), \"A3\" (line 3), \"A4\" (line 4), \"A5\" (line 5), \"A6\" (line 6), "
        "\"A7\" (line 7), \"A8\" (line 8) and 2 others");
    EXPECT_EQ(Read(std::string(70, 'y')), " | \"" + std::string(60, 'y') + "…\"");
    EXPECT_EQ(Read(""), "");
}

TEST(ReadPieceList, TellsWhichHandsACodeLacks) {
    const PieceListReading list = ReadPieceList(Pieces(), "C160, c151 x2");

    EXPECT_EQ(list.StrangeText(), "\"c151 x2\"");
    EXPECT_EQ(list.HandText(), "C151 is C151L to the left and C151R to the right");
    EXPECT_EQ(ReadPieceList(Pieces(), "C160").HandText(), "");
    EXPECT_EQ(ReadPieceList(Pieces(), "C151", Hands::Optional).Codes, Codes("C151L"));
}

TEST(ReadPieceList, EndsWhereATrackIsFull) {
    const PieceListReading list = ReadPieceList(Pieces(), "C160 x500, C151L x2, C160");

    EXPECT_TRUE(list.TooMany);
    EXPECT_EQ(list.Codes.size(), 501U);
    EXPECT_FALSE(ReadPieceList(Pieces(), "C160 x501").TooMany);
    EXPECT_FALSE(ReadPieceList(Pieces(), "C160 x501").HasBeyond);
    EXPECT_TRUE(ReadPieceList(Pieces(), "C160 x 502").HasBeyond);
}

} // namespace
} // namespace pistaro
