// Names, special pieces, what is left of them, and the search among all pieces.
#include "editor/palette_pieces.h"

#include "support/chain.h"
#include "support/stock.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

std::string CodesOf(const std::vector<int>& rows) {
    std::string codes;
    for (const int row : rows)
        codes += (codes.empty() ? "" : " ") + Pieces()[row].Code;
    return codes;
}

std::string Found(const char* words, TrackSystem inUse = TrackSystem::Scalextric) {
    return CodesOf(FindPieces(Pieces(), words, inUse));
}

std::string Specials(const char* basic) { return CodesOf(SpecialsOf(Pieces(), *Pieces().Find(basic))); }

int Left(const Project& project, const char* code) {
    return LeftInBox(Pieces(), CountUsed(Pieces(), project.Design.Circuit), project.Stock, *Pieces().Find(code));
}

TEST(PalettePieces, TheSearchFindsByCodeNameAndAngle) {
    EXPECT_EQ(Found("chic"), "C8005 C8007 C8009 C8010L C8010R");
    EXPECT_EQ(Found("C80"), "C8005 C8006 C8007 C8009 C8010L C8010R");
    EXPECT_EQ(Found("45"), "C151L C151R C152L C152R C8010L C8010R N10105L N10105R N10106L N10106R");
    EXPECT_EQ(Found("22.5 right"), "C153R C154R N10107R N10108R");
}

TEST(PalettePieces, TheSearchMindsNoCapitalsAndShowsTheSystemInUseFirst) {
    EXPECT_EQ(Found("CHANGE over"), "C8006 N10111");
    EXPECT_EQ(Found("change OVER", TrackSystem::Ninco), "N10111 C8006");
}

TEST(PalettePieces, NoWordAndNoSuchPieceFindNone) {
    EXPECT_EQ(Found("  "), "");
    EXPECT_EQ(Found("tunnel"), "");
}

TEST(PalettePieces, ABasicPieceUnfoldsTheSpecialOnesOfItsShapeAndHand) {
    EXPECT_EQ(Specials("C160"), "C164 C248 C8005 C8006 C8007 C8009");
    EXPECT_EQ(Specials("C159"), "C277 C367");
    EXPECT_EQ(Specials("C151L"), "C8010L");
    EXPECT_EQ(Specials("C151R"), "C8010R");
    EXPECT_EQ(Specials("N10102"), "N10111");
    EXPECT_EQ(Specials("C157"), "");
}

TEST(PalettePieces, ACurvesNameTellsItsAngleInDegrees) {
    EXPECT_EQ(PieceName(*Pieces().Find("C153R")), "outer curve 22.5°");
    EXPECT_EQ(PieceName(*Pieces().Find("C160")), "standard straight");
    EXPECT_EQ(PieceName(*Pieces().Find("N10105L")), "standard curve");
}

TEST(PalettePieces, ASpecialPieceIsCountedAloneAndABasicOneWithItsShape) {
    Project project = ProjectOf("C160 C160 C164");
    SetStock(project, "C160", 5);
    SetStock(project, "C8007", 2);

    EXPECT_EQ(Left(project, "C8007"), 2);
    EXPECT_EQ(Left(project, "C164"), -1);
    EXPECT_EQ(Left(project, "C160"), 4);
}

TEST(WhatIsLeft, IsToBuyWhereNothingIsOwned) {
    Stock stock;
    EXPECT_EQ(LeftText(stock, 0), "0 left");
    EXPECT_EQ(LeftText(stock, -9), "9 to buy");

    stock.Of(3).OwnedCount = 1;
    EXPECT_EQ(LeftText(stock, -9), "−9 left");
    EXPECT_EQ(LeftText(stock, 1), "1 left");
}

} // namespace
} // namespace pistaro
