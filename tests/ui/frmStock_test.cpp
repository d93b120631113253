// The loose-track dialog, filled in and pressed through its controls.
#include "ui/frmStock.h"

#include "dialog_fixture.h"
#include "support/stock.h"

#include <QGroupBox>

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FrmStock : public DialogTest<frmStock> {
protected:
    int IndexOf(const char* product) const {
        for (const QLineEdit* const box : dialog_->findChildren<QLineEdit*>("txtDsp")) {
            if (box->property("Tag").toString() == product) return box->property("Index").toInt();
        }
        throw std::logic_error(product);
    }

    ProductStock Row(const char* code) const { return project_.Stock[Pieces().FindRow(code)]; }
};

TEST_F(FrmStock, ShowsTwentyEightPairsOfBoxesInFourFrames) {
    EXPECT_EQ(dialog_->windowTitle(), "Loose Track");
    EXPECT_EQ(dialog_->findChildren<QLineEdit*>("txtDsp").size(), 28);
    std::vector<std::string> frames;
    for (const QGroupBox* const frame : dialog_->findChildren<QGroupBox*>())
        frames.push_back(frame->title().toStdString());
    EXPECT_THAT(frames,
                ElementsAre("Scalextric Straights", "Scalextric Curves", "Scalextric Specialist Track", "Ninco Track"));
    for (int index = 0; index < 28; ++index) {
        EXPECT_EQ(Find<QLineEdit>("txtDsp", index).property("Tag"), Find<QLineEdit>("txtPrc", index).property("Tag"));
    }
    EXPECT_EQ(Label("lblExplain"),
              "The first box represents the number of tracks of this type owned, the second its price.");
}

TEST_F(FrmStock, IsModeless) { EXPECT_FALSE(dialog_->isModal()); }

TEST_F(FrmStock, OpensWithTheCatalogueCountsAndPrices) {
    SetStock(project_, "C151L", 12, 4.5F);
    Open();
    EXPECT_EQ(Text("txtDsp", IndexOf("C151")), "12");
    EXPECT_EQ(Text("txtPrc", IndexOf("C151")), "4.5");
    EXPECT_EQ(Text("txtPrc", IndexOf("C160")), "0");
}

TEST_F(FrmStock, WhatIsTypedFirstReplacesTheFirstCount) {
    SetStock(project_, "C160", 12);
    Open();
    dialog_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));

    QTest::keyClicks(dialog_->focusWidget(), "5");

    EXPECT_EQ(Text("txtDsp", IndexOf("C160")), "5");
}

TEST_F(FrmStock, SaveWritesReadsBackTellsTheWindowAndCloses) {
    int owned = -1;
    const Observation observation = session_->Observe([&](const Changes& changes) {
        if (changes.Stock) owned = Row("C160").OwnedCount;
    });
    Type("txtDsp", "07", IndexOf("C160"));
    Type("txtPrc", "2.50", IndexOf("C160"));

    Press("cmdSaveTrackStock");

    EXPECT_THAT(OnDisk(), HasSubstr(SavedProductLines("[My Loose Track]", {"C160=7"})));
    EXPECT_THAT(OnDisk(), HasSubstr(SavedProductLines("[Best Prices]", {"C160=2.5"})));
    EXPECT_EQ(owned, 7);
    EXPECT_EQ(Row("C160").Price, 2.5F);
    EXPECT_EQ(prompts_.Told, saved_);
    EXPECT_FALSE(IsOpen());
}

TEST_F(FrmStock, CancelAfterTypingChangesNeitherCatalogueNorFile) {
    EXPECT_EQ(Find<QAbstractButton>("cmdOK").text(), "Cancel");
    Type("txtDsp", "9", IndexOf("C160"));
    Press("cmdOK");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Row("C160").OwnedCount, 0);
    EXPECT_EQ(OnDisk(), WholeSettings());
    EXPECT_THAT(prompts_.Told, IsEmpty());
}

TEST_F(FrmStock, EnterOnCancelSavesNothing) {
    Type("txtDsp", "9", IndexOf("C160"));
    Find<QWidget>("cmdOK").setFocus();

    QTest::keyClick(dialog_->focusWidget(), Qt::Key_Return);

    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(OnDisk(), WholeSettings());
}

TEST_F(FrmStock, EnterInABoxSaves) {
    Type("txtDsp", "9", IndexOf("C160"));

    QTest::keyClick(dialog_->focusWidget(), Qt::Key_Return);

    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Row("C160").OwnedCount, 9);
}

TEST_F(FrmStock, TellsOfATextThatIsNoNumberAndStaysOpen) {
    Type("txtPrc", "cheap", IndexOf("N10111"));
    Press("cmdSaveTrackStock");
    EXPECT_THAT(prompts_.Told,
                ElementsAre(Message{Icon::Exclamation, "Type mismatch: the price of N10111, \"cheap\", is no number"}));
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(OnDisk(), WholeSettings());
}

TEST_F(FrmStock, ABoxOfNoProductEndsTheProgram) {
    EXPECT_EXIT(
        {
            struct : ScriptedPrompts {
                void Tell(const Message& message) override {
                    if (message.Icon == Icon::Critical) std::fputs(message.Text.c_str(), stderr);
                }
            } user;
            Session session(Pieces(), user, project_, file_);
            frmStock form(session);
            form.findChildren<QLineEdit*>("txtDsp")[0]->setProperty("Tag", "C999");
            form.Load();
        },
        testing::ExitedWithCode(1), "Critical fault in sub form_load of frmStock: Tag or eType missing or wrong!");
}

TEST_F(FrmStock, GoesFromBoxToBoxInTheOrderOfTheProducts) {
    Find<QLineEdit>("txtDsp", 0).setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &Find<QLineEdit>("txtPrc", 0));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &Find<QLineEdit>("txtDsp", 1));
}

TEST_F(FrmStock, ClipsNothing) { ExpectNothingClipped(); }

} // namespace
} // namespace pistaro
