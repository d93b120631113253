// The tour through a first oval, walked by its user's own presses; and the samples.
#include "ui/window_fixture.h"

#include "support/circuit_text.h"
#include "support/settings_bytes.h"
#include "support/temporary_folder.h"
#include "ui/frmSamples.h"

#include <QLineEdit>
#include <QWheelEvent>

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::HasSubstr;

class TourTest : public WindowTest {
protected:
    void Begin() {
        Choose("mnuTour");
        Settle();
    }
    static void Settle() {
        for (int i = 0; i < 5; ++i)
            QApplication::processEvents();
    }
    bool IsOn() { return Window->findChild<QWidget*>("fraTour", Qt::FindDirectChildrenOnly) != nullptr; }
    QWidget& Bubble() { return Find<QWidget>("fraTour"); }
    QRect Ring() { return Find<QWidget>("fraTourRing").geometry(); }
    QRect PlaceOf(const QWidget& control) { return {control.mapTo(Window.get(), QPoint()), control.size()}; }
    /// On what has the window's keyboard.
    void Digit(Qt::Key key) { QTest::keyClick(Window->focusWidget(), key); }
};

TEST_F(TourTest, WalksThroughAnOvalInSixActions) {
    Open();
    Begin();
    EXPECT_EQ(Text("lblTourStep"), "Step 1 of 6");
    EXPECT_TRUE(Ring().contains(PlaceOf(Piece("C160"))));

    Click("cmdElement", "C160");
    EXPECT_EQ(Text("lblTourStep"), "Step 2 of 6");
    EXPECT_TRUE(Ring().contains(PlaceOf(Find<QLabel>("lblStatus"))));
    Digit(Qt::Key_4);
    EXPECT_EQ(Text("lblTourStep"), "Step 3 of 6");
    EXPECT_TRUE(Ring().contains(PlaceOf(Piece("C151L"))));
    Click("cmdElement", "C151L");
    EXPECT_EQ(Text("lblTourStep"), "Step 4 of 6");
    Click("cmdElement", "C160");
    EXPECT_EQ(Text("lblTourStep"), "Step 5 of 6");
    Digit(Qt::Key_4);
    EXPECT_EQ(Text("lblTourStep"), "Step 6 of 6");
    Click("cmdElement", "C151L");

    EXPECT_EQ(Text("lblTourStep"), "Done");
    EXPECT_EQ(Text("lblStatus"), "Track 1 · 10 pieces · closed · unsaved");
    EXPECT_EQ(Button("cmdEndTour").text(), "Finish");
    Click("cmdEndTour");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(IsOn());
}

TEST_F(TourTest, WaitsAndTellsKindlyWhenSomethingElseIsDone) {
    Open();
    Begin();

    Click("cmdElement", "C159");
    EXPECT_EQ(Text("lblTourStep"), "Step 1 of 6");
    EXPECT_THAT(Text("lblTourRemark"), HasSubstr("Now C159 lies"));
    EXPECT_TRUE(Find<QLabel>("lblTourRemark").isVisible());
    EXPECT_EQ(Text("lblTour"), "The tour goes on as soon as the oval is right again.");
    EXPECT_FALSE(Find<QWidget>("fraTourRing").isVisible()) << "no control goes on from here";
    EXPECT_TRUE(Button("cmdTakeBack").isVisible());

    Click("cmdElement", "C159");
    Click("cmdTakeBack", "", 2);
    EXPECT_EQ(Codes(), "");
    EXPECT_FALSE(Button("cmdTakeBack").isVisible());
    EXPECT_TRUE(Ring().contains(PlaceOf(Piece("C160")))) << "the step goes on";
    EXPECT_FALSE(Find<QLabel>("lblTourRemark").isVisible());
    Choose("mnuColumns");
    Settle();
    EXPECT_THAT(Text("lblTourRemark"), HasSubstr("F9"));
    EXPECT_FALSE(Find<QWidget>("fraTourRing").isVisible());
    Choose("mnuColumns");
    QTest::keyClicks(&Find<QLineEdit>("txtFindPiece"), "chic");
    Settle();
    EXPECT_THAT(Text("lblTourRemark"), HasSubstr("Esc"));
    QTest::keyClick(&Find<QLineEdit>("txtFindPiece"), Qt::Key_Escape);
    Settle();
    EXPECT_TRUE(Ring().contains(PlaceOf(Piece("C160"))));
}

TEST_F(TourTest, EndsWhenItsUserEndsItAndLeavesWhatIsLaid) {
    Open();
    Begin();
    Click("cmdElement", "C160");

    Click("cmdEndTour");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    EXPECT_FALSE(IsOn());
    EXPECT_EQ(Codes(), "C160");
    Click("cmdElement", "C160");
    EXPECT_EQ(Codes(), "C160 C160");
}

TEST_F(TourTest, StandsInsideTheWindowBesideTheControlWhateverItsSize) {
    Open();
    Begin();
    for (const QSize size : {QSize(1366, 768), QSize(1920, 1080), QSize(1024, 640)}) {
        Window->resize(size);
        Settle();
        EXPECT_TRUE(Window->rect().contains(Bubble().geometry())) << size.width();
        EXPECT_FALSE(Bubble().geometry().intersects(PlaceOf(Piece("C160")))) << size.width();
    }
    Click("cmdElement", "C160");
    EXPECT_TRUE(Window->rect().contains(Bubble().geometry()));
    EXPECT_FALSE(Bubble().geometry().intersects(PlaceOf(Find<QLabel>("lblStatus"))));
}

TEST_F(TourTest, CoversNoControlAtAnyStep) {
    Open();
    Begin();
    const auto expectClear = [&] {
        Settle();
        EXPECT_TRUE(PlaceOf(Picture()).contains(Bubble().geometry())) << Text("lblTourStep");
        EXPECT_NE(Window->childAt(Ring().center()), &Find<QWidget>("fraTourRing")) << "the mouse reaches what is in it";
    };
    for (const QSize size : {QSize(1024, 640), QSize(1920, 1080)}) {
        Window->resize(size);
        for (const char* const code : {"C160", "C151L", "C160", "C151L"}) {
            expectClear();
            if (std::string(code) == "C151L") {
                Digit(Qt::Key_4);
                expectClear();
            }
            Click("cmdElement", code);
        }
        expectClear();
        Choose("mnuUndo");
        Choose("mnuUndo");
        Choose("mnuUndo");
        Choose("mnuUndo");
        EXPECT_EQ(Text("lblTourStep"), "Step 1 of 6");
    }
    Choose("mnuChecks");
    expectClear();
}

TEST_F(TourTest, HidesNeitherTheLegendNorWhatIsLaidNorTheOpenEnd) {
    Open();
    Session->Do([&] { Session->Looks.Legend = true; });
    Begin();
    const auto expectClear = [&] {
        Settle();
        const QRectF bubble(Bubble().geometry().translated(-PlaceOf(Picture()).topLeft()));
        EXPECT_FALSE(Canvas().PlaceOfLegend().isEmpty());
        EXPECT_FALSE(bubble.intersects(Canvas().PlaceOfLegend())) << Text("lblTourStep");
        for (const QPointF corner : Canvas().PlacesOfCorners())
            EXPECT_FALSE(bubble.contains(corner)) << Text("lblTourStep");
    };
    for (const QSize size : {QSize(1366, 768), QSize(1920, 1080)}) {
        Window->resize(size);
        expectClear();
        for (const char* const code : {"C160", "C151L", "C160", "C151L"}) {
            if (std::string(code) == "C151L") Digit(Qt::Key_4);
            Click("cmdElement", code);
            expectClear();
        }
        EXPECT_EQ(Text("lblTourStep"), "Done");
        Session->Do([&] { Project.Design.Circuit.Tracks[0].ElementCodes.clear(); });
    }
}

TEST_F(TourTest, TheEmptyDrawingDoesNotInviteWhileTheTourDoes) {
    Open();
    const QRect upperHalf(0, 0, Picture().width(), Picture().height() / 2);
    const QImage inviting = Picture().grab(upperHalf).toImage();
    Begin();
    const QImage silent = Picture().grab(upperHalf).toImage();
    EXPECT_NE(silent, inviting);

    Click("cmdEndTour");

    EXPECT_EQ(Picture().grab(upperHalf).toImage(), inviting);
}

TEST_F(TourTest, TheRingFollowsAColumnThatScrolls) {
    Open();
    Window->resize(1024, 500);
    Begin();
    Click("cmdElement", "C160");
    Digit(Qt::Key_4);
    Settle();
    const QRect before = Ring();

    QWidget& column = *Find<QWidget>("fraBankedCurves").parentWidget()->parentWidget();
    ASSERT_EQ(column.objectName(), "qt_scrollarea_viewport");
    QWheelEvent turn({5, 5}, column.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&column, &turn);
    Settle();

    EXPECT_TRUE(Ring().contains(PlaceOf(Piece("C151L"))));
    EXPECT_NE(Ring(), before);
}

TEST_F(TourTest, TakesTheKeyboardFromTheListSoThatDigitsCount) {
    Open(ProjectOf("C160 C159"));
    List().setFocus();
    Begin(); // a circuit that is saved makes way
    EXPECT_EQ(Window->focusWidget(), &Picture()) << "where no list swallows digits";

    Click("cmdElement", "C160");
    Digit(Qt::Key_4);

    EXPECT_EQ(Text("lblTourStep"), "Step 3 of 6");
}

class Samples : public WindowTest {
protected:
    TemporaryFolder Folder;
};

TEST_F(Samples, AreShownWithPictureNameAndPieces) {
    Open();
    WriteBytes(Folder / "figure-of-eight.trk", CircuitText("C160 C151L"));
    WriteBytes(Folder / "damaged.trk", "no circuit");
    WriteBytes(Folder / "readme.md", "no circuit either");

    const frmSamples dialog(*Session, Folder.Path());

    const auto& list = *dialog.findChild<QListWidget*>("lstSamples");
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.item(0)->text(), "figure of eight\n2 pieces");
    EXPECT_FALSE(list.item(0)->icon().isNull());
}

TEST_F(Samples, OpenLoadsTheChosenOneAfterTheQuestionAboutUnsavedWork) {
    pistaro::Project project = ProjectOf("C160 C160");
    project.EditState.DataChanged = true;
    Open(project);
    WriteBytes(Folder / "a.trk", CircuitText("C159"));
    WriteBytes(Folder / "b.trk", CircuitText("N10102 N10103"));
    frmSamples dialog(*Session, Folder.Path());
    dialog.show();
    QTest::keyClick(dialog.findChild<QListWidget*>("lstSamples"), Qt::Key_Right);
    auto* const open = dialog.findChild<QPushButton*>("cmdOpen");
    Prompts.Answers = {Answer::Cancel, Answer::Ok};

    QTest::mouseClick(open, Qt::LeftButton);
    EXPECT_EQ(Codes(), "C160 C160");
    EXPECT_TRUE(dialog.isVisible());

    QTest::mouseClick(open, Qt::LeftButton);
    EXPECT_EQ(Codes(), "N10102 N10103");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(Window->windowTitle(), "Pistaro - b");
    EXPECT_TRUE(Piece("N10102").isVisible()) << "its system is offered";
    ASSERT_EQ(Prompts.Asked.size(), 2U);
    EXPECT_EQ(Prompts.Asked[1].Text, "All data will be lost if you proceed.");
}

TEST_F(Samples, WhereNoneAreThatIsSaid) {
    Open();
    const frmSamples dialog(*Session, Folder / "gone");

    EXPECT_EQ(dialog.findChild<QLabel*>("lblExplain")->text(),
              "No samples found; they come with an installed Pistaro.");
    EXPECT_FALSE(dialog.findChild<QPushButton*>("cmdOpen")->isEnabled());
}

} // namespace
} // namespace pistaro
