// Tracks as a whole, the list, the mouse on the drawing, and the view.
#include "ui/window_fixture.h"

#include <QCheckBox>
#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMimeData>
#include <QScrollBar>

namespace pistaro {

using Editing = WindowTest;

namespace {

/// Counts how often a widget is painted.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

    int Count = 0;

    bool eventFilter(QObject*, QEvent* event) override {
        Count += event->type() == QEvent::Paint;
        return false;
    }
};

} // namespace

TEST_F(Editing, RotatingLeftFromJustBelowAFullTurnTakesAFullTurnOff) {
    pistaro::Project project = ProjectOf("C160");
    project.Design.Circuit.Tracks[0].TrackStartHeading = 6.25F;
    Open(project);

    Click("cmdRotLeft");

    EXPECT_NEAR(Project.Design.Circuit.Tracks[0].TrackStartHeading, 0.163165, 1e-6); // 6.25 + 0.1963495 - 6.2831847
}

TEST_F(Editing, RotatingRightFromZeroGoesBackFromAFullTurn) {
    Open(ProjectOf("C160"));

    Click("cmdRotRight");

    EXPECT_FLOAT_EQ(Project.Design.Circuit.Tracks[0].TrackStartHeading, 6.0868352F);
    EXPECT_TRUE(Project.EditState.DataChanged);
}

TEST_F(Editing, EightMovesRightOfAllTracksAre124Cm) {
    Open(ProjectOf("C160"));

    Click("optAll");
    Click("cmdMvRight", "", 8);

    EXPECT_FLOAT_EQ(Project.Design.Circuit.Tracks[0].TrackStartX, 124);
    EXPECT_FLOAT_EQ(Project.Design.Circuit.Tracks[1].TrackStartX, 139.5);
    EXPECT_FLOAT_EQ(Project.Design.Circuit.Tracks[2].TrackStartX, 108.5);
}

TEST_F(Editing, TheArrowsMoveTheChosenTrackAloneByOneTrackWidth) {
    Open(ProjectOf("C160", "C160"));

    Click("optTrack", "2");
    Click("cmdMvUpRight");
    Click("cmdMvUp");

    EXPECT_FLOAT_EQ(Project.Design.Circuit.Tracks[1].TrackStartX, 31);
    EXPECT_FLOAT_EQ(Project.Design.Circuit.Tracks[1].TrackStartY, 31);
    EXPECT_FLOAT_EQ(Project.Design.Circuit.Tracks[0].TrackStartX, 0);
}

TEST_F(Editing, WithAllTracksChosenRotationTurnsTheRoom) {
    Open();

    Click("optAll");
    Click("cmdRotLeft");

    EXPECT_FLOAT_EQ(Project.Design.Room.Angle, 0.09817477F);
    EXPECT_EQ(Project.Design.Circuit.Tracks[0].TrackStartHeading, 0);
}

TEST_F(Editing, MirroringTwiceRestoresEveryCode) {
    Open(ProjectOf("C151L C160 C8010R N10105L"));

    Choose("mnuMirror");
    EXPECT_EQ(Codes(), "C151R C160 C8010L N10105R");
    Choose("mnuMirror");
    EXPECT_EQ(Codes(), "C151L C160 C8010R N10105L");
}

TEST_F(Editing, InvertingSwapsOrderAndHands) {
    Open(ProjectOf("C151L C160 C152R"));

    Choose("mnuInvert");

    EXPECT_EQ(Codes(), "C152L C160 C151R");
    EXPECT_EQ(Lines(), (std::vector<std::string>{"0  C152L", "1  C160", "2  C151R"}));
}

TEST_F(Editing, DeletingKeepsThePlaceOfTheSelectionUntilTheTrackIsEmpty) {
    Open(ProjectOf("C160 C159 C158"));
    ClickLine(1);

    Click("cmdDelete");
    EXPECT_EQ(Lines(), (std::vector<std::string>{"0  C160", "1  C158"}));
    EXPECT_EQ(List().currentRow(), 1);

    QTest::keyClick(Window.get(), Qt::Key_Delete);
    EXPECT_EQ(List().currentRow(), 0);
    QTest::keyClick(Window.get(), Qt::Key_Delete);
    EXPECT_EQ(Codes(), "");
    EXPECT_EQ(Text("lblselected"), "Nothing selected");
    EXPECT_FALSE(Button("cmdDelete").isEnabled());
}

TEST_F(Editing, ALineOfTheListSelectsItsElementByMouseAndByKeys) {
    Open(ProjectOf("C160 C159 C151L"));

    ClickLine(2);
    EXPECT_EQ(Project.EditState.CurrentElement[0], 2);
    EXPECT_EQ(Text("lblselected"), "2  C151L");
    EXPECT_EQ(Text("lblElType"), "standard curve 45°");
    EXPECT_FALSE(Project.EditState.DataChanged);

    QTest::keyClick(&List(), Qt::Key_Up);
    EXPECT_EQ(Project.EditState.CurrentElement[0], 1);
}

TEST_F(Editing, TheListShowsTheSelectedElementWhateverIsPressed) {
    Open(ProjectOf("C160 C159"));
    ClickLine(1);
    const QPoint line = List().visualItemRect(List().item(1)).center();
    const QPoint below(line.x(), List().viewport()->height() - 5);

    QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::ControlModifier, line);
    EXPECT_TRUE(List().item(1)->isSelected());
    QTest::keyClick(&List(), Qt::Key_Space, Qt::ControlModifier);
    EXPECT_TRUE(List().item(1)->isSelected());
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, below);
    EXPECT_TRUE(List().item(1)->isSelected());

    EXPECT_EQ(Project.EditState.CurrentElement[0], 1);
    EXPECT_EQ(List().selectedItems().size(), 1);
}

TEST_F(Editing, TheListByItselfSelectsNothing) {
    Open(ProjectOf("C160 C159"));

    List().setFocus(Qt::TabFocusReason);

    EXPECT_EQ(Project.EditState.CurrentElement[0], -1);
    EXPECT_FALSE(Button("cmdDelete").isEnabled());
}

TEST_F(Editing, AnUnknownElementThatLooksLikeMarkupIsShownAsItStands) {
    Open(ProjectOf("<b>loop</b>"));

    ClickLine(0);

    EXPECT_EQ(Text("lblselected"), "0  <b>loop</b>");
    EXPECT_EQ(Find<QLabel>("lblselected").textFormat(), Qt::PlainText);
    EXPECT_EQ(Text("lblElType"), "");
}

TEST_F(Editing, TheListFollowsTheChosenTrack) {
    Open(ProjectOf("C160", "C151L C151R"));

    Click("optTrack", "2");
    EXPECT_EQ(Lines(), (std::vector<std::string>{"0  C151L", "1  C151R"}));
    Click("optAll");
    EXPECT_TRUE(Lines().empty());
    Click("optTrack", "1");
    EXPECT_EQ(Lines(), (std::vector<std::string>{"0  C160"}));
}

TEST_F(Editing, ChoosingATrackLeavesInsertMode) {
    Open(ProjectOf("C160"));

    Click("cmdInsert");
    Click("optTrack", "3");

    EXPECT_EQ(Button("cmdInsert").text(), "Insert");
    EXPECT_FALSE(Project.EditState.InsertMode);
}

TEST_F(Editing, AClickOnTheDrawingSelectsTheNearestElement) {
    Open(ProjectOf("C160 C160 C160")); // upwards from 0, 0: labels at 2.75, 21.5 and one length of 35 further each

    ClickDrawing(3, 57);

    EXPECT_EQ(Project.EditState.CurrentElement[0], 1);
    EXPECT_EQ(List().currentRow(), 1);
    EXPECT_EQ(Text("lblselected"), "1  C160");
}

TEST_F(Editing, EveryMouseButtonSelectsWhenItGoesDown) {
    Open(ProjectOf("C160 C160 C160"));
    const QPoint top(Picture().width() / 2, 5); // nearest to the last element
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        Project.EditState.CurrentElement[0] = -1;
        QTest::mousePress(&Picture(), button, {}, top);
        EXPECT_EQ(Project.EditState.CurrentElement[0], 2);
        QTest::mouseRelease(&Picture(), button, {}, top);
    }
}

TEST_F(Editing, OfTwoElementsAtTheSameDistanceTheFirstIsSelected) {
    Open(ProjectOf("C9999 C160 C9999")); // an unknown piece has the label of the piece before it

    ClickDrawing(2.75F, 21.5F);

    EXPECT_EQ(Project.EditState.CurrentElement[0], 1);
}

TEST_F(Editing, AClickWithAllTracksChosenChangesNothing) {
    Open(ProjectOf("C160 C160"));
    Click("optAll");

    ClickDrawing(0, 0);

    EXPECT_EQ(Project.EditState.CurrentElement[0], -1);
    EXPECT_EQ(Project.EditState.CurrentTrack, AllTracks);
    EXPECT_TRUE(Prompts.Told.empty());
}

TEST_F(Editing, AClickOnATrackOfOneElementSelectsItAndKeepsTheSystem) {
    Open(ProjectOf("N10102"));

    ClickDrawing(100, 100);

    EXPECT_EQ(Project.EditState.CurrentElement[0], 0);
    EXPECT_EQ(Entry("mnuScalextricNinco").text(), "Use Ninco Track");
}

TEST_F(Editing, AClickAfterNincoTrackOffersNinco) {
    Open(ProjectOf("N10102 N10102"));

    ClickDrawing(5, 62);

    EXPECT_EQ(Project.EditState.CurrentElement[0], 1);
    EXPECT_TRUE(Find<QGroupBox>("fraNincoStraights").isVisible());
}

TEST_F(Editing, AClickOnATrackOf202ElementsIsToldAndChangesNothing) {
    pistaro::Project project = ProjectOf("");
    project.Design.Circuit.Tracks[0].ElementCodes.assign(202, "C160");
    Open(project);

    ClickDrawing(-60, 0); // beside all pieces

    ASSERT_EQ(Prompts.Told.size(), 1U);
    EXPECT_EQ(Prompts.Told[0].Icon, Icon::Exclamation);
    EXPECT_TRUE(Prompts.Told[0].Text.starts_with("Subscript out of range: "));
    EXPECT_EQ(Project.EditState.CurrentElement[0], -1);
}

TEST_F(Editing, ZoomingInEndsAt20CmAndZoomingOutBeginsAgain) {
    pistaro::Project project = ProjectOf("C160");
    project.Design.View.Width = 40;
    Open(project);

    Click("cmdZoomIn");
    EXPECT_EQ(Project.Design.View.Width, 20);
    EXPECT_FALSE(Button("cmdZoomIn").isEnabled());
    EXPECT_EQ(Button("cmdZoomIn").toolTip(), "The view is as close as it gets.");

    Click("cmdZoomOut");
    EXPECT_EQ(Project.Design.View.Width, 40);
    EXPECT_TRUE(Button("cmdZoomIn").isEnabled());
}

TEST_F(Editing, TheScrollBarsMoveTheCentreOfTheView) {
    Open();
    auto& hMov = Find<QScrollBar>("hMov");
    auto& vMov = Find<QScrollBar>("vMov");
    EXPECT_EQ(hMov.minimum(), -160);
    EXPECT_EQ(hMov.maximum(), 160);
    EXPECT_EQ(hMov.singleStep(), 16);
    EXPECT_EQ(hMov.pageStep(), 320);

    QTest::keyClick(&hMov, Qt::Key_Right);
    QTest::keyClick(&vMov, Qt::Key_Down);

    EXPECT_EQ(Project.Design.View.MidX, 16);
    EXPECT_EQ(Project.Design.View.MidY, -16);
    EXPECT_FALSE(Project.EditState.DataChanged);
}

TEST_F(Editing, TheWheelZoomsByWholeNotches) {
    Open();
    const auto turn = [&](int eighths) {
        QWheelEvent wheel(QPointF(50, 50), Picture().mapToGlobal(QPointF(50, 50)), {}, QPoint(0, eighths), {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Picture(), &wheel);
    };

    turn(60);
    EXPECT_EQ(Project.Design.View.Width, 320);
    turn(60);
    EXPECT_EQ(Project.Design.View.Width, 280);
    turn(-240);
    EXPECT_EQ(Project.Design.View.Width, 360);
}

TEST_F(Editing, ManyNotchesOfTheWheelAtOnceAreAllTakenAndDrawnOnce) {
    constexpr int notches = 161; // out and in by turns, the last one out
    pistaro::Project project = ProjectOf("");
    for (int piece = 0; piece < 400; ++piece)
        project.Design.Circuit.Tracks[0].ElementCodes.emplace_back(piece % 3 == 0 ? "C151L" : "C160");
    Open(project);
    auto& view = static_cast<CircuitView&>(Picture());
    const PaintCounter paints(view);
    QElapsedTimer clock;

    clock.start();
    for (int notch = 0; notch < notches; ++notch) {
        QWheelEvent wheel(QPointF(50, 50), view.mapToGlobal(QPointF(50, 50)), {},
                          QPoint(0, notch % 2 == 0 ? -120 : 120), {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &wheel);
        EXPECT_TRUE(wheel.isAccepted());
    }
    EXPECT_EQ(paints.Count, 0);
    QApplication::processEvents();
    const qint64 zoomed = clock.nsecsElapsed();

    EXPECT_EQ(paints.Count, 1);
    EXPECT_EQ(Project.Design.View.Width, 360);
    const QImage shown = view.Picture().copy();
    clock.restart();
    for (int redraw = 0; redraw < notches / 4; ++redraw)
        view.Redraw();
    const qint64 quarter = clock.nsecsElapsed();
    EXPECT_EQ(view.Picture(), shown) << "what was shown is the view that the last notch led to";
    EXPECT_LT(zoomed, 2 * quarter) << "nanoseconds: no redraw for each notch";
}

TEST_F(Editing, NumbersAreDrawnWhileTheirBoxIsTicked) {
    Open(ProjectOf("C160"));
    const QImage without = static_cast<CircuitView&>(Picture()).Picture().copy();

    Click("chkNumbers");
    EXPECT_NE(static_cast<CircuitView&>(Picture()).Picture(), without);
    Click("chkNumbers");
    EXPECT_EQ(static_cast<CircuitView&>(Picture()).Picture(), without);
}

TEST_F(Editing, RefreshDrawsTheCircuitFromItsDataAgain) {
    Open();
    Project.Design.Circuit.Tracks[0] = Chain("C160");

    QTest::keyClick(Window.get(), Qt::Key_F5);

    EXPECT_EQ(Lines(), (std::vector<std::string>{"0  C160"}));
}

TEST_F(Editing, TheDrawingFillsTheMiddleAndItsPictureIsAsFineAsTheScreen) {
    Open();
    for (const QSize size : {QSize(1024, 700), QSize(1400, 900), QSize(900, 1000)}) {
        Window->resize(size);
        QTest::qWait(50);
        EXPECT_GE(Picture().width(), size.width() - 540); // what the side columns and their margins take
        EXPECT_GE(Picture().height(), size.height() - 120);
        EXPECT_EQ(Canvas().Picture().size(), Picture().size());
    }
}

TEST_F(Editing, WithAllTracksChosenEveryTrackIsDrawnInTheInactiveColour) {
    Open(ProjectOf("C160"));
    const auto has = [&](const QColor& colour) {
        const QImage& image = static_cast<CircuitView&>(Picture()).Picture();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).hue() == colour.hue() && image.pixelColor(x, y).saturation() > 60)
                    return true;
        return false;
    };
    EXPECT_TRUE(has(Qt::red)) << "not owned";

    Click("optAll");

    EXPECT_FALSE(has(Qt::red));
}

TEST_F(Editing, TheStatusBarTellsTrackPiecesGapAndUnsavedWork) {
    Open(ProjectOf("C160"));
    const auto* const status = Window->findChild<QLabel*>("lblStatus");
    ASSERT_NE(status, nullptr);
    EXPECT_EQ(status->text(), "Track 1 · 1 piece · gap 35.0 cm");

    Click("cmdElement", "C160");
    EXPECT_EQ(status->text(), "Track 1 · 2 pieces · gap 70.0 cm · unsaved");
    Click("optTrack", "2");
    EXPECT_EQ(status->text(), "Track 2 · empty · unsaved");
    Click("optAll");
    EXPECT_EQ(status->text(), "All tracks · 2 pieces · unsaved");
}

TEST_F(Editing, PasteTellsWhatItTakesWhereTheClipboardNamesNoPieces) {
    QGuiApplication::clipboard()->setText("Dear Anna");
    Open(ProjectOf("C160"));
    QTest::keyClick(Window.get(), Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(Prompts.Told.size(), 1U);
    EXPECT_EQ(Prompts.Told[0].Text,
              "Nothing was pasted: no pieces are understood in \"Dear Anna\".\nPaste takes a list of pieces such as "
              "\"C160 x3, C151L x4\", or one code a line.");

    QGuiApplication::clipboard()->setText("C151L\nC160");
    QTest::keyClick(Window.get(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Codes(), "C160 C151L C160");
}

TEST_F(Editing, TextAloneIsPutOnTheClipboardWithoutAPicture) {
    Open();

    Session->Windows->PutOnClipboard({.Text = "C160 x2", .Png = "", .Svg = ""});

    const QMimeData& data = *QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(data.formats(), QStringList{"text/plain"});
    EXPECT_EQ(data.text(), "C160 x2");
    EXPECT_FALSE(data.hasImage());
}

} // namespace pistaro
