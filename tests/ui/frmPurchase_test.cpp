// The cheapest purchase: the dialog, and what is told where there is none.
#include "ui/frmPurchase.h"

#include "money/purchase.h"
#include "storage/sets_file.h"
#include "support/stock.h"
#include "support/temporary_folder.h"
#include "ui/field_table.h"
#include "ui/frmSets.h"
#include "ui/named_controls.h"
#include "ui/window_fixture.h"

#include <QClipboard>
#include <QLocale>
#include <QTimer>
#include <QTreeWidgetItemIterator>

namespace pistaro {
namespace {

class Purchases : public WindowTest {
protected:
    Purchases() { QLocale::setDefault(QLocale::c()); }

    void OpenWithSettings(pistaro::Project project) {
        WriteBytes(folder_ / "corvel.ini", InitialSettingsBytes(Pieces()));
        Open(std::move(project), folder_ / "corvel.ini");
    }

    /// What the dialog of the cheapest purchase shows: its lines, its total and its remarks, divided by bars.
    std::string Bought() {
        std::string shown;
        QTimer::singleShot(0, Window.get(), [&] { WhenPurchaseShows(shown); });
        Entry("mnuPurchase").trigger();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !shown.empty(); }));
        return shown;
    }

    /// Saves the boxes when their dialog shows; then reads the purchase that is found with them.
    void WhenSetsShow(std::string& shown) {
        const QDialog* const dialog = VisibleDialog("frmSets");
        if (dialog == nullptr) return QTimer::singleShot(1, Window.get(), [this, &shown] { WhenSetsShow(shown); });
        press_ = "cmdClosePurchase";
        QTimer::singleShot(0, Window.get(), [this, &shown] { WhenPurchaseShows(shown); });
        QTest::mouseClick(dialog->findChild<QPushButton*>("cmdSaveSets"), Qt::LeftButton);
    }

    TemporaryFolder folder_;
    const char* press_ = "cmdClosePurchase"; ///< the button that leaves the dialog
    std::string default_;                    ///< and the one that Enter presses
    bool entersPrices_ = true;               ///< whether the button for prices can be pressed

private:
    QDialog* VisibleDialog(const char* name) const {
        for (QDialog* const dialog : Window->findChildren<QDialog*>(name)) {
            if (dialog->isVisible()) return dialog;
        }
        return nullptr;
    }

    /// Reads the dialog and closes it; waits for it while it is not there.
    void WhenPurchaseShows(std::string& shown) {
        QDialog* const dialog = VisibleDialog("frmPurchase");
        if (dialog == nullptr) return QTimer::singleShot(1, Window.get(), [this, &shown] { WhenPurchaseShows(shown); });
        auto* const list = dialog->findChild<QTreeWidget*>("lstPurchase");
        for (int line = 0; list != nullptr && line < list->topLevelItemCount(); ++line) {
            for (int column = 0; column < 4; ++column)
                shown += list->topLevelItem(line)->text(column).toStdString() + " ";
            shown += "| ";
        }
        shown += dialog->findChild<QLabel*>("lblPurchaseTotal")->text().toStdString() + " | " +
                 dialog->findChild<QLabel*>("lblPurchaseRemarks")->text().toStdString();
        for (const QPushButton* const button : dialog->findChildren<QPushButton*>()) {
            if (button->isDefault()) default_ = button->objectName().toStdString();
        }
        entersPrices_ = dialog->findChild<QPushButton*>("cmdEnterPrices")->isEnabled();
        QTest::mouseClick(dialog->findChild<QPushButton*>(press_), Qt::LeftButton);
    }
};

TEST_F(Purchases, WhereAllIsOwnedThereIsNothingToBuy) {
    pistaro::Project project = ProjectOf("C160 C9999");
    project.Stock.Of(Pieces().FindRow("C160")).OwnedCount = 3;
    Open(std::move(project));

    Choose("mnuPurchase");

    ASSERT_EQ(Prompts.Told.size(), 1U);
    EXPECT_EQ(Prompts.Told[0].Text, "There is nothing to buy: all pieces of the design are owned.\n"
                                    "Owned and not used: 2 C160\n"
                                    "Not in the catalogue, and not counted: 1 C9999\n");
}

TEST_F(Purchases, APurchaseWithoutPricesLeadsToTheFirstThatLacks) {
    pistaro::Project project = ProjectOf("C160 C151L C159");
    SetStock(project, "C151L", 1, 0);
    OpenWithSettings(std::move(project));
    press_ = "cmdEnterPrices";

    EXPECT_EQ(Bought(), "1 C159 half straight no price yet  | 1 C160 standard straight no price yet  | "
                        "What is missing has no price yet. | ");

    EXPECT_EQ(default_, "cmdEnterPrices");
    auto& list = Find<QTreeWidget>("lstMoney");
    EXPECT_TRUE(list.isVisible());
    EXPECT_EQ(list.currentItem()->text(0), "C159") << "of C151 all are owned";
    EXPECT_EQ(list.currentColumn(), 5) << "its price";
}

TEST_F(Purchases, WhatHasNoPriceStandsAtTheEnd) {
    pistaro::Project project = ProjectOf("C160 C151L");
    SetStock(project, "C160", 0, 3);
    OpenWithSettings(std::move(project));

    EXPECT_EQ(Bought(), "1 C160 standard straight 3.00 3.00 | 1 C151 standard curve 45° no price yet  | "
                        "Total 3.00 € without what has no price, the cheapest there is. | ");
    EXPECT_EQ(default_, "cmdEnterPrices");
}

TEST_F(Purchases, WithoutASettingsFileLeadToNoPrices) {
    Open(ProjectOf("C160"));

    EXPECT_EQ(Bought(), "1 C160 standard straight no price yet  | What is missing has no price yet. | ");

    EXPECT_EQ(default_, "cmdClosePurchase");
    EXPECT_FALSE(entersPrices_);
}

TEST_F(Purchases, AreLookedForAgainWithTheBoxesThatWereEntered) {
    OpenWithSettings(ProjectOf("C160"));
    press_ = "cmdBoxedSets";
    std::string again;
    QTimer::singleShot(0, Window.get(), [&] { WhenSetsShow(again); });

    EXPECT_EQ(Bought(), "1 C160 standard straight no price yet  | What is missing has no price yet. | ");

    EXPECT_TRUE(QTest::qWaitFor([&] { return !again.empty(); }));
    EXPECT_EQ(again, "1 Example: straights 14.95 14.95 | Total 14.95 €. | "
                     "Left over from the sets: 5 C160");
}

TEST_F(Purchases, OfUnknownPiecesAloneAreNone) {
    Open(ProjectOf("C9999"));

    Choose("mnuPurchase");

    ASSERT_EQ(Prompts.Told.size(), 1U);
    EXPECT_EQ(Prompts.Told[0].Text, "There is nothing to buy: the design has no pieces of the catalogue.\n"
                                    "Not in the catalogue, and not counted: 1 C9999\n");
}

TEST_F(Purchases, OfAnEmptyDesignAreNone) {
    Open();

    Choose("mnuPurchase");

    ASSERT_EQ(Prompts.Told.size(), 1U);
    EXPECT_EQ(Prompts.Told[0].Text, "There is nothing to buy: the design has no pieces yet.\n");
}

TEST_F(Purchases, TheCheapestPurchaseTakesTheSetsOfTheDialog) {
    OpenWithSettings(ProjectOf("C160 C160"));
    frmSets dialog(*Session);
    auto& sets = *dialog.findChild<QListWidget*>("lstSets");
    EXPECT_EQ(sets.count(), 4) << "an example comes along";
    for (int i = 0; i < 4; ++i)
        dialog.findChild<QPushButton*>("cmdDeleteSet")->click();
    dialog.findChild<QPushButton*>("cmdAddSet")->click();
    dialog.findChild<QLineEdit*>("txtSetName")->setText("Straights");
    dialog.findChild<QLineEdit*>("txtSetPrice")->setText("5,95");
    auto& pieces = *dialog.findChild<QTreeWidget*>("lstSetPieces");
    pieces.findItems("C160", Qt::MatchExactly).front()->setText(2, "2");
    dialog.findChild<QPushButton*>("cmdSaveSets")->click();

    EXPECT_EQ(ReadSets(Pieces(), folder_ / "sets.toml"),
              (BoxedSets{{"Straights", 595, {{Pieces().FindRow("C160"), 2}}}}));
    EXPECT_EQ(Bought(), "1 Straights 5.95 5.95 | Total 5.95 €. | ");
}

TEST_F(Purchases, ThatMayNotBeTheCheapestSayByHowMuchAtMost) {
    Open();
    const frmPurchase dialog(*Session,
                             {.Lines = {{2, "Box", 500}},
                              .Total = 1000,
                              .AboveBound = 250,
                              .Currency = "EUR",
                              .Unsold = {},
                              .UnsoldRemark = {},
                              .Remarks = {}},
                             nullptr);

    EXPECT_EQ(dialog.findChild<QLabel*>("lblPurchaseTotal")->text(),
              "Total 10.00 €, at most 2.50 € above the cheapest there is.");
}

TEST_F(Purchases, SayInTheTotalThatSomethingIsMissingFromIt) {
    Open();
    const frmPurchase dialog(*Session,
                             {.Lines = {{2, "Box", 500}},
                              .Total = 1000,
                              .Currency = "EUR",
                              .Unsold = {{1, "C160 standard straight", 0}},
                              .UnsoldRemark = {},
                              .Remarks = {}},
                             nullptr);

    EXPECT_EQ(dialog.findChild<QLabel*>("lblPurchaseTotal")->text(),
              "Total 10.00 € without what has no price, the cheapest there is.");
}

TEST_F(Purchases, TellWhatTheBoxesSaveAndWhatOfThemIsLeftOver) {
    pistaro::Project project = ProjectOf("C160 C160 C160 C151L");
    SetStock(project, "C160", 0, 4);
    SetStock(project, "C151L", 0, 3);
    Open(std::move(project));
    const int straight = Pieces().FindHeadRow("C160");
    const int curve = Pieces().FindHeadRow("C151");
    const int half = Pieces().FindHeadRow("C159");
    const BoxedSets sets{{"Straights", 700, {{straight, 4}, {half, 1}}}};
    const std::vector<int> missing = MissingPieces(Pieces(), Project.Stock, Project.Design.Circuit);
    const frmPurchase dialog(
        *Session, ReportOf(Pieces(), Project, sets, CheapestPurchase(missing, Project.Stock, sets)), nullptr);

    EXPECT_EQ(dialog.findChild<QLabel*>("lblPurchaseSingly")->text(),
              "All in single pieces: 15.00 €. You save 5.00 €.");
    const auto& list = *dialog.findChild<QTreeWidget*>("lstPurchase");
    ASSERT_EQ(list.topLevelItemCount(), 2);
    const QTreeWidgetItem& box = *list.topLevelItem(0);
    EXPECT_TRUE(box.isExpanded());
    ASSERT_EQ(box.childCount(), 2);
    const std::string texts = box.child(0)->text(1).toStdString() + " | " + box.child(1)->text(1).toStdString();
    EXPECT_NE(texts.find("4 C160 standard straight: 3 needed, 1 left over"), std::string::npos) << texts;
    EXPECT_NE(texts.find("1 C159 half straight: all left over"), std::string::npos) << texts;
    EXPECT_EQ(list.topLevelItem(1)->text(1).left(4), Shown(ProductCode(Pieces()[curve].Code)));
    EXPECT_EQ(list.topLevelItem(1)->childCount(), 0) << "a single piece holds nothing";
}

TEST_F(Purchases, WithoutBoxesTellThatSinglePiecesAreTheCheapest) {
    pistaro::Project project = ProjectOf("C160");
    SetStock(project, "C160", 0, 4);
    Open(std::move(project));
    const std::vector<int> missing = MissingPieces(Pieces(), Project.Stock, Project.Design.Circuit);
    const frmPurchase dialog(*Session, ReportOf(Pieces(), Project, {}, CheapestPurchase(missing, Project.Stock, {})),
                             nullptr);

    EXPECT_EQ(dialog.findChild<QLabel*>("lblPurchaseSingly")->text(),
              "All in single pieces: 4.00 €. No box makes it cheaper.");
}

TEST_F(Purchases, TakeExamplesOnlyOnceTheyAreSaved) {
    OpenWithSettings(ProjectOf("C160"));
    frmSets examples(*Session);
    EXPECT_TRUE(examples.findChild<QLabel*>("lblSets")->text().startsWith("These are examples"));
    EXPECT_EQ(Bought(), "1 C160 standard straight no price yet  | What is missing has no price yet. | ");

    examples.findChild<QPushButton*>("cmdSaveSets")->click();

    const frmSets saved(*Session);
    EXPECT_TRUE(saved.findChild<QLabel*>("lblSets")->text().startsWith("The boxes that your shop sells."));
    EXPECT_EQ(Bought(), "1 Example: straights 14.95 14.95 | Total 14.95 €. | "
                        "Left over from the sets: 5 C160");
}

TEST_F(Purchases, ExamplesAreNotSavedBesideABoxOfOnesOwn) {
    OpenWithSettings(ProjectOf("C160"));
    frmSets dialog(*Session);
    dialog.findChild<QPushButton*>("cmdAddSet")->click();
    dialog.findChild<QLineEdit*>("txtSetName")->setText("Starter");
    dialog.findChild<QPushButton*>("cmdSaveSets")->click();

    EXPECT_EQ(ReadSets(Pieces(), folder_ / "sets.toml"), (BoxedSets{{"Starter", 0, {}}}));
}

TEST_F(Purchases, ABoxIsFilledFromAListThatIsTypedOrPasted) {
    pistaro::Project project = ProjectOf("C160");
    SetStock(project, "C151L", 0, 2.5F);
    SetStock(project, "C160", 0, 3);
    OpenWithSettings(std::move(project));
    frmSets dialog(*Session);
    auto& list = *dialog.findChild<QLineEdit*>("txtSetList");
    const auto count = [&](const char* code) {
        return dialog.findChild<QTreeWidget*>("lstSetPieces")->findItems(code, Qt::MatchExactly).front()->text(2);
    };
    const auto contents = [&] { return dialog.findChild<QLabel*>("lblSetContents")->text(); };
    EXPECT_EQ(contents(), "14 pieces in the box") << "some have no price";

    list.setText("8 c151, C160 x2");
    QTest::keyClick(&list, Qt::Key_Return);

    EXPECT_EQ(count("C151"), "8");
    EXPECT_EQ(count("C160"), "2");
    EXPECT_EQ(count("C367"), "0") << "which was in the example";
    EXPECT_EQ(contents(), "10 pieces in the box, bought singly 26.00 €");
    EXPECT_EQ(list.text(), "");
    EXPECT_TRUE(Prompts.Told.empty());
    list.setText("3 nonsense");
    dialog.findChild<QPushButton*>("cmdFillSet")->click();
    EXPECT_EQ(dialog.findChild<QLabel*>("lblSetFault")->text(),
              "\"3 nonsense\" is no piece; codes with their counts are meant, such as 8 C151, 4 C160, C367");
    EXPECT_EQ(list.text(), "3 nonsense") << "to be mended";
    EXPECT_TRUE(Prompts.Told.empty());
    EXPECT_EQ(count("C151"), "8");
}

TEST_F(Purchases, UndoPutsNoOldCountIntoABoxThatWasFilledSince) {
    OpenWithSettings(ProjectOf("C160"));
    frmSets dialog(*Session);
    dialog.show();
    auto& pieces = *dialog.findChild<QTreeWidget*>("lstSetPieces");
    const auto line = [&] { return pieces.findItems("C151", Qt::MatchExactly).front(); };
    pieces.setFocus();
    pieces.setCurrentItem(line(), 2);
    QTest::keyClick(&pieces, Qt::Key_Delete);
    ASSERT_EQ(line()->text(2), "");

    dialog.findChild<QLineEdit*>("txtSetList")->setText("3 C151");
    dialog.findChild<QPushButton*>("cmdFillSet")->click();
    pieces.setCurrentItem(line(), 2);
    QTest::keyClick(&pieces, Qt::Key_Z, Qt::ControlModifier);

    EXPECT_EQ(line()->text(2), "3");
}

TEST_F(Purchases, ACountThatIsNoneIsToldAtOnceAndTheOldOneStays) {
    OpenWithSettings(ProjectOf("C160"));
    frmSets dialog(*Session);
    auto& pieces = dynamic_cast<FieldTable&>(*dialog.findChild<QTreeWidget*>("lstSetPieces"));
    pieces.setCurrentItem(pieces.topLevelItem(0), 2);
    const QString before = pieces.topLevelItem(1)->text(2);

    QGuiApplication::clipboard()->setText("5\n2.5");
    pieces.Paste();

    EXPECT_TRUE(Prompts.Told.empty());
    EXPECT_EQ(dialog.findChild<QLabel*>("lblFieldFault")->text(),
              "Nothing is pasted: \"2.5\" for C160. A count is a whole number from 0 to 10000.");
    EXPECT_EQ(pieces.topLevelItem(0)->text(2), "8");
    EXPECT_EQ(pieces.topLevelItem(1)->text(2), before);
}

TEST_F(Purchases, OfABoxItsProductsComeFirstAndOthersAreFound) {
    OpenWithSettings(ProjectOf("C160"));
    frmSets dialog(*Session);
    dialog.show();
    auto& pieces = *dialog.findChild<QTreeWidget*>("lstSetPieces");
    const auto listed = [&] {
        std::string codes;
        for (int line = 0; line < pieces.topLevelItemCount(); ++line) {
            if (!pieces.topLevelItem(line)->isHidden()) codes += pieces.topLevelItem(line)->text(0).toStdString() + " ";
        }
        return codes;
    };
    EXPECT_TRUE(listed().starts_with("C151 C160 C277 C367 C152 C153 ")) << listed();

    auto& find = *dialog.findChild<QLineEdit*>("txtFindProduct");
    find.setText("half");
    EXPECT_EQ(listed().substr(0, 5), "C159 ");
    QTest::keyClick(&find, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible()) << "Enter saves nothing here";
    auto* const field = pieces.findChild<QLineEdit*>();
    ASSERT_NE(field, nullptr);
    QTest::keyClicks(field, "3");
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(pieces.currentItem()->text(0), "N10103") << "the other half straight";
    QTest::keyClicks(pieces.indexWidget(pieces.currentIndex()), "2");
    find.setText("nonsense");
    EXPECT_EQ(listed(), "");
    dialog.findChild<QPushButton*>("cmdSaveSets")->click();

    const std::optional<BoxedSets> saved = SetsBeside(Pieces(), folder_ / "corvel.ini");
    ASSERT_TRUE(saved);
    EXPECT_EQ(saved->front().Pieces.at(Pieces().FindHeadRow("C159")), 3);
    EXPECT_EQ(saved->front().Pieces.at(Pieces().FindHeadRow("N10103")), 2) << "what was begun is taken";
    EXPECT_EQ(saved->front().Pieces.size(), 6U) << "what is not listed stays in the box";
}

TEST_F(Purchases, ChangedBoxesAreNotLostByEscapeWithoutAQuestion) {
    OpenWithSettings(ProjectOf("C160"));
    frmSets dialog(*Session);
    dialog.show();
    dialog.findChild<QTreeWidget*>("lstSetPieces")->findItems("C160", Qt::MatchExactly).front()->setText(2, "5");

    Prompts.Answers = {Answer::Cancel};
    QTest::keyClick(&dialog, Qt::Key_Escape);

    ASSERT_EQ(Prompts.Asked.size(), 1U);
    EXPECT_EQ(Prompts.Asked[0].Text, "The changes to your boxed sets are not saved. Close without them?");
    EXPECT_TRUE(dialog.isVisible());
    Prompts.Answers = {Answer::Ok};
    dialog.findChild<QPushButton*>("cmdCancelSets")->click();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(std::filesystem::exists(folder_ / "sets.toml"));
}

TEST_F(Purchases, AListThatFillsNoBoxYetIsNotLost) {
    OpenWithSettings(ProjectOf("C160"));
    frmSets dialog(*Session);
    dialog.show();
    auto& list = *dialog.findChild<QLineEdit*>("txtSetList");

    list.setText("8 C151, 2 C160");
    Prompts.Answers = {Answer::Cancel};
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
    dialog.findChild<QPushButton*>("cmdSaveSets")->click();

    EXPECT_FALSE(dialog.isVisible());
    const std::optional<BoxedSets> saved = SetsBeside(Pieces(), folder_ / "corvel.ini");
    ASSERT_TRUE(saved);
    EXPECT_EQ(saved->front().Pieces,
              (std::map<int, int>{{Pieces().FindHeadRow("C151"), 8}, {Pieces().FindHeadRow("C160"), 2}}));
}

TEST_F(Purchases, BoxesThatAreAsTheyWereAreLeftWithoutAQuestion) {
    OpenWithSettings(ProjectOf("C160"));
    frmSets dialog(*Session);
    dialog.show();
    dialog.findChild<QListWidget*>("lstSets")->setCurrentRow(2);

    QTest::keyClick(&dialog, Qt::Key_Escape);

    EXPECT_FALSE(dialog.isVisible());
}

/// C160 and C8006 have no price but are in a box; three pieces of two other kinds have none and are in no box.
class PurchasesForWantOfPrices : public Purchases {
protected:
    PurchasesForWantOfPrices() {
        OpenWithSettings(ProjectOf("C160 C160 C8006 C151L C151L C159"));
        WriteBytes(folder_ / "sets.toml", "[[set]]\nname = \"Box\"\nprice = 49\npieces = { C160 = 2, C8006 = 1 }\n");
        const BoxedSets sets = ReadSets(Pieces(), folder_ / "sets.toml");
        const std::vector<int> missing = MissingPieces(Pieces(), Project.Stock, Project.Design.Circuit);
        const Purchase found = CheapestPurchase(missing, Project.Stock, sets);
        dialog_.emplace(*Session, ReportOf(Pieces(), Project, sets, found), nullptr);
        dialog_->show();
    }

    QString Shows(const char* label) const { return dialog_->findChild<QLabel*>(label)->text(); }

    std::optional<frmPurchase> dialog_;
};

TEST_F(PurchasesForWantOfPrices, SayFirstOfAllWhatBoxesAreBoughtFor) {
    const auto& boxed = *dialog_->findChild<QLabel*>("lblPurchaseBoxed");
    EXPECT_TRUE(boxed.isVisible());
    EXPECT_EQ(boxed.text(), "C160 and C8006 have no price yet, so that boxes are bought for them: type their prices in "
                            "Stock and Price to compare.");
    EXPECT_LT(boxed.geometry().bottom(), dialog_->findChild<QLabel*>("lblPurchaseTotal")->y());
    EXPECT_EQ(Shows("lblPurchaseTotal"), "Total 49.00 € without what has no price, as far as prices are known.");
    EXPECT_TRUE(dialog_->findChild<QPushButton*>("cmdEnterPrices")->isDefault());
}

TEST_F(PurchasesForWantOfPrices, CountPiecesAndKindsOfThemInOneWay) {
    EXPECT_EQ(Shows("lblPurchaseSingly"), "All in single pieces: unknown, 6 pieces of 4 kinds have no price.");
    EXPECT_TRUE(Shows("lblPurchaseUnsold")
                    .startsWith("3 pieces of 2 kinds have no price and no box, at the end of the list. "));
}

TEST_F(PurchasesForWantOfPrices, AreNotCalledTheCheapestWhereTheyAreCopied) {
    QTest::mouseClick(dialog_->findChild<QPushButton*>("cmdCopyPurchase"), Qt::LeftButton);

    const QString text = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(text.contains("Total 49.00 €, as far as prices are known.\n")) << text.toStdString();
}

TEST_F(Purchases, OfPricesThatAreAllKnownSayNothingOfBoxesForWantOfThem) {
    pistaro::Project project = ProjectOf("C160");
    SetStock(project, "C160", 0, 4);
    Open(std::move(project));
    const std::vector<int> missing = MissingPieces(Pieces(), Project.Stock, Project.Design.Circuit);
    frmPurchase dialog(*Session, ReportOf(Pieces(), Project, {}, CheapestPurchase(missing, Project.Stock, {})),
                       nullptr);
    dialog.show();

    EXPECT_FALSE(dialog.findChild<QLabel*>("lblPurchaseBoxed")->isVisible());
    EXPECT_EQ(dialog.findChild<QLabel*>("lblPurchaseTotal")->text(), "Total 4.00 €, the cheapest there is.");
}

TEST_F(Purchases, AreTakenAlongAsText) {
    Open();
    const frmPurchase dialog(*Session,
                             {.Lines = {{2, "Box", 500}},
                              .Total = 1000,
                              .Currency = "EUR",
                              .Unsold = {},
                              .UnsoldRemark = {},
                              .Remarks = "Left over: x\n"},
                             nullptr);

    QTest::mouseClick(dialog.findChild<QPushButton*>("cmdCopyPurchase"), Qt::LeftButton);

    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              "    2 x Box                                             5.00       10.00\n"
              "Total 10.00 €, the cheapest there is.\nLeft over: x\n");
}

} // namespace
} // namespace pistaro
