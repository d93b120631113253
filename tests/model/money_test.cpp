#include "model/money.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(Money, IsRoundedToTheCent) {
    EXPECT_EQ(CentsOf(2.5F), 250);
    EXPECT_EQ(CentsOf(.75F), 75);
    EXPECT_EQ(CentsOf(12.99F), 1299) << "the single is a little less";
    EXPECT_EQ(CentsOf(0), 0);
}

TEST(Money, HasTwoDecimals) {
    EXPECT_EQ(MoneyText(1250), "12.50");
    EXPECT_EQ(MoneyText(7), "0.07");
    EXPECT_EQ(MoneyText(-205), "-2.05");
    EXPECT_EQ(MoneyText(0), "0.00");
}

TEST(Money, HasItsCurrencysSign) {
    EXPECT_EQ(MoneyText(1250, "EUR"), "12.50 €");
    EXPECT_EQ(MoneyText(1250, "CHF"), "12.50 CHF");
    EXPECT_EQ(MoneyText(1250, ""), "12.50");
}

TEST(Money, IsWrittenAsADesktopDoes) {
    const MoneyMarks german{",", "."};
    EXPECT_EQ(MoneyText(1250, german), "12,50");
    EXPECT_EQ(MoneyText(99999, german), "999,99");
    EXPECT_EQ(MoneyText(123456789, german), "1.234.567,89");
    EXPECT_EQ(MoneyText(-123456, german), "-1.234,56");
    EXPECT_EQ(MoneyText(-12345, german), "-123,45");
    EXPECT_EQ(MoneyText(1250, "EUR", german), "12,50 €");
    EXPECT_EQ(MoneyText(123456, "EUR"), "1234.56 €");
}

TEST(Money, BeyondAllPricesStaysANumber) { EXPECT_EQ(CentsOf(3e38F), 100'000'000'000'000); }

} // namespace
} // namespace pistaro
