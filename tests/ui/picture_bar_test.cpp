// The strip by which the picture under the circuit is dragged, turned and faded in the drawing.
#include "commands/background_commands.h"
#include "commands/bitmaps.h"
#include "ui/window_fixture.h"

namespace pistaro {
namespace {

class PictureBarTest : public WindowTest {
protected:
    /// Opens the window on a piece and a picture of 200 x 100 cm around 30, 20, and the strip.
    void OpenStrip() {
        pistaro::Project project = ProjectOf("C160");
        project.Design.View = ViewAround(0, 0, 400, 200);
        project.Background = std::make_shared<const ScaledBackground>(
            ScaledBackground{.Picture = std::make_shared<const std::string>(Bitmap(100, 50, Rgb(0, 255, 0))),
                             .X = 30,
                             .Y = 20,
                             .CmPerPixel = 2});
        Open(project);
        Choose("mnuBackgroundMove");
    }

    QWidget& Strip() { return Find<QWidget>("fraPicture"); }
    const ScaledBackground& Laid() const { return *Session->Project.Background; }
    QPoint PlaceOf(float x, float y) { return Canvas().PlaceOf({x, y}).toPoint(); }
    std::string LastStep() const { return Session->History().Caption(Session->History().Present()); }

    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers keys = {}) {
        QTest::mousePress(&Canvas(), Qt::LeftButton, keys, from);
        MoveTo(to, keys);
        QTest::mouseRelease(&Canvas(), Qt::LeftButton, keys, to);
    }

    void MoveTo(QPoint place, Qt::KeyboardModifiers keys = {}) {
        QMouseEvent move(QEvent::MouseMove, QPointF(place), Canvas().mapToGlobal(QPointF(place)), Qt::NoButton,
                         Qt::LeftButton, keys);
        QApplication::sendEvent(&Canvas(), &move);
    }
};

TEST_F(PictureBarTest, ComesByItsEntryAndGoesByEscape) {
    OpenStrip();
    EXPECT_TRUE(Strip().isVisible());
    EXPECT_TRUE(Entry("mnuBackgroundMove").isChecked());
    EXPECT_FALSE(Canvas().OverlayOf("picture frame").empty());
    EXPECT_EQ(Text("lblPlaceOfPicture"), "Middle at 30, 20 cm, turned 0° clockwise");

    QTest::keyClick(&Canvas(), Qt::Key_Escape);

    EXPECT_FALSE(Strip().isVisible());
    EXPECT_FALSE(Entry("mnuBackgroundMove").isChecked());
    EXPECT_TRUE(Canvas().OverlayOf("picture frame").empty());
    EXPECT_FALSE(Session->History().CanUndo());
}

TEST_F(PictureBarTest, EachDragIsAStep) {
    OpenStrip();

    Drag(PlaceOf(0, 0), PlaceOf(50, -30));

    EXPECT_NEAR(Laid().X, 80, 1);
    EXPECT_NEAR(Laid().Y, -10, 1);
    EXPECT_EQ(LastStep(), "Move Background");
    EXPECT_EQ(Session->Project.EditState.SelectedElement(), -1) << "the piece under the mouse is left alone";
    EXPECT_TRUE(Strip().isVisible());
    Choose("mnuUndo");
    EXPECT_EQ(Laid().X, 30);
    EXPECT_TRUE(Strip().isVisible()) << "there is a picture still";
    EXPECT_EQ(Text("lblPlaceOfPicture"), "Middle at 30, 20 cm, turned 0° clockwise");
}

TEST_F(PictureBarTest, ShowsThePictureWhereTheDragHasIt) {
    OpenStrip();
    const auto isGreen = [this](float x, float y) {
        return Canvas().grab().toImage().pixelColor(PlaceOf(x, y)).green() > 200 &&
               Canvas().grab().toImage().pixelColor(PlaceOf(x, y)).red() < 50;
    };
    EXPECT_TRUE(isGreen(100, 50));

    QTest::mousePress(&Canvas(), Qt::LeftButton, {}, PlaceOf(0, 0));
    MoveTo(PlaceOf(-100, 0));
    EXPECT_FALSE(isGreen(100, 50));
    EXPECT_TRUE(isGreen(-150, 50));

    QTest::keyClick(&Canvas(), Qt::Key_Escape);
    EXPECT_TRUE(isGreen(100, 50)) << "Esc ends the drag without it";
    EXPECT_TRUE(Strip().isVisible());
    QTest::mouseRelease(&Canvas(), Qt::LeftButton, {}, PlaceOf(-100, 0));
    EXPECT_FALSE(Session->History().CanUndo());
}

TEST_F(PictureBarTest, TurnsByTheHandleAndInStepsWithShift) {
    OpenStrip();

    Drag(PlaceOf(30, 70), PlaceOf(80, 20)); // from above the middle to its right: a quarter turn clockwise
    EXPECT_NEAR(Laid().Angle, 1.5708, 0.03);
    EXPECT_EQ(LastStep(), "Turn Background");
    EXPECT_EQ(Laid().X, 30);

    Drag(PlaceOf(30, 70), PlaceOf(30, 90), Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_NEAR(Laid().Angle, 1.570796, 1e-6) << "in steps of 11.25 degrees";
}

TEST_F(PictureBarTest, MovesInTheTurnedRoomAsTheMouseDoes) {
    OpenStrip();
    Session->Do([&] { Session->Project.Design.Room.Angle = 1.5707964F; }); // 30, 20 lies at 20, -30 now

    Drag(PlaceOf(20, -30), PlaceOf(60, -30));

    EXPECT_NEAR(Laid().X, 30, 1);
    EXPECT_NEAR(Laid().Y, 60, 1) << "40 cm to the right are 40 up in the room";
}

TEST_F(PictureBarTest, ArrowKeysMoveByACentimetreAsOneStep) {
    OpenStrip();

    QTest::keyClick(&Canvas(), Qt::Key_Left);
    QTest::keyClick(&Canvas(), Qt::Key_Left);
    QTest::keyClick(&Canvas(), Qt::Key_Up, Qt::ShiftModifier);

    EXPECT_EQ(Laid().X, 28);
    EXPECT_EQ(Laid().Y, 30);
    Choose("mnuUndo");
    EXPECT_EQ(Laid().X, 30);
}

TEST_F(PictureBarTest, FadesThePicture) {
    OpenStrip();

    Find<QSlider>("sldOpacity").setValue(40);

    EXPECT_EQ(Laid().Opacity, 0.4);
    EXPECT_EQ(LastStep(), "Fade Background");
    const QColor dot = Canvas().grab().toImage().pixelColor(PlaceOf(100, 50));
    EXPECT_GT(dot.red(), 100) << "two fifths green, three fifths white";
    EXPECT_GT(dot.green(), 200);
}

TEST_F(PictureBarTest, FramesThePictureThatTakesItsPlace) {
    OpenStrip();

    Session->Do([&] {
        ScaledBackground other = Laid();
        other.Picture = std::make_shared<const std::string>(Bitmap(50, 50, Rgb(0, 0, 255)));
        Session->Project.Background = std::make_shared<const ScaledBackground>(other);
    });

    Drag(PlaceOf(30, 70), PlaceOf(80, 20)); // the handle of a picture 100 cm high, and nothing else, turns it
    EXPECT_NEAR(Laid().Angle, 1.5708, 0.03);
    const auto& frame = std::get<OverlayPath>(Canvas().OverlayOf("picture frame").front());
    EXPECT_NEAR(std::get<LineSegment>(frame.Path.front()).From.X, -20, 1) << "and it is 100 cm wide";
}

TEST_F(PictureBarTest, GoesWithThePicture) {
    OpenStrip();

    Choose("mnuBackgroundRemove");

    EXPECT_FALSE(Strip().isVisible());
}

} // namespace
} // namespace pistaro
