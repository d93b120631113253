// The statistics dialog, seen and pressed through its controls.
#include "ui/frmStats.h"

#include "platform/fault.h"
#include "support/chain.h"
#include "support/scripted_prompts.h"
#include "support/stock.h"
#include "support/temporary_folder.h"
#include "ui/frmCorvel.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace pistaro {
namespace {

class FrmStats : public testing::Test {
protected:
    FrmStats() {
        project_.Preferences.Units.Currency = "EUR";
        SetStock(project_, "C151L", 1, 2.5F);
        SetStock(project_, "C160", 0, .75F);
    }

    void Open() {
        dialog_.reset();
        prompts_.Told.clear();
        session_.emplace(Pieces(), prompts_, project_, "");
        dialog_ = std::make_unique<frmStats>(*session_);
        dialog_->show();
    }

    template <typename Control>
    Control* Find(const char* name, int index) const {
        for (Control* const control : dialog_->findChildren<Control*>(name)) {
            if (control->property("Index").toInt() == index) return control;
        }
        ADD_FAILURE() << "no " << name << "(" << index << ")";
        return nullptr;
    }

    QString Text(const char* name, int index) const { return Find<QLabel>(name, index)->text(); }

    /// "left right price elements"
    QString Frame(int index) const {
        return Text("lblLL", index) + " " + Text("lblRL", index) + " " + Text("lblPrice", index) + " " +
               Text("lblElNum", index);
    }

    /// The products whose count label is not 0: "C151:1 C160:2".
    QString Counts() const {
        QStringList counts;
        for (const QLabel* const count : dialog_->findChildren<QLabel*>("lblEnum")) {
            if (count->text() != "0") counts += count->property("Tag").toString() + ":" + count->text();
        }
        return counts.join(" ");
    }

    QString TotalPrice() const { return dialog_->findChild<QLabel*>("lblTotPrice")->text(); }

    void Press(const char* name) const { QTest::mouseClick(dialog_->findChild<QPushButton*>(name), Qt::LeftButton); }
    void PressDetail(int index) const { QTest::mouseClick(Find<QPushButton>("cmdDetail", index), Qt::LeftButton); }
    void PressInclude() const { dialog_->findChild<QCheckBox*>("chkInclude")->click(); }

    Project project_ = ProjectOf("C151L C160 C151R", "C160");
    ScriptedPrompts prompts_;
    std::optional<Session> session_;
    std::unique_ptr<frmStats> dialog_;
};

TEST_F(FrmStats, IsAModalDialogOfItsName) {
    Open();

    EXPECT_TRUE(dialog_->isModal());
    EXPECT_EQ(dialog_->objectName(), "frmStats");
    EXPECT_EQ(dialog_->windowTitle(), "Track Statistics");
    EXPECT_EQ(dialog_->findChild<QCheckBox*>("chkInclude")->text(), "&Include already owned track");
    EXPECT_FALSE(dialog_->findChild<QCheckBox*>("chkInclude")->isChecked());
    EXPECT_EQ(dialog_->findChild<QPushButton*>("cmdShop")->text(), "&Shopping List");
    EXPECT_EQ(dialog_->findChild<QPushButton*>("cmdClose")->text(), "Close");
}

TEST_F(FrmStats, AltAndTheUnderlinedLetterPressAControl) {
    Open();
    dialog_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));

    QTest::keyClick(dialog_.get(), Qt::Key_I, Qt::AltModifier);

    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog_->findChild<QCheckBox*>("chkInclude")->isChecked(); }))
        << "the button goes down and up before it acts";
}

TEST_F(FrmStats, ShowsAFrameForEachTrackAndTheCircuit) {
    Open();

    const char* const names[] = {"Track 1", "Track 2", "Track 3", "Complete Circuit"};
    for (int index = 0; index < 4; ++index) {
        EXPECT_EQ(Find<QGroupBox>("fraTrack", index)->title(), names[index]);
        EXPECT_EQ(Find<QPushButton>("cmdDetail", index)->text(), "Detail");
    }
    EXPECT_EQ(Frame(0), "81 81 5.75 3"); // 20.106 + 35 + 26.311 both ways
    EXPECT_EQ(Frame(1), "35 35 .75 1");
    EXPECT_EQ(Frame(2), "0 0 0 0");
    EXPECT_EQ(Frame(3), "116 116 6.5 4");
}

TEST_F(FrmStats, ShowsTheLanesAsBuiltBesideTheCataloguesLengths) {
    project_.Design.Circuit.Tracks[0].ElementCodes = {"C156L"};
    Open();

    EXPECT_EQ(Text("lblLL", 0) + " " + Text("lblRL", 0), "14 7") << "of the catalogue";
    EXPECT_EQ(Text("lblBuiltLeft", 0) + " " + Text("lblBuiltRight", 0), "15.87 28.27");
    EXPECT_EQ(Text("lblBuiltLeft", 3) + " " + Text("lblBuiltRight", 3), "50.87 63.27");
    for (int index = 0; index < 8; ++index)
        EXPECT_EQ(Text("lblBuiltUnit", index), "cm");
    const auto right = [&](const char* label) { return Find<QLabel>(label, 0)->geometry().right(); };
    EXPECT_EQ(right("lblBuiltLeft"), right("lblLL")) << "figures stand below each other";
    EXPECT_EQ(right("lblBuiltUnit"), right("lblUnit"));
}

TEST_F(FrmStats, NamesUnitsAndCurrency) {
    Open();
    for (int index = 0; index < 8; ++index)
        EXPECT_EQ(Text("lblUnit", index), "cm");

    project_.Preferences.Units = {.Inches = true, .Currency = "<b>\u20AC</b>"};
    Open();

    for (int index = 0; index < 8; ++index)
        EXPECT_EQ(Text("lblUnit", index), "in");
    for (int index = 0; index < 5; ++index) {
        EXPECT_EQ(Text("lblCurrency", index), "<b>\u20AC</b>");
        EXPECT_EQ(Find<QLabel>("lblCurrency", index)->textFormat(), Qt::PlainText);
    }
    EXPECT_EQ(Text("lblLL", 1), "13"); // 35 / 2.54
}

TEST_F(FrmStats, HasADescriptionAndACountLabelForEachProduct) {
    Open();

    EXPECT_EQ(dialog_->findChildren<QLabel*>("lblDescript").size(), 28);
    EXPECT_EQ(dialog_->findChildren<QLabel*>("lblEnum").size(), 28);
    EXPECT_EQ(Find<QLabel>("lblEnum", 0)->property("Tag"), "C151");
    EXPECT_EQ(Find<QLabel>("lblEnum", 28)->property("Tag"), "N10111");
    EXPECT_EQ(Text("lblDescript", 0), "C151 - standard curve 45");
    EXPECT_EQ(Text("lblDescript", 14), "N10106 - inner curver");
    EXPECT_EQ(Text("lblDescript", 26), "C8010 - curved chicane ext");
}

TEST_F(FrmStats, OpensWithWhatTheCompleteCircuitNeedsBeyondTheOwnedPieces) {
    Open();

    EXPECT_EQ(dialog_->findChild<QGroupBox*>("fraDetail")->title(), "Complete Circuit: pieces to buy");
    EXPECT_EQ(Counts(), "C151:1 C160:2");
    EXPECT_EQ(TotalPrice(), "4");
}

TEST_F(FrmStats, DetailShowsItsTrack) {
    Open();

    PressDetail(1);
    EXPECT_EQ(dialog_->findChild<QGroupBox*>("fraDetail")->title(), "Track 2: pieces to buy");
    EXPECT_EQ(Counts(), "C160:1");
    EXPECT_EQ(TotalPrice(), ".75");

    PressDetail(2);
    EXPECT_EQ(Counts(), "");
    EXPECT_EQ(TotalPrice(), "0");

    PressDetail(3);
    EXPECT_EQ(Counts(), "C151:1 C160:2");
}

TEST_F(FrmStats, EnterPressesTheDetailButtonThatHasTheFocus) {
    Open();

    Find<QPushButton>("cmdDetail", 1)->setFocus();
    QTest::keyClick(dialog_->focusWidget(), Qt::Key_Return);

    EXPECT_EQ(Counts(), "C160:1");
    EXPECT_TRUE(dialog_->isVisible());
}

TEST_F(FrmStats, IncludingOwnedTrackTakesEffectAtTheNextDetail) {
    Open();

    PressInclude();
    EXPECT_EQ(Counts(), "C151:1 C160:2");
    EXPECT_EQ(TotalPrice(), "4");

    PressDetail(3);
    EXPECT_EQ(dialog_->findChild<QGroupBox*>("fraDetail")->title(), "Complete Circuit: all pieces");
    EXPECT_EQ(Counts(), "C151:2 C160:2");
    EXPECT_EQ(TotalPrice(), "6.5");

    PressInclude();
    EXPECT_EQ(Counts(), "C151:2 C160:2");
}

TEST_F(FrmStats, IsOpenedUntickedEveryTime) {
    Open();
    PressInclude();
    PressDetail(0);

    Open();

    EXPECT_FALSE(dialog_->findChild<QCheckBox*>("chkInclude")->isChecked());
    EXPECT_EQ(Counts(), "C151:1 C160:2");
}

TEST_F(FrmStats, TellsTheDesignChecksBeforeItIsShown) {
    class Witness : public ScriptedPrompts {
    public:
        bool AnyDialogSeen = false;
        void Tell(const Message& message) override {
            for (const QWidget* const window : QApplication::topLevelWidgets())
                AnyDialogSeen |= window->isVisible();
            ScriptedPrompts::Tell(message);
        }
    } witness;
    project_ = ProjectOf("C8006 N10102", "", "C8006");

    Session session(Pieces(), witness, project_, "");
    frmStats dialog(session);

    EXPECT_FALSE(witness.AnyDialogSeen);
    ASSERT_EQ(witness.Told.size(), 3U);
    EXPECT_EQ(witness.Told[0].Text, "You have used an uneven number of change-over sections for track 1 !");
    EXPECT_EQ(witness.Told[1].Text, "Check your Ninco track design for track 1 !");
    EXPECT_EQ(witness.Told[2].Text, "You have used an uneven number of change-over sections for track 3 !");
    EXPECT_EQ(witness.Told[2].Icon, Icon::Exclamation);
}

TEST_F(FrmStats, DetailRepeatsNoDesignCheck) {
    project_ = ProjectOf("C8006");
    Open();
    ASSERT_EQ(prompts_.Told.size(), 1U);

    PressDetail(0);

    EXPECT_EQ(prompts_.Told.size(), 1U);
}

TEST_F(FrmStats, ShoppingListWritesWhatTheDetailShows) {
    const TemporaryFolder folder;
    project_.Preferences.WorkingDirectory = folder.Path().string() + "/";
    Open();
    PressDetail(1);
    PressInclude(); // not shown yet, so not written

    Press("cmdShop");

    EXPECT_EQ(BytesOf(folder / "shoppingList.txt"), "SHOPPING LIST\r\n"
                                                    "-------------\r\n"
                                                    "\r\n"
                                                    "    1 x C160  (standard straight)    at .75\r\n"
                                                    "                                       -----\r\n"
                                                    "Total                                  .75EUR\r\n");
    ASSERT_EQ(prompts_.Told.size(), 1U);
    EXPECT_EQ(prompts_.Told[0].Icon, Icon::Information);
    EXPECT_EQ(prompts_.Told[0].Text,
              "The shopping list has been written to " + folder.Path().string() + "/shoppingList.txt");
    EXPECT_TRUE(dialog_->isVisible());
}

TEST_F(FrmStats, AFailedShoppingListIsToldAndTheDialogStays) {
    const TemporaryFolder folder;
    project_.Preferences.WorkingDirectory = folder.Path().string() + "/missing/";
    Open();

    Press("cmdShop");

    ASSERT_EQ(prompts_.Told.size(), 1U);
    EXPECT_EQ(prompts_.Told[0].Icon, Icon::Exclamation);
    EXPECT_TRUE(prompts_.Told[0].Text.starts_with("Path not found: ")) << prompts_.Told[0].Text;
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(FrmStats, ACountThatOverflowsKeepsTheDialogFromOpening) {
    SetStock(project_, "C160", -32768);

    Session session(Pieces(), prompts_, project_, "");
    EXPECT_THROW(frmStats{session}, Fault);
}

TEST_F(FrmStats, CloseAndEscapeCloseIt) {
    Open();
    Press("cmdClose");
    EXPECT_FALSE(dialog_->isVisible());

    Open();
    QTest::keyClick(dialog_.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog_->isVisible());
}

TEST_F(FrmStats, OpensFromTheMainWindowsMenu) {
    Session session(Pieces(), prompts_, project_, "");
    frmCorvel window(session);
    QString shown;
    QTimer::singleShot(0, [&] {
        if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            shown = dialog->objectName();
            dialog->close();
        }
    });

    window.findChild<QAction*>("mnuStats")->trigger();

    EXPECT_EQ(shown, "frmStats");
}

TEST_F(FrmStats, FitsTheSmallestScreenAndClipsNoText) {
    for (Track& track : project_.Design.Circuit.Tracks)
        track.ElementCodes.assign(501, "N10108R");
    const auto expectAllShown = [&] {
        Open();
        EXPECT_LE(dialog_->width(), 1024);
        EXPECT_LE(dialog_->height(), 700);
        for (const QLabel* const label : dialog_->findChildren<QLabel*>()) {
            EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
            EXPECT_GE(label->height(), label->sizeHint().height()) << label->text().toStdString();
        }
    };

    SetStock(project_, "N10108L", 0, 1234.567F);
    expectAllShown();

    SetStock(project_, "N10108L", 0, .75F);
    project_.Preferences.Units.Currency = "Pounds";
    expectAllShown();
}

} // namespace
} // namespace pistaro
