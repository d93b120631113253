#include "ui/typed_number.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

TEST(TypedNumbers, AnAmountIsWrittenWithTheMarksOfItsDesktop) {
    EXPECT_EQ(Amount(123450, QLocale("es_ES")), "1.234,50");
    EXPECT_EQ(Amount(123450, QLocale("pl_PL")), QStringLiteral(u"1\u00A0234,50"));
    EXPECT_EQ(Amount(12345678, QLocale("en_IN")), "123,456.78");
}

TEST(TypedNumbers, EveryAmountThatIsShownCanBeTyped) {
    for (const char* const name : {"C", "en_US", "en_IN", "de_DE", "de_CH", "es_ES", "pl_PL", "pt_PT", "bg_BG", "fr_FR",
                                   "sv_SE", "ar_EG", "hi_IN"}) {
        SCOPED_TRACE(name);
        const QLocale desktop(name);
        EXPECT_EQ(PlainNumber(Amount(7, desktop), desktop), ".07");
        EXPECT_EQ(PlainNumber(Amount(1275, desktop), desktop), "12.75");
        EXPECT_EQ(PlainNumber(Amount(123450, desktop), desktop), "1234.5");
        EXPECT_EQ(PlainNumber(Amount(1234567, desktop), desktop), "12345.67");
        EXPECT_EQ(PlainNumber(Amount(123456789, desktop), desktop), "1234567.89");
        EXPECT_EQ(PlainNumber(Amount(-123450, desktop), desktop), "-1234.5");
    }
}

TEST(TypedNumbers, GroupsMayBeDividedByAnyBlankWhereTheDesktopDividesThemByOne) {
    for (const char* const text : {"1 234,50", "1\u00A0234,50", "1\u202F234,50", "1234,50"})
        EXPECT_EQ(PlainNumber(text, QLocale("pl_PL")), "1234.5");
}

TEST(TypedNumbers, AMarkThatDividesNoWholeGroupsIsNoMarkOfGroups) {
    EXPECT_EQ(PlainNumber("3.50", QLocale("es_ES")), "3.50");
    EXPECT_EQ(PlainNumber("3,50", QLocale("es_ES")), "3.5");
    EXPECT_EQ(PlainNumber("1 23", QLocale("pl_PL")), "1 23");
    EXPECT_EQ(PlainNumber("3,50", QLocale("en_IN")), "3.50");
}

TEST(TypedNumbers, APriceIsANumberFromZeroOnWithAnExampleOfTheDesktop) {
    for (const char* const text : {"", " ", "0", "4.95", "4,95", "4.95 €", "1000000"})
        EXPECT_EQ(WhyNoPrice(text, QLocale::c()), "") << text;
    for (const char* const text : {"1.x9", "-1", "cheap"})
        EXPECT_EQ(WhyNoPrice(text, QLocale::c()), "A price is a number such as 4.95.") << text;
    EXPECT_EQ(WhyNoPrice("x", QLocale("de_DE")), "A price is a number such as 4,95.");
    for (const char* const text : {"1e30", "1000000.01", "99999999"})
        EXPECT_EQ(WhyNoPrice(text, QLocale::c()), "A price is at most 1000000.00.") << text;
    EXPECT_EQ(WhyNoPrice("1000001", QLocale("de_DE")), "A price is at most 1.000.000,00.");
}

TEST(TypedNumbers, ACountIsAWholeNumberThatCanBeSaved) {
    for (const char* const text : {"", "0", "7", "07", "32767"})
        EXPECT_EQ(WhyNoCount(text, MostOwned, QLocale::c()), "") << text;
    for (const char* const text : {"2.5", "-1", "32768", "many"})
        EXPECT_EQ(WhyNoCount(text, MostOwned, QLocale::c()), "A count is a whole number from 0 to 32767.") << text;
}

} // namespace
} // namespace pistaro
