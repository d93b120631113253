// Where the view's square lies on drawing areas of other forms, and what they show beside it.
#include "imaging/canvas_frame.h"

#include "imaging/cached_drawing.h"
#include "imaging/circuit_picture.h"
#include "render/redraw.h"
#include "support/chain.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

ViewSettings View(float x, float y, float width) {
    ViewSettings view;
    view.MidX = x;
    view.MidY = y;
    view.Width = width;
    return view;
}

Project Oval() { return ProjectOf("C160 C151L C151L C151L C151L C160 C151L C151L C151L C151L", "N10105R"); }

QImage SquareAlone(const Project& project, int side) {
    QImage image(side, side, QImage::Format_RGB32);
    QPainter painter(&image);
    PainterSurface surface(painter, TargetSize::Square(side));
    RedrawCircuit(Pieces(), project, surface);
    return image;
}

QImage Drawn(const Project& project, const CanvasFrame& frame) {
    CachedDrawing drawing;
    drawing.Redraw(Pieces(), project, {}, frame);
    return drawing.Picture();
}

/// The greatest difference of a colour's part anywhere in two pictures.
int Difference(const QImage& one, const QImage& other) {
    int most = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            most = std::max(
                {most, std::abs(a.red() - b.red()), std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
        }
    }
    return most;
}

class CanvasFrames : public testing::Test {
    OffscreenGraphics graphics_;
};

TEST_F(CanvasFrames, HaveTheSquareInTheirMiddle) {
    EXPECT_EQ((CanvasFrame{{700, 700}}.Square()), QRect(0, 0, 700, 700));
    EXPECT_EQ((CanvasFrame{{1000, 600}}.Square()), QRect(200, 0, 600, 600));
    EXPECT_EQ((CanvasFrame{{600, 1000}}.Square()), QRect(0, 200, 600, 600));
    EXPECT_EQ((CanvasFrame{{1007, 600}}.Square()), QRect(200, 0, 600, 600)) << "on whole pixels at 150 %";
}

TEST_F(CanvasFrames, ShowMoreOfTheSameWorldBesideTheSquare) {
    const CanvasFrame frame{{1000, 600}};
    const ViewRectangle covered = frame.Covered(View(10, 20, 300)); // 2 pixels a cm

    EXPECT_FLOAT_EQ(covered.ViewLeft, -240); // 10 - 150 - 200 / 2
    EXPECT_FLOAT_EQ(covered.ViewRight, 260);
    EXPECT_FLOAT_EQ(covered.ViewTop, 170);
    EXPECT_FLOAT_EQ(covered.ViewBottom, -130);
}

TEST_F(CanvasFrames, TellWhereAPointOfTheWorldIsShownAndBack) {
    const CanvasFrame frame{{1000, 600}};
    const ViewSettings view = View(10, 20, 300);

    EXPECT_EQ(frame.PlaceOf({10, 20}, view), QPointF(500, 300));
    EXPECT_EQ(frame.PlaceOf({-240, 170}, view), QPointF(0, 0));
    EXPECT_EQ(frame.WorldAt({700, 200}, view), (WorldPoint{110, 70}));
}

TEST_F(CanvasFrames, AreDrawnInTheSquareAsTheSquareAlone) {
    const Project project = Oval();

    EXPECT_EQ(Drawn(project, {{900, 400}}).copy(248, 0, 400, 400), SquareAlone(project, 400));
    EXPECT_EQ(Drawn(project, {{400, 500}}).copy(0, 48, 400, 400), SquareAlone(project, 400));
}

TEST_F(CanvasFrames, ShowTracksAndGridBesideTheSquare) {
    Project project = ProjectOf("C160");
    project.Design.Circuit.Tracks[0].TrackStartX = 200; // the view's square ends at 160
    const CanvasFrame frame{{800, 400}};
    const QImage with = Drawn(project, frame);
    project.Design.Circuit.Tracks[0].ElementCodes.clear();
    const QImage without = Drawn(project, frame);

    EXPECT_EQ(with.copy(0, 0, 600, 400), without.copy(0, 0, 600, 400));
    EXPECT_NE(with.copy(600, 0, 200, 400), without.copy(600, 0, 200, 400));
    project.Preferences.Grid.Type = 0;
    EXPECT_NE(Drawn(project, frame).copy(600, 0, 200, 400), without.copy(600, 0, 200, 400)) << "the grid";
}

TEST_F(CanvasFrames, AShiftedDrawingIsTheOneDrawnAnewWhereItMovedByWholePixels) {
    Project project = Oval();
    project.Design.View.Width = 200; // 2 pixels a cm
    const CanvasFrame frame{{700, 400}};
    CachedDrawing drawing;
    drawing.Redraw(Pieces(), project, {}, frame);

    for (const auto& [x, y] : {std::pair(17.0F, 0.0F), {17.0F, -31.0F}, {-60.0F, 12.0F}, {-61.0F, 90.0F}}) {
        project.Design.View.MidX = x;
        project.Design.View.MidY = y;

        ASSERT_TRUE(drawing.Shift(Pieces(), project));

        // Where a line crosses the edge of what came into sight, its pixels may differ by a rounding.
        EXPECT_LE(Difference(drawing.Picture(), Drawn(project, frame)), 3) << x << " " << y;
    }
}

TEST_F(CanvasFrames, AShiftBesideWholePixelsStaysWithinHalfOfOneHoweverOftenItIsDone) {
    Project project = Oval();
    project.Preferences.Grid.Type = 0;
    project.Design.View.Width = 333;
    const CanvasFrame frame{{500, 400}};
    CachedDrawing drawing;
    drawing.Redraw(Pieces(), project, {}, frame);

    for (int step = 1; step <= 100; ++step) {
        project.Design.View.MidX = static_cast<float>(step % 2 == 0 ? step : -step);
        ASSERT_TRUE(drawing.Shift(Pieces(), project));
    }
    drawing.Redraw(Pieces(), project, {}, frame);

    EXPECT_EQ(drawing.Picture(), Drawn(project, frame)) << "and is drawn as it is when it rests";
}

TEST_F(CanvasFrames, AZoomedDrawingIsNotShifted) {
    Project project = Oval();
    CachedDrawing drawing;
    EXPECT_FALSE(drawing.Shift(Pieces(), project)) << "nothing is drawn yet";
    drawing.Redraw(Pieces(), project, {}, {{300, 300}});

    project.Design.View.Width = 300;

    EXPECT_FALSE(drawing.Shift(Pieces(), project));
}

} // namespace
} // namespace pistaro
