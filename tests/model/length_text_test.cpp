#include "model/length_text.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(LengthText, IsToldInDisplayUnits) {
    EXPECT_EQ(LengthText(17.46, {}), "17.5 cm");
    EXPECT_EQ(LengthText(2.54, {.Inches = true, .Currency = ""}), "1.00 in");
}

TEST(LengthText, OfALaneGoesToATenthOfAMillimetre) {
    EXPECT_EQ(FineLength(812.357, {}), "812.36");
    EXPECT_EQ(FineLength(254, {.Inches = true, .Currency = ""}), "100.000");
}

} // namespace
} // namespace pistaro
