// The shopping list, byte for byte.
#include "stats/shopping_list.h"

#include "platform/fault.h"
#include "support/chain.h"
#include "support/stock.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace pistaro {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using testing::Throws;

const std::string Head = "SHOPPING LIST\r\n"
                         "-------------\r\n"
                         "\r\n";
const std::string Rule = "                                       -----\r\n";
const std::string Total = "Total                                  ";

/// All pieces of the circuit, owned ones too.
Detail AllPieces(const Project& project) {
    return ShowDetail(Pieces(), project.Stock, project.Design.Circuit, AllTracks, true);
}

std::string ListOf(const Project& project, const Detail& detail, const Catalogue& catalogue = Pieces()) {
    return ShoppingListBytes(catalogue, project.Stock, project.Preferences.Units, detail);
}

std::string ListOf(const Project& project) { return ListOf(project, AllPieces(project)); }

Message WriteList(const Project& project, const Detail& detail) {
    return WriteShoppingList(Pieces(), project.Stock, project.Preferences, detail);
}

TEST(ShoppingList, WithNothingToBuyHasHeadRuleAndTotal) {
    EXPECT_EQ(ListOf(ProjectOf("")), Head + Rule + Total + "0EUR\r\n");
}

TEST(ShoppingList, HasOneLineAProductInCatalogueOrder) {
    Project project = ProjectOf("C160 N10102 C151R C164 C151L");
    SetStock(project, "C151L", 0, 2.5F);
    SetStock(project, "C160", 0, .5F);

    EXPECT_EQ(ListOf(project), Head +
                                   "    2 x C151  (standard curve 45\xB0)   at 2.5\r\n"
                                   "    1 x C160  (standard straight)    at .5\r\n"
                                   "    1 x N10102(Ninco std straight)   at 0\r\n"
                                   "    1 x C164  (rough terrain)        at 0\r\n" +
                                   Rule + Total + "5.5EUR\r\n");
}

TEST(ShoppingList, ACountOf12IsThreeBlanksAnd12) {
    EXPECT_THAT(ListOf(ProjectOf("C160 C160 C160 C160 C160 C160 C160 C160 C160 C160 C160 C160")),
                HasSubstr("\r\n   12 x C160  "));
}

TEST(ShoppingList, TheLargestCountFillsItsColumns) {
    Project project = ProjectOf("");
    project.Design.Circuit.Tracks[0].ElementCodes.assign(32767, "C160");

    EXPECT_THAT(ListOf(project), HasSubstr("\r\n32767 x C160  "));
}

TEST(ShoppingList, ACodeIsFilledUpToSixColumns) {
    EXPECT_THAT(ListOf(ProjectOf("C8005")), HasSubstr("    1 x C8005 (skid chicane)"));
    EXPECT_THAT(ListOf(ProjectOf("N10105L")), HasSubstr("    1 x N10105(Ninco std curve)"));
}

TEST(ShoppingList, ANameFills22ColumnsAndIsCutThere) {
    EXPECT_THAT(ListOf(ProjectOf("C151L")), HasSubstr("(standard curve 45\xB0)   at "));
    EXPECT_THAT(ListOf(ProjectOf("N10110")), HasSubstr("(Corvel/Ninco convert) at "));
    EXPECT_THAT(ListOf(ProjectOf("C154R")), HasSubstr("(standard curve 22.5\xB0) at "));

    std::vector<CatalogueEntry> rows = PieceTable();
    std::ranges::find(rows, "C160", &CatalogueEntry::Code)->LongName = "a straight of 21 char";
    const Catalogue longNamed(rows);
    const Project project = ProjectOf("C160");
    const Detail detail = ShowDetail(longNamed, project.Stock, project.Design.Circuit, AllTracks, true);
    EXPECT_THAT(ListOf(project, detail, longNamed), HasSubstr("(a straight of 21 char at "));
}

TEST(ShoppingList, APriceOfZeroEndsTheLineInAtAndTheDigit) {
    EXPECT_THAT(ListOf(ProjectOf("C160")), HasSubstr(" at 0\r\n"));
}

TEST(ShoppingList, ListsTheCurvedChicaneTwiceAtEachHandsPrice) {
    Project project = ProjectOf("C8010L C8010R C8010R");
    SetStock(project, "C8010L", 0, 7.25F);

    EXPECT_EQ(ListOf(project), Head +
                                   "    3 x C8010 (curved chicane ext.)  at 7.25\r\n"
                                   "    3 x C8010 (curved chicane ext.)  at 0\r\n" +
                                   Rule + Total + "21.75EUR\r\n");
}

TEST(ShoppingList, NeverListsTheNincoChangeOver) {
    const Project project = ProjectOf("N10111");

    EXPECT_EQ(ListOf(project), Head + Rule + Total + "0EUR\r\n");
    EXPECT_EQ(ShoppingTableBytes(project.Stock, project.Preferences.Units, AllPieces(project)),
              "count,code,name,price,sum\r\n,,\"Total, EUR\",,0.00\r\n");
}

TEST(ShoppingList, LeavesAnUnknownPriceOutOfTheTableInsteadOfZero) {
    Project project = ProjectOf("C160 C160 C157");
    SetStock(project, "C157", 0, 1.5F);

    EXPECT_THAT(ShoppingTableBytes(project.Stock, project.Preferences.Units, AllPieces(project)),
                AllOf(HasSubstr("2,C160,\"standard straight\",,\r\n"), HasSubstr(",1.50,1.50\r\n"),
                      HasSubstr(",,\"Total, EUR\",,1.50\r\n")));
}

TEST(ShoppingList, ListsWhatTheDetailShowsAndNothingElse) {
    Project project = ProjectOf("C160 C160", "C159");
    SetStock(project, "C160", 1);

    const std::string list = ListOf(project, ShowDetail(Pieces(), project.Stock, project.Design.Circuit, 0, false));

    EXPECT_THAT(list, HasSubstr("    1 x C160  "));
    EXPECT_THAT(list, Not(HasSubstr("C159")));
}

TEST(ShoppingList, TheCurrencyIsWrittenInTheFilesCodePage) {
    Project project = ProjectOf("");

    project.Preferences.Units.Currency = "\u20AC";
    EXPECT_THAT(ListOf(project), EndsWith("0\x80\r\n"));
    project.Preferences.Units.Currency = "\u20BD";
    EXPECT_THAT(ListOf(project), EndsWith("0?\r\n")) << "the code page lacks the rouble";
    project.Preferences.Units.Currency = "";
    EXPECT_THAT(ListOf(project), EndsWith(" 0\r\n"));
}

TEST(WriteShoppingList, WritesIntoTheWorkingDirectoryAndTellsSo) {
    const TemporaryFolder folder;
    Project project = ProjectOf("C160");
    project.Preferences.WorkingDirectory = folder.Path().string() + "/";

    const Message message = WriteList(project, AllPieces(project));

    EXPECT_EQ(BytesOf(folder / "shoppingList.txt"),
              Head + "    1 x C160  (standard straight)    at 0\r\n" + Rule + Total + "0EUR\r\n");
    EXPECT_EQ(message, (Message{Icon::Information, "The shopping list has been written to " + folder.Path().string() +
                                                       "/shoppingList.txt"}));
}

TEST(WriteShoppingList, ReplacesAnOldList) {
    const TemporaryFolder folder;
    Project project = ProjectOf("");
    project.Preferences.WorkingDirectory = folder.Path().string() + "/";
    WriteBytes(folder / "shoppingList.txt", std::string(5000, 'x'));

    WriteList(project, AllPieces(project));

    EXPECT_EQ(BytesOf(folder / "shoppingList.txt"), Head + Rule + Total + "0EUR\r\n");
}

TEST(WriteShoppingList, AWorkingDirectoryThatDoesNotExistIsAFaultAndNothingIsWritten) {
    const TemporaryFolder folder;
    Project project = ProjectOf("C160");
    project.Preferences.WorkingDirectory = (folder / "missing").string() + "/";

    EXPECT_THAT([&] { WriteList(project, Detail{}); },
                Throws<Fault>(Property(&Fault::what, StartsWith("Path not found: "))));

    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(WriteShoppingList, WithoutAWorkingDirectoryIsAFault) {
    EXPECT_THAT([&] { WriteList(ProjectOf("C160"), Detail{}); },
                Throws<Fault>(Property(&Fault::what, StartsWith("Path not found: "))));
}

TEST(WriteShoppingList, AFolderInTheListsPlaceIsAFault) {
    const TemporaryFolder folder;
    Project project = ProjectOf("C160");
    project.Preferences.WorkingDirectory = folder.Path().string() + "/";
    std::filesystem::create_directory(folder / "shoppingList.txt");

    EXPECT_THROW(WriteList(project, Detail{}), Fault);
}

} // namespace
} // namespace pistaro
