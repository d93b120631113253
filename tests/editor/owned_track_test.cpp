// The loose-track dialog's boxes, and their way to the settings file and back.
#include "editor/owned_track.h"

#include "platform/fault.h"
#include "support/fault_of.h"
#include "support/settings_on_disk.h"
#include "support/stock.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace pistaro {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class OwnedTrack : public SettingsOnDisk {
protected:
    OwnedTrack() { EXPECT_TRUE(FillStockBoxes(Pieces(), project_.Stock, boxes_)); }

    void Type(const std::string& product, const std::string& owned, const std::string& price) {
        StockBox& box = Box(product);
        box.Owned = owned;
        box.Price = price;
    }

    StockBox& Box(const std::string& product) { return *std::ranges::find(boxes_, product, &StockBox::Tag); }

    ProductStock Row(const std::string& code) const { return project_.Stock[Pieces().FindRow(code)]; }

    /// The text with which saving these boxes is refused, file and catalogue being as before.
    std::string Refusal() {
        const std::string text = FaultOf([&] { SaveOwnedTrack(Pieces(), file_, project_.Stock, boxes_, prompts_); });
        EXPECT_EQ(OnDisk(), WholeSettings());
        EXPECT_EQ(Row("C151L").OwnedCount, 0);
        EXPECT_EQ(Row("C151L").Price, 0);
        EXPECT_THAT(prompts_.Told, IsEmpty());
        return text;
    }

    StockBoxes boxes_ = EmptyStockBoxes(Pieces());
};

TEST_F(OwnedTrack, HasABoxForEachOfTheTwentyEightProducts) {
    std::set<std::string> tags;
    for (const StockBox& box : boxes_)
        tags.insert(box.Tag);
    std::set<std::string> products;
    for (const int row : Pieces().HeadRows())
        products.emplace(ProductCode(Pieces()[row].Code));
    EXPECT_EQ(tags.size(), 28U);
    EXPECT_EQ(tags, products);
}

TEST_F(OwnedTrack, StandsInFourFramesWithTwentyEightProducts) {
    std::vector<std::string> frames;
    std::string caption;
    for (const StockBox& box : boxes_) {
        if (caption != CaptionOf(box.Frame)) frames.push_back((caption = CaptionOf(box.Frame)) + ":");
        frames.back() += " " + box.Tag;
    }

    EXPECT_THAT(frames, ElementsAre("Scalextric Straights: C160 C159 C158 C157",
                                    "Scalextric Curves: C151 C154 C152 C156 C153 C187",
                                    "Scalextric Specialist Track: C164 C248 C277 C367 C8005 C8006 C8007 C8009 C8010",
                                    "Ninco Track: N10102 N10103 N10104 N10105 N10106 N10107 N10108 N10110 N10111"));
}

TEST_F(OwnedTrack, CallsProductsByNamesOfItsOwn) {
    EXPECT_EQ(Box("C151").Name, "standard curve 45");
    EXPECT_EQ(Box("C8010").Name, "curved chicane ext.");
    EXPECT_EQ(Box("N10106").Name, "inner curve");
    EXPECT_EQ(Box("N10110").Name, "converter to Ninco");
}

TEST_F(OwnedTrack, OpensWithCountsAsDigitsAndPricesInTheShortestForm) {
    SetStock(project_, "C8010L", 12, 0.5F);

    EXPECT_TRUE(FillStockBoxes(Pieces(), project_.Stock, boxes_));

    EXPECT_EQ(Box("C8010").Owned, "12");
    EXPECT_EQ(Box("C8010").Price, ".5");
    EXPECT_EQ(Box("C151").Owned, "0");
    EXPECT_EQ(Box("C151").Price, "0");
}

TEST_F(OwnedTrack, KnowsNoBoxOfAnUnknownProduct) {
    boxes_[3].Tag = "C999";
    EXPECT_FALSE(FillStockBoxes(Pieces(), project_.Stock, boxes_));
}

TEST_F(OwnedTrack, SavesSevenTypedAsZeroSevenAndTwoAndAHalfTypedWithATrailingZero) {
    Type("C151", "07", "2.50");

    SaveOwnedTrack(Pieces(), file_, project_.Stock, boxes_, prompts_);

    EXPECT_THAT(OnDisk(), HasSubstr(SavedProductLines("[My Loose Track]", {"C151=7"})));
    EXPECT_THAT(OnDisk(), HasSubstr(SavedProductLines("[Best Prices]", {"C151=2.5"})));
    EXPECT_EQ(prompts_.Told, saved_);
}

TEST_F(OwnedTrack, TakesCountsAndPricesAsTheyAreReadBack) {
    Type("C151", "2.5", "2.123456789");
    Type("C8010", "3", "4");
    Type("N10111", "9", "9");

    SaveOwnedTrack(Pieces(), file_, project_.Stock, boxes_, prompts_);

    EXPECT_THAT(OnDisk(), HasSubstr(SavedProductLines("[My Loose Track]", {"C151=2.5", "C8010=3", "N10111=9"})));
    EXPECT_EQ(Row("C151L").OwnedCount, 2);
    EXPECT_EQ(Row("C151L").Price, 2.1234568F);
    EXPECT_EQ(Row("C8010L").OwnedCount, 3);
    EXPECT_EQ(Row("C8010R").OwnedCount, 0);
    EXPECT_EQ(Row("N10111").OwnedCount, 0); // its line is the 29th
}

TEST_F(OwnedTrack, WritesALargePriceAsTheShortestTextOfADouble) {
    Type("C151", "1", "12345678.5");
    Type("C160", "1", "1e15");

    SaveOwnedTrack(Pieces(), file_, project_.Stock, boxes_, prompts_);

    EXPECT_THAT(OnDisk(), HasSubstr(SavedProductLines("[Best Prices]", {"C151=12345678.5", "C160=1E+15"})));
}

TEST_F(OwnedTrack, KeepsThePricesAfterAnIncompleteSectionOfOwnedTrack) {
    const std::string grid = "[Grid]\r\nType=1\r\nStep=2\r\n";
    Start("[My Loose Track]\r\nC151=1\r\nC152=2\r\n\r\n" + ProductLines("[Best Prices]") + grid);
    FillStockBoxes(Pieces(), project_.Stock, boxes_);
    Type("C160", "5", "8");

    SaveOwnedTrack(Pieces(), file_, project_.Stock, boxes_, prompts_);

    EXPECT_EQ(OnDisk(), SavedProductLines("[My Loose Track]", {"C151=1", "C152=2", "C160=5"}) +
                            SavedProductLines("[Best Prices]", {"C160=8"}) + grid);
}

TEST_F(OwnedTrack, TakesNothingElseFromTheFileThatItReadsAgain) {
    project_.Design.View.MidX = 77;
    project_.Preferences.Colours.Rail = 99;
    project_.Preferences.Units.Currency = "GBP";
    project_.Preferences.Grid.Step = 3;
    project_.Design.Room.Points = {{1, 1, 1}};
    project_.Preferences.WorkingDirectory = "/elsewhere/";

    SaveOwnedTrack(Pieces(), file_, project_.Stock, boxes_, prompts_);

    EXPECT_EQ(project_.Design.View.MidX, 77);
    EXPECT_EQ(project_.Preferences.Colours.Rail, 99);
    EXPECT_EQ(project_.Preferences.Units.Currency, "GBP");
    EXPECT_EQ(project_.Preferences.Grid.Step, 3);
    EXPECT_EQ(project_.Design.Room.Points.size(), 1U);
    EXPECT_EQ(project_.Preferences.WorkingDirectory, "/elsewhere/");
}

TEST_F(OwnedTrack, KeepsTheTwentyNinthLineOfASectionAfterTheTwentyNineNewOnes) {
    Start(SavedProductLines("[My Loose Track]", {"N10111=4"}) + "[Grid]\r\nType=1\r\nStep=2\r\n");
    Type("C160", "5", "0");

    SaveOwnedTrack(Pieces(), file_, project_.Stock, boxes_, prompts_);

    EXPECT_EQ(OnDisk(),
              SavedProductLines("[My Loose Track]", {"C160=5"}) + "N10111=4\r\n[Grid]\r\nType=1\r\nStep=2\r\n");
}

TEST_F(OwnedTrack, LeavesValuesOfAMissingSectionAsTheyWere) {
    Start(ProductLines("[My Loose Track]"));
    SetStock(project_, "C160", 0, 6);
    FillStockBoxes(Pieces(), project_.Stock, boxes_);
    Type("C160", "5", "8");

    SaveOwnedTrack(Pieces(), file_, project_.Stock, boxes_, prompts_);

    EXPECT_EQ(OnDisk(), SavedProductLines("[My Loose Track]", {"C160=5"}));
    EXPECT_EQ(Row("C160").OwnedCount, 5);
    EXPECT_EQ(Row("C160").Price, 6);
}

TEST_F(OwnedTrack, WritesIntoAFileWithLfLineEndsSectionsInAnyOrderAndOtherKeys) {
    std::string lines;
    for (int line = 0; line < 28; ++line)
        lines += "x=1\n";
    WriteBytes(file_, "[Best Prices]\n" + lines + "[Own]\n\xA4\n[My Loose Track]\n" + lines + "last");

    SaveOwnedTrack(Pieces(), file_, project_.Stock, boxes_, prompts_);

    EXPECT_EQ(OnDisk(), SavedProductLines("[Best Prices]", {}) + "[Own]\r\n\xA4\r\n" +
                            SavedProductLines("[My Loose Track]", {}) + "last\r\n");
}

TEST_F(OwnedTrack, RefusesATextThatIsNoNumberAndNamesItsBox) {
    Type("C151", "4", "2,50");
    EXPECT_EQ(Refusal(), "Type mismatch: the price of C151, \"2,50\", is no number; write 2.50");
    Type("C151", "4", "2,50,1");
    EXPECT_EQ(Refusal(), "Type mismatch: the price of C151, \"2,50,1\", is no number");
    Type("C151", "", "1");
    EXPECT_EQ(Refusal(), "Type mismatch: the owned count of C151, \"\", is no number");
}

TEST_F(OwnedTrack, RefusesNumbersThatCouldNotBeReadAgain) {
    Type("C151", "32768", "1");
    EXPECT_EQ(Refusal(), "Overflow: the owned count of C151, 32768, is not between -32768 and 32767");
    Type("C151", "1E999", "1");
    EXPECT_THAT(Refusal(), HasSubstr("the owned count of C151"));
    Type("C151", "1", "1E39");
    EXPECT_EQ(Refusal(), "Overflow: the price of C151, 1E39, is too large");
}

TEST_F(OwnedTrack, WritesNothingIntoAFileThatCouldNotBeReadAgain) {
    const std::string broken = Replaced(WholeSettings(), "Step=10", "Step=99999");
    WriteBytes(file_, broken);
    EXPECT_THROW(SaveOwnedTrack(Pieces(), file_, project_.Stock, boxes_, prompts_), Fault);
    EXPECT_EQ(OnDisk(), broken);
}

TEST_F(OwnedTrack, ReadsBackEveryCountAndPriceThatItSaves) {
    for (std::size_t box = 0; box < boxes_.size(); ++box) {
        boxes_[box].Owned = std::to_string(box + 1);
        boxes_[box].Price = std::to_string(box) + ".25";
    }

    SaveOwnedTrack(Pieces(), file_, project_.Stock, boxes_, prompts_);

    StockBoxes again = EmptyStockBoxes(Pieces());
    FillStockBoxes(Pieces(), project_.Stock, again);
    EXPECT_EQ(again[0].Price, ".25");
    for (std::size_t box = 0; box + 1 < boxes_.size(); ++box) { // all but N10111, the last
        EXPECT_EQ(again[box].Owned, std::to_string(box + 1));
        EXPECT_EQ(again[box].Price, box == 0 ? ".25" : std::to_string(box) + ".25");
    }
}

} // namespace
} // namespace pistaro
