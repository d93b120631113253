#include "text/fixed_text.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(FixedText, HasAsManyDecimalsAsItIsAskedFor) {
    EXPECT_EQ(FixedText(12.5, 2), "12.50");
    EXPECT_EQ(FixedText(0.056, 1), "0.1");
    EXPECT_EQ(FixedText(-3.25, 0), "-3");
}

TEST(FixedText, HasNoMinusBeforeAZero) {
    EXPECT_EQ(FixedText(-0.001, 2), "0.00");
    EXPECT_EQ(FixedText(-0.006, 2), "-0.01");
}

TEST(FixedText, TakesTheLargestNumbers) { EXPECT_EQ(FixedText(1e308, 2).size(), 312U); }

} // namespace
} // namespace pistaro
