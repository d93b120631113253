// The file of boxed sets: what it holds, what it refuses.
#include "storage/sets_file.h"

#include "support/fault_of.h"
#include "support/pieces.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::HasSubstr;

BoxedSets Parsed(const std::string& text) { return ParseSets(Pieces(), text, "sets.toml"); }

TEST(SetsFile, HoldsNamesPricesAndPieces) {
    const BoxedSets sets =
        Parsed("[[set]]\nname = \"Büchse\"\nprice = 79.95\npieces = { C160 = 4, C151 = 8, C8010 = 1 }\n"
               "[[set]]\nname = \"two\"\nprice = 10\npieces = {}\n");

    ASSERT_EQ(sets.size(), 2U);
    EXPECT_EQ(sets[0].Name, "Büchse");
    EXPECT_EQ(sets[0].Price, 7995);
    EXPECT_EQ(sets[0].Pieces,
              (std::map<int, int>{
                  {Pieces().FindRow("C151L"), 8}, {Pieces().FindRow("C160"), 4}, {Pieces().FindRow("C8010L"), 1}}));
    EXPECT_EQ(sets[1].Price, 1000);
}

TEST(SetsFile, ReadsBackWhatIsWritten) {
    BoxedSets sets = ExampleSets(Pieces());
    sets[0].Name = "a \"quoted\" \\ name\n";

    EXPECT_EQ(Parsed(SetsText(Pieces(), sets)), sets);
    EXPECT_TRUE(Parsed(SetsText(Pieces(), {})).empty());
}

TEST(SetsFile, IsLookedForBesideTheSettings) {
    const TemporaryFolder folder;
    EXPECT_EQ(SetsBeside(Pieces(), folder / "my.ini"), std::nullopt);

    WriteBytes(folder / "sets.toml", "[[set]]\nname = \"Box\"\nprice = 1\npieces = {}\n");
    EXPECT_EQ(SetsBeside(Pieces(), folder / "my.ini"), (BoxedSets{{"Box", 100, {}}}));

    std::filesystem::remove(folder / "sets.toml");
    std::filesystem::create_directory(folder / "sets.toml");
    EXPECT_THAT(FaultOf([&] { SetsBeside(Pieces(), folder / "my.ini"); }), HasSubstr("sets.toml"));
}

TEST(SetsFile, IsLookedForNowhereWithoutSettings) {
    const std::filesystem::path before = std::filesystem::current_path();
    const TemporaryFolder folder;
    WriteBytes(folder / "sets.toml", "[[set]]\nname = \"Box\"\nprice = 1\npieces = {}\n");
    std::filesystem::current_path(folder.Path());

    const std::optional<BoxedSets> sets = SetsBeside(Pieces(), {});

    std::filesystem::current_path(before);
    EXPECT_EQ(sets, std::nullopt);
}

TEST(SetsFile, TellsTheLineOfAFault) {
    const auto fault = [](const std::string& text) { return FaultOf([&] { Parsed(text); }); };

    EXPECT_EQ(fault("[[set]]\nname = \"a\"\nprice = 1\npieces = { C999 = 1 }"),
              "Bad file format: sets.toml, line 4: \"C999\" is no piece of the catalogue");
    EXPECT_EQ(fault("[[set]]\nname = \"a\"\nprice = -1\npieces = {}"),
              "Bad file format: sets.toml, line 3: a set wants a price from 0 on");
    EXPECT_EQ(fault("\n[[set]]\nprice = 1"), "Bad file format: sets.toml, line 2: a set wants a name");
    EXPECT_EQ(fault("[[set]]\nname = \"a\"\nprice = 1\npieces = { C160 = 1.5 }"),
              "Bad file format: sets.toml, line 4: a count is a whole number from 0 to 10000");
    EXPECT_EQ(fault("[[set]]\nname = \"a\"\ncolour = 1"),
              "Bad file format: sets.toml, line 3: a set has no \"colour\"");
    EXPECT_EQ(fault("[[set]]\nname = \"a\"\nprice = 1\npieces = { C151 = 2, C151L = 1 }"),
              "Bad file format: sets.toml, line 4: \"C151L\" is a product named before");
    EXPECT_EQ(fault("# a\n [ # B"), "Bad file format: sets.toml, line 2: a table wants a name");
    EXPECT_EQ(fault("[["), "Bad file format: sets.toml, line 1: a table wants a name");
    EXPECT_EQ(fault("\n\xCE\xBB = 1"),
              "Bad file format: sets.toml, line 2: a letter outside ASCII stands outside quotation marks");
    EXPECT_EQ(fault("sets = 1"), "Bad file format: sets.toml, line 1: \"sets\" is no [[set]]");
    EXPECT_THAT(fault("[[set]\n"), HasSubstr("Bad file format: sets.toml, line 1: "));
}

} // namespace
} // namespace pistaro
