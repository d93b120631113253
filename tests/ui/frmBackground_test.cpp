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

TEST_F(FrmBackground, MovesTheNearerMarkWithAThirdClick) {
    ClickAt(0.25, 0.5);
    ClickAt(0.5, 0.5);
    ClickAt(0.75, 0.5);

    const auto distance = Find<MarkedPicture>("picBackground").Distance();
    ASSERT_TRUE(distance.has_value());
    EXPECT_NEAR(*distance, 200, 2);
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
