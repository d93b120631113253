#include "search/piece_box.h"

#include "support/pieces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace pistaro {
namespace {

using testing::HasSubstr;

int CountOf(const PieceBox& box, const std::string& code) {
    return box.Counts.at(static_cast<std::size_t>(Pieces().FindRow(code)));
}

std::string Refusal(const std::string& text) {
    try {
        BoxOf(Pieces(), text);
        return "none";
    } catch (const std::invalid_argument& refusal) {
        return refusal.what();
    }
}

TEST(Box, IsWrittenAsProductsAndCounts) {
    const PieceBox box = BoxOf(Pieces(), "C160=8,C151=12,N10110=2");

    EXPECT_EQ(CountOf(box, "C160"), 8);
    EXPECT_EQ(CountOf(box, "C151L"), 12);
    EXPECT_EQ(CountOf(box, "N10110"), 2);
    EXPECT_EQ(box.Total(), 22);
}

TEST(Box, TakesAHandThatIsAProductOfItsOwn) {
    const PieceBox box = BoxOf(Pieces(), "C8010=1,C8010R=2");

    EXPECT_EQ(CountOf(box, "C8010L"), 1);
    EXPECT_EQ(CountOf(box, "C8010R"), 2);
}

TEST(Box, IsReadAgainAsItWasWritten) {
    const PieceBox box = BoxOf(Pieces(), "C160=8,C151=12,C8010=1,C8010R=2");

    EXPECT_EQ(BoxOf(Pieces(), TextOf(Pieces(), box)), box);
}

TEST(Box, RefusesWhatIsNoProduct) {
    for (const char* const text : {"", "C160", "C16=1", "C1600=1", "C151R=2", "c160=1", "C160=1,", ",C160=1", "=1"})
        EXPECT_THAT(Refusal(text), HasSubstr("is no product and its count")) << text;
}

TEST(Box, RefusesWhatIsNoCount) {
    for (const char* const text : {"C160=", "C160=-1", "C160=1.5", "C160=502", "C160=99999999999", "C160=1 "})
        EXPECT_THAT(Refusal(text), HasSubstr("has no count from 0 to 501")) << text;
}

TEST(Box, RefusesAProductNamedTwice) { EXPECT_EQ(Refusal("C160=1,C160=2"), "\"C160=2\" is a product named before"); }

TEST(Box, OfOwnedTrackHoldsTheStock) {
    Stock stock;
    stock.Of(Pieces().FindRow("C160")).OwnedCount = 7;
    stock.Of(Pieces().FindRow("C151L")).OwnedCount = -3; // nobody owns fewer than none

    const PieceBox box = OwnedBox(Pieces(), stock);

    EXPECT_EQ(CountOf(box, "C160"), 7);
    EXPECT_EQ(box.Total(), 7);
}

} // namespace
} // namespace pistaro
