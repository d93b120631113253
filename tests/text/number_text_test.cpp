// How numbers are written and read.
#include "text/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <locale>
#include <random>
#include <string>

namespace pistaro {
namespace {

TEST(NumberText, WholeValuesHaveNoFraction) {
    EXPECT_EQ(NumberText(12.0F), "12");
    EXPECT_EQ(NumberText(-320.0F), "-320");
    EXPECT_EQ(NumberText(100.0), "100");
    EXPECT_EQ(NumberText(32767), "32767");
    EXPECT_EQ(NumberText(-32768), "-32768");
}

TEST(NumberText, FractionsHaveNoLeadingZero) {
    EXPECT_EQ(NumberText(0.25F), ".25");
    EXPECT_EQ(NumberText(-0.5F), "-.5");
    EXPECT_EQ(NumberText(-3.5F), "-3.5");
    EXPECT_EQ(NumberText(0.1), ".1");
}

TEST(NumberText, ASingleHasAtMostSevenSignificantDigits) {
    EXPECT_EQ(NumberText(0.1F), ".1");
    EXPECT_EQ(NumberText(0.78539806F), ".7853981");
    EXPECT_EQ(NumberText(123456.78F), "123456.8");
    EXPECT_EQ(NumberText(6.299999F), "6.299999");
}

TEST(NumberText, ADoubleHasAtMostFifteenSignificantDigits) {
    EXPECT_EQ(NumberText(3.14159235358979), "3.14159235358979");
    EXPECT_EQ(NumberText(0.1 + 0.2), ".3");
    EXPECT_EQ(NumberText(2.0 / 3), ".666666666666667");
}

TEST(NumberText, ASingleIsPlainFromOneTenThousandthToBelowTenMillion) {
    EXPECT_EQ(NumberText(0.0001F), ".0001");
    EXPECT_EQ(NumberText(0.00012345F), ".00012345");
    EXPECT_EQ(NumberText(9999999.0F), "9999999");
    EXPECT_EQ(NumberText(10000000.0F), "1E+07");
    EXPECT_EQ(NumberText(0.00009F), "9E-05");
}

TEST(NumberText, ADoubleIsPlainToBelowAThousandBillion) {
    EXPECT_EQ(NumberText(0.0001), ".0001");
    EXPECT_EQ(NumberText(0.00009), "9E-05");
    EXPECT_EQ(NumberText(999999999999999.0), "999999999999999");
    EXPECT_EQ(NumberText(1e15), "1E+15");
}

TEST(NumberText, RoundingDecidesTheFormBeforeTheLimitsAreLookedAt) {
    EXPECT_EQ(NumberText(999999999999999.9), "1E+15");
    EXPECT_EQ(NumberText(0.000099999999999999999), ".0001");
}

TEST(NumberText, AnExponentHasASignAndAtLeastTwoDigits) {
    EXPECT_EQ(NumberText(1.1920929e-7F), "1.192093E-07");
    EXPECT_EQ(NumberText(-1.5e20F), "-1.5E+20");
    EXPECT_EQ(NumberText(std::numeric_limits<float>::max()), "3.402823E+38");
    EXPECT_EQ(NumberText(1e-300), "1E-300");
    EXPECT_EQ(NumberText(std::numeric_limits<double>::max()), "1.79769313486232E+308");
    EXPECT_EQ(NumberText(std::numeric_limits<float>::denorm_min()), "1.401298E-45");
}

TEST(NumberText, MinusZeroIsZero) {
    EXPECT_EQ(NumberText(-0.0F), "0");
    EXPECT_EQ(NumberText(-0.0), "0");
    EXPECT_EQ(NumberText(0), "0");
}

TEST(NumberText, AValueThatIsNotFiniteIsTold) {
    EXPECT_EQ(NumberText(std::numeric_limits<float>::infinity()), "INF");
    EXPECT_EQ(NumberText(-std::numeric_limits<double>::infinity()), "-INF");
    EXPECT_EQ(NumberText(std::nan("")), "NAN");
}

TEST(NumberText, TheSignPositionOfAPositiveNumberIsBlank) {
    EXPECT_EQ(SignedNumberText(120), " 120");
    EXPECT_EQ(SignedNumberText(-35), "-35");
    EXPECT_EQ(SignedNumberText(0.0F), " 0");
    EXPECT_EQ(SignedNumberText(-0.0F), " 0");
}

struct DecimalComma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
};

TEST(NumberText, TheUsersLocaleIsNothingToIt) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new DecimalComma));

    const std::string written = NumberText(1.5F);
    const double withPoint = ParseNumber("1.5");
    const double withComma = ParseNumber("1,5");

    std::locale::global(before);
    EXPECT_EQ(written, "1.5");
    EXPECT_EQ(withPoint, 1.5);
    EXPECT_EQ(withComma, 1);
}

TEST(NumberText, ReadsBackAsTheValueToItsLastWrittenDigit) {
    const auto seed = std::random_device{}();
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> exponents(-37, 38);
    for (int i = 0; i < 20000; ++i) {
        const auto value = static_cast<float>(std::pow(10.0, exponents(random)) * (random() % 2 == 0 ? 1 : -1));
        const std::string text = NumberText(value);

        const double readBack = ParseNumber(text);

        ASSERT_NEAR(readBack / value, 1, 5.1e-7) << text << ", seed " << seed;
        ASSERT_EQ(NumberText(static_cast<float>(readBack)), text) << "seed " << seed;
    }
}

TEST(ParseNumber, SkipsBlanksAndTabsWhereverTheyStand) {
    EXPECT_EQ(ParseNumber(" 3 "), 3) << "a room point count";
    EXPECT_EQ(ParseNumber("  - 1 2 . 5\t0 "), -12.5);
    EXPECT_EQ(ParseNumber("1 E + 0 2"), 100);
    EXPECT_EQ(ParseNumber("\t\t7"), 7);
}

TEST(ParseNumber, StopsAtTheFirstCharacterThatCannotContinueANumber) {
    EXPECT_EQ(ParseNumber("12abc"), 12);
    EXPECT_EQ(ParseNumber("1.5.3"), 1.5);
    EXPECT_EQ(ParseNumber("3,5"), 3);
    EXPECT_EQ(ParseNumber("4-5"), 4);
    EXPECT_EQ(ParseNumber("2 cm"), 2);
    EXPECT_EQ(ParseNumber("0x10"), 0);
}

TEST(ParseNumber, IsZeroForTextWithNoNumber) {
    for (const char* const text : {"", " ", "cm", "-", "+", ".", "-.", "--5", "+-5", "E5", "D5", ".E3", "inf", "nan"})
        EXPECT_EQ(ParseNumber(text), 0) << '"' << text << '"';
}

TEST(ParseNumber, DigitsMayStandOnOneSideOfThePointAlone) {
    EXPECT_EQ(ParseNumber(".5"), 0.5);
    EXPECT_EQ(ParseNumber("5."), 5);
    EXPECT_EQ(ParseNumber("+.25"), 0.25);
    EXPECT_EQ(ParseNumber("-.5"), -0.5);
}

TEST(ParseNumber, TakesAnExponentWithEOrD) {
    EXPECT_EQ(ParseNumber("1E3"), 1000);
    EXPECT_EQ(ParseNumber("1e-2"), 0.01);
    EXPECT_EQ(ParseNumber("2D+02"), 200);
    EXPECT_EQ(ParseNumber("2.5d1"), 25);
}

TEST(ParseNumber, ReadsNoExponentWithoutDigits) {
    EXPECT_EQ(ParseNumber("7E"), 7);
    EXPECT_EQ(ParseNumber("7E+"), 7);
    EXPECT_EQ(ParseNumber("7Ex"), 7);
}

TEST(ParseNumber, IsInfiniteBeyondADoubleAndZeroBelowIt) {
    EXPECT_EQ(ParseNumber("1E999"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ParseNumber("-1D999"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(ParseNumber("1E99999999999999999999"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ParseNumber(std::string(400, '9')), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ParseNumber("1E-999"), 0);
}

TEST(IsNumber, WantsTheWholeText) {
    EXPECT_TRUE(IsNumber("12"));
    EXPECT_TRUE(IsNumber(" -.5 "));
    EXPECT_TRUE(IsNumber("1D2"));
    for (const char* const text : {"", " ", "12 cm", "1 2", "-", "7E", "1.5.3"})
        EXPECT_FALSE(IsNumber(text)) << '"' << text << '"';
}

TEST(RoundHalfEven, TakesHalvesToTheEvenNeighbour) {
    EXPECT_EQ(RoundHalfEven(0.5), 0);
    EXPECT_EQ(RoundHalfEven(1.5), 2);
    EXPECT_EQ(RoundHalfEven(2.5), 2);
    EXPECT_EQ(RoundHalfEven(-0.5), 0);
    EXPECT_EQ(RoundHalfEven(-1.5), -2);
    EXPECT_EQ(RoundHalfEven(-2.5), -2);
    EXPECT_EQ(RoundHalfEven(2.51), 3);
    EXPECT_EQ(RoundHalfEven(-2.49), -2);
}

TEST(RoundedWithin, GivesWholeNumbersFromTheLeastToTheMostAndNothingElse) {
    EXPECT_EQ(RoundedWithin<std::int16_t>(32767.5), std::nullopt);
    EXPECT_EQ(RoundedWithin<std::int16_t>(32767.4), std::int16_t{32767});
    EXPECT_EQ(RoundedWithin<std::int16_t>(-32768.5), std::int16_t{-32768});
    EXPECT_EQ(RoundedWithin<std::int16_t>(-32769), std::nullopt);
    EXPECT_EQ(RoundedWithin(0.5, 1, 20), std::nullopt);
    EXPECT_EQ(RoundedWithin(20.5, 1, 20), 20);
    EXPECT_EQ(RoundedWithin(20.6, 1, 20), std::nullopt);
    EXPECT_EQ(RoundedWithin<int>(std::numeric_limits<double>::infinity()), std::nullopt);
    EXPECT_EQ(RoundedWithin<int>(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}

TEST(Fields, MoveShortTextsToTheirSide) {
    EXPECT_EQ(RightAligned(" 120", 10), "       120");
    EXPECT_EQ(LeftAligned("C151", 10), "C151      ");
    EXPECT_EQ(RightAligned("", 3), "   ");
    EXPECT_EQ(LeftAligned("", 3), "   ");
}

TEST(Fields, CutLongTextsOnTheOtherSide) {
    EXPECT_EQ(RightAligned("-32768", 5), "32768");
    EXPECT_EQ(RightAligned("12345", 5), "12345");
    EXPECT_EQ(LeftAligned("abcdef", 4), "abcd");
}

TEST(Trimmed, RemovesBlanksAndTabsAtBothEnds) {
    EXPECT_EQ(Trimmed(" \t a b\t "), "a b");
    EXPECT_EQ(Trimmed("  "), "");
}

} // namespace
} // namespace pistaro
