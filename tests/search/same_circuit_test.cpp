// Alike: turned, mirrored, run backwards, started elsewhere.
#include "search/same_circuit.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

std::vector<int> Key(const std::string& codes) { return CircuitKey(Pieces(), RowsOf(codes)); }

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

} // namespace
} // namespace pistaro
