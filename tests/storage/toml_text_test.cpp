// What is looked at before the TOML library reads a text.
#include "storage/toml_text.h"

#include "support/fault_of.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

std::string FaultIn(const std::string& text) {
    return FaultOf([&] { CheckTomlText(text, "sets.toml"); });
}

TEST(TomlText, HasLettersOutsideAsciiInQuotationMarksAndComments) {
    EXPECT_EQ(FaultIn(""), "no fault");
    EXPECT_EQ(FaultIn("\xEF\xBB\xBFname = \"λ\" # λ"), "no fault");
    EXPECT_EQ(FaultIn("name = 'λ' # \"\nprice = '\\' # λ"), "no fault");
    EXPECT_EQ(FaultIn("name = \"\" # λ\nname = \"\\\"λ\""), "no fault");
    EXPECT_EQ(FaultIn("name = \"\"\"a\nλ \"\" λ\"\"\"\"\" # λ"), "no fault");
    EXPECT_EQ(FaultIn("name = '''a\nλ\\'''# λ"), "no fault");
    EXPECT_EQ(FaultIn("name = \"\"\"\\\\λ \\\n  a λ\"\"\""), "no fault");
}

TEST(TomlText, IsRefusedWhereALetterOutsideAsciiStandsElsewhere) {
    const std::string outside = ": a letter outside ASCII stands outside quotation marks";

    EXPECT_EQ(FaultIn("\xCE\xBB"), "Bad file format: sets.toml, line 1" + outside);
    EXPECT_EQ(FaultIn("# λ\r\nnameλ = 1"), "Bad file format: sets.toml, line 2" + outside);
    EXPECT_EQ(FaultIn("name = \"\"λ"), "Bad file format: sets.toml, line 1" + outside);
    EXPECT_EQ(FaultIn("name = \"\"\"a\n\"\"\"\"\"\"λ\""), "no fault");
    EXPECT_EQ(FaultIn("name = \"\"\"a\n\"\"\"\"\"\nλ\""), "Bad file format: sets.toml, line 3" + outside);
    EXPECT_EQ(FaultIn("name = '''a\n'' '''λ"), "Bad file format: sets.toml, line 2" + outside);
    EXPECT_EQ(FaultIn("name = '\\'λ"), "Bad file format: sets.toml, line 1" + outside);
    EXPECT_EQ(FaultIn("name = \"a\nλ = 1"), "Bad file format: sets.toml, line 2" + outside);
    EXPECT_EQ(FaultIn("\xEF\xBB\xBF\xEF\xBB\xBF"), "Bad file format: sets.toml, line 1" + outside);
}

TEST(TomlText, IsRefusedWhereALetterOutsideAsciiFollowsABackslash) {
    const std::string after = ": a letter outside ASCII follows a backslash";

    EXPECT_EQ(FaultIn("name = \"\"\"\\λ\"\"\""), "Bad file format: sets.toml, line 1" + after);
    EXPECT_EQ(FaultIn("name = \"\"\"\\ \n\n λ\"\"\""), "Bad file format: sets.toml, line 3" + after);
}

TEST(TomlText, IsRefusedWhereATableHasNoName) {
    const std::string nameless = ": a table wants a name";

    EXPECT_EQ(FaultIn("[set]\n [[ \"set\"]]\n[]\n[[]]\nset = [ #\n]"), "no fault");
    EXPECT_EQ(FaultIn("# a\n [ # B"), "Bad file format: sets.toml, line 2" + nameless);
    EXPECT_EQ(FaultIn("[["), "Bad file format: sets.toml, line 1" + nameless);
    EXPECT_EQ(FaultIn("\n\n[[[set]]]"), "Bad file format: sets.toml, line 3" + nameless);
    EXPECT_EQ(FaultIn("name = \"\"\"\n[ # B\n\"\"\"\n\t[[ =]]"), "Bad file format: sets.toml, line 4" + nameless);
}

TEST(TomlText, IsRefusedWhereABraceStandsInPlaceOfAValue) {
    const std::string brace = ": a brace stands where a value belongs";

    EXPECT_EQ(FaultIn("set = [{a=1}, {}, # }\n]"), "no fault");
    EXPECT_EQ(FaultIn("set = [ # a\n }"), "Bad file format: sets.toml, line 2" + brace);
    EXPECT_EQ(FaultIn("set = [1, }"), "Bad file format: sets.toml, line 1" + brace);
}

TEST(TomlText, IsRefusedWhereAWordThatBeginsAsANumberIsNone) {
    const std::string none = ": what begins as a number is none";

    EXPECT_EQ(FaultIn("price = -1.5e-3 # λ\nset=[1,+2,{C151=0x4F}]\n[set-1]\n[[9]]\nname=inf"), "no fault");
    EXPECT_EQ(FaultIn("o=6XX66eX-'\xC8\x88'"), "Bad file format: sets.toml, line 1" + none);
    EXPECT_EQ(FaultIn("name = 'a'\nprice = 6='λ'"), "Bad file format: sets.toml, line 2" + none);
    EXPECT_EQ(FaultIn("price = 6λ"), "Bad file format: sets.toml, line 1" + none);
    EXPECT_EQ(FaultIn("price = 1979-05-27 7 "), "Bad file format: sets.toml, line 1" + none);
    EXPECT_EQ(FaultIn("price = 07:32:00"), "Bad file format: sets.toml, line 1" + none);
}

TEST(TomlText, IsRefusedWhereAKeyHasMoreThanSixteenParts) {
    const std::string tooMany = ": a key of more than 16 parts";

    EXPECT_EQ(FaultIn("a.b.c.d.e.f.g.h.i.j.k.l.m.n.o.p = 1.5\na.b = { c.d = 1.5, e.f = 1.5, g.h = 1.5, i.j = 1.5 , "
                      "k.l = 1.5 , m.n = 1.5, o.p = 1.5, q.r = 1.5 }"),
              "no fault");
    EXPECT_EQ(FaultIn("\na.b.c.d.e.f.g.h.i.j.k.l.m.n.o.p.q = 1"), "Bad file format: sets.toml, line 2" + tooMany);
    EXPECT_EQ(FaultIn("[a.b.c.d.e.f.g.h.i.\"j\".k.l.m.n.o.p.q]"), "Bad file format: sets.toml, line 1" + tooMany);
}

} // namespace
} // namespace pistaro
