#include "editor/piece_list.h"
#include "support/chain.h"
#include "support/fault_of.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

std::string Parsed(std::string_view text) {
    std::string codes;
    for (const std::string& code : ParsePieceList(Pieces(), text))
        codes += (codes.empty() ? "" : " ") + code;
    return codes;
}

TEST(PieceList, CountsNeighboursThatAreAlike) {
    EXPECT_EQ(PieceListText(Codes("C160 C160 C160 C151L C160")), "C160 x3, C151L, C160");
    EXPECT_EQ(PieceListText({}), "");
}

TEST(PieceList, IsReadAsItIsWritten) {
    EXPECT_EQ(Parsed("C160 x3, C151L x2"), "C160 C160 C160 C151L C151L");
    EXPECT_EQ(Parsed("C160 x3, C151L, C160"), "C160 C160 C160 C151L C160");
}

TEST(PieceList, IsReadAsPeopleWriteIt) {
    EXPECT_EQ(Parsed("C160\r\nC151L\nC151R\n"), "C160 C151L C151R");
    EXPECT_EQ(Parsed("c160 C151l;C151r"), "C160 C151L C151R");
    EXPECT_EQ(Parsed("2x C160, 2 C151L"), "C160 C160 C151L C151L");
    EXPECT_EQ(Parsed("2 x C160, C151L x 2"), "C160 C160 C151L C151L");
    EXPECT_EQ(Parsed("C160 ×2 C151L *2"), "C160 C160 C151L C151L");
    EXPECT_EQ(Parsed("C160 x1"), "C160");
}

TEST(PieceList, OfProductsNeedsNoHands) {
    const auto row = [](const char* product) { return Pieces().FindHeadRow(product); };
    EXPECT_EQ(ParseProductList(Pieces(), "8 c151, C160 x2, C151R, C8010, C367"),
              (std::map<int, int>{{row("C151"), 9}, {row("C160"), 2}, {row("C8010"), 1}, {row("C367"), 1}}));
    EXPECT_EQ(FaultOf([] { ParseProductList(Pieces(), "C15"); }), "Type mismatch: \"C15\" is no piece");
}

TEST(PieceList, OfSomethingElseIsRefusedInWords) {
    const auto fault = [](const char* text) { return FaultOf([&] { ParsePieceList(Pieces(), text); }); };
    EXPECT_EQ(fault(""), "Type mismatch: there is no list of pieces such as \"C160 x3, C151L\"");
    EXPECT_EQ(fault("Hello world"), "Type mismatch: \"HELLO\" and \"WORLD\" are no pieces");
    EXPECT_EQ(fault("C160, C151"),
              "Type mismatch: \"C151\" is no piece; it is C151L to the left and C151R to the right");
    EXPECT_EQ(fault("C160 3"), "Type mismatch: a number of pieces stands before no piece");
    EXPECT_EQ(fault("C160 x"), "Type mismatch: a number of pieces stands before no piece");
    EXPECT_EQ(fault("x3 C160"), "Type mismatch: \"X3\" stands behind no piece");
    EXPECT_EQ(fault("C160 x0"), "Overflow: \"X0\" is no number of pieces");
    EXPECT_EQ(fault("C160 x502"), "Overflow: \"X502\" is no number of pieces");
    EXPECT_EQ(fault("C160 x500, C160 x2"), "Subscript out of range: a track holds at most 501 pieces");
}

TEST(PieceList, TellsEachWordThatIsNoPieceOnce) {
    const auto fault = [](const char* text) { return FaultOf([&] { ParsePieceList(Pieces(), text); }); };
    EXPECT_EQ(
        fault("Y1, C160 x2, C151, Y1 x3, Y2"),
        "Type mismatch: \"Y1\", \"C151\" and \"Y2\" are no pieces; C151 is C151L to the left and C151R to the right");
    EXPECT_EQ(fault("A B C D E F G H I"),
              "Type mismatch: \"A\", \"B\", \"C\", \"D\", \"E\", \"F\", \"G\", \"H\" and \"I\" are no pieces");
    EXPECT_EQ(fault("A B C D E F G H I J"),
              "Type mismatch: \"A\", \"B\", \"C\", \"D\", \"E\", \"F\", \"G\", \"H\" and 2 others are no pieces");
    EXPECT_EQ(fault("Y1 x500, C160 x2"), "Type mismatch: \"Y1\" is no piece") << "not that they are too many";
}

TEST(PieceList, MayBeMeantByATextThatNamesAPiece) {
    EXPECT_TRUE(NamesPiece(Pieces(), "hello c160"));
    EXPECT_TRUE(NamesPiece(Pieces(), "C999 x2, C151L"));
    EXPECT_FALSE(NamesPiece(Pieces(), "hello C151"));
    EXPECT_FALSE(NamesPiece(Pieces(), ""));
}

TEST(PastedPieces, AreLaidAtTheEndOfTheCurrentTrackInEitherMode) {
    Project project = ProjectOf("C160 C160", "C157");
    project.EditState.CurrentTrack = 0;
    project.EditState.Select(0);
    project.EditState.InsertMode = true;

    AppendPieces(project.Design, project.EditState, Codes("C151L C151R"));

    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[0]), "C160 C160 C151L C151R");
    EXPECT_EQ(CodesOf(project.Design.Circuit.Tracks[1]), "C157");
    EXPECT_EQ(project.EditState.SelectedElement(), 3);
    EXPECT_TRUE(project.EditState.DataChanged);
}

TEST(PastedPieces, ForWhichThereIsNoRoomAreRefusedAsAWhole) {
    Project project = ProjectOf("C160");
    project.Design.Circuit.Tracks[0].ElementCodes.assign(500, "C160");
    const Project before = project;

    EXPECT_EQ(FaultOf([&] { AppendPieces(project.Design, project.EditState, Codes("C151L C151R")); }),
              "Subscript out of range: a track holds at most 501 pieces");
    EXPECT_TRUE(project == before);
}

} // namespace
} // namespace pistaro
