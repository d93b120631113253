// The cheapest purchase: the dialog, and what is told where there is none.
#include "ui/frmPurchase.h"

#include "storage/sets_file.h"
#include "support/stock.h"
#include "support/temporary_folder.h"
#include "ui/frmSets.h"
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

    TemporaryFolder folder_;

private:
    /// Reads the dialog and closes it; waits for it while it is not there.
    void WhenPurchaseShows(std::string& shown) {
        auto* const dialog = Window->findChild<QDialog*>("frmPurchase");
        if (dialog == nullptr) return QTimer::singleShot(1, Window.get(), [this, &shown] { WhenPurchaseShows(shown); });
        auto* const list = dialog->findChild<QTreeWidget*>("lstPurchase");
        for (int line = 0; list != nullptr && line < list->topLevelItemCount(); ++line) {
            for (int column = 0; column < 4; ++column)
                shown += list->topLevelItem(line)->text(column).toStdString() + " ";
            shown += "| ";
        }
        shown += dialog->findChild<QLabel*>("lblPurchaseTotal")->text().toStdString() + " | " +
                 dialog->findChild<QLabel*>("lblPurchaseRemarks")->text().toStdString();
        QTest::mouseClick(dialog->findChild<QPushButton*>("cmdClosePurchase"), Qt::LeftButton);
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

TEST_F(Purchases, APurchaseWithoutPricesSaysWhereTheyAreTaken) {
    Open(ProjectOf("C160"));
    EXPECT_EQ(Bought(), "What is missing has no price yet. View ▸ Stock and Price takes prices. | "
                        "In no set and without a price: 1 C160");
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
    EXPECT_EQ(Bought(), "1 Straights 5.95 5.95 | Total 5.95 €, the cheapest there is. | ");
}

TEST_F(Purchases, ThatMayNotBeTheCheapestSayByHowMuchAtMost) {
    Open();
    const frmPurchase dialog(
        *Session, {.Lines = {{2, "Box", 500}}, .Total = 1000, .AboveBound = 250, .Currency = "EUR", .Remarks = {}},
        nullptr);

    EXPECT_EQ(dialog.findChild<QLabel*>("lblPurchaseTotal")->text(),
              "Total 10.00 €, at most 2.50 € above the cheapest there is.");
}

TEST_F(Purchases, SayInTheTotalThatSomethingIsMissingFromIt) {
    Open();
    const frmPurchase dialog(
        *Session, {.Lines = {{2, "Box", 500}}, .Total = 1000, .Currency = "EUR", .HasUnsold = true, .Remarks = {}},
        nullptr);

    EXPECT_EQ(dialog.findChild<QLabel*>("lblPurchaseTotal")->text(),
              "Total 10.00 € without what has no price, the cheapest there is.");
}

TEST_F(Purchases, OfExamplesAreNotMade) {
    OpenWithSettings(ProjectOf("C160"));
    frmSets examples(*Session);
    EXPECT_TRUE(examples.findChild<QLabel*>("lblSets")->text().startsWith("These are examples"));

    examples.findChild<QPushButton*>("cmdSaveSets")->click();

    frmSets saved(*Session);
    EXPECT_TRUE(saved.findChild<QLabel*>("lblSets")->text().startsWith("The boxes that your shop sells."));
}

TEST_F(Purchases, AreTakenAlongAsText) {
    Open();
    const frmPurchase dialog(
        *Session, {.Lines = {{2, "Box", 500}}, .Total = 1000, .Currency = "EUR", .Remarks = "Left over: x\n"}, nullptr);

    QTest::mouseClick(dialog.findChild<QPushButton*>("cmdCopyPurchase"), Qt::LeftButton);

    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              "    2 x Box                                             5.00       10.00\n"
              "Total 10.00 EUR, the cheapest there is.\nLeft over: x\n");
}

} // namespace
} // namespace pistaro
