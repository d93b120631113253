// The strip of suggestions: ways to close the track, and other pieces for some of it, gone through and laid.
#include "editor/view_commands.h"
#include "support/stock.h"
#include "ui/window_fixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEnterEvent>
#include <QSpinBox>

#include <gmock/gmock.h>

#include <algorithm>

namespace pistaro {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const char* const OpenOval = "C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R";

const char* const WrongAtStart = "C152R C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R";
const char* const MendedAtStart = "C160 C160 C151R C151R C151R C151R C160 C160 C151R C151R C151R C151R";

class Suggestions : public WindowTest {
protected:
    QWidget& Strip() { return Find<QWidget>("fraSuggestions"); }
    QListWidget& Ways() { return Find<QListWidget>("lstSuggestions"); }
    void Press(Qt::Key key) { QTest::keyClick(&Ways(), key); }

    /// The codes of the pieces that are shown as ghosts.
    std::vector<std::string> Ghosts(const char* owner = "suggestion") {
        std::vector<std::string> codes;
        for (const OverlayItem& item : Canvas().OverlayOf(owner)) {
            if (const auto* const pieces = std::get_if<OverlayPieces>(&item)) codes = pieces->Codes;
        }
        return codes;
    }
};

TEST_F(Suggestions, AreHiddenUntilTheyAreAskedFor) {
    Open(ProjectOf(OpenOval));
    EXPECT_FALSE(Strip().isVisible());

    Choose("mnuCloseLoop");

    EXPECT_TRUE(Strip().isVisible());
    EXPECT_EQ(Ways().count(), 10);
    EXPECT_EQ(Ghosts(), pistaro::Codes("C151R"));
    EXPECT_EQ(Text("lblSuggestion"), "1 piece: C151R. 0.00 € + 1 without a price; to buy: C151.");
}

TEST_F(Suggestions, AreGoneThroughByKeysAndWheel) {
    Open(ProjectOf(OpenOval));
    Choose("mnuCloseLoop");

    Press(Qt::Key_Down);
    EXPECT_EQ(Ghosts(), pistaro::Codes("C154R C154R"));
    EXPECT_THAT(Text("lblSuggestion"), StartsWith("2 pieces: C154R, C154R."));
    Press(Qt::Key_Up);
    Press(Qt::Key_Up);
    EXPECT_EQ(Ghosts(), pistaro::Codes("C151R"));
}

TEST_F(Suggestions, AreLaidByEnterAsOneStep) {
    Open(ProjectOf(OpenOval));
    Choose("mnuCloseLoop");
    Press(Qt::Key_Down);

    Press(Qt::Key_Return);

    EXPECT_EQ(Codes(), std::string(OpenOval) + " C154R C154R");
    EXPECT_FALSE(Strip().isVisible());
    EXPECT_TRUE(Ghosts().empty());
    Choose("mnuUndo");
    EXPECT_EQ(Codes(), OpenOval);
}

TEST_F(Suggestions, TakeAPieceOutWhereNoAdditionIsFreeOfFaults) {
    Open(ProjectOf(WrongAtStart));

    Choose("mnuCloseLoop");

    EXPECT_EQ(Find<QSpinBox>("spnMostRemoved").value(), 0);
    EXPECT_EQ(Text("lblSuggestion"), "No addition fits. Takes out C152R (0), lays C160. 0.00 € + 1 without a price; "
                                     "to buy: C160.");
    EXPECT_EQ(Ways().item(0)->text().toStdString(), "1 piece for 1\nprice unknown\nnot all owned");
    const Overlay& ghost = Canvas().OverlayOf("suggestion");
    ASSERT_EQ(ghost.size(), 3U) << "how the whole lies then, what goes, what is new";
    EXPECT_EQ(std::get<OverlayPieces>(ghost[0]).Codes, pistaro::Codes(MendedAtStart));
    EXPECT_TRUE(std::get<OverlayArea>(ghost[1]).Hatched);
    EXPECT_EQ(Ghosts(), pistaro::Codes("C160"));
}

TEST_F(Suggestions, ThatTakePiecesOutAreLaidByEnterAsOneStep) {
    Open(ProjectOf(WrongAtStart));
    Choose("mnuCloseLoop");

    Press(Qt::Key_Return);

    EXPECT_EQ(Codes(), MendedAtStart);
    EXPECT_TRUE(Entry("mnuUndo").text().contains("Mend the Track")) << Entry("mnuUndo").text().toStdString();
    Choose("mnuUndo");
    EXPECT_EQ(Codes(), WrongAtStart);
}

TEST_F(Suggestions, TakeAsManyPiecesOutAsTheirBoxAllows) {
    // The side that leads back is too long by a C157: another one at the end makes up for it.
    Open(ProjectOf("C160 C160 C151R C151R C151R C151R C160 C160 C157 C151R C151R C151R C151R"));
    Choose("mnuCloseLoop");
    EXPECT_EQ(Ghosts(), pistaro::Codes("C157"));
    auto& most = Find<QSpinBox>("spnMostRemoved");

    QTest::keyClick(&most, Qt::Key_Up);

    EXPECT_EQ(most.value(), 1);
    EXPECT_EQ(Text("lblSuggestion"), "Takes out C157 (8). 0.00 €, all owned.");
    EXPECT_TRUE(Ghosts().empty());
    Choose("mnuCloseLoop");
    EXPECT_EQ(most.value(), 1) << "the strip keeps what was chosen in it";
    Press(Qt::Key_Return);
    EXPECT_EQ(Codes(), MendedAtStart);
}

TEST_F(Suggestions, ForARunHaveNoBoxForPiecesElsewhere) {
    pistaro::Project project = ProjectOf("C160 C160 C151R");
    project.EditState.CurrentElement[0] = 0;
    Open(project);

    Choose("mnuCloseLoop");
    EXPECT_TRUE(Find<QSpinBox>("spnMostRemoved").isVisible());
    Choose("mnuReplaceBy");
    EXPECT_FALSE(Find<QSpinBox>("spnMostRemoved").isVisible());
}

TEST_F(Suggestions, TellHowManyOfTheirPiecesHaveNoPrice) {
    pistaro::Project project = ProjectOf("C160 C151R C160");
    SetStock(project, "C159", 2, 1.5F);
    SetStock(project, "C151L", 0, 5);
    project.EditState.CurrentElement[0] = 0;
    Open(project);
    Choose("mnuReplaceBy");

    EXPECT_EQ(Text("lblSuggestion"), "2 pieces: C277, C277. 0.00 € + 2 without a price; to buy: 2 × C277.");
    EXPECT_EQ(Ways().item(0)->text().toStdString(), "2 pieces\nprice unknown\nnot all owned");
    Press(Qt::Key_Down);
    EXPECT_EQ(Text("lblSuggestion"), "2 pieces: C159, C159. 3.00 €, all owned.");
    EXPECT_EQ(Ways().item(1)->text().toStdString(), "2 pieces\n3.00 €\nall owned");
}

TEST_F(Suggestions, StandBelowTheDrawingAndCoverNothingOfIt) {
    Open(ProjectOf(OpenOval));
    const int before = Picture().height();

    Choose("mnuCloseLoop");

    const auto place = [&](QWidget& widget) { return QRect(widget.mapTo(Window.get(), QPoint(0, 0)), widget.size()); };
    EXPECT_FALSE(place(Strip()).intersects(place(Picture())));
    EXPECT_FALSE(place(Strip()).intersects(place(Find<QWidget>("hMov"))));
    EXPECT_GE(place(Strip()).top(), place(Picture()).bottom());
    EXPECT_TRUE(Window->rect().contains(place(Strip())));
    EXPECT_LT(Picture().height(), before);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Picture().height(), before);
}

TEST_F(Suggestions, BringTheirGhostIntoSightAndTheViewBackByEscape) {
    Open(ProjectOf(OpenOval));
    ViewSettings& view = Project.Design.View;
    Session->Do([&] { CentreView(view, 900, -700); });
    const ViewSettings before = view;

    Choose("mnuCloseLoop");

    // The gap lies about the track's start.
    const ViewRectangle shown = Canvas().Frame().Covered(view);
    const Track& track = Project.Design.Circuit.Tracks[0];
    EXPECT_LT(shown.ViewLeft, track.TrackStartX);
    EXPECT_GT(shown.ViewRight, track.TrackStartX);
    EXPECT_LT(shown.ViewBottom, track.TrackStartY);
    EXPECT_GT(shown.ViewTop, track.TrackStartY);
    Press(Qt::Key_Escape);
    EXPECT_EQ(view, before);
    EXPECT_FALSE(Project.EditState.DataChanged);
}

TEST_F(Suggestions, LeaveTheViewThatTheUserHasChosenMeanwhile) {
    Open(ProjectOf(OpenOval));
    ViewSettings& view = Project.Design.View;
    Session->Do([&] { CentreView(view, 900, -700); });
    Choose("mnuCloseLoop");

    Session->Do([&] { ZoomOut(view); });
    const ViewSettings zoomed = view;
    Press(Qt::Key_Escape);

    EXPECT_EQ(view, zoomed);
}

TEST_F(Suggestions, TakeEnterAndEscapeFromTheirBoxesToo) {
    Open(ProjectOf(OpenOval));
    Choose("mnuCloseLoop");
    auto& most = Find<QSpinBox>("spnMostPieces");
    QTest::keyClick(&most, Qt::Key_Escape);
    EXPECT_FALSE(Strip().isVisible());
    EXPECT_EQ(Codes(), OpenOval);

    Choose("mnuCloseLoop");
    QTest::keyClick(&most, Qt::Key_Return);

    EXPECT_EQ(Codes(), std::string(OpenOval) + " C151R");
}

TEST_F(Suggestions, AreLeftByEnterOnCancel) {
    Open(ProjectOf(OpenOval));
    Choose("mnuCloseLoop");

    QTest::keyClick(&Find<QPushButton>("cmdLeaveSuggestions"), Qt::Key_Return);

    EXPECT_EQ(Codes(), OpenOval);
    EXPECT_FALSE(Strip().isVisible());
}

TEST_F(Suggestions, LeaveAllAsItWasByEscape) {
    Open(ProjectOf(OpenOval));
    Choose("mnuCloseLoop");

    Press(Qt::Key_Escape);

    EXPECT_EQ(Codes(), OpenOval);
    EXPECT_FALSE(Strip().isVisible());
    EXPECT_TRUE(Ghosts().empty());
    EXPECT_FALSE(Project.EditState.DataChanged);
}

TEST_F(Suggestions, OfOwnedPiecesOnlyTellWhenThereAreNone) {
    Open(ProjectOf(OpenOval));
    Choose("mnuCloseLoop");

    Find<QCheckBox>("chkOwnedOnly").setChecked(true);

    EXPECT_EQ(Ways().count(), 0);
    EXPECT_FALSE(Find<QPushButton>("cmdLaySuggestion").isEnabled());
    EXPECT_TRUE(Ghosts().empty());
    EXPECT_THAT(Text("lblSuggestion"),
                StartsWith("Nothing closes it with up to 8 pieces of those that are owned and not used"));
}

TEST_F(Suggestions, KeepTheKeyboardWhileTheMouseCrossesTheDrawing) {
    pistaro::Project project = ProjectOf(OpenOval);
    SetStock(project, "C160", 4);
    SetStock(project, "C151L", 8);
    Open(project);
    QTest::keyClick(Window.get(), Qt::Key_Return, Qt::ControlModifier);
    Click("chkOwnedOnly");

    const QPoint piece = Canvas().PlaceOf({8, 17}).toPoint();
    QEnterEvent enter(piece, piece, Picture().mapToGlobal(piece));
    QApplication::sendEvent(&Picture(), &enter);
    QTest::mouseMove(&Picture(), piece);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);

    EXPECT_EQ(Codes(), std::string(OpenOval) + " C151R");
}

TEST_F(Suggestions, GoWhenTheCircuitChanges) {
    Open(ProjectOf(OpenOval));
    Choose("mnuCloseLoop");

    Click("cmdElement", "C160");

    EXPECT_FALSE(Strip().isVisible());
}

TEST_F(Suggestions, AreNotOfferedForAClosedTrack) {
    Open(ProjectOf(std::string(OpenOval) + " C151R"));

    EXPECT_FALSE(Entry("mnuCloseLoop").isEnabled());
    EXPECT_THAT(Entry("mnuCloseLoop").toolTip().toStdString(), HasSubstr("The track is closed."));
}

TEST_F(Suggestions, ReplaceTheSelectedPieceAndThoseBehindIt) {
    pistaro::Project project = ProjectOf("C160 C160 C151R");
    project.EditState.CurrentElement[0] = 0;
    Open(project);

    Choose("mnuReplaceBy");
    EXPECT_EQ(Ghosts(), pistaro::Codes("C159 C159"));
    Find<QSpinBox>("spnRun").setValue(2);
    EXPECT_EQ(Find<QSpinBox>("spnRun").maximum(), 3);
    EXPECT_EQ(Ghosts(), pistaro::Codes("C159 C159 C160"));
    Press(Qt::Key_Return);

    EXPECT_EQ(Codes(), "C159 C159 C160 C151R");
    EXPECT_EQ(Project.EditState.CurrentElement[0], 2);
}

TEST_F(Suggestions, ReplaceARunThatIsSelectedInTheList) {
    Open(ProjectOf("C160 C160 C151R C160"));
    ClickLine(0);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      List().visualItemRect(List().item(1)).center());
    EXPECT_EQ(Project.EditState.SelectedElement(), 1);
    EXPECT_EQ(List().currentRow(), 1);
    EXPECT_EQ(Canvas().OverlayOf("selected run").size(), 2U);

    Choose("mnuReplaceBy");

    EXPECT_EQ(Find<QSpinBox>("spnRun").value(), 2);
    EXPECT_EQ(Find<QSpinBox>("spnRun").maximum(), 4);
    EXPECT_EQ(Ghosts(), pistaro::Codes("C159 C159 C160"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Codes(), "C159 C159 C160 C151R C160");
    EXPECT_TRUE(Canvas().OverlayOf("selected run").empty());
}

TEST_F(Suggestions, ReplaceARunThatIsSelectedInTheDrawing) {
    Open(ProjectOf("C160 C160 C160 C160"));
    ClickDrawing(5, 122.5F); // the last straight
    const QPoint second = Canvas().PlaceOf({5, 52.5F}).toPoint();

    QTest::mouseClick(&Picture(), Qt::LeftButton, Qt::ShiftModifier, second);

    EXPECT_EQ(Project.EditState.SelectedRun(3), (ElementRun{1, 3}));
    ClickDrawing(5, 52.5F);
    EXPECT_EQ(Project.EditState.SelectedRun(3), (ElementRun{1, 1}));
}

TEST_F(Suggestions, ARunIsDeletedAsAWhole) {
    Open(ProjectOf("C160 C159 C158 C157"));
    ClickLine(3);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      List().visualItemRect(List().item(1)).center());

    Click("cmdDelete");

    EXPECT_EQ(Codes(), "C160");
    EXPECT_EQ(Project.EditState.SelectedRun(0), (ElementRun{0, 1}));
}

TEST_F(Suggestions, ARunGrowsWithShiftAndTheArrowKeys) {
    Open(ProjectOf("C160 C159 C158 C157"));
    ClickLine(1);

    QTest::keyClick(&List(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&List(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Project.EditState.SelectedRun(3), (ElementRun{1, 3}));
    QTest::keyClick(&List(), Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(Project.EditState.SelectedRun(3), (ElementRun{1, 2}));
}

TEST_F(Suggestions, OfCheaperOrShorterOrLongerPiecesAreOnlySuch) {
    // A curve of 45 degrees costs 5, each half of it 2.
    pistaro::Project project = ProjectOf("C160 C151R C160");
    SetStock(project, "C151L", 0, 5);
    SetStock(project, "C154L", 0, 2);
    project.EditState.CurrentElement[0] = 1;
    Open(project);
    Choose("mnuReplaceBy");
    auto& wish = Find<QComboBox>("cboWish");

    wish.setCurrentIndex(wish.findText("cheaper"));
    EXPECT_EQ(Ghosts(), pistaro::Codes("C154R C154R"));
    EXPECT_THAT(Text("lblSuggestion"), StartsWith("2 pieces: C154R, C154R. 4.00"));
    wish.setCurrentIndex(wish.findText("longer"));
    EXPECT_NE(Ghosts(), pistaro::Codes("C154R C154R")) << "they are as long";
}

TEST_F(Suggestions, WithTheLanesSwappedHoldAChangeOver) {
    pistaro::Project project = ProjectOf("C160 C160 C151R");
    project.EditState.CurrentElement[0] = 1;
    project.EditState.RunFrom = 0;
    Open(project);
    Choose("mnuReplaceBy");
    auto& wish = Find<QComboBox>("cboWish");

    wish.setCurrentIndex(wish.findText("lanes swapped"));

    ASSERT_GT(Ways().count(), 0);
    EXPECT_EQ(std::ranges::count(Ghosts(), "C8006"), 1);
}

TEST_F(Suggestions, AreShownFaintlyWhileOneBuilds) {
    Open(ProjectOf("C160 C160 C151R C151R C151R C151R C160 C160 C151R"));
    EXPECT_TRUE(Ghosts("suggested").empty());

    Choose("mnuSuggest");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Ghosts("suggested") == pistaro::Codes("C151R C151R C151R"); }));
    Project.EditState.System = TrackSystem::Scalextric;
    Click("cmdElement", "C151R");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Ghosts("suggested") == pistaro::Codes("C151R C151R"); }));

    Choose("mnuSuggest");
    EXPECT_TRUE(Ghosts("suggested").empty());
}

} // namespace
} // namespace pistaro
