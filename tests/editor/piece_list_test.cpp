#include "editor/piece_list.h"
#include "support/chain.h"
#include "support/fault_of.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(PieceList, CountsNeighboursThatAreAlike) {
    EXPECT_EQ(PieceListText(Codes("C160 C160 C160 C151L C160")), "C160 x3, C151L, C160");
    EXPECT_EQ(PieceListText({}), "");
}

TEST(PieceList, OfProductsNeedsNoHands) {
    const auto row = [](const char* product) { return Pieces().FindHeadRow(product); };
    EXPECT_EQ(ParseProductList(Pieces(), "8 c151, C160 x2, C151R, C8010, C367"),
              (std::map<int, int>{{row("C151"), 9}, {row("C160"), 2}, {row("C8010"), 1}, {row("C367"), 1}}));
    EXPECT_EQ(FaultOf([] { ParseProductList(Pieces(), "C15"); }), "Type mismatch: \"C15\" is no piece");
}

TEST(PieceList, OfProductsIsRefusedAsAWholeInTheWordsThatWereWritten) {
    const auto fault = [](const char* text) { return FaultOf([&] { ParseProductList(Pieces(), text); }); };
    EXPECT_EQ(fault(""), "Type mismatch: there is no list of pieces such as \"C160 x3, C151L\"");
    EXPECT_EQ(fault("C160, hello"), "Type mismatch: \"hello\" is no piece");
    EXPECT_EQ(fault("c999 x2, C998"), "Type mismatch: \"c999 x2\" and \"C998\" are no pieces");
    EXPECT_EQ(fault("C160 x500, C160 x2"), "Subscript out of range: a track holds at most 501 pieces");
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
