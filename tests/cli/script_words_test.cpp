// Words and lines of scripts.
#include "cli/script_words.h"
#include "platform/fault.h"

#include "support/fault_of.h"

#include <gtest/gtest.h>

#include <sstream>

namespace pistaro {

namespace {

using Words = std::vector<std::string>;

} // namespace

TEST(ScriptWords, ArePartedByBlanksAndTabs) {
    EXPECT_EQ(ScriptWords("  add\tC160   C159 "), (Words{"add", "C160", "C159"}));
    EXPECT_EQ(ScriptWords(" \t "), Words{});
}

TEST(ScriptWords, EndWhereAWordBeginsWithANumberSign) {
    EXPECT_EQ(ScriptWords("# all of it"), Words{});
    EXPECT_EQ(ScriptWords("state # now"), Words{"state"});
    EXPECT_EQ(ScriptWords("save a#1.trk"), (Words{"save", "a#1.trk"}));
}

TEST(ScriptWords, InDoubleQuotesKeepBlanksAndNumberSigns) {
    EXPECT_EQ(ScriptWords("load \"# my oval.trk\" # mine"), (Words{"load", "# my oval.trk"}));
    EXPECT_EQ(ScriptWords("load \"\""), (Words{"load", ""}));
    EXPECT_EQ(ScriptWords("load my\" \"oval"), (Words{"load", "my oval"}));
}

TEST(ScriptWords, OfAQuoteThatIsNotClosedAreAFault) { EXPECT_THROW(ScriptWords("load \"x"), Fault); }

TEST(ScriptWords, HoldNoControlCharacters) {
    EXPECT_THROW(ScriptWords("st\x01"
                             "ate"),
                 Fault);
}

TEST(ScriptLines, EndInCrLfLfOrCrOrWithTheScript) {
    std::istringstream script("a\nb\r\nc\rd\n\n\r\r\ne");
    Words lines;
    ScriptLines parted(script, "script.txt");
    for (std::string line; parted.Next(line);)
        lines.push_back(line);

    EXPECT_EQ(lines, (Words{"a", "b", "c", "d", "", "", "", "e"}));
}

TEST(ScriptLines, AreNoMoreThanAFileMayHold) {
    const std::string most((std::size_t{4} << 20) - 1, '#');
    std::string line;
    std::istringstream enough(most + "\n");
    ScriptLines lines(enough, "-");
    EXPECT_TRUE(lines.Next(line));
    EXPECT_FALSE(lines.Next(line));

    std::istringstream tooMuch(most + "\n#");
    ScriptLines more(tooMuch, "-");
    EXPECT_TRUE(more.Next(line));
    EXPECT_EQ(FaultOf([&] { more.Next(line); }), "File too large: -");
}

} // namespace pistaro
