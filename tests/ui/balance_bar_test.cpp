// The strip of changes that balance the lanes: shown in the drawing, applied and left.
#include "ui/window_fixture.h"

#include <QComboBox>

namespace pistaro {
namespace {

/// A track whose lanes two change-overs balance.
const char* const UnevenOval = "C160 C151R C151R C151R C151R C160 C151R C151R C151R C151R";
const char* const EvenOval = "C8006 C151R C151R C151R C151R C8006 C151R C151R C151R C151R";

class BalanceStrip : public WindowTest {
protected:
    BalanceStrip() {
        Open(ProjectOf(UnevenOval));
        Choose("mnuBalance");
    }

    QWidget& Strip() { return Find<QWidget>("fraBalance"); }
    QListWidget& Changes() { return Find<QListWidget>("lstBalance"); }

    /// The codes of the pieces that are shown as ghosts, each with a blank after it, the chosen change's in brackets.
    std::string Ghosts() {
        std::string codes;
        for (const OverlayItem& item : Canvas().OverlayOf("balance")) {
            const auto* const pieces = std::get_if<OverlayPieces>(&item);
            if (pieces == nullptr) continue;
            const bool isChosen = pieces->InkColour == Rgb(0, 130, 60);
            codes += (isChosen ? "[" : "") + CodesOf({pieces->Codes}) + (isChosen ? "] " : " ");
        }
        return codes;
    }
};

TEST_F(BalanceStrip, ShowsTheChangesAndTheirPieces) {
    EXPECT_TRUE(Strip().isVisible());
    EXPECT_EQ(Text("lblBalance"), "Track 1: The lanes differ by 49.6 cm now. Both changes together make them equally "
                                  "long:");
    EXPECT_EQ(Button("cmdBalance").text(), "Appl&y Both");
    ASSERT_EQ(Changes().count(), 2);
    EXPECT_EQ(Changes().item(0)->text(), "1. C8006 in place of C160 (0): each lane then leads into the other");
    EXPECT_EQ(Changes().item(1)->text(), "2. C8006 in place of C160 (5): the lanes then differ by 0.0 cm");
    EXPECT_EQ(Ghosts(), "[C8006] C8006 ");

    QTest::keyClick(&Changes(), Qt::Key_Down);
    EXPECT_EQ(Ghosts(), "C8006 [C8006] ");
    EXPECT_EQ(Codes(), UnevenOval) << "looking changes nothing";
}

TEST_F(BalanceStrip, TellsWhatItsColoursMean) {
    const QString legend = Find<QLabel>("lblBalanceLegend").text();

    EXPECT_TRUE(legend.contains("color:#00823c\">■</span> new by the chosen line")) << legend.toStdString();
    EXPECT_TRUE(legend.contains("color:#6ea000\">■</span> new by another line"));
    EXPECT_TRUE(legend.contains("color:#00823c\">▨</span> taken out for it"));
}

TEST_F(BalanceStrip, ShowsOtherProposalsWhereThereAreSome) {
    EXPECT_FALSE(Find<QComboBox>("cboBalance").isVisible()) << "here is one alone";
    const std::string twice = "C160 C160 C151R C151R C151R C151R ";
    Open(ProjectOf(twice + twice));
    Choose("mnuBalance");
    auto& proposals = Find<QComboBox>("cboBalance");
    EXPECT_TRUE(proposals.isVisible());
    ASSERT_EQ(proposals.count(), 2);
    EXPECT_EQ(proposals.currentText(), "1 of 2: at 0 and 6");
    EXPECT_EQ(Changes().item(0)->text(), "1. C8006 in place of C160 (0): each lane then leads into the other");

    proposals.setFocus();
    QTest::keyClick(&proposals, Qt::Key_Down);

    EXPECT_EQ(Changes().item(0)->text(), "1. C8006 in place of C160 (1): each lane then leads into the other");
    EXPECT_EQ(Changes().item(1)->text(), "2. C8006 in place of C160 (7): the lanes then differ by 0.0 cm");
    Click("cmdBalance");
    EXPECT_EQ(Codes(), "C160 C8006 C151R C151R C151R C151R C160 C8006 C151R C151R C151R C151R");
}

TEST_F(BalanceStrip, TellsWhatWouldHaveToBeBoughtForIt) {
    EXPECT_EQ(Text("lblBalanceToBuy"), "To buy for it: 2 × C8006; price unknown");
    EXPECT_TRUE(Find<QWidget>("lblBalanceToBuy").isVisible());
    pistaro::Project project = ProjectOf(UnevenOval);
    project.Stock.Of(Pieces().FindRow("C8006")).OwnedCount = 2;
    Open(project);

    Choose("mnuBalance");

    EXPECT_FALSE(Find<QWidget>("lblBalanceToBuy").isVisible());
}

TEST_F(BalanceStrip, PaintsTheLanesAsTheyThenAre) {
    EXPECT_FALSE(Canvas().OverlayOf("built lanes").empty());

    Click("cmdLeaveBalance");

    EXPECT_TRUE(Canvas().OverlayOf("built lanes").empty()) << "they are not wished for otherwise";
}

TEST_F(BalanceStrip, LeavesNoSelectedPieceAndNoColouredEdgesBesideWhatItShows) {
    QTest::keyClick(&Changes(), Qt::Key_Escape);
    const auto count = [&](QRgb colour) {
        const QImage picture = Canvas().grab().toImage();
        int pixels = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                pixels += (picture.pixel(x, y) & 0xffffff) == (colour & 0xffffff) ? 1 : 0;
        }
        return pixels;
    };
    constexpr QRgb selected = 0xff00ff, notOwned = 0xff8000;
    Session->Do([&] {
        Project.EditState.Select(3);
        Project.Preferences.Colours.Active = Rgb(255, 0, 255);
        Project.Preferences.Colours.NonOwned = Rgb(255, 128, 0);
        Session->Looks.Surface = true;
    });
    EXPECT_GT(count(selected), 0);
    EXPECT_GT(count(notOwned), 0);

    Choose("mnuBalance");
    EXPECT_EQ(count(selected), 0);
    EXPECT_EQ(count(notOwned), 0);

    QTest::keyClick(&Changes(), Qt::Key_Escape);
    EXPECT_GT(count(selected), 0);
}

TEST_F(BalanceStrip, ThePanelBelowTheDrawingMakesRoomForIt) {
    QTest::keyClick(&Changes(), Qt::Key_Escape);
    Window->resize(1366, 768);
    Entry("mnuChecks").trigger();
    QTest::qWait(20);
    ASSERT_TRUE(Find<QWidget>("fraChecks").isVisible());
    const int before = Canvas().height();

    Choose("mnuBalance");
    QTest::qWait(20);
    EXPECT_FALSE(Find<QWidget>("fraChecks").isVisible());
    EXPECT_GT(Canvas().height(), before - Strip().height() / 2) << "most of its room is the panel's";
    EXPECT_GT(Canvas().height(), 2 * Strip().height());

    Click("cmdLeaveBalance");
    QTest::qWait(20);
    EXPECT_TRUE(Find<QWidget>("fraChecks").isVisible());
}

TEST_F(BalanceStrip, ThePanelThatWasInFrontComesBackInFront) {
    Click("cmdLeaveBalance");
    for (const char* const front : {"mnuMoney", "mnuChecks"}) {
        for (const char* const panel : {"mnuChecks", "mnuMoney"}) {
            if (!Entry(panel).isChecked()) Choose(panel);
            QTest::qWait(20);
        }
        if (!Entry(front).isChecked()) Choose(front);
        QTest::qWait(20);
        Choose("mnuBalance");
        QTest::qWait(20);
        Click("cmdBalance");
        QTest::qWait(20);
        EXPECT_TRUE(Entry(front).isChecked()) << front;
        EXPECT_FALSE(Find<QWidget>("fraBalance").isVisible());
        Choose("mnuUndo");
    }
}

TEST_F(BalanceStrip, ThePanelBelowComesBackWhenTheWindowIsClosed) {
    Click("cmdLeaveBalance");
    Choose("mnuMoney");
    Choose("mnuBalance");
    Prompts.Answers = {Answer::No}; // keep nothing

    Window->close();

    EXPECT_FALSE(Find<QWidget>("fraMoney").isHidden());
}

TEST_F(BalanceStrip, AppliesAllAsOneStepOfUndo) {
    Click("cmdBalance");

    EXPECT_EQ(Codes(), EvenOval);
    EXPECT_TRUE(Project.EditState.DataChanged);
    EXPECT_FALSE(Strip().isVisible());
    EXPECT_EQ(Ghosts(), "");
    EXPECT_EQ(Entry("mnuUndo").text(), "&Undo Balance Lanes");
    Choose("mnuUndo");
    EXPECT_EQ(Codes(), UnevenOval);
}

TEST_F(BalanceStrip, AppliesByEnterAndLeavesByEscape) {
    QTest::keyClick(&Changes(), Qt::Key_Escape);
    EXPECT_FALSE(Strip().isVisible());
    EXPECT_EQ(Codes(), UnevenOval);
    EXPECT_FALSE(Project.EditState.DataChanged);

    Choose("mnuBalance");
    QTest::keyClick(&Changes(), Qt::Key_Return);
    EXPECT_EQ(Codes(), EvenOval);
}

TEST_F(BalanceStrip, GoesWhenTheCircuitChanges) {
    Click("cmdElement", "C160");
    EXPECT_FALSE(Strip().isVisible());
}

TEST_F(BalanceStrip, PutsTheViewBackWhenItIsLeft) {
    ClickLine(1);
    Session->Do([&] { Project.Design.View.MidX = 5000; });
    const ViewSettings before = Project.Design.View;

    Choose("mnuBalance");
    EXPECT_NE(Project.Design.View, before) << "the changes are in sight";
    Click("cmdLeaveBalance");
    EXPECT_EQ(Project.Design.View, before);

    Choose("mnuBalance");
    Choose("mnuReplaceBy");
    EXPECT_FALSE(Strip().isVisible());
    Click("cmdLeaveSuggestions");
    EXPECT_EQ(Project.Design.View, before) << "another strip took its place";
}

TEST_F(BalanceStrip, TakesThePlaceOfAnotherStrip) {
    ClickLine(1);
    Choose("mnuReplaceBy");
    EXPECT_TRUE(Find<QWidget>("fraSuggestions").isVisible());

    Choose("mnuBalance");
    EXPECT_TRUE(Strip().isVisible());
    EXPECT_FALSE(Find<QWidget>("fraSuggestions").isVisible());
}

TEST_F(BalanceStrip, AsksForAnOpenTrackToBeClosed) {
    Open(ProjectOf("C160 C151R C151R C151R C151R"));

    Choose("mnuBalance");

    ASSERT_EQ(Prompts.Told.size(), 1U);
    EXPECT_EQ(Prompts.Told[0].Text, "The lanes differ by 24.8 cm. The track is open: close it first.");
}

TEST_F(BalanceStrip, HasLanesInColoursShowWhereTheyWouldRun) {
    Click("cmdLeaveBalance");
    Choose("mnuLanes");
    const auto words = [this] {
        std::vector<std::string> lines;
        for (const LegendEntry& entry : Canvas().LaneLegend())
            lines.push_back(entry.Words);
        return lines;
    };
    using Lines = std::vector<std::string>;
    const Lines uneven{"track 1, left 280.49 cm", "track 1, right 230.85 cm"};
    EXPECT_EQ(words(), uneven);

    Choose("mnuBalance");
    EXPECT_EQ(words(), (Lines{"track 1, left 257.43 cm", "track 1, right 257.43 cm"}));

    Click("cmdLeaveBalance");
    EXPECT_EQ(words(), uneven);
}

TEST_F(BalanceStrip, LeavesNoGhostOfAPieceThatIsPointedAt) {
    Click("cmdLeaveBalance");
    ClickLine(0);
    Click("cmdInsert"); // a closed track has no end for a ghost
    QEnterEvent enters({5, 5}, {5, 5}, {5, 5});
    QApplication::sendEvent(&Piece("C160"), &enters);
    EXPECT_FALSE(Canvas().OverlayOf("ghost").empty());

    Session->Run(*Session->Commands.Find("balance"));
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty());

    Click("cmdLeaveBalance");
    EXPECT_FALSE(Canvas().OverlayOf("ghost").empty()) << "the mouse is there still";
}

TEST_F(BalanceStrip, IsNotShownWhereTheLanesAreBalanced) {
    Open(ProjectOf(EvenOval));

    Choose("mnuBalance");

    ASSERT_EQ(Prompts.Told.size(), 1U);
    EXPECT_EQ(Prompts.Told[0].Text, "The lanes differ by 0.0 cm: they are balanced.");
    EXPECT_FALSE(Find<QWidget>("fraBalance").isVisible());
}

} // namespace
} // namespace pistaro
