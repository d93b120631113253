// Characters, whatever bytes they take.
#include "text/utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pistaro {
namespace {

std::vector<char32_t> CharactersOf(std::string_view utf8) {
    std::vector<char32_t> characters;
    while (!utf8.empty())
        characters.push_back(TakeCharacter(utf8));
    return characters;
}

TEST(Utf8, ACharacterTakesOneToFourBytes) {
    std::string text;

    for (const char32_t c : {U'a', U'\u007F', U'\u0080', U'ü', U'\u07FF', U'\u0800', U'€', U'\uFFFF', U'🏁'})
        AppendCharacter(text, c);

    EXPECT_EQ(text, "a\x7F\xC2\x80\xC3\xBC\xDF\xBF\xE0\xA0\x80\xE2\x82\xAC\xEF\xBF\xBF\xF0\x9F\x8F\x81");
    EXPECT_EQ(CharactersOf(text),
              (std::vector<char32_t>{U'a', U'\u007F', U'\u0080', U'ü', U'\u07FF', U'\u0800', U'€', U'\uFFFF', U'🏁'}));
}

TEST(Utf8, EachByteThatBeginsNoCharacterIsABrokenOne) {
    EXPECT_EQ(CharactersOf("\x80z"), (std::vector<char32_t>{BrokenCharacter, U'z'}));
    EXPECT_EQ(CharactersOf("\xE2\x82"), (std::vector<char32_t>{BrokenCharacter, BrokenCharacter}));
    EXPECT_EQ(CharactersOf("\xC0\xAF"), (std::vector<char32_t>{BrokenCharacter, BrokenCharacter}));
    EXPECT_EQ(CharactersOf("\xE0\x80\xAF"), (std::vector<char32_t>{BrokenCharacter, BrokenCharacter, BrokenCharacter}));
}

TEST(Utf8, CharactersAreCountedNotBytes) {
    EXPECT_EQ(CharacterCount(""), 0U);
    EXPECT_EQ(CharacterCount("Prüfung, €"), 10U);
}

TEST(Utf8, TheLastCharactersGoWithAllTheirBytes) {
    EXPECT_EQ(WithoutLastCharacters("club night.trk", 4), "club night");
    EXPECT_EQ(WithoutLastCharacters("Überzüge", 4), "Über");
    EXPECT_EQ(WithoutLastCharacters("a€", 1), "a");
    EXPECT_EQ(WithoutLastCharacters("a€", 3), "");
    EXPECT_EQ(WithoutLastCharacters("", 4), "");
}

} // namespace
} // namespace pistaro
