// Building with the piece buttons, the modes, the two systems and the variants.
#include "ui/window_fixture.h"

#include "support/stock.h"

#include <QGroupBox>
#include <QWindow>

#include <map>

namespace pistaro {

class Building : public WindowTest {
protected:
    /// The Tags of a frame's buttons, row by row from the top left.
    std::string PiecesAsTheyLieIn(const char* frame) {
        std::map<std::pair<int, int>, std::string> tags;
        for (const auto* const button : Find<QGroupBox>(frame).findChildren<QAbstractButton*>("cmdElement"))
            tags[{button->y(), button->x()}] = button->property("Tag").toString().toStdString();
        std::string text;
        for (const auto& [place, tag] : tags)
            text += (text.empty() ? "" : " ") + tag;
        return text;
    }
};

namespace {

Project Owning(Project project, const std::string& code, int owned) {
    SetStock(project, code, owned);
    return project;
}

} // namespace

TEST_F(Building, AFreshStartShowsEmptyTracksAndScalextricButtonsOnly) {
    Open();

    for (const char* const frame : {"fraStraights", "fraLeftCurves", "fraRightCurves", "fraBankedCurves"})
        EXPECT_TRUE(Find<QGroupBox>(frame).isVisible()) << frame;
    for (const char* const frame : {"fraNincoStraights", "fraNincoLeftCurves", "fraNincoRightCurves"})
        EXPECT_FALSE(Find<QGroupBox>(frame).isVisible()) << frame;
    for (const char* const variant : {"C151", "C8010", "C159", "C160", "C164", "C248", "C277", "C367", "C8005", "C8006",
                                      "C8007", "C8009", "N10102", "N10111"})
        EXPECT_FALSE(Entry(std::string("mnu") + variant).isEnabled()) << variant;
    EXPECT_EQ(List().count(), 0);
    EXPECT_EQ(Text("lblselected"), "Nothing selected");
    EXPECT_TRUE(Button("optTrack", "1").isChecked());
    EXPECT_EQ(Button("cmdInsert").text(), "Insert");
    EXPECT_EQ(Project.Design.View.Width, 320);
    EXPECT_EQ(Window->windowTitle(), "Pistaro - new project");
    EXPECT_EQ(Window->windowIcon().availableSizes().size(), 6) << "16 to 256 pixels";
}

TEST_F(Building, APieceButtonShowsWhatRemainsWhileItIsHeldAndAddsItsPieceWhenReleased) {
    Open(Owning(ProjectOf("C160"), "C160", 3));

    QTest::mousePress(&Piece("C160"), Qt::LeftButton);
    EXPECT_EQ(Piece("C160").text(), "2");
    EXPECT_EQ(Codes(), "C160");

    QTest::mouseRelease(&Piece("C160"), Qt::LeftButton);
    EXPECT_EQ(Piece("C160").text(), "C160");
    EXPECT_EQ(Codes(), "C160 C160");
    EXPECT_EQ(List().currentRow(), 1);
    EXPECT_TRUE(Project.EditState.DataChanged);
}

TEST_F(Building, EachPieceStandsInTheFrameOfItsKindInTheOrderOfItsPlace) {
    Open();
    EXPECT_EQ(PiecesAsTheyLieIn("fraStraights"), "C160 C159 C158 C157");
    EXPECT_EQ(PiecesAsTheyLieIn("fraLeftCurves"), "C151L C154L C152L C156L C153L");
    EXPECT_EQ(PiecesAsTheyLieIn("fraRightCurves"), "C151R C154R C152R C156R C153R");
    EXPECT_EQ(PiecesAsTheyLieIn("fraBankedCurves"), "C187L C187R");

    Choose("mnuScalextricNinco");
    QApplication::processEvents(); // the frames are laid out
    EXPECT_EQ(PiecesAsTheyLieIn("fraNincoStraights"), "N10102 N10103 N10104 N10110");
    EXPECT_EQ(PiecesAsTheyLieIn("fraNincoLeftCurves"), "N10105L N10106L N10107L N10108L");
    EXPECT_EQ(PiecesAsTheyLieIn("fraNincoRightCurves"), "N10105R N10106R N10107R N10108R");
    EXPECT_EQ(Window->findChildren<QAbstractButton*>("cmdElement").size(), 28);
}

TEST_F(Building, AReleaseOutsideTheButtonAddsNothingAndShowsItsCaptionAgain) {
    Open(Owning(ProjectOf(""), "C160", 3));

    QTest::mousePress(&Piece("C160"), Qt::LeftButton);
    EXPECT_EQ(Piece("C160").text(), "3");
    QTest::mouseMove(&Piece("C160"), QPoint(-20, -20));
    QTest::mouseRelease(&Piece("C160"), Qt::LeftButton, {}, QPoint(-20, -20));

    EXPECT_EQ(Codes(), "");
    EXPECT_EQ(Piece("C160").text(), "C160");
}

TEST_F(Building, AMouseThatLeavesTheButtonAtOnceShowsItsCaptionAgainToo) {
    Open(Owning(ProjectOf(""), "C160", 3));
    const QPoint place = Piece("C160").mapTo(Window.get(), PlaceIn(Piece("C160")));

    QTest::mousePress(Window->windowHandle(), Qt::LeftButton, {}, place);
    EXPECT_EQ(Piece("C160").text(), "3");
    QTest::mouseRelease(Window->windowHandle(), Qt::LeftButton, {}, place + QPoint(0, 120)); // among the pieces

    EXPECT_EQ(Codes(), "");
    EXPECT_EQ(Piece("C160").text(), "C160");
}

TEST_F(Building, TheRightButtonOfTheMouseDoesNothingToAPieceButton) {
    Open(Owning(ProjectOf(""), "C160", 3));

    QTest::mousePress(&Piece("C160"), Qt::RightButton);
    EXPECT_EQ(Piece("C160").text(), "C160");
    EXPECT_FALSE(Piece("C160").isDown());
    QTest::mouseRelease(&Piece("C160"), Qt::RightButton);

    EXPECT_EQ(Codes(), "");
    EXPECT_EQ(Piece("C160").text(), "C160");
}

TEST_F(Building, TheSpaceBarPressesAndReleasesAPieceButton) {
    Open(Owning(ProjectOf(""), "C157", 4));
    Piece("C157").setFocus();

    QTest::keyPress(&Piece("C157"), Qt::Key_Space);
    EXPECT_EQ(Piece("C157").text(), "4");
    QTest::keyRelease(&Piece("C157"), Qt::Key_Space);

    EXPECT_EQ(Codes(), "C157");
    EXPECT_EQ(Piece("C157").text(), "C157");
}

TEST_F(Building, HoldingAButtonOfWhichMoreAreUsedThanOwnedShowsZeroAndSeeRemainingTheNegativeNumber) {
    Open(Owning(ProjectOf("C160 C160 C160"), "C160", 1));

    QTest::mousePress(&Piece("C160"), Qt::LeftButton);
    EXPECT_EQ(Piece("C160").text(), "0");
    QTest::mouseMove(&Piece("C160"), QPoint(-20, -20));
    QTest::mouseRelease(&Piece("C160"), Qt::LeftButton, {}, QPoint(-20, -20));

    QTest::mousePress(&Button("cmdSeeRemaining"), Qt::LeftButton);
    EXPECT_EQ(Piece("C160").text(), "-2");
    EXPECT_EQ(Piece("C157").text(), "0");
    EXPECT_EQ(Piece("N10105L").text(), "0");
    QTest::mouseRelease(&Button("cmdSeeRemaining"), Qt::LeftButton);
    EXPECT_EQ(Piece("C160").text(), "C160");
    EXPECT_EQ(Piece("N10105L").text(), "10105");
}

TEST_F(Building, BothHandsOfACurveAreCountedTogether) {
    Open(Owning(ProjectOf("C151L C151R C151R"), "C151L", 8));

    QTest::mousePress(&Button("cmdSeeRemaining"), Qt::LeftButton);
    EXPECT_EQ(Piece("C151L").text(), "5");
    EXPECT_EQ(Piece("C151R").text(), "5");
    QTest::mouseRelease(&Button("cmdSeeRemaining"), Qt::LeftButton);
}

TEST_F(Building, CaptionsLeaveOutTheHandAndTheN) {
    Open();
    EXPECT_EQ(Piece("C151L").text(), "C151");
    EXPECT_EQ(Piece("C160").text(), "C160");
    EXPECT_EQ(Piece("N10105R").text(), "10105");
    EXPECT_EQ(Piece("C151L").toolTip(), "C151L, standard curve 45°");
}

TEST_F(Building, InsertedPiecesStandInFrontOfTheSelectedOneInTheOrderPressed) {
    Open(ProjectOf("C160 C159"));
    ClickLine(1);

    Click("cmdInsert");
    EXPECT_EQ(Button("cmdInsert").text(), "Build");
    Click("cmdElement", "C157");
    Click("cmdElement", "C158");

    EXPECT_EQ(Codes(), "C160 C157 C158 C159");
    EXPECT_EQ(List().currentRow(), 3);
    EXPECT_EQ(Text("lblselected"), "3  C159");

    Click("cmdInsert");
    EXPECT_EQ(Button("cmdInsert").text(), "Insert");
    Click("cmdElement", "C160");
    EXPECT_EQ(Codes(), "C160 C157 C158 C159 C160");
}

TEST_F(Building, TheSystemEntrySwitchesFramesAndItsOwnCaption) {
    Open(ProjectOf("C160"));

    Choose("mnuScalextricNinco");
    EXPECT_FALSE(Find<QGroupBox>("fraStraights").isVisible());
    EXPECT_FALSE(Find<QGroupBox>("fraBankedCurves").isVisible());
    EXPECT_TRUE(Find<QGroupBox>("fraNincoStraights").isVisible());
    EXPECT_TRUE(Piece("N10110").isVisible());
    EXPECT_EQ(Entry("mnuScalextricNinco").text(), "Use Scalextric Track");
    EXPECT_EQ(Codes(), "C160");

    Choose("mnuScalextricNinco");
    EXPECT_TRUE(Find<QGroupBox>("fraStraights").isVisible());
    EXPECT_FALSE(Find<QGroupBox>("fraNincoStraights").isVisible());
    EXPECT_EQ(Entry("mnuScalextricNinco").text(), "Use Ninco Track");
}

TEST_F(Building, AConversionPieceSwitchesTheSystemAfterNincoTrackOnly) {
    Open();
    Choose("mnuScalextricNinco");

    Click("cmdElement", "N10110");
    EXPECT_TRUE(Find<QGroupBox>("fraNincoStraights").isVisible()) << "first of its track";

    Click("optTrack", "2");
    Project.Design.Circuit.Tracks[1] = Chain("C160");
    Click("cmdElement", "N10110");
    EXPECT_TRUE(Find<QGroupBox>("fraNincoStraights").isVisible()) << "after a Scalextric piece";

    Click("cmdElement", "N10102");
    Click("cmdElement", "N10110");
    EXPECT_FALSE(Find<QGroupBox>("fraNincoStraights").isVisible()) << "after a Ninco piece";
    EXPECT_TRUE(Find<QGroupBox>("fraStraights").isVisible());
    EXPECT_EQ(Piece("N10110").text(), "10110");
}

TEST_F(Building, VariantsAreOfferedByTheShapeOfTheSelectedElement) {
    Open(ProjectOf("C8010R C160 C159 N10102 C187L"));

    ClickLine(0);
    EXPECT_TRUE(Entry("mnuC151").isEnabled());
    EXPECT_TRUE(Entry("mnuC8010").isEnabled());
    EXPECT_FALSE(Entry("mnuC160").isEnabled());
    ClickLine(1);
    EXPECT_TRUE(Entry("mnuC8007").isEnabled());
    EXPECT_FALSE(Entry("mnuC277").isEnabled());
    ClickLine(2);
    EXPECT_TRUE(Entry("mnuC277").isEnabled());
    ClickLine(3);
    EXPECT_TRUE(Entry("mnuN10111").isEnabled());
    ClickLine(4);
    EXPECT_FALSE(Entry("mnuC151").isEnabled());
}

TEST_F(Building, TheStandardCurveKeepsTheHandOfTheCurveItReplaces) {
    Open(ProjectOf("C8010R C8010L"));

    ClickLine(0);
    Choose("mnuC151");
    ClickLine(1);
    Choose("mnuC151");

    EXPECT_EQ(Codes(), "C151R C151L");
    EXPECT_EQ(Lines(), (std::vector<std::string>{"0  C151R", "1  C151L"}));
    EXPECT_TRUE(Project.EditState.DataChanged);
}

TEST_F(Building, A502ndPieceIsRefusedWithABoxAndNothingChanges) {
    pistaro::Project full = ProjectOf("");
    full.Design.Circuit.Tracks[0].ElementCodes.assign(501, "C160");
    Open(full);

    Click("cmdElement", "C160");

    ASSERT_EQ(Prompts.Told.size(), 1U);
    EXPECT_EQ(Prompts.Told[0].Icon, Icon::Exclamation);
    EXPECT_EQ(Prompts.Told[0].Text, "Subscript out of range: a track holds at most 501 elements");
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].ElementCodes.size(), 501U);
    EXPECT_EQ(Piece("C160").text(), "C160");
    EXPECT_FALSE(Project.EditState.DataChanged);
}

TEST_F(Building, WithAllTracksChosenNothingCanBeBuilt) {
    Open(ProjectOf("C160"));
    ClickLine(0);

    Click("optAll");

    for (const char* const name : {"cmdInsert", "cmdDelete"})
        EXPECT_FALSE(Button(name).isEnabled()) << name;
    EXPECT_FALSE(Piece("C160").isEnabled());
    EXPECT_EQ(Piece("C160").toolTip(), "Choose a single track first.");
    for (const char* const name : {"mnuC160", "mnuC164", "mnuMirror", "mnuInvert"})
        EXPECT_FALSE(Entry(name).isEnabled()) << name;
    EXPECT_EQ(List().count(), 0);
}

} // namespace pistaro
