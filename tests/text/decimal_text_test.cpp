#include "text/decimal_text.h"

#include <gtest/gtest.h>

namespace pistaro {

TEST(DecimalText, HasNoMoreDecimalsThanItNeeds) {
    const auto text = [](double value, int decimals) {
        std::string line = "<";
        AppendDecimal(line, value, decimals);
        return line;
    };
    EXPECT_EQ(text(1.25, 4), "<1.25");
    EXPECT_EQ(text(100, 4), "<100");
    EXPECT_EQ(text(100, 0), "<100");
    EXPECT_EQ(text(-2.00004, 4), "<-2");
    EXPECT_EQ(text(-0.00004, 4), "<0");
    EXPECT_EQ(text(0.00006, 4), "<0.0001");
    EXPECT_EQ(text(1e-9, 12), "<0.000000001");
}

} // namespace pistaro
