// The drawing area as it fills the window's middle, and what is shown above the circuit.
#include "ui/window_fixture.h"

#include <QScrollBar>

namespace pistaro {
namespace {

class CanvasTest : public WindowTest {
protected:
    static QImage Shown(QWidget& widget) { return widget.grab().toImage(); }

    static pistaro::Project LongTrack() {
        pistaro::Project project = ProjectOf("");
        for (int piece = 0; piece < 400; ++piece)
            project.Design.Circuit.Tracks[0].ElementCodes.emplace_back(piece % 3 == 0 ? "C151L" : "C160");
        return project;
    }
};

TEST_F(CanvasTest, TakesSeventyPercentOfAWideWindow) {
    Open();
    Window->resize(1920, 1080);
    QTest::qWait(50);

    EXPECT_GE(Picture().width(), 1344);
}

TEST_F(CanvasTest, AClickBesideTheSquareSelectsWhatLiesThere) {
    pistaro::Project project = ProjectOf("C160 C160", "C160");
    project.Design.Circuit.Tracks[0].TrackStartX = 300; // the square ends at 160
    Open(project);
    Window->resize(1700, 700);
    QTest::qWait(50);

    ClickDrawing(307, 50);

    EXPECT_EQ(Project.EditState.CurrentElement[0], 1);
}

TEST_F(CanvasTest, AnOverlayIsShownUntilItsOwnerTakesItAway) {
    Open(ProjectOf("C160"));
    const QImage before = Shown(Picture());
    const OverlayPath line{.Path = {LineSegment{{-100, 50}, {100, 50}}}, .InkColour = Rgb(200, 0, 200), .Pixels = 4};

    Canvas().SetOverlay("a", {line});
    Canvas().SetOverlay("b", {OverlayHandle{{-50, -50}, Rgb(200, 0, 200)}});
    const QImage both = Shown(Picture());
    EXPECT_EQ(both.pixelColor(Canvas().PlaceOf({0, 50}).toPoint()), QColor(200, 0, 200));
    EXPECT_EQ(both.pixelColor(Canvas().PlaceOf({-50, -50}).toPoint()), QColor(200, 0, 200));

    Canvas().ClearOverlay("a");
    EXPECT_NE(Shown(Picture()), both);
    EXPECT_NE(Shown(Picture()), before);
    Canvas().ClearOverlay("b");
    EXPECT_EQ(Shown(Picture()), before);
}

TEST_F(CanvasTest, AnOverlayIsNoPartOfTheKeptPicture) {
    Open(ProjectOf("C160"));
    const QImage before = Canvas().Picture().copy();

    Canvas().SetOverlay("a", {OverlayHandle{{0, 0}, Rgb(200, 0, 200)}});

    EXPECT_EQ(Canvas().Picture(), before);
}

TEST_F(CanvasTest, ALargeCircuitThatMovedIsDrawnAsItIsOnceItRests) {
    Open(LongTrack());
    const QImage before = Shown(Picture());

    QTest::keyClick(&Find<QScrollBar>("hMov"), Qt::Key_Right);
    EXPECT_NE(Shown(Picture()), before) << "at once";
    QTest::keyClick(&Find<QScrollBar>("vMov"), Qt::Key_Down);
    Click("cmdZoomIn");
    EXPECT_NE(Shown(Picture()), before);
    QTest::qWait(200);

    const QImage rested = Shown(Picture());
    Canvas().Redraw();
    EXPECT_EQ(Shown(Picture()), rested);
}

} // namespace
} // namespace pistaro
