// Numbers of the documents.
#include "exchange/json.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <random>

namespace pistaro {

TEST(JsonNumbers, AreWrittenWithTheFewestDigits) {
    EXPECT_EQ(Line(Number(0.1F)), "0.1");
    EXPECT_EQ(Line(Number(-44.71753F)), "-44.71753");
    EXPECT_EQ(Line(Number(5.617035F)), "5.617035");
    EXPECT_EQ(Line(Number(0.78539807F)), "0.78539807");
    EXPECT_EQ(Line(Number(1e20F)), "1e+20");
    EXPECT_EQ(Line(Number(2.5)), "2.5");
}

TEST(JsonNumbers, ThatAreWholeHaveNoFraction) {
    EXPECT_EQ(Line(Number(320.0F)), "320");
    EXPECT_EQ(Line(Number(-15.0F)), "-15");
    EXPECT_EQ(Line(Number(-0.0F)), "0");
    EXPECT_EQ(Line(Number(16777216.0F)), "16777216");
}

TEST(JsonNumbers, ThatAreNoNumbersAreNull) {
    EXPECT_EQ(Line(Number(std::numeric_limits<float>::infinity())), "null");
    EXPECT_EQ(Line(Number(std::numeric_limits<float>::quiet_NaN())), "null");
}

TEST(JsonNumbers, ReadBackToTheSameSingle) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> coordinates(-500, 500);
    for (int i = 0; i < 100000; ++i) {
        const float value = coordinates(random);
        const std::string text = Line(Number(value));
        float read = 0;
        std::from_chars(text.data(), text.data() + text.size(), read);
        ASSERT_EQ(read, value) << text;
        ASSERT_LE(text.size(), 15U) << text; // sign, point, nine digits, and zeros of a small one
    }
}

TEST(JsonLines, KeepTheOrderOfTheKeysAndEscapeTexts) {
    EXPECT_EQ(Line({{"z", {1, 2.5, nullptr}}, {"a", "\"\n\xC3\xA4"}, {"e", Json::object()}, {"l", Json::array()}}),
              "{\"z\":[1,2.5,null],\"a\":\"\\\"\\n\xC3\xA4\",\"e\":{},\"l\":[]}");
}

} // namespace pistaro
