// Building by hand: ghosts, handles, digits, and pieces that are dragged onto the drawing.
#include "ui/window_fixture.h"

#include <QEnterEvent>

namespace pistaro {
namespace {

class BuildingByHand : public WindowTest {
protected:
    void Enter(const std::string& code) {
        const QPointF place(5, 5);
        QEnterEvent enter(place, place, Piece(code).mapToGlobal(place));
        QApplication::sendEvent(&Piece(code), &enter);
    }
    void Leave(const std::string& code) {
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(&Piece(code), &leave);
    }
    /// Drags a piece's button to a point of the world and lets it go there, or not yet.
    void Drag(const std::string& code, float x, float y, bool letGo = true) {
        QAbstractButton& button = Piece(code);
        QTest::mousePress(&button, Qt::LeftButton, {}, PlaceIn(button));
        const QPointF global = Canvas().mapToGlobal(Canvas().PlaceOf({x, y}));
        QMouseEvent move(QEvent::MouseMove, button.mapFromGlobal(global), global, Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&button, &move);
        if (!letGo) return;
        QTest::mouseRelease(&button, Qt::LeftButton, {}, button.mapFromGlobal(global).toPoint());
    }
    const OverlayPieces& Ghost() { return std::get<OverlayPieces>(Canvas().OverlayOf("ghost").at(0)); }
    std::string GhostWords() { return std::get<OverlayText>(Canvas().OverlayOf("ghost").at(1)).Text; }
    const Track& First() { return Project.Design.Circuit.Tracks[0]; }
};

TEST_F(BuildingByHand, APieceAppearsAsAGhostWhereItsButtonWouldLayIt) {
    Open(ProjectOf("C160"));

    Enter("C159");
    EXPECT_EQ(Ghost().Codes, (std::vector<std::string>{"C159"}));
    EXPECT_EQ(Ghost().Start, (BuildCursor{0, 35, 0}));
    EXPECT_EQ(GhostWords(), "C159 · then 1 to buy · gap 52.5 cm");

    Click("cmdElement", "C159");
    EXPECT_FLOAT_EQ(Ghost().Start.CursorY, 52.5F) << "and then the next one";
    EXPECT_EQ(GhostWords(), "C159 · then 2 to buy · gap 70.0 cm");
    Leave("C159");
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty());
}

TEST_F(BuildingByHand, WhoOwnsSomethingReadsWhatWouldBeLeft) {
    pistaro::Project project = ProjectOf("C160");
    project.Stock.Of(13).OwnedCount = 4; // of C160
    Open(project);

    Enter("C159");
    EXPECT_EQ(GhostWords(), "C159 · then −1 left · gap 52.5 cm");
    Enter("C160");
    EXPECT_EQ(GhostWords(), "C160 · then 2 left · gap 70.0 cm");
}

TEST_F(BuildingByHand, TheGhostIsOfThePieceThatTheKeyboardGoesTo) {
    Open(ProjectOf("C160"));
    Piece("C160").setFocus(Qt::TabFocusReason);
    EXPECT_EQ(Ghost().Codes, (std::vector<std::string>{"C160"}));

    QTest::keyClick(&Piece("C160"), Qt::Key_Right);
    EXPECT_TRUE(Piece("C159").hasFocus());
    EXPECT_EQ(Ghost().Codes, (std::vector<std::string>{"C159"}));
    EXPECT_EQ(Ghost().Start, (BuildCursor{0, 35, 0}));
    QTest::keyClick(&Piece("C159"), Qt::Key_Space);
    EXPECT_FLOAT_EQ(Ghost().Start.CursorY, 52.5F) << "and then the next one";

    Picture().setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty());
}

TEST_F(BuildingByHand, TheMouseAndTheKeyboardEachEndTheirOwnGhost) {
    Open(ProjectOf("C160"));
    Enter("C158");
    Piece("C160").setFocus(Qt::TabFocusReason);

    Leave("C158");
    ASSERT_FALSE(Canvas().OverlayOf("ghost").empty());
    EXPECT_EQ(Ghost().Codes, (std::vector<std::string>{"C160"}));
    Enter("C158");
    Picture().setFocus(Qt::TabFocusReason);

    ASSERT_FALSE(Canvas().OverlayOf("ghost").empty());
    EXPECT_EQ(Ghost().Codes, (std::vector<std::string>{"C158"}));
}

TEST_F(BuildingByHand, OnceItsTrackIsClosedThereIsNoGhostAtItsEnd) {
    Open(ProjectOf("C151L C151L C151L C151L C151L C151L C151L"));
    Enter("C151L");
    EXPECT_FALSE(Canvas().OverlayOf("ghost").empty());

    Click("cmdElement", "C151L");
    EXPECT_EQ(Text("lblStatus"), "Track 1 · 8 pieces · closed · unsaved");
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty());

    Click("cmdInsert");
    EXPECT_FALSE(Canvas().OverlayOf("ghost").empty()) << "before the selected piece there is room";
}

TEST_F(BuildingByHand, InInsertModeTheGhostStandsBeforeTheSelectedElement) {
    Open(ProjectOf("C160 C160"));
    ClickLine(1);
    Click("cmdInsert");

    Enter("C159");

    EXPECT_EQ(Ghost().Start, (BuildCursor{0, 35, 0}));
}

TEST_F(BuildingByHand, WithAllTracksChosenThereIsNoGhost) {
    Open(ProjectOf("C160"));
    Click("optAll");

    Enter("C159");

    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty());
}

TEST_F(BuildingByHand, OpenEndsCarryHandlesAndClosedTracksNone) {
    Open(ProjectOf("C160 C160"));
    const Overlay ends = Canvas().OverlayOf("ends");
    ASSERT_EQ(ends.size(), 2U);
    EXPECT_EQ(std::get<OverlayHandle>(ends[0]).Place, (WorldPoint{7.75F, 0}));
    EXPECT_EQ(std::get<OverlayHandle>(ends[1]).Place, (WorldPoint{7.75F, 70}));

    Open(ProjectOf("C151L C151L C151L C151L C151L C151L C151L C151L"));
    EXPECT_TRUE(Canvas().OverlayOf("ends").empty());
}

TEST_F(BuildingByHand, ADashedLineLeadsOverASmallGap) {
    Open(ProjectOf("C160 C151L C151L C151L C151L C160 C151L C151L C151L"));

    EXPECT_TRUE(std::get<OverlayPath>(Canvas().OverlayOf("ends").at(0)).Dashed);
}

TEST_F(BuildingByHand, ADigitLaysSoManyAndAnOvalTakesSixActions) {
    Open();

    Click("cmdElement", "C160");
    QTest::keyClick(Window.get(), Qt::Key_4);
    EXPECT_EQ(Text("lblStatus"), "Track 1 · 1 piece · gap 35.0 cm · unsaved · the next piece 4 times");
    Click("cmdElement", "C151L");
    EXPECT_EQ(Codes(), "C160 C151L C151L C151L C151L");
    Click("cmdElement", "C160");
    QTest::keyClick(Window.get(), Qt::Key_4);
    Click("cmdElement", "C151L");

    EXPECT_EQ(Codes(), "C160 C151L C151L C151L C151L C160 C151L C151L C151L C151L");
    EXPECT_EQ(Text("lblStatus"), "Track 1 · 10 pieces · closed · unsaved");
}

TEST_F(BuildingByHand, WhatADigitLaidIsOneStepOfUndo) {
    Open(ProjectOf("C160"));

    QTest::keyClick(Window.get(), Qt::Key_4);
    Click("cmdElement", "C151L");
    EXPECT_EQ(Codes(), "C160 C151L C151L C151L C151L");
    EXPECT_EQ(Entry("mnuUndo").text(), "&Undo Add 4 C151");

    Choose("mnuUndo");
    EXPECT_EQ(Codes(), "C160");
    EXPECT_FALSE(Entry("mnuUndo").isEnabled());
    Choose("mnuRedo");
    EXPECT_EQ(Codes(), "C160 C151L C151L C151L C151L");
}

TEST_F(BuildingByHand, WhatADigitInsertsIsOneStepOfUndo) {
    Open(ProjectOf("C160 C159"));
    ClickLine(1);
    Click("cmdInsert");

    QTest::keyClick(Window.get(), Qt::Key_2);
    Piece("C158").setFocus();
    QTest::keyClick(&Piece("C158"), Qt::Key_Space);
    EXPECT_EQ(Codes(), "C160 C158 C158 C159");
    EXPECT_EQ(Entry("mnuUndo").text(), "&Undo Insert 2 C158");

    Choose("mnuUndo");
    EXPECT_EQ(Codes(), "C160 C159");
}

TEST_F(BuildingByHand, ADigitShowsSoManyGhostsAndADragLaysThem) {
    Open(ProjectOf("C160"));

    QTest::keyClick(Window.get(), Qt::Key_3);
    Enter("C159");
    EXPECT_EQ(Ghost().Codes, (std::vector<std::string>{"C159", "C159", "C159"}));
    EXPECT_EQ(GhostWords(), "3 × C159 · then 3 to buy · gap 87.5 cm");
    QTest::keyClick(Window.get(), Qt::Key_2);
    EXPECT_EQ(GhostWords(), "2 × C159 · then 2 to buy · gap 70.0 cm") << "the digit typed last";

    Drag("C159", 8, -12);
    EXPECT_EQ(Codes(), "C159 C159 C160");
    EXPECT_FLOAT_EQ(First().TrackStartY, -35) << "before the start, which they take back";
    EXPECT_EQ(Project.EditState.SelectedElement(), 1);
    Drag("C158", 12, 35);
    EXPECT_EQ(Codes(), "C159 C159 C160 C158") << "the digit was for one drag";
    Choose("mnuUndo");
    Choose("mnuUndo");
    EXPECT_EQ(Codes(), "C160");
}

TEST_F(BuildingByHand, ADigitStandsBesideTheMouseUntilItIsUsed) {
    Open();
    const auto& chip = Find<QLabel>("lblTimes");
    EXPECT_FALSE(chip.isVisible());

    QTest::keyClick(Window.get(), Qt::Key_4);
    EXPECT_TRUE(chip.isVisible());
    EXPECT_EQ(chip.text(), "4 ×");
    QTest::mouseMove(&Picture(), {60, 60});
    QApplication::processEvents();
    const QPoint mouse = Picture().mapTo(Window.get(), QPoint(60, 60));
    EXPECT_LT((chip.pos() - mouse).manhattanLength(), 50);
    Click("cmdElement", "C160");
    EXPECT_FALSE(chip.isVisible());

    QTest::keyClick(Window.get(), Qt::Key_4);
    QTest::keyClick(Window.get(), Qt::Key_Escape);
    EXPECT_FALSE(chip.isVisible());
}

TEST_F(BuildingByHand, ADigitIsTakenWhereALineOfTheListWasClickedBefore) {
    Open(ProjectOf("C160"));
    ClickLine(0);

    QTest::keyClick(&List(), Qt::Key_3);
    Click("cmdElement", "C159");

    EXPECT_EQ(Codes(), "C160 C159 C159 C159");
}

TEST_F(BuildingByHand, EscapeForgetsTheDigit) {
    Open();

    QTest::keyClick(Window.get(), Qt::Key_4);
    QTest::keyClick(Window.get(), Qt::Key_Escape);
    Click("cmdElement", "C160");

    EXPECT_EQ(Codes(), "C160");
}

TEST_F(BuildingByHand, APieceDraggedToTheEndIsLaidThere) {
    Open(ProjectOf("C160 C160"));
    Drag("C159", 12, 80, false);
    EXPECT_EQ(Ghost().Start, (BuildCursor{0, 70, 0})) << "shown while it is dragged";
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_FALSE(QApplication::overrideCursor()->pixmap().isNull()) << "the piece hangs on the mouse";
    QTest::mouseRelease(&Piece("C159"), Qt::LeftButton, {}, QPoint(-500, 0));
    EXPECT_EQ(Codes(), "C160 C160") << "let go beside the drawing it is laid nowhere";

    Drag("C159", 12, 80);

    EXPECT_EQ(Codes(), "C160 C160 C159");
    EXPECT_EQ(Project.EditState.SelectedElement(), 2);
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty());
}

TEST_F(BuildingByHand, EscLetsGoOfAPieceThatIsDragged) {
    Open(ProjectOf("C160 C160"));

    Drag("C159", 12, 80, false);
    QTest::keyClick(&Piece("C159"), Qt::Key_Escape);
    EXPECT_TRUE(Canvas().OverlayOf("ghost").empty());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    QTest::mouseRelease(&Piece("C159"), Qt::LeftButton, {},
                        Piece("C159").mapFromGlobal(Canvas().mapToGlobal(Canvas().PlaceOf({12, 80}))).toPoint());
    EXPECT_EQ(Codes(), "C160 C160");

    Drag("C159", 12, 80);
    EXPECT_EQ(Codes(), "C160 C160 C159") << "the next one is dragged as ever";
    EXPECT_EQ(Entry("mnuUndo").text(), "&Undo Add C159");
}

TEST_F(BuildingByHand, APieceThatEscLetGoOfIsNotAddedByItsButtonEither) {
    Open(ProjectOf("C160 C160"));
    QAbstractButton& button = Piece("C159");

    Drag("C159", 12, 80, false);
    QTest::keyClick(&button, Qt::Key_Escape);
    const QPoint back = PlaceIn(button);
    QMouseEvent move(QEvent::MouseMove, back, button.mapToGlobal(back), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&button, &move);
    EXPECT_FALSE(button.isDown());
    QTest::mouseRelease(&button, Qt::LeftButton, {}, back);
    EXPECT_EQ(Codes(), "C160 C160");

    Click("cmdElement", "C159");
    EXPECT_EQ(Codes(), "C160 C160 C159") << "the next click is one as ever";
}

TEST_F(BuildingByHand, APieceDraggedBetweenTwoIsPutInAsOneStep) {
    Open(ProjectOf("C160 C160"));

    Drag("C159", 12, 37);
    EXPECT_EQ(Codes(), "C160 C159 C160");
    EXPECT_EQ(Entry("mnuUndo").text(), "&Undo Insert C159");

    Choose("mnuUndo");
    EXPECT_EQ(Codes(), "C160 C160");
}

TEST_F(BuildingByHand, WhileAPieceIsHeldBetweenTwoTheRoomIsShownThatItWouldMake) {
    Open(ProjectOf("C160 C160 C158"));

    Drag("C159", 12, 37, false);
    EXPECT_EQ(Ghost().Start, (BuildCursor{0, 35, 0}));
    const Overlay room = Canvas().OverlayOf("displaced");
    ASSERT_EQ(room.size(), 2U);
    const auto& asTheyLie = std::get<OverlayPieces>(room[0]);
    EXPECT_EQ(asTheyLie.Codes, (std::vector<std::string>{"C160", "C158"}));
    EXPECT_EQ(asTheyLie.Start, (BuildCursor{0, 35, 0}));
    EXPECT_EQ(asTheyLie.Look, PieceLook::Faded);
    const auto& asTheyWouldLie = std::get<OverlayPieces>(room[1]);
    EXPECT_EQ(asTheyWouldLie.Codes, (std::vector<std::string>{"C160", "C158"}));
    EXPECT_EQ(asTheyWouldLie.Start, (BuildCursor{0, 52.5F, 0}));
    EXPECT_EQ(asTheyWouldLie.Look, PieceLook::Light);

    QTest::mouseRelease(&Piece("C159"), Qt::LeftButton, {}, QPoint(-500, 0));
    EXPECT_TRUE(Canvas().OverlayOf("displaced").empty());
    EXPECT_EQ(Codes(), "C160 C160 C158");
}

TEST_F(BuildingByHand, NoRoomIsMadeAtTheEndsAndInAnotherPiecesPlace) {
    Open(ProjectOf("C160 C160"));

    Drag("C159", 12, 80, false);
    EXPECT_TRUE(Canvas().OverlayOf("displaced").empty()) << "at the end";
    Drag("C159", 8, -12, false);
    EXPECT_EQ(Ghost().Start.CursorY, -17.5F);
    EXPECT_TRUE(Canvas().OverlayOf("displaced").empty()) << "before the start, which it takes back";
    QTest::mouseRelease(&Piece("C159"), Qt::LeftButton, {}, QPoint(-500, 0));

    ClickLine(0);
    Click("cmdInsert");
    Enter("C159");
    EXPECT_EQ(std::get<OverlayPieces>(Canvas().OverlayOf("displaced").at(1)).Start.CursorY, 17.5F)
        << "before the selected one in Insert mode";
    Leave("C159");
    EXPECT_TRUE(Canvas().OverlayOf("displaced").empty());
}

TEST_F(BuildingByHand, APieceDraggedBeforeTheStartTakesTheStartBack) {
    Open(ProjectOf("C160 C160"));

    Drag("C159", 8, -12);

    EXPECT_EQ(Codes(), "C159 C160 C160");
    EXPECT_FLOAT_EQ(First().TrackStartY, -17.5F);
    EXPECT_EQ(First().TrackStartX, 0);
}

TEST_F(BuildingByHand, ACurveBeforeTheStartLeavesAllOthersWhereTheyLie) {
    Open(ProjectOf("C160"));

    Drag("C151R", 8, -12);

    EXPECT_EQ(Codes(), "C151R C160");
    const auto placement = PlacementOf(Pieces(), Project.Design.Circuit, {0, 1});
    EXPECT_NEAR(placement->Corners.Entry.X, 0, 1e-4);
    EXPECT_NEAR(placement->Corners.Entry.Y, 0, 1e-4);
    EXPECT_NEAR(placement->Corners.Exit.Y, 35, 1e-4);
}

TEST_F(BuildingByHand, TheViewFollowsPiecesDraggedBeforeTheStartOutOfIt) {
    Open(ProjectOf("C160 C160"));
    ClickDrawing(8, 10);
    const auto isShown = [this](int element) {
        const auto placement = PlacementOf(Pieces(), Project.Design.Circuit, {0, element});
        const QRectF seen = Canvas().rect();
        return seen.contains(Canvas().PlaceOf(placement->Corners.Entry)) &&
               seen.contains(Canvas().PlaceOf(placement->Corners.Exit));
    };

    for (int i = 0; i < 6; ++i)
        Drag("C160", 8, First().TrackStartY + 5);
    ASSERT_EQ(First().ElementCodes.size(), 8U);
    ASSERT_LT(First().TrackStartY, -200) << "far below where the view was";
    EXPECT_TRUE(isShown(0));

    QTest::keyClick(Window.get(), Qt::Key_9);
    Drag("C160", 8, First().TrackStartY + 5);
    EXPECT_TRUE(isShown(0)) << "the farthest of nine";
    Choose("mnuUndo");
    EXPECT_EQ(First().ElementCodes.size(), 8U) << "as one step, without one of the view";
}

TEST_F(BuildingByHand, ADragToAnEmptyTrackShowsTheLastOfThePiecesLaid) {
    Open();

    QTest::keyClick(Window.get(), Qt::Key_9);
    Drag("C160", 8, 5);

    const auto placement = PlacementOf(Pieces(), Project.Design.Circuit, {0, 8});
    EXPECT_TRUE(QRectF(Canvas().rect()).contains(Canvas().PlaceOf(placement->Corners.Exit)));
}

TEST_F(BuildingByHand, APieceLetGoFarFromAllTracksGoesToTheNearestOpenEnd) {
    Open(ProjectOf("C160"));

    Drag("C159", 130, 130);

    EXPECT_EQ(Codes(), "C160 C159");
}

TEST_F(BuildingByHand, APieceLetGoFarFromAClosedTrackIsLaidNowhere) {
    Open(ProjectOf("C160 C151R C151R C151R C151R C160 C151R C151R C151R C151R"));

    Drag("C159", -140, -140, false);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ForbiddenCursor);
    QTest::mouseRelease(&Piece("C159"), Qt::LeftButton, {}, QPoint(-500, 0));

    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_FALSE(Project.EditState.DataChanged);
}

TEST_F(BuildingByHand, OnAnEmptyTrackADraggedPieceBeginsIt) {
    Open();

    Drag("C160", 10, 5);

    EXPECT_EQ(Codes(), "C160");
}

} // namespace
} // namespace pistaro
