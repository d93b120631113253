// A drawing that keeps its ground must look like one that is drawn anew.
#include "imaging/cached_drawing.h"

#include "imaging/circuit_picture.h"
#include "render/redraw.h"
#include "support/chain.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace pistaro {
namespace {

struct Shown {
    Project Design = ProjectOf("C160 C151L C8005", "N10105R");
    QImage Backdrop;
    QSize Size{200, 200};
    double PixelRatio = 1;
};

QImage DrawnAnew(const Shown& shown) {
    QImage image(PixelsOf(shown.Size, shown.PixelRatio), QImage::Format_RGB32);
    image.setDevicePixelRatio(shown.PixelRatio);
    QPainter painter(&image);
    PainterSurface surface(painter, TargetSize::Square(shown.Size.width()), shown.Backdrop);
    RedrawCircuit(Pieces(), shown.Design, surface);
    return image;
}

void Redraw(CachedDrawing& drawing, const Shown& shown) {
    drawing.Redraw(Pieces(), shown.Design, shown.Backdrop, {shown.Size, shown.PixelRatio});
}

QImage Plain(QRgb colour) {
    QImage image(60, 40, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

class KeptDrawings : public testing::Test {
    OffscreenGraphics graphics_;
};

TEST_F(KeptDrawings, AfterAnyChangeLookAsIfDrawnAnew) {
    const std::vector<std::function<void(Shown&)>> changes{
        [](Shown& shown) { shown.Design.Design.Circuit.Tracks[0].ElementCodes.emplace_back("C156R"); },
        [](Shown& shown) { shown.Design.EditState.Select(1); },
        [](Shown& shown) { shown.Design.EditState.ShowNumbers = true; },
        [](Shown& shown) {
            shown.Design.Design.Room.Points = {{-50, -50, 0}, {90, -50, 1}};
        },
        [](Shown& shown) { shown.Design.Design.View.MidX = 13; },
        [](Shown& shown) { shown.Design.Design.View.Width = 450; },
        [](Shown& shown) { shown.Design.Preferences.Grid.Step = 25; },
        [](Shown& shown) { shown.Design.Preferences.Grid.Type = 1; },
        [](Shown& shown) { shown.Design.Preferences.Units.Inches = true; },
        [](Shown& shown) { shown.Design.Preferences.Colours.Background = Rgb(0, 0, 90); },
        [](Shown& shown) { shown.Design.Preferences.Colours.Rail = Rgb(200, 0, 90); },
        [](Shown& shown) { shown.Backdrop = Plain(qRgb(250, 240, 10)); },
        [](Shown& shown) { shown.Backdrop = Plain(qRgb(10, 240, 250)); },
        [](Shown& shown) { shown.Backdrop = {}; },
        [](Shown& shown) {
            shown.Size = {260, 260};
        },
        [](Shown& shown) { shown.PixelRatio = 2; },
        [](Shown& shown) { shown.PixelRatio = 1.5; },
        [](Shown& shown) { NewProject(shown.Design); },
    };
    Shown shown;
    CachedDrawing drawing;
    Redraw(drawing, shown);
    EXPECT_EQ(drawing.Picture(), DrawnAnew(shown)) << "at first";

    for (std::size_t i = 0; i < changes.size(); ++i) {
        const QImage before = drawing.Picture();
        changes[i](shown);

        Redraw(drawing, shown);

        EXPECT_NE(drawing.Picture(), before) << "change " << i << " shows";
        EXPECT_EQ(drawing.Picture(), DrawnAnew(shown)) << "change " << i;
    }
}

TEST_F(KeptDrawings, LookTheSameHoweverOftenTheyAreRedrawn) {
    const Shown shown;
    CachedDrawing drawing;
    for (int i = 0; i < 3; ++i) {
        Redraw(drawing, shown);

        EXPECT_EQ(drawing.Picture(), DrawnAnew(shown)) << i;
    }
}

TEST_F(KeptDrawings, LeaveThePicturesThatWereTakenOfThemAlone) {
    Shown shown;
    CachedDrawing drawing;
    Redraw(drawing, shown);
    const QImage taken = drawing.Picture();
    const QImage asItWas = DrawnAnew(shown);

    shown.Design.EditState.ShowNumbers = true;
    Redraw(drawing, shown);

    EXPECT_EQ(taken, asItWas);
}

TEST_F(KeptDrawings, HaveAsManyPixelsAsTheRatioAsksFor) {
    Shown shown;
    CachedDrawing drawing;
    EXPECT_TRUE(drawing.Picture().isNull());

    shown.PixelRatio = 2;
    shown.Design.Preferences.Grid.Type = 0;
    Redraw(drawing, shown);

    EXPECT_EQ(drawing.Picture().size(), QSize(400, 400));
    EXPECT_EQ(drawing.Picture().devicePixelRatio(), 2);
    EXPECT_EQ(drawing.Picture().pixel(399, 0), qRgb(255, 255, 255)) << "cleared to its corners";
    EXPECT_EQ(drawing.Picture().pixel(399, 399), qRgb(255, 255, 255));
    EXPECT_EQ(PixelsOf({200, 100}, 1.25), QSize(250, 125));
}

} // namespace
} // namespace pistaro
