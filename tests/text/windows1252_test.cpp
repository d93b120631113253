// Between files' 8-bit text and the program's own.
#include "text/windows1252.h"

#include <gtest/gtest.h>

#include <string>

namespace pistaro {
namespace {

TEST(Windows1252, AsciiIsTheSameInBoth) {
    std::string ascii;
    for (int c = 0; c < 0x80; ++c)
        ascii += static_cast<char>(c);

    EXPECT_EQ(Utf8FromWindows1252(ascii), ascii);
    EXPECT_EQ(Windows1252FromUtf8(ascii), ascii);
}

TEST(Windows1252, WesternLettersAreTwoBytesOfUtf8) {
    EXPECT_EQ(Utf8FromWindows1252("standard curve 45\xB0"), "standard curve 45°");
    EXPECT_EQ(Utf8FromWindows1252("M\xFCller \xA3\xE9\xFF"), "Müller £éÿ");
    EXPECT_EQ(Windows1252FromUtf8("Müller £éÿ"), "M\xFCller \xA3\xE9\xFF");
}

TEST(Windows1252, TheSecondBlockHoldsTypographyAndTheEuro) {
    EXPECT_EQ(Utf8FromWindows1252("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"), "€‚ƒ„…†‡ˆ‰Š‹ŒŽ");
    EXPECT_EQ(Utf8FromWindows1252("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"), "‘’“”•–—˜™š›œžŸ");
    EXPECT_EQ(Windows1252FromUtf8("€‚ƒ„…†‡ˆ‰Š‹ŒŽ"), "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E");
    EXPECT_EQ(Windows1252FromUtf8("‘’“”•–—˜™š›œžŸ"), "\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F");
}

TEST(Windows1252, TheFiveUndefinedBytesBecomeTheControlCharactersOfTheirNumber) {
    EXPECT_EQ(Utf8FromWindows1252("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
    EXPECT_EQ(Windows1252FromUtf8("\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D"), "\x81\x8D\x8F\x90\x9D");
}

TEST(Windows1252, EveryByteComesBackUnchanged) {
    std::string bytes;
    for (int c = 0; c < 0x100; ++c)
        bytes += static_cast<char>(c);

    EXPECT_EQ(Windows1252FromUtf8(Utf8FromWindows1252(bytes)), bytes);
}

TEST(Windows1252, ACharacterThatItLacksIsAQuestionMark) {
    EXPECT_EQ(Windows1252FromUtf8("Łódź"), "?\xF3"
                                           "d?");
    EXPECT_EQ(Windows1252FromUtf8("日本 🏁"), "?? ?") << "one each, however many bytes it takes";
    EXPECT_EQ(Windows1252FromUtf8("\xC2\x80"), "?") << "the control character 80 is not the euro";
}

TEST(Windows1252, BrokenUtf8IsAQuestionMarkForEachByte) {
    EXPECT_EQ(Windows1252FromUtf8("a\xC3"), "a?") << "ends inside a character";
    EXPECT_EQ(Windows1252FromUtf8("\xC3z"), "?z");
    EXPECT_EQ(Windows1252FromUtf8("\x80\xBF\xFF\xFE"), "????");
    EXPECT_EQ(Windows1252FromUtf8("\xE2\x82"), "??");
    EXPECT_EQ(Windows1252FromUtf8("\xC0\x8A"), "??") << "a line feed in two bytes is none";
    EXPECT_EQ(Windows1252FromUtf8("\xE0\x80\x8A"), "???");
    EXPECT_EQ(Windows1252FromUtf8("\xF0\x80\x80\x8A"), "????");
}

} // namespace
} // namespace pistaro
