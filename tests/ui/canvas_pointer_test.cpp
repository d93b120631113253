// The mouse and the keyboard on the drawing.
#include "ui/window_fixture.h"

#include "editor/view_commands.h"

#include <QEnterEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

namespace pistaro {
namespace {

constexpr const char* Ring = "C160 C151L C151L C151L C151L C160 C151L C151L C151L C151L";

class CanvasPointers : public WindowTest {
protected:
    void Turn(QPoint place, int notches, Qt::KeyboardModifiers keys = {}) {
        QWheelEvent wheel(place, Picture().mapToGlobal(place), {}, QPoint(0, 120 * notches), {}, keys,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Picture(), &wheel);
    }
    void Scroll(QPoint pixels) {
        const QPointF place(100, 100);
        QWheelEvent wheel(place, Picture().mapToGlobal(place), pixels, pixels * 2, {}, {}, Qt::ScrollUpdate, false);
        QApplication::sendEvent(&Picture(), &wheel);
    }
    QPoint At(float x, float y) { return Canvas().PlaceOf({x, y}).toPoint(); }
    void MoveTo(QPoint place, Qt::MouseButtons buttons = {}, Qt::KeyboardModifiers keys = {}) {
        QMouseEvent move(QEvent::MouseMove, place, Picture().mapToGlobal(place), Qt::NoButton, buttons, keys);
        QApplication::sendEvent(&Picture(), &move);
    }
    void Drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {}) {
        QTest::mousePress(&Picture(), button, {}, from);
        MoveTo((from + to) / 2, button, keys);
        MoveTo(to, button, keys);
        QTest::mouseRelease(&Picture(), button, keys, to);
    }
    const ViewSettings& View() { return Project.Design.View; }
    void CentreAt(double x, double y) {
        Session->Do([&] { CentreView(Project.Design.View, x, y); });
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers keys = {}) { QTest::keyClick(&Picture(), key, keys); }
    const Track& First() { return Project.Design.Circuit.Tracks[0]; }

    std::string DragWords() { return std::get<OverlayText>(Canvas().OverlayOf("moved track").at(2)).Text; }
};

TEST_F(CanvasPointers, ATrackThatIsInViewStaysSoWhenItMakesRoomForAPiece) {
    pistaro::Project project = ProjectOf("C160 C159 C151L");
    project.Design.View.Width = 150;
    Open(project);
    Window->resize(1200, 700);
    CentreAt(0, 25);
    ASSERT_LT(Canvas().Frame().Covered(View()).ViewTop, 110) << "a straight more and the curve is out of sight";
    ClickLine(1);
    Click("cmdInsert");

    Click("cmdElement", "C160");
    EXPECT_EQ(View().Width, 150) << "there is room for it at this scale";
    EXPECT_GT(Canvas().Frame().Covered(View()).ViewTop, 110);
    EXPECT_LE(Canvas().Frame().Covered(View()).ViewBottom, 0);
    EXPECT_EQ(View().VMov.Value, View().MidY) << "as the bar stands and a file keeps it";

    QTest::keyClick(Window.get(), Qt::Key_4);
    Click("cmdElement", "C160");
    EXPECT_GT(View().Width, 250) << "else all of it is shown";
    EXPECT_GT(Canvas().Frame().Covered(View()).ViewTop, 250);
    EXPECT_LE(Canvas().Frame().Covered(View()).ViewBottom, 0);
}

TEST_F(CanvasPointers, APieceThatIsPutInWhereOneLooksCloselyLeavesTheScale) {
    pistaro::Project project = ProjectOf("C160 C160 C160 C160 C160 C160 C160");
    project.Design.View.Width = 60;
    Open(project);
    CentreAt(0, 30);
    ClickLine(1);
    Click("cmdInsert");

    Click("cmdElement", "C159");

    EXPECT_EQ(View().Width, 60) << "most of the track was out of sight before";
}

TEST_F(CanvasPointers, TheWheelZoomsAtThePointer) {
    Open();
    const QPoint place(60, 90);
    const WorldPoint before = Canvas().WorldAt(place);

    Turn(place, 2);

    EXPECT_EQ(View().Width, 240);
    Turn(place, -1);
    Turn(place, 1);
    EXPECT_NEAR(Canvas().WorldAt(place).X, before.X, 0.51) << "up to the whole cm of the centre";
    EXPECT_NEAR(Canvas().WorldAt(place).Y, before.Y, 0.51);
    EXPECT_NE(View().MidX, 0);
    EXPECT_EQ(View().HMov.Value, View().MidX);
    EXPECT_EQ(View().VMov.Value, View().MidY);
}

TEST_F(CanvasPointers, WithCtrlTheWheelZoomsFinely) {
    Open();

    Turn({100, 100}, 1, Qt::ControlModifier);

    EXPECT_EQ(View().Width, 316);
}

TEST_F(CanvasPointers, MiddleDragPansAndLeavesTheSelection) {
    Open(ProjectOf("C160 C160 C160"));
    ClickDrawing(8, 50);
    ASSERT_EQ(Project.EditState.SelectedElement(), 1);
    const WorldPoint under = Canvas().WorldAt({100, 100});

    Drag({100, 100}, {180, 160}, Qt::MiddleButton);

    EXPECT_NEAR(Canvas().WorldAt({180, 160}).X, under.X, 0.51);
    EXPECT_NEAR(Canvas().WorldAt({180, 160}).Y, under.Y, 0.51);
    EXPECT_EQ(Project.EditState.SelectedElement(), 1);
    EXPECT_FALSE(Project.EditState.DataChanged);
    MoveTo({300, 300});
    EXPECT_NEAR(Canvas().WorldAt({180, 160}).X, under.X, 0.51) << "until the button comes up";
}

TEST_F(CanvasPointers, DragBesideThePiecesPansAndLeavesTheSelection) {
    Open(ProjectOf("C160 C160 C160"));
    ClickDrawing(8, 50);
    const QPoint floor = At(-60, 20);
    const WorldPoint under = Canvas().WorldAt(floor);

    Drag(floor, floor + QPoint(60, 30));

    EXPECT_NEAR(Canvas().WorldAt(floor + QPoint(60, 30)).X, under.X, 0.51);
    EXPECT_NEAR(Canvas().WorldAt(floor + QPoint(60, 30)).Y, under.Y, 0.51);
    EXPECT_EQ(Project.EditState.SelectedElement(), 1) << "not the piece nearest to where the drag began";
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].TrackStartX, 0) << "the track stays where it lies";
}

TEST_F(CanvasPointers, DragWithTheSpaceBarPansAndSelectsNothing) {
    Open(ProjectOf("C160 C160 C160"));
    Picture().setFocus();
    const WorldPoint under = Canvas().WorldAt(At(8, 50));
    const QPoint place = At(8, 50);

    QTest::keyPress(&Picture(), Qt::Key_Space);
    Drag(place, place + QPoint(50, -40));
    QTest::keyRelease(&Picture(), Qt::Key_Space);

    EXPECT_NEAR(Canvas().WorldAt(place + QPoint(50, -40)).X, under.X, 0.51);
    EXPECT_EQ(Project.EditState.SelectedElement(), -1);
    QTest::mouseClick(&Picture(), Qt::LeftButton, {}, place);
    EXPECT_NE(Project.EditState.SelectedElement(), -1) << "without it";
}

TEST_F(CanvasPointers, TwoFingersScrollTheView) {
    Open();
    const double scale = Canvas().Frame().PixelsPerCm(View());

    Scroll({-80, 0});
    EXPECT_NEAR(View().MidX, 80 / scale, 0.51);
    Scroll({0, 80});
    EXPECT_NEAR(View().MidY, 80 / scale, 0.51);
    EXPECT_EQ(View().Width, 320);
}

TEST_F(CanvasPointers, APinchZooms) {
    Open();
    QNativeGestureEvent pinch(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2, QPointF(50, 50),
                              QPointF(50, 50), QPointF(50, 50), 0.25, QPointF());

    QApplication::sendEvent(&Picture(), &pinch);

    EXPECT_EQ(View().Width, 256); // 320 / 1.25
}

TEST_F(CanvasPointers, FitShowsEverythingByButtonAndKey) {
    pistaro::Project project = ProjectOf(Ring);
    project.Design.Circuit.Tracks[0].TrackStartX = 1000;
    Open(project);

    Click("cmdFit");
    const ViewSettings fitted = View();
    EXPECT_NEAR(fitted.MidX, 978, 1);
    QTest::keyClick(Window.get(), Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(View().Width, fitted.Width - 20);
    QTest::keyClick(Window.get(), Qt::Key_9, Qt::ControlModifier);
    EXPECT_EQ(View(), fitted);
}

TEST_F(CanvasPointers, TheViewFollowsWhatIsLaidOutsideOfIt) {
    Open(ProjectOf("C160 C160 C160 C160")); // 140 cm upwards of the view's 160
    Click("cmdElement", "C160", 4);

    const WorldPoint top = Canvas().WorldAt({Picture().width() / 2.0, 0});
    EXPECT_GE(top.Y, 280);
    ClickLine(0);
    EXPECT_LE(Canvas().WorldAt({0, static_cast<double>(Picture().height())}).Y, 0) << "and what is selected";
}

TEST_F(CanvasPointers, AClickInsideAPieceOfAnotherTrackSelectsItThere) {
    Open(ProjectOf("C160 C160", "C160"));

    ClickDrawing(23, 30); // nearest to a label of the current track

    EXPECT_EQ(Project.EditState.CurrentTrack, 1);
    EXPECT_EQ(Project.EditState.SelectedElement(), 0);
    EXPECT_TRUE(Button("optTrack", "2").isChecked());
}

TEST_F(CanvasPointers, ThePieceUnderTheMouseIsOutlinedAndTold) {
    Open(ProjectOf("C160 C160"));
    MoveTo(At(8, 50));
    const auto hover = Canvas().OverlayOf("hover");
    ASSERT_EQ(hover.size(), 1U);
    EXPECT_EQ(std::get<OverlayPath>(hover[0]).Path.size(), 4U);

    QHelpEvent help(QEvent::ToolTip, At(8, 50), Picture().mapToGlobal(At(8, 50)));
    QApplication::sendEvent(&Picture(), &help);
    EXPECT_TRUE(QToolTip::text().startsWith("C160, standard straight\nTrack 1, element 1\n"));

    MoveTo(At(-40, 50));
    EXPECT_TRUE(Canvas().OverlayOf("hover").empty());
}

TEST_F(CanvasPointers, DraggingAPieceMovesItsTrackAsOneStep) {
    Open(ProjectOf("C160 C160"));
    const double scale = Canvas().Frame().PixelsPerCm(View());
    const QPoint from = At(8, 50);

    Drag(from, from + QPoint(60, -33));

    EXPECT_NEAR(First().TrackStartX, 60 / scale, 0.06);
    EXPECT_NEAR(First().TrackStartY, 33 / scale, 0.06);
    EXPECT_TRUE(Project.EditState.DataChanged);
    EXPECT_TRUE(Canvas().OverlayOf("moved track").empty());
    Choose("mnuUndo");
    EXPECT_EQ(First().TrackStartX, 0);
    EXPECT_FALSE(Entry("mnuUndo").isEnabled());
}

TEST_F(CanvasPointers, WithShiftATrackMovesInStepsOfItsWidth) {
    Open(ProjectOf("C160 C160"));
    const QPoint from = At(8, 50);

    Drag(from, At(8 + 34, 50 + 13), Qt::LeftButton, Qt::ShiftModifier);

    EXPECT_FLOAT_EQ(First().TrackStartX, 31);
    EXPECT_FLOAT_EQ(First().TrackStartY, 15.5);
}

TEST_F(CanvasPointers, WithAltATrackTurnsAboutThePiecesMiddle) {
    Open(ProjectOf("C160"));
    const QPoint from = At(8, 17);

    Drag(from, from - QPoint(85, 0), Qt::LeftButton, Qt::AltModifier);

    EXPECT_FLOAT_EQ(First().TrackStartHeading, 0.392699F); // two steps
    const auto placement = PlacementOf(Pieces(), Project.Design.Circuit, {0, 0});
    const GroundPoint middle = MiddleOf(GroundOf(*placement));
    EXPECT_NEAR(middle.X, 7.75, 0.01);
    EXPECT_NEAR(middle.Y, 17.5, 0.01);
}

TEST_F(CanvasPointers, WithCtrlATrackTurnsAsWithAltWhichWindowManagersMayTake) {
    Open(ProjectOf("C160"));
    const QPoint from = At(8, 17);

    QTest::mousePress(&Picture(), Qt::LeftButton, Qt::ControlModifier, from);
    MoveTo(from + QPoint(20, 0), Qt::LeftButton, Qt::ControlModifier);
    MoveTo(from + QPoint(125, 0), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(DragWords(), "33.75° right");
    QTest::mouseRelease(&Picture(), Qt::LeftButton, Qt::ControlModifier, from + QPoint(125, 0));

    EXPECT_FLOAT_EQ(First().TrackStartHeading, 5.694137F); // three steps back from a full turn
    EXPECT_EQ(Entry("mnuUndo").text(), "&Undo Turn Track");
}

TEST_F(CanvasPointers, ADragTellsHowFarItIsAndEscLeavesTheTrackWhereItLay) {
    Open(ProjectOf("C160"));
    const QPoint from = At(8, 17);

    QTest::mousePress(&Picture(), Qt::LeftButton, {}, from);
    MoveTo(At(8 + 31, 17 + 16), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(DragWords(), "31, 15.5 cm");
    EXPECT_EQ(Picture().cursor().shape(), Qt::SizeAllCursor);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(Canvas().OverlayOf("moved track").empty());
    MoveTo(At(60, 60), Qt::LeftButton);
    QTest::mouseRelease(&Picture(), Qt::LeftButton, {}, At(60, 60));

    EXPECT_EQ(First().TrackStartX, 0);
    EXPECT_FALSE(Project.EditState.DataChanged);
}

TEST_F(CanvasPointers, AHandShowsThatADragMovesTheView) {
    Open(ProjectOf("C160"));
    Picture().setFocus();
    EXPECT_EQ(Picture().cursor().shape(), Qt::ArrowCursor);

    QTest::mousePress(&Picture(), Qt::MiddleButton, {}, {100, 100});
    EXPECT_EQ(Picture().cursor().shape(), Qt::ClosedHandCursor);
    QTest::mouseRelease(&Picture(), Qt::MiddleButton, {}, {100, 100});
    EXPECT_EQ(Picture().cursor().shape(), Qt::ArrowCursor);

    QTest::keyPress(&Picture(), Qt::Key_Space);
    EXPECT_EQ(Picture().cursor().shape(), Qt::OpenHandCursor);
    QTest::mousePress(&Picture(), Qt::LeftButton, {}, {100, 100});
    EXPECT_EQ(Picture().cursor().shape(), Qt::ClosedHandCursor);
    QTest::keyRelease(&Picture(), Qt::Key_Space);
    EXPECT_EQ(Picture().cursor().shape(), Qt::ClosedHandCursor) << "until the button comes up";
    QTest::mouseRelease(&Picture(), Qt::LeftButton, {}, {100, 100});
    EXPECT_EQ(Picture().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(CanvasPointers, TheSpaceBarPansWhereAButtonWasPressedBefore) {
    Open();
    Piece("C160").setFocus();

    QEnterEvent enter(QPointF(50, 50), QPointF(50, 50), Picture().mapToGlobal(QPointF(50, 50)));
    QApplication::sendEvent(&Picture(), &enter);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);

    EXPECT_EQ(Codes(), "") << "it adds no piece";
    EXPECT_TRUE(Picture().hasFocus());
}

TEST_F(CanvasPointers, AButtonOfAnotherWindowKeepsTheKeyboard) {
    Open();
    Piece("C160").setFocus();
    QPushButton other("Other");
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    other.setFocus();

    QEnterEvent enter(QPointF(50, 50), QPointF(50, 50), Picture().mapToGlobal(QPointF(50, 50)));
    QApplication::sendEvent(&Picture(), &enter);

    EXPECT_EQ(QApplication::focusWidget(), &other);
    EXPECT_FALSE(Picture().hasFocus());
    Window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Window.get()));
    EXPECT_EQ(Window->focusWidget(), &Piece("C160")) << "and this window's own stays where it was";
}

TEST_F(CanvasPointers, AClickThatHardlyMovesMovesNoTrack) {
    Open(ProjectOf("C160"));
    const QPoint from = At(8, 17);

    Drag(from, from + QPoint(3, 2));

    EXPECT_EQ(First().TrackStartX, 0);
    EXPECT_FALSE(Project.EditState.DataChanged);
}

TEST_F(CanvasPointers, TheArrowsPanTheFocusedDrawing) {
    Open();
    Picture().setFocus();

    Key(Qt::Key_Right);
    Key(Qt::Key_Up);
    Key(Qt::Key_Up);

    EXPECT_EQ(View().MidX, 16);
    EXPECT_EQ(View().MidY, 32);
}

TEST_F(CanvasPointers, TabWalksThePiecesAndEnterSelects) {
    Open(ProjectOf("C160 C159 C158"));
    Picture().setFocus();

    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    EXPECT_FALSE(Canvas().OverlayOf("hover").empty());
    EXPECT_EQ(Project.EditState.SelectedElement(), -1);
    Key(Qt::Key_Return);
    EXPECT_EQ(Project.EditState.SelectedElement(), 1);

    Key(Qt::Key_Tab);
    EXPECT_TRUE(Picture().hasFocus());
    Key(Qt::Key_Tab);
    EXPECT_FALSE(Picture().hasFocus()) << "after the last one it leads on";
}

TEST_F(CanvasPointers, F9FoldsTheColumnsAway) {
    Open();
    const int width = Picture().width();

    QTest::keyClick(Window.get(), Qt::Key_F9);
    QTest::qWait(20);
    EXPECT_GT(Picture().width(), width + 300);
    EXPECT_FALSE(Piece("C160").isVisible());

    QTest::keyClick(Window.get(), Qt::Key_F9);
    QTest::qWait(20);
    EXPECT_EQ(Picture().width(), width);
}

} // namespace
} // namespace pistaro
