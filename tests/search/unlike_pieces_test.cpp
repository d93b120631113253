// Which pieces of a circuit are not as in another one.
#include "search/unlike_pieces.h"

#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

std::vector<int> Unlike(const char* circuit, const char* other) {
    return PiecesUnlike(Pieces(), RowsOf(circuit), RowsOf(other));
}

TEST(PiecesUnlike, AreThoseThatWereExchanged) {
    EXPECT_EQ(Unlike("C160 C160 C151R C151R C8006 C151R C151R C160 C160 C151R", //
                     "C160 C160 C151R C151R C160 C151R C151R C160 C160 C151R"),
              std::vector<int>{4});
}

TEST(PiecesUnlike, AreSpecialPiecesInOtherPlacesButNotThePlainOnesBetweenThem) {
    EXPECT_EQ(Unlike("C8006 C160 C151R C160 C8006 C151R C160", "C160 C8006 C151R C160 C160 C151R C8006"),
              (std::vector<int>{0, 1, 4, 6}));
}

TEST(PiecesUnlike, AreNoneWhereALapBeginsElsewhere) {
    EXPECT_EQ(Unlike("C151R C160 C160 C159 C151R C151L C158", "C159 C151R C151L C158 C151R C160 C160"),
              std::vector<int>{});
}

TEST(PiecesUnlike, AreAllWhereOnlyShortRunsAreTheSame) {
    EXPECT_EQ(Unlike("C160 C160 C160 C160 C160 C151R", "C160 C160 C160 C160 C160 C151L"),
              (std::vector<int>{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(Unlike("C160", ""), std::vector<int>{0});
}

} // namespace
} // namespace pistaro
