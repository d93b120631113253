// What circuits must have, and what that asks of their box.
#include "search/must_haves.h"

#include "support/pieces.h"
#include "support/stock.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

std::string WhyRareIn(const char* box, const MustHaves& mustHave) {
    return WhyRare(Pieces(), BoxOf(Pieces(), box), mustHave);
}

TEST(MustHaves, ALapCounterIsRareWhereNothingMakesUpForItsHalfStraight) {
    const std::string why = "The lap counter is half a straight, and the box has no second one to lie opposite: add a "
                            "C159, or do without the counter.";
    EXPECT_EQ(WhyRareIn("C151=8,C160=4,C277=1", {.LapCounter = true}), why);
    EXPECT_EQ(WhyRareIn("C151=8,C160=4,C277=1,C159=1", {.LapCounter = true}), "");
    EXPECT_EQ(WhyRareIn("C151=8,C160=4,C277=2", {.LapCounter = true}), "");
    EXPECT_EQ(WhyRareIn("C151=8,C160=4,C277=1,C158=1", {.LapCounter = true}), "") << "a quarter may lead to others";
}

TEST(MustHaves, AreNotRareWithoutALapCounter) {
    EXPECT_EQ(WhyRareIn("C151=8,C160=4,C277=1", {}), "");
    EXPECT_EQ(WhyRareIn("C151=8,C160=4,C277=1", {.Chicane = true}), "");
}

} // namespace
} // namespace pistaro
