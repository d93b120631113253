// A picture under the circuit at its true size, by the colours of the dots where its corners must be.
#include "imaging/scaled_backdrop.h"

#include "imaging/cached_drawing.h"
#include "imaging/circuit_picture.h"
#include "support/chain.h"

#include <gtest/gtest.h>

#include <numbers>

namespace pistaro {
namespace {

constexpr QRgb Cyan = 0xFF00FFFF;
constexpr QRgb Magenta = 0xFFFF00FF;

class ScaledBackdrops : public testing::Test {
protected:
    ScaledBackdrops() {
        project_.Preferences.Grid.Type = 0;
        project_.Design.View = ViewAround(0, 0, 200, 100);
        project_.Background = std::make_shared<const ScaledBackground>(
            ScaledBackground{.Picture = std::make_shared<const std::string>(), .X = 50, .Y = 30, .CmPerPixel = 0.5});
    }

    /// A picture of 80 x 40 pixels, which is 40 x 20 cm: cyan, its right half magenta.
    static QImage Floor() {
        QImage floor(80, 40, QImage::Format_RGB32);
        floor.fill(Cyan);
        QPainter(&floor).fillRect(40, 0, 40, 40, QColor::fromRgb(Magenta));
        return floor;
    }

    /// The dot at a place of the world, on a canvas of 2 pixels a cm.
    QRgb At(double x, double y) {
        drawing_.Redraw(Pieces(), project_, {}, {{400, 400}}, TrackLook::Lines, Floor());
        return drawing_.Picture().pixel(static_cast<int>((x + 100) * 2), static_cast<int>((100 - y) * 2));
    }

    QRgb Ground() {
        const Colour colour = project_.Preferences.Colours.Background;
        return qRgb(Red(colour), Green(colour), Blue(colour));
    }

    OffscreenGraphics graphics_;
    Project project_ = ProjectOf("");
    CachedDrawing drawing_;
};

TEST_F(ScaledBackdrops, LieWhereTheyArePlacedAtTheirTrueSize) {
    EXPECT_EQ(At(31, 21), Cyan) << "40 x 20 cm around 50, 30";
    EXPECT_EQ(At(31, 39), Cyan);
    EXPECT_EQ(At(69, 21), Magenta);
    EXPECT_EQ(At(69, 39), Magenta);
    EXPECT_EQ(At(29, 30), Ground());
    EXPECT_EQ(At(71, 30), Ground());
    EXPECT_EQ(At(50, 18), Ground());
    EXPECT_EQ(At(50, 42), Ground());
}

TEST_F(ScaledBackdrops, LetTheGroundShineThroughWhenTheyAreFaded) {
    ScaledBackground faded = *project_.Background;
    faded.Opacity = 0.5;
    project_.Background = std::make_shared<const ScaledBackground>(faded);

    const QRgb dot = At(31, 21);

    EXPECT_NEAR(qRed(dot), qRed(Ground()) / 2, 2) << "of cyan nothing";
    EXPECT_NEAR(qGreen(dot), (255 + qGreen(Ground())) / 2, 2);
}

TEST_F(ScaledBackdrops, LieOnTheGridWhichShinesThroughWhereTheyAreFaded) {
    project_.Preferences.Grid = {.Type = 2, .Step = 5};
    const auto isPlain = [&](double left, double right) { // a strip of a row in which the grid has its dots
        for (double x = left; x < right; x += 0.5) {
            if (At(x, 30) != At(left, 30)) return false;
        }
        return true;
    };
    EXPECT_FALSE(isPlain(-47, -33)) << "beside the picture are dots";
    EXPECT_TRUE(isPlain(33, 47)) << "but none over it";

    ScaledBackground faded = *project_.Background;
    faded.Opacity = 0.4;
    project_.Background = std::make_shared<const ScaledBackground>(faded);

    EXPECT_FALSE(isPlain(33, 47));
}

TEST_F(ScaledBackdrops, TurnWithTheRoom) {
    project_.Design.Room.Angle = std::numbers::pi_v<float> / 2; // clockwise: 50, 30 comes to 30, -50

    EXPECT_EQ(At(30, -32), Cyan) << "what was left is above";
    EXPECT_EQ(At(30, -68), Magenta);
    EXPECT_EQ(At(50, 30), Ground());
}

TEST_F(ScaledBackdrops, StayUnderTheCircuitWhenTheViewMoves) {
    At(0, 0);
    project_.Design.View.MidX = 20;
    ASSERT_TRUE(drawing_.Shift(Pieces(), project_));

    EXPECT_EQ(drawing_.Picture().pixel((31 + 80) * 2, (100 - 30) * 2), Cyan);
    EXPECT_EQ(drawing_.Picture().pixel((69 + 80) * 2, (100 - 30) * 2), Magenta);
}

TEST_F(ScaledBackdrops, AreDrawnFromAnyDistance) {
    for (const double cmPerPixel : {1e-4, 0.01, 1000.0}) {
        project_.Background = std::make_shared<const ScaledBackground>(
            ScaledBackground{.Picture = std::make_shared<const std::string>(), .X = -1, .CmPerPixel = cmPerPixel});
        const QRgb ground = Ground();

        EXPECT_EQ(At(-90, 10) == ground, cmPerPixel < 1) << cmPerPixel;
    }
}

} // namespace
} // namespace pistaro
