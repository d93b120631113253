// Alike: turned, mirrored, run backwards, started elsewhere.
#include "search/same_circuit.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

std::vector<int> Key(const std::string& codes) { return CircuitKey(Pieces(), RowsOf(codes)); }
std::vector<int> Outline(const std::string& codes) { return OutlineKey(Pieces(), RowsOf(codes)); }

TEST(SameCircuit, MayBeginElsewhere) { EXPECT_EQ(Key("C160 C151L C152R C158"), Key("C152R C158 C160 C151L")); }

TEST(SameCircuit, MayBeMirrored) { EXPECT_EQ(Key("C160 C151L C152R C158"), Key("C160 C151R C152L C158")); }

TEST(SameCircuit, MayRunBackwards) { EXPECT_EQ(Key("C160 C151L C152R C158"), Key("C158 C152L C151R C160")); }

TEST(SameCircuit, MayRunBackwardsAndMirrored) { EXPECT_EQ(Key("C160 C151L C152R C158"), Key("C158 C152R C151L C160")); }

TEST(SameCircuit, MayHaveSpecialPiecesInPlacesOfPlainOnes) {
    EXPECT_EQ(Key("C160 C151L C159"), Key("C8006 C8010L C277"));
}

TEST(SameCircuit, IsNotOneOfOtherPieces) {
    EXPECT_NE(Key("C160 C151L C152R C158"), Key("C160 C151L C152L C158"));
    EXPECT_NE(Key("C160 C151L C152R C158"), Key("C160 C151L C158 C152R"));
    EXPECT_NE(Key("C160 C151L"), Key("C160 C151L C151L"));
}

TEST(SameOutline, DoesNotLookAtTheOrderOfNeighbouringStraights) {
    EXPECT_EQ(Outline("C160 C151L C159 C158 C151R"), Outline("C160 C151L C158 C159 C151R"));
    EXPECT_EQ(Outline("C160 C159 C151L"), Outline("C159 C151L C160"));
    EXPECT_NE(Outline("C160 C151L C159 C151R"), Outline("C159 C160 C151L C151R"));
}

TEST(SameOutline, OfStraightsAloneEndsToo) { EXPECT_EQ(Outline("C160 C159"), Outline("C159 C160")); }

} // namespace
} // namespace pistaro
