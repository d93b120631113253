// Words and lines of scripts.
#include "cli/script_words.h"
#include "platform/fault.h"

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
    for (std::string line; NextScriptLine(script, line);)
        lines.push_back(line);

    EXPECT_EQ(lines, (Words{"a", "b", "c", "d", "", "", "", "e"}));
}

} // namespace pistaro
