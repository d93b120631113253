// What lies above the circuit, found by its colours in the picture.
#include "imaging/overlay.h"

#include "imaging/circuit_picture.h"
#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

constexpr Colour Violet = Rgb(160, 0, 200);

class Overlays : public testing::Test {
protected:
    /// On white, a pixel a cm, with 0, 0 in the middle.
    QImage Painted(const Overlay& overlay) const {
        QImage image(frame_.Size, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        ViewSettings view;
        view.Width = 200;
        PaintOverlay(overlay, Pieces(), view, frame_, painter);
        return image;
    }

    /// At a point in cm.
    static bool IsInked(const QImage& image, int x, int y) {
        return image.pixelColor(200 + x, 100 - y) != QColor(Qt::white);
    }

private:
    OffscreenGraphics graphics_;
    CanvasFrame frame_{{400, 200}};
};

TEST_F(Overlays, PathsAreAsThickAsTheyAreTold) {
    const OverlayPath path{.Path = {LineSegment{{-50, 0}, {50, 0}}}, .InkColour = Violet, .Pixels = 6};
    const QImage image = Painted({path});

    EXPECT_EQ(image.pixelColor(200, 100), QColor(160, 0, 200));
    EXPECT_TRUE(IsInked(image, 0, 2));
    EXPECT_FALSE(IsInked(image, 0, 5));
    EXPECT_FALSE(IsInked(image, 60, 0));
}

TEST_F(Overlays, PathsMayBeAsWideAsSomethingInTheWorld) {
    OverlayPath path{.Path = {LineSegment{{-50, 0}, {50, 0}}}, .InkColour = Violet, .Pixels = 6};
    path.Centimetres = 20;
    EXPECT_TRUE(IsInked(Painted({path}), 0, 8));
    EXPECT_FALSE(IsInked(Painted({path}), 0, 12));

    path.Centimetres = 3;
    EXPECT_TRUE(IsInked(Painted({path}), 0, 2)) << "never thinner than its pixels";
}

TEST_F(Overlays, DashedPathsHaveGaps) {
    const QImage image = Painted(
        {OverlayPath{.Path = {LineSegment{{-90, 0}, {90, 0}}}, .InkColour = Violet, .Pixels = 2, .Dashed = true}});
    int changes = 0;
    for (int x = -80; x < 80; ++x)
        changes += IsInked(image, x, 0) != IsInked(image, x + 1, 0);

    EXPECT_GE(changes, 10);
}

TEST_F(Overlays, WhatIsCasedIsToldFromTrackOfItsOwnColour) {
    const std::vector<WorldPoint> square{{-20, -20}, {20, -20}, {20, 20}, {-20, 20}};
    const OverlayPath ground{.Path = {LineSegment{{-90, 0}, {90, 0}}}, .InkColour = Violet, .Pixels = 80};
    const auto paler = [&](const OverlayItem& item) { // pixels other than the ground's own
        const QImage image = Painted({ground, item});
        int count = 0;
        for (int x = -80; x < 80; ++x)
            for (int y = -35; y < 35; ++y)
                count += image.pixelColor(200 + x, 100 - y).green() > 60;
        return count;
    };

    EXPECT_EQ(paler(OverlayArea{square, Violet, true}), 0);
    EXPECT_GT(paler(OverlayArea{square, Violet, true, true}), 1000) << "its ground between the hatches";
    EXPECT_GT(paler(OverlayArea{square, Violet, false, true}), 200) << "round its edge";
    OverlayPath path{.Path = {LineSegment{{-50, 0}, {50, 0}}}, .InkColour = Violet, .Pixels = 4};
    EXPECT_EQ(paler(path), 0);
    path.Cased = true;
    EXPECT_GT(paler(path), 200);
}

TEST_F(Overlays, ReachBesideTheViewsSquare) {
    const QImage image =
        Painted({OverlayPath{.Path = {LineSegment{{-190, 0}, {190, 0}}}, .InkColour = Violet, .Pixels = 3}});

    EXPECT_TRUE(IsInked(image, -180, 0));
    EXPECT_TRUE(IsInked(image, 180, 0));
}

TEST_F(Overlays, AreasAreTintedOrHatched) {
    const std::vector<WorldPoint> square{{-40, -40}, {40, -40}, {40, 40}, {-40, 40}};
    const auto inked = [](const QImage& image) {
        int count = 0;
        for (int x = -30; x < 30; ++x)
            for (int y = -30; y < 30; ++y)
                count += IsInked(image, x, y);
        return count;
    };

    EXPECT_EQ(inked(Painted({OverlayArea{square, Violet, false}})), 3600);
    const int hatched = inked(Painted({OverlayArea{square, Violet, true}}));
    EXPECT_GT(hatched, 200);
    EXPECT_LT(hatched, 1800);
}

TEST_F(Overlays, GhostsLieWhereTheirPiecesWould) {
    // A straight of 35 cm and a width of 15.5 from 0, 0 upwards, then a curve to the left.
    const QImage image = Painted({OverlayPieces{.Codes = {"C160", "C151L"}, .InkColour = Violet}});

    EXPECT_TRUE(IsInked(image, 7, 17));
    EXPECT_TRUE(IsInked(image, 5, 42));
    EXPECT_FALSE(IsInked(image, 20, 17));
    EXPECT_FALSE(IsInked(image, 14, 68));
    EXPECT_TRUE(IsInked(Painted({OverlayPieces{.Codes = {"C160", "C160"}, .InkColour = Violet}}), 14, 68));
}

TEST_F(Overlays, LightPiecesShineThroughAndFadedOnesTakeTheInksColour) {
    const auto colour = [this](PieceLook look) {
        const QImage image = Painted({OverlayPieces{.Codes = {"C160"}, .InkColour = Violet},
                                      OverlayPieces{.Codes = {"C160"}, .InkColour = Rgb(255, 255, 255), .Look = look}});
        return image.pixelColor(206, 83);
    };
    const QColor ghost = Painted({OverlayPieces{.Codes = {"C160"}, .InkColour = Violet}}).pixelColor(206, 83);
    EXPECT_NEAR(ghost.green(), 145, 2); // of 255, 110 of 255 parts violet

    EXPECT_NEAR(colour(PieceLook::Light).green(), 160, 3) << "35 parts white over it";
    EXPECT_NEAR(colour(PieceLook::Faded).green(), 227, 3) << "190 parts white over it";
}

TEST_F(Overlays, AnUnknownCodeLeavesNoGhost) {
    EXPECT_EQ(Painted({OverlayPieces{.Codes = {"X"}, .InkColour = Violet}}), Painted({}));
}

TEST_F(Overlays, HandlesAndTextsStandAtTheirPlaces) {
    EXPECT_TRUE(IsInked(Painted({OverlayHandle{{30, 20}, Violet}}), 30, 20));
    const QImage plate = Painted({OverlayText{{195, 95}, "12 left", Violet}});
    bool found = false;
    for (int x = 100; x < 199; ++x)
        found = found || IsInked(plate, x, 88);
    EXPECT_TRUE(found) << "it stays on the canvas";
}

TEST_F(Overlays, WordsAtATracksEndStandAheadOfIt) {
    constexpr double quarter = 1.5707963;
    constexpr std::pair<int, int> ways[] = {{0, 1}, {-1, 0}, {0, -1}, {1, 0}}; // up, and on to the left
    for (int turn = 0; turn < 4; ++turn) {
        const QImage plate = Painted({OverlayText{{0, 0}, "12 left", Violet, turn * quarter}});
        const auto [right, up] = ways[turn];
        EXPECT_TRUE(IsInked(plate, 25 * right, 25 * up)) << turn;
        for (int back = -12; back < 95; ++back)
            EXPECT_FALSE(IsInked(plate, -back * right, -back * up)) << turn << ", " << back;
    }
}

} // namespace
} // namespace pistaro
