// The dialog that places a picture under the circuit, by its own controls.
#include "ui/frmBackground.h"

#include "commands/bitmaps.h"
#include "dialog_fixture.h"

namespace pistaro {
namespace {

/// Opens on a picture of 400 x 320 pixels whose size is not known.
struct ImportedBackground : frmBackground {
    explicit ImportedBackground(Session& session)
        : frmBackground(session, {.Picture = std::make_shared<const std::string>(Bitmap(400, 320, Rgb(200, 220, 240))),
                                  .X = 10,
                                  .Y = 20}) {}
};

class FrmBackground : public DialogTest<ImportedBackground> {
protected:
    /// Clicks the picture at parts of its width and height.
    void ClickAt(double across, double down) const {
        auto& picture = Find<MarkedPicture>("picBackground");
        const double scale = std::min(picture.width() / 400.0, picture.height() / 320.0);
        const QPointF corner((picture.width() - 400 * scale) / 2, (picture.height() - 320 * scale) / 2);
        QTest::mouseClick(&picture, Qt::LeftButton, {}, (corner + QPointF(400 * across, 320 * down) * scale).toPoint());
    }
};

TEST_F(FrmBackground, WantsTwoPlacesAndTheirDistance) {
    EXPECT_FALSE(Find<QPushButton>("cmdOk").isEnabled());
    EXPECT_EQ(Label("lblScale"), "The picture's size is not known yet.");
    ExpectNothingClipped();

    ClickAt(0.25, 0.5);
    EXPECT_FALSE(Find<QPushButton>("cmdOk").isEnabled());
    ClickAt(0.75, 0.5);
    Find<QDoubleSpinBox>("spnDistance").setValue(300);

    EXPECT_TRUE(Find<QPushButton>("cmdOk").isEnabled());
}

TEST_F(FrmBackground, LaysThePictureAtItsTrueSize) {
    ClickAt(0.25, 0.5);
    ClickAt(0.75, 0.5);
    Find<QDoubleSpinBox>("spnDistance").setValue(300);
    Find<QDoubleSpinBox>("spnX").setValue(-40);
    Find<QDoubleSpinBox>("spnTurn").setValue(90);
    Press("cmdOk");

    const auto background = session_->Project.Background;
    ASSERT_TRUE(background);
    EXPECT_NEAR(background->CmPerPixel, 1.5, 0.015) << "300 cm on 200 pixels, clicked to a pixel";
    EXPECT_EQ(background->X, -40);
    EXPECT_EQ(background->Y, 20);
    EXPECT_NEAR(background->Angle, 1.570796, 1e-6);
    EXPECT_TRUE(session_->Project.EditState.DataChanged);
    EXPECT_FALSE(dialog_->isVisible());
}

TEST_F(FrmBackground, RemembersWhatWasMarkedAndHowFadedItIs) {
    ClickAt(0.25, 0.5);
    ClickAt(0.75, 0.5);
    Find<QDoubleSpinBox>("spnDistance").setValue(300);
    Find<QSpinBox>("spnOpacity").setValue(60);
    Press("cmdOk");

    frmBackground again(*session_, *session_->Project.Background);

    const auto& marks = again.findChild<MarkedPicture*>("picBackground")->Marks();
    ASSERT_EQ(marks.size(), 2U);
    EXPECT_NEAR(marks[0].x(), 100, 2);
    EXPECT_NEAR(marks[1].x(), 300, 2);
    EXPECT_NEAR(marks[1].y(), 160, 2);
    EXPECT_EQ(again.findChild<QDoubleSpinBox*>("spnDistance")->value(), 300);
    EXPECT_EQ(again.findChild<QSpinBox*>("spnOpacity")->value(), 60);
    EXPECT_EQ(session_->Project.Background->Opacity, 0.6);
}

TEST_F(FrmBackground, TellsWhatToDoNext) {
    EXPECT_EQ(Label("lblStep"), "Click two points whose distance apart you know, such as the ends of a wall.");
    ClickAt(0.25, 0.5);
    EXPECT_EQ(Label("lblStep"), "Now click the second point.");
    ClickAt(0.75, 0.5);
    EXPECT_EQ(Label("lblStep"), "A point can be dragged. The wheel zooms, a drag beside the points moves the picture.");
    ExpectNothingClipped();
}

TEST_F(FrmBackground, DragsAMark) {
    ClickAt(0.25, 0.5);
    ClickAt(0.75, 0.5);
    auto& picture = Find<MarkedPicture>("picBackground");
    const double scale = std::min(picture.width() / 400.0, picture.height() / 320.0);
    const QPointF corner((picture.width() - 400 * scale) / 2, (picture.height() - 320 * scale) / 2);
    const QPoint from = (corner + QPointF(300, 160) * scale).toPoint();
    const QPoint to = (corner + QPointF(200, 160) * scale).toPoint();

    QTest::mousePress(&picture, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, QPointF(to), picture.mapToGlobal(QPointF(to)), Qt::NoButton, Qt::LeftButton,
                     {});
    QApplication::sendEvent(&picture, &move);
    QTest::mouseRelease(&picture, Qt::LeftButton, {}, to);

    ASSERT_TRUE(picture.Distance().has_value());
    EXPECT_NEAR(*picture.Distance(), 100, 2);
}

TEST_F(FrmBackground, MovesTheNearerMarkWithAThirdClick) {
    ClickAt(0.25, 0.5);
    ClickAt(0.5, 0.5);
    ClickAt(0.75, 0.5);

    const auto distance = Find<MarkedPicture>("picBackground").Distance();
    ASSERT_TRUE(distance.has_value());
    EXPECT_NEAR(*distance, 200, 2);
}

TEST_F(FrmBackground, ShowsThePictureTurned) {
    const auto& picture = Find<MarkedPicture>("picBackground");
    Find<QDoubleSpinBox>("spnTurn").setValue(180);
    ClickAt(0.25, 0.25);
    ASSERT_EQ(picture.Marks().size(), 1U);
    EXPECT_NEAR(picture.Marks()[0].x(), 300, 2);
    EXPECT_NEAR(picture.Marks()[0].y(), 240, 2);

    Find<QDoubleSpinBox>("spnTurn").setValue(90);
    const QImage shown = Find<QWidget>("picBackground").grab().toImage();
    const QRgb colour = qRgb(200, 220, 240);
    int across = 0;
    int down = 0;
    for (int x = 0; x < shown.width(); ++x)
        across += shown.pixel(x, shown.height() / 2) == colour ? 1 : 0;
    for (int y = 0; y < shown.height(); ++y)
        down += shown.pixel(shown.width() / 2, y) == colour ? 1 : 0;
    EXPECT_NEAR(static_cast<double>(down) / across, 400.0 / 320, 0.02) << "higher than wide, and seen whole";
}

TEST_F(FrmBackground, ChangesNothingWhenItIsCancelled) {
    ClickAt(0.25, 0.5);
    ClickAt(0.75, 0.5);
    Press("cmdCancel");

    EXPECT_FALSE(session_->Project.Background);
    EXPECT_FALSE(session_->Project.EditState.DataChanged);
}

} // namespace
} // namespace pistaro
